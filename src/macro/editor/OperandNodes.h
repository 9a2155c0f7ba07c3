// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/EnteredNumber.h"
#include "macro/run/MacroGrid.h"
#include "macro/tree/MacroOutline.h"
#include "macro/tree/MacroTable.h"

namespace planview {

inline constexpr std::string_view SelectedLineText = "Selected line";

/// The element for what is selected in the grid: a line, a cell or an area; for whole columns the periods of the macro,
/// and for a cell of a fixed row, such as a year above its months, those that stand under it.
/// Returns no value if the selection is none of these; `refusal` then says what to select.
[[nodiscard]] std::optional<NewMacroNode> NodeFromSelection(const GridControl& grid, std::string& refusal);
/// The same, as an element of the given type.
[[nodiscard]] std::optional<NewMacroNode> NodeFromSelectionAs(const GridControl& grid, MacroNodeType type,
                                                              std::string& refusal);

/// The element that a text stands for: a number, one of the macro's own names, a reference, the caption of a line, or
/// of a line and a period ("Retail trade, Jan 06"). Returns no value for any other text.
[[nodiscard]] std::optional<NewMacroNode> NodeFromText(const GridControl& grid, const MacroOutline& outline,
                                                       const std::string& text);

/// A text as a number of the macro, read in its place: by the number code of the line that the macro names at or before
/// the node `at`, the nearest one. No value for any other text.
[[nodiscard]] std::optional<EnteredNumber> ReadConstant(const GridControl& grid, const MacroOutline& outline, int at,
                                                        std::string_view text);
/// How a number was taken that could have meant another one, and how to enter that; empty where there was no doubt.
[[nodiscard]] std::string GuessText(const EnteredNumber& read);

/// The names of the macro's own lines, elements or areas, each once.
[[nodiscard]] std::vector<std::string> OwnNames(const MacroOutline& outline, MacroNodeType type);
/// Suggestions for texts: captions of lines and the macro's own names.
[[nodiscard]] std::vector<std::string> OperandTexts(const GridControl& grid, const MacroOutline& outline);

/// The element that sets the periods of a macro.
[[nodiscard]] NewMacroNode PeriodsNode(const std::string& value, const std::string& captions);

}  // namespace planview
