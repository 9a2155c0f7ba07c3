// SPDX-License-Identifier: MIT
#include "formula/FormulaFolding.h"

#include <algorithm>
#include <utility>

namespace planview {

namespace {

constexpr FormulaValue NoValue{0, FormulaKind::None};

/// What the addition of two numbers loses (Knuth's TwoSum), without a branch, so that loops of it run on vectors.
inline double LossOf(double left, double right, double sum) noexcept {
    const double taken = sum - left;
    return (left - (sum - taken)) + (right - taken);
}

bool IsSum(FormulaOperation operation) noexcept {
    return operation == FormulaOperation::Sum || operation == FormulaOperation::Average;
}

}  // namespace

FormulaFolding::FormulaFolding(FormulaOperation operation, std::size_t periods)
    : operation_(operation), result_(periods, {0, FormulaKind::Number}), lost_(IsSum(operation) ? periods : 0, 0.0) {}

void FormulaFolding::Add(std::size_t period, double number) noexcept {
    double& now = result_.numbers[period];
    const double sum = now + number;
    lost_[period] += LossOf(now, number, sum);
    now = sum;
}

void FormulaFolding::Take(std::size_t period, FormulaValue value) {
    if (counts_.empty()) {
        counts_.resize(result_.Size());
        outside_.resize(result_.Size());
    }
    if (!value.IsNumber()) {
        if (IsFault(value.kind)) {
            result_.kinds[period] = std::max(result_.kinds[period], value.kind);
        } else if (value.kind == FormulaKind::None) {
            outside_[period] = 1;
        }
        return;
    }
    double& now = result_.numbers[period];
    const bool isFirst = common_ + counts_[period]++ == 0;
    switch (operation_) {
        case FormulaOperation::Minimum:
            now = isFirst ? value.number : std::min(now, value.number);
            break;
        case FormulaOperation::Maximum:
            now = isFirst ? value.number : std::max(now, value.number);
            break;
        case FormulaOperation::Product:
            now = isFirst ? value.number : now * value.number;
            break;
        case FormulaOperation::Count:
            break;
        default:
            Add(period, value.number);
    }
}

void FormulaFolding::TakeAll(const FormulaFolding& other) {
    const int taken = other.common_ + (other.counts_.empty() ? 0 : other.counts_[0]);
    for (std::size_t i = 0; i < result_.Size(); ++i) {
        if (IsFault(other.result_.kinds[0])) {
            Take(i, other.result_.At(0));
        }
        if (taken > 0) {
            Take(i, {other.result_.numbers[0], FormulaKind::Number});
            counts_[i] += taken - 1;
            if (!lost_.empty()) {
                lost_[i] += other.lost_[0];
            }
        }
    }
}

void FormulaFolding::TakeNumbers(const FormulaSpan& values, std::size_t from) {
    const std::size_t size = result_.Size();
    double* const now = result_.numbers.data();
    double* const lost = lost_.data();
    const auto add = [&](std::size_t i, double number) {
        const double sum = now[i] + number;
        lost[i] += LossOf(now[i], number, sum);
        now[i] = sum;
    };
    if (values.step == 1) {
        const double* const numbers = values.numbers + from;
        for (std::size_t i = 0; i < size; ++i) {
            add(i, numbers[i]);
        }
    } else {
        for (std::size_t i = 0; i < size; ++i) {
            add(i, values.NumberAt(from + i));
        }
    }
    ++common_;
}

FormulaValue FormulaFolding::At(std::size_t period) const {
    const int count = common_ + (counts_.empty() ? 0 : counts_[period]);
    if (IsFault(result_.kinds[period])) {
        return {0, result_.kinds[period]};
    }
    if (operation_ == FormulaOperation::Count) {
        return {static_cast<double>(count), FormulaKind::Number};
    }
    if (count == 0) {
        // Empty cells add up to 0.
        const bool isZero = operation_ == FormulaOperation::Sum && (outside_.empty() || outside_[period] == 0);
        return isZero ? FormulaValue{0, FormulaKind::Number} : NoValue;
    }
    const double whole = result_.numbers[period] + (lost_.empty() ? 0 : lost_[period]);
    return {operation_ == FormulaOperation::Average ? whole / count : whole, FormulaKind::Number};
}

FormulaValues FormulaFolding::Result() && {
    const bool isPlain = counts_.empty() && common_ > 0;
    for (std::size_t i = 0; !isPlain && i < result_.Size(); ++i) {
        result_.Set(i, At(i));
    }
    const double count = operation_ == FormulaOperation::Average ? common_ : 1;
    for (std::size_t i = 0; isPlain && i < lost_.size(); ++i) {
        result_.numbers[i] = (result_.numbers[i] + lost_[i]) / count;
    }
    return std::move(result_);
}

}  // namespace planview
