// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <planview/Platform.h>

#include "automation/ErrorText.h"
#include "automation/Late.h"
#include "trace/ErrorTrap.h"

namespace planview {

inline constexpr std::string_view SpreadsheetLabel = "EXCEL";

/// The spreadsheet application, its workbook and its worksheet for the time of one download or upload; reached by
/// member names, so that any application object will do that has them.
///
/// Each operation is a procedure with an entry of its own in the trace and an error trap of its own: a failing call
/// ends it, and it answers false. The text of the first failure is kept for the user.
class SpreadsheetSession {
public:
    explicit SpreadsheetSession(ObjectFactory& objects) : objects_(objects) {}

    /// Makes the application object and looks at its version. False when there is none.
    [[nodiscard]] bool Connect();
    /// Whether the application says that it is version "8.0". It is used whatever it says.
    bool CheckVersion();
    /// A new workbook with a title and a subject; its sheet "Tabelle1" becomes the worksheet.
    [[nodiscard]] bool NewSheet();
    /// Opens a workbook; its active sheet becomes the worksheet.
    [[nodiscard]] bool GetActiveSheet(const std::string& fileName);
    [[nodiscard]] bool Saveas(const std::string& fileName);
    void Quit();
    /// Lets workbook, worksheet and application go.
    void Terminate();

    [[nodiscard]] const Late& Application() const noexcept { return application_; }
    [[nodiscard]] const Late& Workbook() const noexcept { return workbook_; }
    [[nodiscard]] const Late& Worksheet() const noexcept { return worksheet_; }
    [[nodiscard]] const std::string& SheetName() const noexcept { return sheetName_; }
    /// The first failure; empty when there was none.
    [[nodiscard]] const std::string& Error() const noexcept { return error_; }

    /// Runs a procedure's body under its error trap.
    template <class Body>
    bool Run(std::string_view procedure, Body&& body) {
        const std::optional<CaughtError> error = CaughtErrorOf(body);
        if (error) {
            TraceError(SpreadsheetLabel, procedure, *error);
            error_ = error_.empty() ? error->text : error_;
        }
        return !error;
    }

private:
    ObjectFactory& objects_;
    Late application_{ObjectRef()};
    Late workbook_{ObjectRef()};
    Late worksheet_{ObjectRef()};
    std::string fileName_;
    std::string sheetName_;
    std::string error_;
};

}  // namespace planview
