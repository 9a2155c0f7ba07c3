// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "xlsx/Sheet.h"

namespace planview::xlsx {

struct CellAddress {
    std::int32_t row = 0;
    std::int32_t column = 0;
};

/// Reads "B7" as row 7, column 2, with "$" before either or not; no value for what names no cell of a sheet.
[[nodiscard]] std::optional<CellAddress> ParseCell(std::string_view text) noexcept;
/// Reads "B7:C9", "$1:$3" (whole rows) or "$A:$B" (whole columns); a single cell is an area, too.
[[nodiscard]] std::optional<Area> ParseArea(std::string_view text) noexcept;

/// "B7".
[[nodiscard]] std::string CellName(std::int32_t row, std::int32_t column);
/// "B".
[[nodiscard]] std::string ColumnName(std::int32_t column);

}  // namespace planview::xlsx
