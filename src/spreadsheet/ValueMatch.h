// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace planview {

/// Tells rows with the same caption apart by their values: which of the recorded rows are which of the found ones. As
/// many of each; the values of both in the same order and form.
///
/// Rows that nobody has changed are found by all of their values. A changed one is found where it agrees in more values
/// with one recorded row than with any other, and that row with no other as much; the last one only has to agree at
/// all. Rows that were the same when they were recorded, and of which one was changed, cannot be told apart and are
/// left out.
[[nodiscard]] std::vector<std::pair<int, int>> MatchByValues(const std::vector<std::vector<std::string>>& recorded,
                                                             const std::vector<std::vector<std::string>>& found);

}  // namespace planview
