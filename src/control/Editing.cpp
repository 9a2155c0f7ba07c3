// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/Editing.h>

#include "control/Guarded.h"
#include "grid/PendingCells.h"
#include "trace/TraceText.h"

namespace planview {

void Editing::Undo() {
    RunCommand(State(), Command::Undo);
}

void Editing::Redo() {
    RunCommand(State(), Command::Redo);
}

bool Editing::CanUndo() const noexcept {
    return State()->context.grid.history.CanUndo();
}

bool Editing::CanRedo() const noexcept {
    return State()->context.grid.history.CanRedo();
}

void Editing::Copy() {
    RunCommand(State(), Command::Copy);
}

void Editing::Cut() {
    RunCommand(State(), Command::Cut);
}

void Editing::Paste() {
    RunCommand(State(), Command::Paste);
}

void Editing::Fill() {
    RunCommand(State(), Command::Fill);
}

void Editing::DeleteContents() {
    RunCommand(State(), Command::DeleteContents);
}

void Editing::RaiseSelected(double percent) {
    const Variant argument(percent);
    RunCommand(State(), Command::Raise, {&argument, 1});
}

void Editing::SetReadOnly(bool readOnly) noexcept {
    ControlContext& context = State()->context;
    context.grid.control.SetReadOnly(readOnly);
    context.runner.Changed();
}

bool Editing::IsReadOnly() const noexcept {
    return State()->context.grid.control.IsReadOnly();
}

std::vector<CellKey> Editing::PendingCells() const {
    std::vector<CellKey> pending;
    Asked(State(), "GRIDCTL", "PendingCells", [&](const ControlContext& context) {
        for (const Cell cell : planview::PendingCells(context.grid.control, context.shared.tables.TAB_OLD)) {
            pending.push_back(context.grid.control.KeyOf(cell));
        }
    });
    return pending;
}

ChangeResult Editing::ChangeValues(std::span<const ValueChange> changes, std::string_view name) {
    constexpr std::string_view Method = "ChangeValues";
    ChangeResult result;
    Guarded(State(), "GRIDCTL", Method, [&](ControlContext& context) {
        if (modPlan::TraceEnabled) {
            modPlan::TraceWrite("GRIDCTL", "", Method, TraceText("{name: ", name, " - cells: ", changes.size(), "}"));
        }
        if (context.shared.busy) {
            throw AutomationError(AutomationErrorCode::Failed, "Values are being changed already");
        }
        std::vector<NewValue> values;
        for (const ValueChange& change : changes) {
            if (const std::optional<Cell> cell = context.grid.control.FindCell(change.cell)) {
                values.push_back({*cell, change.value});
            } else {
                ++result.refused;
                result.firstRefused = result.firstRefused.value_or(change.cell);
                result.reason = "There is no such cell.";
            }
        }
        const BulkResult done = context.grid.valueEntry.ChangeCells(values);
        result.changed = done.changed;
        result.failed = done.failed;
        result.refused += done.Refused();
        if (!result.firstRefused) {
            result.firstRefused = done.firstRefused;
            result.reason = done.reason;
        }
    });
    return result;
}

ListenerId Editing::AddBulkListener(std::function<void(bool running)> listener) {
    return State()->context.grid.bulkListeners.Add(std::move(listener));
}

void Editing::RemoveBulkListener(ListenerId listener) noexcept {
    State()->context.grid.bulkListeners.Remove(listener);
}

ListenerId Editing::AddOutcomeListener(std::function<void(std::string_view sentence)> listener) {
    return State()->context.grid.outcomeListeners.Add(std::move(listener));
}

void Editing::RemoveOutcomeListener(ListenerId listener) noexcept {
    State()->context.grid.outcomeListeners.Remove(listener);
}

ListenerId Editing::AddHintListener(std::function<bool(const CellKey& cell, std::string_view reason)> listener) {
    return State()->context.grid.hintListeners.Add(std::move(listener));
}

void Editing::RemoveHintListener(ListenerId listener) noexcept {
    State()->context.grid.hintListeners.Remove(listener);
}

}  // namespace planview
