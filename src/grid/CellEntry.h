// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "automation/EnteredNumber.h"
#include "clipboard/HtmlBlock.h"
#include "components/GridControl.h"
#include "grid/CellRules.h"
#include "grid/ValueEntry.h"

namespace planview {

/// A cell whose text could have meant another number than the one that it was taken for.
struct GuessedEntry {
    CellKey cell;
    double taken = 0;
    double other = 0;
};

/// A text that the user has entered into a cell, read as a number in its place: by the cell's number code. No value for
/// other texts, and in cells that take texts: text lines, and fixed ones without a code.
[[nodiscard]] std::optional<EnteredNumber> ReadEntry(const GridControl& grid, Cell cell, std::string_view text);

/// The text as a table takes it, see TableText(). A text that is no number comes back as it is, but one that the cell
/// itself shows as its contents.
[[nodiscard]] PLANVIEW_EXPORT std::string EntryText(const GridControl& grid, Cell cell, const std::string& text);

/// Whether the cell takes this text when it is read in its place.
[[nodiscard]] PLANVIEW_EXPORT Refusal RefusalOfEntry(const GridControl& grid, Cell cell, const std::string& text);

/// Turns the values of a pasted block, still as they came, into what tables take, each in its place and by the evidence
/// of the whole block. Answers which of them were guessed.
[[nodiscard]] std::vector<GuessedEntry> ReadEntries(const GridControl& grid, const ValueBlock& block,
                                                    std::span<NewValue> values);

}  // namespace planview
