// SPDX-License-Identifier: MIT
#include "grid/ValueEntry.h"

#include <algorithm>
#include <array>
#include <vector>

#include "automation/BusyScope.h"
#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "grid/CellText.h"
#include "grid/SelectedCells.h"
#include "grid/ValueEntryTransaction.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

void TraceStep(std::string_view method, std::string_view parameter) {
    TraceWrite("GRIDCTL", "", method, parameter);
}

/// A value as a trace entry shows it.
std::string Shown(const Variant& value) {
    return value.GetKind() == Variant::Kind::Double ? NumberText(value.AsDouble(), modPlan::TraceDecimalMark)
                                                    : value.AsText();
}

/// What the grid shows of an entered value: a number in the control's own form, any other text as it is.
std::string EnteredText(CellKeyView cell, const Variant& value) {
    const std::string* text = value.TextIf();
    if (!IsPlanningCell(cell)) {
        return value.AsText();
    }
    if (!text) {
        return CellText(value);
    }
    const std::optional<double> number = TryParseNumber(*text);
    return number ? modPlan::ReplacePoint(NumberText(*number)) : *text;
}

/// Empty where whoever gave the values tells of it.
std::string_view VerbOf(EditKind kind) {
    switch (kind) {
        case EditKind::Paste:
            return "pasted";
        case EditKind::Fill:
            return "filled";
        case EditKind::Delete:
            return "emptied";
        case EditKind::Raise:
            return "raised";
        case EditKind::Value:
        case EditKind::Drag:
            break;
    }
    return {};
}

}  // namespace

/// Brackets the events of an action that announces several values, also when it fails half-way.
class ValueEntry::BulkAnnouncement {
public:
    /// What follows from a single value is announced with it.
    BulkAnnouncement(const ValueEntryParts& parts, Announce announce, std::size_t count)
        : parts_(parts),
          running_(announce == Announce::EachValue &&
                   (count > 1 || (parts.computation && parts.computation->Computes()))) {
        Tell(true);
    }
    ~BulkAnnouncement() { Tell(false); }
    BulkAnnouncement(const BulkAnnouncement&) = delete;
    BulkAnnouncement& operator=(const BulkAnnouncement&) = delete;

private:
    void Tell(bool running) const noexcept {
        if (running_ && parts_.tellBulk) {
            ResumeNext([&] { parts_.tellBulk(running); });
        }
    }

    const ValueEntryParts& parts_;
    bool running_;
};

void ValueEntry::Enter(CellKeyView keys, const std::string& text, EditKind kind) {
    const CellKey cell{std::string(keys.column), std::string(keys.row)};
    const std::optional<Cell> place = parts_.driver.Grid().FindCell(cell);
    if (place && parts_.computation && parts_.computation->IsComputed(*place)) {
        const NewValue total{*place, text};
        const BulkResult result = ChangeCells(std::span(&total, 1), {kind});
        if (!result.reason.empty()) {
            parts_.messageBoxes.Show(
                {result.reason, "Grid", MessageButtons::Ok, MessageIcon::Information, MessageAnswer::Ok});
        }
        return;
    }
    const std::string shown = ShownIn(cell);
    if (kind == EditKind::Drag) {
        parts_.driver.Contents(cell, text, true);  // its entry stands before those of the value
    }
    Transaction transaction(parts_, 1, Announce::EachValue, true);
    Done done;
    {
        const BulkAnnouncement bulk(parts_, Announce::EachValue, 1);
        const BusyScope busy(parts_.busy);
        ChangeOne(transaction, cell, shown, text);
        FollowChanges(transaction);
        done = Record(transaction);
        DrawChart();
    }
    Tell(transaction.failures);
    parts_.actions.Edited({kind}, done.changes, done.undoable);
}

template <class Body>
bool ValueEntry::RunBulk(std::size_t count, bool withFixed, const Body& body) {
    Failures failures;
    std::optional<CaughtError> broken;
    {
        const Announce announce = AnnounceFor(count);
        const BulkAnnouncement bulk(parts_, announce, count);
        const BusyScope busy(parts_.busy);
        const modGrid::RedrawAtEnd redraw(parts_.driver, modGrid::Entries::None);
        std::optional<Transaction> transaction;
        broken = CaughtErrorOf(
            [&] { transaction.emplace(parts_, count, announce, withFixed || announce == Announce::EachValue); });
        if (broken) {
            failures.Add(failures.notStored, *broken, static_cast<int>(count));
        } else {
            body(*transaction);
            failures = transaction->failures;
        }
        if (transaction && transaction->changed) {
            DrawChart();
            if (announce == Announce::Silently) {
                parts_.hostUpdate.StartUpdate();
            }
        }
    }
    Tell(failures);
    return !broken;
}

