// SPDX-License-Identifier: MIT
#include "macro/language/MacroSheet.h"

namespace planview {

MacroSheet::MacroSheet(const PlanningTable& table)
    : table_(table), lines_(static_cast<std::size_t>(table.LineCount())) {}

void MacroSheet::StartOwn(int lines, int elements) {
    ownLines_.assign(static_cast<std::size_t>(lines),
                     FormulaValues(static_cast<std::size_t>(table_.PeriodCount()), FormulaValue()));
    ownElements_.assign(static_cast<std::size_t>(elements), FormulaValue());
}

FormulaValues& MacroSheet::TableLine(int line) {
    Line& read = lines_[static_cast<std::size_t>(line)];
    if (!read.isRead) {
        read.isRead = true;
        read.values = table_.ValuesOf(line);
        read.before = read.values;
    }
    return read.values;
}

void MacroSheet::Touch(int line, int period) {
    std::vector<bool>& touched = lines_[static_cast<std::size_t>(line)].touched;
    touched.resize(static_cast<std::size_t>(table_.PeriodCount()));
    touched[static_cast<std::size_t>(period)] = true;
}

bool MacroSheet::IsTouched(int line, int period) const {
    const std::vector<bool>& touched = lines_[static_cast<std::size_t>(line)].touched;
    return !touched.empty() && touched[static_cast<std::size_t>(period)];
}

}  // namespace planview
