// SPDX-License-Identifier: MIT
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "automation/Numbers.h"
#include "calculation/PlanCalculation.h"
#include "calculation/PlanLeaves.h"

namespace planview {
namespace {

/// Lines R0, R1 ... and periods C0, C1 ..., without an outline.
class Names final : public FormulaNames {
public:
    Names(int lines, int periods, std::vector<int> levels) : lines_(lines), periods_(periods), levels_(levels) {}
    [[nodiscard]] int Count(FormulaAxis axis) const override { return axis == FormulaAxis::Lines ? lines_ : periods_; }
    [[nodiscard]] std::string Key(FormulaAxis axis, int place) const override { return Caption(axis, place); }
    [[nodiscard]] std::string Caption(FormulaAxis axis, int place) const override {
        return (axis == FormulaAxis::Lines ? "R" : "C") + std::to_string(place);
    }
    [[nodiscard]] std::optional<int> Find(FormulaAxis axis, std::string_view key) const override {
        for (int place = 0; place < Count(axis); ++place) {
            if (Key(axis, place) == key) {
                return place;
            }
        }
        return std::nullopt;
    }
    [[nodiscard]] bool IsTextLine(int /*line*/) const override { return false; }
    [[nodiscard]] int Level(int line) const override {
        return line < static_cast<int>(levels_.size()) ? levels_[static_cast<std::size_t>(line)] : 0;
    }

private:
    int lines_;
    int periods_;
    std::vector<int> levels_;
};

struct Written {
    FormulaAxis axis;
    int target;
    std::string text;
    int solveOrder = 0;
    std::optional<int> only = std::nullopt;
};

constexpr FormulaAxis Line = FormulaAxis::Lines;
constexpr FormulaAxis Period = FormulaAxis::Periods;

/// A plan of formulas as a user types them.
class Plan {
public:
    Plan(int lines, int periods, const std::vector<Written>& written, std::vector<int> levels = {}, int fixed = 0)
        : names_(lines, periods, std::move(levels)) {
        std::vector<PlanFormula> formulas;
        for (const Written& each : written) {
            FormulaError error;
            const std::optional<Formula> formula = ParseFormula(each.text, names_, each.axis, error);
            EXPECT_TRUE(formula) << each.text << ": " << error.what;
            if (formula) {
                formulas.push_back({each.axis, each.target, each.only, BindFormula(*formula, names_, each.target),
                                    each.solveOrder, true});
            }
        }
        plan_ =
            std::make_unique<PlanCalculation>(std::move(formulas), PlanSize{lines, periods, lines, periods + fixed});
    }
    PlanCalculation* operator->() { return plan_.get(); }
    PlanCalculation& operator*() { return *plan_; }