BulkResult ValueEntry::ChangeCells(std::span<const NewValue> values, const EditNote& note) {
    BulkResult result;
    Done done;
    if (values.empty()) {
        return result;
    }
    const GridControl& grid = parts_.driver.Grid();
    const bool withFixed = std::any_of(values.begin(), values.end(), [&](const NewValue& next) {
        return !IsPlanningCell({grid.Column(next.cell.column).key, grid.Row(next.cell.row).key});
    });
    const bool ran = RunBulk(values.size(), withFixed, [&](Transaction& transaction) {
        ChangeAll(transaction, values, result);
        done = Record(transaction);
    });
    parts_.actions.Edited(note, done.changes, done.undoable);
    if (const std::string_view verb = VerbOf(note.kind); !verb.empty()) {
        TellOutcome(verb, static_cast<std::size_t>(result.changed));
    }
    result.failed += ran ? 0 : static_cast<int>(values.size());
    return result;
}

void ValueEntry::ChangeAll(Transaction& transaction, std::span<const NewValue> values, BulkResult& result) {
    const GridControl& grid = parts_.driver.Grid();
    const std::uint64_t built = grid.BuildVersion();
    std::vector<CellKey> keys;
    std::vector<NewValue> totals;
    if (transaction.heard) {
        for (const NewValue& next : values) {
            keys.push_back(grid.KeyOf(next.cell));
        }
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Variant& value = values[i].value;
        std::optional<Cell> cell = values[i].cell;
        if (grid.BuildVersion() != built) {
            cell = i < keys.size() ? grid.FindCell(keys[i]) : std::nullopt;
        }
        if (!cell) {
            transaction.failures.Add(transaction.failures.notStored, {"The cell is no longer there"});
            ++result.failed;
            continue;
        }
        if (parts_.computation && parts_.computation->IsComputed(*cell)) {
            totals.push_back({*cell, value});
            continue;
        }
        const std::string* text = value.TextIf();
        const Refusal refusal = text ? RefusalOf(grid, *cell, *text) : RefusalOf(grid, *cell);
        const CellKey key = grid.KeyOf(*cell);
        if (refusal == Refusal::None) {
            const std::string shown = grid.Contents(*cell);
            const bool hidden = grid.Column(cell->column).hidden || grid.Row(cell->row).hidden;
            const bool changed = ChangeOne(transaction, key, shown, value);
            ++(changed ? result.changed : result.failed);
            result.hidden += changed && hidden ? 1 : 0;
            continue;
        }
        ++(refusal == Refusal::NoNumber ? result.noNumber : result.readOnly);
        if (!result.firstRefused) {
            result.firstRefused = key;
            result.reason = RefusalText(refusal);
        }
    }
    FollowChanges(transaction);
    EnteredCells entered;
    if (!totals.empty()) {
        for (const CellChange& change : transaction.step) {
            if (const std::optional<Cell> cell = grid.FindCell(change.cell)) {
                entered.emplace(cell->column.value, cell->row.value);
            }
        }
    }
    for (const NewValue& total : totals) {
        if (grid.BuildVersion() == built) {
            SpreadTotal(transaction, total, entered, result);
        }
    }
}

void ValueEntry::Undo() {
    if (parts_.history.CanUndo()) {
        const HistoryStep step = parts_.history.TakeUndo();  // the host may end the history from inside an event
        Apply(step, true);
        parts_.actions.Undone(step.cells);
        TellOutcome("undone", step.cells.size(), step.tracks.size());
    }
}

void ValueEntry::Redo() {
    if (parts_.history.CanRedo()) {
        const HistoryStep step = parts_.history.TakeRedo();
        Apply(step, false);
        parts_.actions.Redone(step.cells);
        TellOutcome("redone", step.cells.size(), step.tracks.size());
    }
}

void ValueEntry::Apply(const HistoryStep& step, bool backwards) {
    if (!step.tracks.empty()) {
        parts_.applyTracks(step.tracks, backwards);
    }
    if (!step.cells.empty()) {
        ApplyCells(step.cells, backwards);
    }
}

