// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include <planview/Export.h>
#include <planview/Spreadsheet.h>

#include "dialogs/PropertyForm.h"

namespace planview {

/// The values of a change as the grid would show them; as they are where the two would look the same.
struct ShownChange {
    std::string before;
    std::string after;
    std::string downloaded;
};
[[nodiscard]] PLANVIEW_EXPORT ShownChange ShownValuesOf(const UploadChange& change);

/// A sentence that the user should read before he ticks or unticks the change; empty for an ordinary one.
[[nodiscard]] PLANVIEW_EXPORT std::string RemarkOf(const UploadChange& change);

/// Shows what an upload or a macro would change and lets the user untick single changes.
class PLANVIEW_EXPORT frmUpload final : public PropertyForm {
public:
    static constexpr std::string_view FormName = "frmUpload";

    /// The preview gets the ticks; it must outlive the form.
    frmUpload(Forms& forms, UploadPreview& preview) : PropertyForm(forms, {}), preview_(preview) {}
    /// The same for the changes of the macro of that name.
    frmUpload(Forms& forms, UploadPreview& preview, std::string macro)
        : PropertyForm(forms, {}), preview_(preview), macro_(std::move(macro)) {}

    [[nodiscard]] std::string_view Name() const noexcept override { return FormName; }
    [[nodiscard]] std::string_view Caption() const noexcept override {
        return IsOfMacro() ? "What the macro changes" : "Upload changed values";
    }
    /// The changes are those of a macro, not of a workbook.
    [[nodiscard]] bool IsOfMacro() const noexcept { return macro_.has_value(); }

    std::string lblFile;     ///< which workbook, or which macro
    std::string lblSummary;  ///< how many changes of which kind

    void Set_Text();

    [[nodiscard]] const UploadPreview& Preview() const noexcept { return preview_; }
    /// The change at this place, from 0. One that is refused stays unticked.
    void Tick(std::size_t place, bool on);
    /// The number of changes that OK applies.
    [[nodiscard]] int Ticked() const noexcept { return ticked_; }

protected:
    [[nodiscard]] std::string_view TraceLabel() const noexcept override { return "FRMUPLOAD"; }
    [[nodiscard]] std::string_view ButtonLabel() const noexcept override { return "FRMUPLOAD"; }
    [[nodiscard]] bool Accept() override { return Ticked() > 0; }

private:
    void NameButton();

    UploadPreview& preview_;
    std::optional<std::string> macro_;
    int ticked_ = 0;
};

/// Shows the form and waits for it; whether the user wants the ticked changes.
[[nodiscard]] bool ConfirmUpload(Forms& forms, UploadPreview& preview);
/// The same for the changes of a macro.
[[nodiscard]] bool ConfirmMacro(Forms& forms, UploadPreview& preview, const std::string& macro);

}  // namespace planview
