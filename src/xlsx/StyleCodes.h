// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Variant.h>

#include "xlsx/CellStyle.h"

namespace planview::xlsx {

/// The numbers that callers give and get for looks. What is none of them throws AutomationError.

/// 1 general, 2 left, 3 centre, 4 right; -4131, -4108 and -4152 are left, centre and right as well.
[[nodiscard]] Alignment AlignmentOf(const Variant& code);
[[nodiscard]] int CodeOf(Alignment alignment) noexcept;

/// 1 thin, 9 and -4119 double, -4115 dashes, -4118 dots, 4 and 5 dashes with one and two dots, 13 slanted ones,
/// -4142 and 0 none.
[[nodiscard]] LineStyle LineStyleOf(const Variant& code);
[[nodiscard]] int CodeOf(LineStyle style) noexcept;

/// 1 to 56; 0 for -4142 (none) and -4105 (automatic).
[[nodiscard]] std::uint8_t ColorIndexOf(const Variant& code);

/// A size in points, 1 to 409.
[[nodiscard]] double FontSizeOf(const Variant& size);

/// A width in characters, 0 to 255.
[[nodiscard]] float ColumnWidthOf(const Variant& width);

/// A format code such as "#,##0.00" that a workbook can hold: no line breaks, quotes closed, at most 127 bytes.
[[nodiscard]] std::string NumberFormatOf(const Variant& format);

}  // namespace planview::xlsx
