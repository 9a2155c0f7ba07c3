// SPDX-License-Identifier: MIT
#include "xlsx/RangeObject.h"

#include <cmath>
#include <string>

#include "automation/MemberNames.h"
#include "automation/Utf8.h"
#include "xlsx/CellReference.h"
#include "xlsx/Palette.h"
#include "xlsx/StyleCodes.h"

namespace planview::xlsx {

namespace {

using Arguments = AutomationObject::Arguments;

constexpr std::int64_t MostValuesAtOnce = 4'000'000;

/// Characters as a cell counts them.
std::size_t LengthOf(std::string_view utf8) {
    std::size_t length = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        length += (byte & 0xC0) == 0x80 ? 0 : byte >= 0xF0 ? 2 : 1;
    }
    return length;
}

/// A cell with this value and nothing else.
Cell CellOf(const Variant& value, TextPool& texts) {
    Cell cell;
    switch (value.GetKind()) {
        case Variant::Kind::Empty:
            break;
        case Variant::Kind::Boolean:
            cell.kind = CellKind::Boolean;
            cell.number = value.AsBoolean() ? 1 : 0;
            break;
        case Variant::Kind::Int16:
        case Variant::Kind::Int32:
        case Variant::Kind::Double:
            cell.kind = CellKind::Number;
            cell.number = value.AsDouble();
            if (!std::isfinite(cell.number)) {
                throw AutomationError(AutomationErrorCode::TypeMismatch, "A cell cannot hold a number without end");
            }
            break;
        case Variant::Kind::Text: {
            constexpr std::size_t LongestText = 32'767;
            const std::string& text = *value.TextIf();
            if (LengthOf(text) > LongestText) {
                throw AutomationError(AutomationErrorCode::Failed, "A cell cannot hold a text of more than " +
                                                                       std::to_string(LongestText) + " characters");
            }
            if (!text.empty()) {
                cell.kind = CellKind::Text;
                cell.number = texts.Intern(IsValidUtf8(text) ? text : ToValidUtf8(text));
            }
            break;
        }
        case Variant::Kind::Nothing:
        case Variant::Kind::Object:
            throw AutomationError(AutomationErrorCode::TypeMismatch, "A cell cannot hold an object");
    }
    return cell;
}

std::uint16_t FormatIdOf(const Variant& format, Workbook& workbook) {
    const std::string* const text = format.TextIf();
    const std::uint16_t known = text ? workbook.FindNumberFormat(*text) : Workbook::NoNumberFormat;
    return known != Workbook::NoNumberFormat ? known : workbook.AddNumberFormat(NumberFormatOf(format));
}

int ColorCodeOf(std::uint8_t index, int none) {
    return index == 0 ? none : index;
}

}  // namespace

std::span<const FontObject::Member> FontObject::Members() {
    static constexpr Member members[] = {
        {"Bold", 1, [](FontObject& self, Arguments) -> Variant { return self.range.Style().bold; },
         [](FontObject& self, Arguments, const Variant& value) {
             self.range.Change(StyleProperty::Bold, value.AsBoolean() ? 1 : 0);
         }},
        {"Size", 2, [](FontObject& self, Arguments) -> Variant { return self.range.Style().fontSize; },
         [](FontObject& self, Arguments, const Variant& value) {
             self.range.Change(StyleProperty::FontSize, FontSizeOf(value));
         }},
    };
    return members;
}

std::span<const InteriorObject::Member> InteriorObject::Members() {
    static constexpr Member members[] = {
        {"ColorIndex", 1,
         [](InteriorObject& self, Arguments) -> Variant { return ColorCodeOf(self.range.Style().fill, NoColor); },
         [](InteriorObject& self, Arguments, const Variant& value) {
             self.range.Change(StyleProperty::Fill, ColorIndexOf(value));
         }},
    };
    return members;
}

std::span<const BordersObject::Member> BordersObject::Members() {
    static constexpr Member members[] = {
        {"LineStyle", 1, [](BordersObject& self, Arguments) -> Variant { return CodeOf(self.range.Style().border); },
         [](BordersObject& self, Arguments, const Variant& value) {
             self.range.Change(StyleProperty::Border, static_cast<double>(LineStyleOf(value)));
         }},
        {"ColorIndex", 2,
         [](BordersObject& self, Arguments) -> Variant {
             return ColorCodeOf(self.range.Style().borderColor, AutomaticColor);
         },
         [](BordersObject& self, Arguments, const Variant& value) {
             self.range.Change(StyleProperty::BorderColor, ColorIndexOf(value));
         }},
    };
    return members;
}

