// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "grid/GridPlaces.h"

namespace planview {

/// Columns or lines as a table keeps them: their keys and the captions that they had then.
///
/// `keys` lists keys and ranges of keys, "ROW3" or "COL4:COL9,COL12"; a range includes hidden columns or lines. `names`
/// has the caption of each key in `keys`, in the same order, separated by "|"; inside a caption, "|" and control
/// characters are replaced by blanks. Both are empty for none.
struct PlaceTexts {
    std::string keys;
    std::string names;
};

/// Sorts the keys in the grid's order and joins neighbours to ranges.
[[nodiscard]] PlaceTexts DescribePlaces(const GridControl& grid, PlaceAxis axis, const std::vector<std::string>& keys);

/// The keys that were found, or why not.
struct FoundPlaces {
    std::vector<std::string> keys;  ///< one for each column or line
    std::string error;              ///< empty if all were found

    [[nodiscard]] bool Ok() const noexcept { return error.empty(); }
};

/// Finds places again on a grid that may have changed, by GridPlaces. The keys of a range are listed from its first end
/// to its last one even if the grid now has them the other way round: recorded values are in that order.
[[nodiscard]] FoundPlaces FindPlaces(const GridControl& grid, PlaceAxis axis, const PlaceTexts& places);

/// The captions for the user: "Retail", "Jan 08 to Jun 08", "Retail, Utilities".
[[nodiscard]] std::string ReadablePlaces(const PlaceTexts& places);

/// The only key; empty if there are several or none.
[[nodiscard]] std::string_view SinglePlace(std::string_view keys);

}  // namespace planview
