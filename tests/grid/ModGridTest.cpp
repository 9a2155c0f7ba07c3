// SPDX-License-Identifier: MIT
#include <functional>

#include <gtest/gtest.h>

#include "components/GridControl.h"
#include "grid/modGrid.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;

namespace {

/// A grid with two planning columns and rows, built through the wrapper itself.
class ModGridTest : public test::TracedTest {
protected:
    ModGridTest() {
        driver.CreateLabelled();
        driver.CreatePalette();
        for (const char* key : {"COL1", "COL2"}) {
            driver.CreateColumn(key, 0, false);
        }
        for (const char* key : {"ROW1", "ROW2"}) {
            driver.CreateRow(key, 0, false);
        }
        ForgetEntries();
    }

    [[nodiscard]] CellLook Look(const char* column, const char* row) const {
        return grid.Look(grid.FindCell({column, row}).value());
    }
    [[nodiscard]] const GridColumn& Col1() const { return grid.Column(grid.FindColumn("COL1").value()); }
    [[nodiscard]] const GridRow& Row1() const { return grid.Row(grid.FindRow("ROW1").value()); }
    /// What cell COL1/ROW1, its neighbour in the row and its label look like, each "B" where `has` says so, "."
    /// elsewhere.
    template <class Has>
    [[nodiscard]] std::string Where(const Has& has) const {
        std::string where;
        for (const CellKeyView keys : {CellKeyView{"COL1", "ROW1"}, {"COL2", "ROW1"}, {"FLC0", "ROW1"}}) {
            where += has(grid.Look(grid.FindCell(keys).value())) ? 'B' : '.';
        }
        return where;
    }

    /// One operation, its whole entry, and how one sees in the grid that it was this one.
    struct Operation {
        const char* name;
        std::function<void()> call;
        const char* entry;
        std::function<bool()> seen;
    };
    void Check(const std::vector<Operation>& operations) {
        for (const Operation& operation : operations) {
            ForgetEntries();
            EXPECT_FALSE(operation.seen()) << operation.name << ": the grid is so already";
            operation.call();
            EXPECT_EQ(Entries(), Lines{operation.entry}) << operation.name;
            EXPECT_TRUE(operation.seen()) << operation.name;
        }
    }

    GridControl grid;
    modGrid driver{grid};
};

constexpr CellKeyView OneCell{"COL1", "ROW1"};
constexpr CellKeyView OneRow{{}, "ROW1"};

}  // namespace

TEST_F(ModGridTest, OperationsOnTheGridAsAWhole) {
    const GridSettingsState& settings = grid.Settings();
    Check({
        {"LabelColWidth", [&] { driver.LabelColWidth(210); }, "GRIDCTL |  | LabelColWidth | {width:210}",
         [&] { return settings.labelColumnWidth == 210; }},
        {"LabelAutoFit", [&] { driver.LabelAutoFit(1); }, "GRIDCTL |  | LabelAutoFit | {width:1}",
         [&] { return settings.labelAutoFit; }},
        {"DoubleBuffering", [&] { driver.DoubleBuffering(1, false); },
         "GRIDCTL |  | DoubleBuffering | {value:1 - redraw:False}", [&] { return settings.doubleBuffering; }},
        {"MovePermission", [&] { driver.MovePermission(1, true); },
         "GRIDCTL |  | move permission | {value:1 - redraw:True}", [&] { return settings.moveAllowed; }},
        {"ResizePermission", [&] { driver.ResizePermission(0, false); },
         "GRIDCTL |  | resize permission | {value:0 - redraw:False}", [&] { return !settings.resizeAllowed; }},
        {"DragDrop", [&] { driver.DragDrop(1, false); }, "GRIDCTL |  | DragDrop | {value:1 - redraw:False}",
         [&] { return settings.dragDrop; }},
        {"GridlinesColor", [&] { driver.GridlinesColor(9, false); },
         "GRIDCTL |  | Gridlines color | {color:9 - redraw:False}", [&] { return settings.gridLineColor == 9; }},
        {"BackgroundColor without keys", [&] { driver.BackgroundColor({}, 15, false); },
         "GRIDCTL |  | background colour | {cid:  - rid:  - color:15 - redraw:False}",
         [&] { return settings.backgroundColor == 15; }},
        {"Switch", [&] { driver.Switch(true, false); }, "GRIDCTL |  | switch | {switched:True - redraw:False}",
         [&] { return settings.switched; }},
        {"FirstColumn", [&] { driver.FirstColumn("COL2", false); },
         "GRIDCTL |  | FirstColumn | {cid: COL2 - redraw:False}",
         [&] { return grid.FirstColumn() == grid.FindColumn("COL2"); }},
        {"FirstRow", [&] { driver.FirstRow("ROW2", false); }, "GRIDCTL |  | FirstRow | {cid: ROW2 - redraw:False}",
         [&] { return grid.FirstRow() == grid.FindRow("ROW2"); }},
        {"SetRedraw", [&] { driver.SetRedraw(false); }, "GRIDCTL |  | SetRedraw | {redraw:False}",
         [&] { return !grid.RedrawOn(); }},
        {"CreateColor", [&] { driver.CreateColor("hostPink", 1, 2, 3); }, "GRIDCTL |  | CreateColor | {color:hostPink}",
         [&] { return grid.Colors().size() == 17 && grid.Colors()[16].blue == 3; }},
        {"Destructor", [&] { driver.Destructor(false); }, "GRIDCTL |  | DESTRUCTOR | {redraw:False}",
         [&] { return !settings.created; }},
        {"CreateLabelled", [&] { driver.CreateLabelled(); }, "GRIDCTL | CONSTRUCTOR | CreateLabelled | {}",
         [&] { return settings.created; }},
    });
}

