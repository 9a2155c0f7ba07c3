// SPDX-License-Identifier: MIT
#include "book/BookCheck.h"

#include <QString>
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include <planview/AutomationObject.h>

#include "book/BookSnapshot.h"
#include "book/CellValue.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

constexpr std::size_t MaxTextBytes = 65535;  // a view takes no longer one
constexpr std::int16_t LastRelation = 4;

/// The number as a view reads it; none where it cannot.
std::optional<std::int16_t> NumberIn(const Variant& value) {
    try {
        return value.AsInt16();
    } catch (const planview::AutomationError&) {
        return std::nullopt;
    }
}

std::string Quoted(const Variant& value) {
    constexpr int ShownLength = 40;
    try {
        const QString text = QString::fromStdString(value.AsText());
        return '"' + text.left(ShownLength).toStdString() + (text.size() > ShownLength ? "...\"" : "\"");
    } catch (const planview::AutomationError&) {
        return "a value beyond all numbers";
    }
}

/// Empty where it is no text.
std::string TextOf(const Variant& value) {
    try {
        return value.AsText();
    } catch (const planview::AutomationError&) {
        return {};
    }
}

bool IsBlank(const Variant& value) {
    return SameValue(value, Variant());
}

/// Why a view could not read the field; empty when it can.
std::string FaultOf(const FieldDescription& field, const Variant& value) {
    switch (field.type) {
        case FieldType::Integer:
            return NumberIn(value) ? "" : Quoted(value) + " is no whole number up to 32767";
        case FieldType::Real:
            try {
                return std::isfinite(value.AsDouble()) ? "" : Quoted(value) + " is no number";
            } catch (const planview::AutomationError&) {
                return Quoted(value) + " is no number";
            }
        case FieldType::Text:
        case FieldType::Any:
            break;
    }
    try {
        const std::string* own = value.TextIf();
        const std::size_t size = own ? own->size() : value.AsText().size();
        return size <= MaxTextBytes ? "" : "a text of " + std::to_string(size) + " bytes is too long";
    } catch (const planview::AutomationError&) {
        return Quoted(value) + " is no text";
    }
}

/// The fields by which a row has its place; the row is worth nothing without.
std::array<std::string_view, 2> PlaceFields(BookTable table) {
    switch (table) {
        case BookTable::ColsIndex:
            return {"COLUMN", ""};
        case BookTable::LineIndex:
            return {"LINE", ""};
        case BookTable::FixedCols:
            return {"COLUMN_FIX", ""};
        case BookTable::FixedLines:
            return {"LINE_FIX", ""};
        case BookTable::Tab:
        case BookTable::TabOld:
            return {"Z", "C"};
        case BookTable::FixedTab:
        case BookTable::CellAttr:
            return {"COLUMN", "LINE"};
        default:
            return {"", ""};
    }
}

bool IsIndex(BookTable table) {
    return table == BookTable::ColsIndex || table == BookTable::LineIndex || table == BookTable::FixedCols ||
           table == BookTable::FixedLines;
}

/// The texts that planners read as part of the plan, and what macros calculate by.
bool IsContents(BookTable table, std::string_view field) {
    return (table == BookTable::MacroTree && (field == "NODETYPE" || field == "NODEVALUE")) ||
           (table == BookTable::Formulas && (field == "TARGET" || field == "FORMULA")) ||
           (table == BookTable::FixedTab && field == "VALUE") || (table == BookTable::ColsIndex && field == "PERDY") ||
           (table == BookTable::LineIndex && (field == "FREET" || field == "DDICT" || field == "PLOBT"));
}

std::string Counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

/// Walks the tables, those first in which the places of the others stand.
class BookCheck {
public:
    explicit BookCheck(const Book& book) : book_(book) {}

    BookReport Run() {
        for (const BookTable table :
             {BookTable::ColsIndex, BookTable::LineIndex, BookTable::FixedCols, BookTable::FixedLines}) {
            CheckTable(table);
        }
        for (const BookTable table : AllBookTables()) {
            if (!IsIndex(table)) {
                CheckTable(table);
            }
        }
        return std::move(report_);
    }

private:
    void CheckTable(BookTable which) {
        const TableDescription& description = Describe(which);
        if (which == BookTable::MacroTree) {
            CheckNodes(description);
        }
        std::vector<std::size_t> leftOut;
        for (std::int32_t row = 1; row <= book_[which].RowCount(); ++row) {
            if ((which == BookTable::MacroTree && strayNodes_.count(row) > 0) || !CheckPlace(description, row)) {
                leftOut.push_back(static_cast<std::size_t>(row) - 1);
                continue;
            }
            for (const FieldDescription& field : description.fields) {
                CheckField(description, row, field);
            }
        }
        if (!leftOut.empty()) {
            LeaveOut(description, leftOut);
            report_.leftOut_[static_cast<std::size_t>(which)] = std::move(leftOut);
        }
    }

