// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <thread>

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
#ifndef NDEBUG
    const std::thread::id thread = std::this_thread::get_id();
#endif
};

/// In a Debug build a call from another thread than the control's ends the program there, before it does harm that is
/// only found later.
inline void AssertOwnThread([[maybe_unused]] const detail::ControlState& state) noexcept {
    assert(state.thread == std::this_thread::get_id() && "a control is called on the thread that created it");
}

}  // namespace planview