TEST_F(ModGridTest, OperationsOnColumnsAndRows) {
    Check({
        {"CreateColumn", [&] { driver.CreateColumn("FRC4", 1, false); },
         "GRIDCTL |  | CreateColumn | {cid: FRC4 - pos:1 - redraw:False}",
         [&] { return grid.FindColumn("FRC4").has_value(); }},
        {"CreateRow", [&] { driver.CreateRow("FBR4", 1, true); },
         "GRIDCTL |  | CreateRow | {cid: FBR4 - pos:1 - redraw:True}",
         [&] { return grid.FindRow("FBR4").has_value(); }},
        {"ColumnWidth", [&] { driver.ColumnWidth("COL1", 91, false); },
         "GRIDCTL |  | column width | {cid: COL1 - width:91 - redraw:False}", [&] { return Col1().width == 91; }},
        {"ColumnHeight", [&] { driver.ColumnHeight("COL1", 31, false); },
         "GRIDCTL |  | ColumnHeight | {cid: COL1 - height:31 - redraw:False}", [&] { return Col1().height == 31; }},
        {"RowHeight", [&] { driver.RowHeight("ROW1", 32, false); },
         "GRIDCTL |  | row height | {cid: ROW1 - height:32 - redraw:False}", [&] { return Row1().height == 32; }},
        {"RowWidth", [&] { driver.RowWidth("ROW1", 92, false); },
         "GRIDCTL |  | RowWidth | {cid: ROW1 - width:92 - redraw:False}", [&] { return Row1().width == 92; }},
        {"SetSelection", [&] { driver.SetSelection(OneRow, false); },
         "GRIDCTL |  | SetSelection | {cid:  - rid: ROW1 - redraw:False}",
         [&] { return driver.HeaderSelected(OneRow) == 1; }},
        {"DeleteSelection", [&] { driver.DeleteSelection(OneRow, true); },
         "GRIDCTL |  | DeleteSelection | {cid:  - rid: ROW1 - redraw:True}",
         [&] { return driver.HeaderSelected(OneRow) == 0; }},
        {"SelectionFlag",
         [&] {
             driver.SelectionFlag({"COL1", {}}, false);
         },
         "GRIDCTL |  | SelectionFlag | {cid: COL1 - rid:  - redraw:False}", [&] { return !Col1().selectable; }},
        {"CenterHidden", [&] { driver.CenterHidden(OneRow, true, false); },
         "GRIDCTL |  | CenterHidden | {cid:  - rid: ROW1 - hidden:True - redraw:False}", [&] { return Row1().hidden; }},
    });
}

