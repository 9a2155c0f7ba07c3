// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include <planview/PlanView.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "chart/ChartCommands.h"
#include "commands/CommandRunner.h"
#include "commands/KeyHandling.h"
#include "components/GridControl.h"
#include "components/TreeControl.h"
#include "control/ChartHandlers.h"
#include "control/GridHandlers.h"
#include "control/TreeHandlers.h"
#include "dialogs/ChartOptions.h"
#include "dialogs/GeneralOptions.h"
#include "dialogs/RowAttributes.h"
#include "grid/ClipboardCommands.h"
#include "grid/CurrentKeys.h"
#include "grid/GridConstruction.h"
#include "grid/GridSettings.h"
#include "grid/HostUpdate.h"
#include "grid/SizeEvents.h"
#include "grid/UndoHistory.h"
#include "grid/ValueEntry.h"
#include "grid/modGrid.h"
#include "layout/PaneLayout.h"
#include "macro/editor/MacroEditor.h"
#include "macro/recording/MacroRecording.h"
#include "macro/tree/MacroToolbar.h"
#include "macro/tree/modMacro.h"
#include "menus/MenuDispatch.h"
#include "platform/Desktop.h"
#include "platform/HeadlessPlatform.h"
#include "spreadsheet/SpreadsheetDownload.h"
#include "spreadsheet/SpreadsheetUpload.h"

namespace planview {

/// What the parts of one control share. Each part is handed only what it uses.
struct ControlContext {
    explicit ControlContext(const Desktop& desktop);
    ~ControlContext();
    ControlContext(const ControlContext&) = delete;
    ControlContext& operator=(const ControlContext&) = delete;

    /// Brings the chart up to date where it is shown.
    void ChartStep();
    /// Tells the host that an action with several announced values begins or has ended.
    void TellBulk(bool running) const;
    /// Shows the user a reason beside the cell; false where that is not possible.
    [[nodiscard]] bool TellBeside(const Cell& cell, std::string_view reason) const;

    Desktop platform;
    TableSlots tables;
    GridSettings settings;
    CurrentKeys keys;
    GridControl grid;
    modGrid driver{grid};
    ChartControl chart;
    TreeControl tree;
    MacroToolbar toolbar;
    ChartSettings chartSettings;
    PaneLayout layout{settings};
    EventSource events;
    modMacro::Tree macroTree{tree, tables, events};
    /// Set while the control itself changes the grid; keys and popups wait for its end.
    bool busy = false;
    UndoHistory history;
    MacroRecording recording;
    std::function<void(bool running)> bulkListener;
    std::function<bool(const CellKey& cell, std::string_view reason)> hintListener;
    HostUpdate hostUpdate;
    GridConstruction construction;
    ValueEntry valueEntry;
    ClipboardCommands clipboard;
    SizeEvents sizeEvents;
    /// The "Colors" popup.
    ColorChooser chooseColor;
    ChartData chartData;
    ChartCommands chartCommands;
    GeneralOptions generalOptions;
    RowAttributes rowAttributes;
    ChartOptions chartOptions;
    SpreadsheetOptions spreadsheetOptions;
    SpreadsheetDownload download;
    SpreadsheetUpload upload;
    CommandRunner runner;
    KeyHandling keyHandling;
    MenuDispatch menus;
    GridHandlers gridHandlers;
    ChartHandlers chartHandlers;
    TreeHandlers treeHandlers;
    MacroEditor macroEditor;

    /// Shows the popup of the place "CHART", "SERIES" or "TRENDLINE".
    std::function<void(std::string_view place)> showChartPopup;

    /// "TRE" while a popup of the macro tree is open, else empty. While it is not empty the host cannot choose another
    /// node, and opening, closing and double clicks raise nothing.
    std::string macroTreeState;
};

/// The control's state; outlives the control when the host destroys it from inside an event, and in handles.
struct detail::ControlState {
    explicit ControlState(const Platform& platform) : context(Completed(platform, headless.Interfaces())) {}

    HeadlessPlatform headless;  // what the host's platform lacks
    ControlContext context;
    bool terminated = false;
};

}  // namespace planview
