#pragma once

#include <string_view>

#include <planview/AutomationObject.h>

namespace planview {

/// Compares member names as automation does: without regard to the case of the letters A to Z.
[[nodiscard]] bool SameMemberName(std::string_view left, std::string_view right) noexcept;

[[noreturn]] void ThrowUnknownMember(std::string_view object, std::string_view name);
[[noreturn]] void ThrowUnknownMember(std::string_view object, DispatchId member);
/// Throws WrongArguments unless there are this many.
void ExpectArguments(AutomationObject::Arguments arguments, std::size_t count, std::string_view member);

}  // namespace planview
