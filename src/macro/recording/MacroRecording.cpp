// SPDX-License-Identifier: MIT
#include "macro/recording/MacroRecording.h"

#include <algorithm>
#include <utility>

#include "grid/SelectedCells.h"
#include "macro/recording/RecordedEdit.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view Label = "MACRO";

MessageBoxRequest Message(std::string text, MessageIcon icon = MessageIcon::Exclamation) {
    return {std::move(text), "Macro recording", MessageButtons::Ok, icon, MessageAnswer::Ok};
}

/// The change that takes this one back.
UndoStep Reversed(const UndoStep& changes) {
    UndoStep reversed;
    for (const CellChange& change : changes) {
        reversed.push_back({change.cell, change.after, change.before});
    }
    return reversed;
}

}  // namespace

void MacroRecording::Trace(std::string_view method) const {
    if (TraceEnabled) {
        TraceWrite(Label, "", method, TraceText("{steps: ", StepCount(), "}"));
    }
}

void MacroRecording::Tell() const {
    listeners_.Tell();
}

template <class Body>
void MacroRecording::Trapped(std::string_view method, const Body& body) noexcept {
    const std::optional<CaughtError> error = CaughtErrorOf(body);
    if (!error) {
        return;
    }
    TraceError(Label, method, *error);
    if (state_ == RecordState::Running) {
        state_ = RecordState::Interrupted;
    }
    ResumeNext(
        [&] { Tell(); },
        [&] {
            parts_.messageBoxes.Show(Message(
                "The step could not be recorded; recording is interrupted. What you did stays done.\n" + error->text));
        });
}

// --- The commands

void MacroRecording::StartRecord() {
    if (state_ == RecordState::Running) {
        return;
    }
    if (state_ == RecordState::Interrupted) {
        state_ = RecordState::Running;
        Trace("StartRecord");
        Tell();
        return;
    }
    const HostTable table = parts_.tables.MACROREC;
    if (!table.IsSet()) {
        parts_.messageBoxes.Show(Message(
            "There is no table that could take a recording: the host has not set MACROREC. Nothing is recorded."));
        return;
    }
    const std::optional<CaughtError> error = CaughtErrorOf([&] {
        const int rows = table.RowCount();
        for (int row = 1; row <= rows; ++row) {
            EmptyStep(table, static_cast<HostTable::Row>(row));
        }
        if (rows == 0) {
            EmptyStep(table, table.AddRow());  // fails now if the table lacks the fields
        }
    });
    if (error) {
        TraceError(Label, "StartRecord", *error);
        parts_.messageBoxes.Show(
            Message("The table MACROREC cannot take a recording. Nothing is recorded.\n" + error->text));
        return;
    }
    steps_.clear();
    edits_.clear();
    undone_.clear();
    state_ = RecordState::Running;
    Trace("StartRecord");
    Tell();
}

void MacroRecording::InterruptRecord() {
    if (state_ == RecordState::Running) {
        state_ = RecordState::Interrupted;
        Trace("InterruptRecord");
        Tell();
    }
}

void MacroRecording::StopRecord() {
    if (state_ == RecordState::Off) {
        return;
    }
    state_ = RecordState::Off;
    edits_.clear();
    undone_.clear();
    Trace("StopRecord");
    Tell();
    TraceWrite(Label, "", "MacroRecordSave fired", "{}");
    parts_.events.Raise(EventId::MacroRecordSave);
}

void MacroRecording::UndoRecord() {
    if (CanUndoRecord()) {
        steps_.pop_back();
        Write(steps_.size());
        Trace("UndoRecord");
        Tell();
    }
}

void MacroRecording::Abandon() noexcept {
    state_ = RecordState::Off;
    listeners_.Clear();
}

// --- Steps

void MacroRecording::Record(std::vector<MacroStep> steps, std::uint64_t edit) {
    if (state_ != RecordState::Running || steps.empty()) {
        return;
    }
    for (MacroStep& step : steps) {
        RecordOne(std::move(step), edit);
    }
    Tell();
}

void MacroRecording::RecordOne(MacroStep step, std::uint64_t edit) {
    DropMarksFor(step);
    const std::size_t index = steps_.size();
    steps_.push_back({std::move(step), edit});
    if (std::optional<CaughtError> error = CaughtErrorOf([&] { Write(index); })) {
        steps_.resize(index);  // a step that cannot be written is not kept
        throw TableError(AutomationErrorCode::Failed, error->text, std::move(error->place));
    }
    if (TraceEnabled) {
        const MacroStep& last = steps_.back().step;
        TraceWrite(Label, "", "Record",
                   TraceText("{step: ", StepCount(), " - command: ", last.command, " - column: ", last.columns.keys,
                             " - line: ", last.lines.keys, " - value: ", last.value, "}"));
    }
}

void MacroRecording::DropMarksFor(const MacroStep& step) {
    if (steps_.empty() || steps_.back().step.command != MacroCommand::Mark) {
        return;
    }
    const MacroStep& mark = steps_.back().step;
    const bool replaced = step.command == MacroCommand::Mark;
    const bool takenUp = (mark.columns.keys.empty() || mark.columns.keys == step.columns.keys) &&
                         (mark.lines.keys.empty() || mark.lines.keys == step.lines.keys);
    if (replaced || takenUp) {
        steps_.pop_back();
    }
}

