// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <planview/Variant.h>

namespace planview {

/// As CellText() without an entry in the trace, for what the user has no part in; a text that is no number as it is.
[[nodiscard]] std::string QuietCellText(const Variant& value);

/// A value as the grid keeps it: a number in the control's own form ("12,5"), nothing as the empty text. Throws
/// TypeMismatch for a text that is no number.
[[nodiscard]] std::string CellText(const Variant& value);

}  // namespace planview
