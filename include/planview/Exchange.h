// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/Spreadsheet.h>

namespace planview {

/// Exchange with a spreadsheet application: "Excel.Application" of the platform's objects. Paths are UTF-8.
class PLANVIEW_EXPORT Exchange final : public Facet {
public:
    /// That of this control.
    explicit Exchange(PlanView& control) noexcept : Facet(control) {}

    /// @{
    /// How workbooks are written and where their dialogs open; kept for the life of the control. The reference is valid
    /// until they are set again, as long as the control or a handle like this one.
    void SetOptions(SpreadsheetOptions options);
    [[nodiscard]] const SpreadsheetOptions& Options() const noexcept;
    /// @}
    /// @{
    /// Ask for a file, work and tell what went wrong, as the entries of the grid's popup do.
    void Download();
    void Upload();
    /// @}
    /// Writes the grid into a new workbook without asking. A sentence about what went wrong, empty when the file is
    /// written; a failure leaves an older file of that name as it was.
    [[nodiscard]] std::string DownloadTo(const std::string& path);
    /// What an upload of the workbook would change. Changes nothing.
    [[nodiscard]] UploadPreview PreviewUpload(const std::string& path);
    /// Applies the ticked changes of a preview as one action of the user: one undo step, events as for a paste. Cells
    /// that have changed since the preview was made are left alone.
    UploadResult ApplyUpload(const UploadPreview& preview);
};

}  // namespace planview
