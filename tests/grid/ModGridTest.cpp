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
        modGrid::CreateLabelled(grid);
        modGrid::CreatePalette(grid);
        for (const char* key : {"COL1", "COL2"}) {
            modGrid::CreateColumn(grid, key, 0, false);
        }
        for (const char* key : {"ROW1", "ROW2"}) {
            modGrid::CreateRow(grid, key, 0, false);
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
};

constexpr CellKeyView OneCell{"COL1", "ROW1"};
constexpr CellKeyView OneRow{{}, "ROW1"};

}  // namespace

TEST_F(ModGridTest, OperationsOnTheGridAsAWhole) {
    const GridSettingsState& settings = grid.Settings();
    Check({
        {"LabelColWidth", [&] { modGrid::LabelColWidth(grid, 210); }, "GRIDCTL |  | LabelColWidth | {width:210}",
         [&] { return settings.labelColumnWidth == 210; }},
        {"LabelAutoFit", [&] { modGrid::LabelAutoFit(grid, 1); }, "GRIDCTL |  | LabelAutoFit | {width:1}",
         [&] { return settings.labelAutoFit; }},
        {"DoubleBuffering", [&] { modGrid::DoubleBuffering(grid, 1, false); },
         "GRIDCTL |  | DoubleBuffering | {value:1 - redraw:False}", [&] { return settings.doubleBuffering; }},
        {"MovePermission", [&] { modGrid::MovePermission(grid, 1, true); },
         "GRIDCTL |  | move permission | {value:1 - redraw:True}", [&] { return settings.moveAllowed; }},
        {"ResizePermission", [&] { modGrid::ResizePermission(grid, 0, false); },
         "GRIDCTL |  | resize permission | {value:0 - redraw:False}", [&] { return !settings.resizeAllowed; }},
        {"DragDrop", [&] { modGrid::DragDrop(grid, 1, false); }, "GRIDCTL |  | DragDrop | {value:1 - redraw:False}",
         [&] { return settings.dragDrop; }},
        {"GridlinesColor", [&] { modGrid::GridlinesColor(grid, 9, false); },
         "GRIDCTL |  | Gridlines color | {color:9 - redraw:False}", [&] { return settings.gridLineColor == 9; }},
        {"BackgroundColor without keys", [&] { modGrid::BackgroundColor(grid, {}, 15, false); },
         "GRIDCTL |  | background colour | {cid:  - rid:  - color:15 - redraw:False}",
         [&] { return settings.backgroundColor == 15; }},
        {"Switch", [&] { modGrid::Switch(grid, true, false); }, "GRIDCTL |  | switch | {switched:True - redraw:False}",
         [&] { return settings.switched; }},
        {"FirstColumn", [&] { modGrid::FirstColumn(grid, "COL2", false); },
         "GRIDCTL |  | FirstColumn | {cid: COL2 - redraw:False}",
         [&] { return grid.FirstColumn() == grid.FindColumn("COL2"); }},
        {"FirstRow", [&] { modGrid::FirstRow(grid, "ROW2", false); },
         "GRIDCTL |  | FirstRow | {cid: ROW2 - redraw:False}", [&] { return grid.FirstRow() == grid.FindRow("ROW2"); }},
        {"SetRedraw", [&] { modGrid::SetRedraw(grid, false); }, "GRIDCTL |  | SetRedraw | {redraw:False}",
         [&] { return !grid.RedrawOn(); }},
        {"CreateColor", [&] { modGrid::CreateColor(grid, "hostPink", 1, 2, 3); },
         "GRIDCTL |  | CreateColor | {color:hostPink}",
         [&] { return grid.Colors().size() == 17 && grid.Colors()[16].blue == 3; }},
        {"Destructor", [&] { modGrid::Destructor(grid, false); }, "GRIDCTL |  | DESTRUCTOR | {redraw:False}",
         [&] { return !settings.created; }},
        {"CreateLabelled", [&] { modGrid::CreateLabelled(grid); }, "GRIDCTL | CONSTRUCTOR | CreateLabelled | {}",
         [&] { return settings.created; }},
    });
}

