// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <optional>

#include "automation/Numbers.h"

namespace planview {

/// The number raised by a percentage, with the 15 significant digits that a number is shown with, so that 100 raised by
/// 10 is 110 and not a hair beside it. No value where the result is no finite number.
[[nodiscard]] inline std::optional<double> RaisedBy(double number, double percent) {
    const double raised = number * (1 + percent / 100);
    return std::isfinite(raised) ? TryParseNumber(NumberText(raised)) : std::nullopt;
}

}  // namespace planview
