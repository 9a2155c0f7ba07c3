// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "grid/SelectedCells.h"
#include "grid/modGrid.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

using test::AddRow;
using test::Lines;
using test::Tables;

namespace {

class ConstructionTest : public test::TracedTest {
protected:
    ConstructionTest() : control(platform.Interfaces()) {
        tables.AddColumn(3, "Mar");
        tables.AddColumn(7, "Jul");
        tables.AddLine(2, "Retail");
        tables.AddLine(5, "Utilities");
        tables.GiveTo(control);
    }

    void Build() {
        ForgetEntries();
        control.DP_Import_Attribute();
        control.DP_Import_Create();
    }

    [[nodiscard]] GridControl& Grid() { return ControlParts(control).Grid(); }
    [[nodiscard]] Cell At(const char* column, const char* row) {
        const std::optional<Cell> cell = Grid().FindCell({column, row});
        EXPECT_TRUE(cell) << column << "/" << row;
        return cell.value_or(Cell{});
    }
    [[nodiscard]] std::string Contents(const char* column, const char* row) { return Grid().Contents(At(column, row)); }
    [[nodiscard]] CellLook Look(const char* column, const char* row) { return Grid().Look(At(column, row)); }
    [[nodiscard]] Lines Keys(ColumnArea area) {
        Lines keys;
        for (const ColumnId id : Grid().Columns(area)) {
            keys.push_back(Grid().Column(id).key);
        }
        return keys;
    }
    [[nodiscard]] Lines Keys(RowArea area) {
        Lines keys;
        for (const RowId id : Grid().Rows(area)) {
            keys.push_back(Grid().Row(id).key);
        }
        return keys;
    }

    Tables tables;
    PlanView control;
};

}  // namespace

TEST_F(ConstructionTest, ColumnsAndRowsTakeTheirKeysFromTheTables) {
    tables.colsIndex->SetValue(1, "COL_WIDTH", 95);
    tables.colsIndex->SetValue(1, "COL_HEIGHT", 30);
    tables.colsIndex->SetValue(2, "COL_HIDDEN", "X");
    tables.colsIndex->SetValue(1, "BITMAP", "lock");
    tables.lineIndex->SetValue(1, "ROW_HEIGHT", 28);
    tables.lineIndex->SetValue(1, "ROW_WIDTH", 99);
    tables.lineIndex->SetValue(2, "ROW_HIDDEN", "X");
    Build();
    EXPECT_EQ(Keys(ColumnArea::Center), (Lines{"COL3", "COL7"}));
    EXPECT_EQ(Keys(RowArea::Center), (Lines{"ROW2", "ROW5"}));
    EXPECT_EQ(tables.colsIndex->Value(2, "GRID_ID"), Variant("COL7"));
    EXPECT_EQ(tables.lineIndex->Value(1, "GRID_ID"), Variant("ROW2"));
    EXPECT_EQ(Contents("COL7", "FTR0"), "Jul");
    EXPECT_EQ(Grid().Tooltip(At("COL7", "FTR0")), "Jul");
    EXPECT_EQ(*Look("COL3", "FTR0").bitmap, "lock");
    EXPECT_EQ(Grid().Column(*Grid().FindColumn("COL3")).width, 95);
    EXPECT_EQ(Grid().Column(*Grid().FindColumn("COL3")).height, 30);
    EXPECT_TRUE(Grid().Column(*Grid().FindColumn("COL7")).hidden);
    EXPECT_EQ(Grid().Row(*Grid().FindRow("ROW2")).height, 28);
    EXPECT_EQ(Grid().Row(*Grid().FindRow("ROW2")).width, 99);
    EXPECT_TRUE(Grid().Row(*Grid().FindRow("ROW5")).hidden);
    EXPECT_EQ(Contents("FLC0", "ROW2"), "Retail");
    EXPECT_EQ(Grid().Tooltip(At("FLC0", "ROW2")), "Retail");
}