void ValueEntry::ApplyCells(const UndoStep& changes, bool backwards) {
    const std::uint64_t history = parts_.history.Generation();
    std::vector<bool> failed(changes.size(), true);
    const bool withFixed = std::any_of(changes.begin(), changes.end(),
                                       [](const CellChange& change) { return !IsPlanningCell(change.cell); });
    RunBulk(changes.size(), withFixed, [&](Transaction& transaction) {
        for (std::size_t i = 0; i < changes.size(); ++i) {
            const std::size_t place = backwards ? changes.size() - 1 - i : i;
            const CellChange& change = changes[place];
            failed[place] =
                !ChangeOne(transaction, change.cell, ShownIn(change.cell), backwards ? change.before : change.after);
        }
        FollowChanges(transaction);
        const bool anyFailed = std::find(failed.begin(), failed.end(), true) != failed.end();
        if (anyFailed && parts_.history.Generation() == history) {
            parts_.history.PutBack(failed);
        }
        GoTo(changes);
    });
}

/// Makes the first of the changed cells the current one, and selects them all where they form a block.
void ValueEntry::GoTo(const UndoStep& changes) {
    GridControl& grid = parts_.driver.Grid();
    std::optional<Cell> first;
    std::optional<Cell> last;
    std::size_t shown = 0;
    for (const CellChange& change : changes) {
        const std::optional<Cell> cell = grid.FindCell(change.cell);
        if (!cell || grid.Column(cell->column).hidden || grid.Row(cell->row).hidden) {
            continue;
        }
        ++shown;
        const auto comesBefore = [&](Cell left, Cell right) {
            return grid.OrderOf(left.row) != grid.OrderOf(right.row)
                       ? grid.OrderOf(left.row) < grid.OrderOf(right.row)
                       : grid.OrderOf(left.column) < grid.OrderOf(right.column);
        };
        first = !first || comesBefore(*cell, *first) ? cell : first;
        last = !last || comesBefore(*last, *cell) ? cell : last;
    }
    if (!first) {
        return;
    }
    grid.SelectCell(*first, SelectionMode::Replace);
    if (*first != *last) {
        grid.SelectCell(*last, SelectionMode::Extend);
        if (CellsOfSelection(grid, HiddenCells::LeftOut).size() != shown) {
            grid.SelectCell(*first, SelectionMode::Replace);
        }
    }
}

ValueEntry::Announce ValueEntry::AnnounceFor(std::size_t count) const {
    return count == 1 || parts_.settings.singleValue != 0 ? Announce::EachValue : Announce::Silently;
}

/// A rebuild within the action that has lost columns or rows ends the history: the cells of the action are no longer
/// known to be those that it changed.
ValueEntry::Done ValueEntry::Record(Transaction& transaction) {
    Done done;
    if (parts_.actions.Listening()) {
        done.changes = transaction.step;
    }
    done.undoable = parts_.history.Generation() == transaction.history;
    if (done.undoable) {
        parts_.history.Record(std::move(transaction.step));
    } else {
        parts_.history.Clear();
    }
    return done;
}

void ValueEntry::TellOutcome(std::string_view done, std::size_t cells, std::size_t tracks) const noexcept {
    ResumeNext([&] {
        if (parts_.tellOutcome) {
            std::string what = tracks > 0 ? Counted(tracks, "change") + " of columns or rows" : Counted(cells, "cell");
            parts_.tellOutcome(what.append(" ").append(done));
        }
    });
}

void ValueEntry::DrawChart() noexcept {
    ErrorTrap("CHART", "ContentsChanged", parts_.chartStep);
}

/// False when the value is not in TAB.
bool ValueEntry::ChangeOne(Transaction& transaction, const CellKey& cell, const std::string& shown,
                           const Variant& value) {
    parts_.keys.column = cell.column;
    parts_.keys.row = cell.row;
    if (TraceEnabled) {
        TraceStep("ContentsChanged",
                  TraceText("{cid: ", cell.column, " - rid: ", cell.row, " - value: ", Shown(value), "}"));
    }
    const std::size_t before = transaction.step.size();
    const auto show = [&] { parts_.driver.Contents(cell, EnteredText(cell, value), true); };
    const std::optional<CaughtError> error = CaughtErrorOf([&] {
        TakeOver(transaction, cell, shown, value);
        show();
    });
    Failures& failures = transaction.failures;
    if (error && transaction.step.size() == before) {
        ShowHeld(transaction, cell, shown);
        failures.Add(failures.notStored, *error);
        return false;
    }
    if (error) {
        ResumeNext(show);
        failures.Add(failures.withoutOldValue, *error);
    }
    transaction.changed = true;
    return true;
}

