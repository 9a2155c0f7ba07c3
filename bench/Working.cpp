// SPDX-License-Identifier: MIT
// A user at work in a full table: one edit, a large paste, hiding many rows, a value typed into a grid on the screen.

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>
#include <QTableWidget>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include <planview/PlanView.h>
#include <planview/qt/PlanViewWidget.h>

#include "BenchTables.h"
#include "PaintCounter.h"
#include "Peers.h"
#include "automation/HostTable.h"
#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "qt/grid/GridView.h"
#include "support/ScriptedPlatform.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;
constexpr std::int32_t FullTable = 32767;
constexpr int BlockSide = 100;
constexpr QSize WindowSize(1280, 800);

Cell CellAt(GridControl& grid, int row, int column) {
    return grid.FindCell({"COL" + std::to_string(column), "ROW" + std::to_string(row)}).value();
}

/// A TAB of 32,767 rows of which the last one is the cell in the lower right corner.
test::Tables FullTables() {
    test::Tables tables = MakeTables(Plan(Side));
    tables.tab->RemoveRow(tables.tab->RowCount());
    while (tables.tab->RowCount() < FullTable - 1) {
        tables.AddValue(0, tables.tab->RowCount(), 0);
    }
    tables.AddValue(Side, Side, 1);
    return tables;
}

void EditLastCell(benchmark::State& state) {
    const test::Tables tables = FullTables();
    test::ScriptedPlatform platform;
    PlanView control(platform.Interfaces());
    tables.GiveTo(control);
    control.DP_Import_Attribute();
    control.DP_Import_Create();
    GridControl& grid = ControlParts(control).Grid();
    const Cell cell = CellAt(grid, Side, Side);
    int count = 0;
    for ([[maybe_unused]] auto _ : state) {
        grid.EnterText(cell, std::to_string(++count) + ",5");
    }
    if (tables.tab->Value(FullTable, "V") != Variant(std::to_string(count) + ",5")) {
        state.SkipWithError("the edits did not reach the last row");
    }
}

/// What a host would do without an index: looks through TAB for the row, puts the value, keeps the old one.
void PlainEditLastCell(benchmark::State& state) {
    const test::Tables tables = FullTables();
    const HostTable tab(tables.tab);
    const HostTable old(tables.tabOld);
    int count = 0;
    for ([[maybe_unused]] auto _ : state) {
        const HostTable::Row rows = tab.RowCount();
        HostTable::Row row = 1;
        while (row < rows && (tab.Int16(row, "Z") != Side || tab.Int16(row, "C") != Side)) {
            ++row;
        }
        const Variant before = tab.Value(row, "V");
        tab.Put(row, "V", std::to_string(++count) + ",5");
        if (count == 1) {
            const HostTable::Row added = old.AddRow();
            old.Put(added, "Z", Side);
            old.Put(added, "C", Side);
            old.Put(added, "V", before);
        }
    }
    if (tables.tab->Value(FullTable, "V") != Variant(std::to_string(count) + ",5")) {
        state.SkipWithError("the edits did not reach the last row");
    }
}

/// A block of numbers as a spreadsheet puts it on the clipboard; another one for each `salt`.
std::string Block(int salt) {
    const Plan plan(Side);
    std::string text;
    for (int row = 1; row <= BlockSide; ++row) {
        for (int column = 1; column <= BlockSide; ++column) {
            text += plan.ValueText(row + salt, column) + (column < BlockSide ? '\t' : '\n');
        }
    }
    return text;
}

// --- On the screen

/// On the screen, painted. Each paste finds no old values, as after accepting changes, and writes one for each cell.
void PasteBlock(benchmark::State& state) {
    test::Tables tables = FullTables();
    test::ScriptedPlatform platform;
    PlanViewWidget widget(Platform{.clipboard = &platform});
    tables.GiveTo(widget.control());
    widget.DP_Import_Attribute();
    widget.DP_Import_Create();
    widget.resize(WindowSize);
    widget.show();
    const std::string blocks[] = {Block(0), Block(1)};
    std::size_t count = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        tables.tabOld->Clear();
        platform.onClipboard.text = blocks[++count % 2];
        widget.selectCell("COL1", "ROW1");
        QApplication::processEvents();
        state.ResumeTiming();

        widget.paste();
        QApplication::processEvents();
    }
    if (tables.tabOld->RowCount() != BlockSide * BlockSide) {
        state.SkipWithError("not every cell was pasted");
    }
}

