// SPDX-License-Identifier: MIT
#include "components/chart/ChartStacking.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace planview {

namespace {

/// A sum in this type neither overflows nor loses the significant digits of its doubles.
using Sum = long double;

/// A share approaches 1 only as its value grows without bound; this is as near as the user can drag it.
constexpr double LargestShare = 0.999;

constexpr std::size_t StackKinds = 4;

std::size_t StackKind(ChartType type) noexcept {
    switch (type) {
        case ChartType::StackedColumn:
            return 0;
        case ChartType::StackedColumn100:
            return 1;
        case ChartType::StackedLine:
            return 2;
        default:
            return 3;
    }
}

double ValueOf(const ChartSeries& series, std::size_t category) noexcept {
    const double value = category < series.values.size() ? series.values[category] : 0;
    return std::isfinite(value) ? value : 0;
}

double ToDouble(Sum sum) noexcept {
    constexpr Sum largest = std::numeric_limits<double>::max();
    return static_cast<double>(std::clamp(sum, -largest, largest));
}

/// The values of one kind in one category that stand so far: columns grow both ways from zero, lines add up.
struct Pile {
    Sum up = 0;
    Sum down = 0;

    void Add(double value, bool column) noexcept {
        if (!column) {
            up += value;
            down = up;
        } else if (value >= 0) {
            up += value;
        } else {
            down += value;
        }
    }
    [[nodiscard]] Sum EndFor(double value) const noexcept { return value >= 0 ? up : down; }
};

/// What stands of each kind in each category.
template <class T>
class ByKind {
public:
    explicit ByKind(std::size_t categories) : categories_(categories), items_(categories * StackKinds) {}
    [[nodiscard]] T& At(ChartType type, std::size_t category) {
        return items_[StackKind(type) * categories_ + category];
    }

private:
    std::size_t categories_;
    std::vector<T> items_;
};

ByKind<Sum> ShareTotals(const ChartState& state) {
    const std::size_t categories = state.categories.size();
    ByKind<Sum> totals(categories);
    for (const ChartSeries& series : state.series) {
        if (!IsShareType(series.type)) {
            continue;
        }
        for (std::size_t category = 0; category < categories; ++category) {
            totals.At(series.type, category) += std::abs(ValueOf(series, category));
        }
    }
    return totals;
}

struct Extremes {
    bool any = false;
    double minimum = 0;
    double maximum = 0;

    void Include(double value) noexcept {
        minimum = any ? std::min(minimum, value) : value;
        maximum = any ? std::max(maximum, value) : value;
        any = true;
    }
};

void FindExtremes(const ChartState& state, ChartStack& stack) {
    std::array<Extremes, 2> extremes;
    for (std::size_t series = 0; series < state.series.size(); ++series) {
        const bool column = IsColumnType(state.series[series].type);
        Extremes& axis = extremes[stack.onShares[series] ? 1 : 0];
        for (const ChartSpan& span : stack.spans[series]) {
            axis.Include(span.to);
            if (column) {
                axis.Include(span.from);
            }
        }
    }
    stack.valueMinimum = extremes[0].minimum;
    stack.valueMaximum = extremes[0].maximum;
    stack.shareMinimum = extremes[1].minimum;
    stack.shareMaximum = extremes[1].maximum;
}

/// What the other series of a kind leave to one of them in a category.
struct Others {
    Pile before;
    Sum total = 0;  ///< of the absolute values
};

Others OthersOf(const ChartState& state, std::size_t series, std::size_t category) {
    const ChartType type = state.series[series].type;
    const bool column = IsColumnType(type);
    Others others;
    for (std::size_t other = 0; other < state.series.size(); ++other) {
        if (other == series || state.series[other].type != type) {
            continue;
        }
        const double value = ValueOf(state.series[other], category);
        others.total += std::abs(value);
        if (other < series) {
            others.before.Add(value, column);
        }
    }
    return others;
}

/// With p = before.up, n = before.down and s = total, a value v ends at (p + v) / (s + v) when it is not negative and
/// at (n + v) / (s - v) when it is; solved for v.
double OwnValueForShare(const Others& others, double current, double to) {
    const Sum total = others.total;
    if (total == 0) {
        return current;
    }
    const Sum up = others.before.up;
    const Sum down = others.before.down;
    const Sum currentEnd = (others.before.EndFor(current) + current) / (total + std::abs(current));
    const Sum limit = std::max<Sum>(LargestShare, std::abs(currentEnd));
    const Sum end = std::clamp<Sum>(to, -limit, limit);
    // The last of a category without other signs ends at 1 whatever its value.
    if ((current >= 0 && up == total) || (current < 0 && down == -total)) {
        return current;
    }
    if (end * total >= up && end < 1) {
        return ToDouble((end * total - up) / (1 - end));
    }
    if (end * total <= down && end > -1) {
        return ToDouble((end * total - down) / (1 + end));
    }
    return std::abs(end) >= 1 ? current : 0;
}

}  // namespace

ChartStack StackSeries(const ChartState& state) {
    const std::size_t categories = state.categories.size();
    ChartStack stack;
    stack.spans.reserve(state.series.size());
    stack.onShares.reserve(state.series.size());
    ByKind<Sum> totals = ShareTotals(state);
    ByKind<Pile> piles(categories);
    for (const ChartSeries& series : state.series) {
        const bool stacked = IsStackedType(series.type);
        const bool column = IsColumnType(series.type);
        const bool share = IsShareType(series.type);
        (share ? stack.anyOnShares : stack.anyOnValues) = true;
        stack.onShares.push_back(share);
        std::vector<ChartSpan>& spans = stack.spans.emplace_back(categories);
        for (std::size_t category = 0; category < categories; ++category) {
            const double value = ValueOf(series, category);
            if (!stacked) {
                spans[category] = {0, value};
                continue;
            }
            const Sum total = share ? totals.At(series.type, category) : 1;
            const Sum unit = total > 0 ? total : 1;
            Pile& pile = piles.At(series.type, category);
            spans[category].from = ToDouble(pile.EndFor(value) / unit);
            pile.Add(value, column);
            spans[category].to = ToDouble(pile.EndFor(value) / unit);
        }
    }
    FindExtremes(state, stack);
    return stack;
}

std::vector<double> TrendValues(const ChartState& state, const ChartStack& stack, std::size_t series) {
    if (!IsStackedType(state.series[series].type)) {
        return state.series[series].values;
    }
    std::vector<double> ends;
    ends.reserve(stack.spans[series].size());
    for (const ChartSpan& span : stack.spans[series]) {
        ends.push_back(span.to);
    }
    return ends;
}

double OwnValueFor(const ChartState& state, int series, int category, double to) {
    const auto seriesIndex = static_cast<std::size_t>(series);
    const auto categoryIndex = static_cast<std::size_t>(category);
    const ChartType type = state.series[seriesIndex].type;
    if (!IsStackedType(type)) {
        return to;
    }
    const Others others = OthersOf(state, seriesIndex, categoryIndex);
    if (IsShareType(type)) {
        return OwnValueForShare(others, ValueOf(state.series[seriesIndex], categoryIndex), to);
    }
    if (to >= others.before.up) {
        return ToDouble(to - others.before.up);
    }
    return ToDouble(std::min<Sum>(to - others.before.down, 0));
}

}  // namespace planview
