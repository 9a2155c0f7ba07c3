// SPDX-License-Identifier: MIT
#include "calculation/Spreading.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "calculation/CompensatedSum.h"

namespace planview {

namespace {

constexpr int MaxDecimals = 12;

/// Whole steps of 10^-decimals beyond this size are no longer told apart by a double.
constexpr double MostSteps = 9007199254740992.0;  // 2^53

double StepsPerUnit(int decimals) noexcept {
    constexpr std::array<double, MaxDecimals + 1> Powers{1e0, 1e1, 1e2, 1e3,  1e4,  1e5, 1e6,
                                                         1e7, 1e8, 1e9, 1e10, 1e11, 1e12};
    return Powers[static_cast<std::size_t>(std::clamp(decimals, 0, MaxDecimals))];
}

/// A free leaf while its value is found.
struct Share {
    std::size_t leaf;
    double weight;
    double stepsPerUnit;
    double value = 0;      ///< before rounding, then the value
    double remainder = 0;  ///< of a step, what rounding down has taken
};

std::vector<Share> FreeLeaves(std::span<const SpreadLeaf> leaves) {
    std::vector<Share> free;
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        if (!leaves[i].fixed && leaves[i].weight != 0) {
            free.push_back({i, leaves[i].weight, StepsPerUnit(leaves[i].decimals), leaves[i].value.value_or(0)});
        }
    }
    return free;
}

double WeightedSum(std::span<const Share> shares) {
    CompensatedSum sum;
    for (const Share& share : shares) {
        sum.Add(share.weight * share.value);
    }
    return sum.Rounded();
}

/// Adds the difference by the size of each part; false when all parts are 0.
template <class PartOf>
bool AddBySize(std::span<Share> shares, double difference, const PartOf& partOf) {
    CompensatedSum sizes;
    for (const Share& share : shares) {
        sizes.Add(std::abs(share.weight * partOf(share)));
    }
    if (sizes.Value() == 0) {
        return false;
    }
    for (Share& share : shares) {
        share.value += difference * (std::abs(share.weight * partOf(share)) / sizes.Value()) / share.weight;
    }
    return true;
}

/// The same value in each leaf, as far as the weights' signs let one value meet the total.
void SpreadEqually(std::span<Share> shares, double total) {
    CompensatedSum weights;
    CompensatedSum sizes;
    for (const Share& share : shares) {
        weights.Add(share.weight);
        sizes.Add(std::abs(share.weight));
    }
    const bool cancels = std::abs(weights.Value()) < sizes.Value() * 1e-9;
    for (Share& share : shares) {
        share.value =
            cancels ? total * (std::abs(share.weight) / sizes.Value()) / share.weight : total / weights.Value();
    }
}

/// From the first value in equal steps; evenly where the steps have no influence on the total.
void SpreadStraight(std::span<Share> shares, double total) {
    const double first = shares.front().value;
    CompensatedSum weights;
    CompensatedSum moments;
    for (std::size_t i = 0; i < shares.size(); ++i) {
        weights.Add(shares[i].weight);
        moments.Add(shares[i].weight * static_cast<double>(i));
    }
    if (moments.Value() == 0) {
        SpreadEqually(shares, total);
        return;
    }
    const double step = (total - first * weights.Value()) / moments.Value();
    for (std::size_t i = 0; i < shares.size(); ++i) {
        shares[i].value = first + step * static_cast<double>(i);
    }
}

/// A value as the decimal number of so many steps that it stands for; false where it is too large to be rounded.
bool RoundDown(Share& share) {
    const double steps = share.value * share.stepsPerUnit;
    if (!(std::abs(steps) < MostSteps)) {
        return false;
    }
    // What calculating has left a hair below a whole step is that step.
    const double nearest = std::nearbyint(steps);
    const double whole = std::abs(steps - nearest) <= std::abs(steps) * 1e-15 * 8 ? nearest : std::floor(steps);
    share.remainder = std::max(0.0, steps - whole);
    share.value = whole / share.stepsPerUnit;
    return true;
}

void AddSteps(Share& share, double steps) {
    share.value = (std::nearbyint(share.value * share.stepsPerUnit) + steps) / share.stepsPerUnit;
}

/// Rounds every value to its leaf's decimals and gives the steps that are left to the largest remainders. What no step
/// can hold stays in the leaf with the largest value.
void RoundToTotal(std::span<Share> shares, double total) {
    bool rounded = true;
    for (Share& share : shares) {
        rounded = RoundDown(share) && rounded;
    }
    std::vector<std::size_t> byRemainder(shares.size());
    std::iota(byRemainder.begin(), byRemainder.end(), std::size_t{0});
    std::stable_sort(byRemainder.begin(), byRemainder.end(), [&](std::size_t left, std::size_t right) {
        return shares[left].remainder > shares[right].remainder;
    });
    // Rounding down takes less than one step of each leaf, so that one round gives all of them back.
    double missing = total - WeightedSum(shares);
    for (const std::size_t i : byRemainder) {
        Share& share = shares[i];
        const double step = share.weight / share.stepsPerUnit;
        if (rounded && share.remainder > 0 && missing / step >= 0.5) {
            AddSteps(share, 1);
            missing -= step;
        }
    }
    missing = total - WeightedSum(shares);
    const auto largest = std::max_element(shares.begin(), shares.end(), [](const Share& left, const Share& right) {
        return std::abs(left.value) < std::abs(right.value);
    });
    const double unit = std::abs(largest->weight) / largest->stepsPerUnit;
    if (const double steps = std::nearbyint(missing / (largest->weight / largest->stepsPerUnit));
        rounded && std::abs(missing) >= unit / 2 &&
        std::abs(missing - steps * (largest->weight / largest->stepsPerUnit)) < unit * 1e-6) {
        AddSteps(*largest, steps);
    } else if (std::abs(missing) > std::abs(total) * 1e-15 * 4) {
        largest->value += missing / largest->weight;
    }
}

}  // namespace

