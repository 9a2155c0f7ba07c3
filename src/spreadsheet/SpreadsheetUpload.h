// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <planview/Platform.h>
#include <planview/Spreadsheet.h>

#include "automation/TableSlots.h"
#include "grid/ValueEntry.h"
#include "grid/modGrid.h"

namespace planview {

class SpreadsheetSession;

/// Takes changed values from a workbook that the download wrote and somebody edited since.
///
/// Reading changes nothing. What is applied goes the way of a typed value, as one action of the user.
class SpreadsheetUpload {
public:
    struct Parts {
        modGrid& driver;
        const TableSlots& tables;
        const SpreadsheetOptions& options;
        bool& busy;
        ValueEntry& valueEntry;
        ObjectFactory& objects;
        FileDialogs& fileDialogs;
        MessageBoxes& messageBoxes;
        Progress& progress;
        /// Shows the user what would happen and lets him untick changes; whether it is to happen.
        std::function<bool(UploadPreview& preview)> confirm;
    };

    explicit SpreadsheetUpload(Parts parts) : parts_(std::move(parts)) {}

    /// Asks for a file, shows the preview and applies what the user has left ticked; tells him what went wrong. Does
    /// nothing while it runs.
    void Run();
    [[nodiscard]] UploadPreview Preview(const std::string& fileName);
    /// See ApplyTicked().
    UploadResult Apply(const UploadPreview& preview);

private:
    enum class Outcome { Read, Cancelled, NoApplication, Failed };

    [[nodiscard]] Outcome Read(UploadPreview& preview);
    [[nodiscard]] Outcome ReadSheet(SpreadsheetSession& session, UploadPreview& preview);
    /// Asks before much is emptied.
    [[nodiscard]] bool MayEmpty(const UploadPreview& preview) const;
    void Tell(const std::string& text, MessageIcon icon) const;
    void TellSame(const UploadPreview& preview) const;
    void TellResult(const UploadResult& result) const;

    Parts parts_;
    bool running_ = false;
};

}  // namespace planview
