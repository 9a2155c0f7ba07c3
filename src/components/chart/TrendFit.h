#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "components/chart/ChartTypes.h"

namespace planview {

/// A trend line through the values of a series, of which the first stands at x = 1, the second at 2 and so on.
///
/// Linear y = a + b x, logarithmic y = a + b ln x, power y = a x^b and exponential y = a e^(b x) are fitted by least
/// squares; the last two through the logarithms of the values, and only where all values are above zero. A moving
/// average has no formula: it is the mean of the last `period` values, from the period's first whole window on.
class TrendFit {
public:
    /// `period` counts for the moving average only, at least 2.
    TrendFit(TrendKind kind, std::span<const double> values, int period = 2);

    /// Whether there is anything to draw; Limit() says why not.
    [[nodiscard]] bool IsValid() const noexcept { return limit_.empty(); }
    /// A sentence for the user: what this kind needs and which value is in the way. Empty for a valid fit.
    [[nodiscard]] const std::string& Limit() const noexcept { return limit_; }
    [[nodiscard]] TrendKind Kind() const noexcept { return kind_; }
    [[nodiscard]] double A() const noexcept { return a_; }
    [[nodiscard]] double B() const noexcept { return b_; }

    /// The value at x, between 1 and the number of values; none where the fit is not valid, where a moving average has
    /// no whole window yet, or where the result is not finite.
    [[nodiscard]] std::optional<double> At(double x) const;

private:
    TrendKind kind_;
    double a_ = 0;
    double b_ = 0;
    std::vector<double> means_;  // of a moving average, from its first whole window on
    int period_;
    std::string limit_;
};

/// "Linear", "Logarithmic", "Power", "Exponential", "Moving average".
[[nodiscard]] const char* TrendKindName(TrendKind kind) noexcept;

}  // namespace planview
