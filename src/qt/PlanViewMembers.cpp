// SPDX-License-Identifier: MIT
#include "qt/PlanViewState.h"

// The 65 members of the control, each passed on as it is.

namespace planview {

short PlanViewWidget::plv_EnableTrace() {
    return state_->call([](PlanView& view) { return view.plv_EnableTrace(); });
}

short PlanViewWidget::plv_DisableTrace() {
    return state_->call([](PlanView& view) { return view.plv_DisableTrace(); });
}

short PlanViewWidget::plv_LayoutShow() {
    return state_->call([](PlanView& view) { return view.plv_LayoutShow(); });
}

short PlanViewWidget::plv_LayoutHide() {
    return state_->call([](PlanView& view) { return view.plv_LayoutHide(); });
}

short PlanViewWidget::plv_LayoutMode() {
    return state_->call([](PlanView& view) { return view.plv_LayoutMode(); });
}

short PlanViewWidget::plv_LayoutModeDisable() {
    return state_->call([](PlanView& view) { return view.plv_LayoutModeDisable(); });
}

short PlanViewWidget::plv_ActiveNode(const QString& vNode) {
    return state_->call([&](PlanView& view) { return view.plv_ActiveNode(vNode.toStdString()); });
}

short PlanViewWidget::plv_MarkedRowsHide() {
    return state_->call([](PlanView& view) { return view.plv_MarkedRowsHide(); });
}

short PlanViewWidget::plv_MarkedRowsShow() {
    return state_->call([](PlanView& view) { return view.plv_MarkedRowsShow(); });
}

short PlanViewWidget::DP_Import_Texts() {
    return state_->call([](PlanView& view) { return view.DP_Import_Texts(); });
}

short PlanViewWidget::DP_Import_Attribute() {
    return state_->call([](PlanView& view) { return view.DP_Import_Attribute(); });
}

short PlanViewWidget::DP_Import_Create() {
    return state_->call([](PlanView& view) { return view.DP_Import_Create(); });
}

short PlanViewWidget::DP_Import_Update() {
    return state_->call([](PlanView& view) { return view.DP_Import_Update(); });
}

short PlanViewWidget::DP_Import_PopupMenu() {
    return state_->call([](PlanView& view) { return view.DP_Import_PopupMenu(); });
}

short PlanViewWidget::DP_Import_MacroTree() {
    return state_->call([](PlanView& view) { return view.DP_Import_MacroTree(); });
}

ObjectRef PlanViewWidget::PROP_Get_GRID_ATTR() {
    return state_->call([](PlanView& view) { return view.PROP_Get_GRID_ATTR(); });
}

short PlanViewWidget::PROP_Set_GRID_ATTR(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_GRID_ATTR(table); });
}

short PlanViewWidget::plvSet_GRID_ATTR(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_GRID_ATTR(table); });
}

ObjectRef PlanViewWidget::PROP_Get_COLS_INDEX() {
    return state_->call([](PlanView& view) { return view.PROP_Get_COLS_INDEX(); });
}

short PlanViewWidget::PROP_Set_COLS_INDEX(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_COLS_INDEX(table); });
}

short PlanViewWidget::plvSet_COLS_INDEX(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_COLS_INDEX(table); });
}

ObjectRef PlanViewWidget::PROP_Get_LINE_INDEX() {
    return state_->call([](PlanView& view) { return view.PROP_Get_LINE_INDEX(); });
}

short PlanViewWidget::PROP_Set_LINE_INDEX(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_LINE_INDEX(table); });
}

short PlanViewWidget::plvSet_LINE_INDEX(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_LINE_INDEX(table); });
}

ObjectRef PlanViewWidget::PROP_Get_TAB() {
    return state_->call([](PlanView& view) { return view.PROP_Get_TAB(); });
}

short PlanViewWidget::PROP_Set_TAB(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_TAB(table); });
}

short PlanViewWidget::plvSet_TAB(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_TAB(table); });
}

ObjectRef PlanViewWidget::PROP_Get_TAB_OLD() {
    return state_->call([](PlanView& view) { return view.PROP_Get_TAB_OLD(); });
}

short PlanViewWidget::PROP_Set_TAB_OLD(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_TAB_OLD(table); });
}

short PlanViewWidget::plvSet_TAB_OLD(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_TAB_OLD(table); });
}

