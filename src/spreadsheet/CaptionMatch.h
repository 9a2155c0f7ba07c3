// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
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
    /// Rows of the table with a caption that stands several times, which were paired because of their order alone.
    std::vector<int> byOrder;
    /// Most of the sheet's captions are none of the table's.
    bool ofOtherTable = false;
};

/// Pairs of a row of the table and a place on the sheet that provably belong together, of rows and places that have one
/// caption; as many of each.
using TellApart =
    std::function<std::vector<std::pair<int, int>>(const std::vector<int>& inTable, const std::vector<int>& onSheet)>;

/// A caption as it is compared: without the blanks around it.
[[nodiscard]] std::string TrimmedCaption(const std::string& caption);

/// Captions that stand once in both belong together wherever they stand. Those that stand several times belong together
/// as `tellApart` says; where it says nothing, in their order, if every caption stands as often on the sheet as in the
/// table and nothing shows that the order has changed.
[[nodiscard]] CaptionMatch MatchCaptions(std::vector<std::string> table, std::vector<std::string> sheet,
                                         const TellApart& tellApart = {});

}  // namespace planview
