// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

namespace planview {

/// Cells as texts, row by row; rows may differ in length.
using TextBlock = std::vector<std::vector<std::string>>;

/// The largest block that is read, so that a foreign text cannot exhaust the memory.
inline constexpr std::size_t MaxBlockCells = 2'000'000;

/// A block as spreadsheets put it on the clipboard: cells divided by tabs, lines ended by a line feed, a cell with a
/// tab, quote or line end in it enclosed in quotes with inner quotes doubled.
[[nodiscard]] PLANVIEW_EXPORT std::string FormatBlock(const TextBlock& block);

/// Reads such a text. Lines may end in LF, CR LF or CR; the end of the last line makes no extra row. A quote that is
/// not at the start of a cell is an ordinary character; a quoted cell that never ends takes the rest. Cells beyond
/// MaxBlockCells are dropped.
[[nodiscard]] PLANVIEW_EXPORT TextBlock ParseBlock(std::string_view text);

}  // namespace planview
