// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace planview {

/// Which captions of a worksheet are those of which rows of an index table. Places from 0, in the order of the
/// captions.
struct CaptionMatch {
    static constexpr int None = -1;

    std::vector<int> sheetPlaces;  ///< for each row of the table its place on the sheet, or None
    std::vector<int> missing;      ///< rows of the table whose caption the sheet does not have
    std::vector<int> extra;  ///< places on the sheet whose caption the table does not have; empty captions left out
    /// Rows of the table with a caption that stands several times, where it cannot be told which is which.
    std::vector<int> ambiguous;
    /// A row of the table and the place on the sheet where another caption stands in its stead; neither of them is
    /// missing or extra.
    std::vector<std::pair<int, int>> renamed;
    /// Most of the sheet's captions are none of the table's.
    bool ofOtherTable = false;
};

/// Captions are compared without the blanks around them. Those that stand once in both belong together wherever they
/// stand. Those that stand several times belong together in their order, where their neighbours prove that none came,
/// went or moved.
[[nodiscard]] CaptionMatch MatchCaptions(std::vector<std::string> table, std::vector<std::string> sheet);

}  // namespace planview
