// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace planview {

enum class MacroValueKind : std::uint8_t {
    Number,
    Empty,  ///< a cell without contents; counts as 0 in arithmetic
    Text,   ///< a cell whose text is no number
    None    ///< no value: a shift led outside the table
};

struct MacroValue {
    double number = 0;  ///< for kind Number only
    MacroValueKind kind = MacroValueKind::Empty;

    [[nodiscard]] bool IsNumber() const noexcept { return kind == MacroValueKind::Number; }
    [[nodiscard]] bool Is(double wanted) const noexcept { return IsNumber() && number == wanted; }
};

/// Values by period. A number counts only if its kind is Number.
struct MacroValues {
    MacroValues() = default;
    MacroValues(std::size_t size, MacroValue value) : numbers(size, value.number), kinds(size, value.kind) {}

    [[nodiscard]] std::size_t Size() const noexcept { return kinds.size(); }
    [[nodiscard]] MacroValue At(std::size_t index) const { return {numbers[index], kinds[index]}; }
    [[nodiscard]] bool IsNumber(std::size_t index) const { return kinds[index] == MacroValueKind::Number; }
    void Set(std::size_t index, MacroValue value) {
        numbers[index] = value.number;
        kinds[index] = value.kind;
    }

    std::vector<double> numbers;
    std::vector<MacroValueKind> kinds;
};

}  // namespace planview
