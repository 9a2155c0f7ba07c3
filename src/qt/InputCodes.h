// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include "components/InputTypes.h"

namespace planview {

/// Left for a button that the control does not know.
[[nodiscard]] inline MouseButton buttonOf(Qt::MouseButton button) {
    return button == Qt::RightButton    ? MouseButton::Right
           : button == Qt::MiddleButton ? MouseButton::Middle
                                        : MouseButton::Left;
}

[[nodiscard]] inline ShiftState shiftOf(Qt::KeyboardModifiers modifiers) {
    const auto held = [modifiers](Qt::KeyboardModifier key, ShiftState state) {
        return modifiers.testFlag(key) ? state : ShiftState::None;
    };
    return held(Qt::ShiftModifier, ShiftState::Shift) | held(Qt::ControlModifier, ShiftState::Control) |
           held(Qt::AltModifier, ShiftState::Alt);
}

}  // namespace planview