TEST_F(ModGridTest, OperationsOnCells) {
    const Cell cell = grid.FindCell(OneCell).value();
    const auto look = [&] { return grid.Look(cell); };
    Check({
        {"Contents", [&] { driver.Contents(OneCell, "12,5", false); },
         "GRIDCTL |  | Contents | {cid: COL1 - rid: ROW1 - contents:12,5 - redraw:False}",
         [&] { return grid.Contents(cell) == "12,5"; }},
        {"Tooltip", [&] { driver.Tooltip(OneCell, "Tip", true); },
         "GRIDCTL |  | Tooltip | {cid: COL1 - rid: ROW1 - contents:Tip - redraw:True}",
         [&] { return grid.Tooltip(cell) == "Tip"; }},
        {"ReadOnly", [&] { driver.ReadOnly(OneCell, true, false); },
         "GRIDCTL |  | ReadOnly | {cid: COL1 - rid: ROW1 - readonly:True - redraw:False}",
         [&] { return look().readOnly; }},
        {"Format", [&] { driver.Format(OneCell, "0.00", false); },
         "GRIDCTL |  | format | {cid: COL1 - rid: ROW1 - format:0.00 - redraw:False}",
         [&] { return grid.DisplayText(cell) == "12,50"; }},
        {"Font", [&] { driver.Font(OneCell, ";14;Bold", false); },
         "GRIDCTL |  | font | {cid: COL1 - rid: ROW1 - font:;14;Bold - redraw:False}",
         [&] { return look().font && look().font->size == 14; }},
        {"Alignment", [&] { driver.Alignment(OneCell, 2, false); },
         "GRIDCTL |  | Alignment | {cid: COL1 - rid: ROW1 - align:2 - redraw:False}",
         [&] { return look().hasAlignment && look().alignment == GridAlignment::Center; }},
        {"Relief", [&] { driver.Relief(OneCell, true, false); },
         "GRIDCTL |  | relief | {cid: COL1 - rid: ROW1 - relief:True - redraw:False}", [&] { return look().relief; }},
        {"Bitmap", [&] { driver.Bitmap(OneCell, "lock", 2, false); },
         "GRIDCTL |  | bitmap | {cid: COL1 - rid: ROW1 - bitmap:lock - redraw:False}",
         [&] { return look().bitmap && *look().bitmap == "lock" && look().bitmapAlignment == GridAlignment::Center; }},
        {"BackgroundColor", [&] { driver.BackgroundColor(OneCell, 4, false); },
         "GRIDCTL |  | background colour | {cid: COL1 - rid: ROW1 - color:4 - redraw:False}",
         [&] { return look().background == 4; }},
        {"ForegroundColor", [&] { driver.ForegroundColor(OneCell, 5, false); },
         "GRIDCTL |  | foreground colour | {cid: COL1 - rid: ROW1 - color:5 - redraw:False}",
         [&] { return look().foreground == 5; }},
    });
}

/// Each of these reaches both planning cells of the row and not its label.
TEST_F(ModGridTest, OperationsOnTheCentreOfARow) {
    const auto centre = [&](auto has) { return [this, has] { return Where(has) == "BB."; }; };
    Check({
        {"CenterFormat", [&] { driver.CenterFormat(OneRow, "0.0", false); },
         "GRIDCTL |  | CenterFormat | {cid:  - rid: ROW1 - format:0.0 - redraw:False}",
         centre([](const CellLook& look) { return look.format && look.format->Format(1) == "1,0"; })},
        {"CenterFont", [&] { driver.CenterFont(OneRow, ";;Cursiv", false); },
         "GRIDCTL |  | CenterFont | {cid:  - rid: ROW1 - font:;;Cursiv - redraw:False}",
         centre([](const CellLook& look) { return look.font && look.font->italic; })},
        {"CenterAlignment", [&] { driver.CenterAlignment(OneRow, 1, false); },
         "GRIDCTL |  | CenterAlignment | {cid:  - rid: ROW1 - align:1 - redraw:False}",
         centre([](const CellLook& look) { return look.hasAlignment && look.alignment == GridAlignment::Left; })},
        {"CenterReadOnly", [&] { driver.CenterReadOnly(OneRow, true, false); },
         "GRIDCTL |  | CenterReadOnly | {cid:  - rid: ROW1 - readonly:True - redraw:False}",
         centre([](const CellLook& look) { return look.readOnly; })},
        {"CenterTextLine", [&] { driver.CenterTextLine(OneRow, "X", false); },
         "GRIDCTL |  | CenterTextLine | {cid:  - rid: ROW1 - textline:X - redraw:False}",
         centre([](const CellLook& look) { return look.textLine; })},
        {"CenterHelpLine", [&] { driver.CenterHelpLine(OneRow, "H", false); },
         "GRIDCTL |  | CenterHelpLine | {cid:  - rid: ROW1 - helpline:H - redraw:False}",
         centre([](const CellLook& look) { return look.helpLine; })},
        {"CenterRelief", [&] { driver.CenterRelief(OneRow, true, true); },
         "GRIDCTL |  | CenterRelief | {cid:  - rid: ROW1 - relief:True - redraw:True}",
         centre([](const CellLook& look) { return look.relief; })},
        {"CenterBgColor", [&] { driver.CenterBgColor(OneRow, 6, false); },
         "GRIDCTL |  | CenterBgColor | {cid:  - rid: ROW1 - color:6 - redraw:False}",
         centre([](const CellLook& look) { return look.background == 6; })},
        {"CenterFgColor", [&] { driver.CenterFgColor(OneRow, 7, false); },
         "GRIDCTL |  | CenterFgColor | {cid:  - rid: ROW1 - color:7 - redraw:False}",
         centre([](const CellLook& look) { return look.foreground == 7; })},
    });
}

