// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace planview {

/// A button of the mouse; the trace writes its number.
enum class MouseButton : std::int16_t { Left = 1, Right = 2, Middle = 4 };

/// The modifier keys that are held, added up; the trace writes the sum.
enum class ShiftState : std::int16_t { None = 0, Shift = 1, Control = 2, Alt = 4 };

[[nodiscard]] constexpr ShiftState operator|(ShiftState left, ShiftState right) noexcept {
    return static_cast<ShiftState>(static_cast<int>(left) | static_cast<int>(right));
}

}  // namespace planview
