// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "grid/GridPlaces.h"

namespace planview {

/// Columns or lines as they stand in a table: their keys, and what they were called at that time.
///
/// `keys` lists keys and ranges of keys, "ROW3" or "COL4:COL9,COL12"; a range takes all that stand from one of its ends
/// to the other, hidden ones too. `names` has the caption of each key in `keys`, in the same order, divided by "|"; in
/// a caption a "|" or a control character stands as a blank. Both are empty for no place.
struct PlaceTexts {
    std::string keys;
    std::string names;
};

/// The keys in the grid's order, neighbours as ranges.
[[nodiscard]] PlaceTexts DescribePlaces(const GridControl& grid, PlaceAxis axis, const std::vector<std::string>& keys);

/// What was found of them, or why not.
struct FoundPlaces {
    std::vector<std::string> keys;  ///< one by one
    std::string error;              ///< empty when all were found

    [[nodiscard]] bool Ok() const noexcept { return error.empty(); }
};

/// Finds places on a grid that may have changed since, as GridPlaces does. The keys of a range come from its first end
/// to its last one: where these have changed their order, in the order in which they stood, which is that of their
/// values.
[[nodiscard]] FoundPlaces FindPlaces(const GridControl& grid, PlaceAxis axis, const PlaceTexts& places);

/// "Retail", "Jan 08 to Jun 08", "Retail, Utilities": the places by their captions, for the user.
[[nodiscard]] std::string ReadablePlaces(const PlaceTexts& places);

/// The single place that is meant; empty when there are several or none.
[[nodiscard]] std::string_view SinglePlace(std::string_view keys);

}  // namespace planview
