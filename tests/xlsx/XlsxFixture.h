// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <planview/xlsx/SpreadsheetApplication.h>

#include "automation/Late.h"

namespace planview::test {

/// A spreadsheet application and a folder of its own for each test.
class XlsxTest : public testing::Test {
protected:
    XlsxTest();
    ~XlsxTest() override;

    [[nodiscard]] std::filesystem::path Path(std::string_view name) const;
    [[nodiscard]] Late NewSheet() { return book_.Get("Worksheets", "Tabelle1"); }
    /// A value of a sheet as text, with its kind's first letter before it: "d:1.5", "t:abc", "e:" for an empty cell.
    [[nodiscard]] static std::string ValueAt(const Late& sheet, int row, int column);
    /// The message of the AutomationError of opening the file; empty where it opens.
    [[nodiscard]] std::string OpenMessage(const std::filesystem::path& file) const;

    Late application_{xlsx::MakeApplication()};
    Late book_ = application_.Get("Workbooks").Call("Add");

private:
    std::filesystem::path folder_;
};

/// The text of the AutomationError that `action` throws; empty when it throws none.
template <class Action>
std::string AutomationMessage(Action action) {
    try {
        action();
    } catch (const AutomationError& error) {
        return error.what();
    }
    return {};
}

/// What a script beside these tests prints; its last line is "failed" where it did not end well.
[[nodiscard]] std::string RunScript(const std::string& nameAndArguments);

using PackageParts = std::map<std::string, std::string>;

/// The parts of a workbook with one sheet "S" and these rows as XML; further or other parts can be set.
[[nodiscard]] PackageParts PartsWith(std::string_view rows, std::string_view afterRows = "");
void WritePackage(const std::filesystem::path& file, const PackageParts& parts);

[[nodiscard]] std::string ReadAll(const std::filesystem::path& file);
void WriteAll(const std::filesystem::path& file, std::string_view contents);

/// What the process holds in memory at most so far, in bytes.
[[nodiscard]] std::size_t MostMemory();

}  // namespace planview::test
