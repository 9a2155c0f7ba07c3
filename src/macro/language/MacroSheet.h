// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "macro/language/PlanningTable.h"

namespace planview {

/// The values that a macro works on, by line and period: those of the table, each line read when it is first needed,
/// and the macro's own. Nothing goes back to the table from here.
class MacroSheet {
public:
    explicit MacroSheet(const PlanningTable& table);
    /// Forgets the macro's own values and takes so many of them, all empty.
    void StartOwn(int lines, int elements);

    [[nodiscard]] MacroValues& TableLine(int line);
    [[nodiscard]] MacroValues& OwnLine(int line) { return ownLines_[static_cast<std::size_t>(line)]; }
    [[nodiscard]] MacroValue& OwnElement(int element) { return ownElements_[static_cast<std::size_t>(element)]; }

    /// Notes that the macro gave a cell of the table its value.
    void Touch(int line, int period);
    [[nodiscard]] bool IsTouched(int line, int period) const;
    /// What the table holds, for a line that has been read.
    [[nodiscard]] const MacroValues& Before(int line) const { return lines_[static_cast<std::size_t>(line)].before; }
    [[nodiscard]] bool HasTouched(int line) const { return !lines_[static_cast<std::size_t>(line)].touched.empty(); }

private:
    struct Line {
        bool isRead = false;
        MacroValues values;
        MacroValues before;
        std::vector<bool> touched;  // empty: none is
    };

    const PlanningTable& table_;
    std::vector<Line> lines_;
    std::vector<MacroValues> ownLines_;
    std::vector<MacroValue> ownElements_;
};

}  // namespace planview