TEST_F(ConstructionTest, SettingsReachTheGrid) {
    for (const bool forbidden : {true, false}) {
        tables.gridAttr->SetValue(1, "NOMOVE_ALLOWED", forbidden ? "X" : "");
        tables.gridAttr->SetValue(1, "NORESIZE_ALLOWED", forbidden ? "" : "X");
        tables.gridAttr->SetValue(1, "BGCOLOR", 11);
        tables.gridAttr->SetValue(1, "GRIDLINE_COLOR", 9);
        Build();
        EXPECT_EQ(Grid().Settings().moveAllowed, !forbidden);
        EXPECT_TRUE(Grid().Settings().dragDrop) << "has its own switch among the general options";
        EXPECT_EQ(Grid().Settings().resizeAllowed, forbidden);
        EXPECT_EQ(Grid().Settings().backgroundColor, 11);
        EXPECT_EQ(Grid().Settings().gridLineColor, 9);
        EXPECT_TRUE(Grid().Settings().doubleBuffering);
    }
}

TEST_F(ConstructionTest, LabelsFollowTheTextKind) {
    const struct {
        const char* kind;
        const char* label;
    } cases[] = {{"F", "free"},       {"T", "free"},      {"P", "book"},
                 {"X", "dictionary"}, {"", "dictionary"}, {"f", "dictionary"}};
    for (const auto& row : cases) {
        tables.lineIndex->SetValue(1, "LTEXT", row.kind);
        tables.lineIndex->SetValue(1, "FREET", "free");
        tables.lineIndex->SetValue(1, "PLOBT", "book");
        tables.lineIndex->SetValue(1, "DDICT", "dictionary");
        Build();
        EXPECT_EQ(Contents("FLC0", "ROW2"), row.label) << row.kind;
    }
}

TEST_F(ConstructionTest, RowAttributesHoldInTheCentreOnly) {
    tables.lineIndex->SetValue(1, "ROW_BG", 15);
    tables.lineIndex->SetValue(1, "ROW_FONT", "DejaVu Sans;14;Bold");
    tables.lineIndex->SetValue(1, "ROW_FORMAT", "#,##0.0");
    tables.lineIndex->SetValue(1, "ROW_ALIGN", 2);
    tables.lineIndex->SetValue(1, "RELIEF", "X");
    tables.lineIndex->SetValue(2, "LINETYPE", "H");
    tables.lineIndex->SetValue(2, "ROW_TEXT", "X");
    tables.AddValue(2, 3, 1234.56);
    Build();
    const CellLook look = Look("COL3", "ROW2");
    EXPECT_EQ(Grid().Colors()[static_cast<std::size_t>(look.background)].name, "tovLightYellow");
    EXPECT_EQ(look.font->size, 14);
    EXPECT_EQ(look.alignment, GridAlignment::Center);
    EXPECT_TRUE(look.relief);
    EXPECT_EQ(Grid().DisplayText(At("COL3", "ROW2")), "1.234,6");
    EXPECT_NE(Look("FLC0", "ROW2").background, look.background) << "the label is no centre cell";
    EXPECT_TRUE(Look("COL3", "ROW5").helpLine);
    EXPECT_TRUE(Look("COL3", "ROW5").textLine);
    EXPECT_FALSE(look.helpLine);
}

