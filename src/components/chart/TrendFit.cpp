// SPDX-License-Identifier: MIT
#include "components/chart/TrendFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "automation/Numbers.h"

namespace planview {

namespace {

bool TakesLogarithmOfX(TrendKind kind) noexcept {
    return kind == TrendKind::Logarithmic || kind == TrendKind::Power;
}

bool TakesLogarithmOfValues(TrendKind kind) noexcept {
    return kind == TrendKind::Power || kind == TrendKind::Exponential;
}

/// "A linear trend line", to begin a sentence with.
std::string Subject(TrendKind kind) {
    switch (kind) {
        case TrendKind::Logarithmic:
            return "A logarithmic trend line";
        case TrendKind::Power:
            return "A power trend line";
        case TrendKind::Exponential:
            return "An exponential trend line";
        case TrendKind::MovingAverage:
            return "A moving average";
        default:
            return "A linear trend line";
    }
}

std::string TooFew(TrendKind kind, std::size_t count, std::size_t needed) {
    const std::string over =
        kind == TrendKind::MovingAverage ? " over " + std::to_string(needed) + " periods" : std::string();
    const std::string found = count == 0   ? "there is none"
                              : count == 1 ? "there is 1"
                                           : "there are " + std::to_string(count);
    return Subject(kind) + over + " needs at least " + std::to_string(needed) + " values; " + found + ".";
}

struct Line {
    long double intercept = 0;
    long double slope = 0;
};

/// Least squares about the means: with sums about zero, values far from it would cancel each other's digits.
Line FitLine(const std::vector<long double>& x, const std::vector<long double>& y) {
    const auto count = static_cast<long double>(x.size());
    const long double meanX = std::accumulate(x.begin(), x.end(), 0.0L) / count;
    const long double meanY = std::accumulate(y.begin(), y.end(), 0.0L) / count;
    long double squares = 0;
    long double products = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        squares += (x[i] - meanX) * (x[i] - meanX);
        products += (x[i] - meanX) * (y[i] - meanY);
    }
    const long double slope = products / squares;
    return {meanY - slope * meanX, slope};
}

std::optional<double> Finite(long double value) {
    const auto number = static_cast<double>(value);
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace

TrendFit::TrendFit(TrendKind kind, std::span<const double> values, int period)
    : kind_(kind), period_(std::max(2, period)), count_(values.size()) {
    obstacle_ = FindObstacle(values);
    if (!IsValid()) {
        return;
    }
    if (kind == TrendKind::MovingAverage) {
        TakeMeans(values);
        return;
    }
    std::vector<long double> x(values.size());
    std::vector<long double> y(values.begin(), values.end());
    std::iota(x.begin(), x.end(), 1.0L);
    const auto takeLogarithms = [](std::vector<long double>& numbers) {
        std::transform(numbers.begin(), numbers.end(), numbers.begin(), [](long double n) { return std::log(n); });
    };
    if (TakesLogarithmOfX(kind)) {
        takeLogarithms(x);
    }
    if (TakesLogarithmOfValues(kind)) {
        takeLogarithms(y);
    }
    const Line line = FitLine(x, y);
    intercept_ = line.intercept;
    slope_ = line.slope;
}

std::size_t TrendFit::NeededValues() const noexcept {
    return kind_ == TrendKind::MovingAverage ? static_cast<std::size_t>(period_) : 2;
}

TrendFit::Obstacle TrendFit::FindObstacle(std::span<const double> values) const {
    if (values.size() < NeededValues()) {
        return {ObstacleKind::TooFewValues};
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!std::isfinite(values[i])) {
            return {ObstacleKind::NoNumber, i};
        }
        if (TakesLogarithmOfValues(kind_) && values[i] <= 0) {
            return {ObstacleKind::NotAboveZero, i, values[i]};
        }
    }
    return {};
}

std::string TrendFit::Limit(std::span<const std::string> periods) const {
    const std::size_t place = obstacle_.place;
    const bool named = place < periods.size() && !periods[place].empty();
    const std::string value =
        "the value in " + (named ? periods[place] : "period " + std::to_string(place + 1)) + " is ";
    switch (obstacle_.kind) {
        case ObstacleKind::TooFewValues:
            return TooFew(kind_, count_, NeededValues());
        case ObstacleKind::NoNumber:
            return Subject(kind_) + " needs numbers; " + value + "none.";
        case ObstacleKind::NotAboveZero:
            return Subject(kind_) + " needs values above 0; " + value + NumberText(obstacle_.value, GridDecimalMark) +
                   ".";
        case ObstacleKind::None:
            break;
    }
    return {};
}

void TrendFit::TakeMeans(std::span<const double> values) {
    // Each window by itself: a running sum would carry the rounding of a large value past its window.
    const auto period = static_cast<std::size_t>(period_);
    means_.reserve(values.size() - period + 1);
    for (std::size_t last = period; last <= values.size(); ++last) {
        const std::span<const double> window = values.subspan(last - period, period);
        means_.push_back(static_cast<double>(std::accumulate(window.begin(), window.end(), 0.0L) / period_));
    }
}

double TrendFit::A() const noexcept {
    return static_cast<double>(TakesLogarithmOfValues(kind_) ? std::exp(intercept_) : intercept_);
}

double TrendFit::B() const noexcept {
    return static_cast<double>(slope_);
}

std::optional<double> TrendFit::At(double x) const {
    if (!IsValid() || !(x >= 1 && x <= static_cast<double>(count_))) {
        return std::nullopt;
    }
    if (kind_ == TrendKind::MovingAverage) {
        return MeanAt(x);
    }
    const long double place = TakesLogarithmOfX(kind_) ? std::log(static_cast<long double>(x)) : x;
    const long double result = intercept_ + slope_ * place;
    return Finite(TakesLogarithmOfValues(kind_) ? std::exp(result) : result);
}

std::optional<double> TrendFit::MeanAt(double x) const {
    const double place = x - period_;
    if (place < 0) {
        return std::nullopt;
    }
    const auto index = static_cast<std::size_t>(place);
    const double part = place - std::floor(place);
    if (part == 0) {
        return means_[index];
    }
    return means_[index] * (1 - part) + means_[index + 1] * part;
}

const char* TrendKindName(TrendKind kind) noexcept {
    switch (kind) {
        case TrendKind::Logarithmic:
            return "Logarithmic";
        case TrendKind::Power:
            return "Power";
        case TrendKind::Exponential:
            return "Exponential";
        case TrendKind::MovingAverage:
            return "Moving average";
        default:
            return "Linear";
    }
}

}  // namespace planview
