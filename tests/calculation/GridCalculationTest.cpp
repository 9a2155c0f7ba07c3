// SPDX-License-Identifier: MIT
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <planview/MemoryTable.h>
#include <planview/PlanView.h>

#include "automation/Numbers.h"
#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/ScriptedPlatform.h"
#include "support/TraceOracle.h"

namespace planview::test {
namespace {

/// Two months and their total; all goods (1) of construction (2) and manufacturing (3), their ratio (4).
class GridCalculationTest : public TracedTest {
protected:
    GridCalculationTest() : control(std::make_unique<PlanView>(platform.Interfaces())) {
        for (const char* caption : {"Jan", "Feb", "Both"}) {
            tables.AddColumn(++columns_, caption);
        }
        for (const char* caption : {"Goods", "  Construction", "  Manufacturing", "Ratio"}) {
            tables.AddLine(++lines_, caption);
        }
        formulas = std::make_shared<MemoryTable>(std::vector<std::string>{"TARGET", "FORMULA", "SOLVE_ORDER", "ENTRY"});
        Formula("ROW1", "SUM(MEMBERS)");
        Formula("COL3", "Jan + Feb", 1);
        Formula("ROW4", "Construction / Manufacturing", 2, "");
        tables.AddValue(2, 1, 10);
        tables.AddValue(2, 2, 20);
        tables.AddValue(3, 1, 30);
        tables.AddValue(3, 2, 40);
        tables.GiveTo(*control);
        control->Calculation().SetFormulas(formulas);
        control->DP_Import_Create();
        ForgetEntries();
    }

    void Formula(const char* target, const char* text, int order = 0, const char* entry = "X") {
        const std::int32_t row = formulas->AddRow();
        formulas->SetValue(row, "TARGET", target);
        formulas->SetValue(row, "FORMULA", text);
        formulas->SetValue(row, "SOLVE_ORDER", order);
        formulas->SetValue(row, "ENTRY", entry);
    }
    [[nodiscard]] GridControl& Grid() { return ControlParts(*control).Grid(); }
    [[nodiscard]] Cell At(const char* column, const char* row) { return Grid().FindCell({column, row}).value(); }
    void Type(const char* column, const char* row, const char* text) { Grid().EnterText(At(column, row), text); }
    [[nodiscard]] std::string Shown() {
        std::string text;
        for (const RowId row : Grid().Rows(RowArea::Center)) {
            text += text.empty() ? "" : " | ";
            for (const ColumnId column : Grid().Columns(ColumnArea::Center)) {
                text += (text.empty() || text.back() == ' ' ? "" : " ") + Grid().Contents({column, row});
            }
        }
        return text;
    }
    [[nodiscard]] std::string InTab(int line, int period) const {
        for (std::int32_t row = 1; row <= tables.tab->RowCount(); ++row) {
            if (tables.tab->Value(row, "Z").AsInt32() == line && tables.tab->Value(row, "C").AsInt32() == period) {
                return tables.tab->Value(row, "V").AsText();
            }
        }
        return "none";
    }