TEST_F(ConstructionTest, ReadOnlyLinesAreLockedInASecondPass) {
    tables.lineIndex->SetValue(1, "READONLY", "X");
    tables.lineIndex->SetValue(2, "READONLY", "X");
    tables.lineIndex->SetValue(2, "ROW_TEXT", "X");
    Build();
    EXPECT_EQ(EntriesOf("Column in the past"), Lines{"GRIDCTL |  | Column in the past | {cid:  - rid: ROW2}"})
        << "text lines have nothing to lock";
    EXPECT_EQ(EntriesOf("CenterReadOnly"),
              (Lines{"GRIDCTL |  | CenterReadOnly | {cid:  - rid: ROW2 - readonly:True - redraw:False}",
                     "GRIDCTL |  | CenterReadOnly | {cid:  - rid: ROW5 - readonly:True - redraw:False}"}));
    EXPECT_TRUE(Look("COL3", "ROW5").readOnly) << "the first pass has locked it";
    EXPECT_FALSE(Look("FLC0", "ROW5").readOnly);
    EXPECT_TRUE(Look("COL3", "ROW2").readOnly);
    EXPECT_EQ(Look("COL3", "ROW2").background, modGrid::ReadOnlyBackground);
    EXPECT_EQ(Look("COL3", "ROW2").foreground, modGrid::ReadOnlyForeground);
    EXPECT_NE(Look("COL3", "ROW5").background, modGrid::ReadOnlyBackground);
}

TEST_F(ConstructionTest, FixedColumnsAndRowsStandOnTheirSides) {
    AddRow(*tables.fixedCols, {{"COLUMN_FIX", 2}, {"FLG_POSITION", "R"}, {"READONLY", "X"}, {"COL_WIDTH", 88}});
    AddRow(*tables.fixedCols, {{"COLUMN_FIX", 2}, {"FLG_POSITION", "L"}});
    AddRow(*tables.fixedLines, {{"LINE_FIX", 1}, {"FLG_POSITION", "B"}, {"READONLY", "X"}});
    AddRow(*tables.fixedLines, {{"LINE_FIX", 4}, {"FLG_POSITION", "T"}, {"GRID_ID", "FTR4"}, {"ROW_HEIGHT", 31}});
    Build();
    EXPECT_EQ(Keys(ColumnArea::Right), Lines{"FRC2"});
    EXPECT_EQ(Keys(ColumnArea::Left), (Lines{"FLC0", "FLC2"}));
    EXPECT_EQ(Keys(RowArea::Top), (Lines{"FTR4", "FTR0"}));
    EXPECT_EQ(Keys(RowArea::Bottom), Lines{"FBR1"});
    EXPECT_EQ(tables.fixedCols->Value(1, "GRID_ID"), Variant("FRC2"));
    EXPECT_TRUE(tables.fixedLines->Value(1, "GRID_ID").IsEmpty()) << "the host's own key stays";
    EXPECT_TRUE(Look("FRC2", "ROW2").readOnly);
    EXPECT_TRUE(Look("FRC2", "ROW2").relief);
    EXPECT_EQ(Look("FRC2", "ROW2").background, modGrid::ReadOnlyBackground);
    EXPECT_FALSE(Look("FLC2", "ROW2").readOnly) << "an editable fixed column";
    EXPECT_FALSE(Grid().Column(*Grid().FindColumn("FLC2")).selectable);
    EXPECT_EQ(Grid().Column(*Grid().FindColumn("FRC2")).width, 88);
    EXPECT_EQ(Grid().Row(*Grid().FindRow("FTR4")).height, 31);
    EXPECT_TRUE(Look("COL3", "FBR1").readOnly);
}

/// The two sides stand mixed in the table; each is counted by itself, and a row of neither side makes nothing.
TEST_F(ConstructionTest, FixedColumnsAndRowsKeepTheTablesOrderOnTheirSides) {
    for (const auto& [number, side] : {std::pair(2, "R"), {5, "L"}, {1, "R"}, {3, "?"}, {4, "L"}, {7, "R"}}) {
        AddRow(*tables.fixedCols, {{"COLUMN_FIX", number}, {"FLG_POSITION", side}});
        AddRow(*tables.fixedLines, {{"LINE_FIX", number},
                                    {"FLG_POSITION", *side == 'R'   ? "B"
                                                     : *side == 'L' ? "T"
                                                                    : ""}});
    }
    Build();
    EXPECT_EQ(Keys(ColumnArea::Right), (Lines{"FRC2", "FRC1", "FRC7"}));
    EXPECT_EQ(Keys(ColumnArea::Left), (Lines{"FLC0", "FLC5", "FLC4"}));
    EXPECT_EQ(Keys(RowArea::Bottom), (Lines{"FBR2", "FBR1", "FBR7"}));
    EXPECT_EQ(Keys(RowArea::Top), (Lines{"FTR5", "FTR4", "FTR0"}));
}

