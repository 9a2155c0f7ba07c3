// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include <planview/CellKey.h>

#include "automation/ListenerList.h"
#include "calculation/GridCalculation.h"
#include "components/GridControl.h"
#include "control/ControlShared.h"
#include "dialogs/GeneralOptions.h"
#include "dialogs/RowAttributes.h"
#include "grid/ClipboardCommands.h"
#include "grid/CurrentKeys.h"
#include "grid/GridConstruction.h"
#include "grid/HostUpdate.h"
#include "grid/OtherReading.h"
#include "grid/SizeEvents.h"
#include "grid/TableUpdate.h"
#include "grid/TrackHistory.h"
#include "grid/UndoHistory.h"
#include "grid/ValueEntry.h"
#include "grid/modGrid.h"

namespace planview {

/// The grid of a control, and what builds it, changes its values and its looks.
struct GridPart {
    /// `actions` hears of each change of values; `chartStep` brings the chart up to date where it is shown.
    GridPart(ControlShared& shared, UserActions& actions, const std::function<void()>& chartStep);

    /// Builds the grid from the tables. The undo history goes on for what is still there: the columns and rows that
    /// have their key and their caption again.
    void Build();
    /// Reads what `add` names in the update again from the tables.
    void Update(const std::function<void(TableUpdate& update)>& add);
    /// Tells the host that an action with several announced values begins or has ended.
    void TellBulk(bool running) const;
    /// Tells those who have asked for it what an action has done.
    void TellOutcome(std::string_view sentence) const;
    /// Shows the user a reason beside the cell; false where that is not possible.
    [[nodiscard]] bool TellBeside(const Cell& cell, std::string_view reason) const;

    UserActions& userActions;
    GridControl control;
    modGrid driver{control};
    CurrentKeys keys;
    UndoHistory history;
    HostUpdate hostUpdate;
    LoaderContext tables;
    GridCalculation calculation;
    GridConstruction construction;
    TrackHistory trackHistory;
    ValueEntry valueEntry;
    OtherReading otherReading;
    ClipboardCommands clipboard;
    SizeEvents sizeEvents;
    GeneralOptions generalOptions;
    RowAttributes rowAttributes;
    /// Counts up when Update() has run.
    std::uint64_t updates = 0;
    ListenerList<void(bool running)> bulkListeners;
    ListenerList<void(std::string_view sentence)> outcomeListeners;
    ListenerList<bool(const CellKey& cell, std::string_view reason)> hintListeners;
};

}  // namespace planview
