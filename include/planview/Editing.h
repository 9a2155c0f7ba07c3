// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/CellKey.h>
#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/Listener.h>
#include <planview/Variant.h>

namespace planview {

/// A planning cell and the value that it is to get: a number, or a text as the user would type it.
struct ValueChange {
    CellKey cell;   ///< as events name it: {"COL5", "ROW2"}
    Variant value;  ///< Empty empties the cell
};

/// What became of changes.
struct ChangeResult {
    int changed = 0;                      ///< cells that hold the value now
    int refused = 0;                      ///< read-only or unknown cells, texts that are no number
    int failed = 0;                       ///< not stored because a table failed; the user has been told
    std::optional<CellKey> firstRefused;  ///< to be named to the user
    std::string reason;                   ///< why that was, a sentence
};

/// Changing values: what a host's Edit menu offers, and what a host that keeps the changes has to know.
///
/// The changes write the tables and raise the events as those that the user makes in the grid do.
class PLANVIEW_EXPORT Editing final : public Facet {
public:
    /// That of this control.
    explicit Editing(PlanView& control) noexcept : Facet(control) {}

    /// Takes back the user's last change of values, however many cells it was; nothing where there is none. A build
    /// keeps the history of the columns and rows that have their key and their caption again; what was changed in
    /// others drops out of its step.
    void Undo();
    /// Makes the change again that Undo() took back last; nothing after another change of values.
    void Redo();
    /// Whether Undo() has something to take back.
    [[nodiscard]] bool CanUndo() const noexcept;
    /// Whether Redo() has something to make again.
    [[nodiscard]] bool CanRedo() const noexcept;
    /// Puts the selected block on the clipboard, the current cell where nothing is selected. Tells the user if the
    /// selected cells form no block.
    void Copy();
    /// Copy(), then DeleteContents().
    void Cut();
    /// Puts the clipboard's cells from the first selected one on, or over the selection where they fit it a whole
    /// number of times. Cells that take no value are left out and the user is told how many.
    void Paste();
    /// Gives every selected cell the value of the first one.
    void Fill();
    /// Empties the selected planning cells.
    void DeleteContents();
    /// Multiplies the numbers of the selected planning cells by 1 + percent / 100, -1,000,000 .. 1,000,000; empty cells
    /// stay empty. One change, undone as one; what may not change is left alone and named.
    void RaiseSelected(double percent);

    /// Changes values for the user, as one action of his: written to TAB and TAB_OLD, shown without a rebuild,
    /// announced as `SINGLEVALUE` says, recorded while a recording runs, and undone as one. `name` is what the trace
    /// calls the action. Nothing is changed from inside an event of another change.
    ChangeResult ChangeValues(std::span<const ValueChange> changes, std::string_view name);

    /// Whether the user may edit nothing at all, for a host that can keep no change: no values, macros, recordings,
    /// attributes and options. What is only about the view (sizes, hiding, marks) stays possible. A rebuild keeps it;
    /// the host itself may change its tables as before.
    void SetReadOnly(bool readOnly) noexcept;
    /// What SetReadOnly() was last told; false at first.
    [[nodiscard]] bool IsReadOnly() const noexcept;

    /// The planning cells that show another value than TAB_OLD keeps for them: what the user has changed and the host
    /// has not taken over yet.
    [[nodiscard]] std::vector<CellKey> PendingCells() const;

    /// @{
    /// Called when an action of the user begins (true) that announces several values by `GridValueChanged`, and when it
    /// has ended (false), so that a host can keep what it hears in between as one. A single value's event comes outside
    /// of any, unless lines or columns are computed, which are announced with it. Called until it is removed.
    ListenerId AddBulkListener(std::function<void(bool running)> listener);
    void RemoveBulkListener(ListenerId listener) noexcept;
    /// @}
    /// @{
    /// Called with a sentence for the user when a paste, a fill, a deletion, a raise, an undo or a redo is over: "12
    /// cells pasted". For a status line, or to be spoken. Called until it is removed.
    ListenerId AddOutcomeListener(std::function<void(std::string_view sentence)> listener);
    void RemoveOutcomeListener(ListenerId listener) noexcept;
    /// @}
    /// @{
    /// Called to show the user a sentence beside a cell: why it does not take a value, or how a number was taken that
    /// could mean two. False where that is not possible. The newest listener is asked first; where none shows it a
    /// message box says why the value was refused.
    ListenerId AddHintListener(std::function<bool(const CellKey& cell, std::string_view reason)> listener);
    void RemoveHintListener(ListenerId listener) noexcept;
    /// @}
};

}  // namespace planview