ObjectRef PlanViewWidget::PROP_Get_FIXED_COLS() {
    return state_->call([](PlanView& view) { return view.PROP_Get_FIXED_COLS(); });
}

short PlanViewWidget::PROP_Set_FIXED_COLS(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_FIXED_COLS(table); });
}

short PlanViewWidget::plvSet_FIXED_COLS(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_FIXED_COLS(table); });
}

ObjectRef PlanViewWidget::PROP_Get_FIXED_LINES() {
    return state_->call([](PlanView& view) { return view.PROP_Get_FIXED_LINES(); });
}

short PlanViewWidget::PROP_Set_FIXED_LINES(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_FIXED_LINES(table); });
}

short PlanViewWidget::plvSet_FIXED_LINES(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_FIXED_LINES(table); });
}

short PlanViewWidget::PROP_Set_FIXED_TAB(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_FIXED_TAB(table); });
}

short PlanViewWidget::plvSet_FIXED_TAB(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_FIXED_TAB(table); });
}

ObjectRef PlanViewWidget::PROP_Get_CELL_ATTR() {
    return state_->call([](PlanView& view) { return view.PROP_Get_CELL_ATTR(); });
}

short PlanViewWidget::PROP_Set_CELL_ATTR(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_CELL_ATTR(table); });
}

short PlanViewWidget::plvSet_CELL_ATTR(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_CELL_ATTR(table); });
}

ObjectRef PlanViewWidget::PROP_Get_GRID_TREE() {
    return state_->call([](PlanView& view) { return view.PROP_Get_GRID_TREE(); });
}

short PlanViewWidget::PROP_Set_GRID_TREE(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_GRID_TREE(table); });
}

short PlanViewWidget::plvSet_GRID_TREE(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_GRID_TREE(table); });
}

ObjectRef PlanViewWidget::PROP_Get_MACRO_TREE() {
    return state_->call([](PlanView& view) { return view.PROP_Get_MACRO_TREE(); });
}

short PlanViewWidget::PROP_Set_MACRO_TREE(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_MACRO_TREE(table); });
}

short PlanViewWidget::plvSet_MACRO_TREE(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_MACRO_TREE(table); });
}

ObjectRef PlanViewWidget::PROP_Get_TEXTS() {
    return state_->call([](PlanView& view) { return view.PROP_Get_TEXTS(); });
}

short PlanViewWidget::PROP_Set_TEXTS(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_TEXTS(table); });
}

short PlanViewWidget::plvSet_TEXTS(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_TEXTS(table); });
}

ObjectRef PlanViewWidget::PROP_Get_COLMENU() {
    return state_->call([](PlanView& view) { return view.PROP_Get_COLMENU(); });
}

short PlanViewWidget::PROP_Set_COLMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_COLMENU(table); });
}

short PlanViewWidget::plvSet_COLMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_COLMENU(table); });
}

ObjectRef PlanViewWidget::PROP_Get_ROWMENU() {
    return state_->call([](PlanView& view) { return view.PROP_Get_ROWMENU(); });
}

short PlanViewWidget::PROP_Set_ROWMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_ROWMENU(table); });
}

short PlanViewWidget::plvSet_ROWMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_ROWMENU(table); });
}

ObjectRef PlanViewWidget::PROP_Get_GRIDMENU() {
    return state_->call([](PlanView& view) { return view.PROP_Get_GRIDMENU(); });
}

short PlanViewWidget::PROP_Set_GRIDMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_GRIDMENU(table); });
}

short PlanViewWidget::plvSet_GRIDMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_GRIDMENU(table); });
}

ObjectRef PlanViewWidget::PROP_Get_CELLMENU() {
    return state_->call([](PlanView& view) { return view.PROP_Get_CELLMENU(); });
}

short PlanViewWidget::PROP_Set_CELLMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_CELLMENU(table); });
}

short PlanViewWidget::plvSet_CELLMENU(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_CELLMENU(table); });
}

ObjectRef PlanViewWidget::PROP_Get_MACROREC() {
    return state_->call([](PlanView& view) { return view.PROP_Get_MACROREC(); });
}

short PlanViewWidget::PROP_Set_MACROREC(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.PROP_Set_MACROREC(table); });
}

short PlanViewWidget::plvSet_MACROREC(const ObjectRef& table) {
    return state_->call([&](PlanView& view) { return view.plvSet_MACROREC(table); });
}

}  // namespace planview
