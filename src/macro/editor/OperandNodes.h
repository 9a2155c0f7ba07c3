// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "macro/run/MacroGrid.h"
#include "macro/tree/MacroOutline.h"
#include "macro/tree/MacroTable.h"

namespace planview {

inline constexpr std::string_view SelectedLineText = "Selected line";

/// The element for what is selected in the grid: a line, a cell or an area; for whole columns the periods of the macro.
/// Returns no value if the selection is none of these; `refusal` then says what to select.
[[nodiscard]] std::optional<NewMacroNode> NodeFromSelection(const GridControl& grid, std::string& refusal);
/// The same, as an element of the given type.
[[nodiscard]] std::optional<NewMacroNode> NodeFromSelectionAs(const GridControl& grid, MacroNodeType type,
                                                              std::string& refusal);

/// The element that a text stands for: a number, one of the macro's own names, a reference, the caption of a line, or
/// of a line and a period ("Retail trade, Jan 06"). Returns no value for any other text.
[[nodiscard]] std::optional<NewMacroNode> NodeFromText(const GridControl& grid, const MacroOutline& outline,
                                                       const std::string& text);

/// The names of the macro's own lines, elements or areas, each once.
[[nodiscard]] std::vector<std::string> OwnNames(const MacroOutline& outline, MacroNodeType type);
/// Suggestions for texts: captions of lines and the macro's own names.
[[nodiscard]] std::vector<std::string> OperandTexts(const GridControl& grid, const MacroOutline& outline);

/// The element that sets the periods of a macro.
[[nodiscard]] NewMacroNode PeriodsNode(const std::string& value, const std::string& captions);

}  // namespace planview