/// Writes the steps from this index on into the table; all of them if the host has replaced or emptied the table.
void MacroRecording::Write(std::size_t from) {
    const HostTable table = parts_.tables.MACROREC;
    if (from > 0) {
        const int last = static_cast<int>(from);
        const bool intact = table.RowCount() >= last && table.Int16(static_cast<HostTable::Row>(last), "STEP") == last;
        from = intact ? from : 0;
    }
    for (std::size_t i = from; i < steps_.size(); ++i) {
        const auto number = static_cast<int>(i) + 1;
        const HostTable::Row row = number <= table.RowCount() ? static_cast<HostTable::Row>(number) : table.AddRow();
        WriteStep(table, row, number, steps_[i].step);
    }
    const int rows = table.RowCount();
    for (int row = StepCount() + 1; row <= rows; ++row) {
        if (table.Text(static_cast<HostTable::Row>(row), "COMMAND").empty()) {
            break;  // nor have the rows after it
        }
        EmptyStep(table, static_cast<HostTable::Row>(row));
    }
}

// --- What the user does

void MacroRecording::Edited(const EditNote& note, const UndoStep& changes, bool undoable) noexcept {
    if (state_ == RecordState::Off || changes.empty()) {
        return;
    }
    Trapped("Edited", [&] {
        if (undoable) {
            edits_.push_back({++lastEdit_, {}});
            undone_.clear();
        }
        Record(StepsOfEdit(parts_.grid, note, changes), undoable ? lastEdit_ : 0);
    });
}

void MacroRecording::TracksChanged(bool recorded) noexcept {
    if (state_ == RecordState::Off) {
        return;
    }
    Trapped("TracksChanged", [&] {
        edits_.push_back({++lastEdit_, {}});
        undone_.clear();
        trackEdit_ = recorded ? lastEdit_ : 0;
    });
}

/// Removes the steps of the edit. Undoing an edit from before the recording is recorded as entering the old values.
void MacroRecording::Undone(const UndoStep& changes) noexcept {
    if (state_ == RecordState::Off) {
        return;
    }
    Trapped("Undone", [&] {
        if (edits_.empty()) {
            undone_.clear();
            if (!changes.empty()) {
                Record(StepsOfEdit(parts_.grid, {}, Reversed(changes)));
            }
            return;
        }
        Edit edit = std::move(edits_.back());
        edits_.pop_back();
        std::size_t first = steps_.size();
        for (std::size_t i = 0; i < steps_.size(); ++i) {
            if (steps_[i].edit == edit.id) {
                edit.steps.push_back(steps_[i].step);
                first = std::min(first, i);
            }
        }
        std::erase_if(steps_, [&](const Recorded& recorded) { return recorded.edit == edit.id; });
        undone_.push_back(std::move(edit));
        Write(first);
        Trace("Undone");
        Tell();
    });
}

void MacroRecording::Redone(const UndoStep& changes) noexcept {
    if (state_ == RecordState::Off) {
        return;
    }
    Trapped("Redone", [&] {
        if (undone_.empty()) {
            if (!changes.empty()) {
                Record(StepsOfEdit(parts_.grid, {}, changes));
            }
            return;
        }
        Edit edit = std::move(undone_.back());
        undone_.pop_back();
        for (MacroStep& step : edit.steps) {
            RecordOne(std::move(step), edit.id);
        }
        edits_.push_back({edit.id, {}});
        Tell();
    });
}

/// What was recorded of them stays: it was done.
void MacroRecording::StepsEmptied(const UndoHistory::Emptied& emptied) noexcept {
    const auto drop = [](std::vector<Edit>& edits, const std::vector<std::size_t>& places) {
        std::vector<bool> dropped(edits.size());
        for (const std::size_t place : places) {
            if (place < edits.size()) {
                dropped[edits.size() - 1 - place] = true;
            }
        }
        std::size_t i = 0;
        std::erase_if(edits, [&](const Edit& /*edit*/) { return dropped[i++]; });
    };
    Trapped("StepsEmptied", [&] {
        drop(edits_, emptied.done);
        drop(undone_, emptied.undone);
    });
}

void MacroRecording::Did(const ViewStep& step) noexcept {
    Trapped("Did", [&] {
        Record({{step.command, DescribePlaces(parts_.grid, PlaceAxis::Columns, step.columns),
                 DescribePlaces(parts_.grid, PlaceAxis::Lines, step.rows), step.value}},
               std::exchange(trackEdit_, 0));
    });
}

/// Clearing the selection is not recorded: nothing is done with it.
void MacroRecording::Marked() noexcept {
    if (state_ != RecordState::Running) {
        return;
    }
    Trapped("Marked", [&] {
        MacroStep step{std::string(MacroCommand::Mark),
                       DescribePlaces(parts_.grid, PlaceAxis::Columns, SelectedColumnKeys(parts_.grid)),
                       DescribePlaces(parts_.grid, PlaceAxis::Lines, SelectedRowKeys(parts_.grid)),
                       {}};
        const bool none = step.columns.keys.empty() && step.lines.keys.empty();
        const bool lastIsMark = !steps_.empty() && steps_.back().step.command == MacroCommand::Mark;
        if (lastIsMark && (none || !(steps_.back().step == step))) {
            steps_.pop_back();
            Write(steps_.size());
            Tell();
        }
        if (!none && (steps_.empty() || !(steps_.back().step == step))) {
            Record({std::move(step)});
        }
    });
}

}  // namespace planview
