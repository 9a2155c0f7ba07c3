// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <planview/Variant.h>

namespace planbook {

/// The number that a value is or, as a text, spells; with the decimal mark "," or ".".
[[nodiscard]] std::optional<double> NumberOf(const planview::Variant& value);

/// Whether a planner sees no difference: the same number however it was entered, or the same text. No value, the empty
/// text and blanks are the same.
[[nodiscard]] bool SameValue(const planview::Variant& left, const planview::Variant& right);

/// Whether a book file keeps them as the same value; it does not tell the sizes of whole numbers apart.
[[nodiscard]] bool StoredAlike(const planview::Variant& left, const planview::Variant& right);

}  // namespace planbook
