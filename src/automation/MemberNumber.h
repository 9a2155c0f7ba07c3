// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <planview/AutomationObject.h>

namespace planview {

/// The number of a member, asked for by name once: where cells are read and written one by one, looking their members
/// up each time would cost most. Good for objects that one and the same member answers, which have the same members.
class MemberNumber {
public:
    explicit constexpr MemberNumber(std::string_view name) noexcept : name_(name) {}

    [[nodiscard]] DispatchId Of(const AutomationObject& object) {
        if (!known_) {
            id_ = object.IdOf(name_);
            known_ = true;
        }
        return id_;
    }

private:
    std::string_view name_;
    DispatchId id_ = DefaultMember;
    bool known_ = false;
};

}  // namespace planview
