// SPDX-License-Identifier: MIT
#include "components/chart/ChartScale.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <system_error>

namespace planview {

namespace {

constexpr double Largest = std::numeric_limits<double>::max();

/// Marks stay at least this part of the level apart, so that 15 digits tell them from each other.
constexpr double FinestStepOfLevel = 1e-12;
/// Below this a step would lose digits to the subnormal numbers.
constexpr double FinestStep = 1e-304;
/// Lines alone leave zero out where they cover less than this part of their level.
constexpr double SmallRange = 1.0 / 6.0;

/// The number that the text of `value` with 15 digits stands for: 0.3 for 0.1 * 3.
double Clean(double value) noexcept {
    constexpr int digitsBehindFirst = 14;
    std::array<char, 32> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, digitsBehindFirst);
    double cleaned = value;
    const auto read = std::from_chars(text.data(), written.ptr, cleaned);
    return read.ec == std::errc{} ? cleaned : value;
}

/// The nice steps in order: four to each power of ten. Number 0 is 1, number 1 is 2, number -1 is 0.5.
struct NiceStep {
    int number = 0;

    static constexpr int PerDecade = 4;
    static constexpr int Last = 308 * PerDecade;

    [[nodiscard]] int Exponent() const noexcept {
        return number >= 0 ? number / PerDecade : -((PerDecade - 1 - number) / PerDecade);
    }
    [[nodiscard]] int Place() const noexcept { return number - Exponent() * PerDecade; }
    [[nodiscard]] double Value() const noexcept {
        constexpr std::array<std::string_view, PerDecade> digits = {"10", "20", "25", "50"};
        const auto place = static_cast<std::size_t>(Place());
        std::array<char, 16> text{};
        char* end = std::copy(digits[place].begin(), digits[place].end(), text.data());
        *end++ = 'e';
        end = std::to_chars(end, text.data() + text.size(), Exponent() - 1).ptr;
        double value = 1;
        std::from_chars(text.data(), end, value);
        return value;
    }
    [[nodiscard]] int Decimals() const noexcept {
        const bool isTwoAndAHalf = Place() == 2;
        return std::max(0, (isTwoAndAHalf ? 1 : 0) - Exponent());
    }
    /// The smallest one that is not below a number above zero.
    static NiceStep AtLeast(double least) noexcept {
        NiceStep step{(static_cast<int>(std::floor(std::log10(least))) - 1) * PerDecade};
        while (step.number < Last && step.Value() < least * (1 - 1e-9)) {
            ++step.number;
        }
        return step;
    }
};

/// How many steps a value is from zero, as a whole number where it is one but for rounding.
double StepsTo(double value, double step) noexcept {
    const double steps = value / step;
    const double whole = std::nearbyint(steps);
    return std::abs(steps - whole) <= std::max(1e-9, std::abs(steps) * 1e-15) ? whole : steps;
}

struct Range {
    double low = 0;
    double high = 0;
    bool lowIsFixed = false;
    bool highIsFixed = false;

