// SPDX-License-Identifier: MIT
#include "commands/HeadingCommands.h"

#include <algorithm>
#include <vector>

#include "grid/ForecastLine.h"
#include "grid/TrackOrder.h"

namespace planview::commands {

namespace {

constexpr int WidthStep = 8;
constexpr int HeightStep = 4;

bool IsAcross(ScreenSide side) {
    return side == ScreenSide::Left || side == ScreenSide::Right;
}

/// Whether it is about columns: across the screen, unless the table is switched.
bool IsAboutColumns(const GridControl& grid, ScreenSide side) {
    return IsAcross(side) != grid.Settings().switched;
}

bool IsHidden(const GridControl& grid, const IndexAxis& axis, const std::string& key) {
    return axis.columns ? grid.Column(*grid.FindColumn(key)).hidden : grid.Row(*grid.FindRow(key)).hidden;
}

/// The keys of those that are meant: the selected ones, else that of the current cell.
std::vector<std::string> MeantKeys(const GridControl& grid, const IndexAxis& axis) {
    std::vector<std::string> meant;
    for (const std::string& key : OrderedKeys(grid, axis)) {
        if (grid.IsSelected(axis.KeysOf(key))) {
            meant.push_back(key);
        }
    }
    const std::optional<Cell> current = grid.CurrentCell();
    if (meant.empty() && current) {
        const CellKey key = grid.KeyOf(*current);
        const std::string& own = axis.columns ? key.column : key.row;
        if (own.starts_with(axis.keyPrefix)) {
            meant.push_back(own);
        }
    }
    return meant;
}

/// Each of those meant passes the visible one before it that is not meant. False when none could.
bool MoveBack(std::vector<std::string>& order, const std::vector<std::string>& meant, const GridControl& grid,
              const IndexAxis& axis) {
    const auto isMeant = [&](const std::string& key) {
        return std::find(meant.begin(), meant.end(), key) != meant.end();
    };
    bool moved = false;
    for (std::size_t i = 1; i < order.size(); ++i) {
        if (!isMeant(order[i])) {
            continue;
        }
        std::size_t before = i - 1;
        while (before > 0 && IsHidden(grid, axis, order[before]) && !isMeant(order[before])) {
            --before;
        }
        if (isMeant(order[before]) || IsHidden(grid, axis, order[before])) {
            continue;
        }
        const auto first = order.begin() + static_cast<std::ptrdiff_t>(before);
        const auto last = order.begin() + static_cast<std::ptrdiff_t>(i);
        std::rotate(first, last, last + 1);
        moved = true;
    }
    return moved;
}

/// Their order afterwards; empty where they stand at that edge already.
std::vector<std::string> OrderAfter(const GridControl& grid, ScreenSide side) {
    const IndexAxis& axis = IsAboutColumns(grid, side) ? ColumnAxis : RowAxis;
    std::vector<std::string> order = OrderedKeys(grid, axis);
    const std::vector<std::string> meant = MeantKeys(grid, axis);
    const bool onward = side == ScreenSide::Right || side == ScreenSide::Down;
    if (onward) {
        std::reverse(order.begin(), order.end());
    }
    const bool moved = MoveBack(order, meant, grid, axis);
    if (onward) {
        std::reverse(order.begin(), order.end());
    }
    return moved ? order : std::vector<std::string>();
}

}  // namespace

void MoveTracks(CommandParts& on, CommandCall& call, ScreenSide side) {
    GridControl& grid = on.Grid();
    call.done = CannotMove(CommandSituation(on, {}), side).empty();
    if (!call.done) {
        return;
    }
    const IndexAxis& axis = IsAboutColumns(grid, side) ? ColumnAxis : RowAxis;
    const std::vector<std::string> before = OrderedKeys(grid, axis);
    Arrange(grid, axis, OrderAfter(grid, side));
    grid.Redraw();
    grid.ReportMoved(axis.columns ? MovedTracks::Columns : MovedTracks::Rows, before);
}

/// As if the border of the first one had been dragged: whoever hears of that makes the other selected ones follow.
void ResizeTracks(CommandParts& on, CommandCall& call, ScreenSide side) {
    GridControl& grid = on.Grid();
    const bool columns = IsAboutColumns(grid, side);
    const std::vector<std::string> meant = MeantKeys(grid, columns ? ColumnAxis : RowAxis);
    call.done = !meant.empty();
    if (!call.done) {
        return;
    }
    const bool across = IsAcross(side);
    int size = 0;
    GridStatus status = GridStatus::Ok;
    if (columns) {
        const ColumnId column = *grid.FindColumn(meant.front());
        size = across ? grid.Column(column).width : grid.Column(column).height;
        status = grid.PressColumnBorder(column, !across);
    } else {
        const RowId row = *grid.FindRow(meant.front());
        size = across ? grid.Row(row).width : grid.Row(row).height;
        status = grid.PressRowBorder(row, across);
    }
    call.done = status == GridStatus::Ok;
    if (call.done) {
        const bool larger = side == ScreenSide::Right || side == ScreenSide::Down;
        const int step = across ? WidthStep : HeightStep;
        grid.DragBorder(std::max(LeastTrackSize, larger ? size + step : size - step));
        grid.ReleaseBorder();
    }
}

void AddToSelection(CommandParts& on, CommandCall& /*call*/) {
    GridControl& grid = on.Grid();
    grid.SetAdding(!grid.IsAdding());
    if (const std::optional<Cell> cell = grid.CurrentCell()) {
        static_cast<void>(on.tellBeside(
            *cell, grid.IsAdding() ? "Adding to the selection: arrows go about, Space selects, Escape ends."
                                   : "Selecting as usual."));
    }
}

void ChooseLine(CommandParts& on, CommandCall& call) {
    call.done = NoLineToChoose(CommandSituation(on, {})).empty();
    if (call.done) {
        planview::ChooseForecastLine(on.tables.LINE_INDEX, on.Grid().KeyOf(*on.Grid().CurrentCell()).row);
        on.chartStep();
        on.hostUpdate.StartUpdate();
    }
}

void TellAboutCell(CommandParts& on, CommandCall& /*call*/) {
    const GridControl& grid = on.Grid();
    const std::optional<Cell> cell = grid.CurrentCell();
    if (!cell) {
        return;
    }
    std::string text = grid.DisplayText(*cell);
    const std::string& tip = grid.Tooltip(*cell);
    text += !text.empty() && !tip.empty() ? "\n" + tip : tip;
    static_cast<void>(on.tellBeside(*cell, text.empty() ? "This cell is empty." : text));
}

// --- Why they cannot be run

std::string CannotMove(const CommandSituation& now, ScreenSide side) {
    const GridSettingsState& settings = now.on.Grid().Settings();
    if (!settings.moveAllowed || settings.dragDrop == 0) {
        return "In this table columns and rows cannot be moved.";
    }
    return OrderAfter(now.on.Grid(), side).empty() ? "There is no place to move to." : std::string();
}

std::string NothingToResize(const CommandSituation& now) {
    if (!now.on.Grid().Settings().resizeAllowed) {
        return "In this table sizes cannot be changed.";
    }
    return now.on.Grid().CurrentCell() ? std::string() : "There is no cell.";
}

std::string NoLineToChoose(const CommandSituation& now) {
    if (!now.on.chartCommands.IsForecastView()) {
        return "The chart does not show the forecast view.";
    }
    const std::optional<Cell> cell = now.on.Grid().CurrentCell();
    return cell && now.on.Grid().KeyOf(*cell).row.starts_with(RowAxis.keyPrefix) ? std::string()
                                                                                 : "The current cell is on no line.";
}

}  // namespace planview::commands
