// SPDX-License-Identifier: MIT
#include "xlsx/SheetPartReader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <optional>
#include <utility>

#include "automation/Texts.h"
#include "xlsx/CellReference.h"
#include "xlsx/TextEscapes.h"
#include "xlsx/XmlEvents.h"

namespace planview::xlsx {

namespace {

enum class ValueKind { Number, SharedText, InlineText, FormulaText, Boolean, Error, Date };

ValueKind KindOf(std::string_view type) {
    return type.empty() || type == "n" ? ValueKind::Number
           : type == "s"               ? ValueKind::SharedText
           : type == "inlineStr"       ? ValueKind::InlineText
           : type == "str"             ? ValueKind::FormulaText
           : type == "b"               ? ValueKind::Boolean
           : type == "e"               ? ValueKind::Error
           : type == "d"               ? ValueKind::Date
                                       : ValueKind::FormulaText;
}

/// Around values in a sheet.
constexpr std::string_view Blanks = " \t\r\n";

/// The column of a cell such as "B7"; 0 where it names none or one of another row. ParseCell() does the same for every
/// form of a reference; this one is asked for each cell of a file.
std::int32_t ColumnOf(const char* text, std::int32_t wantedRow) noexcept {
    std::int32_t column = 0;
    for (; *text >= 'A' && *text <= 'Z' && column <= MostColumns; ++text) {
        column = column * 26 + (*text - 'A' + 1);
    }
    std::int32_t row = 0;
    for (; *text >= '0' && *text <= '9' && row <= MostRows; ++text) {
        row = row * 10 + (*text - '0');
    }
    return *text == '\0' && row == wantedRow && column <= MostColumns ? column : 0;
}

template <class Number>
std::optional<Number> Parsed(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// Whether this is "2026-11-21" or "2026-11-21T18:00:00".
bool IsDate(const std::string& text) {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    double second = 0;
    const int found =
        std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%10lf", &year, &month, &day, &hour, &minute, &second);
    return (found == 3 || found >= 5) && year >= 1 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
           day <= 31 && hour >= 0 && hour <= 24 && minute >= 0 && minute <= 59 && second >= 0 && second < 61;
}

class SheetEvents final : public XmlEvents {
public:
    SheetEvents(const DateFormats& dates, Workbook& workbook, Worksheet& worksheet, const ReadLimits& limits,
                std::size_t& budget)
        : dates_(&dates), workbook_(&workbook), worksheet_(&worksheet), limits_(&limits), budget_(&budget) {}

    void Start(std::string_view name, const XmlAttributes& attributes) override {
        target_ = nullptr;
        if (inCell_) {
            StartInCell(name, attributes);
        } else if (!inData_) {
            StartOutside(name, attributes);
        } else if (name == "c") {
            StartCell(attributes);
        } else if (name == "row") {
            StartRow(attributes);
        }
    }

    void End(std::string_view name) override {
        target_ = nullptr;
        if (inCell_) {
            if (name == "c") {
                EndCell();
            } else if (name == "rPh") {
                --phonetic_;
            }
        } else if (name == "row" && inRow_) {
            inRow_ = false;
            if (!cells_.empty()) {
                // A copy, so that each row takes no more than it needs.
                worksheet_->sheet.TakeRow(row_, cells_);
                cells_.clear();
            }
        } else if (name == "sheetData") {
            inData_ = false;
        }
    }

    void Text(std::string_view piece) override {
        if (target_) {
            target_->append(piece);
            if (target_->size() > limits_->tokenBytes) {
                Fail("its text is too long");
            }
        }
    }

    /// To be called at the end of the part.
    void Finish() {
        std::vector<Area>& areas = worksheet_->merged.areas;
        std::sort(areas.begin(), areas.end(),
                  [](const Area& left, const Area& right) { return left.firstRow < right.firstRow; });
    }

private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw BrokenFile("sheet '" + worksheet_->name + "', cell " + CellName(std::max(row_, 1), std::max(column_, 1)) +
                         ": " + what);
    }

    void StartOutside(std::string_view name, const XmlAttributes& attributes) {
        if (name == "sheetData") {
            inData_ = true;
        } else if (name == "mergeCell") {
            if (worksheet_->merged.areas.size() == limits_->mergedAreas) {
                throw BrokenFile("sheet '" + worksheet_->name + "' has more than " +
                                 std::to_string(limits_->mergedAreas) + " merged areas");
            }
            if (const std::optional<Area> area = ParseArea(attributes["ref"])) {
                worksheet_->merged.areas.push_back(*area);
            }
        }
    }

    void StartRow(const XmlAttributes& attributes) {
        const std::string_view reference = attributes["r"];
        const std::int32_t before = row_;
        row_ = reference.empty() ? row_ + 1 : Parsed<std::int32_t>(reference).value_or(0);
        column_ = 0;
        if (row_ < 1 || row_ > MostRows || row_ <= before) {
            throw BrokenFile("sheet '" + worksheet_->name + "': the row after row " + std::to_string(before) +
                             " has no right number");
        }
        inRow_ = true;
    }

    void StartCell(const XmlAttributes& attributes) {
        if (!inRow_) {
            Fail("it stands in no row");
        }
        if (*budget_ == 0) {
            throw BrokenFile("it has more than " + std::to_string(limits_->cells) + " cells");
        }
        --*budget_;
        const std::int32_t before = column_;
        ++column_;
        kind_ = ValueKind::Number;
        style_ = 0;
        attributes.ForEach([&](const char* name, const char* value) {
            if (name[0] == 'r' && name[1] == '\0') {
                column_ = ColumnOf(value, row_);
            } else if (name[0] == 't' && name[1] == '\0') {
                kind_ = KindOf(value);
            } else if (name[0] == 's' && name[1] == '\0') {
                style_ = Parsed<std::uint32_t>(value).value_or(0);
            }
        });
        if (column_ <= before || column_ > MostColumns) {
            column_ = before;
            Fail("the cell behind it has no right place");
        }
        inCell_ = true;
        hasFormula_ = false;
        hasValue_ = false;
        phonetic_ = 0;
        value_.clear();
        formula_.clear();
    }

    void StartInCell(std::string_view name, const XmlAttributes&) {
        if (name == "v") {
            hasValue_ = true;
            value_.clear();
            target_ = &value_;
        } else if (name == "f") {
            hasFormula_ = true;
            target_ = &formula_;
        } else if (name == "rPh") {
            ++phonetic_;
        } else if (name == "t" && kind_ == ValueKind::InlineText && phonetic_ == 0) {
            hasValue_ = true;
            target_ = &value_;
        }
    }

    void EndCell() {
        inCell_ = false;
        Cell cell;
        cell.column = static_cast<std::uint16_t>(column_);
        if (hasFormula_ && (!hasValue_ || (kind_ == ValueKind::Number && Trimmed(value_, Blanks).empty()))) {
            SetText(cell, "=" + formula_);
        } else if (hasValue_) {
            SetValue(cell);
        }
        if (cell.kind != CellKind::Empty) {
            cells_.push_back(cell);
        }
    }

    void SetValue(Cell& cell) {
        switch (kind_) {
            case ValueKind::Number:
                SetNumber(cell);
                break;
            case ValueKind::SharedText:
                SetShared(cell);
                break;
            case ValueKind::InlineText:
            case ValueKind::FormulaText:
                SetText(cell, WithoutEscapes(value_));
                break;
            case ValueKind::Boolean:
                cell.kind = CellKind::Boolean;
                cell.number = Trimmed(value_, Blanks) == "1" || Trimmed(value_, Blanks) == "true" ? 1 : 0;
                break;
            case ValueKind::Error:
                SetText(cell, value_.starts_with('#') ? value_ : "#VALUE!");
                break;
            case ValueKind::Date:
                if (IsDate(value_)) {
                    std::replace(value_.begin(), value_.end(), 'T', ' ');
                    SetText(cell, value_);
                } else {
                    SetText(cell, "#VALUE!");
                }
                break;
        }
    }

    void SetNumber(Cell& cell) {
        const std::string_view text = Trimmed(value_, Blanks);
        if (text.empty()) {
            return;
        }
        double number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (end != text.data() + text.size() || error == std::errc::invalid_argument) {
            SetText(cell, "#VALUE!");
        } else if (error != std::errc() || !std::isfinite(number)) {
            SetText(cell, "#NUM!");
        } else if (dates_->IsDate(style_)) {
            const std::string date = dates_->TextOf(number);
            SetText(cell, date.empty() ? "#VALUE!" : date);
        } else {
            cell.kind = CellKind::Number;
            cell.number = number;
        }
    }

    void SetShared(Cell& cell) const {
        const std::optional<std::uint32_t> id = Parsed<std::uint32_t>(Trimmed(value_, Blanks));
        if (!id || *id >= workbook_->texts.Size()) {
            Fail("it shows a text that the file does not have (number " + value_.substr(0, 20) + " of " +
                 std::to_string(workbook_->texts.Size()) + ")");
        }
        cell.kind = CellKind::Text;
        cell.number = *id;
    }

    void SetText(Cell& cell, const std::string& text) {
        if (text.empty()) {
            return;
        }
        textBytes_ += text.size();
        if (textBytes_ > limits_->textBytes || workbook_->texts.Size() >= 2 * limits_->texts) {
            throw BrokenFile("the texts of sheet '" + worksheet_->name + "' are too many or too long");
        }
        cell.kind = CellKind::Text;
        cell.number = workbook_->texts.Intern(text);
    }

    const DateFormats* dates_;
    Workbook* workbook_;
    Worksheet* worksheet_;
    const ReadLimits* limits_;
    std::size_t* budget_;

    std::vector<Cell> cells_;
    std::string value_;
    std::string formula_;
    std::string* target_ = nullptr;  // where a text goes
    std::size_t textBytes_ = 0;
    std::int32_t row_ = 0;
    std::int32_t column_ = 0;
    std::uint32_t style_ = 0;
    int phonetic_ = 0;
    ValueKind kind_ = ValueKind::Number;
    bool inData_ = false;
    bool inRow_ = false;
    bool inCell_ = false;
    bool hasValue_ = false;
    bool hasFormula_ = false;
};

}  // namespace

void ReadSheet(ZipParts& parts, const std::string& part, const DateFormats& dates, Workbook& workbook,
               Worksheet& worksheet, std::size_t& budget) {
    SheetEvents events(dates, workbook, worksheet, parts.Limits(), budget);
    ReadXml(parts, part, events);
    events.Finish();
}

}  // namespace planview::xlsx