    /// High minus low, in a number of parts that keeps the result finite.
    [[nodiscard]] double Part(int parts) const noexcept { return std::min(high / parts - low / parts, Largest); }
    [[nodiscard]] double Level() const noexcept { return std::max(std::abs(low), std::abs(high)); }
};

std::optional<double> Usable(std::optional<double> value) noexcept {
    return value && std::isfinite(*value) ? value : std::nullopt;
}

bool LeavesZeroOut(double low, double high) noexcept {
    if (!(low < high) || (low <= 0 && high >= 0)) {
        return false;
    }
    return high - low < std::max(std::abs(low), std::abs(high)) * SmallRange;
}

Range RangeOf(const ChartScaleRequest& request, std::optional<double> minimum, std::optional<double> maximum) {
    Range range;
    range.low = std::isfinite(request.dataMinimum) ? request.dataMinimum : 0;
    range.high = std::isfinite(request.dataMaximum) ? request.dataMaximum : 0;
    if (range.low > range.high) {
        std::swap(range.low, range.high);
    }
    if (request.includeZero || !LeavesZeroOut(minimum.value_or(range.low), maximum.value_or(range.high))) {
        range.low = std::min(range.low, 0.0);
        range.high = std::max(range.high, 0.0);
    }
    range.lowIsFixed = minimum.has_value();
    range.highIsFixed = maximum.has_value();
    range.low = minimum.value_or(range.low);
    range.high = maximum.value_or(range.high);
    return range;
}

/// The range to show. A fixed end that leaves nothing of it gives way, the minimum first.
Range RangeToShow(const ChartScaleRequest& request) {
    std::optional<double> minimum = Usable(request.fixedMinimum);
    std::optional<double> maximum = Usable(request.fixedMaximum);
    Range range = RangeOf(request, minimum, maximum);
    if (minimum && !(range.low < range.high)) {
        minimum.reset();
        range = RangeOf(request, minimum, maximum);
    }
    if (maximum && !(range.low < range.high)) {
        maximum.reset();
        range = RangeOf(request, minimum, maximum);
    }
    if (!(range.low < range.high)) {
        range = {0, 1, false, false};
    }
    return range;
}

/// The first and the last mark, counted in steps from zero.
struct Marks {
    double first = 0;
    double last = 0;
    [[nodiscard]] double Steps() const noexcept { return last - first; }
};

ChartScale ScaleWith(const Range& range, NiceStep nice, Marks& marks) {
    ChartScale scale;
    scale.step = nice.Value();
    scale.decimals = nice.Decimals();
    const auto widened = [&](double steps, double end) {
        const double mark = Clean(steps * scale.step);
        return std::isfinite(mark) ? mark : end;
    };
    const double low = std::floor(StepsTo(range.low, scale.step));
    const double high = std::ceil(StepsTo(range.high, scale.step));
    scale.minimum = range.lowIsFixed ? range.low : widened(low, range.low);
    scale.maximum = range.highIsFixed ? range.high : widened(high, range.high);
    // A range below the finest step may have come down to a single mark.
    if (!(scale.minimum < scale.maximum)) {
        (range.highIsFixed ? scale.minimum : scale.maximum) =
            range.highIsFixed ? widened(low - 1, range.low) : widened(high + 1, range.high);
    }
    marks.first = std::ceil(StepsTo(scale.minimum, scale.step));
    marks.last = std::floor(StepsTo(scale.maximum, scale.step));
    return scale;
}

}  // namespace

double ChartScale::Mark(int index) const noexcept {
    if (index == 0) {
        return firstMark;
    }
    return Clean((std::nearbyint(firstMark / step) + index) * step);
}

ChartScale NiceScale(const ChartScaleRequest& request) {
    const Range range = RangeToShow(request);
    // An axis through zero cannot do with fewer than two steps.
    const int maximumSteps = std::max(range.low < 0 && range.high > 0 ? 2 : 1, request.maximumSteps);
    const double finest = std::max(range.Level() * FinestStepOfLevel, FinestStep);
    NiceStep nice = NiceStep::AtLeast(std::max(range.Part(maximumSteps), finest));

    Marks marks;
    ChartScale scale = ScaleWith(range, nice, marks);
    // Widening an end to its mark may have added steps.
    while (marks.Steps() > maximumSteps && nice.number < NiceStep::Last) {
        ++nice.number;
        scale = ScaleWith(range, nice, marks);
    }
    // Between two fixed ends there may be no mark of a step so wide.
    while (marks.Steps() < 0 && scale.step > finest) {
        --nice.number;
        scale = ScaleWith(range, nice, marks);
    }
    if (marks.Steps() < 0) {
        scale.firstMark = scale.minimum;
        scale.markCount = 1;
        return scale;
    }
    scale.firstMark = Clean(marks.first * scale.step);
    scale.markCount = static_cast<int>(marks.Steps()) + 1;
    return scale;
}

}  // namespace planview
