// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "components/GridControl.h"

namespace planview {

/// Separators in a reference: of the ends of a range ("COL4:COL9"), of ranges ("COL4:COL9,COL12"), of lines and periods
/// ("ROW2:ROW5/COL3").
inline constexpr char RangeMark = ':';
inline constexpr char ListMark = ',';
inline constexpr char AxisMark = '/';
/// Separates the captions of a reference, which are in the order of its keys. Inside a caption it is replaced by a
/// blank.
inline constexpr char CaptionMark = '|';

/// Whether places are periods (columns) or lines (rows).
enum class PlaceAxis { Columns, Lines };

/// The ends of a range of places by index, both included.
struct PlaceRange {
    int first = -1;
    int last = -1;
};

/// The captions of the keys of a reference, one after the other. All are empty unless there is one for each key.
class KeyCaptions {
public:
    KeyCaptions(std::string_view reference, std::string_view captions);

    [[nodiscard]] std::string_view Next() noexcept;

private:
    std::vector<std::string_view> captions_;
    std::size_t next_ = 0;
};

/// Why a reference was not found.
struct PlaceFault {
    enum class Kind { Malformed, NotThere, Ambiguous, Apart };
    Kind kind = Kind::NotThere;
    std::string missing;    ///< the caption, or the key if there is none; Malformed: the text
    std::string other;      ///< Apart: caption of the first end; `missing` is that of the last
    std::size_t count = 0;  ///< Ambiguous: number of places with the caption
};

/// The lines or the periods of a grid ("places") by index in the grid's order, fixed ones included.
///
/// A place is found by its key if it still has the caption given with the key; else by that caption, if exactly one
/// planning place has it. Without a caption only the key counts. Must not outlive an action: captions are read once,
/// when one is first searched for.
class GridPlaces {
public:
    GridPlaces(const GridControl& grid, PlaceAxis axis);
    GridPlaces(const GridPlaces&) = delete;
    GridPlaces& operator=(const GridPlaces&) = delete;

    [[nodiscard]] const std::string& Key(int place) const;
    /// The trimmed heading, without CaptionMark and control characters; the key if it is empty.
    [[nodiscard]] std::string Caption(int place) const;
    /// The first and the last planning place; if there is none, last is less than first.
    [[nodiscard]] PlaceRange Planning() const noexcept { return planning_; }
    [[nodiscard]] bool IsPlanning(int place) const noexcept {
        return place >= planning_.first && place <= planning_.last;
    }
    [[nodiscard]] bool SameArea(int left, int right) const noexcept { return AreaOf(left) == AreaOf(right); }

    [[nodiscard]] std::optional<int> FindKey(std::string_view key) const;
    /// The only planning place with this caption.
    [[nodiscard]] std::optional<int> FindCaption(std::string_view caption) const;
    [[nodiscard]] std::optional<int> Find(std::string_view key, std::string_view caption, PlaceFault& fault) const;
    /// One place or a range ("COL4:COL9"). The ends are in the order of the text: last is less than first if the user
    /// has moved one past the other. Both are in the same area of the grid.
    [[nodiscard]] std::optional<PlaceRange> FindRange(std::string_view range, KeyCaptions& captions,
                                                      PlaceFault& fault) const;

private:
    [[nodiscard]] int AreaOf(int place) const noexcept {
        return place < planning_.first ? 0 : place <= planning_.last ? 1 : 2;
    }
    [[nodiscard]] const std::vector<int>& Called(std::string_view caption) const;

    const GridControl& grid_;
    PlaceAxis axis_;
    PlaceRange planning_{0, -1};
    mutable std::unordered_map<std::string, std::vector<int>> byCaption_;  // of planning places; empty until needed
};

}  // namespace planview
