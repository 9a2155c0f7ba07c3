// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <memory>

#include <planview/qt/PlanViewWidget.h>

#include "qt/CommandActions.h"
#include "qt/EntryGuard.h"
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
struct DesktopControl {
    DesktopControl(PlanViewWidget& widget, const Platform& given);

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

/// What the widget keeps, and what it does beside its public members.
struct PlanViewWidget::State {
    State(PlanViewWidget& owner, const Platform& platform)
        : widget(owner), core(std::make_shared<DesktopControl>(owner, platform)), guard("USERCONTROL", core) {}

    /// Calls a member; the control lives on until the call is over, even when the widget is deleted meanwhile.
    template <class Member>
    auto call(Member&& member) {
        const std::shared_ptr<DesktopControl> alive = core;
        return member(alive->view);
    }
    /// Ends an entry that is open, then runs the action on the control.
    template <class Action>
    MacroResult withMacro(Action&& action);
    /// Ends an entry that is open, then runs the action on the control; not where the entry is refused. Afterwards the
    /// host is told what is other than before.
    template <class Action>
    void runOnControl(Action&& action) {
        guard.run("Command", [&] {
            PlanView& view = core->view;
            const QPointer<PlanViewWidget> self(&widget);
            if (widget.finishEditing() && self) {
                action(view);
            }
            if (self) {
                status->gridChanged();
                actions->update();
            }
        });
    }
    void applyTheme();
    void focusMoved(const QWidget* to);

    PlanViewWidget& widget;
    const std::shared_ptr<DesktopControl> core;
    const EntryGuard guard;
    PaneHost* panes = nullptr;  // children of the widget
    GridView* grid = nullptr;
    ChartView* chart = nullptr;
    TreePane* tree = nullptr;
    StatusInfo* status = nullptr;
    CommandActions* actions = nullptr;
    ColorScheme colorScheme = ColorScheme::System;
    bool announcesSeveral = false;
    ListenerId bulkListener{};
    ListenerId hintListener{};
    ListenerId failureListener{};
    ListenerId outcomeListener{};
    ListenerId recordingListener{};
    ListenerId commandListener{};
    bool hasFocus = false;
};

}  // namespace planview
