// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <string>
#include <utility>

#include <planview/AutomationObject.h>

namespace planview {

/// Arithmetic on the control's counters: throws Overflow where a plain integer would wrap.
template <std::signed_integral Integer>
[[nodiscard]] Integer CheckedAdd(Integer left, Integer right) {
    Integer result{};
    if (__builtin_add_overflow(left, right, &result)) {
        throw AutomationError(AutomationErrorCode::Overflow,
                              "Overflow: " + std::to_string(left) + " + " + std::to_string(right));
    }
    return result;
}

/// The value in a narrower type; throws Overflow when it does not fit.
template <std::signed_integral Target, std::integral Source>
[[nodiscard]] Target CheckedCast(Source value) {
    if (!std::in_range<Target>(value)) {
        throw AutomationError(AutomationErrorCode::Overflow, "Overflow: " + std::to_string(value));
    }
    return static_cast<Target>(value);
}

}  // namespace planview
