// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace planview {

inline constexpr std::int16_t NoChartColor = -1;

/// The chart's own number ("ColorIndex") of the colour at a position of the palette popup, where black is 0 and white
/// is 15; NoChartColor for any other position.
[[nodiscard]] constexpr std::int16_t ChartColorAt(int position) noexcept {
    constexpr std::array<std::int16_t, 16> ByPosition{1, 10, 8, 13, 9, 12, 11, 14, 15, 6, 4, 5, 2, 7, 3, 0};
    return position < 0 || position >= static_cast<int>(ByPosition.size())
               ? NoChartColor
               : ByPosition[static_cast<std::size_t>(position)];
}

/// The same for an index into the grid's palette, where white is 0, black 1 and so on.
[[nodiscard]] constexpr std::int16_t ChartColorOfPalette(int index) noexcept {
    constexpr int WhitePosition = 15;
    return ChartColorAt(index == 0 ? WhitePosition : index - 1);
}

}  // namespace planview
