// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace planview {

/// The fields that the control reads or writes in the host's table of this name. Throws UnknownMember for a name that
/// is none of the seventeen tables.
[[nodiscard]] std::span<const std::string_view> TableFields(std::string_view tableName);

}  // namespace planview
