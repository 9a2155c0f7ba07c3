// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace planview {

/// Adds up without losing the small terms (Neumaier, "Rundungsfehleranalyse einiger Verfahren zur Summation endlicher
/// Summen", 1974): ten thousand cents make one hundred exactly.
class CompensatedSum {
public:
    void Add(double term) noexcept {
        const double sum = sum_ + term;
        lost_ += std::abs(sum_) >= std::abs(term) ? (sum_ - sum) + term : (term - sum) + sum_;
        sum_ = sum;
        size_ += std::abs(term);
    }
    [[nodiscard]] double Value() const noexcept { return sum_ + lost_; }

    /// The sum without the digits beyond the fifteenth of what was added up: those stem from decimal numbers that no
    /// double holds exactly, and would show 0,3 - 0,1 - 0,2 as something else than 0.
    [[nodiscard]] double Rounded() const noexcept {
        const double value = Value();
        if (size_ == 0 || !std::isfinite(size_)) {
            return value;
        }
        constexpr int Digits = 15;
        const int finest = static_cast<int>(std::floor(std::log10(size_))) + 1 - Digits;
        if (finest > 0) {
            const double unit = std::pow(10.0, finest);
            return std::nearbyint(value / unit) * unit;
        }
        constexpr int Finest = 300;  // of powers of ten that a double holds
        if (finest < -Finest) {
            return value;
        }
        const double perUnit = std::pow(10.0, -finest);
        return std::nearbyint(value * perUnit) / perUnit;
    }

private:
    double sum_ = 0;
    double lost_ = 0;
    double size_ = 0;
};

}  // namespace planview