TEST_F(ModGridTest, OperationsOnColumnsAndRows) {
    Check({
        {"CreateColumn", [&] { modGrid::CreateColumn(grid, "FRC4", 1, false); },
         "GRIDCTL |  | CreateColumn | {cid: FRC4 - pos:1 - redraw:False}",
         [&] { return grid.FindColumn("FRC4").has_value(); }},
        {"CreateRow", [&] { modGrid::CreateRow(grid, "FBR4", 1, true); },
         "GRIDCTL |  | CreateRow | {cid: FBR4 - pos:1 - redraw:True}",
         [&] { return grid.FindRow("FBR4").has_value(); }},
        {"ColumnWidth", [&] { modGrid::ColumnWidth(grid, "COL1", 91, false); },
         "GRIDCTL |  | column width | {cid: COL1 - width:91 - redraw:False}", [&] { return Col1().width == 91; }},
        {"ColumnHeight", [&] { modGrid::ColumnHeight(grid, "COL1", 31, false); },
         "GRIDCTL |  | ColumnHeight | {cid: COL1 - height:31 - redraw:False}", [&] { return Col1().height == 31; }},
        {"RowHeight", [&] { modGrid::RowHeight(grid, "ROW1", 32, false); },
         "GRIDCTL |  | row height | {cid: ROW1 - height:32 - redraw:False}", [&] { return Row1().height == 32; }},
        {"RowWidth", [&] { modGrid::RowWidth(grid, "ROW1", 92, false); },
         "GRIDCTL |  | RowWidth | {cid: ROW1 - width:92 - redraw:False}", [&] { return Row1().width == 92; }},
        {"SetSelection", [&] { modGrid::SetSelection(grid, OneRow, false); },
         "GRIDCTL |  | SetSelection | {cid:  - rid: ROW1 - redraw:False}",
         [&] { return modGrid::HeaderSelected(grid, OneRow) == 1; }},
        {"DeleteSelection", [&] { modGrid::DeleteSelection(grid, OneRow, true); },
         "GRIDCTL |  | DeleteSelection | {cid:  - rid: ROW1 - redraw:True}",
         [&] { return modGrid::HeaderSelected(grid, OneRow) == 0; }},
        {"SelectionFlag",
         [&] {
             modGrid::SelectionFlag(grid, {"COL1", {}}, false);
         },
         "GRIDCTL |  | SelectionFlag | {cid: COL1 - rid:  - redraw:False}", [&] { return !Col1().selectable; }},
        {"CenterHidden", [&] { modGrid::CenterHidden(grid, OneRow, true, false); },
         "GRIDCTL |  | CenterHidden | {cid:  - rid: ROW1 - hidden:True - redraw:False}", [&] { return Row1().hidden; }},
    });
}