double TotalOf(std::span<const SpreadLeaf> leaves) {
    CompensatedSum sum;
    for (const SpreadLeaf& leaf : leaves) {
        sum.Add(leaf.weight * leaf.value.value_or(0));
    }
    return sum.Rounded();
}

SpreadResult Spread(std::span<const SpreadLeaf> leaves, double amount, SpreadMethod method,
                    std::span<const double> profile) {
    SpreadResult result;
    CompensatedSum fixed;
    for (const SpreadLeaf& leaf : leaves) {
        result.values.push_back(leaf.value);
        if (leaf.fixed) {
            fixed.Add(leaf.weight * leaf.value.value_or(0));
        }
    }
    std::vector<Share> shares = FreeLeaves(leaves);
    if (shares.empty()) {
        const bool any = std::any_of(leaves.begin(), leaves.end(), [](const SpreadLeaf& leaf) { return leaf.fixed; });
        result.refusal = any ? SpreadRefusal::AllFixed : SpreadRefusal::NoLeaves;
        return result;
    }
    const double total = amount - fixed.Value();
    std::vector<bool> staysEmpty(leaves.size(), false);
    switch (method) {
        case SpreadMethod::Proportional:
            if (AddBySize(shares, total - WeightedSum(shares), [](const Share& share) { return share.value; })) {
                for (const Share& share : shares) {
                    staysEmpty[share.leaf] = !leaves[share.leaf].value;
                }
            } else {
                SpreadEqually(shares, total);
            }
            break;
        case SpreadMethod::Equal:
            SpreadEqually(shares, total);
            break;
        case SpreadMethod::StraightLine:
            SpreadStraight(shares, total);
            break;
        case SpreadMethod::Profile:
            for (Share& share : shares) {
                share.value = 0;
            }
            if (!AddBySize(shares, total, [&](const Share& share) {
                    return share.leaf < profile.size() ? profile[share.leaf] : 0.0;
                })) {
                result.refusal = SpreadRefusal::NoProfile;
                return result;
            }
            break;
        case SpreadMethod::Repeat:
        case SpreadMethod::Percent:
            for (Share& share : shares) {
                share.value = method == SpreadMethod::Repeat ? amount : share.value * (1 + amount / 100);
                staysEmpty[share.leaf] = method == SpreadMethod::Percent && !leaves[share.leaf].value;
                if (RoundDown(share) && share.remainder >= 0.5) {
                    AddSteps(share, 1);
                }
            }
            break;
    }
    if (method != SpreadMethod::Repeat && method != SpreadMethod::Percent) {
        RoundToTotal(shares, total);
    }
    for (const Share& share : shares) {
        if (!std::isfinite(share.value)) {
            result.refusal = SpreadRefusal::TooLarge;
            result.values.clear();
            return result;
        }
        if (!staysEmpty[share.leaf] || share.value != 0) {
            result.values[share.leaf] = share.value == 0 ? 0.0 : share.value;
        }
    }
    return result;
}

}  // namespace planview
