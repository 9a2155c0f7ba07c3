// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <planview/AutomationObject.h>

#include "automation/MemberNames.h"

namespace planview {

/// An object whose members stand in a table. `Self` derives from it and has `static constexpr std::string_view
/// ObjectName` and `static std::span<const TableObject<Self>::Member> Members()`.
///
/// A member is what it has functions for: one without `put` cannot be put, and so on (Failed). Calling a member that
/// has only `get` gets it, as callers do who do not tell the two apart.
template <class Self>
class TableObject : public AutomationObject {
public:
    struct Member {
        std::string_view name;
        DispatchId id;
        Variant (*get)(Self& self, Arguments arguments) = nullptr;
        void (*put)(Self& self, Arguments arguments, const Variant& value) = nullptr;
        Variant (*call)(Self& self, Arguments arguments) = nullptr;
    };

    [[nodiscard]] DispatchId IdOf(std::string_view name) const override {
        for (const Member& member : Self::Members()) {
            if (member.name.size() == name.size() && SameMemberName(member.name, name)) {
                return member.id;
            }
        }
        ThrowUnknownMember(Self::ObjectName, name);
    }

    [[nodiscard]] Variant Get(DispatchId id, Arguments arguments) override {
        const Member& member = MemberOf(id);
        if (!member.get) {
            Refuse(member, "read");
        }
        return member.get(AsSelf(), arguments);
    }

    void Put(DispatchId id, Arguments arguments, const Variant& value) override {
        const Member& member = MemberOf(id);
        if (!member.put) {
            Refuse(member, "set");
        }
        member.put(AsSelf(), arguments, value);
    }

    Variant Call(DispatchId id, Arguments arguments) override {
        const Member& member = MemberOf(id);
        return member.call ? member.call(AsSelf(), arguments) : Get(id, arguments);
    }

private:
    [[nodiscard]] Self& AsSelf() noexcept { return static_cast<Self&>(*this); }

    [[nodiscard]] static const Member& MemberOf(DispatchId id) {
        for (const Member& member : Self::Members()) {
            if (member.id == id) {
                return member;
            }
        }
        ThrowUnknownMember(Self::ObjectName, id);
    }

    [[noreturn]] static void Refuse(const Member& member, std::string_view what) {
        throw AutomationError(
            AutomationErrorCode::Failed,
            std::string(Self::ObjectName) + ": '" + std::string(member.name) + "' cannot be " + std::string(what));
    }
};

}  // namespace planview
