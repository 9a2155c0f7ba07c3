// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <planview/AutomationObject.h>
#include <planview/Export.h>

namespace planview {

/// Compares member names as automation does: without regard to the case of the letters A to Z.
[[nodiscard]] PLANVIEW_EXPORT bool SameMemberName(std::string_view left, std::string_view right) noexcept;

[[noreturn]] PLANVIEW_EXPORT void ThrowUnknownMember(std::string_view object, std::string_view name);
[[noreturn]] PLANVIEW_EXPORT void ThrowUnknownMember(std::string_view object, DispatchId member);
/// Throws WrongArguments unless there are this many.
PLANVIEW_EXPORT void ExpectArguments(AutomationObject::Arguments arguments, std::size_t count, std::string_view member);

}  // namespace planview
