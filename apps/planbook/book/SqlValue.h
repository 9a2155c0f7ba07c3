// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>
#include <optional>

#include <planview/Variant.h>

namespace planbook {

/// A field's value as SQLite keeps it; no value for an object reference, which no file can keep.
[[nodiscard]] std::optional<QVariant> ToSql(const planview::Variant& value);

/// No value for bytes, which no field holds.
[[nodiscard]] std::optional<planview::Variant> FromSql(const QVariant& value);

}  // namespace planbook
