// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace planview {

/// What a value is. Where two values meet in an operation, the result is a number only if both are; else it is what
/// stands later in this list.
enum class FormulaKind : std::uint8_t {
    Number,
    Empty,  ///< a cell without contents; counts as 0 in arithmetic
    None,   ///< no value: a shift led outside the table, or there was nothing to take a mean of
    // Faults: what is computed with one is that fault
    Text,            ///< a cell whose text is no number
    DivisionByZero,  ///< by a value that is 0
    TooLarge,        ///< beyond the range of a double
    Gap              ///< a line or period that the formula names is not there
};

/// Whether the value could not be computed.
[[nodiscard]] constexpr bool IsFault(FormulaKind kind) noexcept {
    return kind >= FormulaKind::Text;
}

struct FormulaValue {
    double number = 0;  ///< for kind Number only
    FormulaKind kind = FormulaKind::Empty;

    [[nodiscard]] bool IsNumber() const noexcept { return kind == FormulaKind::Number; }
    [[nodiscard]] bool Is(double wanted) const noexcept { return IsNumber() && number == wanted; }
};

/// The values of one line by period, or of one column by line, that somebody else keeps.
struct FormulaSpan {
    const double* numbers = nullptr;
    const FormulaKind* kinds = nullptr;  ///< null: all are numbers
    std::size_t size = 0;
    std::ptrdiff_t step = 1;  ///< from one value to the next; a column of a dense matrix has that of its lines

    [[nodiscard]] double NumberAt(std::size_t index) const noexcept {
        return numbers[static_cast<std::ptrdiff_t>(index) * step];
    }
    [[nodiscard]] FormulaKind KindAt(std::size_t index) const noexcept {
        return kinds ? kinds[static_cast<std::ptrdiff_t>(index) * step] : FormulaKind::Number;
    }
    [[nodiscard]] FormulaValue At(std::size_t index) const noexcept { return {NumberAt(index), KindAt(index)}; }
};

/// Values by period. A number counts only if its kind is Number.
struct FormulaValues {
    FormulaValues() = default;
    FormulaValues(std::size_t size, FormulaValue value) : numbers(size, value.number), kinds(size, value.kind) {}

    [[nodiscard]] std::size_t Size() const noexcept { return kinds.size(); }
    [[nodiscard]] FormulaValue At(std::size_t index) const { return {numbers[index], kinds[index]}; }
    [[nodiscard]] bool IsNumber(std::size_t index) const { return kinds[index] == FormulaKind::Number; }
    [[nodiscard]] FormulaSpan Span() const noexcept { return {numbers.data(), kinds.data(), kinds.size(), 1}; }
    void Set(std::size_t index, FormulaValue value) {
        numbers[index] = value.number;
        kinds[index] = value.kind;
    }

    std::vector<double> numbers;
    std::vector<FormulaKind> kinds;
};

}  // namespace planview
