// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include <planview/SpreadMethod.h>

namespace planview {

/// A cell below a total, as spreading sees it. A total is the sum of `weight * value` over its leaves: 1 for a sum,
/// 1/n for the mean of n cells, -1 for what is taken away.
struct SpreadLeaf {
    std::optional<double> value;  ///< none is an empty cell
    double weight = 1;
    int decimals = 0;    ///< of the numbers that the leaf takes, 0 to 12
    bool fixed = false;  ///< held or read-only: keeps its value
};

/// Why an amount cannot be laid on the leaves.
enum class SpreadRefusal {
    None,
    NoLeaves,   ///< there are none, or all have the weight 0
    AllFixed,   ///< each is held or read-only
    NoProfile,  ///< the other line holds nothing at the leaves that are free
    TooLarge    ///< a leaf would hold no finite number
};

struct SpreadResult {
    /// One for each leaf; a fixed leaf's own value, and none for a leaf that stays empty.
    std::vector<std::optional<double>> values;
    SpreadRefusal refusal = SpreadRefusal::None;
};

/// Lays the amount on the leaves that are not fixed.
///
/// Proportional, Equal, StraightLine and Profile meet the total exactly: the values are rounded to each leaf's decimals
/// by the largest remainder, and what no leaf's decimals can hold stays in the largest leaf. Proportional adds the
/// difference to the leaves by the size of what they hold, whatever its sign, so that a rising total raises all of
/// them; cells that hold 0 or nothing stay as they are unless all do. `profile` has one value for each leaf and is read
/// by Profile only.
[[nodiscard]] SpreadResult Spread(std::span<const SpreadLeaf> leaves, double amount, SpreadMethod method,
                                  std::span<const double> profile = {});

/// The sum of weight times value, see CompensatedSum::Rounded().
[[nodiscard]] double TotalOf(std::span<const SpreadLeaf> leaves);

}  // namespace planview
