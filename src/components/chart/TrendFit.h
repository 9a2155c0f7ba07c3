// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <planview/Export.h>

#include "components/chart/ChartTypes.h"

namespace planview {

/// A trend line through the values of a series, of which the first stands at x = 1, the second at 2 and so on.
///
/// Linear y = a + b x, logarithmic y = a + b ln x, power y = a x^b and exponential y = a e^(b x) are fitted by least
/// squares; the last two through the logarithms of the values, and only where all values are above zero. A moving
/// average has no formula: it is the mean of the last `period` values, from the period's first whole window on.
class PLANVIEW_EXPORT TrendFit {
public:
    /// `period` counts for the moving average only, at least 2.
    TrendFit(TrendKind kind, std::span<const double> values, int period = 2);

    /// Whether there is anything to draw; Limit() says why not.
    [[nodiscard]] bool IsValid() const noexcept { return obstacle_.kind == ObstacleKind::None; }
    /// A sentence for the user: what this kind needs and which value is in the way, by the name of its period where
    /// `periods` has one, else by its number. Empty for a valid fit.
    [[nodiscard]] std::string Limit(std::span<const std::string> periods = {}) const;
    [[nodiscard]] TrendKind Kind() const noexcept { return kind_; }
    /// The two numbers of the formula. The factor of a very steep curve may lie outside of what a double holds, and is
    /// then 0 or infinite; At() is right all the same.
    [[nodiscard]] double A() const noexcept;
    [[nodiscard]] double B() const noexcept;

    /// The value at x, between 1 and the number of values; none where the fit is not valid, where a moving average has
    /// no whole window yet, or where the result is not finite. Between two means it is the straight line.
    [[nodiscard]] std::optional<double> At(double x) const;

private:
    enum class ObstacleKind { None, TooFewValues, NoNumber, NotAboveZero };
    struct Obstacle {
        ObstacleKind kind = ObstacleKind::None;
        std::size_t place = 0;  ///< of the value, from 0
        double value = 0;
    };

    [[nodiscard]] Obstacle FindObstacle(std::span<const double> values) const;
    [[nodiscard]] std::size_t NeededValues() const noexcept;
    void TakeMeans(std::span<const double> values);
    [[nodiscard]] std::optional<double> MeanAt(double x) const;

    TrendKind kind_;
    int period_;
    std::size_t count_;
    // Of the straight line that was fitted, through the logarithms where the kind takes them.
    long double intercept_ = 0;
    long double slope_ = 0;
    std::vector<double> means_;  // of a moving average, from its first whole window on
    Obstacle obstacle_;
};

/// "Linear", "Logarithmic", "Power", "Exponential", "Moving average".
[[nodiscard]] PLANVIEW_EXPORT const char* TrendKindName(TrendKind kind) noexcept;

}  // namespace planview
