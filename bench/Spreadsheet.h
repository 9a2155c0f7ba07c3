// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace planview::bench {

/// A workbook of 181 × 181 numbers with captions, colours, borders, locks and a number format, by the spreadsheet
/// application.
void WriteOwnWorkbook(const std::string& path);
/// The same by the library below it.
void WritePeerWorkbook(const std::string& path);

}  // namespace planview::bench
