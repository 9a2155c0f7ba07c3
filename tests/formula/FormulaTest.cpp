// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>
#include <random>

#include "formula/FormulaFixture.h"

namespace planview::test {

namespace {

using Lines = std::vector<int>;

TEST_F(FormulaTest, ALineIsComputedInEachPeriod) {
    const struct {
        const char* name;
        const char* text;
        const char* values;
    } cases[] = {
        {"arithmetic", "Retail * 2 - Staff / 4", "20 39.5 60 79"},
        {"an empty cell counts as 0", "Trade + 1", "6 1 8 1"},
        {"an empty cell stays empty alone", "Trade", "5 - 7 -"},
        {"copied", "COPY(Trade)", "5 - 7 -"},
        {"a cell", "Retail - (Retail, Jan)", "0 10 20 30"},
        {"the line's own first period", "(Total, Feb)", "- - - -"},
        {"a range without its text line", "SUM(Retail:Trade)", "116 122 140 144"},
        {"turned round", "SUM(Trade:Retail)", "116 122 140 144"},
        {"all cells of a block", "SUM(Retail:Trade, Jan:Feb)", "238 238 238 238"},
        {"the lines below", "SUM(MEMBERS)", "16 22 40 44"},
        {"computed with each of them", "SUM(MEMBERS * 2; 1)", "33 45 81 89"},
        {"mean without empty cells", "AVERAGE(Retail; Trade)", "7.5 20 18.5 40"},
        {"count", "COUNT(MEMBERS; Staff)", "4 3 4 3"},
        {"product", "PRODUCT(Retail; Trade; 2)", "100 40 420 80"},
        {"least and greatest", "MAX(MEMBERS) - MIN(MEMBERS)", "9 18 27 36"},
        {"nothing to count", "COUNT((Total, Jan))", "0 0 0 0"},
        {"nothing to multiply", "PRODUCT((Total, Jan))", "none none none none"},
        {"remainder", "MOD(Retail; 7)", "3 6 2 5"},
        {"remainder of a negative number", "MOD(-Retail; 7)", "4 1 5 2"},
        {"by a negative number", "MOD(Retail; -7)", "-4 -1 -5 -2"},
        {"whole number", "INT(Retail / 4)", "2 5 7 10"},
        {"whole number of a negative one", "INT(-Retail / 4)", "-3 -5 -8 -10"},
        {"running total", "CUMULATE(Retail)", "10 30 60 100"},
        {"running total over empty cells", "CUMULATE(Trade)", "5 5 12 12"},
        {"shifted", "SHIFT(CUMULATE(Retail); -1)", "none 10 30 60"},
        {"shifted out of the table", "SHIFT(CUMULATE(Retail); 1)", "30 60 100 none"},
        {"a block stays where it is", "SHIFT(SUM(Retail:Cost-Income, Jan:Feb) + Retail; 1)", "53 63 73 none"},
        {"a mean of cells and values", "AVERAGE(Retail:Cost-Income, Jan:Feb; Staff)", "6.6 7 6.6 7.4"},
        {"the least of a block", "MIN(Staff; Retail:Cost-Income, Feb:Mar)", "0 2 0 2"},
        {"of shifted values", "CUMULATE(SHIFT(Retail; -1))", "none 10 30 60"},
        {"mean of the periods before", "LAST(Retail; 2)", "none none 15 25"},
        {"their sum", "SUM(LAST(Retail; 2))", "none none 30 50"},
        {"the greatest of them", "MAX(LAST(Retail; 3); 15)", "15 15 15 30"},
        {"of several lines", "SUM(LAST(Retail:Cost-Income; 1))", "none 11 22 33"},
        {"more than there are", "SUM(LAST(Retail; 30000))", "none none none none"},
        {"of counts", "SUM(LAST(COUNT(Trade; Staff); 2))", "none none 3 3"},
        {"shifted to what stands there", "SHIFT(LAST(Retail; 2); 1)", "none 15 25 35"},
        {"growth", "GROWTH(LAST(Retail; 1))", "none none 1 0.5"},
        {"growth over two", "GROWTH(LAST(Retail; 2))", "none none none 2"},
        {"a choice", "IF(Retail >= 30 AND Staff <> 5; Retail; -1)", "-1 -1 30 40"},
        {"decided without a value", "IF(SHIFT(Retail; 1) > 0 AND 1 = 2; 1; 2)", "2 2 2 2"},
        {"not decided without a value", "IF(SHIFT(Retail; 1) > 0 AND 1 = 1; 1; 2)", "1 1 1 none"},
        {"what is not needed is not computed", "IF(Staff = 0; 9; 1 / Staff)", "9 0.5 9 0.25"},
        {"rounded", "ROUND(Retail / 3; 1)", "3.3 6.7 10 13.3"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Values(row.text), row.values) << row.name;
    }
}

TEST_F(FormulaTest, WhatCannotBeComputedIsAValueThatSaysWhy) {
    const struct {
        const char* name;
        const char* text;
        const char* values;
    } cases[] = {
        {"division by zero", "Retail / Staff", "#div 10 #div 10"},
        {"what depends on it", "ROUND(-(1 + Retail / Staff) * 2; 0)", "#div -22 #div -22"},
        {"in a sum", "SUM(Retail / Staff; 1)", "#div 11 #div 11"},
        {"counted", "COUNT(Retail / Staff)", "#div 1 #div 1"},
        {"in a running total from there on", "CUMULATE(1 / (Staff - 2))", "-0.5 #div #div #div"},
        {"compared", "IF(Retail / Staff > 1; 1; 2)", "#div 1 #div 1"},
        {"decided before", "IF(Staff = 0 OR Retail / Staff > 1; 1; 2)", "1 1 1 1"},
        {"decided by a fault", "IF(Retail / Staff > 1 AND 1 = 2; 1; 2)", "#div 2 #div 2"},
        {"no remainder", "MOD(Retail; Staff)", "#div 0 #div 0"},
        {"no growth from 0", "GROWTH(LAST(Staff; 1))", "none none #div -1"},
        {"a text", "Heading + 1", "#text 1 1 1"},
        {"a text of a block", "SUM(Heading; 2)", "#text 2 2 2"},
        {"too large", "Retail * 1E308 * 10", "#large #large #large #large"},
        {"too large in a sum", "SUM(1,7E308; 1,7E308)", "#large #large #large #large"},
        {"too large in a product", "PRODUCT(1E300; 1E300)", "#large #large #large #large"},
        {"nothing is worse than a gap", "1 / 0 + {Z|Gone}", "#gap #gap #gap #gap"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Values(row.text), row.values) << row.name;
    }
}

TEST_F(FormulaTest, AColumnIsComputedInEachLine) {
    const struct {
        const char* name;
        const char* text;
        const char* values;  ///< of Total, Retail, Cost-Income, Detail, Heading, Trade, Staff, And so on
    } cases[] = {
        {"a total", "SUM(Jan:Mar)", "0 60 6 300 #text 12 2 0"},
        {"a ratio", "Feb / Jan", "#div 2 2 1 #text 0 #div #div"},
        {"against a line", "Feb / (Staff, Feb)", "0 10 1 50 0 0 1 0"},
        {"a line that all have", "Staff", "4 4 4 4 4 4 4 4"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Values(Parse(row.text, FormulaAxis::Periods), 3), row.values) << row.name;
    }
}

TEST_F(FormulaTest, SomePeriodsAreComputedAsAllOfThem) {
    for (const char* text : {"SUM(MEMBERS)", "CUMULATE(Retail) - LAST(Retail; 2)", "SUM(LAST(Retail; 2)) / Staff",
                             "SUM(Retail:Trade, Jan:Feb) * Trade", "SHIFT(AVERAGE(Retail; Trade); 1)"}) {
        const BoundFormula bound = BindFormula(Parse(text), table, 0);
        FormulaValues all;
        EvaluateFormula(bound, table, Lines{0, 1, 2, 3}, all);
        for (const Lines& some : {Lines{2}, Lines{1, 3}, Lines{1, 2}, Lines{}}) {
            FormulaValues values;
            EvaluateFormula(bound, table, some, values);
            ASSERT_EQ(values.Size(), some.size());
            for (std::size_t i = 0; i < some.size(); ++i) {
                EXPECT_EQ(Text(values.At(i)), Text(all.At(static_cast<std::size_t>(some[i]))))
                    << text << " " << some[i];
            }
        }
    }
}

TEST_F(FormulaTest, LinesBelowALineAreItsMembers) {
    const struct {
        const char* name;
        std::vector<int> levels;
        Lines members;  ///< of the first line
    } cases[] = {
        {"one level", {0, 1, 1}, {1, 2}},
        {"not those below them", {0, 1, 2, 2, 1}, {1, 4}},
        {"up to the next of its level", {0, 1, 0, 1}, {1}},
        {"a level left out", {0, 3, 2, 1, 2}, {1, 2, 3}},
        {"none", {1, 1, 0}, {}},
        {"the last line", {0}, {}},
    };
    for (const auto& row : cases) {
        table.lines.clear();
        for (const int level : row.levels) {
            table.lines.push_back({"L" + std::to_string(table.lines.size()), "", level});
        }
        EXPECT_EQ(MembersOf(table, 0), row.members) << row.name;
    }
    EXPECT_EQ(Values("SUM(MEMBERS)"), "0 0 0 0") << "of nothing";
    EXPECT_EQ(Values("AVERAGE(MEMBERS)"), "none none none none");
    EXPECT_EQ(Values("SUM(MEMBERS * 2; 3)"), "3 3 3 3");
}

TEST_F(FormulaTest, FormulasFollowTheirLines) {
    const Formula total = Parse("SUM(Retail:Trade) + Staff");
    const Formula below = Parse("SUM(MEMBERS)");
    EXPECT_EQ(Values(total), "116 124 140 148");
    table.lines[1].caption = "Shops";
    EXPECT_EQ(PrintFormula(total, table), "SUM(Shops:Trade) + Staff") << "renamed";
    table.lines.insert(table.lines.begin() + 3, {"N", "  New", 1});
    table.values["N"] = Cells({1000, 1000, 1000, 1000});
    EXPECT_EQ(Values(total), "1116 1124 1140 1148") << "between the ends";
    EXPECT_EQ(Values(below), "1016 1022 1040 1044");
    std::swap(table.lines[1], table.lines[7]);  // Retail behind Trade and Staff before all
    EXPECT_EQ(table.lines[1].key, "S");
    EXPECT_EQ(PrintFormula(total, table), "SUM(Shops:Trade) + Staff") << "moved";
    table.lines.erase(table.lines.begin() + 7);
    EXPECT_EQ(Values(total), "#gap #gap #gap #gap") << "an end is gone";
    EXPECT_EQ(GapsOf(total, table), std::vector<std::string>{"Retail"});
    EXPECT_EQ(PrintFormula(total, table), "SUM({R:W|Retail|Trade}) + Staff");
    EXPECT_TRUE(ReadsOf(BindFormula(total, table, 0)) == (std::vector<FormulaRead>{{{1}, -1, -1, 0, 0}}));
}

TEST_F(FormulaTest, WhatIsReadIsKnown) {
    const struct {
        const char* text;
        std::vector<FormulaRead> reads;
    } cases[] = {
        {"Retail + Staff * Retail", {{{1}, -1, -1, 0, 0}, {{6}, -1, -1, 0, 0}}},
        {"SUM(MEMBERS)", {{{1, 2, 5}, -1, -1, 0, 0}}},
        {"SHIFT(LAST(Retail; 3); 2)", {{{1}, -1, -1, -1, 1}}},
        {"SHIFT(Staff; -12) + Staff", {{{6}, -1, -1, -12, -12}, {{6}, -1, -1, 0, 0}}},
        {"GROWTH(LAST(Staff; 12))", {{{6}, -1, -1, -13, -1}}},
        {"SHIFT(CUMULATE(Staff); 1)", {{{6}, -1, -1, FormulaRead::AllBefore, 1}}},
        {"SUM(Retail:Detail, Feb:Mar) + (Staff, Jan)", {{{1, 2, 3}, 1, 2, 0, 0}, {{6}, 0, 0, 0, 0}}},
        {"{Q|Gone} + 1", {}},
    };
    for (const auto& row : cases) {
        EXPECT_TRUE(ReadsOf(BindFormula(Parse(row.text), table, 0)) == row.reads) << row.text;
    }
}

TEST_F(FormulaTest, AreasThatDoNotFitAreAGap) {
    const Formula formula = Parse("SUM(MEMBERS * (Retail:Cost-Income))");
    EXPECT_EQ(Values(formula), "#gap #gap #gap #gap");
    EXPECT_EQ(BindFormula(formula, table, 0).fault, "Areas of 3 and of 2 lines do not fit each other.");
}

TEST_F(FormulaTest, GapsAreNamedOnce) {
    const Formula formula = Parse("{Z|Gone} + {Z|Gone} * {/P9|Dec} - SUM({R:Y|Retail|Old}) + {V}");
    EXPECT_EQ(GapsOf(formula, table), (std::vector<std::string>{"Gone", "Dec", "Old", "V"}));
    for (const auto& [kind, text] : {std::pair(FormulaKind::Text, "a text among the numbers"),
                                     {FormulaKind::DivisionByZero, "a division by zero"},
                                     {FormulaKind::TooLarge, "a number that becomes too large"},
                                     {FormulaKind::Gap, "a line or period that is not there any more"},
                                     {FormulaKind::Empty, ""}}) {
        EXPECT_EQ(FaultText(kind), text);
    }
}

TEST_F(FormulaTest, SumsAreExact) {
    table.lines.clear();
    table.periods.resize(1);
    std::mt19937 random(7);
    for (int i = 0; i < 10000; ++i) {
        table.lines.push_back({"L" + std::to_string(i), "", i == 0 ? 0 : 1});
        table.values[table.lines.back().key] = Cells({0.01});
    }
    const Formula sum = Parse("SUM(MEMBERS) + 0,01");
    EXPECT_EQ(Values(sum), "100") << "as many cents";
    EXPECT_EQ(Values(Parse("SUM(MEMBERS * 1) + 0,01")), "100") << "computed one by one";
    EXPECT_EQ(Values(Parse("SUM({L0:L9999/P1})")), "100") << "of a block";
    for (int i = 1; i < 10000; i += 2) {
        const double large = std::ldexp(static_cast<double>(random()), 40);
        table.values["L" + std::to_string(i)] = Cells({large});
        table.values["L" + std::to_string(10000 - i)] = Cells({-large});
    }
    table.values["L5000"] = Cells({0.25});
    FormulaValues exact;
    EvaluateFormula(BindFormula(sum, table, 0), table, Lines{0}, exact);
    EXPECT_NEAR(exact.numbers[0], 0.25 + 4998 * 0.01 + 0.01, 1e-9);
}

/// A dense matrix, whose columns lie apart.
struct Matrix final : FormulaSource {
    Matrix(std::size_t height, std::size_t width, bool byColumn) : lines(height), periods(width), turned(byColumn) {}
    [[nodiscard]] FormulaSpan TableLine(int line) override {
        const auto at = static_cast<std::size_t>(line);
        return turned ? FormulaSpan{numbers.data() + at, nullptr, lines, static_cast<std::ptrdiff_t>(periods)}
                      : FormulaSpan{numbers.data() + at * periods, nullptr, periods, 1};
    }
    std::size_t lines;
    std::size_t periods;
    bool turned;
    std::vector<double> numbers = std::vector<double>(lines * periods);
};

TEST_F(FormulaTest, ColumnsOfAMatrixAreReadWhereTheyLie) {
    Matrix matrix(8, 4, true);
    for (std::size_t i = 0; i < matrix.numbers.size(); ++i) {
        matrix.numbers[i] = static_cast<double>(i);
    }
    FormulaValues values;
    const BoundFormula bound = BindFormula(Parse("SUM(Jan:Mar) - Feb", FormulaAxis::Periods), table, 3);
    EvaluateFormula(bound, matrix, Lines{0, 1, 2, 7}, values);
    EXPECT_EQ(values.numbers, (std::vector<double>{2, 10, 18, 58}));
}

/// Whatever the values are: no fault is a number, and no number is infinite or none.
TEST_F(FormulaTest, NeverGivesANumberThatIsNone) {
    std::mt19937 random(11);
    const double extremes[] = {0,
                               -0.0,
                               1,
                               -1,
                               1e308,
                               -1.7e308,
                               5e-324,
                               1e15,
                               0.1,
                               std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()};
    const char* const operands[] = {"Retail", "Staff", "(Trade, Jan)", "MEMBERS", "Retail:Trade", "1E300", "Heading"};
    const auto operand = [&](bool many) { return std::string(operands[many ? random() % 7 : random() % 3]); };
    for (int round = 0; round < 2000; ++round) {
        for (const char* line : {"R", "C", "W", "S"}) {
            for (FormulaValue& value : table.values[line]) {
                value = {extremes[random() % std::size(extremes)], FormulaKind::Number};
            }
        }
        const std::string folds[] = {"SUM", "MIN", "MAX", "AVERAGE", "PRODUCT", "COUNT"};
        std::string text = folds[random() % 6] + "(" + operand(true) + "; " + operand(true) + ")";
        for (int step = 0; step < 3; ++step) {
            const std::string forms[] = {
                "(" + text + ") / " + operand(false),     "MOD(" + text + "; " + operand(false) + ")",
                "INT(" + text + ") - " + operand(false),  text + " * 1E200",
                "CUMULATE(" + text + " + Retail)",        "ROUND(" + text + "; 15)",
                "GROWTH(LAST(" + text + " + Retail; 1))", "SUM(LAST(" + text + " * Retail; 2))"};
            const bool hasLast = text.find("LAST") != std::string::npos;
            text = forms[random() % (hasLast ? 6 : 8)];
        }
        FormulaValues values;
        EvaluateFormula(BindFormula(Parse(text), table, 0), table, Lines{0, 1, 2, 3}, values);
        for (std::size_t i = 0; i < values.Size(); ++i) {
            ASSERT_TRUE(std::isfinite(values.numbers[i])) << text;
            ASSERT_TRUE(values.IsNumber(i) || values.numbers[i] == 0) << text;
        }
    }
}

}  // namespace

}  // namespace planview::test