TEST_F(ConstructionTest, FixedRowsOfAnUnknownSideChangeNothing) {
    for (const char* side : {"", "C", "l"}) {
        AddRow(*tables.fixedCols, {{"COLUMN_FIX", 3},
                                   {"FLG_POSITION", side},
                                   {"READONLY", "X"},
                                   {"COL_WIDTH", 99},
                                   {"COL_FORMAT", "0.00"},
                                   {"GRID_ID", "COL3"}});
        AddRow(*tables.fixedLines, {{"LINE_FIX", 2},
                                    {"FLG_POSITION", side},
                                    {"READONLY", "X"},
                                    {"ROW_HEIGHT", 99},
                                    {"ROW_FORMAT", "0.00"},
                                    {"GRID_ID", "ROW2"}});
    }
    Build();
    EXPECT_FALSE(Look("COL3", "ROW2").readOnly);
    EXPECT_FALSE(Look("COL3", "ROW2").relief);
    EXPECT_EQ(Look("COL3", "ROW2").format, nullptr);
    EXPECT_NE(Grid().Column(*Grid().FindColumn("COL3")).width, 99);
    EXPECT_NE(Grid().Row(*Grid().FindRow("ROW2")).height, 99);
    EXPECT_EQ(Grid().HeadingKind({"COL3", "FTR0"}), 19) << "it can be selected";
}

TEST_F(ConstructionTest, FixedColumnsAndRowsCarryTheirFormats) {
    AddRow(*tables.fixedCols,
           {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}, {"COL_HEIGHT", 27}, {"COL_FORMAT", "0.00"}, {"COL_ALIGN", 2}});
    AddRow(*tables.fixedLines,
           {{"LINE_FIX", 1}, {"FLG_POSITION", "B"}, {"ROW_WIDTH", 77}, {"ROW_FORMAT", "#,##0"}, {"ROW_ALIGN", 1}});
    AddRow(*tables.fixedTab, {{"COLUMN", 1}, {"FLG_COL_FIX", "R"}, {"LINE", 2}, {"VALUE", "1234,5"}});
    AddRow(*tables.fixedTab, {{"COLUMN", 3}, {"LINE", 1}, {"FLG_LINE_FIX", "B"}, {"VALUE", "1234,4"}});
    Build();
    EXPECT_EQ(Grid().DisplayText(At("FRC1", "ROW2")), "1234,50");
    EXPECT_EQ(Grid().DisplayText(At("COL3", "FBR1")), "1.234");
    EXPECT_EQ(Look("FRC1", "ROW5").alignment, GridAlignment::Center);
    EXPECT_TRUE(Look("COL7", "FBR1").hasAlignment);
    EXPECT_EQ(Look("COL7", "FBR1").alignment, GridAlignment::Left);
    EXPECT_EQ(Grid().Column(*Grid().FindColumn("FRC1")).height, 27);
    EXPECT_EQ(Grid().Row(*Grid().FindRow("FBR1")).width, 77);
    EXPECT_TRUE(Look("FRC1", "ROW5").font->bold) << "totals on the right stand out";
    EXPECT_FALSE(Look("COL7", "FBR1").font->bold);
}

TEST_F(ConstructionTest, CellsShowNumbersInTheGridsForm) {
    const struct {
        Variant value;
        const char* contents;
    } cases[] = {{"12.5", "12,5"},   {12.5, "12,5"},  {"1.234.567,25", "1234567,25"},
                 {"", ""},           {Variant(), ""}, {-81, "-81"},
                 {"1,234", "1,234"}, {0, "0"}};
    for (const auto& row : cases) {
        tables.tab->Clear();
        tables.AddValue(5, 7, row.value);
        Build();
        EXPECT_EQ(Contents("COL7", "ROW5"), row.contents);
    }
    EXPECT_EQ(EntriesOf("ReplacePoint").back(), "GRIDCTL |  | ReplacePoint | {before: 0 - after: 0}");
}

