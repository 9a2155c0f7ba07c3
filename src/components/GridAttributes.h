// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include <planview/Variant.h>

#include "components/GridTypes.h"

namespace planview {

/// The attributes that lie in layers (grid < column < row < cell); all others belong to one kind of element only.
inline constexpr int LayeredAttributeCount = static_cast<int>(GridAttribute::Computed) + 1;

[[nodiscard]] constexpr bool IsLayered(GridAttribute attribute) noexcept {
    return static_cast<int>(attribute) < LayeredAttributeCount;
}

[[nodiscard]] bool HasAttribute(GridElement element, GridAttribute attribute) noexcept;

/// The status for an attribute that this kind of element does not have.
[[nodiscard]] GridStatus UndefinedAttribute(GridElement element) noexcept;

/// A boolean, a number (0 is false) or one of the texts "X" and "". No value for anything else.
[[nodiscard]] std::optional<bool> ReadFlag(const Variant& value);

/// A number within the bounds, rounded to a whole one. No value for anything else.
[[nodiscard]] std::optional<std::int32_t> ReadNumber(const Variant& value, std::int32_t least, std::int32_t most);

/// A permission: 0, 1 or a boolean. No value for anything else.
[[nodiscard]] std::optional<bool> ReadPermission(const Variant& value);

}  // namespace planview
