// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>

#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "grid/CellComputation.h"
#include "grid/CellRules.h"
#include "grid/CellTable.h"
#include "grid/CurrentKeys.h"
#include "grid/GridSettings.h"
#include "grid/HostUpdate.h"
#include "grid/KeyLookup.h"
#include "grid/UndoHistory.h"
#include "grid/UserActions.h"
#include "grid/modGrid.h"

namespace planview {

/// What value entry works on.
struct ValueEntryParts {
    modGrid& driver;
    const TableSlots& tables;
    const GridSettings& settings;
    CurrentKeys& keys;
    EventSource& events;
    HostUpdate& hostUpdate;
    UndoHistory& history;
    bool& busy;
    MessageBoxes& messageBoxes;
    UserActions& actions;
    /// Brings the chart up to date when it is shown.
    std::function<void()> chartStep;
    /// Undoes or redoes what the user did to columns and rows.
    std::function<void(const TrackStep& step, bool backwards)> applyTracks;
    /// An action that announces several values begins or has ended.
    std::function<void(bool running)> tellBulk;
    /// What an action has done, in a sentence for the user.
    std::function<void(std::string_view sentence)> tellOutcome;
    /// Computes cells from others; null where nothing does.
    CellComputation* computation = nullptr;
};

/// A value on its way into a cell.
struct NewValue {
    Cell cell;
    Variant value;
};

/// What became of a bulk change.
struct BulkResult {
    int changed = 0;
    int hidden = 0;    ///< changed cells in hidden columns or rows
    int failed = 0;    ///< not stored because a table failed; the user has been told
    int readOnly = 0;  ///< refused: read-only cells, text lines and headings
    int noNumber = 0;  ///< refused: a text that is no number
    /// The first refused cell, to be named to the user.
    std::optional<CellKey> firstRefused;
    std::string reason;  ///< why that was, a sentence
    [[nodiscard]] int Refused() const noexcept { return readOnly + noNumber; }
};

/// The one way by which a value that the user changes reaches the host: TAB, TAB_OLD, `GridValueChanged`, the chart,
/// the undo history. Typing, deleting, pasting, filling and undoing all come through here.
///
/// What is computed from the changed cells follows within the action: it is stored in TAB and shown, and announced
/// where each value is, but it is no pending change and no part of the undo step. A value for a computed cell goes to
/// its leaves.
///
/// The tables come first: the grid shows a value when they have taken it. A table that fails (it is not set, it throws)
/// leaves the cell with what TAB holds; the other cells of the action are changed all the same. What was changed is
/// recorded, drawn and announced whatever failed beside it. The user is told once and the trace has one entry of the
/// error.
class ValueEntry {
public:
    explicit ValueEntry(ValueEntryParts parts) : parts_(std::move(parts)) {}

    /// Takes the text that the user entered into a cell, which still shows another one, and has the cell show it.
    /// Whether the cell takes it was asked before.
    void Enter(CellKeyView keys, const std::string& text, EditKind kind = EditKind::Value);

    /// Gives many cells their values as one action: one repaint, one chart step, one undo step. `SINGLEVALUE` decides
    /// whether the host hears `GridValueChanged` for each cell or one `GridStartUpdate` at the end; one value alone is
    /// always announced by `GridValueChanged`, and so is every fixed cell's, which no table keeps. Cells that may not
    /// change, and values that do not fit, are left out and counted. The host may build the grid anew when it hears of
    /// a value; the others then go to the cells of the same keys.
    BulkResult ChangeCells(std::span<const NewValue> values, const EditNote& note = {});

    /// Takes back or repeats the user's last action; nothing where there is none.
    void Undo();
    void Redo();

private:
    enum class Announce { EachValue, Silently };
    struct Failures;
    class Transaction;
    class BulkAnnouncement;

    /// Runs the body with a transaction, as one action; whatever fails, it comes to its proper end. False when there
    /// could be no transaction.
    template <class Body>
    bool RunBulk(std::size_t count, bool withFixed, const Body& body);
    void ChangeAll(Transaction& transaction, std::span<const NewValue> values, BulkResult& result);
    /// The cells that an action has changed by itself, by the ids of column and row.
    using EnteredCells = std::set<std::pair<std::int32_t, std::int32_t>>;
    /// A computed cell that takes a number: its leaves do, unless one of them is among the cells that the action names
    /// itself.
    void SpreadTotal(Transaction& transaction, const NewValue& total, const EnteredCells& entered, BulkResult& result);
    /// Stores and shows what is computed from the values that the action has changed so far.
    void FollowChanges(Transaction& transaction);
    void StoreComputed(Transaction& transaction, const ComputedValue& computed);
    void Apply(const HistoryStep& step, bool backwards);
    void ApplyCells(const UndoStep& changes, bool backwards);
    void GoTo(const UndoStep& changes);
    /// `shown` is what the cell showed before the action: of a fixed cell TAB does not keep it.
    bool ChangeOne(Transaction& transaction, const CellKey& cell, const std::string& shown, const Variant& value);
    void TakeOver(Transaction& transaction, CellKeyView keys, const std::string& shown, const Variant& value);
    /// What an action has changed, for those who hear of it.
    struct Done {
        UndoStep changes;
        bool undoable = false;
    };
    Done Record(Transaction& transaction);
    void TellOutcome(std::string_view done, std::size_t cells, std::size_t tracks = 0) const noexcept;
    void DrawChart() noexcept;
    Variant StoreInTab(CellTable& tab, const KeyPositions& at, const Variant& value);
    void KeepInTabOld(CellTable& tabOld, const KeyPositions& at, const Variant& before);
    void ShowHeld(Transaction& transaction, const CellKey& cell, const std::string& shown) noexcept;
    /// What the grid shows of a cell; nothing for one that it does not have.
    [[nodiscard]] std::string ShownIn(const CellKey& cell) const;
    void Tell(const Failures& failures) noexcept;
    [[nodiscard]] Announce AnnounceFor(std::size_t count) const;

    ValueEntryParts parts_;
};

}  // namespace planview