TEST_F(ConstructionTest, FixedCellsAndCellAttributes) {
    AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "R"}});
    AddRow(*tables.fixedTab,
           {{"COLUMN", 1}, {"FLG_COL_FIX", "R"}, {"LINE", 2}, {"VALUE", "137"}, {"TOOLTIP", "Mean"}, {"FGCOLOR", 6}});
    AddRow(*tables.fixedTab,
           {{"COLUMN", 1}, {"FLG_COL_FIX", "R"}, {"LINE", 0}, {"FLG_LINE_FIX", "T"}, {"VALUE", "Mean"}});
    AddRow(*tables.fixedTab,
           {{"COLUMN", 1}, {"FLG_COL_FIX", "R"}, {"LINE", 2}, {"VALUE", ""}, {"FGCOLOR", 5}, {"TEXTALIGN", 1}});
    AddRow(*tables.fixedTab, {{"COLUMN", 1},
                              {"FLG_COL_FIX", "R"},
                              {"LINE", 5},
                              {"BGCOLOR", 12},
                              {"FGCOLOR", 6},
                              {"BITMAP", "note"},
                              {"BMP_ALIGN", 2}});
    AddRow(*tables.cellAttr, {{"COLUMN", 7},
                              {"LINE", 5},
                              {"BGCOLOR", 11},
                              {"FGCOLOR", 4},
                              {"BITMAP", "flag-red"},
                              {"BMP_ALIGN", 1},
                              {"TOOLTIP", "Check"}});
    Build();
    EXPECT_EQ(Contents("FRC1", "ROW2"), "137") << "an empty value leaves the contents alone";
    EXPECT_EQ(Grid().Tooltip(At("FRC1", "ROW2")), "Mean");
    EXPECT_EQ(Look("FRC1", "ROW2").foreground, 5);
    EXPECT_EQ(Look("FRC1", "ROW2").alignment, GridAlignment::Left);
    EXPECT_TRUE(Look("FRC1", "ROW2").hasAlignment);
    EXPECT_EQ(Look("FRC1", "ROW5").background, 12);
    EXPECT_EQ(Look("FRC1", "ROW5").foreground, 6);
    EXPECT_EQ(*Look("FRC1", "ROW5").bitmap, "note");
    EXPECT_EQ(Look("FRC1", "ROW5").bitmapAlignment, GridAlignment::Center);
    EXPECT_EQ(Contents("FRC1", "FTR0"), "Mean");
    EXPECT_EQ(Look("COL7", "ROW5").background, 11);
    EXPECT_EQ(*Look("COL7", "ROW5").bitmap, "flag-red");
    EXPECT_EQ(Look("COL7", "ROW5").bitmapAlignment, GridAlignment::Left);
    EXPECT_EQ(Grid().Tooltip(At("COL7", "ROW5")), "Check");
}

TEST_F(ConstructionTest, AFailingCallIsTracedAndTheLoopGoesOn) {
    ExpectErrors();
    tables.AddColumn(3, "again");
    AddRow(*tables.cellAttr, {{"COLUMN", 99}, {"LINE", 5}, {"BGCOLOR", 16}});
    AddRow(*tables.cellAttr, {{"COLUMN", 7}, {"LINE", 5}, {"BGCOLOR", 3}, {"BITMAP", "no such"}});
    Build();
    EXPECT_EQ(Keys(ColumnArea::Center), (Lines{"COL3", "COL7"}));
    const Lines errors = Entries(IsError);
    ASSERT_GE(errors.size(), 4U);
    EXPECT_EQ(errors[0], "==> | Col is already defined | ERROR | {cid: COL3 - rid: }");
    EXPECT_EQ(errors.back(), "==> | Unknown bitmap | ERROR | {cid: COL7 - rid: ROW5}");
    EXPECT_EQ(Look("COL7", "ROW5").background, 3);
}