TEST_F(ModGridTest, OperationsOnCells) {
    const Cell cell = grid.FindCell(OneCell).value();
    const auto look = [&] { return grid.Look(cell); };
    Check({
        {"Contents", [&] { modGrid::Contents(grid, OneCell, "12,5", false); },
         "GRIDCTL |  | Contents | {cid: COL1 - rid: ROW1 - contents:12,5 - redraw:False}",
         [&] { return grid.Contents(cell) == "12,5"; }},
        {"Tooltip", [&] { modGrid::Tooltip(grid, OneCell, "Tip", true); },
         "GRIDCTL |  | Tooltip | {cid: COL1 - rid: ROW1 - contents:Tip - redraw:True}",
         [&] { return grid.Tooltip(cell) == "Tip"; }},
        {"ReadOnly", [&] { modGrid::ReadOnly(grid, OneCell, true, false); },
         "GRIDCTL |  | ReadOnly | {cid: COL1 - rid: ROW1 - readonly:True - redraw:False}",
         [&] { return look().readOnly; }},
        {"Format", [&] { modGrid::Format(grid, OneCell, "0.00", false); },
         "GRIDCTL |  | format | {cid: COL1 - rid: ROW1 - format:0.00 - redraw:False}",
         [&] { return grid.DisplayText(cell) == "12,50"; }},
        {"Font", [&] { modGrid::Font(grid, OneCell, ";14;Bold", false); },
         "GRIDCTL |  | font | {cid: COL1 - rid: ROW1 - font:;14;Bold - redraw:False}",
         [&] { return look().font && look().font->size == 14; }},
        {"Alignment", [&] { modGrid::Alignment(grid, OneCell, 2, false); },
         "GRIDCTL |  | Alignment | {cid: COL1 - rid: ROW1 - align:2 - redraw:False}",
         [&] { return look().hasAlignment && look().alignment == GridAlignment::Center; }},
        {"Relief", [&] { modGrid::Relief(grid, OneCell, true, false); },
         "GRIDCTL |  | relief | {cid: COL1 - rid: ROW1 - relief:True - redraw:False}", [&] { return look().relief; }},
        {"Bitmap", [&] { modGrid::Bitmap(grid, OneCell, "lock", 2, false); },
         "GRIDCTL |  | bitmap | {cid: COL1 - rid: ROW1 - bitmap:lock - redraw:False}",
         [&] { return look().bitmap && *look().bitmap == "lock" && look().bitmapAlignment == GridAlignment::Center; }},
        {"BackgroundColor", [&] { modGrid::BackgroundColor(grid, OneCell, 4, false); },
         "GRIDCTL |  | background colour | {cid: COL1 - rid: ROW1 - color:4 - redraw:False}",
         [&] { return look().background == 4; }},
        {"ForegroundColor", [&] { modGrid::ForegroundColor(grid, OneCell, 5, false); },
         "GRIDCTL |  | foreground colour | {cid: COL1 - rid: ROW1 - color:5 - redraw:False}",
         [&] { return look().foreground == 5; }},
    });
}

/// Each of these reaches both planning cells of the row and not its label.
TEST_F(ModGridTest, OperationsOnTheCentreOfARow) {
    const auto centre = [&](auto has) { return [this, has] { return Where(has) == "BB."; }; };
    Check({
        {"CenterFormat", [&] { modGrid::CenterFormat(grid, OneRow, "0.0", false); },
         "GRIDCTL |  | CenterFormat | {cid:  - rid: ROW1 - format:0.0 - redraw:False}",
         centre([](const CellLook& look) { return look.format && look.format->Format(1) == "1,0"; })},
        {"CenterFont", [&] { modGrid::CenterFont(grid, OneRow, ";;Cursiv", false); },
         "GRIDCTL |  | CenterFont | {cid:  - rid: ROW1 - font:;;Cursiv - redraw:False}",
         centre([](const CellLook& look) { return look.font && look.font->italic; })},
        {"CenterAlignment", [&] { modGrid::CenterAlignment(grid, OneRow, 1, false); },
         "GRIDCTL |  | CenterAlignment | {cid:  - rid: ROW1 - align:1 - redraw:False}",
         centre([](const CellLook& look) { return look.hasAlignment && look.alignment == GridAlignment::Left; })},
        {"CenterReadOnly", [&] { modGrid::CenterReadOnly(grid, OneRow, true, false); },
         "GRIDCTL |  | CenterReadOnly | {cid:  - rid: ROW1 - readonly:True - redraw:False}",
         centre([](const CellLook& look) { return look.readOnly; })},
        {"CenterTextLine", [&] { modGrid::CenterTextLine(grid, OneRow, "X", false); },
         "GRIDCTL |  | CenterTextLine | {cid:  - rid: ROW1 - textline:X - redraw:False}",
         centre([](const CellLook& look) { return look.textLine; })},
        {"CenterHelpLine", [&] { modGrid::CenterHelpLine(grid, OneRow, "H", false); },
         "GRIDCTL |  | CenterHelpLine | {cid:  - rid: ROW1 - helpline:H - redraw:False}",
         centre([](const CellLook& look) { return look.helpLine; })},
        {"CenterRelief", [&] { modGrid::CenterRelief(grid, OneRow, true, true); },
         "GRIDCTL |  | CenterRelief | {cid:  - rid: ROW1 - relief:True - redraw:True}",
         centre([](const CellLook& look) { return look.relief; })},
        {"CenterBgColor", [&] { modGrid::CenterBgColor(grid, OneRow, 6, false); },
         "GRIDCTL |  | CenterBgColor | {cid:  - rid: ROW1 - color:6 - redraw:False}",
         centre([](const CellLook& look) { return look.background == 6; })},
        {"CenterFgColor", [&] { modGrid::CenterFgColor(grid, OneRow, 7, false); },
         "GRIDCTL |  | CenterFgColor | {cid:  - rid: ROW1 - color:7 - redraw:False}",
         centre([](const CellLook& look) { return look.foreground == 7; })},
    });
}

