// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

#include <planview/Variant.h>

namespace planview {

/// Empty becomes an invalid QVariant, Nothing a null ObjectRef, a 16-bit number a short and a text a QString.
[[nodiscard]] QVariant toQVariant(const Variant& value);

/// Whole numbers become the smallest kind that holds them, or a double beyond 32 bits. What is neither a number, a
/// truth value, a text nor an ObjectRef becomes its text, or Empty where it has none.
[[nodiscard]] Variant fromQVariant(const QVariant& value);

}  // namespace planview
