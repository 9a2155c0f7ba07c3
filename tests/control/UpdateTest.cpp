// SPDX-License-Identifier: MIT
#include <memory>

#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

// What a host asks of the grid, and parts of it that are read again.

namespace planview {

using test::AddRow;
using test::Lines;

namespace {

class UpdateTest : public test::TracedTest {
protected:
    UpdateTest() : control(std::make_unique<PlanView>(platform.Interfaces())) {
        for (int i = 1; i <= 3; ++i) {
            tables.AddColumn(i, ("P" + std::to_string(i)).c_str());
            tables.AddLine(i, ("Line " + std::to_string(i)).c_str());
            for (int line = 1; line <= 3; ++line) {
                tables.AddValue(line, i, line * 10 + i);
            }
        }
        AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}});
        AddRow(*tables.fixedTab,
               {{"COLUMN", 1}, {"FLG_COL_FIX", "R"}, {"LINE", 2}, {"FLG_LINE_FIX", ""}, {"VALUE", "66"}});
        tables.GiveTo(*control);
        control->DP_Import_Create();
        ForgetEntries();
    }

    [[nodiscard]] GridControl& Grid() { return ControlParts(*control).Grid(); }
    [[nodiscard]] planview::View View() { return control->View(); }
    [[nodiscard]] Cell At(const char* column, const char* row) { return Grid().FindCell({column, row}).value(); }
    [[nodiscard]] std::string Shown() {
        std::string text;
        for (const RowId row : Grid().Rows(RowArea::Center)) {
            text += text.empty() ? "" : " | ";
            for (const ColumnId column : Grid().Columns(ColumnArea::Center)) {
                text += "[" + Grid().Contents({column, row}) + "]";
            }
        }
        return text;
    }
    /// Everything in the tables is another value now.
    void ChangeTables() {
        for (std::int32_t row = 1; row <= tables.tab->RowCount(); ++row) {
            tables.tab->SetValue(row, "V", 5);
        }
        tables.fixedTab->SetValue(1, "VALUE", "77");
        tables.fixedTab->SetValue(1, "BGCOLOR", 2);
        tables.colsIndex->SetValue(2, "PERDY", "Feb");
        tables.colsIndex->SetValue(2, "COL_WIDTH", 44);
        tables.lineIndex->SetValue(2, "FREET", "Renamed");
        tables.lineIndex->SetValue(2, "ROW_FORMAT", "#,##0.00");
    }

    std::unique_ptr<PlanView> control;
    test::Tables tables;
};

}  // namespace

TEST_F(UpdateTest, ExactlyWhatIsNamedIsReadAgain) {
    const std::string untouched = "[11][12][13] | [21][22][23] | [31][32][33]";
    ASSERT_EQ(Shown(), untouched);
    ChangeTables();
    const CellKey cells[] = {{"COL1", "ROW1"}, {"COL9", "ROW1"}, {"", ""}, {"FRC1", "ROW2"}};
    View().UpdateCells(cells);
    EXPECT_EQ(Shown(), "[5][12][13] | [21][22][23] | [31][32][33]");
    EXPECT_EQ(View().TextOf({"FRC1", "ROW2"}), "77");
    EXPECT_EQ(View().TextOf({"COL2", "FTR0"}), "P2");
    const std::string columns[] = {"COL2", "COL77"};
    View().UpdateColumns(columns);
    EXPECT_EQ(Shown(), "[5][5][13] | [21][5][23] | [31][5][33]");
    EXPECT_EQ(View().TextOf({"COL2", "FTR0"}), "Feb");
    EXPECT_EQ(Grid().Column(Grid().FindColumn("COL2").value()).width, 44);
    EXPECT_EQ(View().TextOf({"FLC0", "ROW2"}), "Line 2");
    const std::string rows[] = {"ROW2"};
    View().UpdateRows(rows);
    EXPECT_EQ(Shown(), "[5][5][13] | [5][5][5] | [31][5][33]");
    EXPECT_EQ(View().TextOf({"FLC0", "ROW2"}), "Renamed");
    EXPECT_EQ(View().TextOf({"COL1", "ROW2"}), "5,00");
    control->DP_Import_Create();
    const std::string all = Shown();
    const std::string every[] = {"ROW1", "ROW2", "ROW3"};
    View().UpdateRows(every);
    EXPECT_EQ(Shown(), all) << "as a build";
}

TEST_F(UpdateTest, WhatATableNoLongerSaysGoes) {
    AddRow(*tables.cellAttr, {{"COLUMN", 1}, {"LINE", 1}, {"BGCOLOR", 2}, {"TOOLTIP", "why"}});
    tables.lineIndex->SetValue(2, "READONLY", "X");
    const CellKey first[] = {{"COL1", "ROW1"}};
    const std::string second[] = {"ROW2"};
    const CellLook plain = Grid().Look(At("COL1", "ROW1"));
    View().UpdateCells(first);
    View().UpdateRows(second);
    EXPECT_NE(Grid().Look(At("COL1", "ROW1")).background, plain.background);
    EXPECT_EQ(Grid().Tooltip(At("COL1", "ROW1")), "why");
    EXPECT_TRUE(Grid().Look(At("COL1", "ROW2")).readOnly);
    tables.cellAttr->Clear();
    tables.lineIndex->SetValue(2, "READONLY", "");
    tables.tab->RemoveRow(1);
    View().UpdateCells(first);
    View().UpdateRows(second);
    EXPECT_EQ(Grid().Look(At("COL1", "ROW1")).background, plain.background);
    EXPECT_EQ(Grid().Tooltip(At("COL1", "ROW1")), "");
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW1")), "");
    EXPECT_FALSE(Grid().Look(At("COL1", "ROW2")).readOnly);
    EXPECT_EQ(Grid().Look(At("COL1", "ROW2")).background, Grid().Look(At("COL1", "ROW3")).background);
}

