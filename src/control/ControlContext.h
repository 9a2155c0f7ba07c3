// SPDX-License-Identifier: MIT
#pragma once

#include <planview/PlanView.h>

#include "commands/CommandRunner.h"
#include "commands/KeyHandling.h"
#include "control/ChartHandlers.h"
#include "control/ChartPart.h"
#include "control/ControlShared.h"
#include "control/GridHandlers.h"
#include "control/GridPart.h"
#include "control/MacroPart.h"
#include "control/TreeHandlers.h"
#include "menus/MenuDispatch.h"
#include "platform/HeadlessPlatform.h"
#include "spreadsheet/SpreadsheetDownload.h"
#include "spreadsheet/SpreadsheetUpload.h"

namespace planview {

/// What one control is made of.
struct ControlContext {
    explicit ControlContext(const Desktop& desktop);
    ~ControlContext();
    ControlContext(const ControlContext&) = delete;
    ControlContext& operator=(const ControlContext&) = delete;

    ControlShared shared;
    GridPart grid;
    ChartPart chart;
    MacroPart macros;
    SpreadsheetOptions spreadsheetOptions;
    SpreadsheetDownload download;
    SpreadsheetUpload upload;
    CommandRunner runner;
    KeyHandling keyHandling;
    MenuDispatch menus;
    GridHandlers gridHandlers;
    ChartHandlers chartHandlers;
    TreeHandlers treeHandlers;
};

/// The control's state; outlives the control when the host destroys it from inside an event, and in handles.
struct detail::ControlState {
    explicit ControlState(const Platform& platform) : context(Completed(platform, headless.Interfaces())) {}

    HeadlessPlatform headless;  // what the host's platform lacks
    ControlContext context;
    bool terminated = false;
};

}  // namespace planview
