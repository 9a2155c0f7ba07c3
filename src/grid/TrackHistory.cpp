// SPDX-License-Identifier: MIT
#include "grid/TrackHistory.h"

#include <array>
#include <map>
#include <span>
#include <unordered_map>
#include <utility>

#include "grid/LoaderSupport.h"
#include "grid/LockedLine.h"
#include "grid/TrackOrder.h"
#include "trace/ErrorTrap.h"

namespace planview {

namespace {

/// A field that the user's commands change, and the operation that shows it.
struct TrackField {
    std::string_view name;
    void (*show)(modGrid& driver, CellKeyView keys, const HostTable& table, HostTable::Row row);
};

using Shown = modGrid&;

/// Stands for a field in the change of a place on the screen, of which a table need not know.
constexpr std::string_view PlaceOnScreen;

constexpr std::array ColumnFields = {
    TrackField{"COL_HIDDEN",
               [](Shown driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
                   driver.CenterHidden(keys, table.Flag(row, "COL_HIDDEN"), NoRedraw);
               }},
    TrackField{"COL_WIDTH",
               [](Shown driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
                   driver.ColumnWidth(keys.column, table.Int16(row, "COL_WIDTH"), NoRedraw);
               }},
    TrackField{"COL_HEIGHT",
               [](Shown driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
                   driver.ColumnHeight(keys.column, table.Int16(row, "COL_HEIGHT"), NoRedraw);
               }},
};

void ShowColor(modGrid& driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
    driver.CenterBgColor(keys, table.Int16(row, "ROW_BG"), NoRedraw);
    driver.CenterFgColor(keys, table.Int16(row, "ROW_FG"), NoRedraw);
    if (IsLockedLine(table, row)) {
        ShowLocked(driver, keys);
    }
}

constexpr std::array RowFields = {
    TrackField{"ROW_HIDDEN",
               [](Shown driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
                   driver.CenterHidden(keys, table.Flag(row, "ROW_HIDDEN"), NoRedraw);
               }},
    TrackField{"ROW_WIDTH",
               [](Shown driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
                   driver.RowWidth(keys.row, table.Int16(row, "ROW_WIDTH"), NoRedraw);
               }},
    TrackField{"ROW_HEIGHT",
               [](Shown driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
                   driver.RowHeight(keys.row, table.Int16(row, "ROW_HEIGHT"), NoRedraw);
               }},
    TrackField{"ROW_BG", ShowColor},
    TrackField{"ROW_FG", ShowColor},
    TrackField{"RELIEF", [](Shown driver, CellKeyView keys, const HostTable& table,
                            HostTable::Row row) { driver.CenterRelief(keys, table.Flag(row, "RELIEF"), NoRedraw); }},
    TrackField{"ROW_ALIGN",
               [](Shown driver, CellKeyView keys, const HostTable& table, HostTable::Row row) {
                   driver.CenterAlignment(keys, table.Int16(row, "ROW_ALIGN"), NoRedraw);
               }},
    TrackField{"ROW_FONT", [](Shown driver, CellKeyView keys, const HostTable& table,
                              HostTable::Row row) { driver.CenterFont(keys, table.Text(row, "ROW_FONT"), NoRedraw); }},
    TrackField{"SHOW_CHART", [](Shown, CellKeyView, const HostTable&, HostTable::Row) {}},
};

std::span<const TrackField> FieldsOf(const IndexAxis& axis) noexcept {
    return axis.columns ? std::span<const TrackField>(ColumnFields) : std::span<const TrackField>(RowFields);
}

}  // namespace

// --- What a command changes

TrackHistory::Watch::Watch(TrackHistory& owner)
    : owner_(owner),
      history_(owner.parts_.history.Generation()),
      columns_(Read(owner.TableOf(ColumnAxis), ColumnAxis)),
      rows_(Read(owner.TableOf(RowAxis), RowAxis)) {}

/// The fields that the table has, as they are now.
TrackHistory::Watch::Fields TrackHistory::Watch::Read(const HostTable& table, const IndexAxis& axis) {
    Fields fields{&axis, {}, {}};
    ResumeNext([&] {
        const HostTable held = table;
        const int count = held.RowCount();
        for (const TrackField& field : FieldsOf(axis)) {
            if (count > 0 && !ErrorTextOf([&] { static_cast<void>(held.Value(1, field.name)); })) {
                fields.names.push_back(field.name);
            }
        }
        ForEachRow(held, [&](HostTable::Row i) {
            Track track{held.Text(i, "GRID_ID"), {}};
            for (const std::string_view name : fields.names) {
                track.values.push_back(held.Value(i, name));
            }
            fields.tracks.push_back(std::move(track));
        });
    });
    return fields;
}

void TrackHistory::Watch::Compare(const Fields& before, const HostTable& table, TrackStep& step) {
    const Fields after = Read(table, *before.axis);
    if (after.names != before.names || after.tracks.size() != before.tracks.size()) {
        return;
    }
    for (std::size_t i = 0; i < after.tracks.size(); ++i) {
        const Track& was = before.tracks[i];
        const Track& is = after.tracks[i];
        for (std::size_t f = 0; f < after.names.size() && is.key == was.key; ++f) {
            if (was.values[f].AsText() != is.values[f].AsText()) {
                step.push_back({before.axis, is.key, after.names[f], was.values[f], is.values[f]});
            }
        }
    }
}

void TrackHistory::Watch::Keep(bool recorded) {
    if (owner_.parts_.history.Generation() != history_) {
        return;
    }
    TrackStep step;
    // What cannot be compared cannot be taken back; it is done all the same.
    ResumeNext([&] { Compare(columns_, owner_.TableOf(ColumnAxis), step); },
               [&] { Compare(rows_, owner_.TableOf(RowAxis), step); });
    owner_.Record(std::move(step), recorded);
}

void TrackHistory::Record(TrackStep step, bool recorded) {
    if (!step.empty()) {
        parts_.history.Record(std::move(step));
        parts_.actions.TracksChanged(recorded);
    }
}

// --- Moving

void TrackHistory::Moved(const IndexAxis& axis, const std::vector<std::string>& before) {
    const GridControl& grid = parts_.driver.Grid();
    std::unordered_map<std::string, int> places;
    for (std::string& key : OrderedKeys(grid, axis)) {
        const int place = static_cast<int>(places.size()) + 1;
        places.emplace(std::move(key), place);
    }
    TrackStep step;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const auto place = places.find(before[i]);
        const int was = static_cast<int>(i) + 1;
        if (place != places.end() && place->second != was) {
            step.push_back({&axis, before[i], PlaceOnScreen, Variant(was), Variant(place->second)});
        }
    }
    if (step.empty()) {
        return;
    }
    const HostTable table = TableOf(axis);
    bool kept = false;
    ErrorTrap("GRIDCTL", axis.orderField, [&] {
        const std::vector<KeptPlace> were = KeptOrder(axis, table);
        kept = KeepOrder(grid, axis, table);
        const std::vector<KeptPlace> are = KeptOrder(axis, table);
        for (std::size_t i = 0; i < are.size() && i < were.size(); ++i) {
            step.push_back({&axis, are[i].key, axis.orderField, were[i].place, are[i].place});
        }
    });
    Record(std::move(step), false);
    if (kept) {
        parts_.hostUpdate.StartUpdate();
    }
}

