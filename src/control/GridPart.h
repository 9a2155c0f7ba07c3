// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include <planview/CellKey.h>

#include "automation/ListenerList.h"
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
#include "grid/TrackHistory.h"
#include "grid/UndoHistory.h"
#include "grid/ValueEntry.h"
#include "grid/modGrid.h"

namespace planview {

/// The grid of a control, and what builds it, changes its values and its looks.
struct GridPart {
    /// `actions` hears of each change of values; `chartStep` brings the chart up to date where it is shown.
    GridPart(ControlShared& shared, UserActions& actions, const std::function<void()>& chartStep);

    /// Tells the host that an action with several announced values begins or has ended.
    void TellBulk(bool running) const;
    /// Tells those who have asked for it what an action has done.
    void TellOutcome(std::string_view sentence) const;
    /// Shows the user a reason beside the cell; false where that is not possible.
    [[nodiscard]] bool TellBeside(const Cell& cell, std::string_view reason) const;

    GridControl control;
    modGrid driver{control};
    CurrentKeys keys;
    UndoHistory history;
    HostUpdate hostUpdate;
    GridConstruction construction;
    TrackHistory trackHistory;
    ValueEntry valueEntry;
    OtherReading otherReading;
    ClipboardCommands clipboard;
    SizeEvents sizeEvents;
    GeneralOptions generalOptions;
    RowAttributes rowAttributes;
    ListenerList<void(bool running)> bulkListeners;
    ListenerList<void(std::string_view sentence)> outcomeListeners;
    ListenerList<bool(const CellKey& cell, std::string_view reason)> hintListeners;
};

}  // namespace planview
