// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "components/chart/ChartTypes.h"

namespace planview {

/// The colours of series in the order in which they are given out: blue, orange, green, purple, teal, red,
/// yellow-brown, grey, then lighter steps of them. Neighbours differ in lightness too, for those who do not tell the
/// hues apart.
inline constexpr std::array<ChartColor, 16> SeriesColors{{
    {36, 99, 214},
    {224, 138, 30},
    {22, 155, 118},
    {128, 72, 178},
    {64, 178, 196},
    {192, 57, 43},
    {150, 118, 20},
    {104, 114, 125},
    {122, 166, 240},
    {246, 190, 110},
    {110, 205, 170},
    {188, 148, 224},
    {20, 110, 130},
    {235, 130, 118},
    {208, 178, 74},
    {170, 178, 188},
}};

}  // namespace planview
