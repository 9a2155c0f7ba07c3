// SPDX-License-Identifier: MIT
#include <functional>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "components/GridControl.h"
#include "grid/modGrid.h"
#include "support/TraceOracle.h"
#include "trace/TraceText.h"

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

    using Seen = std::function<bool()>;

    /// Calls an operation, with and without redraw by turns, and expects one entry of it, "{keys - label:value -
    /// redraw:flag}", and that it is `seen` in the grid.
    template <class Call, class Value>
    void Check(const char* method, const std::string& keys, const char* label, const Value& value, const Call& call,
               const Seen& seen) {
        SCOPED_TRACE(method);
        redraw_ = !redraw_;
        ForgetEntries();
        EXPECT_FALSE(seen()) << "the grid is so already";
        call(redraw_);
        EXPECT_EQ(Entries(), Lines{std::string("GRIDCTL |  | ") + method + " | " +
                                   TraceText("{", keys, label, ":", value, " - redraw:", redraw_, "}").Text()});
        EXPECT_TRUE(seen());
    }
    template <class Result, class Value>
    void OnGrid(const char* method, const char* label, Result (modGrid::*operation)(Value, bool),
                std::type_identity_t<Value> value, const Seen& seen) {
        Check(
            method, "", label, value, [&](bool redraw) { (driver.*operation)(value, redraw); }, seen);
    }
    /// On a column or row as a track.
    template <class Result, class Value>
    void OnTrack(const char* key, const char* method, const char* label,
                 Result (modGrid::*operation)(std::string_view, Value, bool), std::type_identity_t<Value> value,
                 const Seen& seen) {
        Check(
            method, "cid: " + std::string(key) + " - ", label, value,
            [&](bool redraw) { (driver.*operation)(key, value, redraw); }, seen);
    }
    template <class Result, class Value>
    void On(const CellKeyView& keys, const char* method, const char* label,
            Result (modGrid::*operation)(const CellKeyView&, Value, bool), std::type_identity_t<Value> value,
            const Seen& seen) {
        Check(
            method, "cid: " + std::string(keys.column) + " - rid: " + std::string(keys.row) + " - ", label, value,
            [&](bool redraw) { (driver.*operation)(keys, value, redraw); }, seen);
    }
    /// One that has no redraw of its own or no value.
    void Plain(const std::function<void()>& call, const char* entry, const Seen& seen) {
        SCOPED_TRACE(entry);
        ForgetEntries();
        EXPECT_FALSE(seen()) << "the grid is so already";
        call();
        EXPECT_EQ(Entries(), Lines{entry});
        EXPECT_TRUE(seen());
    }

    GridControl grid;
    modGrid driver{grid};

private:
    bool redraw_ = false;
};

constexpr CellKeyView OneCell{"COL1", "ROW1"};
constexpr CellKeyView OneRow{{}, "ROW1"};
constexpr CellKeyView OneColumn{"COL1", {}};

}  // namespace

TEST_F(ModGridTest, OperationsOnTheGridAsAWhole) {
    const GridSettingsState& settings = grid.Settings();
    OnGrid("DoubleBuffering", "value", &modGrid::DoubleBuffering, 1, [&] { return settings.doubleBuffering; });
    OnGrid("move permission", "value", &modGrid::MovePermission, 1, [&] { return settings.moveAllowed; });
    OnGrid("resize permission", "value", &modGrid::ResizePermission, 0, [&] { return !settings.resizeAllowed; });
    OnGrid("DragDrop", "value", &modGrid::DragDrop, 1, [&] { return settings.dragDrop == 1; });
    OnGrid("Gridlines color", "color", &modGrid::GridlinesColor, 9, [&] { return settings.gridLineColor == 9; });
    On({}, "background colour", "color", &modGrid::BackgroundColor, 15, [&] { return settings.backgroundColor == 15; });
    OnGrid("switch", "switched", &modGrid::Switch, true, [&] { return settings.switched; });

    Plain([&] { driver.LabelColWidth(210); }, "GRIDCTL |  | LabelColWidth | {width:210}",
          [&] { return settings.labelColumnWidth == 210; });
    Plain([&] { driver.LabelAutoFit(1); }, "GRIDCTL |  | LabelAutoFit | {width:1}",
          [&] { return settings.labelAutoFit; });
    Plain([&] { driver.FirstColumn("COL2", false); }, "GRIDCTL |  | FirstColumn | {cid: COL2 - redraw:False}",
          [&] { return grid.FirstColumn() == grid.FindColumn("COL2"); });
    Plain([&] { driver.FirstRow("ROW2", true); }, "GRIDCTL |  | FirstRow | {cid: ROW2 - redraw:True}",
          [&] { return grid.FirstRow() == grid.FindRow("ROW2"); });
    Plain([&] { driver.SetRedraw(false); }, "GRIDCTL |  | SetRedraw | {redraw:False}",
          [&] { return !grid.RedrawOn(); });
    Plain([&] { driver.CreateColor("hostPink", 1, 2, 3); }, "GRIDCTL |  | CreateColor | {color:hostPink}",
          [&] { return grid.Colors().size() == 17 && grid.Colors()[16].blue == 3; });
    Plain([&] { driver.Destructor(false); }, "GRIDCTL |  | DESTRUCTOR | {redraw:False}",
          [&] { return !settings.created; });
    Plain([&] { driver.CreateLabelled(); }, "GRIDCTL | CONSTRUCTOR | CreateLabelled | {}",
          [&] { return settings.created; });
}