    ScriptedPlatform platform;
    Tables tables;
    std::shared_ptr<MemoryTable> formulas;
    std::unique_ptr<PlanView> control;

private:
    int columns_ = 0;
    int lines_ = 0;
};

constexpr const char* AtFirst = "40 60 100 | 10 20 30 | 30 40 70 | 0,333333333333333 0,5 0,428571428571429";

TEST_F(GridCalculationTest, TotalsStandInTheGridAndInTheTableAfterABuild) {
    EXPECT_EQ(Shown(), AtFirst);
    EXPECT_EQ(InTab(1, 3), "100");
    EXPECT_EQ(tables.tabOld->RowCount(), 0);
    EXPECT_TRUE(control->Calculation().IsComputed({"COL3", "ROW2"}));
    EXPECT_FALSE(control->Calculation().IsComputed({"COL1", "ROW2"}));
    EXPECT_EQ(control->Calculation().FormulaOf({"COL1", "ROW4"}), "Construction / Manufacturing");
    EXPECT_TRUE(control->Calculation().Problems().empty());
}

TEST_F(GridCalculationTest, TotalsFollowALeafWithinItsAction) {
    Type("COL1", "ROW2", "60");
    EXPECT_EQ(Shown(), "90 60 150 | 60 20 80 | 30 40 70 | 2 0,5 1,14285714285714");
    EXPECT_EQ(InTab(1, 3), "150");
    EXPECT_EQ(tables.tabOld->RowCount(), 1) << "what is computed is nobody's pending change";
    control->Editing().Undo();
    EXPECT_EQ(Shown(), AtFirst);
    EXPECT_EQ(InTab(1, 3), "100");
    EXPECT_FALSE(control->Editing().CanUndo()) << "one action, one step";
    control->Editing().Redo();
    EXPECT_EQ(InTab(1, 3), "150");
}

TEST_F(GridCalculationTest, ATotalThatIsEnteredIsSpreadOverBothAxes) {
    Type("COL3", "ROW1", "200");
    EXPECT_EQ(Shown(), "80 120 200 | 20 40 60 | 60 80 140 | 0,333333333333333 0,5 0,428571428571429");
    EXPECT_EQ(tables.tabOld->RowCount(), 4);
    control->Editing().Undo();
    EXPECT_EQ(Shown(), AtFirst);
    EXPECT_FALSE(control->Editing().CanUndo());
}

TEST_F(GridCalculationTest, AHostSpreadsByAnyMethod) {
    struct Case {
        SpreadMethod method;
        double number;
        const char* goods;  ///< both cells below, in January
    };
    const Case cases[] = {{SpreadMethod::Equal, 50, "50 60 110 | 25 20 45 | 25 40 65"},
                          {SpreadMethod::Repeat, 7, "14 60 74 | 7 20 27 | 7 40 47"},
                          {SpreadMethod::Percent, 10, "44 60 104 | 11 20 31 | 33 40 73"},
                          {SpreadMethod::StraightLine, 50, "50 60 110 | 10 20 30 | 40 40 80"}};
    for (const Case& c : cases) {
        EXPECT_EQ(control->Calculation().Spread({"COL1", "ROW1"}, c.number, c.method), "");
        EXPECT_EQ(Shown().substr(0, std::string(c.goods).size()), c.goods);
        control->Editing().Undo();
        EXPECT_EQ(Shown(), AtFirst);
    }
    EXPECT_EQ(control->Calculation().Spread({"COL3", "ROW1"}, 160, SpreadMethod::Profile, "ROW2"), "");
    EXPECT_EQ(Shown().substr(0, 36), "53,34 106,66 160 | 26,67 53,33 80 | ") << "by the months of construction";
    EXPECT_NE(control->Calculation().Spread({"COL1", "ROW4"}, 1), "") << "a ratio is no sum";
    EXPECT_NE(control->Calculation().Spread({"COL9", "ROW4"}, 1), "");
}

TEST_F(GridCalculationTest, WhatCannotBeEnteredIsRefusedInWords) {
    Type("COL1", "ROW4", "3");
    EXPECT_EQ(Shown(), AtFirst);
    ASSERT_EQ(platform.messages.size(), 1U);
    EXPECT_EQ(platform.messages.front().text, "This cell is computed. Change the cells that it is computed from.");
    const ValueChange ratio{{"COL1", "ROW4"}, 3.0};
    const ChangeResult result = control->Editing().ChangeValues(std::span(&ratio, 1), "Test");
    EXPECT_EQ(result.refused, 1);
    EXPECT_EQ(result.reason, platform.messages.front().text);
}

TEST_F(GridCalculationTest, ADivisionByZeroShowsADashAndItsReason) {
    Type("COL1", "ROW3", "0");
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW4")), "\u2013");
    EXPECT_EQ(control->Calculation().Explain({"COL1", "ROW4"}),
              "= Construction / Manufacturing\nThere is no value because of a division by zero.");
    EXPECT_EQ(InTab(4, 1), "");
    Type("COL1", "ROW3", "5");
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW4")), "2");
}

TEST_F(GridCalculationTest, WhatTheHostHasChangedIsFollowedToo) {
    tables.tab->SetValue(1, "V", 60);
    const CellKey cell{"COL1", "ROW2"};
    control->View().UpdateCells({&cell, 1});
    EXPECT_EQ(Shown(), "90 60 150 | 60 20 80 | 30 40 70 | 2 0,5 1,14285714285714");
    EXPECT_EQ(InTab(1, 3), "150");
    EXPECT_EQ(tables.tabOld->RowCount(), 0);
}

/// Whatever is entered: totals are what their leaves make, an entered total is met, and undoing all gives the first
/// plan.
TEST_F(GridCalculationTest, AnyEditsKeepThePlanAPlan) {
    std::mt19937 random(20);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    const auto number = [&](const char* column, const char* row) {
        return Grid().Number(At(column, row), Grid().Look(At(column, row))).value_or(0);
    };
    const char* columns[] = {"COL1", "COL2", "COL3"};
    const char* rows[] = {"ROW1", "ROW2", "ROW3"};
    int steps = 0;
    for (int edit = 0; edit < 200; ++edit) {
        const char* column = columns[upTo(3)];
        const char* row = rows[upTo(3)];
        const double entered = upTo(20000) / 100.0 - 20;
        const std::string before = Shown();
        switch (upTo(4)) {
            case 0:
                control->Editing().Undo();
                steps -= steps > 0 ? 1 : 0;
                break;
            case 1: {
                const ValueChange values[] = {{{"COL1", "ROW2"}, entered}, {{column, row}, entered * 2}};
                control->Editing().ChangeValues(values, "Two values");
                steps += Shown() != before ? 1 : 0;
                break;
            }
            default:
                Type(column, row, NumberText(entered, ',').c_str());
                EXPECT_NEAR(number(column, row), entered, 1e-9) << "edit " << edit;
                steps += Shown() != before ? 1 : 0;
                break;
        }
        for (const char* each : rows) {
            EXPECT_NEAR(number("COL3", each), number("COL1", each) + number("COL2", each), 1e-9);
        }
        for (const char* each : columns) {
            EXPECT_NEAR(number(each, "ROW1"), number(each, "ROW2") + number(each, "ROW3"), 1e-9);
        }
        ASSERT_FALSE(HasFailure()) << "edit " << edit << ": " << before << " became " << Shown();
    }
    EXPECT_GT(steps, 20);
    while (control->Editing().CanUndo()) {
        control->Editing().Undo();
    }
    EXPECT_EQ(Shown(), AtFirst);
}

TEST_F(GridCalculationTest, AFormulaIsReadForItsTarget) {
    const Calculation calculation = control->Calculation();
    const FormulaReading line = calculation.Read("ROW1", "construction+ {ROW3|Old name}");
    EXPECT_EQ(line.target + " = " + line.shown, "Goods = Construction + Manufacturing");
    EXPECT_EQ(line.stored, "{ROW2|Construction} + {ROW3|Manufacturing}");
    EXPECT_EQ(calculation.Read("ROW4/COL2", "Goods, Jan").target, "Ratio, Feb");
    EXPECT_EQ(calculation.Read("COL3", "Jan + Feb").shown, "Jan + Feb");
    EXPECT_EQ(calculation.Read("ROW9", "1").error, "There is no line or column \"ROW9\".");
    EXPECT_NE(calculation.Read("ROW1", "Nonsense").error, "");
    EXPECT_EQ(calculation.Read("ROW1", "Nonsense").stored, "Nonsense");
}

TEST_F(GridCalculationTest, WhatFollowsFromOneValueIsAnnouncedWithIt) {
    std::string heard;
    control->Editing().AddBulkListener([&](bool running) { heard += running ? "(" : ")"; });
    Type("COL1", "ROW2", "60");
    EXPECT_EQ(heard, "()");
    Type("COL1", "ROW1", "70");
    EXPECT_EQ(heard, "()()");
}

TEST_F(GridCalculationTest, RowsThatCannotBeComputedAreNamed) {
    Formula("ROW9", "1");
    Formula("ROW1", "1");
    Formula("ROW2", "Nonsense + 1");
    Formula("ROW3", "Manufacturing + 1");
    control->DP_Import_Create();
    std::string problems;
    for (const FormulaProblem& problem : control->Calculation().Problems()) {
        problems += std::to_string(problem.row) + " " + problem.target + "; ";
    }
    EXPECT_EQ(problems, "4 ROW9; 5 ROW1; 6 ROW2; 0 \"Manufacturing\"; ");
    EXPECT_EQ(Grid().Contents(At("COL1", "ROW3")), "30") << "a cycle leaves its values";
    control->Calculation().SetFormulas(nullptr);
    control->DP_Import_Create();
    EXPECT_TRUE(control->Calculation().Problems().empty());
    EXPECT_FALSE(control->Calculation().IsComputed({"COL1", "ROW1"}));
    ForgetEntries();
}

}  // namespace
}  // namespace planview::test
