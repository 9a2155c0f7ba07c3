// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <planview/qt/PlanViewWidget.h>

#include "qt/SignalSink.h"
#include "qt/StatusInfo.h"
#include "qt/chart/ChartView.h"
#include "qt/grid/GridView.h"
#include "qt/macro/MacroPane.h"
#include "qt/macro/OperandPane.h"
#include "qt/panes/PaneHost.h"
#include "qt/platform/QtClipboard.h"
#include "qt/platform/QtFileDialogs.h"
#include "qt/platform/QtForms.h"
#include "qt/platform/QtMessageBoxes.h"
#include "qt/platform/QtPopups.h"
#include "qt/platform/QtProgress.h"
#include "qt/platform/QtSystemInformation.h"
#include "qt/tree/ToolbarView.h"
#include "qt/tree/TreePane.h"

namespace planview {

/// The control with the desktop that it runs on. Outlives its widget while one of its members is being called.
struct PlanViewCore {
    PlanViewCore(PlanViewWidget& widget, const Platform& given);

    QtMessageBoxes messageBoxes;
    QtForms forms;
    QtClipboard clipboard;
    QtSystemInformation system;
    QtPopups popups;
    QtFileDialogs fileDialogs;
    ObjectRegistry objects;
    QtProgress progress;
    SignalSink sink;
    PlanView view;
};

struct PlanViewWidget::State {
    std::shared_ptr<PlanViewCore> core;
    PaneHost* panes = nullptr;  // children of the widget
    GridView* grid = nullptr;
    ChartView* chart = nullptr;
    TreePane* tree = nullptr;
    StatusInfo* status = nullptr;
    ColorScheme colorScheme = ColorScheme::System;
    bool announcesSeveral = false;
    bool hasFocus = false;
};

}  // namespace planview
