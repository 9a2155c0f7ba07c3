#pragma once

#include <string>

#include <planview/Variant.h>

namespace planview {

/// A value as the grid keeps it: a number in the control's own form ("12,5"), nothing as the empty text. Throws
/// TypeMismatch for a text that is no number.
[[nodiscard]] std::string CellText(const Variant& value);

}  // namespace planview
