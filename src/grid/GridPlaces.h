// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "components/GridControl.h"

namespace planview {

/// The marks in a reference: between the two ends of a range ("COL4:COL9"), between ranges ("COL4:COL9,COL12"), between
/// lines and periods ("ROW2:ROW5/COL3").
inline constexpr char RangeMark = ':';
inline constexpr char ListMark = ',';
inline constexpr char AxisMark = '/';
/// The mark between the captions of a reference, which stand in the order of its keys. In a caption it stands as a
/// blank.
inline constexpr char CaptionMark = '|';

/// Whether places are periods (columns) or lines (rows).
enum class PlaceAxis { Columns, Lines };

/// The ends of a range of places, by index; both belong to it.
struct PlaceRange {
    int first = -1;
    int last = -1;
};

/// Hands out the captions of the keys of a reference in their order; empty ones where they are not one for each key.
class KeyCaptions {
public:
    KeyCaptions(std::string_view reference, std::string_view captions);

    [[nodiscard]] std::string_view Next() noexcept;

private:
    std::vector<std::string_view> captions_;
    std::size_t next_ = 0;
};

/// Why a reference names no place.
struct PlaceFault {
    enum class Kind { Malformed, NotThere, Ambiguous, Apart };
    Kind kind = Kind::NotThere;
    std::string missing;    ///< the caption, else the key, else what is malformed
    std::string other;      ///< Apart: the caption of the first end; `missing` is that of the last
    std::size_t count = 0;  ///< Ambiguous: so many are called so
};

/// The lines or the periods of a grid by index, in the order in which the grid has them: fixed ones and planning ones.
///
/// A place is found by its key as long as it still has the caption that a reference knows, else by that caption where
/// exactly one planning place has it. Without a caption the key decides alone. Lives no longer than one action: the
/// captions are read once, when the first one is looked for.
class GridPlaces {
public:
    GridPlaces(const GridControl& grid, PlaceAxis axis);
    GridPlaces(const GridPlaces&) = delete;
    GridPlaces& operator=(const GridPlaces&) = delete;

    [[nodiscard]] const std::string& Key(int place) const;
    /// The heading without the blanks around it, fit to stand in a list of captions; the key where it is empty.
    [[nodiscard]] std::string Caption(int place) const;
    /// From the first planning place to the last one; the last is before the first where there is none.
    [[nodiscard]] PlaceRange Planning() const noexcept { return planning_; }
    [[nodiscard]] bool IsPlanning(int place) const noexcept {
        return place >= planning_.first && place <= planning_.last;
    }
    [[nodiscard]] bool SameArea(int left, int right) const noexcept { return AreaOf(left) == AreaOf(right); }

    [[nodiscard]] std::optional<int> FindKey(std::string_view key) const;
    /// The only planning place with this caption.
    [[nodiscard]] std::optional<int> FindCaption(std::string_view caption) const;
    [[nodiscard]] std::optional<int> Find(std::string_view key, std::string_view caption, PlaceFault& fault) const;
    /// One place or a range ("COL4:COL9"). Its ends are as in the text: the last one may stand before the first, where
    /// the user has moved one of them since. They are never in two areas.
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
    mutable std::unordered_map<std::string, std::vector<int>> byCaption_;  // of the planning ones; empty: not read yet
};

}  // namespace planview
