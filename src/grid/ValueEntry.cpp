#include "grid/ValueEntry.h"

#include <array>

#include "automation/Numbers.h"
#include "grid/BusyScope.h"
#include "grid/CellText.h"
#include "grid/LoaderSupport.h"
#include "grid/modGrid.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

/// From this many cells on an index over TAB is built faster than the table is walked for each.
constexpr std::size_t IndexedFrom = 4;

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

/// Holds the grid's repaint back until the outermost change ends.
class RedrawHeld {
public:
    explicit RedrawHeld(GridControl& grid) : grid_(grid), wasOn_(grid.RedrawOn()) { grid_.SetRedraw(false); }
    ~RedrawHeld() {
        if (wasOn_) {
            grid_.SetRedraw(true);
            grid_.Redraw();
        }
    }
    RedrawHeld(const RedrawHeld&) = delete;
    RedrawHeld& operator=(const RedrawHeld&) = delete;

private:
    GridControl& grid_;
    bool wasOn_;
};

}  // namespace

/// What one user action needs of the tables, held for its length.
class ValueEntry::Transaction {
public:
    Transaction(const TableSlots& tables, std::size_t cells, Announce announce)
        : tab(tables.TAB, LookupFor(cells, announce)),
          tabOld(tables.TAB_OLD, LookupFor(cells, announce)),
          lookup(tables) {
        step.reserve(cells);
    }

    CellTable tab;
    CellTable tabOld;
    KeyLookup lookup;
    UndoStep step;

private:
    static CellTable::Lookup LookupFor(std::size_t cells, Announce announce) noexcept {
        using Lookup = CellTable::Lookup;
        return cells < IndexedFrom              ? Lookup::Walk
               : announce == Announce::Silently ? Lookup::Indexed
                                                : Lookup::IndexedWatched;
    }
};

