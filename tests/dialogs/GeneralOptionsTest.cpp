// SPDX-License-Identifier: MIT
#include "dialogs/DialogFixture.h"
#include "dialogs/frmGrid.h"

namespace planview {

using test::Lines;

namespace {

class GeneralOptionsTest : public test::DialogTest {
protected:
    [[nodiscard]] static Lines FormEntries() {
        return Entries([](const ListItem& item) { return item.text == "FRMGRID"; });
    }
};

}  // namespace

TEST_F(GeneralOptionsTest, OkWritesTheTableThenTheGridThenTellsTheHost) {
    context.shared.settings.moveAllowed = 1;
    context.shared.settings.backgroundColor = 7;
    context.shared.chooseColor = [](const ColorQuestion&) { return 15; };  // white
    WhileShown<frmGrid>([&](frmGrid& form) {
        EXPECT_EQ(form.chkMove.Value, 1);
        EXPECT_EQ(form.Get_BgColor(), 7);
        EXPECT_EQ(form.Get_GridLinesColor(), 8);
        EXPECT_TRUE(form.optDrag[1].Value) << "dragging is allowed at first";
        form.chkMove.Value = 0;
        form.chkSingleValue.Value = 1;
        form.Set_DragMode(2);
        form.picBgColor_Click();
        form.Set_GridLinesColor(11);
        form.cmdOk_Click();
    });
    context.grid.generalOptions.Run();

    EXPECT_EQ(gridLog->puts, (Lines{"NOMOVE_ALLOWED=X", "NORESIZE_ALLOWED=", "SINGLEVALUE=X", "BGCOLOR=0",
                                    "GRIDLINE_COLOR=11", "FIRST_COL=1", "FIRST_ROW=1"}));
    const GridSettingsState& grid = context.grid.control.Settings();
    EXPECT_FALSE(grid.moveAllowed);
    EXPECT_EQ(grid.dragDrop, 2);
    EXPECT_EQ(context.grid.control.Colors()[static_cast<std::size_t>(grid.backgroundColor)].name, "tovWhite");
    EXPECT_EQ(context.grid.control.Colors()[static_cast<std::size_t>(grid.gridLineColor)].name, "tovLightGreen");
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(platform.formCalls, (Lines{"load frmGrid", "show frmGrid", "hide frmGrid", "unload frmGrid"}));
    EXPECT_EQ(Entries(), (Lines{
                             "GRIDCTL | {} | #CHANGE GRID OPTIONS# | BEGIN",
                             "FRMGRID | {} | Form_Load | ",
                             "FRMGRID |  | Set_Text | {value: Grid general options}",
                             "FRMGRID | {} | Ok button pressed | ",
                             "GRIDCTL |  | move permission | {value:0 - redraw:False}",
                             "GRIDCTL |  | resize permission | {value:1 - redraw:False}",
                             "GRIDCTL |  | DragDrop | {value:2 - redraw:False}",
                             "GRIDCTL |  | background colour | {cid:  - rid:  - color:0 - redraw:False}",
                             "GRIDCTL |  | Gridlines color | {color:11 - redraw:False}",
                             "GRIDCTL | {changed} | GeneralOptions | ",
                             "FRMGRID | {} | Form_Unload | ",
                             "GRIDCTL |  | Update Q/7 tables fired | {}",
                         }));
}

TEST_F(GeneralOptionsTest, CancelAndClosingChangeNothing) {
    for (const bool byButton : {true, false}) {
        WhileShown<frmGrid>([&](frmGrid& form) {
            EXPECT_EQ(form.chkMove.Value, 1) << "starts from the settings again";
            form.chkMove.Value = 0;
            form.Set_BgColor(3);
            if (byButton) {
                form.cmdCancel_Click();
            }
        });
        context.grid.generalOptions.Run();
        EXPECT_EQ(gridLog->puts, Lines{});
        EXPECT_EQ(context.shared.settings.moveAllowed, 1);
        EXPECT_EQ(context.shared.settings.backgroundColor, 0);
        EXPECT_EQ(updates, 0);
        EXPECT_EQ(platform.formCalls.back(), "unload frmGrid");
    }
    EXPECT_EQ(EntriesOf("Cancel button pressed"), Lines{"FRMGRID | {} | Cancel button pressed | "});
}

TEST_F(GeneralOptionsTest, WithoutATableTheGridIsChangedAllTheSame) {
    context.shared.tables.GRID_ATTR = HostTable();
    WhileShown<frmGrid>([&](frmGrid& form) {
        form.Set_BgColor(5);
        form.cmdOk_Click();
    });
    context.grid.generalOptions.Run();
    EXPECT_EQ(context.grid.control.Settings().backgroundColor, 5);
    EXPECT_EQ(updates, 1);
}

TEST_F(GeneralOptionsTest, TheDragModeOutlivesARebuild) {
    WhileShown<frmGrid>([&](frmGrid& form) {
        form.Set_DragMode(0);
        form.cmdOk_Click();
    });
    context.grid.generalOptions.Run();
    context.grid.construction.CreateFromTables();
    EXPECT_EQ(context.grid.control.Settings().dragDrop, 0);
}

TEST_F(GeneralOptionsTest, ColoursComeByTheirPlaceInThePopup) {
    const struct {
        const char* name;
        std::optional<int> chosen;
        int index;
    } cases[] = {{"black stands first", 0, 1}, {"white stands last", 15, 0},  {"light blue", 9, 10},
                 {"closed", std::nullopt, 4},  {"not of the palette", 16, 4}, {"not at all", -1, 4}};
    for (const auto& row : cases) {
        ColorBox box{ViewColor::Base};
        box.Set(4);
        box.Click([&](const ColorQuestion&) { return row.chosen; });
        EXPECT_EQ(box.Get(), row.index) << row.name;
    }
    ColorBox box{ViewColor::Base};
    box.Set(15);
    box.Set(16);
    box.Set(-1);
    box.Click(nullptr);
    EXPECT_EQ(box.Get(), 15) << "what is no palette index leaves the box as it is";
}

TEST_F(GeneralOptionsTest, IsNotOpenedTwice) {
    int shown = 0;
    WhileShown<frmGrid>([&](frmGrid&) {
        ++shown;
        context.grid.generalOptions.Run();
    });
    context.grid.generalOptions.Run();
    EXPECT_EQ(shown, 1);
    context.grid.generalOptions.Run();
    EXPECT_EQ(shown, 2) << "but again when it was closed";
}

TEST_F(GeneralOptionsTest, AFailingTableEndsTheCommandAndTheForm) {
    ExpectErrors();
    WhileShown<frmGrid>([&](frmGrid& form) {
        tables.gridAttr->Clear();  // row 1 is gone when the answer comes
        form.cmdOk_Click();
    });
    context.grid.generalOptions.Run();
    EXPECT_EQ(platform.formCalls.back(), "unload frmGrid");
    EXPECT_EQ(Entries(IsError).size(), 1U);
    EXPECT_EQ(updates, 0);
}

}  // namespace planview
