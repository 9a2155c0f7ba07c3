// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace planview::xlsx {

/// The numbers that "ColorIndex" takes besides 1 to 56.
inline constexpr int AutomaticColor = -4105;
inline constexpr int NoColor = -4142;

inline constexpr int PaletteSize = 56;

/// The colour of an index from 1 to 56 as 0xRRGGBB; no value for any other.
[[nodiscard]] std::optional<std::uint32_t> PaletteColor(int index) noexcept;

}  // namespace planview::xlsx
