// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>

#include "components/AxisLayout.h"

namespace planview {

/// The visible columns or rows of an axis without its headings, as one line of places from 0 on.
class GridLine {
public:
    explicit GridLine(const AxisLayout& layout)
        : layout_(layout),
          heading_(layout.IndexOf(Area::Leading, HeadingTrack)),
          leading_(std::max(0, count(Area::Leading) - 1)),
          center_(count(Area::Center)),
          trailing_(count(Area::Trailing)) {}

    [[nodiscard]] int size() const { return leading_ + center_ + trailing_; }
    [[nodiscard]] int firstCenter() const { return center_ > 0 ? leading_ : 0; }
    [[nodiscard]] int lastCenter() const { return center_ > 0 ? leading_ + center_ - 1 : size() - 1; }
    [[nodiscard]] bool inCenter(int place) const { return place >= leading_ && place < leading_ + center_; }
    [[nodiscard]] int clamped(int place) const { return std::clamp(place, 0, std::max(0, size() - 1)); }
    /// The first and the last place of the area around a place.
    [[nodiscard]] std::pair<int, int> areaAround(int place) const {
        return place < leading_  ? std::pair(0, leading_ - 1)
               : inCenter(place) ? std::pair(leading_, leading_ + center_ - 1)
                                 : std::pair(leading_ + center_, size() - 1);
    }

    /// 0 for a track that is not in the line.
    [[nodiscard]] int placeOf(std::int32_t track) const {
        for (const Area area : {Area::Leading, Area::Center, Area::Trailing}) {
            const int index = layout_.IndexOf(area, track);
            if (index >= 0) {
                if (area == Area::Leading) {
                    return clamped(index < heading_ ? index : index - 1);
                }
                return clamped((area == Area::Center ? leading_ : leading_ + center_) + index);
            }
        }
        return 0;
    }

    [[nodiscard]] std::int32_t trackAt(int place) const {
        const auto item = [&](Area area, int index) {
            return layout_.Items(area)[static_cast<std::size_t>(index)].track;
        };
        return place < leading_  ? item(Area::Leading, place < heading_ ? place : place + 1)
               : inCenter(place) ? item(Area::Center, place - leading_)
                                 : item(Area::Trailing, place - leading_ - center_);
    }

private:
    using Area = AxisLayout::Area;
    [[nodiscard]] int count(Area area) const { return static_cast<int>(layout_.Items(area).size()); }

    const AxisLayout& layout_;
    int heading_;  // its index in the leading area
    int leading_;
    int center_;
    int trailing_;
};

}  // namespace planview
