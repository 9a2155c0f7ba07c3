#pragma once

#include <optional>

namespace planview {

/// A value axis from `minimum` to `maximum` with a mark every `step`, counted from `firstMark`.
struct ChartScale {
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
    std::optional<double> fixedMinimum;
    std::optional<double> fixedMaximum;
    /// Columns and stacks start at zero; an axis of lines alone may start higher.
    bool includeZero = true;
    /// How many steps the axis has room for, at least 1.
    int maximumSteps = 8;
};

/// A scale whose marks are 1, 2, 2.5 or 5 times a power of ten. A free end is widened to the next mark; a fixed end
/// stays as it is. A fixed minimum that is not below the maximum gives way to the data. Always finite, minimum below
/// maximum, with at least one mark, for any finite input.
[[nodiscard]] ChartScale NiceScale(const ChartScaleRequest& request);

}  // namespace planview
