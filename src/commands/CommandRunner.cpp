// SPDX-License-Identifier: MIT
#include "commands/CommandRunner.h"

#include <algorithm>

#include "automation/MemberNames.h"
#include "commands/GridCommands.h"
#include "grid/CellRules.h"
#include "grid/SelectedCells.h"
#include "trace/ErrorTrap.h"

namespace planview {

namespace {

bool IsAboutColumns(StepKind step) {
    return step == StepKind::OnColumns || step == StepKind::NamedColumns;
}

bool IsAboutRows(StepKind step) {
    return step == StepKind::OnRows || step == StepKind::NamedRows;
}

bool CanBeReplayed(StepKind step) {
    return step != StepKind::None && step != StepKind::Values && step != StepKind::Marks;
}

/// "COL1,ROW2" into the columns and rows of the call.
void TakeKeys(const std::string& keys, CommandCall& call) {
    std::size_t begin = 0;
    while (begin < keys.size()) {
        const std::size_t end = std::min(keys.find(',', begin), keys.size());
        std::string key = keys.substr(begin, end - begin);
        (key.starts_with("ROW") ? call.rows : call.columns).push_back(std::move(key));
        begin = end + 1;
    }
}

CommandCall CallFrom(const ViewStep& step) {
    return {step.columns, step.rows, step.value, {}};
}

}  // namespace

bool CommandRunner::Run(Command command, CommandCall call) {
    const CommandRow& row = RowOf(command);
    if (row.changesTables && parts_.Grid().IsReadOnly()) {
        return false;
    }
    SelectHeadingsOf(row, call);
    const bool possible = IsPossible(row, call);
    CommandCall meant = call;
    if (parts_.recording.State() == RecordState::Running) {
        // What it is done on is asked before it is done: the host may select something else meanwhile.
        if (IsAboutColumns(row.step) && call.columns.empty()) {
            meant.columns = SelectedColumnKeys(parts_.Grid());
        } else if (IsAboutRows(row.step) && call.rows.empty()) {
            meant.rows = SelectedRowKeys(parts_.Grid());
        }
    }
    std::optional<TrackHistory::Watch> watch;
    if (row.undoesTracks) {
        watch.emplace(parts_.trackHistory);
    }
    row.run(parts_, call);
    call.done = call.done && possible;
    if (watch) {
        watch->Keep(call.done && row.step != StepKind::None);
    }
    if (call.done) {
        if (!call.columns.empty() || !call.rows.empty()) {
            meant = call;
        }
        meant.value = call.value;
        Record(command, meant);
    }
    Changed();
    return call.done;
}

bool CommandRunner::RunWith(Command command, AutomationObject::Arguments arguments) {
    const CommandRow& row = RowOf(command);
    ExpectArguments(arguments, static_cast<std::size_t>(CountOf(row.arguments)), row.name);
    CommandCall call;
    if (row.arguments == CallArguments::Keys || row.arguments == CallArguments::KeysAndValue) {
        TakeKeys(arguments.front().AsText(), call);
    }
    if (row.arguments == CallArguments::Value || row.arguments == CallArguments::KeysAndValue) {
        call.value = arguments.back();
    }
    return Run(command, std::move(call));
}

/// What cannot be chosen now comes to nothing, though it may leave its trace entries. Changes of values are told by the
/// cells that they reach, and a call that names columns or rows by those.
bool CommandRunner::IsPossible(const CommandRow& row, const CommandCall& call) const {
    const bool asks = row.whyNot && row.step != StepKind::Values && call.columns.empty() && call.rows.empty();
    return !asks || row.whyNot(Situation()).empty();
}

/// Selects the columns and rows that a call names before a command on selected ones runs.
void CommandRunner::SelectHeadingsOf(const CommandRow& row, CommandCall& call) {
    const bool onSelected = row.step == StepKind::OnColumns || row.step == StepKind::OnRows;
    if (onSelected && (!call.columns.empty() || !call.rows.empty())) {
        commands::SelectHeadings(parts_, call);
    }
}

void CommandRunner::Record(Command command, const CommandCall& call) {
    MacroRecording& recording = parts_.recording;
    const CommandRow& row = RowOf(command);
    const std::string name(row.name);
    switch (row.step) {
        case StepKind::None:
        case StepKind::Values:
            break;
        case StepKind::Marks:
        case StepKind::Headings:
            recording.Marked();
            break;
        case StepKind::Plain:
            recording.Did({name, {}, {}, {}});
            break;
        case StepKind::State:
            recording.Did({name, {}, {}, row.checked(Situation()) ? "X" : ""});
            break;
        case StepKind::OnColumns:
        case StepKind::OnRows:
        case StepKind::NamedColumns:
        case StepKind::NamedRows:
            recording.Did({name, call.columns, call.rows, call.value.AsText()});
            break;
    }
}

// --- What can be run

CommandState CommandRunner::StateOf(Command command, const CommandSituation& now) {
    const CommandRow& row = RowOf(command);
    CommandState state;
    if (row.changesTables && now.on.Grid().IsReadOnly()) {
        state.reason = RefusalText(Refusal::TableReadOnly);
    } else {
        state.reason = row.whyNot ? row.whyNot(now) : std::string();
    }
    state.enabled = state.reason.empty();
    state.checked = row.checked && row.checked(now);
    const std::string_view caption = row.captionNow ? row.captionNow(now) : std::string_view();
    state.caption = caption.empty() ? row.caption : caption;
    return state;
}

void CommandRunner::Changed() const noexcept {
    ResumeNext([&] { listeners_.Tell(); });
}

// --- Recorded steps

std::optional<std::string> CommandRunner::MisfitOf(const ViewStep& step) const {
    const CommandRow* row = FindCommand(step.command);
    if (!row || !CanBeReplayed(row->step)) {
        return "there is no command \"" + step.command + "\" that can be replayed";
    }
    if (row->changesTables && parts_.Grid().IsReadOnly()) {
        return "this table is open for reading only";
    }
    return row->misfit ? row->misfit(parts_, CallFrom(step)) : std::nullopt;
}

bool CommandRunner::Replay(const ViewStep& step) {
    const CommandRow* row = FindCommand(step.command);
    bool done = false;
    if (row) {
        ErrorTrap("POPUP", row->name, [&] {
            const bool isSo = row->step == StepKind::State && row->checked(Situation()) == (step.value == "X");
            done = isSo || Run(row->command, CallFrom(step));
        });
    }
    return done;
}

}  // namespace planview
