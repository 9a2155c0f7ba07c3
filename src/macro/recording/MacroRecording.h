// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <planview/Platform.h>

#include "automation/EventSource.h"
#include "automation/ListenerList.h"
#include "automation/TableSlots.h"
#include "components/GridControl.h"
#include "grid/RecordState.h"
#include "grid/UserActions.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// Writes what the user does into MACROREC, one row for each step.
///
/// An edit, paste or fill is one step whatever its size; if its values do not fit into a field, it is split by lines.
/// Selecting headings is a step until a command uses the selection: then the command names them. Undo removes the step
/// of the edit. Choices in dialogs are not recorded.
///
/// Row n holds step n. A row that is no longer needed keeps an empty COMMAND, because a host's table can only grow.
class MacroRecording final : public UserActions {
public:
    struct Parts {
        const TableSlots& tables;
        const GridControl& grid;
        EventSource& events;
        MessageBoxes& messageBoxes;
    };

    explicit MacroRecording(Parts parts) : parts_(parts) {}

    /// Begins a recording, discarding the steps of an earlier one, or resumes an interrupted one. Tells the user if
    /// there is no table for it.
    void StartRecord();
    /// Records nothing until StartRecord() is called.
    void InterruptRecord();
    /// Ends the recording and raises `MacroRecordSave`.
    void StopRecord();
    /// Removes the last step from the recording; its effect stays.
    void UndoRecord();

    [[nodiscard]] RecordState State() const noexcept { return state_; }
    [[nodiscard]] int StepCount() const noexcept { return static_cast<int>(steps_.size()); }
    [[nodiscard]] bool CanUndoRecord() const noexcept { return state_ != RecordState::Off && !steps_.empty(); }
    /// Called when the state or the number of steps has changed.
    [[nodiscard]] ListenerList<void()>& Listeners() noexcept { return listeners_; }
    /// Ends the recording without an event, for the end of the control.
    void Abandon() noexcept;

    // --- What the user does

    void Edited(const EditNote& note, const UndoStep& changes, bool undoable) noexcept override;
    void TracksChanged(bool recorded) noexcept override;
    void Undone(const UndoStep& changes) noexcept override;
    void Redone(const UndoStep& changes) noexcept override;
    void StepsEmptied(const UndoHistory::Emptied& emptied) noexcept override;
    [[nodiscard]] bool Listening() const noexcept override { return state_ != RecordState::Off; }
    /// A command that gives no values has run.
    void Did(const ViewStep& step) noexcept;
    /// The selection of headings has changed.
    void Marked() noexcept;

private:
    /// A step and the edit that it belongs to; 0 for none.
    struct Recorded {
        MacroStep step;
        std::uint64_t edit = 0;
    };
    /// An edit in the undo history that was made during the recording.
    struct Edit {
        std::uint64_t id = 0;
        std::vector<MacroStep> steps{};  ///< while it is undone
    };

    void Record(std::vector<MacroStep> steps, std::uint64_t edit = 0);
    void RecordOne(MacroStep step, std::uint64_t edit);
    /// Removes a selection of headings that the step itself names.
    void DropMarksFor(const MacroStep& step);
    void Write(std::size_t from);
    void Tell() const;
    /// Runs the body. An error interrupts the recording and is shown.
    template <class Body>
    void Trapped(std::string_view method, const Body& body) noexcept;
    void Trace(std::string_view method) const;

    Parts parts_;
    RecordState state_ = RecordState::Off;
    std::vector<Recorded> steps_;
    std::vector<Edit> edits_;   // done, the last one is undone next
    std::vector<Edit> undone_;  // the last one is redone next
    std::uint64_t lastEdit_ = 0;
    std::uint64_t trackEdit_ = 0;  // the edit of the command that is recorded next; 0 for none
    ListenerList<void()> listeners_;
};

}  // namespace planview
