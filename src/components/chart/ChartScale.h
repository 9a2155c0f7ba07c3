// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <planview/Export.h>

namespace planview {

/// A value axis from `minimum` to `maximum` with a mark every `step`, counted from `firstMark`.
struct PLANVIEW_EXPORT ChartScale {
    double minimum = 0;
    double maximum = 1;
    double step = 1;
    double firstMark = 0;
    /// Marks at firstMark + i * step for i = 0 .. markCount - 1.
    int markCount = 2;
    /// Digits behind the decimal mark that tell neighbouring marks apart.
    int decimals = 0;

    [[nodiscard]] double Mark(int index) const noexcept;
};

struct ChartScaleRequest {
    double dataMinimum = 0;
    double dataMaximum = 0;
    std::optional<double> fixedMinimum = std::nullopt;
    std::optional<double> fixedMaximum = std::nullopt;
    /// Columns and stacks start at zero; an axis of lines alone may start higher.
    bool includeZero = true;
    /// How many steps the axis has room for, at least 1.
    int maximumSteps = 8;
};

/// A scale whose steps are 1, 2, 2.5 or 5 times a power of ten, with marks at whole multiples of them. A free end is
/// widened to the next mark; a fixed end stays as it is. A fixed end that leaves nothing between the two gives way to
/// the data, the minimum before the maximum. Without `includeZero` zero is left out only where the data cover little of
/// their level. Always finite, minimum below maximum, with at least one mark, for any input; an end that is no finite
/// number counts as free. No more than maximumSteps steps, but two where the axis passes zero.
[[nodiscard]] ChartScale NiceScale(const ChartScaleRequest& request);

}  // namespace planview