void PeerPasteBlock(benchmark::State& state) {
    QTableWidget table;
    FillPeer(table, PeerSource(Plan(Side)));
    table.resize(WindowSize);
    table.show();
    QApplication::processEvents();
    const QString blocks[] = {QString::fromStdString(Block(0)), QString::fromStdString(Block(1))};
    std::size_t count = 0;
    for ([[maybe_unused]] auto _ : state) {
        const QStringList lines = blocks[++count % 2].split('\n', Qt::SkipEmptyParts);
        for (int row = 0; row < lines.size(); ++row) {
            const QStringList texts = lines[row].split('\t');
            for (int column = 0; column < texts.size(); ++column) {
                table.setItem(row, column, new QTableWidgetItem(texts[column]));
            }
        }
        QApplication::processEvents();
    }
}

constexpr int ManyRows = 5000;
constexpr int HideEvery = 5;
constexpr int FewColumns = 6;

/// Every fifth row is marked; all are hidden at once, which is painted, and shown again.
void HideRows(benchmark::State& state) {
    test::Tables tables;
    for (int column = 1; column <= FewColumns; ++column) {
        tables.AddColumn(column, "P", {{"COL_WIDTH", ColumnWidth}, {"COL_HEIGHT", RowHeight}});
    }
    for (int row = 1; row <= ManyRows; ++row) {
        tables.AddLine(
            row, "Line",
            {{"ROW_HEIGHT", RowHeight}, {"ROW_WIDTH", ColumnWidth}, {"ROW_MARKED", row % HideEvery == 0 ? "X" : ""}});
        for (int column = 1; column <= FewColumns; ++column) {
            tables.AddValue(row, column, row + column);
        }
    }
    PlanViewWidget widget;
    tables.GiveTo(widget.control());
    widget.DP_Import_Attribute();
    widget.DP_Import_Create();
    widget.resize(WindowSize);
    widget.show();
    QApplication::processEvents();
    for ([[maybe_unused]] auto _ : state) {
        widget.plv_MarkedRowsHide();
        QApplication::processEvents();

        state.PauseTiming();
        if (tables.lineIndex->Value(ManyRows, "ROW_HIDDEN") != Variant("X")) {
            state.SkipWithError("the last row is not hidden");
        }
        widget.plv_MarkedRowsShow();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void PeerHideRows(benchmark::State& state) {
    QTableWidget table(ManyRows, FewColumns);
    for (int row = 0; row < ManyRows; ++row) {
        for (int column = 0; column < FewColumns; ++column) {
            table.setItem(row, column, new QTableWidgetItem(QString::number(row + column)));
        }
    }
    QTableView& view = table;
    view.resize(WindowSize);
    view.show();
    QApplication::processEvents();
    for ([[maybe_unused]] auto _ : state) {
        for (int row = HideEvery - 1; row < ManyRows; row += HideEvery) {
            view.hideRow(row);
        }
        QApplication::processEvents();

        state.PauseTiming();
        for (int row = HideEvery - 1; row < ManyRows; row += HideEvery) {
            view.showRow(row);
        }
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void PressKey(Qt::Key key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(QApplication::focusWidget(), &press);
}

/// From the key that opens the editor, through the one that ends the entry, to the painted cell.
void TypeAndPaint(benchmark::State& state) {
    test::Tables tables = MakeTables(Plan(Side));
    AddFixedSides(tables, Plan(Side));
    PlanViewWidget widget;
    tables.GiveTo(widget.control());
    widget.DP_Import_Attribute();
    widget.DP_Import_Create();
    widget.resize(WindowSize);
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    QApplication::processEvents();
    widget.selectCell("COL3", "ROW1");
    GridControl& grid = ControlParts(widget.control()).Grid();
    QWidget& port = *widget.findChild<GridView*>()->viewport();
    const PaintCounter painted(port);
    int count = 0;
    for ([[maybe_unused]] auto _ : state) {
        const int digit = ++count % 10;
        PressKey(static_cast<Qt::Key>(Qt::Key_0 + digit), QString::number(digit));
        PressKey(Qt::Key_Return, "\r");
        QApplication::processEvents();

        state.PauseTiming();
        if (grid.Contents(CellAt(grid, 1, 3)) != std::to_string(digit)) {
            state.SkipWithError("the digit is not in its cell");
        }
        widget.selectCell("COL3", "ROW1");
        QApplication::processEvents();
        state.ResumeTiming();
    }
    if (painted.Count() < state.iterations()) {
        state.SkipWithError("not every value was painted");
    }
}

/// The same in Qt's own table, which opens and closes its editor by the same keys.
void PeerTypeAndPaint(benchmark::State& state) {
    QTableWidget table;
    FillPeer(table, PeerSource(Plan(Side)));
    table.resize(WindowSize);
    table.show();
    table.activateWindow();
    table.setFocus();
    QApplication::processEvents();
    table.setCurrentCell(0, 2);
    const PaintCounter painted(*table.viewport());
    int count = 0;
    for ([[maybe_unused]] auto _ : state) {
        const int digit = ++count % 10;
        PressKey(static_cast<Qt::Key>(Qt::Key_0 + digit), QString::number(digit));
        PressKey(Qt::Key_Return, "\r");
        QApplication::processEvents();

        state.PauseTiming();
        if (table.item(0, 2)->text() != QString::number(digit)) {
            state.SkipWithError("the digit is not in its cell");
        }
        table.setFocus();
        table.setCurrentCell(0, 2);
        QApplication::processEvents();
        state.ResumeTiming();
    }
    if (painted.Count() < state.iterations()) {
        state.SkipWithError("not every value was painted");
    }
}

/// As many values as TAB holds, in a grid with this many rows of 181 columns.
void SumUp(benchmark::State& state) {
    const auto rows = static_cast<int>(state.range(0));
    const Plan plan(Side);
    test::Tables tables = MakeTables(plan);
    for (int row = Side + 1; row <= rows; ++row) {
        tables.AddLine(row, "Line", {{"ROW_HEIGHT", RowHeight}, {"ROW_WIDTH", ColumnWidth}});
    }
    PlanViewWidget widget;
    tables.GiveTo(widget.control());
    widget.DP_Import_Attribute();
    widget.DP_Import_Create();
    widget.resize(WindowSize);
    widget.show();
    GridControl& grid = ControlParts(widget.control()).Grid();
    for ([[maybe_unused]] auto _ : state) {
        grid.SelectAll();
        QApplication::processEvents();
        state.PauseTiming();
        if (widget.selectedCells() != rows * Side) {
            state.SkipWithError("not everything is summed up");
        }
        grid.ClearSelection();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

/// The same in Qt's own table: all items selected, their texts read as numbers and added up.
void PeerSumUp(benchmark::State& state) {
    const auto rows = static_cast<int>(state.range(0));
    QTableWidget table;
    FillPeer(table, PeerSource(Plan(Side)));
    table.setRowCount(rows);
    table.resize(WindowSize);
    table.show();
    QApplication::processEvents();
    double expected = 0;
    for ([[maybe_unused]] auto _ : state) {
        table.selectAll();
        double sum = 0;
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < Side; ++column) {
                if (const QTableWidgetItem* item = table.item(row, column)) {
                    sum += item->text().replace(',', '.').toDouble();
                }
            }
        }
        QApplication::processEvents();

        state.PauseTiming();
        expected = expected == 0 ? sum : expected;
        if (sum == 0 || sum != expected) {
            state.SkipWithError("not everything is summed up");
        }
        table.clearSelection();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

BENCHMARK(EditLastCell)->Unit(benchmark::kMicrosecond);
BENCHMARK(PlainEditLastCell)->Unit(benchmark::kMicrosecond);
BENCHMARK(PasteBlock)->Unit(benchmark::kMicrosecond);
BENCHMARK(PeerPasteBlock)->Unit(benchmark::kMicrosecond);
BENCHMARK(HideRows)->Unit(benchmark::kMicrosecond);
BENCHMARK(PeerHideRows)->Unit(benchmark::kMicrosecond);
BENCHMARK(TypeAndPaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(PeerTypeAndPaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(SumUp)->Name("SelectAll")->Arg(Side)->Arg(ManyRows)->Unit(benchmark::kMicrosecond);
BENCHMARK(PeerSumUp)->Name("PeerSelectAll")->Arg(Side)->Arg(ManyRows)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace planview::bench