    /// A node stands beside or below one that is there already; roots are placed first. A macro that lacks a node would
    /// calculate something else.
    void CheckNodes(const TableDescription& description) {
        const MemoryTable& table = book_[BookTable::MacroTree];
        std::map<std::string, std::int32_t> placed;
        const auto leaveOut = [&](std::int32_t row, std::string_view field, const std::string& why) {
            Add(description, row, field, why + "; the node is left out", true);
            strayNodes_.insert(row);
        };
        for (const bool roots : {true, false}) {
            for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
                const Variant& key = table.Value(row, "NODEKEY");
                const Variant& reference = table.Value(row, "NODEREF");
                if (TextOf(reference).empty() != roots || TextOf(key).empty()) {
                    continue;
                }
                const std::optional<std::int16_t> relation = NumberIn(table.Value(row, "RELATION"));
                if (!roots && placed.count(TextOf(reference)) == 0) {
                    leaveOut(row, "NODEREF", "there is no node " + Quoted(reference));
                } else if (!roots && (!relation || *relation < 0 || *relation > LastRelation)) {
                    leaveOut(row, "RELATION", Quoted(table.Value(row, "RELATION")) + " is no relation of nodes");
                } else if (const auto [first, isNew] = placed.emplace(TextOf(key), row); !isNew) {
                    leaveOut(row, "NODEKEY",
                             Quoted(key) + " stands in row " + std::to_string(first->second) + " already");
                } else if (roots && (!relation || *relation < 0 || *relation > LastRelation)) {
                    book_[BookTable::MacroTree].SetValue(row, "RELATION", Variant());  // means nothing for a root
                }
            }
        }
    }

    void LeaveOut(const TableDescription& description, const std::vector<std::size_t>& rows) {
        MemoryTable& table = book_[description.table];
        const BookRows all = RowsOf(table, description);
        table.Clear();
        std::size_t next = 0;
        for (std::size_t row = 0; row < all.size(); ++row) {
            if (next < rows.size() && rows[next] == row) {
                ++next;
            } else {
                table.AddRow(all[row]);
            }
        }
    }

    void Add(const TableDescription& table, std::int32_t row, std::string_view field, std::string what,
             bool losesValues) {
        report_.faults_.push_back({table.table, row, field, std::move(what), losesValues});
    }

    /// False when the row cannot be shown.
    bool CheckPlace(const TableDescription& description, std::int32_t row) {
        const MemoryTable& table = book_[description.table];
        std::array<std::int16_t, 2> place{};
        const std::array<std::string_view, 2> fields = PlaceFields(description.table);
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (fields[i].empty()) {
                continue;
            }
            const Variant& value = table.Value(row, fields[i]);
            const std::optional<std::int16_t> number = NumberIn(value);
            if (!number || *number < (IsIndex(description.table) ? 1 : 0)) {
                Add(description, row, fields[i], Quoted(value) + " is no place; the row is left out",
                    description.table != BookTable::CellAttr && description.table != BookTable::TabOld);
                return false;
            }
            place[i] = *number;
        }
        switch (description.table) {
            case BookTable::ColsIndex:
            case BookTable::LineIndex:
                return IsNew(description, row, fields[0], {"", place[0]});
            case BookTable::FixedCols:
            case BookTable::FixedLines:
                return IsNew(description, row, fields[0], {TextOf(table.Value(row, "FLG_POSITION")), place[0]});
            case BookTable::Tab:
                return CheckCell(description, row, {place[0], place[1]});
            case BookTable::FixedTab:
                return CheckFixedCell(description, row, place[0], place[1]);
            default:
                return true;
        }
    }

    /// A side and a number in it.
    using Key = std::pair<std::string, std::int16_t>;

    bool IsNew(const TableDescription& description, std::int32_t row, std::string_view field, const Key& key) {
        const auto [first, isNew] = Places(description.table).emplace(key, row);
        if (!isNew) {
            Add(description, row, field,
                std::to_string(key.second) + " stands in row " + std::to_string(first->second) +
                    " already; the row is left out",
                true);
        }
        return isNew;
    }

    /// Cells with a 0 in their place note that a fixed cell was edited.
    bool CheckCell(const TableDescription& description, std::int32_t row, CellPosition cell) {
        if (cell.row == 0 || cell.column == 0) {
            return true;
        }
        const Variant& value = book_[BookTable::Tab].Value(row, "V");
        const bool hasLine = Has(BookTable::LineIndex, {"", static_cast<std::int16_t>(cell.row)});
        if (!hasLine || !Has(BookTable::ColsIndex, {"", static_cast<std::int16_t>(cell.column)})) {
            if (!IsBlank(value)) {
                Add(description, row, hasLine ? "C" : "Z",
                    (hasLine ? "there is no period " + std::to_string(cell.column)
                             : "there is no line " + std::to_string(cell.row)) +
                        "; the value " + Quoted(value) + " is left out",
                    true);
            }
            return false;
        }
        const auto [first, isNew] = cells_.try_emplace({cell.row, cell.column}, row);
        if (!isNew && !SameValue(book_[BookTable::Tab].Value(first->second, "V"), value)) {
            Add(description, row, "V",
                "row " + std::to_string(first->second) + " has a value for this cell already; " + Quoted(value) +
                    " is left out",
                true);
        }
        return isNew;
    }

    bool CheckFixedCell(const TableDescription& description, std::int32_t row, std::int16_t column, std::int16_t line) {
        const MemoryTable& table = book_[description.table];
        const std::string columnSide = TextOf(table.Value(row, "FLG_COL_FIX"));
        const std::string lineSide = TextOf(table.Value(row, "FLG_LINE_FIX"));
        const bool fixedColumn = columnSide == "L" || columnSide == "R";
        const bool fixedLine = lineSide == "T" || lineSide == "B";
        const bool hasColumn =
            fixedColumn ? (columnSide == "L" && column == 0) || Has(BookTable::FixedCols, {columnSide, column})
                        : Has(BookTable::ColsIndex, {"", column});
        const bool hasLine = fixedLine ? (lineSide == "T" && line == 0) || Has(BookTable::FixedLines, {lineSide, line})
                                       : Has(BookTable::LineIndex, {"", line});
        if (hasColumn && hasLine) {
            return true;
        }
        const Variant& value = table.Value(row, "VALUE");
        if (!IsBlank(value)) {
            Add(description, row, hasLine ? "COLUMN" : "LINE",
                "there is no such cell; " + Quoted(value) + " is left out", true);
        }
        return false;
    }

    void CheckField(const TableDescription& description, std::int32_t row, const FieldDescription& field) {
        MemoryTable& table = book_[description.table];
        const Variant& value = table.Value(row, field.name);
        if (field.name == "V") {
            if (NumberIn(table.Value(row, "Z")) == 0 || NumberIn(table.Value(row, "C")) == 0) {
                return;  // of a fixed cell, which may hold a text
            }
            if (!IsCellValue(value)) {
                Add(description, row, field.name, Quoted(value) + " is no number; the cell is shown empty",
                    description.table == BookTable::Tab);
                table.SetValue(row, field.name, Variant());
            } else if (IsBlank(value) && !value.IsEmpty()) {
                table.SetValue(row, field.name, "");
            }
            return;
        }
        if (std::string what = FaultOf(field, value); !what.empty()) {
            Add(description, row, field.name, what + "; it is taken as empty",
                IsContents(description.table, field.name));
            table.SetValue(row, field.name, Variant());
        }
    }

    [[nodiscard]] std::map<Key, std::int32_t>& Places(BookTable table) {
        return places_[static_cast<std::size_t>(table)];
    }
    [[nodiscard]] bool Has(BookTable table, const Key& key) { return Places(table).count(key) > 0; }

    const Book& book_;
    BookReport report_;
    std::set<std::int32_t> strayNodes_;
    std::array<std::map<Key, std::int32_t>, BookTableCount> places_;  // with the first row of each
    std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> cells_;
};