TEST_F(ModGridTest, TextLinesAndHelpLinesNeedTheirOwnLetter) {
    const CellKeyView cell{"COL1", "ROW1"};
    driver.CenterTextLine(OneRow, "H", false);
    driver.CenterHelpLine(OneRow, "X", false);
    EXPECT_FALSE(grid.Look(grid.FindCell(cell).value()).textLine);
    EXPECT_FALSE(grid.Look(grid.FindCell(cell).value()).helpLine);
}

/// Refused calls: the status in words, with the keys of the call, behind the call's own entry.
TEST_F(ModGridTest, RefusedOperationsAreReportedAndChangeNothing) {
    ExpectErrors();
    const CellLook plain = Look("COL2", "ROW2");
    const struct {
        const char* name;
        std::function<void()> call;
        const char* error;
    } cases[] = {
        {"a column twice", [&] { driver.CreateColumn("COL1", 0, false); },
         "==> | Col is already defined | ERROR | {cid: COL1 - rid: }"},
        {"a row twice", [&] { driver.CreateRow("ROW1", 0, false); },
         "==> | Row is already defined | ERROR | {cid:  - rid: ROW1}"},
        {"a colour outside the palette",
         [&] {
             driver.BackgroundColor({"COL2", "ROW2"}, 16, false);
         },
         "==> | Unknown color | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a negative colour",
         [&] {
             driver.ForegroundColor({"COL2", "ROW2"}, -1, false);
         },
         "==> | Unknown color | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a bitmap with an alignment that there is not",
         [&] {
             driver.Bitmap({"COL2", "ROW2"}, "lock", 3, false);
         },
         "==> | Invalid attribute | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a bitmap that there is not",
         [&] {
             driver.Bitmap({"COL2", "ROW2"}, "skull", 2, false);
         },
         "==> | Unknown bitmap | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a column without a key", [&] { driver.ColumnWidth("", 91, false); },
         "==> | Invalid name | ERROR | {cid:  - rid: }"},
        {"a row without a key", [&] { driver.CenterHidden({}, true, false); },
         "==> | Invalid name | ERROR | {cid:  - rid: }"},
        {"a selection flag without a key", [&] { driver.SelectionFlag({}, false); },
         "==> | Invalid name | ERROR | {cid:  - rid: }"},
        {"a read-only row without a key", [&] { driver.ReadOnly({}, true, false); },
         "==> | Invalid name | ERROR | {cid:  - rid: }"},
    };
    for (const auto& row : cases) {
        ForgetEntries();
        row.call();
        ASSERT_EQ(Entries().size(), 2U) << row.name;
        EXPECT_EQ(Entries().back(), row.error) << row.name;
        const CellLook look = Look("COL2", "ROW2");
        EXPECT_TRUE(look.background == plain.background && look.foreground == plain.foreground && !look.bitmap &&
                    look.bitmapAlignment == plain.bitmapAlignment && !look.readOnly)
            << row.name;
    }
    modPlan::TraceEnabled = false;
    EXPECT_EQ(driver.CreateColumn("COL1", 0, false), GridStatus::ColumnDefined);
    modPlan::TraceEnabled = true;
    EXPECT_EQ(Entries().size(), 2U) << "without the trace an error leaves nothing";
}

