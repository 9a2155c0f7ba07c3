// SPDX-License-Identifier: MIT
#include "xlsx/WorksheetObject.h"

#include <algorithm>
#include <optional>
#include <string>

#include "automation/MemberNames.h"
#include "automation/Utf8.h"
#include "xlsx/CellReference.h"

namespace planview::xlsx {

namespace {

using Arguments = AutomationObject::Arguments;

constexpr int Portrait = 1;
constexpr int Landscape = 2;

/// "$1:$2"; the empty text is no row.
Area TitleArea(const Variant& value, bool rows) {
    const std::string text = value.AsText();
    const std::optional<Area> area = ParseArea(text);
    if (!area || (rows ? !area->HasAllColumns() || area->HasAllRows() : !area->HasAllRows() || area->HasAllColumns())) {
        throw AutomationError(AutomationErrorCode::TypeMismatch,
                              "'" + text + "' names no " + (rows ? "rows, such as $1:$1" : "columns, such as $A:$A"));
    }
    return *area;
}

std::int32_t SplitAt(const Variant& value, std::int32_t most) {
    return value.AsInt32() == 0 ? 0 : NumberUpTo(value, most, "The split at");
}

}  // namespace

std::span<const PageSetupObject::Member> PageSetupObject::Members() {
    static constexpr Member members[] = {
        {"Orientation", 1,
         [](PageSetupObject& self, Arguments) -> Variant {
             return self.sheet.Formats().page.landscape ? Landscape : Portrait;
         },
         [](PageSetupObject& self, Arguments, const Variant& value) {
             self.sheet.Formats().page.landscape = NumberUpTo(value, Landscape, "The orientation") == Landscape;
         }},
        {"PrintTitleRows", 2,
         [](PageSetupObject& self, Arguments) -> Variant {
             const PageSetup& page = self.sheet.Formats().page;
             return page.firstTitleRow == 0
                        ? std::string()
                        : '$' + std::to_string(page.firstTitleRow) + ":$" + std::to_string(page.lastTitleRow);
         },
         [](PageSetupObject& self, Arguments, const Variant& value) {
             const Area area = value.AsText().empty() ? Area{0, 0} : TitleArea(value, true);
             self.sheet.Formats().page.firstTitleRow = area.firstRow;
             self.sheet.Formats().page.lastTitleRow = area.lastRow;
         }},
        {"PrintTitleColumns", 3,
         [](PageSetupObject& self, Arguments) -> Variant {
             const PageSetup& page = self.sheet.Formats().page;
             return page.firstTitleColumn == 0
                        ? std::string()
                        : '$' + ColumnName(page.firstTitleColumn) + ":$" + ColumnName(page.lastTitleColumn);
         },
         [](PageSetupObject& self, Arguments, const Variant& value) {
             const Area area = value.AsText().empty() ? Area{0, 0, 0, 0} : TitleArea(value, false);
             self.sheet.Formats().page.firstTitleColumn = area.firstColumn;
             self.sheet.Formats().page.lastTitleColumn = area.lastColumn;
         }},
    };
    return members;
}

std::span<const WindowObject::Member> WindowObject::Members() {
    static constexpr Member members[] = {
        {"SplitRow", 1, [](WindowObject& self, Arguments) -> Variant { return self.sheet.Formats().panes.rows; },
         [](WindowObject& self, Arguments, const Variant& value) {
             self.sheet.Formats().panes.rows = SplitAt(value, MostRows - 1);
         }},
        {"SplitColumn", 2, [](WindowObject& self, Arguments) -> Variant { return self.sheet.Formats().panes.columns; },
         [](WindowObject& self, Arguments, const Variant& value) {
             self.sheet.Formats().panes.columns = SplitAt(value, MostColumns - 1);
         }},
        {"FreezePanes", 3, [](WindowObject& self, Arguments) -> Variant { return self.sheet.Formats().panes.frozen; },
         [](WindowObject& self, Arguments, const Variant& value) {
             self.sheet.Formats().panes.frozen = value.AsBoolean();
         }},
    };
    return members;
}

std::span<const WorksheetObject::Member> WorksheetObject::Members() {
    using Unit = RangeObject::Unit;
    static constexpr Member members[] = {
        {"Cells", 1,
         [](WorksheetObject& self, Arguments arguments) {
             if (arguments.empty()) {
                 return self.Range({}, Unit::Cells);
             }
             ExpectArguments(arguments, 2, "Cells");
             const std::int32_t row = NumberUpTo(arguments[0], MostRows, "Row");
             const std::int32_t column = NumberUpTo(arguments[1], MostColumns, "Column");
             return self.Range({row, row, column, column}, Unit::Cells);
         }},
        {"Columns", 2,
         [](WorksheetObject& self, Arguments arguments) {
             if (arguments.empty()) {
                 return self.Range({}, Unit::Columns);
             }
             ExpectArguments(arguments, 1, "Columns");
             const std::int32_t column = NumberUpTo(arguments[0], MostColumns, "Column");
             return self.Range({1, MostRows, column, column}, Unit::Columns);
         }},
        {"Rows", 3,
         [](WorksheetObject& self, Arguments arguments) {
             if (arguments.empty()) {
                 return self.Range({}, Unit::Rows);
             }
             ExpectArguments(arguments, 1, "Rows");
             const std::int32_t row = NumberUpTo(arguments[0], MostRows, "Row");
             return self.Range({row, row, 1, MostColumns}, Unit::Rows);
         }},
        {"Name", 4, [](WorksheetObject& self, Arguments) -> Variant { return self.Of().Read().name; },
         [](WorksheetObject& self, Arguments, const Variant& value) { self.Rename(value.AsText()); }},
        {"Protect", 5, nullptr, nullptr,
         [](WorksheetObject& self, Arguments arguments) -> Variant {
             ExpectArguments(arguments, 0, "Protect");
             self.Of().Formats().isProtected = true;
             return {};
         }},
        {"Unprotect", 6, nullptr, nullptr,
         [](WorksheetObject& self, Arguments arguments) -> Variant {
             ExpectArguments(arguments, 0, "Unprotect");
             self.Of().Formats().isProtected = false;
             return {};
         }},
        {"PageSetup", 7,
         [](WorksheetObject& self, Arguments) -> Variant { return std::make_shared<PageSetupObject>(self.Of()); }},
        {"UsedRange", 8,
         [](WorksheetObject& self, Arguments) { return self.Range(self.Of().Read().sheet.UsedArea(), Unit::Cells); }},
        {"Visible", 9,
         [](WorksheetObject& self, Arguments) -> Variant { return static_cast<int>(self.Of().Read().visibility); },
         [](WorksheetObject& self, Arguments, const Variant& value) { self.SetVisible(value.AsInt32()); }},
        {"Move", 10, nullptr, nullptr,
         [](WorksheetObject& self, Arguments arguments) -> Variant {
             ExpectArguments(arguments, 1, "Move");
             const auto* const before = dynamic_cast<const WorksheetObject*>(arguments[0].AsObject().get());
             if (!before) {
                 throw AutomationError(AutomationErrorCode::TypeMismatch, "A sheet is moved before another sheet");
             }
             self.MoveBefore(*before);
             return {};
         }},
    };
    return members;
}

/// -1 and 1 show the sheet; one sheet always stays in sight.
void WorksheetObject::SetVisible(std::int32_t code) {
    Worksheet& worksheet = sheet_.Formats();
    const SheetVisibility visibility =
        code == 0 || code == 2 ? static_cast<SheetVisibility>(code) : SheetVisibility::Visible;
    if (visibility != SheetVisibility::Visible && !sheet_.Book().ShowAnotherThan(worksheet)) {
        SheetContext::Refuse("The sheet '" + worksheet.name +
                             "' is the only one that can be seen; it cannot be hidden");
    }
    worksheet.visibility = visibility;
}

void WorksheetObject::MoveBefore(const WorksheetObject& other) {
    const Worksheet& moved = sheet_.Formats();
    const Worksheet& before = other.sheet_.Formats();
    Workbook& book = sheet_.Book();
    if (&book != &other.sheet_.Book()) {
        SheetContext::Refuse("A sheet cannot be moved into another workbook");
    }
    const Worksheet* const inFront = book.worksheets[book.activeSheet].get();
    const auto at = [&](const Worksheet& sheet) {
        return book.worksheets.begin() + static_cast<std::ptrdiff_t>(book.PlaceOf(sheet));
    };
    const auto from = at(moved);
    const auto to = at(before);
    if (from < to) {
        std::rotate(from, from + 1, to);
    } else {
        std::rotate(to, from, from + 1);
    }
    book.activeSheet = book.PlaceOf(*inFront);
}

void WorksheetObject::Rename(const std::string& name) {
    constexpr std::size_t LongestName = 31;
    Worksheet& worksheet = sheet_.Change();
    const auto length = static_cast<std::size_t>(
        std::count_if(name.begin(), name.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
    if (name.empty() || length > LongestName || !IsValidUtf8(name) || name.starts_with('\'') || name.ends_with('\'') ||
        name.find_first_of("[]:*?/\\") != std::string::npos ||
        std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; })) {
        SheetContext::Refuse("'" + ToValidUtf8(name, 100) + "' is no name for a sheet: it takes 1 to 31 characters, " +
                             "without [ ] : * ? / \\ and without ' at its ends");
    }
    for (const auto& other : sheet_.Book().worksheets) {
        if (other.get() != &worksheet && SameMemberName(other->name, name)) {
            SheetContext::Refuse("There is a sheet named '" + name + "' already");
        }
    }
    worksheet.name = name;
}

}  // namespace planview::xlsx
