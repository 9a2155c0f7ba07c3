// SPDX-License-Identifier: MIT
#include "grid/GridPlaces.h"

#include <algorithm>
#include <span>

#include "automation/Texts.h"
#include "grid/CellCaption.h"

namespace planview {

namespace {

/// A caption that can be part of a list of captions.
std::string Listable(std::string caption) {
    std::replace_if(
        caption.begin(), caption.end(),
        [](char c) { return c == CaptionMark || static_cast<unsigned char>(c) < static_cast<unsigned char>(' '); },
        ' ');
    return std::string(Trimmed(caption));
}

std::size_t CountKeys(std::string_view reference) {
    const auto marks = std::count_if(reference.begin(), reference.end(),
                                     [](char c) { return c == RangeMark || c == ListMark || c == AxisMark; });
    return static_cast<std::size_t>(marks) + 1;
}

/// The item with this index in three concatenated lists.
template <class Id>
Id At(std::span<const Id> first, std::span<const Id> second, std::span<const Id> third, int index) {
    auto at = static_cast<std::size_t>(index);
    for (const std::span<const Id>& ids : {first, second}) {
        if (at < ids.size()) {
            return ids[at];
        }
        at -= ids.size();
    }
    return third[at];
}

ColumnId ColumnAt(const GridControl& grid, int index) {
    return At(grid.Columns(ColumnArea::Left), grid.Columns(ColumnArea::Center), grid.Columns(ColumnArea::Right), index);
}

RowId RowAt(const GridControl& grid, int index) {
    return At(grid.Rows(RowArea::Top), grid.Rows(RowArea::Center), grid.Rows(RowArea::Bottom), index);
}

}  // namespace

KeyCaptions::KeyCaptions(std::string_view reference, std::string_view captions)
    : captions_(SplitAt(captions, CaptionMark)) {
    if (captions_.size() != CountKeys(reference)) {
        captions_.clear();
    }
}

std::string_view KeyCaptions::Next() noexcept {
    return next_ < captions_.size() ? captions_[next_++] : std::string_view();
}

GridPlaces::GridPlaces(const GridControl& grid, PlaceAxis axis) : grid_(grid), axis_(axis) {
    const bool columns = axis == PlaceAxis::Columns;
    const std::size_t before = columns ? grid.Columns(ColumnArea::Left).size() : grid.Rows(RowArea::Top).size();
    const std::size_t count = columns ? grid.Columns(ColumnArea::Center).size() : grid.Rows(RowArea::Center).size();
    planning_.first = static_cast<int>(before);
    planning_.last = static_cast<int>(before + count) - 1;
}

const std::string& GridPlaces::Key(int place) const {
    return axis_ == PlaceAxis::Columns ? grid_.Column(ColumnAt(grid_, place)).key : grid_.Row(RowAt(grid_, place)).key;
}

std::string GridPlaces::Caption(int place) const {
    std::string caption = Listable(axis_ == PlaceAxis::Columns ? HeadingOf(grid_, ColumnAt(grid_, place))
                                                               : HeadingOf(grid_, RowAt(grid_, place)));
    return caption.empty() ? Key(place) : caption;
}

std::optional<int> GridPlaces::FindKey(std::string_view key) const {
    if (axis_ == PlaceAxis::Columns) {
        const std::optional<ColumnId> column = grid_.FindColumn(key);
        return column ? std::optional(grid_.OrderOf(*column)) : std::nullopt;
    }
    const std::optional<RowId> row = grid_.FindRow(key);
    return row ? std::optional(grid_.OrderOf(*row)) : std::nullopt;
}

const std::vector<int>& GridPlaces::Called(std::string_view caption) const {
    static const std::vector<int> None;
    if (byCaption_.empty()) {
        for (int place = planning_.first; place <= planning_.last; ++place) {
            byCaption_[Caption(place)].push_back(place);
        }
    }
    const auto found = byCaption_.find(std::string(caption));
    return found == byCaption_.end() ? None : found->second;
}

std::optional<int> GridPlaces::FindCaption(std::string_view caption) const {
    const std::vector<int>& called = Called(caption);
    return called.size() == 1 ? std::optional(called.front()) : std::nullopt;
}

std::optional<int> GridPlaces::Find(std::string_view key, std::string_view caption, PlaceFault& fault) const {
    std::optional<int> found = FindKey(key);
    if (caption.empty() ? !found : !found || Caption(*found) != caption) {
        found = caption.empty() ? std::nullopt : FindCaption(caption);
    }
    if (!found) {
        fault.count = caption.empty() ? 0 : Called(caption).size();
        fault.kind = fault.count == 0 ? PlaceFault::Kind::NotThere : PlaceFault::Kind::Ambiguous;
        fault.missing = caption.empty() ? key : caption;
    }
    return found;
}

std::optional<PlaceRange> GridPlaces::FindRange(std::string_view range, KeyCaptions& captions,
                                                PlaceFault& fault) const {
    const std::vector<std::string_view> keys = SplitAt(range, RangeMark);
    if (range.empty() || keys.size() > 2) {
        fault = {PlaceFault::Kind::Malformed, std::string(range), {}, 0};
        return std::nullopt;
    }
    std::vector<int> ends;
    for (const std::string_view key : keys) {
        const std::optional<int> end = Find(key, captions.Next(), fault);
        if (!end) {
            return std::nullopt;
        }
        ends.push_back(*end);
    }
    if (!SameArea(ends.front(), ends.back())) {
        fault = {PlaceFault::Kind::Apart, Caption(ends.back()), Caption(ends.front()), 0};
        return std::nullopt;
    }
    return PlaceRange{ends.front(), ends.back()};
}

}  // namespace planview
