// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "chart/ChartCommands.h"
#include "components/TreeControl.h"
#include "dialogs/ChartOptions.h"
#include "dialogs/GeneralOptions.h"
#include "dialogs/RowAttributes.h"
#include "grid/ClipboardCommands.h"
#include "grid/ColorQuestion.h"
#include "grid/GridSettings.h"
#include "grid/HostUpdate.h"
#include "grid/OtherReading.h"
#include "grid/SizeEvents.h"
#include "grid/TrackHistory.h"
#include "grid/UndoHistory.h"
#include "grid/ValueEntry.h"
#include "grid/modGrid.h"
#include "layout/PaneLayout.h"
#include "macro/editor/MacroEditor.h"
#include "macro/recording/MacroRecording.h"
#include "macro/tree/modMacro.h"
#include "platform/Desktop.h"
#include "spreadsheet/SpreadsheetDownload.h"
#include "spreadsheet/SpreadsheetUpload.h"

namespace planview {

/// What commands use of the control.
struct CommandParts {
    const TableSlots& tables;
    modGrid& driver;
    GridSettings& settings;
    const UndoHistory& history;
    TrackHistory& trackHistory;
    ValueEntry& valueEntry;
    ClipboardCommands& clipboard;
    OtherReading& otherReading;
    SizeEvents& sizeEvents;
    HostUpdate& hostUpdate;
    bool& busy;
    const ChartControl& chart;
    ChartCommands& chartCommands;
    GeneralOptions& generalOptions;
    RowAttributes& rowAttributes;
    ChartOptions& chartOptions;
    SpreadsheetDownload& download;
    SpreadsheetUpload& upload;
    MacroRecording& recording;
    modMacro::Tree& macroTree;
    MacroEditor& macroEditor;
    EventSource& events;
    PaneLayout& layout;
    const Desktop& platform;
    /// The "Colors" popup: the position of the chosen colour (0 .. 15), no value when none was chosen.
    ColorChooser chooseColor;
    /// Shows the user a sentence beside a cell; false where that is not possible.
    std::function<bool(Cell cell, std::string_view sentence)> tellBeside;
    /// Brings the chart up to date where it is shown.
    std::function<void()> chartStep;

    [[nodiscard]] GridControl& Grid() const noexcept { return driver.Grid(); }
};

}  // namespace planview
