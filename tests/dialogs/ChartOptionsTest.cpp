// SPDX-License-Identifier: MIT
#include "dialogs/DialogFixture.h"
#include "dialogs/frmChart.h"

namespace planview {

using test::Lines;

namespace {

class ChartOptionsTest : public test::DialogTest {
protected:
    ChartOptionsTest() {
        context.shared.settings.chartShown = true;
        tables.lineIndex->SetValue(2, "SHOW_CHART", "X");
        tables.lineIndex->SetValue(3, "SHOW_CHART", "X");
        context.chart.commands.Rebuild();
        Forget();
    }
    [[nodiscard]] const ChartState& Chart() const { return context.chart.control.State(); }
};

}  // namespace

TEST_F(ChartOptionsTest, OkReachesTableChartAndHost) {
    WhileShown<frmChart>([](frmChart& form) {
        EXPECT_EQ(form.Get_Type(), ChartType::Column);
        EXPECT_EQ(form.ListPosition.Text(), "Right");
        form.Set_Type(ChartType::StackedLine);
        form.txtTitle = "Plan";
        form.Set_Font("Times New Roman");
        form.chkMinAuto.Value = 0;
        form.txtMin.Text = "-2.5";
        form.chkMaxAuto.Value = 0;
        form.txtMax.Text = "40";
        form.txtMinRange.Text = "3";
        form.txtMaxRange.Text = "7,5";
        form.txtOptimum.Text = "5";
        form.ListOrientation.ListIndex = 3;
        form.ListPosition.ListIndex = 2;
        form.chkScrollBar.Value = 1;
        form.txtCategories.Text = "2";
        form.picArea.Set(5);
        form.chkSelection.Value = 0;
        form.chkChange.Value = 0;
        form.chkLabelY.Value = 0;
        form.cmdOk_Click();
    });
    context.chart.options.Run();

    EXPECT_EQ(gridLog->puts,
              (Lines{"CHART_TYPE=21", "NO_AUTOMIN=X", "NO_AUTOMAX=X", "MINVALUE=-2.5", "MAXVALUE=40", "MINRANGE=3",
                     "MAXRANGE=7.5", "OPTIMUM=5", "TITELTEXT=Plan", "FIRST_COL=1", "FIRST_ROW=1"}));
    EXPECT_EQ(Text(*tables.lineIndex, 2, "CHART_TYPE"), "21");
    EXPECT_EQ(Text(*tables.lineIndex, 1, "CHART_TYPE"), "") << "a line that is not in the chart";
    EXPECT_EQ(Chart().series[0].type, ChartType::StackedLine);
    EXPECT_EQ(Chart().title, "Plan");
    EXPECT_EQ(Chart().legend.font.name, "Times New Roman");
    EXPECT_EQ(Chart().legend.position, LegendPosition::Top);
    EXPECT_FALSE(Chart().valueAxis.minimumIsAuto);
    EXPECT_EQ(Chart().valueAxis.minimum, -2.5);
    EXPECT_EQ(Chart().valueAxis.rangeMaximum.value, 7.5);
    EXPECT_EQ(Chart().categoryAxis.orientation, LabelOrientation::Vertical);
    EXPECT_EQ(Chart().categoryAxis.visibleCategories, 3) << "one more than asked for";
    EXPECT_EQ(Chart().chartArea.colorIndex, 9) << "red in the chart's own palette";
    EXPECT_FALSE(Chart().allowSelect);
    EXPECT_FALSE(Chart().allowValueChange);
    EXPECT_FALSE(Chart().valueAxis.visible);
    EXPECT_EQ(updates, 1);
    EXPECT_EQ(Entries([](const ListItem& item) { return item.text == "FRMCHART"; }),
              (Lines{"FRMCHART | {} | Form_Load | ", "FRMCHART |  | Set_Text | {value: Chart options}",
                     "FRMCHART | {} | Ok button pressed | ", "FRMCHART | {} | Form_Unload | "}));
}

TEST_F(ChartOptionsTest, AStackedChartTakesTheLinesTypesBack) {
    tables.lineIndex->SetValue(2, "CHART_TYPE", std::int16_t{22});
    WhileShown<frmChart>([](frmChart& form) {
        form.Set_Type(ChartType::StackedColumn100);
        form.cmdOk_Click();
    });
    context.chart.options.Run();
    EXPECT_EQ(Text(*tables.lineIndex, 2, "CHART_TYPE"), "23");
    EXPECT_EQ(Chart().series[0].type, ChartType::StackedColumn100);
}

TEST_F(ChartOptionsTest, CancelChangesNothing) {
    const std::uint64_t version = context.chart.control.Version();
    WhileShown<frmChart>([](frmChart& form) {
        form.Set_Type(ChartType::Line);
        form.txtTitle = "x";
        form.cmdCancel_Click();
    });
    context.chart.options.Run();
    EXPECT_EQ(gridLog->puts, Lines{});
    EXPECT_EQ(context.shared.settings.chartType, 0);
    EXPECT_EQ(context.shared.settings.titleText, "");
    EXPECT_EQ(context.chart.control.Version(), version);
    EXPECT_EQ(updates, 0);
}

TEST_F(ChartOptionsTest, NumbersAreReadAsTheAxisShowsThem) {
    const struct {
        const char* format;
        const char* typed;
        double number;
        const char* settled;
    } rows[] = {
        {"#,##0", "136.000", 136000, "136000"},
        {"", "136.000", 136000, "136000"},
        {"0.00", "136.000", 136, "136"},
        {"#,##0", "136,5", 136.5, "136,5"},
        {"#,##0", "1.234.567", 1234567, "1.234.567"},
        {"#,##0.0\" EUR\"", "1.250,5 EUR", 1250.5, "1.250,5 EUR"},
        {"0%", "12%", 0.12, "12%"},
        {"#,##0", "", 0, ""},
    };
    for (const auto& row : rows) {
        for (const int line : {2, 3}) {
            tables.lineIndex->SetValue(line, "ROW_FORMAT", row.format);
        }
        context.chart.commands.Rebuild();
        WhileShown<frmChart>([&](frmChart& form) {
            form.txtMax.Text = row.typed;
            form.txtMax.Settle();
            EXPECT_EQ(form.txtMax.Text, row.settled) << row.format;
            form.txtMax.Text = row.typed;
            form.cmdOk_Click();
        });
        context.chart.options.Run();
        EXPECT_EQ(context.shared.settings.maximum, row.number) << row.typed << " under " << row.format;
    }
}

TEST_F(ChartOptionsTest, WhatCannotBeTakenIsSaidAndTheFormStays) {
    const struct {
        const char* name;
        std::function<void(frmChart&)> enter;
        const char* says;
    } rows[] = {
        {"no number", [](frmChart& form) { form.txtOptimum.Text = "much"; }, "much"},
        {"no categories", [](frmChart& form) { form.txtCategories.Text = ""; }, "Visible periods"},
        {"half a category", [](frmChart& form) { form.txtCategories.Text = "2,5"; }, "Visible periods"},
        {"too many", [](frmChart& form) { form.txtCategories.Text = "32767"; }, "32766"},
        {"minimum above maximum",
         [](frmChart& form) {
             form.chkMinAuto.Value = form.chkMaxAuto.Value = 0;
             form.txtMin.Text = "5";
             form.txtMax.Text = "5";
         },
         "minimum"},
        {"range upside down",
         [](frmChart& form) {
             form.txtMinRange.Text = "9";
             form.txtMaxRange.Text = "8";
         },
         "range"},
    };
    for (const auto& row : rows) {
        platform.messages.clear();
        WhileShown<frmChart>([&](frmChart& form) {
            row.enter(form);
            form.cmdOk_Click();
            EXPECT_EQ(form.ButtonPressed, "CANCEL") << row.name;
        });
        context.chart.options.Run();
        ASSERT_EQ(platform.messages.size(), 1u) << row.name;
        EXPECT_NE(platform.messages[0].text.find(row.says), std::string::npos) << platform.messages[0].text;
    }
    EXPECT_EQ(gridLog->puts, Lines{});
}

}  // namespace planview
