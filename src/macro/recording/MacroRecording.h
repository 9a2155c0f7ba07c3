// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/GridControl.h"
#include "grid/RecordState.h"
#include "grid/UserActions.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// Writes what the user does into MACROREC, a row for each step.
///
/// An edit, a paste or a fill is one step, however many cells it was; only one whose values do not fit into a field is
/// divided by lines. Selecting headings is a step as long as no command takes them up: then the command names them.
/// Taking an edit back drops its step. What the user chooses in a dialog is not recorded.
///
/// The rows from 1 on are the steps in their order. A row that is not needed (a step was dropped, an earlier recording
/// was longer) stays with an empty COMMAND, because a host's table can only grow.
class MacroRecording final : public UserActions {
public:
    struct Parts {
        const TableSlots& tables;
        const GridControl& grid;
        EventSource& events;
        MessageBoxes& messageBoxes;
    };

    explicit MacroRecording(Parts parts) : parts_(parts) {}

    /// Begins a recording, dropping the steps of an earlier one, or goes on with an interrupted one. Says so when there
    /// is no table that can take it.
    void StartRecord();
    /// What follows is not recorded until StartRecord().
    void InterruptRecord();
    /// Ends the recording and raises `MacroRecordSave`.
    void StopRecord();
    /// Drops the last step; what it did stays done.
    void UndoRecord();

    [[nodiscard]] RecordState State() const noexcept { return state_; }
    [[nodiscard]] int StepCount() const noexcept { return static_cast<int>(steps_.size()); }
    [[nodiscard]] bool CanUndoRecord() const noexcept { return state_ != RecordState::Off && !steps_.empty(); }
    /// Called when the state or the number of steps is another one.
    void SetListener(std::function<void()> listener) { listener_ = std::move(listener); }
    /// Ends the recording without an event, as the control ends.
    void Abandon() noexcept;

    // --- What the user does

    void Edited(const EditNote& note, const UndoStep& changes, bool undoable) noexcept override;
    void Undone(const UndoStep& changes) noexcept override;
    void Redone(const UndoStep& changes) noexcept override;
    [[nodiscard]] bool Listening() const noexcept override { return state_ != RecordState::Off; }
    /// A command that gives no values was done.
    void Did(const ViewStep& step) noexcept;
    /// Other headings are selected.
    void Marked() noexcept;

private:
    /// A step, and the edit that it is of; 0 for none.
    struct Recorded {
        MacroStep step;
        std::uint64_t edit = 0;
    };
    /// An edit that the undo history holds, done after the recording began.
    struct Edit {
        std::uint64_t id = 0;
        std::vector<MacroStep> steps{};  ///< while it is undone
    };

    void Record(std::vector<MacroStep> steps, std::uint64_t edit = 0);
    void RecordOne(MacroStep step, std::uint64_t edit);
    /// Drops a selection of headings that the step names itself.
    void DropMarksFor(const MacroStep& step);
    void Write(std::size_t from);
    void Tell() const;
    /// Runs the body; a failure interrupts the recording and is told.
    template <class Body>
    void Trapped(std::string_view method, const Body& body) noexcept;
    void Trace(std::string_view method) const;

    Parts parts_;
    RecordState state_ = RecordState::Off;
    std::vector<Recorded> steps_;
    std::vector<Edit> edits_;   // done, the last one is undone next
    std::vector<Edit> undone_;  // the last one is redone next
    std::uint64_t lastEdit_ = 0;
    std::function<void()> listener_;
};

}  // namespace planview
