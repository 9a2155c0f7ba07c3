// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "components/chart/ChartTypes.h"

namespace planview {

/// The colour of a series on light and on dark grounds.
struct SeriesColor {
    ChartColor onLight;
    ChartColor onDark;
};

/// The colours in the order in which they are given out: blue, orange, green, purple, teal, red, yellow-brown, grey,
/// plum, leaf green, brown, steel blue, lilac, olive, crimson, slate. Each reaches 3.5:1 on the theme's ground, and
/// neighbours differ for those who do not see red, green or blue, too: tests/qt/SeriesLooksTest.cpp.
inline constexpr std::array<SeriesColor, 16> SeriesColors{{
    {{36, 99, 214}, {95, 147, 252}},
    {{201, 107, 15}, {195, 136, 32}},
    {{0, 103, 84}, {74, 199, 149}},
    {{118, 68, 176}, {194, 157, 245}},
    {{0, 140, 165}, {0, 140, 156}},
    {{224, 88, 82}, {246, 119, 109}},
    {{100, 72, 0}, {219, 184, 67}},
    {{115, 122, 127}, {198, 203, 210}},
    {{122, 0, 102}, {203, 79, 149}},
    {{91, 144, 103}, {159, 239, 167}},
    {{155, 102, 35}, {234, 149, 88}},
    {{29, 84, 138}, {112, 133, 193}},
    {{139, 116, 224}, {236, 194, 255}},
    {{74, 101, 0}, {185, 233, 118}},
    {{139, 18, 68}, {216, 73, 111}},
    {{130, 133, 144}, {155, 170, 190}},
}};

}  // namespace planview