TEST_F(ModGridTest, TheRedrawIsHeldUntilTheOuterScopeEnds) {
    struct Counter : GridWatcher {
        int calls = 0;
        void GridChanged(const GridChange&) override { ++calls; }
    } watcher;
    grid.Redraw();
    grid.SetWatcher(&watcher);
    {
        const modGrid::RedrawAtEnd outer(driver);
        driver.Contents(OneCell, "1", true);
        {
            const modGrid::RedrawAtEnd inner(driver);
            driver.Contents(OneCell, "2", true);
        }
        EXPECT_EQ(watcher.calls, 0);
    }
    EXPECT_EQ(watcher.calls, 1);
    EXPECT_TRUE(grid.RedrawOn());
    driver.Contents(OneCell, "3", false);
    EXPECT_EQ(watcher.calls, 1);
    driver.Redraw();
    EXPECT_EQ(watcher.calls, 2);
    ForgetEntries();
    {
        const modGrid::RedrawAtEnd redraw(driver, modGrid::Entries::None);
        const modGrid::WaitingState waiting(driver, modGrid::Entries::None);
        EXPECT_TRUE(grid.Settings().waiting && !grid.RedrawOn());
    }
    EXPECT_TRUE(!grid.Settings().waiting && grid.RedrawOn());
    EXPECT_EQ(Entries(), Lines{}) << "those who want no entries";
    grid.SetWatcher(nullptr);
}

TEST_F(ModGridTest, ThePaletteHasSixteenColors) {
    const GridColor expected[] = {
        {"tovWhite", 255, 255, 255},     {"tovBlack", 0, 0, 0},       {"tovBlue", 0, 0, 128},
        {"tovGreen", 0, 128, 0},         {"tovCyan", 0, 128, 128},    {"tovRed", 128, 0, 0},
        {"tovMagenta", 128, 0, 128},     {"tovYellow", 128, 128, 0},  {"tovGray", 192, 192, 192},
        {"tovDarkGray", 128, 128, 128},  {"tovLightBlue", 0, 0, 255}, {"tovLightGreen", 0, 255, 0},
        {"tovLightCyan", 0, 255, 255},   {"tovLightRed", 255, 0, 0},  {"tovLightMagenta", 255, 0, 255},
        {"tovLightYellow", 255, 255, 0},
    };
    ASSERT_EQ(grid.Colors().size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const GridColor& color = grid.Colors()[i];
        EXPECT_EQ(color.name, expected[i].name) << i;
        EXPECT_TRUE(color.red == expected[i].red && color.green == expected[i].green && color.blue == expected[i].blue)
            << color.name << ": " << int{color.red} << " " << int{color.green} << " " << int{color.blue};
        EXPECT_EQ(driver.BackgroundColor({}, static_cast<std::int16_t>(i), false), GridStatus::Ok);
        EXPECT_EQ(grid.Settings().backgroundColor, static_cast<int>(i)) << color.name;
    }
}

TEST(GridStatusText, EveryStatusHasItsText) {
    const std::pair<int, const char*> texts[] = {
        {1, "Row is already defined"},
        {2, "Col is already defined"},
        {3, "Unknown row"},
        {4, "Unknown col"},
        {5, "Invalid name"},
        {6, "Undefined grid attribute"},
        {7, "Undefined row attribute"},
        {8, "Undefined col attribute"},
        {9, "Undefined cell attribute"},
        {10, "No item at location"},
        {11, "Invalid row position"},
        {12, "Invalid col position"},
        {13, "Invalid cell position"},
        {14, "SetAttribute not possible"},
        {15, "Unknown bitmap"},
        {16, "Unknown color"},
        {17, "Unknown font"},
        {18, "Unknown error"},
        {19, "Unknown error"},
        {20, "Unknown error"},
        {21, "Already defined color"},
        {22, "No register press"},
        {23, "Invalid attribute"},
        {24, "Unknown error"},
        {-1, "Unknown error"},
    };
    for (const auto& [status, text] : texts) {
        EXPECT_EQ(modGrid::StatusText(static_cast<GridStatus>(status)), text) << status;
    }
}

TEST(GridKeys, PositionsComeBackFromPlanningKeysOnly) {
    EXPECT_EQ(modGrid::ColumnKey(7, ""), "COL7");
    EXPECT_EQ(modGrid::ColumnKey(2, "R"), "FRC2");
    EXPECT_EQ(modGrid::ColumnKey(2, "L"), "FLC2");
    EXPECT_EQ(modGrid::RowKey(1, "B"), "FBR1");
    EXPECT_EQ(modGrid::RowKey(1, "T"), "FTR1");
    EXPECT_EQ(modGrid::RowKey(1, "L"), "ROW1") << "a kind of columns";
    EXPECT_EQ(modGrid::PositionOf("COL7"), 7);
    EXPECT_EQ(modGrid::PositionOf("ROW181"), 181);
    EXPECT_EQ(modGrid::PositionOf("FLC3"), 0);
    EXPECT_EQ(modGrid::PositionOf(""), 0);
}

}  // namespace planview
