// SPDX-License-Identifier: MIT
#include "macro/language/MacroSheet.h"

#include "automation/Numbers.h"

namespace planview {

MacroSheet::MacroSheet(const GridControl& grid, const MacroGrid& places)
    : grid_(grid), places_(places), rows_(static_cast<std::size_t>(places.LineCount())) {}

void MacroSheet::StartOwn(int lines, int elements) {
    ownLines_.assign(static_cast<std::size_t>(lines),
                     Line(static_cast<std::size_t>(places_.PeriodCount()), EmptyCell()));
    ownElements_.assign(static_cast<std::size_t>(elements), EmptyCell());
}

MacroSheet::Line& MacroSheet::GridLine(int line) {
    Row& row = rows_[static_cast<std::size_t>(line)];
    if (!row.isRead) {
        Read(line);
    }
    return row.values;
}

void MacroSheet::Read(int line) {
    Row& row = rows_[static_cast<std::size_t>(line)];
    row.isRead = true;
    row.values.reserve(static_cast<std::size_t>(places_.PeriodCount()));
    const RowId id = places_.Lines()[static_cast<std::size_t>(line)];
    for (const ColumnId period : places_.Periods()) {
        const std::string& text = grid_.Contents({period, id});
        if (text.empty()) {
            row.values.push_back(EmptyCell());
            continue;
        }
        const std::optional<double> number = TryParseNumber(text);
        row.values.push_back(number ? *number : TextCell());
    }
    row.before = row.values;
}

void MacroSheet::Touch(int line, int period) {
    std::vector<bool>& touched = rows_[static_cast<std::size_t>(line)].touched;
    touched.resize(static_cast<std::size_t>(places_.PeriodCount()));
    touched[static_cast<std::size_t>(period)] = true;
}

bool MacroSheet::IsTouched(int line, int period) const {
    const std::vector<bool>& touched = rows_[static_cast<std::size_t>(line)].touched;
    return !touched.empty() && touched[static_cast<std::size_t>(period)];
}

}  // namespace planview