// --- Undo and redo

void TrackHistory::Apply(const TrackStep& step, bool backwards) {
    {
        const modGrid::RedrawAtEnd redraw(parts_.driver, modGrid::Entries::None);
        for (const IndexAxis* axis : {&ColumnAxis, &RowAxis}) {
            const HostTable table = TableOf(*axis);
            std::unordered_map<std::string, HostTable::Row> rows;
            ErrorTrap("GRIDCTL", "Undo",
                      [&] { ForEachRow(table, [&](HostTable::Row i) { rows.emplace(table.Text(i, "GRID_ID"), i); }); });
            for (const TrackChange& change : step) {
                const auto row = rows.find(change.key);
                if (change.axis == axis && change.field != PlaceOnScreen && row != rows.end()) {
                    ErrorTrap("GRIDCTL", change.field, [&] {
                        ApplyField(table, row->second, change, backwards ? change.before : change.after);
                    });
                }
            }
            ApplyOrder(*axis, step, backwards);
        }
    }
    ErrorTrap("CHART", "Undo", parts_.chartStep);
    parts_.hostUpdate.StartUpdate();
}

void TrackHistory::ApplyField(const HostTable& table, HostTable::Row row, const TrackChange& change,
                              const Variant& value) {
    table.Put(row, change.field, value);
    for (const TrackField& field : FieldsOf(*change.axis)) {
        if (field.name == change.field) {
            field.show(parts_.driver, change.axis->KeysOf(change.key), table, row);
        }
    }
}

void TrackHistory::ApplyOrder(const IndexAxis& axis, const TrackStep& step, bool backwards) {
    GridControl& grid = parts_.driver.Grid();
    std::map<std::int32_t, std::string> moved;  // by the place that each is to have
    for (const TrackChange& change : step) {
        if (change.axis == &axis && change.field == PlaceOnScreen) {
            moved.emplace((backwards ? change.before : change.after).AsInt32(), change.key);
        }
    }
    // A build may have brought others meanwhile, or dropped some of them.
    std::vector<std::string> keys;
    for (auto& [place, key] : moved) {
        keys.push_back(std::move(key));
    }
    if (!moved.empty()) {
        const GridViewState seen = grid.ViewState();
        ArrangeAmong(grid, axis, keys);
        grid.SetFirstColumn(seen.firstColumn, NoRedraw);
        grid.SetFirstRow(seen.firstRow, NoRedraw);
    }
}

}  // namespace planview