bool BookReport::LosesValues() const noexcept {
    return std::any_of(faults_.begin(), faults_.end(), [](const BookFault& fault) { return fault.losesValues; });
}

bool BookReport::Concerns(BookTable table) const noexcept {
    return !LeftOut(table).empty() ||
           std::any_of(faults_.begin(), faults_.end(), [&](const BookFault& fault) { return fault.table == table; });
}

void BookReport::AddFormulaFault(std::int32_t row, std::string what) {
    faults_.push_back({BookTable::Formulas, row, "FORMULA", std::move(what), false});
    ++formulaFaults_;
}

std::string BookReport::Headline() const {
    const std::size_t places = faults_.size() - formulaFaults_;
    std::string text;
    if (places > 0 || formulaFaults_ == 0) {
        text = Counted(places, "place") + " of the book cannot be read" +
               (LosesValues() ? ", so that figures, captions or macros are missing." : ".");
    }
    if (formulaFaults_ > 0) {
        text += (text.empty() ? "" : " ") + Counted(formulaFaults_, "formula") +
                " of the book cannot be computed; the values stay as they are.";
    }
    return text;
}

std::string BookReport::List(std::size_t most) const {
    std::string list;
    for (std::size_t i = 0; i < std::min(most, faults_.size()); ++i) {
        const BookFault& fault = faults_[i];
        list += (i == 0 ? "" : "\n") + std::string(Describe(fault.table).name) +
                (fault.row == 0 ? "" : ", row " + std::to_string(fault.row) + ", field " + std::string(fault.field)) +
                ": " + fault.what;
    }
    return faults_.size() > most ? list + "\nand " + std::to_string(faults_.size() - most) + " more" : list;
}

BookReport MakeReadable(const Book& book) {
    return BookCheck(book).Run();
}

bool IsCellValue(const Variant& value) {
    if (IsBlank(value)) {
        return true;
    }
    const std::optional<double> number = NumberOf(value);
    return number && std::isfinite(*number);
}

std::string ReportText(const std::filesystem::path& book, const BookReport& report) {
    constexpr std::size_t MostInTerminal = 20;
    return "planbook: \"" + book.string() + "\" is incomplete: " + report.Headline() + "\n" +
           report.List(MostInTerminal) + "\nMend these places, or take the book from a backup.\n";
}

}  // namespace planbook
