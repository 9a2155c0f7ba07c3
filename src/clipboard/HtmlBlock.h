// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>
#include <planview/Variant.h>

#include "clipboard/BlockText.h"

namespace planview {

/// A block as an HTML table, for programs that read that. A cell whose text is a number carries it once more in the
/// form that every regional setting reads.
[[nodiscard]] PLANVIEW_EXPORT std::string FormatHtmlBlock(const TextBlock& block);

/// Cells as numbers and texts, row by row.
using ValueBlock = std::vector<std::vector<Variant>>;

/// What another program put on the clipboard, as the best of both its forms.
///
/// A text shows a number as its cell was formatted: rounded, grouped, in per cent. The HTML table beside it may carry
/// the number itself (`sdval`, `x:num`, `data-sheets-value`), which is then taken. Cells without one keep their text,
/// and so do dates and truth values, whose number means nothing here. `html` may be empty or hold no table.
[[nodiscard]] ValueBlock BestBlock(std::string_view text, std::string_view html);

}  // namespace planview
