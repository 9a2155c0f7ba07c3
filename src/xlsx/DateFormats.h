// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "xlsx/ZipParts.h"

namespace planview::xlsx {

/// Whether a number format shows a number as a date or a time: "dd.mm.yyyy", "[h]:mm".
[[nodiscard]] bool IsDateFormat(std::string_view code) noexcept;

/// Which of a workbook's cells hold dates. A file keeps them as numbers, and only the format tells.
struct DateFormats {
    std::vector<bool> ofStyles;  ///< by the style number that a cell has
    bool startsIn1904 = false;   ///< day 0 is 1 January 1904, else 30 December 1899

    [[nodiscard]] bool IsDate(std::size_t style) const noexcept { return style < ofStyles.size() && ofStyles[style]; }
    /// "2026-11-21", "2026-11-21 18:00", or "18:00" before the first day; empty where no calendar has that day.
    [[nodiscard]] std::string TextOf(double days) const;
};

/// Fills `ofStyles` from the part with the styles.
void ReadDateFormats(ZipParts& parts, const std::string& part, DateFormats& formats);

}  // namespace planview::xlsx
