// SPDX-License-Identifier: MIT
#include "book/PlanEdits.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "book/CellValue.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

CellPosition PositionAt(const MemoryTable& table, std::int32_t row) {
    const auto number = [&](const char* field) {
        return static_cast<std::int32_t>(NumberOf(table.Value(row, field)).value_or(0));
    };
    return {number("Z"), number("C")};
}

/// The first row of each cell of TAB or TAB_OLD.
std::map<CellPosition, std::int32_t> RowsByPosition(const MemoryTable& table) {
    std::map<CellPosition, std::int32_t> rows;
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        rows.emplace(PositionAt(table, row), row);
    }
    return rows;
}

bool IsSet(const MemoryTable& table, std::int32_t row, const char* field) {
    return table.Value(row, field).AsText() == "X";
}

std::int32_t NumberIn(const MemoryTable& table, std::int32_t row, const char* field) {
    return static_cast<std::int32_t>(NumberOf(table.Value(row, field)).value_or(0));
}

/// Without those that are computed: a total over time is no period of its own.
std::vector<std::int32_t> PeriodsOf(const Book& book, bool hiddenToo) {
    const MemoryTable& table = book[BookTable::ColsIndex];
    const MemoryTable& formulas = book[BookTable::Formulas];
    std::set<std::string> computed;
    for (std::int32_t row = 1; row <= formulas.RowCount(); ++row) {
        computed.insert(formulas.Value(row, "TARGET").AsText());
    }
    std::vector<std::int32_t> periods;
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        const std::int32_t period = NumberIn(table, row, "COLUMN");
        if ((hiddenToo || !IsSet(table, row, "COL_HIDDEN")) && !computed.contains("COL" + std::to_string(period))) {
            periods.push_back(period);
        }
    }
    return periods;
}

/// Reads the planning cells of a book and gathers what they are to hold.
class Cells {
public:
    explicit Cells(const Book& book)
        : tab_(book[BookTable::Tab]), rows_(RowsByPosition(tab_)), lines_(EditableLines(book)) {}

    [[nodiscard]] Variant ValueOf(CellPosition cell) const {
        const auto found = rows_.find({cell.row, cell.column});
        return found == rows_.end() ? Variant() : tab_.Value(found->second, "V");
    }
    void Set(CellPosition cell, const Variant& value) {
        if (std::find(lines_.begin(), lines_.end(), cell.row) != lines_.end() && !SameValue(ValueOf(cell), value)) {
            edits_.push_back({cell, value});
        }
    }
    [[nodiscard]] PlanEdits Edits() && { return std::move(edits_); }

private:
    const MemoryTable& tab_;
    std::map<CellPosition, std::int32_t> rows_;
    std::vector<std::int32_t> lines_;
    PlanEdits edits_;
};

double ToCents(double number) {
    return std::round(number * 100) / 100;
}

}  // namespace

std::vector<std::int32_t> EditableLines(const Book& book) {
    const MemoryTable& table = book[BookTable::LineIndex];
    std::vector<std::int32_t> lines;
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        if (!IsSet(table, row, "READONLY") && !IsSet(table, row, "ROW_TEXT")) {
            lines.push_back(NumberIn(table, row, "LINE"));
        }
    }
    return lines;
}

std::int32_t PeriodBehind(const Book& book, std::int32_t period) {
    const std::vector<std::int32_t> periods = PeriodsOf(book, true);
    const auto found = std::find(periods.begin(), periods.end(), period);
    return found == periods.end() || found + 1 == periods.end() ? 0 : *(found + 1);
}

double TotalOf(const Book& book, std::int32_t line) {
    const Cells cells(book);
    double total = 0;
    for (const std::int32_t period : PeriodsOf(book, false)) {
        total += NumberOf(cells.ValueOf({line, period})).value_or(0);
    }
    return total;
}

PlanEdits CopyLine(const Book& book, std::int32_t from, std::int32_t to) {
    Cells cells(book);
    for (const std::int32_t period : PeriodsOf(book, true)) {
        cells.Set({to, period}, cells.ValueOf({from, period}));
    }
    return std::move(cells).Edits();
}

PlanEdits CopyPeriod(const Book& book, std::int32_t from, std::int32_t to) {
    Cells cells(book);
    for (const std::int32_t line : EditableLines(book)) {
        cells.Set({line, to}, cells.ValueOf({line, from}));
    }
    return std::move(cells).Edits();
}

PlanEdits CopyValueOn(const Book& book, CellPosition cell) {
    Cells cells(book);
    const Variant value = cells.ValueOf(cell);
    const std::vector<std::int32_t> periods = PeriodsOf(book, true);
    for (auto next = std::find(periods.begin(), periods.end(), cell.column); next != periods.end(); ++next) {
        cells.Set({cell.row, *next}, value);
    }
    return std::move(cells).Edits();
}

PlanEdits SpreadTotal(const Book& book, std::int32_t line, double total) {
    Cells cells(book);
    const std::vector<std::int32_t> periods = PeriodsOf(book, false);
    std::vector<double> weights;
    double sum = 0;
    bool usable = true;
    for (const std::int32_t period : periods) {
        weights.push_back(NumberOf(cells.ValueOf({line, period})).value_or(0));
        usable = usable && weights.back() >= 0;
        sum += weights.back();
    }
    if (!usable || sum <= 0 || !std::isfinite(sum)) {
        std::fill(weights.begin(), weights.end(), 1.0);
        sum = static_cast<double>(weights.size());
    }
    // Each part ends where the rounded sum of all parts up to it ends, so that nothing is lost by rounding.
    double weight = 0;
    double spread = 0;
    for (std::size_t i = 0; i < periods.size(); ++i) {
        weight += weights[i];
        const double upToHere = i + 1 == periods.size() ? total : ToCents(total * (weight / sum));
        cells.Set({line, periods[i]}, ToCents(upToHere - spread));
        spread = upToHere;
    }
    return std::move(cells).Edits();
}

PlanEdits ClearPending(const Book& book, const std::function<bool(CellPosition)>& which) {
    const MemoryTable& tabOld = book[BookTable::TabOld];
    Cells cells(book);
    for (const auto& [cell, row] : RowsByPosition(tabOld)) {
        if (which(cell)) {
            cells.Set(cell, tabOld.Value(row, "V"));
        }
    }
    return std::move(cells).Edits();
}

}  // namespace planbook
