// SPDX-License-Identifier: MIT
#include <array>
#include <iterator>

#include <planview/PlanView.h>

#include "automation/MemberNames.h"
#include "commands/CommandTable.h"

namespace planview {

namespace {

using Arguments = AutomationObject::Arguments;

/// A member and the call behind it. The member's number is its place in the table, from 1.
struct Member {
    std::string_view name;
    int argumentCount;
    Variant (*call)(PlanView& control, Arguments arguments);
};

// The order is part of the interface: hosts call the members by number too.
constexpr Member Members[] = {
#define PLANVIEW_METHOD(NAME) {#NAME, 0, [](PlanView& control, Arguments) -> Variant { return control.NAME(); }},
#define PLANVIEW_TEXT_METHOD(NAME, ARGUMENT) \
    {#NAME, 1, [](PlanView& control, Arguments a) -> Variant { return control.NAME(a[0].AsText()); }},
#define PLANVIEW_GETTER(NAME, TABLE) PLANVIEW_METHOD(NAME)
#define PLANVIEW_SETTER(NAME, TABLE) \
    {#NAME, 1, [](PlanView& control, Arguments a) -> Variant { return control.NAME(a[0].AsObject()); }},
#include "control/Members.def"
};

constexpr std::array<MemberDescription, std::size(Members)> Describe() {
    std::array<MemberDescription, std::size(Members)> descriptions{};
    for (std::size_t i = 0; i < std::size(Members); ++i) {
        descriptions[i] = {static_cast<DispatchId>(i + 1), Members[i].name, Members[i].argumentCount};
    }
    return descriptions;
}

constexpr auto Descriptions = Describe();

}  // namespace

std::span<const MemberDescription> DescribeMembers() noexcept {
    return Descriptions;
}

DispatchId PlanView::IdOf(std::string_view name) const {
    for (const MemberDescription& member : Descriptions) {
        if (SameMemberName(member.name, name)) {
            return member.id;
        }
    }
    if (const CommandRow* row = FindCommand(name)) {
        return static_cast<DispatchId>(row->command);
    }
    ThrowUnknownMember("The control", name);
}

Variant PlanView::Get(DispatchId member, Arguments) {
    ThrowUnknownMember("The control", member);
}

void PlanView::Put(DispatchId member, Arguments, const Variant&) {
    ThrowUnknownMember("The control", member);
}

Variant PlanView::Call(DispatchId member, Arguments arguments) {
    if (const CommandRow* row = FindCommand(static_cast<Command>(member))) {
        ExpectArguments(arguments, static_cast<std::size_t>(CountOf(row->arguments)), row->name);
        Run(row->command, arguments);
        return Status{0};
    }
    if (member < 1 || static_cast<std::size_t>(member) > std::size(Members)) {
        ThrowUnknownMember("The control", member);
    }
    const Member& called = Members[static_cast<std::size_t>(member) - 1];
    ExpectArguments(arguments, static_cast<std::size_t>(called.argumentCount), called.name);
    return called.call(*this, arguments);
}

}  // namespace planview
