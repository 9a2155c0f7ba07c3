// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "xlsx/DateFormats.h"
#include "xlsx/Workbook.h"
#include "xlsx/ZipParts.h"

namespace planview::xlsx {

/// Fills a worksheet from its part. A number that its cell shows as a date or a time is the text of that date: as a
/// number it would be a count of days that nobody has entered. A formula is its last value, or its own text ("=A1*2")
/// where it was never calculated; an error is its text ("#DIV/0!"), and what claims to be a number and is none counts
/// as one. `budget` is what cells may still be read.
void ReadSheet(ZipParts& parts, const std::string& part, const DateFormats& dates, Workbook& workbook,
               Worksheet& worksheet, std::size_t& budget);

}  // namespace planview::xlsx
