// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <planview/Platform.h>
#include <planview/Spreadsheet.h>

#include "automation/ErrorText.h"
#include "automation/HostTable.h"

namespace planview {

inline constexpr std::string_view NoApplicationText = "No connection to Microsoft Excel !";
inline constexpr std::string_view ProposedFileName = "Plan.xlsx";

inline void TellNoApplication(MessageBoxes& messageBoxes) {
    messageBoxes.Show({std::string(NoApplicationText), "Internal error message", MessageButtons::Ok, MessageIcon::Error,
                       MessageAnswer::Ok});
}

/// What both file dialogs have in common.
[[nodiscard]] inline FileDialogRequest WorkbookRequest(const SpreadsheetOptions& options) {
    return {{}, options.folder, {}, "Workbooks", {"xlsx"}};
}

/// The host's own words, by their number in TEXTS; in English where it has none.
[[nodiscard]] inline std::string SaveDialogTitle(const HostTable& texts) {
    constexpr std::string_view Entry = "135";
    std::string title;
    if (texts.IsSet()) {
        (void)ErrorTextOf([&] {
            const HostTable::Row row = texts.FindRow("ENTRY", Entry);
            title = row == 0 ? std::string() : texts.Text(row, "TEXT");
        });
    }
    return title.empty() ? "Save to Excel sheet" : title;
}

}  // namespace planview
