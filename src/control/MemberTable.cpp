// SPDX-License-Identifier: MIT
#include <array>

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

#define METHOD(NAME)                                                                      \
    Member {                                                                              \
#NAME, 0, [](PlanView & control, Arguments) -> Variant { return control.NAME(); } \
    }
#define GETTER(TABLE) METHOD(PROP_Get_##TABLE)
#define SETTER(NAME)                                                                                       \
    Member {                                                                                               \
#NAME, 1, [](PlanView & control, Arguments a) -> Variant { return control.NAME(a[0].AsObject()); } \
    }
#define SETTERS(TABLE) SETTER(PROP_Set_##TABLE), SETTER(plvSet_##TABLE)
#define TABLE_MEMBERS(TABLE) GETTER(TABLE), SETTERS(TABLE)

// The order is part of the interface: hosts call the members by number too.
constexpr std::array<Member, 65> Members{{
    METHOD(plv_EnableTrace),
    METHOD(plv_DisableTrace),
    METHOD(plv_LayoutShow),
    METHOD(plv_LayoutHide),
    METHOD(plv_LayoutMode),
    METHOD(plv_LayoutModeDisable),
    {"plv_ActiveNode", 1,
     [](PlanView& control, Arguments a) -> Variant { return control.plv_ActiveNode(a[0].AsText()); }},
    METHOD(plv_MarkedRowsHide),
    METHOD(plv_MarkedRowsShow),
    METHOD(DP_Import_Texts),
    METHOD(DP_Import_Attribute),
    METHOD(DP_Import_Create),
    METHOD(DP_Import_Update),
    METHOD(DP_Import_PopupMenu),
    METHOD(DP_Import_MacroTree),
    TABLE_MEMBERS(GRID_ATTR),
    TABLE_MEMBERS(COLS_INDEX),
    TABLE_MEMBERS(LINE_INDEX),
    TABLE_MEMBERS(TAB),
    TABLE_MEMBERS(TAB_OLD),
    TABLE_MEMBERS(FIXED_COLS),
    TABLE_MEMBERS(FIXED_LINES),
    SETTERS(FIXED_TAB),
    TABLE_MEMBERS(CELL_ATTR),
    TABLE_MEMBERS(GRID_TREE),
    TABLE_MEMBERS(MACRO_TREE),
    TABLE_MEMBERS(TEXTS),
    TABLE_MEMBERS(COLMENU),
    TABLE_MEMBERS(ROWMENU),
    TABLE_MEMBERS(GRIDMENU),
    TABLE_MEMBERS(CELLMENU),
    TABLE_MEMBERS(MACROREC),
}};

#undef TABLE_MEMBERS
#undef SETTERS
#undef SETTER
#undef GETTER
#undef METHOD

constexpr std::array<MemberDescription, Members.size()> Describe() {
    std::array<MemberDescription, Members.size()> descriptions{};
    for (std::size_t i = 0; i < Members.size(); ++i) {
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
    if (member < 1 || static_cast<std::size_t>(member) > Members.size()) {
        ThrowUnknownMember("The control", member);
    }
    const Member& called = Members[static_cast<std::size_t>(member) - 1];
    ExpectArguments(arguments, static_cast<std::size_t>(called.argumentCount), called.name);
    return called.call(*this, arguments);
}

}  // namespace planview