TEST_F(ModGridTest, TextLinesAndHelpLinesNeedTheirOwnLetter) {
    const CellKeyView cell{"COL1", "ROW1"};
    modGrid::CenterTextLine(grid, OneRow, "H", false);
    modGrid::CenterHelpLine(grid, OneRow, "X", false);
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
        {"a column twice", [&] { modGrid::CreateColumn(grid, "COL1", 0, false); },
         "==> | Col is already defined | ERROR | {cid: COL1 - rid: }"},
        {"a row twice", [&] { modGrid::CreateRow(grid, "ROW1", 0, false); },
         "==> | Row is already defined | ERROR | {cid:  - rid: ROW1}"},
        {"a colour outside the palette",
         [&] {
             modGrid::BackgroundColor(grid, {"COL2", "ROW2"}, 16, false);
         },
         "==> | Unknown color | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a negative colour",
         [&] {
             modGrid::ForegroundColor(grid, {"COL2", "ROW2"}, -1, false);
         },
         "==> | Unknown color | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a bitmap with an alignment that there is not",
         [&] {
             modGrid::Bitmap(grid, {"COL2", "ROW2"}, "lock", 3, false);
         },
         "==> | Invalid attribute | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a bitmap that there is not",
         [&] {
             modGrid::Bitmap(grid, {"COL2", "ROW2"}, "skull", 2, false);
         },
         "==> | Unknown bitmap | ERROR | {cid: COL2 - rid: ROW2}"},
        {"a column without a key", [&] { modGrid::ColumnWidth(grid, "", 91, false); },
         "==> | Invalid name | ERROR | {cid:  - rid: }"},
        {"a row without a key", [&] { modGrid::CenterHidden(grid, {}, true, false); },
         "==> | Invalid name | ERROR | {cid:  - rid: }"},
        {"a selection flag without a key", [&] { modGrid::SelectionFlag(grid, {}, false); },
         "==> | Invalid name | ERROR | {cid:  - rid: }"},
        {"a read-only row without a key", [&] { modGrid::ReadOnly(grid, {}, true, false); },
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
    modGrid::CreateColumn(grid, "COL1", 0, false);
    modPlan::TraceEnabled = true;
    EXPECT_EQ(modGrid::Status, GridStatus::ColumnDefined);
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
        const modGrid::RedrawAtEnd outer(grid);
        modGrid::Contents(grid, OneCell, "1", true);
        {
            const modGrid::RedrawAtEnd inner(grid);
            modGrid::Contents(grid, OneCell, "2", true);
        }
        EXPECT_EQ(watcher.calls, 0);
    }
    EXPECT_EQ(watcher.calls, 1);
    EXPECT_TRUE(grid.RedrawOn());
    modGrid::Contents(grid, OneCell, "3", false);
    EXPECT_EQ(watcher.calls, 1);
    modGrid::Redraw(grid);
    EXPECT_EQ(watcher.calls, 2);
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
        EXPECT_EQ(modGrid::ColorNames[i], Variant(expected[i].name));
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
