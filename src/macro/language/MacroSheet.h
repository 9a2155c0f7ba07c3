// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "components/GridControl.h"
#include "macro/language/MacroGrid.h"

namespace planview {

/// A cell without contents; counts as 0 in arithmetic.
[[nodiscard]] inline double EmptyCell() noexcept {
    return std::bit_cast<double>(std::uint64_t{0x7FF8000000000E01});
}
/// A cell whose text is no number.
[[nodiscard]] inline double TextCell() noexcept {
    return std::bit_cast<double>(std::uint64_t{0x7FF8000000000E02});
}
/// No value at all: a shift has left the table. Every other number that is none counts as this.
[[nodiscard]] inline double NoValue() noexcept {
    return std::numeric_limits<double>::quiet_NaN();
}
[[nodiscard]] inline bool IsEmptyCell(double value) noexcept {
    return std::isnan(value) && std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(EmptyCell());
}
[[nodiscard]] inline bool IsTextCell(double value) noexcept {
    return std::isnan(value) && std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(TextCell());
}

/// The values that a macro works on, by line and period: those of the grid, each line read when it is first needed, and
/// the macro's own. Nothing goes back to the grid from here.
class MacroSheet {
public:
    using Line = std::vector<double>;  ///< by period

    MacroSheet(const GridControl& grid, const MacroGrid& places);
    /// Forgets the macro's own values and takes so many of them, all empty.
    void StartOwn(int lines, int elements);

    [[nodiscard]] Line& GridLine(int line);
    [[nodiscard]] Line& OwnLine(int line) { return ownLines_[static_cast<std::size_t>(line)]; }
    [[nodiscard]] double& OwnElement(int element) { return ownElements_[static_cast<std::size_t>(element)]; }

    /// Notes that the macro gave a cell of the grid its value.
    void Touch(int line, int period);
    [[nodiscard]] bool IsTouched(int line, int period) const;
    /// What the grid holds, for a line that has been read.
    [[nodiscard]] const Line& Before(int line) const { return rows_[static_cast<std::size_t>(line)].before; }
    [[nodiscard]] bool HasTouched(int line) const { return !rows_[static_cast<std::size_t>(line)].touched.empty(); }

private:
    struct Row {
        bool isRead = false;
        Line values;
        Line before;
        std::vector<bool> touched;  // empty: none is
    };
    void Read(int line);

    const GridControl& grid_;
    const MacroGrid& places_;
    std::vector<Row> rows_;
    std::vector<Line> ownLines_;
    std::vector<double> ownElements_;
};

}  // namespace planview