    std::vector<PlanCell> Enter(int line, int period, double value) {
        const PlanCell cell{line, period};
        plan_->Set(cell, {value, FormulaKind::Number});
        return plan_->Compute(std::span(&cell, 1));
    }
    [[nodiscard]] std::string Shown(int line) const {
        std::string text;
        for (int period = 0; period < plan_->Size().allPeriods; ++period) {
            const FormulaValue value = plan_->At({line, period});
            text += (period == 0 ? "" : " ") + (value.IsNumber()      ? NumberText(value.number)
                                                : IsFault(value.kind) ? "!"
                                                                      : "-");
        }
        return text;
    }

private:
    Names names_;
    std::unique_ptr<PlanCalculation> plan_;
};

TEST(PlanCalculationTest, ATotalOfTotalsFollowsOneLeaf) {
    // R0 = all groups; R1 = R2 + R3; R4 = R5 + R6
    Plan plan(7, 3, {{Line, 0, "SUM(MEMBERS)"}, {Line, 1, "SUM(MEMBERS)"}, {Line, 4, "SUM(MEMBERS)"}},
              {0, 1, 2, 2, 1, 2, 2});
    for (const int line : {2, 3, 5, 6}) {
        for (int period = 0; period < 3; ++period) {
            plan->Set({line, period}, {line + period / 10.0, FormulaKind::Number});
        }
    }
    plan->ComputeAll();
    EXPECT_EQ(plan.Shown(0), "16 16.4 16.8");
    const std::vector<PlanCell> changed = plan.Enter(5, 1, 105.1);
    EXPECT_EQ(changed, (std::vector<PlanCell>{{4, 1}, {0, 1}})) << "only what depends on it, and each once";
    EXPECT_EQ(plan.Shown(0), "16 116.4 16.8");
    EXPECT_TRUE(plan.Enter(5, 1, 105.1).empty());
}

TEST(PlanCalculationTest, WhereALineAndAColumnCrossTheHigherSolveOrderComputes) {
    // R0 sales, R1 costs, R2 margin in percent; C2 is the total of C0 and C1
    for (const bool marginWins : {true, false}) {
        Plan plan(3, 3, {{Line, 2, "(R0 - R1) / R0 * 100", marginWins ? 2 : 0}, {Period, 2, "C0 + C1", 1}});
        plan->Set({0, 0}, {100, FormulaKind::Number});
        plan->Set({0, 1}, {300, FormulaKind::Number});
        plan->Set({1, 0}, {50, FormulaKind::Number});
        plan->Set({1, 1}, {270, FormulaKind::Number});
        plan->ComputeAll();
        EXPECT_EQ(plan.Shown(0), "100 300 400");
        EXPECT_EQ(plan.Shown(2), marginWins ? "50 10 20" : "50 10 60");
        plan.Enter(1, 1, 150);
        EXPECT_EQ(plan.Shown(2), marginWins ? "50 50 50" : "50 50 100");
    }
}

TEST(PlanCalculationTest, ABalanceRunsThroughTimeAndPassesTotals) {
    // R0 stock = stock before + R1 in, R2 = stock before + 2; C2 is the total of C0 and C1.
    Plan plan(3, 5,
              {{Line, 0, "SUM(SHIFT(R0; -1); R1)"}, {Line, 2, "SUM(SHIFT(R0; -1); 2)"}, {Period, 2, "C0 + C1", 1}});
    for (const int period : {0, 1, 3, 4}) {
        plan->Set({1, period}, {16, FormulaKind::Number});
    }
    plan->ComputeAll();
    EXPECT_TRUE(plan->Graph().Cycles().empty());
    const std::string before = plan.Shown(0);
    plan.Enter(1, 0, 32);
    EXPECT_NE(plan.Shown(0), before);
    plan.Enter(1, 0, 16);
    EXPECT_EQ(plan.Shown(0), before);
}

TEST(PlanCalculationTest, ACycleNamesItsMembersAndLeavesTheirValues) {
    Plan plan(5, 2, {{Line, 0, "R1 + 1"}, {Line, 1, "R2 * 2"}, {Line, 2, "R0"}, {Line, 3, "R4 + R0"}});
    plan->Set({0, 0}, {7, FormulaKind::Number});
    plan->Set({4, 0}, {1, FormulaKind::Number});
    plan->ComputeAll();
    EXPECT_EQ(plan->Graph().Cycles(), (std::vector<std::vector<int>>{{0, 1, 2}}));
    EXPECT_EQ(plan->At({0, 0}).number, 7);
    EXPECT_EQ(plan->At({3, 0}).number, 8) << "what reads a member goes on with its value";
    EXPECT_EQ(plan.Enter(4, 0, 2), (std::vector<PlanCell>{{3, 0}}));
}

TEST(PlanCalculationTest, AFaultIsAValueThatIsMended) {
    Plan plan(4, 1, {{Line, 2, "R0 / R1"}, {Line, 3, "R2 + 1"}});
    plan->Set({0, 0}, {6, FormulaKind::Number});
    plan->Set({1, 0}, {0, FormulaKind::Number});
    plan->ComputeAll();
    EXPECT_EQ(plan->At({3, 0}).kind, FormulaKind::DivisionByZero);
    EXPECT_EQ(plan.Enter(1, 0, 2).size(), 2U);
    EXPECT_EQ(plan.Shown(3), "4");
}

TEST(PlanCalculationTest, ACellAndAFixedColumnHaveFormulasOfTheirOwn) {
    Plan plan(2, 3, {{Line, 1, "R0 * 2"}, {Line, 1, "R0 + 100", 0, 1}, {Period, 3, "AVERAGE(C0:C2)"}}, {}, 1);
    for (int period = 0; period < 3; ++period) {
        plan->Set({0, period}, {period + 1.0, FormulaKind::Number});
    }
    plan->ComputeAll();
    EXPECT_EQ(plan.Shown(0), "1 2 3 2");
    EXPECT_EQ(plan.Shown(1), "2 102 6 36.6666666666667");
    EXPECT_EQ(plan.Enter(0, 1, 5).size(), 3U);
    EXPECT_EQ(plan.Shown(1), "2 105 6 37.6666666666667");
}

std::string LeavesText(const PlanCalculation& plan, PlanCell total) {
    const std::optional<std::vector<WeightedLeaf>> leaves = LeavesOf(plan, total);
    std::string text;
    for (const WeightedLeaf& leaf : leaves.value_or(std::vector<WeightedLeaf>{})) {
        text += (text.empty() ? "" : " ") + std::string("R") + std::to_string(leaf.cell.line) + "C" +
                std::to_string(leaf.cell.period) + "*" + NumberText(leaf.weight);
    }
    return leaves ? text : "none";
}

TEST(PlanLeavesTest, TakesATotalApartOnBothAxes) {
    // R3 = R0 + R1, R4 = R3 - R2 / 2, R5 = mean of R0 and R1, R6 = a product; C2 = C0 + C1
    Plan plan(8, 3,
              {{Line, 3, "SUM(R0:R1)"},
               {Line, 4, "R3 + R0 - R2 / 2"},
               {Line, 5, "AVERAGE(R0:R1)"},
               {Line, 6, "R0 * R1"},
               {Line, 7, "R7 + 1"},
               {Period, 2, "C0 + C1", 1}});
    plan->Set({0, 0}, {1, FormulaKind::Number});
    plan->ComputeAll();
    EXPECT_EQ(LeavesText(*plan, {4, 0}), "R0C0*2 R1C0*1 R2C0*-0.5") << "a leaf by two ways has both weights";
    EXPECT_EQ(LeavesText(*plan, {3, 2}), "R0C0*1 R0C1*1 R1C0*1 R1C1*1");
    EXPECT_EQ(LeavesText(*plan, {5, 0}), "R0C0*1") << "an empty cell does not count";
    EXPECT_EQ(LeavesText(*plan, {5, 1}), "R0C1*0.5 R1C1*0.5") << "but where all are empty";
    EXPECT_EQ(LeavesText(*plan, {6, 0}), "none");
    EXPECT_EQ(LeavesText(*plan, {7, 0}), "none") << "a cycle";
    EXPECT_EQ(LeavesText(*plan, {0, 0}), "none") << "a leaf";
}

TEST(PlanLeavesTest, ALongChainIsTakenApartWithoutBeingFollowedTwice) {
    constexpr int Periods = 5000;
    Plan plan(3, Periods, {{Line, 1, "SUM(SHIFT(R1; -1); SHIFT(R2; -1); R0)"}, {Line, 2, "SUM(SHIFT(R2; -1); R0)"}});
    EXPECT_EQ(LeavesOf(*plan, {1, Periods - 1}).value().size(), static_cast<std::size_t>(Periods));
}

/// After any edits the plan is the one that computing everything anew gives.
TEST(PlanCalculationTest, ComputingWhatChangedIsComputingEverything) {
    std::mt19937 random(20);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    for (int round = 0; round < 60; ++round) {
        constexpr int Lines = 12;
        constexpr int Periods = 9;
        std::vector<Written> written;
        const char* shapes[] = {"SUM(R%:R%)",        "R% + R% * 2", "R% / R%",         "SHIFT(R%; -1) + R%",
                                "CUMULATE(R%) - R%", "MAX(R%; R%)", "LAST(R%; 3) + R%"};
        for (int line = 8; line < Lines; ++line) {
            std::string text = shapes[upTo(7)];
            for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%')) {
                text.replace(at, 1, std::to_string(upTo(line)));
            }
            written.push_back({Line, line, text, upTo(3)});
        }
        written.push_back({Period, 4, "SUM(C0:C3)", upTo(3)});
        written.push_back({Period, 8, "SUM(C5:C7)", upTo(3)});
        Plan plan(Lines, Periods, written);
        Plan anew(Lines, Periods, written);
        plan->ComputeAll();
        for (int edit = 0; edit < 60; ++edit) {
            const PlanCell cell{upTo(Lines), upTo(Periods)};
            const FormulaValue value{upTo(100) - 30.0, upTo(8) == 0 ? FormulaKind::Empty : FormulaKind::Number};
            if (plan->IsComputed(cell)) {
                continue;
            }
            plan->Set(cell, value);
            anew->Set(cell, value);
            static_cast<void>(plan->Compute(std::span(&cell, 1)));
        }
        anew->ComputeAll();
        for (int line = 0; line < Lines; ++line) {
            ASSERT_EQ(plan.Shown(line), anew.Shown(line)) << "round " << round << ", line " << line;
        }
    }
}

}  // namespace
}  // namespace planview
