// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include "automation/HostTable.h"

namespace planview {

/// The seventeen tables that the host hands to the control, by their names.
struct TableSlots {
#define PLANVIEW_TABLE(NAME, GETTER_ENTRY, RELEASED_AS) HostTable NAME{nullptr, #NAME};
#include "automation/Tables.def"
};

/// One of them.
struct TableDescription {
    std::string_view name;
    HostTable TableSlots::*slot;
    std::span<const std::string_view> fields;  ///< that the control reads or writes
    std::string_view getterEntry;              ///< what its getter calls itself in the trace
    std::string_view releasedAs;               ///< what it is called there when it is released; empty for none
};

/// In the order in which they are declared and released.
[[nodiscard]] std::span<const TableDescription> DescribeTables() noexcept;

/// Throws UnknownMember for a name that is none of the seventeen.
[[nodiscard]] const TableDescription& TableNamed(std::string_view name);

}  // namespace planview