TEST_F(ConstructionTest, AFailingLoaderEndsAloneAndTheOthersRun) {
    ExpectErrors();
    tables.AddValue(2, 3, 5);
    tables.AddValue(2, 7, "n/a");
    tables.AddValue(5, 3, 6);
    AddRow(*tables.cellAttr, {{"COLUMN", 3}, {"LINE", 2}, {"BGCOLOR", 3}, {"FGCOLOR", 1}});
    control.PROP_Set_FIXED_COLS(nullptr);
    Build();
    EXPECT_EQ(Contents("COL3", "ROW2"), "5");
    EXPECT_EQ(Contents("COL3", "ROW5"), "") << "behind the value that is no number";
    EXPECT_EQ(Look("COL3", "ROW2").background, 3);
    EXPECT_EQ(Entries(IsError), (Lines{"GRIDCTL | ERROR | Creation_FixedColumns | {error: The table is not set}",
                                       "GRIDCTL | ERROR | FillCells | {error: Type mismatch: 'n/a' is no number}"}));
}

TEST_F(ConstructionTest, AHostThatCallsBackWhileItIsReadGetsItsOwnKeys) {
    ExpectErrors();
    /// Calls the control whenever a period is read.
    class CallsBack final : public AutomationObject {
    public:
        CallsBack(std::shared_ptr<MemoryTable> inner, PlanView& control)
            : inner_(std::move(inner)), control_(control) {}
        DispatchId IdOf(std::string_view name) const override { return inner_->IdOf(name); }
        Variant Get(DispatchId member, Arguments a) override {
            if (a.size() == 2 && a[1] == Variant("PERDY")) {
                control_.plv_MarkedRowsHide();
                control_.DP_Import_Create();
            }
            return inner_->Get(member, a);
        }
        void Put(DispatchId member, Arguments a, const Variant& value) override { inner_->Put(member, a, value); }
        Variant Call(DispatchId member, Arguments a) override { return inner_->Call(member, a); }

    private:
        std::shared_ptr<MemoryTable> inner_;
        PlanView& control_;
    };
    tables.lineIndex->SetValue(1, "ROW_MARKED", "X");
    tables.lineIndex->SetValue(1, "GRID_ID", "a key that is longer than any that the grid itself would give");
    control.PROP_Set_COLS_INDEX(std::make_shared<CallsBack>(tables.colsIndex, control));
    Build();
    EXPECT_EQ(tables.colsIndex->Value(1, "GRID_ID"), Variant("COL3"));
    EXPECT_EQ(tables.colsIndex->Value(2, "GRID_ID"), Variant("COL7"));
    EXPECT_EQ(Contents("COL7", "FTR0"), "Jul");
    EXPECT_EQ(Entries(IsError).back(),
              "USERCONTROL | ERROR | DP_Import_Create | {error: The grid is being built already}");
}

TEST_F(ConstructionTest, LoadersOpenInTheirOrder) {
    Build();
    EXPECT_EQ(EntriesOf("BEGIN"), (Lines{"GRIDCTL |  | BEGIN | #COLS_INDEX#", "GRIDCTL |  | BEGIN | #LINE_INDEX#",
                                         "GRIDCTL |  | BEGIN | #FIXED_COLS#", "GRIDCTL |  | BEGIN | #FIXED_LINES#",
                                         "GRIDCTL |  | BEGIN | #TAB#", "GRIDCTL |  | BEGIN | #FIXED_TAB#",
                                         "GRIDCTL |  | BEGIN | #CELL_ATTR#"}));
}