TEST_F(UpdateTest, ItIsOneChangeAndLeavesTheUserWhereHeIs) {
    struct Changes final : GridWatcher {
        int changes = 0;
        void GridChanged(const GridChange&) override { ++changes; }
    } watcher;
    Grid().EnterText(At("COL1", "ROW1"), "1");
    Grid().SelectCell(At("COL1", "ROW2"), SelectionMode::Replace);
    Grid().SelectCell(At("COL2", "ROW3"), SelectionMode::Extend);
    Grid().ScrollToRow(Grid().FindRow("ROW2").value());
    const GridViewState before = Grid().ViewState();
    ChangeTables();
    Grid().SetWatcher(&watcher);
    const std::string rows[] = {"ROW1", "ROW2", "ROW3", "FTR0"};
    View().UpdateRows(rows);
    Grid().SetWatcher(nullptr);
    EXPECT_EQ(watcher.changes, 1);
    const GridViewState after = Grid().ViewState();
    EXPECT_EQ(after.firstRow, before.firstRow);
    EXPECT_EQ(after.current, before.current);
    EXPECT_EQ(after.blocks, before.blocks);
    EXPECT_EQ(after.blockEnd, before.blockEnd);
    control->Editing().Undo();
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW1")), "11") << "the history goes on";
}

TEST_F(UpdateTest, AHostMayCallItInsideItsEvents) {
    struct Host final : EventSink {
        PlanView* view = nullptr;
        test::TableRef tab;
        void OnEvent(EventId event, std::span<const Variant>) override {
            if (event == EventId::GridValueChanged || event == EventId::GridStartUpdate) {
                tab->SetValue(9, "V", 100);  // a total
                const CellKey total[] = {{"COL3", "ROW3"}};
                const std::string column[] = {"COL3"};
                view->View().UpdateCells(total);
                view->View().UpdateColumns(column);
            }
        }
    } host;
    host.view = control.get();
    host.tab = tables.tab;
    control->AddSink(host);
    Grid().EnterText(At("COL1", "ROW1"), "1");
    EXPECT_EQ(Shown(), "[1][12][13] | [21][22][23] | [31][32][100]");
    const ValueChange changes[] = {{{"COL1", "ROW2"}, 2}, {{"COL2", "ROW2"}, 3}};
    EXPECT_EQ(control->Editing().ChangeValues(changes, "two").changed, 2);
    EXPECT_EQ(Shown(), "[1][12][13] | [2][3][23] | [31][32][100]");
    control->Editing().Undo();
    EXPECT_EQ(Shown(), "[1][12][13] | [21][22][23] | [31][32][100]");
    control->RemoveSink(host);
}

TEST_F(UpdateTest, WhatCannotBeReadStaysAsItWas) {
    ExpectErrors();
    tables.tab->SetValue(9, "V", "n/a");
    tables.tab->SetValue(1, "V", 5);
    const std::string rows[] = {"ROW1", "ROW3"};
    View().UpdateRows(rows);
    EXPECT_EQ(Shown(), "[11][12][13] | [21][22][23] | [31][32][33]");
}

TEST_F(UpdateTest, AHostAsksForTextsValuesAndSelectedCells) {
    tables.lineIndex->SetValue(1, "ROW_FORMAT", "#,##0.0 \"EUR\"");
    tables.tab->SetValue(1, "V", 1234.5);
    tables.AddLine(4, "Empty");
    tables.colsIndex->SetValue(2, "COL_HIDDEN", "X");
    control->DP_Import_Create();
    EXPECT_EQ(View().TextOf({"COL1", "ROW1"}), "1.234,5 EUR");
    EXPECT_EQ(View().ValueOf({"COL1", "ROW1"}), Variant(1234.5));
    EXPECT_EQ(View().ValueOf({"FLC0", "ROW1"}), Variant("Line 1"));
    EXPECT_EQ(View().ValueOf({"COL1", "ROW4"}), Variant());
    EXPECT_EQ(View().ValueOf({"COL1", "ROW99"}), Variant());
    EXPECT_EQ(View().SelectedCells(), (std::vector<CellKey>{{"COL1", "ROW1"}}));
    Grid().SelectCell(At("COL1", "ROW2"), SelectionMode::Replace);
    Grid().SelectCell(At("COL3", "ROW3"), SelectionMode::Extend);
    EXPECT_EQ(View().CurrentCell(), (CellKey{"COL1", "ROW2"}));
    EXPECT_EQ(View().SelectedCells(),
              (std::vector<CellKey>{{"COL1", "ROW2"}, {"COL3", "ROW2"}, {"COL1", "ROW3"}, {"COL3", "ROW3"}}));
    const planview::View kept = View();
    control.reset();
    EXPECT_EQ(kept.TextOf({"COL1", "ROW1"}), "");
    EXPECT_TRUE(kept.SelectedCells().empty());
    EXPECT_FALSE(kept.CurrentCell());
}

}  // namespace planview
