// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "automation/FlatMap.h"
#include "components/GridTypes.h"

namespace planview {

/// The columns or the rows of a grid: found by key in constant time, named by ids that moving does not change, and kept
/// in order within three areas. `Track` has a `key`, an `area` and a `hidden` flag.
template <class Track, class Id, class Area>
class GridTracks {
public:
    static constexpr std::size_t AreaCount = 3;

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(tracks_.size()); }
    [[nodiscard]] bool Has(Id id) const noexcept { return id.value >= 0 && id.value < Count(); }
    /// A hidden track without a key for an id that Has() denies, such as one that was kept beyond a rebuild.
    [[nodiscard]] const Track& At(Id id) const noexcept { return Has(id) ? tracks_[Slot(id)] : Missing(); }
    /// To change everything but `key`, `area` and `hidden`. The id must be one of this grid's.
    [[nodiscard]] Track& Change(Id id) noexcept { return tracks_[Slot(id)]; }
    [[nodiscard]] const std::vector<Id>& Of(Area area) const noexcept { return areas_[Index(area)]; }
    [[nodiscard]] int VisibleCount(Area area) const noexcept { return visible_[Index(area)]; }

    /// An id that Has() denies where there is no such key. (The compiler builds std::optional by parts, which stalls
    /// the processor in the innermost call of every build.)
    [[nodiscard]] Id Find(std::string_view key) const {
        // Callers ask for the same key or for the next one more often than for any other.
        for (std::int32_t guess = lastFound_; guess < std::min(lastFound_ + 2, Count()); ++guess) {
            if (IsSame(KeyAt(guess), key)) {
                lastFound_ = guess;
                return Id{guess};
            }
        }
        const int* const found = byKey_.Find(key);
        if (!found) {
            return Id{};
        }
        lastFound_ = *found;
        return Id{*found};
    }

    /// `place` is 0-based within the track's area, at most the number of tracks there. The key must be a new one.
    Id Insert(Track track, std::size_t place) {
        const Id id{static_cast<std::int32_t>(tracks_.size())};
        const std::size_t area = Index(track.area);
        tracks_.push_back(std::move(track));
        byKey_.Add(tracks_.back().key, id.value);
        std::vector<Id>& order = areas_[area];
        order.insert(order.begin() + static_cast<std::ptrdiff_t>(place), id);
        visible_[area] += tracks_.back().hidden ? 0 : 1;
        orderKnown_ = false;
        return id;
    }

    /// Moves a track to a 0-based place among those of its area.
    void Move(Id id, std::size_t place) {
        std::vector<Id>& order = areas_[Index(At(id).area)];
        const auto from = order.begin() + PlaceOf(id);
        const auto to = order.begin() + static_cast<std::ptrdiff_t>(place);
        if (from < to) {
            std::rotate(from, from + 1, to + 1);
        } else {
            std::rotate(to, from, from + 1);
        }
        orderKnown_ = false;
    }

    /// False if it already was.
    bool SetHidden(Id id, bool hidden) {
        Track& track = Change(id);
        if (track.hidden == hidden) {
            return false;
        }
        track.hidden = hidden;
        visible_[Index(track.area)] += hidden ? -1 : 1;
        return true;
    }

    /// The 0-based place among all tracks, -1 for an id that Has() denies.
    [[nodiscard]] int OrderOf(Id id) const {
        UpdateOrder();
        return Has(id) ? order_[Slot(id)] : -1;
    }

    /// The 0-based place within the track's area.
    [[nodiscard]] int PlaceOf(Id id) const { return OrderOf(id) - FirstOrderOf(At(id).area); }

    [[nodiscard]] Id AtOrder(int order) const {
        auto place = static_cast<std::size_t>(order);
        std::size_t area = 0;
        while (area + 1 < AreaCount && place >= areas_[area].size()) {
            place -= areas_[area].size();
            ++area;
        }
        return areas_[area].at(place);
    }

    /// The track itself or the first visible one behind it in its area, else the last visible one before it.
    [[nodiscard]] std::optional<Id> VisibleFrom(Id id) const {
        if (!Has(id)) {
            return std::nullopt;
        }
        const std::vector<Id>& order = Of(At(id).area);
        const int place = PlaceOf(id);
        for (int i = place; i < static_cast<int>(order.size()); ++i) {
            if (IsVisible(order, i)) {
                return order[static_cast<std::size_t>(i)];
            }
        }
        for (int i = place - 1; i >= 0; --i) {
            if (IsVisible(order, i)) {
                return order[static_cast<std::size_t>(i)];
            }
        }
        return std::nullopt;
    }

    /// The nearest visible track of the same area; of two equally near, the one behind.
    [[nodiscard]] std::optional<Id> NearestVisible(Id id) const {
        if (!Has(id)) {
            return std::nullopt;
        }
        const std::vector<Id>& order = Of(At(id).area);
        const int count = static_cast<int>(order.size());
        const int place = PlaceOf(id);
        for (int distance = 0; distance < count; ++distance) {
            for (const int i : {place + distance, place - distance}) {
                if (i >= 0 && i < count && IsVisible(order, i)) {
                    return order[static_cast<std::size_t>(i)];
                }
            }
        }
        return std::nullopt;
    }

    void Clear() { *this = GridTracks(); }

private:
    [[nodiscard]] static std::size_t Index(Area area) noexcept { return static_cast<std::size_t>(area); }
    [[nodiscard]] static std::size_t Slot(Id id) noexcept { return static_cast<std::size_t>(id.value); }
    [[nodiscard]] static const Track& Missing() noexcept {
        static const Track missing = [] {
            Track track;
            track.hidden = true;
            return track;
        }();
        return missing;
    }
    [[nodiscard]] std::string_view KeyAt(std::int32_t value) const noexcept {
        return tracks_[static_cast<std::size_t>(value)].key;
    }
    /// Neighbouring keys differ in their last digit, so comparing that first saves most full comparisons.
    [[nodiscard]] static bool IsSame(std::string_view known, std::string_view asked) noexcept {
        return known.size() == asked.size() && known.back() == asked.back() && known == asked;
    }
    [[nodiscard]] bool IsVisible(const std::vector<Id>& order, int place) const noexcept {
        const Id id = order[static_cast<std::size_t>(place)];
        return !tracks_[Slot(id)].hidden;
    }
    [[nodiscard]] int FirstOrderOf(Area area) const noexcept {
        int first = 0;
        for (std::size_t i = 0; i < Index(area); ++i) {
            first += static_cast<int>(areas_[i].size());
        }
        return first;
    }

    void UpdateOrder() const {
        if (orderKnown_) {
            return;
        }
        order_.resize(tracks_.size());
        int next = 0;
        for (const std::vector<Id>& area : areas_) {
            for (const Id id : area) {
                order_[Slot(id)] = next++;
            }
        }
        orderKnown_ = true;
    }

    std::vector<Track> tracks_;  // by id
    NameMap byKey_;
    std::array<std::vector<Id>, AreaCount> areas_;
    std::array<int, AreaCount> visible_{};
    mutable std::int32_t lastFound_ = 0;
    // Computed on demand, because building and moving would otherwise renumber everything each time.
    mutable std::vector<int> order_;
    mutable bool orderKnown_ = false;
};

}  // namespace planview