TEST_F(ConstructionTest, WrapperEntriesCarryTheirLabels) {
    Build();
    EXPECT_EQ(EntriesOf("CreateLabelled"), Lines{"GRIDCTL | CONSTRUCTOR | CreateLabelled | {}"});
    EXPECT_EQ(EntriesOf("CreateColumn")[1], "GRIDCTL |  | CreateColumn | {cid: COL7 - pos:2 - redraw:False}");
    EXPECT_EQ(EntriesOf("ColumnHeight")[0], "GRIDCTL |  | ColumnHeight | {cid: COL3 - height:0 - redraw:False}");
    EXPECT_EQ(EntriesOf("Contents")[0],
              "GRIDCTL |  | Contents | {cid: COL3 - rid: FTR0 - contents:Mar - redraw:False}");
    EXPECT_EQ(EntriesOf("CenterFgColor")[0],
              "GRIDCTL |  | CenterFgColor | {cid:  - rid: ROW2 - color:1 - redraw:False}");
    EXPECT_EQ(EntriesOf("Gridlines color"), Lines{"GRIDCTL |  | Gridlines color | {color:8 - redraw:False}"});
    EXPECT_EQ(EntriesOf("CreateColor").size(), 16U);
    EXPECT_EQ(EntriesOf("LabelColWidth"), Lines{"GRIDCTL |  | LabelColWidth | {width:0}"});
    EXPECT_EQ(EntriesOf("column key").front(), "GRIDCTL |  | column key | {index: 3}");
}

TEST_F(ConstructionTest, TheFirstColumnAndRowAreScrolledToOnce) {
    tables.gridAttr->SetValue(1, "FIRST_COL", 7);
    tables.gridAttr->SetValue(1, "FIRST_ROW", 5);
    Build();
    EXPECT_EQ(Grid().Column(*Grid().FirstColumn()).key, "COL7");
    EXPECT_EQ(Grid().Row(*Grid().FirstRow()).key, "ROW5");
    EXPECT_EQ(Grid().KeyOf(*Grid().CurrentCell()), (CellKey{"COL7", "ROW5"})) << "keys start where the user looks";
    tables.gridAttr->SetValue(1, "FIRST_COL", 3);
    control.DP_Import_Update();
    EXPECT_EQ(Grid().Column(*Grid().FirstColumn()).key, "COL7") << "used up; the host has it read anew";
    EXPECT_EQ(EntriesOf("FirstColumn").size(), 1U);
}

/// What a host's own refresh must not take from the planner.
TEST_F(ConstructionTest, ABuildLeavesTheUserWhereHeIs) {
    tables.AddColumn(8, "Aug");
    tables.AddLine(6, "Sum");
    Build();
    Grid().ScrollToColumn(*Grid().FindColumn("COL7"));
    Grid().ScrollToRow(*Grid().FindRow("ROW5"));
    Grid().SelectCell(At("COL8", "ROW6"), SelectionMode::Replace);
    Grid().SelectCell(At("COL7", "ROW5"), SelectionMode::Extend);
    const auto state = [&] {
        const CellKey current = Grid().KeyOf(Grid().CurrentCell().value());
        std::string text = Grid().Column(*Grid().FirstColumn()).key + " " + Grid().Row(*Grid().FirstRow()).key + " " +
                           current.column + "/" + current.row;
        for (const Cell cell : CellsOfSelection(Grid())) {
            text += " " + Grid().KeyOf(cell).column + "/" + Grid().KeyOf(cell).row;
        }
        return text;
    };
    const std::string before = state();
    EXPECT_EQ(before, "COL7 ROW5 COL8/ROW6 COL7/ROW5 COL8/ROW5 COL7/ROW6 COL8/ROW6");
    ForgetEntries();
    control.DP_Import_Update();
    EXPECT_EQ(state(), before);
    EXPECT_EQ(EntriesOf("FirstColumn"), Lines{}) << "nothing that the tables asked for";
    EXPECT_EQ(EntriesOf("Selected"), Lines{});
    Grid().SelectCell(At("COL3", "ROW6"), SelectionMode::Extend);
    EXPECT_EQ(CellsOfSelection(Grid()).size(), 3U) << "the block goes on from its own anchor";
    tables.colsIndex->RemoveRow(3);
    control.DP_Import_Update();
    EXPECT_EQ(Grid().Column(*Grid().FirstColumn()).key, "COL7");
    EXPECT_TRUE(Grid().Selection().IsEmpty()) << "its corner is gone";
    EXPECT_EQ(Grid().KeyOf(Grid().CurrentCell().value()), (CellKey{"COL7", "ROW5"}));
}

