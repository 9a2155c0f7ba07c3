// SPDX-License-Identifier: MIT
#include "dialogs/DialogFixture.h"
#include "dialogs/frmRow.h"
#include "grid/modGrid.h"

namespace planview {

using test::Lines;

namespace {

class RowAttributesTest : public test::DialogTest {
protected:
    void Select(std::initializer_list<const char*> rows) {
        context.grid.control.ClearSelection();
        for (const char* row : rows) {
            context.grid.control.SetSelection({"", row}, false);
        }
    }
    void Set(int row, const char* field, Variant value) { tables.lineIndex->SetValue(row, field, std::move(value)); }
    [[nodiscard]] std::string RowState(const char* row) {
        return std::to_string(context.grid.control.Row(context.grid.control.FindRow(row).value()).height) +
               (context.grid.driver.HeadingSelected({{}, row}) ? " selected" : "");
    }
};

}  // namespace

TEST_F(RowAttributesTest, OkChangesTheFirstSelectedRowInOrder) {
    Set(2, "ROW_FONT", "Arial;10;Bold");
    Set(2, "ROW_ALIGN", 1);
    Set(2, "RELIEF", "X");
    Set(2, "ROW_BG", 14);
    Select({"ROW2", "ROW4", "ROW5"});
    context.shared.chooseColor = [](const ColorQuestion&) { return 9; };  // light blue
    WhileShown<frmRow>([&](frmRow& form) {
        EXPECT_EQ(form.lblRowLabel, "Line 2");
        EXPECT_EQ(form.chkRelief.Value, 1);
        EXPECT_EQ(form.chkChart.Value, 0);
        EXPECT_TRUE(form.optAlign[1].Value);
        EXPECT_EQ(form.txtHeight, "22");
        EXPECT_EQ(form.Get_BgColor(), 14);
        EXPECT_EQ(form.Get_FgColor(), 1);
        EXPECT_EQ(form.ListFont.Text(), "Arial");
        EXPECT_EQ(form.ListSize.Text(), "10");
        EXPECT_TRUE(form.optType[1].Value);
        EXPECT_EQ(form.Sample.contents, (Lines{"12,5", "", ""}));
        form.chkRelief.Value = 0;
        form.chkChart.Value = 1;
        form.Set_Alignment(2);
        form.txtHeight = "40";
        form.picFgColor_Click();
        form.ListFont.Choose("Courier New");
        form.cmdOk_Click();
    });
    Forget();
    context.grid.rowAttributes.Run();

    EXPECT_EQ(lineLog->puts, (Lines{"SHOW_CHART=X", "ROW_BG=14", "ROW_FG=10", "RELIEF=", "ROW_ALIGN=2", "ROW_HEIGHT=40",
                                    "ROW_FONT=Courier New;10;Bold", "ROW_MARKED="}));
    EXPECT_EQ(RowState("ROW2"), "40");
    EXPECT_EQ(RowState("ROW4"), "24 selected");
    EXPECT_EQ(RowState("ROW5"), "25 selected");
    const CellLook look = context.grid.control.Look(context.grid.control.FindCell({"COL1", "ROW2"}).value());
    EXPECT_EQ(look.font->name, "Courier New");
    EXPECT_FALSE(look.relief);
    EXPECT_EQ(look.alignment, GridAlignment::Center);
    EXPECT_EQ(updates, 1);
    const Lines entries = Entries();
    EXPECT_EQ(Lines(entries.begin(), entries.begin() + 5), (Lines{
                                                               "GRIDCTL | {} | #CHANGE ROW ATTRIBUTES# | BEGIN",
                                                               "FRMROW | {} | Form_Load | ",
                                                               "FRMROW |  | Set_Text | {value: Row properties}",
                                                               "FRMROW |  | Set row font |  {font: Arial;10;Bold}",
                                                               "FRMGRID | {} | Ok button pressed | ",
                                                           }));
    EXPECT_EQ(Lines(entries.end() - 4, entries.end()),
              (Lines{"GRIDCTL |  | DeleteSelection | {cid:  - rid: ROW2 - redraw:False}",
                     "GRIDCTL | {changed} | RowAttributes | ", "FRMROW | {} | Form_Unload | ",
                     "GRIDCTL |  | Update Q/7 tables fired | {}"}));
}

TEST_F(RowAttributesTest, WithoutASelectedRowNothingIsShown) {
    for (const bool cellOnly : {false, true}) {
        context.grid.control.ClearSelection();
        if (cellOnly) {
            context.grid.control.SetSelection({"COL1", "ROW2"}, false);
        }
        Forget();
        context.grid.rowAttributes.Run();
        EXPECT_EQ(platform.formCalls, (Lines{"load frmRow", "unload frmRow"}));
        EXPECT_EQ(lineLog->puts, Lines{});
        EXPECT_EQ(updates, 0);
    }
}

TEST_F(RowAttributesTest, CancelLeavesTableGridAndSelection) {
    Select({"ROW3"});
    WhileShown<frmRow>([&](frmRow& form) {
        form.txtHeight = "60";
        form.Set_BgColor(5);
        form.cmdCancel_Click();
    });
    context.grid.rowAttributes.Run();
    EXPECT_EQ(lineLog->puts, Lines{});
    EXPECT_EQ(RowState("ROW3"), "23 selected");
    EXPECT_EQ(updates, 0);
}

TEST_F(RowAttributesTest, ColoursOutsideThePaletteStayUntilOneIsChosen) {
    Set(3, "ROW_BG", -4);
    Set(3, "ROW_FG", 99);
    for (const bool chosen : {false, true}) {
        Select({"ROW3"});
        context.shared.chooseColor = [](const ColorQuestion&) { return 9; };  // light blue
        WhileShown<frmRow>([&](frmRow& form) {
            EXPECT_EQ(form.Get_FgColor(), 1) << "the text's usual colour";
            if (chosen) {
                form.picFgColor_Click();
            }
            form.cmdOk_Click();
        });
        context.grid.rowAttributes.Run();
        EXPECT_EQ(Text(*tables.lineIndex, 3, "ROW_BG"), "-4");
        EXPECT_EQ(Text(*tables.lineIndex, 3, "ROW_FG"), chosen ? "10" : "99");
    }
}

TEST_F(RowAttributesTest, TextLinesGetTheirChartMarkTwice) {
    Set(1, "ROW_TEXT", "X");
    Select({"ROW1"});
    WhileShown<frmRow>([&](frmRow& form) { form.cmdOk_Click(); });
    context.grid.rowAttributes.Run();
    EXPECT_EQ(std::count(lineLog->puts.begin(), lineLog->puts.end(), "SHOW_CHART="), 2);
}

/// Only the next build used to make it look locked again.
TEST_F(RowAttributesTest, ALockedLineGoesOnLookingLocked) {
    Set(2, "READONLY", "X");
    Set(2, "ROW_BG", 3);
    context.grid.construction.CreateFromTables();
    const auto look = [&] {
        const CellLook now = context.grid.control.Look(context.grid.control.FindCell({"COL1", "ROW2"}).value());
        return std::pair{now.background, now.foreground};
    };
    const std::pair built = look();
    EXPECT_EQ(built.first, modGrid::ReadOnlyBackground);
    Select({"ROW2"});
    WhileShown<frmRow>([&](frmRow& form) {
        form.Set_BgColor(5);
        form.cmdOk_Click();
    });
    context.grid.rowAttributes.Run();
    EXPECT_EQ(look(), built);
    Select({"ROW2"});
    context.runner.Run(Command::ColorRowBackground, {.value = std::int16_t{6}});
    context.runner.Run(Command::ColorRowText, {.value = std::int16_t{7}});
    EXPECT_EQ(look(), built);
    EXPECT_EQ(Text(*tables.lineIndex, 2, "ROW_BG") + Text(*tables.lineIndex, 2, "ROW_FG"), "67")
        << "kept for when the line is unlocked";
}

TEST_F(RowAttributesTest, ChartMarksChangeWithTheTickOnly) {
    const struct {
        const char* mark;
        bool tick;
        const char* after;
    } cases[] = {{"S", false, "S"}, {"F", false, "F"}, {"S", true, "X"},
                 {"", true, "X"},   {"X", true, "X"},  {"X", false, ""}};
    for (const char* textLine : {"", "X"}) {
        Set(3, "ROW_TEXT", textLine);
        for (const auto& row : cases) {
            Set(3, "SHOW_CHART", row.mark);
            Select({"ROW3"});
            WhileShown<frmRow>([&](frmRow& form) {
                form.chkChart.Value = row.tick ? 1 : 0;
                form.cmdOk_Click();
            });
            context.grid.rowAttributes.Run();
            EXPECT_EQ(Text(*tables.lineIndex, 3, "SHOW_CHART"), row.after) << row.mark << row.tick << textLine;
        }
    }
}

TEST_F(RowAttributesTest, AHostWithoutChartFieldsHasTheDialogToo) {
    /// LINE_INDEX without the field.
    class ChartlessTable final : public AutomationObject {
    public:
        explicit ChartlessTable(test::TableRef inner) : inner_(std::move(inner)) {}
        DispatchId IdOf(std::string_view name) const override { return inner_->IdOf(name); }
        Variant Get(DispatchId member, Arguments a) override {
            Refuse(a);
            return inner_->Get(member, a);
        }
        void Put(DispatchId member, Arguments a, const Variant& value) override {
            Refuse(a);
            inner_->Put(member, a, value);
        }
        Variant Call(DispatchId member, Arguments a) override { return inner_->Call(member, a); }

    private:
        static void Refuse(Arguments a) {
            if (a.size() == 2 && a[1].AsText() == "SHOW_CHART") {
                throw AutomationError(AutomationErrorCode::UnknownMember, "no such field");
            }
        }
        test::TableRef inner_;
    };
    context.shared.tables.LINE_INDEX = HostTable(std::make_shared<ChartlessTable>(tables.lineIndex));
    for (const bool tick : {false, true}) {
        Select({"ROW2"});
        bool shown = false;
        WhileShown<frmRow>([&](frmRow& form) {
            shown = true;
            form.chkChart.Value = tick ? 1 : 0;
            form.txtHeight = tick ? "50" : "40";
            form.cmdOk_Click();
        });
        if (tick) {
            ExpectErrors();
        }
        context.grid.rowAttributes.Run();
        EXPECT_TRUE(shown);
        EXPECT_EQ(RowState("ROW2"), tick ? "50" : "40");
    }
    EXPECT_EQ(Entries(IsError).size(), 1U) << "what was asked for and could not be kept";
}

TEST_F(RowAttributesTest, UntouchedFontsStayAsTheHostWroteThem) {
    const struct {
        const char* given;
        const char* shown;
        const char* afterBold;
    } cases[] = {
        {"", "||2", ";;Bold"},
        {"Lucida;12;Normal", "Lucida|12|2", "Lucida;12;Bold"},
        {"Verdana;11;Bold Cursiv", "Verdana|11|none", "Verdana;11;Bold"},
        {"courier new;9", "Courier New|9|2", "Courier New;9;Bold"},
        {";;Cursiv", "||0", ";;Bold"},
    };
    for (const auto& row : cases) {
        frmRow form(platform, platform, nullptr);
        form.Form_Load();
        EXPECT_EQ(form.ListFont.Items, (Lines{"Arial", "Courier", "Courier New", "Lucida", "Times New Roman"}));
        EXPECT_EQ(form.ListFont.Text() + form.ListSize.Text(), "Lucida12");
        EXPECT_EQ(form.FontText(), "Lucida;12;Normal") << "one style is chosen, whatever else";
        form.Set_Font(row.given);
        const Lines offered{"DejaVu Sans", "Arial"};
        form.OfferFonts(offered);
        std::string type = "none";
        for (std::size_t i = 0; i < form.optType.size(); ++i) {
            type = form.optType[i].Value ? std::to_string(i) : type;
        }
        EXPECT_EQ(form.ListFont.Text() + "|" + form.ListSize.Text() + "|" + type, row.shown);
        EXPECT_EQ(form.FontText(), row.given);
        for (std::size_t i = 0; i < form.optType.size(); ++i) {
            form.optType[i].Value = i == 1;
        }
        EXPECT_EQ(form.FontText(), row.afterBold);
    }
}

TEST_F(RowAttributesTest, BoldCursivStaysWhenOnlyTheSizeChanges) {
    frmRow form(platform, platform, nullptr);
    form.Form_Load();
    form.Set_Font("Arial;10;Cursiv Bold");
    form.ListSize.Choose("14");
    EXPECT_EQ(form.FontText(), "Arial;14;Bold Cursiv");
}

TEST_F(RowAttributesTest, HeightsThatMakeNoSenseKeepTheDialogOpen) {
    const struct {
        const char* text;
        bool taken;
    } cases[] = {{"8", true},   {"400", true}, {"0", true},     {"700", true},   {"7", false},          {"401", false},
                 {"-5", false}, {"", false},   {"12,5", false}, {"tall", false}, {"99999999999", false}};
    for (const auto& row : cases) {
        frmRow form(platform, platform, nullptr);
        form.Form_Load();
        form.Set_Height(700);  // as the host has it
        form.txtHeight = row.text;
        platform.messages.clear();
        platform.formCalls.clear();
        form.cmdOk_Click();
        EXPECT_EQ(form.ButtonPressed, row.taken ? "OK" : "CANCEL") << row.text;
        EXPECT_EQ(platform.formCalls.size(), row.taken ? 1U : 0U) << row.text;
        EXPECT_EQ(platform.messages.size(), row.taken ? 0U : 1U) << row.text;
        form.cmdReset_Click();
        EXPECT_EQ(form.Height(), 22);
    }
}

TEST_F(RowAttributesTest, ARowThatTheHostReplacedMeanwhileIsLeftAlone) {
    Select({"ROW5"});
    WhileShown<frmRow>([&](frmRow& form) {
        tables.lineIndex->RemoveRow(1);
        context.grid.construction.CreateFromTables();
        lineLog->puts.clear();
        form.cmdOk_Click();
    });
    context.grid.rowAttributes.Run();
    EXPECT_EQ(lineLog->puts, Lines{});
    EXPECT_EQ(updates, 0);
}

}  // namespace planview
