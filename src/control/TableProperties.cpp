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

ObjectRef GetTable(const HostTable& slot, std::string_view table, std::string_view method) {
    ResumeNext([&] { TraceProperty(table, method); });
    return slot.Object();
}

void SetTable(HostTable& slot, ObjectRef object, std::string_view table) {
    ResumeNext([&] { TraceProperty(table, "Import"); }, [&] { slot = HostTable(std::move(object)); });
}

}  // namespace

// The three methods of each table. A control that has ended keeps no table.
#define PLANVIEW_TABLE_SETTERS(TABLE)                                         \
    PlanView::Status PlanView::PROP_Set_##TABLE(ObjectRef table) {            \
        if (!state_->terminated) {                                            \
            SetTable(state_->context.tables.TABLE, std::move(table), #TABLE); \
        }                                                                     \
        return 0;                                                             \
    }                                                                         \
    PlanView::Status PlanView::plvSet_##TABLE(ObjectRef table) {              \
        return PROP_Set_##TABLE(std::move(table));                            \
    }

#define PLANVIEW_TABLE_GETTER(TABLE, METHOD)                           \
    ObjectRef PlanView::PROP_Get_##TABLE() {                           \
        return GetTable(state_->context.tables.TABLE, #TABLE, METHOD); \
    }

#define PLANVIEW_TABLE(TABLE)              \
    PLANVIEW_TABLE_GETTER(TABLE, "Export") \
    PLANVIEW_TABLE_SETTERS(TABLE)

PLANVIEW_TABLE(GRID_ATTR)
PLANVIEW_TABLE(COLS_INDEX)
PLANVIEW_TABLE(LINE_INDEX)
PLANVIEW_TABLE(TAB)
PLANVIEW_TABLE(TAB_OLD)
PLANVIEW_TABLE(FIXED_COLS)
PLANVIEW_TABLE(FIXED_LINES)
PLANVIEW_TABLE_SETTERS(FIXED_TAB)           // has no getter
PLANVIEW_TABLE_GETTER(CELL_ATTR, "Import")  // the getter's entry has always said "Import"
PLANVIEW_TABLE_SETTERS(CELL_ATTR)
PLANVIEW_TABLE(GRID_TREE)
PLANVIEW_TABLE(MACRO_TREE)
PLANVIEW_TABLE(TEXTS)
PLANVIEW_TABLE(COLMENU)
PLANVIEW_TABLE(ROWMENU)
PLANVIEW_TABLE(GRIDMENU)
PLANVIEW_TABLE(CELLMENU)
PLANVIEW_TABLE(MACROREC)

#undef PLANVIEW_TABLE
#undef PLANVIEW_TABLE_GETTER
#undef PLANVIEW_TABLE_SETTERS

}  // namespace planview
