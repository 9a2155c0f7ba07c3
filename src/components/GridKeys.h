// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "components/GridTypes.h"

namespace planview {

/// The area that a column key's prefix names: "COL" centre, "FLC" left, "FRC" right, each followed by the decimal
/// digits of a number. No value for any other text.
[[nodiscard]] std::optional<ColumnArea> ColumnAreaOf(std::string_view key) noexcept;

/// As ColumnAreaOf(): "ROW" centre, "FTR" top, "FBR" bottom.
[[nodiscard]] std::optional<RowArea> RowAreaOf(std::string_view key) noexcept;

}  // namespace planview
