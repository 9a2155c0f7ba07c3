#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/GridControl.h"
#include "grid/CellRules.h"
#include "grid/CellTable.h"
#include "grid/CurrentKeys.h"
#include "grid/GridSettings.h"
#include "grid/HostUpdate.h"
#include "grid/KeyLookup.h"
#include "grid/UndoHistory.h"

namespace planview {

/// What value entry works on.
struct ValueEntryParts {
    GridControl& grid;
    const TableSlots& tables;
    const GridSettings& settings;
    CurrentKeys& keys;
    EventSource& events;
    HostUpdate& hostUpdate;
    UndoHistory& history;
    bool& busy;
    MessageBoxes& messageBoxes;
    /// Brings the chart up to date when it is shown.
    std::function<void()> chartStep;
    /// An action that announces several values begins or has ended.
    std::function<void(bool running)> tellBulk;
};

/// A value on its way into a cell.
struct NewValue {
    Cell cell;
    Variant value;
};

/// What became of a bulk change.
struct BulkResult {
    int changed = 0;
    int readOnly = 0;  ///< refused: read-only cells, text lines and headings
    int noNumber = 0;  ///< refused: a text that is no number
    /// The first refused cell, to be named to the user.
    std::optional<CellKey> firstRefused;
    [[nodiscard]] int Refused() const noexcept { return readOnly + noNumber; }
};

/// The one way by which a value that the user changes reaches the host: TAB, TAB_OLD, `GridValueChanged`, the chart,
/// the undo history. Typing, deleting, pasting, filling and undoing all come through here.
///
/// A table that fails (it is not set, it throws) ends the change with an error; the cell then shows again what TAB
/// holds.
class ValueEntry {
public:
    explicit ValueEntry(ValueEntryParts parts) : parts_(std::move(parts)) {}

    /// Handles the grid's event: the user gave a cell this text, which the grid already shows.
    void ContentsChanged(CellKeyView keys, const std::string& text);

    /// Gives many cells their values as one action: one repaint, one chart step, one undo step. `SINGLEVALUE` decides
    /// whether the host hears `GridValueChanged` for each cell or one `GridStartUpdate` at the end; one value alone is
    /// always announced by `GridValueChanged`. Cells that may not change, and values that do not fit, are left out and
    /// counted.
    BulkResult ChangeCells(std::span<const NewValue> values);

    /// Takes back or repeats the user's last action; nothing where there is none.
    void Undo();
    void Redo();

private:
    enum class Announce { EachValue, Silently };
    class Transaction;
    class BulkAnnouncement;

    void Apply(const UndoStep& step, bool backwards);
    void ChangeOne(Transaction& transaction, const CellKey& cell, const Variant& value, Announce announce);
    std::optional<CellChange> TakeOver(Transaction& transaction, CellKeyView keys, const Variant& value,
                                       Announce announce);
    Variant StoreInTab(CellTable& tab, const KeyPositions& at, const Variant& value);
    void KeepInTabOld(CellTable& tabOld, const KeyPositions& at, const Variant& before);
    void ShowWhatTabHolds(const CellKey& cell) noexcept;
    void TellNotStored(const std::string& error) noexcept;
    [[nodiscard]] Announce AnnounceFor(std::size_t count) const;

    ValueEntryParts parts_;
};

}  // namespace planview