/// Brackets the events of an action that announces several values, also when it fails half-way.
class ValueEntry::BulkAnnouncement {
public:
    BulkAnnouncement(const ValueEntryParts& parts, Announce announce, std::size_t count)
        : parts_(parts), running_(announce == Announce::EachValue && count > 1) {
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

void ValueEntry::ContentsChanged(CellKeyView keys, const std::string& text) {
    const CellKey cell{std::string(keys.column), std::string(keys.row)};
    const BusyScope busy(parts_.busy);
    Transaction transaction(parts_.tables, 1, Announce::EachValue);
    ChangeOne(transaction, cell, text, Announce::EachValue);
    parts_.history.Record(std::move(transaction.step));
    parts_.chartStep();
}

BulkResult ValueEntry::ChangeCells(std::span<const NewValue> values) {
    BulkResult result;
    const Announce announce = AnnounceFor(values.size());
    const BulkAnnouncement bulk(parts_, announce, values.size());
    const BusyScope busy(parts_.busy);
    const RedrawHeld held(parts_.grid);
    Transaction transaction(parts_.tables, values.size(), announce);
    for (const NewValue& next : values) {
        const std::string* text = next.value.TextIf();
        const Refusal refusal = text ? RefusalOf(parts_.grid, next.cell, *text) : RefusalOf(parts_.grid, next.cell);
        const CellKey key = parts_.grid.KeyOf(next.cell);
        if (refusal == Refusal::None) {
            ChangeOne(transaction, key, next.value, announce);
            ++result.changed;
            continue;
        }
        ++(refusal == Refusal::NoNumber ? result.noNumber : result.readOnly);
        if (!result.firstRefused) {
            result.firstRefused = key;
        }
    }
    parts_.history.Record(std::move(transaction.step));
    if (result.changed > 0) {
        parts_.chartStep();
        if (announce == Announce::Silently) {
            parts_.hostUpdate.StartUpdate();
        }
    }
    return result;
}

void ValueEntry::Undo() {
    if (parts_.history.CanUndo()) {
        Apply(parts_.history.TakeUndo(), true);
    }
}

void ValueEntry::Redo() {
    if (parts_.history.CanRedo()) {
        Apply(parts_.history.TakeRedo(), false);
    }
}

void ValueEntry::Apply(const UndoStep& step, bool backwards) {
    const UndoStep changes = step;  // the host may end the history from inside an event
    const Announce announce = AnnounceFor(changes.size());
    const BulkAnnouncement bulk(parts_, announce, changes.size());
    const BusyScope busy(parts_.busy);
    const RedrawHeld held(parts_.grid);
    Transaction transaction(parts_.tables, changes.size(), announce);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const CellChange& change = changes[backwards ? changes.size() - 1 - i : i];
        ChangeOne(transaction, change.cell, backwards ? change.before : change.after, announce);
    }
    parts_.chartStep();
    if (announce == Announce::Silently) {
        parts_.hostUpdate.StartUpdate();
    }
}

ValueEntry::Announce ValueEntry::AnnounceFor(std::size_t count) const {
    return count == 1 || parts_.settings.singleValue != 0 ? Announce::EachValue : Announce::Silently;
}

void ValueEntry::ChangeOne(Transaction& transaction, const CellKey& cell, const Variant& value, Announce announce) {
    parts_.keys.column = cell.column;
    parts_.keys.row = cell.row;
    std::string parameter;
    if (TraceEnabled) {
        parameter = TraceText("{cid: ", cell.column, " - rid: ", cell.row, " - value: ", Shown(value), "}").Text();
        TraceStep("ContentsChanged", parameter);
    }
    std::optional<CellChange> change;
    const std::optional<std::string> error = ErrorTextOf([&] {
        change = TakeOver(transaction, cell, value, announce);
        modGrid::Contents(parts_.grid, cell, EnteredText(cell, value), true);
    });
    if (error) {
        ShowWhatTabHolds(cell);
        TellNotStored(*error);
        throw AutomationError(AutomationErrorCode::Failed, *error);
    }
    if (change) {
        transaction.step.push_back(std::move(*change));
    }
}

std::optional<CellChange> ValueEntry::TakeOver(Transaction& transaction, CellKeyView keys, const Variant& value,
                                               Announce announce) {
    const KeyPositions at = transaction.lookup.PositionsOf(keys);
    const auto isFixed = [](std::string_view key) { return key.starts_with("F"); };
    if (!at.planning && !isFixed(keys.column) && !isFixed(keys.row)) {
        return std::nullopt;
    }
    if (announce == Announce::EachValue) {
        if (TraceEnabled) {
            TraceStep("ValueChanged fired",
                      TraceText("{cid: ", keys.column, " - rid: ", keys.row, " - value: ", Shown(value), "}"));
        }
        const std::array<Variant, 5> arguments{at.column, keys.column, at.row, keys.row, value};
        parts_.events.Raise(EventId::GridValueChanged, arguments);
    }
    CellChange change{{std::string(keys.column), std::string(keys.row)}, {}, value};
    change.before = StoreInTab(transaction.tab, at, value);
    KeepInTabOld(transaction.tabOld, at, change.before);
    return change;
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

void ValueEntry::TellNotStored(const std::string& error) noexcept {
    ResumeNext([&] {
        parts_.messageBoxes.Show({"The value could not be stored; the cell shows again what the table holds.\n" + error,
                                  "Grid", MessageButtons::Ok, MessageIcon::Exclamation, MessageAnswer::Ok});
    });
}

void ValueEntry::ShowWhatTabHolds(const CellKey& cell) noexcept {
    ResumeNext([&] {
        CellTable tab(parts_.tables.TAB, CellTable::Lookup::Walk);
        const HostTable::Row row = tab.Find(modGrid::PositionOf(cell.row), modGrid::PositionOf(cell.column));
        modGrid::Contents(parts_.grid, cell, row == 0 ? std::string() : CellText(tab.Value(row)), true);
    });
}

}  // namespace planview