TEST_F(ModGridTest, OperationsOnColumnsAndRows) {
    OnTrack("FRC4", "CreateColumn", "pos", &modGrid::CreateColumn, 1,
            [&] { return grid.FindColumn("FRC4").has_value(); });
    OnTrack("FBR4", "CreateRow", "pos", &modGrid::CreateRow, 1, [&] { return grid.FindRow("FBR4").has_value(); });
    OnTrack("COL1", "column width", "width", &modGrid::ColumnWidth, 91, [&] { return Col1().width == 91; });
    OnTrack("COL1", "ColumnHeight", "height", &modGrid::ColumnHeight, 31, [&] { return Col1().height == 31; });
    OnTrack("ROW1", "row height", "height", &modGrid::RowHeight, 32, [&] { return Row1().height == 32; });
    OnTrack("ROW1", "RowWidth", "width", &modGrid::RowWidth, 92, [&] { return Row1().width == 92; });
    On(OneRow, "CenterHidden", "hidden", &modGrid::CenterHidden, true, [&] { return Row1().hidden; });

    Plain([&] { driver.SetSelection(OneRow, false); }, "GRIDCTL |  | SetSelection | {cid:  - rid: ROW1 - redraw:False}",
          [&] { return driver.HeadingSelected(OneRow); });
    Plain([&] { driver.DeleteSelection(OneRow, true); },
          "GRIDCTL |  | DeleteSelection | {cid:  - rid: ROW1 - redraw:True}",
          [&] { return !driver.HeadingSelected(OneRow); });
    Plain([&] { driver.SelectionFlag(OneColumn, false); },
          "GRIDCTL |  | SelectionFlag | {cid: COL1 - rid:  - redraw:False}", [&] { return !Col1().selectable; });
}

TEST_F(ModGridTest, OperationsOnCells) {
    const Cell cell = grid.FindCell(OneCell).value();
    const auto look = [&] { return grid.Look(cell); };
    On(OneCell, "Contents", "contents", &modGrid::Contents, "12,5", [&] { return grid.Contents(cell) == "12,5"; });
    On(OneCell, "Tooltip", "contents", &modGrid::Tooltip, "Tip", [&] { return grid.Tooltip(cell) == "Tip"; });
    On(OneCell, "ReadOnly", "readonly", &modGrid::ReadOnly, true, [&] { return look().readOnly; });
    On(OneCell, "format", "format", &modGrid::Format, "0.00", [&] { return grid.DisplayText(cell) == "12,50"; });
    On(OneCell, "font", "font", &modGrid::Font, ";14;Bold", [&] { return look().font && look().font->size == 14; });
    On(OneCell, "Alignment", "align", &modGrid::Alignment, 2,
       [&] { return look().hasAlignment && look().alignment == GridAlignment::Center; });
    On(OneCell, "relief", "relief", &modGrid::Relief, true, [&] { return look().relief; });
    On(OneCell, "background colour", "color", &modGrid::BackgroundColor, 4, [&] { return look().background == 4; });
    On(OneCell, "foreground colour", "color", &modGrid::ForegroundColor, 5, [&] { return look().foreground == 5; });
    Plain([&] { driver.Bitmap(OneCell, "lock", 2, false); },
          "GRIDCTL |  | bitmap | {cid: COL1 - rid: ROW1 - bitmap:lock - redraw:False}",
          [&] { return look().bitmap && *look().bitmap == "lock" && look().bitmapAlignment == GridAlignment::Center; });
}

/// Each of these reaches both planning cells of the row and not its label.
TEST_F(ModGridTest, OperationsOnTheCentreOfARow) {
    const auto centre = [&](auto has) { return [this, has] { return Where(has) == "BB."; }; };
    using Look = const CellLook&;
    On(OneRow, "CenterFormat", "format", &modGrid::CenterFormat, "0.0",
       centre([](Look look) { return look.format && look.format->Format(1) == "1,0"; }));
    On(OneRow, "CenterFont", "font", &modGrid::CenterFont, ";;Cursiv",
       centre([](Look look) { return look.font && look.font->italic; }));
    On(OneRow, "CenterAlignment", "align", &modGrid::CenterAlignment, 1,
       centre([](Look look) { return look.hasAlignment && look.alignment == GridAlignment::Left; }));
    On(OneRow, "CenterReadOnly", "readonly", &modGrid::CenterReadOnly, true,
       centre([](Look look) { return look.readOnly; }));
    On(OneRow, "CenterTextLine", "textline", &modGrid::CenterTextLine, "X",
       centre([](Look look) { return look.textLine; }));
    On(OneRow, "CenterHelpLine", "helpline", &modGrid::CenterHelpLine, "H",
       centre([](Look look) { return look.helpLine; }));
    On(OneRow, "CenterRelief", "relief", &modGrid::CenterRelief, true, centre([](Look look) { return look.relief; }));
    On(OneRow, "CenterBgColor", "color", &modGrid::CenterBgColor, 6,
       centre([](Look look) { return look.background == 6; }));
    On(OneRow, "CenterFgColor", "color", &modGrid::CenterFgColor, 7,
       centre([](Look look) { return look.foreground == 7; }));
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