void ValueEntry::TakeOver(Transaction& transaction, CellKeyView keys, const std::string& shown, const Variant& value) {
    const KeyPositions at = transaction.lookup.PositionsOf(keys);
    const auto isFixed = [](std::string_view key) { return key.starts_with("F"); };
    const bool fixed = isFixed(keys.column) || isFixed(keys.row);
    if (!at.planning && !fixed) {
        return;
    }
    // Which fixed cell it was and what it holds now stands in no table.
    if (transaction.announce == Announce::EachValue || fixed) {
        if (TraceEnabled) {
            TraceStep("ValueChanged fired",
                      TraceText("{cid: ", keys.column, " - rid: ", keys.row, " - value: ", Shown(value), "}"));
        }
        const std::array<Variant, 5> arguments{at.column, keys.column, at.row, keys.row, value};
        parts_.events.Raise(EventId::GridValueChanged, arguments);
    }
    const Variant before = StoreInTab(transaction.tab, at, value);
    transaction.step.push_back(
        {{std::string(keys.column), std::string(keys.row)}, fixed ? Variant(shown) : before, value});
    KeepInTabOld(transaction.tabOld, at, before);
}

/// Returns what TAB held before.
Variant ValueEntry::StoreInTab(CellTable& tab, const KeyPositions& at, const Variant& value) {
    const HostTable::Row row = tab.Find(at.row, at.column);
    if (row == 0) {
        TraceStep("ContentsChanged", "{TAB: no entry found}");
        tab.Add(at.row, at.column, value);
        return {};
    }
    Variant before = tab.Value(row);
    if (TraceEnabled) {
        TraceStep("ContentsChanged", TraceText("{TAB: entry found - oldvalue:", Shown(before), "}"));
    }
    tab.SetValue(row, value);
    return before;
}

/// A cell's first value stays in TAB_OLD until the host clears it.
void ValueEntry::KeepInTabOld(CellTable& tabOld, const KeyPositions& at, const Variant& before) {
    const HostTable::Row row = tabOld.Find(at.row, at.column);
    if (row == 0) {
        TraceStep("ContentsChanged", "{TAB_OLD: no entry found}");
        tabOld.Add(at.row, at.column, before);
    } else if (TraceEnabled) {
        TraceStep("ContentsChanged", TraceText("{TAB_OLD: entry found - oldvalue:", Shown(tabOld.Value(row)), "}"));
    }
}

void ValueEntry::Tell(const Failures& failures) noexcept {
    if (failures.error.text.empty()) {
        return;
    }
    TraceError("GRIDCTL", "ContentsChanged", failures.error);
    ResumeNext([&] {
        std::string text;
        if (failures.notStored == 1) {
            text = "The value could not be stored; the cell shows again what the table holds.\n";
        } else if (failures.notStored > 1) {
            text = std::to_string(failures.notStored) +
                   " values could not be stored; their cells show again what the table holds.\n";
        }
        if (failures.withoutOldValue > 0) {
            text +=
                "What a cell held before could not be kept; the new value is stored, but not as a pending change.\n";
        }
        parts_.messageBoxes.Show(
            {text + failures.error.text, "Grid", MessageButtons::Ok, MessageIcon::Exclamation, MessageAnswer::Ok});
    });
}

std::string ValueEntry::ShownIn(const CellKey& cell) const {
    const std::optional<Cell> found = parts_.driver.Grid().FindCell(cell);
    return found ? parts_.driver.Grid().Contents(*found) : std::string();
}

/// Has a cell whose value could not be stored show what TAB holds. A fixed cell, which TAB does not keep, and one of a
/// TAB that cannot be read show what they showed before.
void ValueEntry::ShowHeld(Transaction& transaction, const CellKey& cell, const std::string& shown) noexcept {
    ResumeNext([&] {
        std::string text = shown;
        const std::optional<std::string> unreadable = ErrorTextOf([&] {
            if (IsPlanningCell(cell)) {
                const HostTable::Row row =
                    transaction.tab.Find(modGrid::PositionOf(cell.row), modGrid::PositionOf(cell.column));
                text = row == 0 ? std::string() : CellText(transaction.tab.Value(row));
            }
        });
        if (!unreadable || ShownIn(cell) != shown) {
            parts_.driver.Contents(cell, text, true);
        }
    });
}

}  // namespace planview