TEST_F(ConstructionTest, ABuildSelectsWhatTheTablesMark) {
    tables.colsIndex->SetValue(2, "COL_MARKED", "X");
    tables.lineIndex->SetValue(1, "ROW_MARKED", "X");
    Build();
    EXPECT_TRUE(Grid().IsSelected({"COL7", {}}));
    EXPECT_FALSE(Grid().IsSelected({"COL3", {}}));
    EXPECT_TRUE(Grid().IsSelected({{}, "ROW2"}));
    tables.colsIndex->SetValue(2, "COL_MARKED", "");
    control.DP_Import_Update();
    EXPECT_FALSE(Grid().IsSelected({"COL7", {}})) << "the host has taken the mark away";
    EXPECT_TRUE(Grid().IsSelected({{}, "ROW2"}));
    EXPECT_EQ(EntriesOf("SetSelection"), Lines{});
}

TEST_F(ConstructionTest, AFirstColumnThatThereIsNotLeavesTheGridAlone) {
    tables.gridAttr->SetValue(1, "FIRST_COL", 6);
    tables.gridAttr->SetValue(1, "FIRST_ROW", 6);
    Build();
    EXPECT_EQ(Grid().Column(*Grid().FirstColumn()).key, "COL3");
    EXPECT_EQ(Grid().Row(*Grid().FirstRow()).key, "ROW2");
    EXPECT_EQ(EntriesOf("FirstColumn"), Lines{});
}

TEST_F(ConstructionTest, ARefusedRowTakesNoPlace) {
    ExpectErrors();
    tables.AddColumn(3, "again");
    tables.AddColumn(9, "Sep");
    Build();
    EXPECT_EQ(EntriesOf("CreateColumn").back(), "GRIDCTL |  | CreateColumn | {cid: COL9 - pos:3 - redraw:False}");
}

TEST_F(ConstructionTest, BuildingTwiceLeavesOneGridDrawnOnce) {
    struct Counter : GridWatcher {
        int calls = 0;
        void GridChanged(const GridChange&) override { ++calls; }
    } watcher;
    Build();
    Grid().SetWatcher(&watcher);
    Build();
    EXPECT_EQ(watcher.calls, 1);
    EXPECT_EQ(Keys(ColumnArea::Center), (Lines{"COL3", "COL7"}));
    Grid().SetWatcher(nullptr);
}

TEST(ConstructionAtItsLimit, TheLastColumnThatATableCanCountIsWhole) {
    constexpr std::int16_t Last = 32767;
    test::ScriptedPlatform platform;
    PlanView control(platform.Interfaces());
    const Tables tables;
    for (int column = 1; column <= Last; ++column) {
        tables.AddColumn(column, "P");
    }
    tables.GiveTo(control);
    control.DP_Import_Create();
    EXPECT_EQ(ControlParts(control).Grid().Columns(ColumnArea::Center).size(), 32767U);
    EXPECT_EQ(tables.colsIndex->Value(Last, "GRID_ID"), Variant("COL32767"));
}

TEST(ConstructionWithoutTables, EveryLoaderEndsAtItsTrap) {
    test::ScriptedPlatform platform;
    PlanView control(platform.Interfaces());
    EXPECT_EQ(control.DP_Import_Update(), 0);
    EXPECT_EQ(ControlParts(control).Grid().Columns(ColumnArea::Left).size(), 1U);
    EXPECT_TRUE(ControlParts(control).Grid().Columns(ColumnArea::Center).empty());
}

}  // namespace planview