std::span<const RangeObject::Member> RangeObject::Members() {
    static constexpr Member members[] = {
        {"Value", DefaultMember, [](RangeObject& self, Arguments) { return self.Value(); },
         [](RangeObject& self, Arguments arguments, const Variant& value) {
             ExpectArguments(arguments, 0, "Value");
             self.SetValue(value);
         }},
        {"Interior", 1, [](RangeObject& self, Arguments) -> Variant { return self.Interior(); }},
        {"Locked", 2, [](RangeObject& self, Arguments) -> Variant { return self.Style().locked; },
         [](RangeObject& self, Arguments, const Variant& value) {
             self.Change(StyleProperty::Locked, value.AsBoolean() ? 1 : 0);
         }},
        {"NumberFormat", 3,
         [](RangeObject& self, Arguments) -> Variant {
             return self.Of().Book().numberFormats[self.Style().numberFormat];
         },
         [](RangeObject& self, Arguments, const Variant& value) {
             self.Change(StyleProperty::NumberFormat, FormatIdOf(value, self.Of().Book()));
         }},
        {"Font", 4, [](RangeObject& self, Arguments) -> Variant { return self.Font(); }},
        {"Borders", 5, [](RangeObject& self, Arguments) -> Variant { return self.Borders(); }},
        {"HorizontalAlignment", 6,
         [](RangeObject& self, Arguments) -> Variant { return CodeOf(self.Style().alignment); },
         [](RangeObject& self, Arguments, const Variant& value) {
             self.Change(StyleProperty::Alignment, static_cast<double>(AlignmentOf(value)));
         }},
        {"ColumnWidth", 7,
         [](RangeObject& self, Arguments) -> Variant {
             const Sheet& sheet = self.Of().Formats().sheet;
             const auto column = static_cast<std::size_t>(self.Place().firstColumn - 1);
             const SheetColumn& found =
                 column < sheet.Columns().size() ? sheet.Columns()[column] : sheet.OtherColumns();
             return static_cast<double>(found.width);
         },
         [](RangeObject& self, Arguments, const Variant& value) {
             self.Of().Change().sheet.SetWidth(self.Place().firstColumn, self.Place().lastColumn, ColumnWidthOf(value));
         }},
        {"Row", 8, [](RangeObject& self, Arguments) -> Variant { return self.Place().firstRow; }},
        {"Column", 9, [](RangeObject& self, Arguments) -> Variant { return self.Place().firstColumn; }},
        {"Rows", 10,
         [](RangeObject& self, Arguments) -> Variant {
             return std::make_shared<RangeObject>(self.Of(), self.Place(), Unit::Rows);
         }},
        {"Columns", 11,
         [](RangeObject& self, Arguments) -> Variant {
             return std::make_shared<RangeObject>(self.Of(), self.Place(), Unit::Columns);
         }},
        {"Count", 12,
         [](RangeObject& self, Arguments) -> Variant {
             const Area& area = self.Place();
             return self.Counted() == Unit::Rows      ? Variant(area.RowCount())
                    : self.Counted() == Unit::Columns ? Variant(area.ColumnCount())
                                                      : Variant(double{1} * area.RowCount() * area.ColumnCount());
         }},
        {"MergeCells", 13,
         [](RangeObject& self, Arguments) -> Variant {
             return self.Of().Read().merged.Contain(self.Place().firstRow, self.Place().firstColumn);
         }},
    };
    return members;
}

void RangeObject::Change(StyleProperty property, double value) {
    sheet_.Change().sheet.Change(area_, {property, value});
}

const CellStyle& RangeObject::Style() const {
    return sheet_.Book().styles[sheet_.Formats().sheet.StyleAt(area_.firstRow, area_.firstColumn)];
}

Variant RangeObject::Value() const {
    if (area_.RowCount() != 1 || area_.ColumnCount() != 1) {
        SheetContext::Refuse("'Value' is asked of one cell at a time");
    }
    const Cell* const cell = sheet_.Read().sheet.Find(area_.firstRow, area_.firstColumn);
    if (!cell) {
        return {};
    }
    switch (cell->kind) {
        case CellKind::Empty:
            break;
        case CellKind::Number:
            return cell->number;
        case CellKind::Boolean:
            return cell->number != 0;
        case CellKind::Text:
            return sheet_.Book().texts[static_cast<std::uint32_t>(cell->number)];
    }
    return {};
}

void RangeObject::SetValue(const Variant& value) {
    Worksheet& worksheet = sheet_.Formats();
    if (std::int64_t{area_.RowCount()} * area_.ColumnCount() > MostValuesAtOnce) {
        SheetContext::Refuse("A value for more than " + std::to_string(MostValuesAtOnce) +
                             " cells at once is too much");
    }
    const Cell filled = CellOf(value, sheet_.Book().texts);
    for (std::int32_t row = area_.firstRow; row <= area_.lastRow; ++row) {
        for (std::int32_t column = area_.firstColumn; column <= area_.lastColumn; ++column) {
            if (worksheet.isProtected && sheet_.Book().styles[worksheet.sheet.StyleAt(row, column)].locked) {
                SheetContext::Refuse("The sheet '" + worksheet.name + "' is protected and its cell " +
                                     CellName(row, column) + " locked");
            }
            Cell& cell = worksheet.sheet.At(row, column);
            cell.kind = filled.kind;
            cell.number = filled.number;
        }
    }
}

}  // namespace planview::xlsx
