// SPDX-License-Identifier: MIT
#include "automation/MemberNames.h"

#include <algorithm>
#include <string>

namespace planview {

bool SameMemberName(std::string_view left, std::string_view right) noexcept {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), [&](char a, char b) { return lower(a) == lower(b); });
}

void ThrowUnknownMember(std::string_view object, std::string_view name) {
    throw AutomationError(AutomationErrorCode::UnknownMember,
                          std::string(object) + " has no member '" + std::string(name) + "'");
}

void ThrowUnknownMember(std::string_view object, DispatchId member) {
    throw AutomationError(AutomationErrorCode::UnknownMember,
                          std::string(object) + " has no such member with the number " + std::to_string(member));
}

void ExpectArguments(AutomationObject::Arguments arguments, std::size_t count, std::string_view member) {
    if (arguments.size() != count) {
        throw AutomationError(AutomationErrorCode::WrongArguments, "'" + std::string(member) + "' takes " +
                                                                       std::to_string(count) + " arguments, not " +
                                                                       std::to_string(arguments.size()));
    }
}

}  // namespace planview
