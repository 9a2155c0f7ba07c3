// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/PlanView.h>

#include "control/ControlContext.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

void TraceProperty(std::string_view table, std::string_view method) {
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite("DATAPROVIDER", "", method, TraceText("{table: ", table, "}"));
    }
}

}  // namespace

std::span<const std::string_view> TableNames() noexcept {
    static constexpr std::string_view Names[] = {
#define PLANVIEW_TABLE(NAME, GETTER_ENTRY, RELEASED_AS) #NAME,
#include "automation/Tables.def"
    };
    return Names;
}

ObjectRef PlanView::GetTable(std::string_view name) {
    AssertOwnThread(*state_);
    const TableDescription& table = TableNamed(name);
    ResumeNext([&] { TraceProperty(table.name, table.getterEntry); });
    return (state_->context.shared.tables.*table.slot).Object();
}

PlanView::Status PlanView::SetTable(std::string_view name, ObjectRef object) {
    AssertOwnThread(*state_);
    const TableDescription& table = TableNamed(name);
    if (!state_->terminated) {  // a control that has ended keeps no table
        ResumeNext([&] { TraceProperty(table.name, "Import"); },
                   [&] { state_->context.shared.tables.*table.slot = HostTable(std::move(object), table.name); });
    }
    return 0;
}

#define PLANVIEW_METHOD(NAME)
#define PLANVIEW_TEXT_METHOD(NAME, ARGUMENT)
#define PLANVIEW_GETTER(NAME, TABLE) \
    ObjectRef PlanView::NAME() {     \
        return GetTable(#TABLE);     \
    }
#define PLANVIEW_SETTER(NAME, TABLE)                   \
    PlanView::Status PlanView::NAME(ObjectRef table) { \
        return SetTable(#TABLE, std::move(table));     \
    }
#include "control/Members.def"

}  // namespace planview
