// SPDX-License-Identifier: MIT
#include "automation/NumberFormat.h"
#include "formula/FormulaFixture.h"

namespace planview::test {

namespace {

TEST_F(FormulaTest, NamesAreTypedAndShownAsCaptionsAndKeptAsKeys) {
    const struct {
        const char* name;
        const char* text;
        const char* shown;
        const char* stored;
    } cases[] = {
        {"blanks and case", "  retail*2", "Retail * 2", "{R|Retail} * 2"},
        {"a caption with a sign", "\"Cost-Income\" + 1", "\"Cost-Income\" + 1", "{C|Cost-Income} + 1"},
        {"without marks the longest name counts", "Cost-Income - Retail", "\"Cost-Income\" - Retail",
         "{C|Cost-Income} - {R|Retail}"},
        {"a caption like an operator", "And so on + 1", "And so on + 1", "{A|And so on} + 1"},
        {"signs", "-Retail + -2", "-Retail + -2", "-{R|Retail} + -2"},
        {"brackets", "( Retail+1 )*( 2 )", "(Retail + 1) * (2)", "({R|Retail} + 1) * (2)"},
        {"functions by both names", "minimum( Retail;Staff )", "MIN(Retail; Staff)", "MIN({R|Retail}; {S|Staff})"},
        {"a range", "sum(retail : trade)", "SUM(Retail:Trade)", "SUM({R:W|Retail|Trade})"},
        {"a cell", "Retail , jan + 1,5", "Retail, Jan + 1,5", "{R/P1|Retail|Jan} + 1,5"},
        {"a block", "SUM(Retail:Trade, Jan:Mar)", "SUM(Retail:Trade, Jan:Mar)",
         "SUM({R:W/P1:P3|Retail|Trade|Jan|Mar})"},
        {"a period of the line itself", "Jan * 2", "Jan * 2", "{/P1|Jan} * 2"},
        {"members", "sum(members)", "SUM(MEMBERS)", "SUM(MEMBERS)"},
        {"members with brackets", "SUM(MEMBERS())", "SUM(MEMBERS)", "SUM(MEMBERS)"},
        {"comparisons", "if(Retail<=1 or Staff<>2;1;2)", "IF(Retail <= 1 OR Staff <> 2; 1; 2)",
         "IF({R|Retail} <= 1 OR {S|Staff} <> 2; 1; 2)"},
        {"an exponent", "1e3 + 2.5E-3", "1000 + 0,0025", "1000 + 0,0025"},
        {"keys", "{R} + {R:W/P2|x|y|z} * 0", "Retail + Retail:Trade, Feb * 0", ""},
        {"what is gone", "{Q|Old \\} one} + 1", "{Q|Old \\} one} + 1", "{Q|Old \\} one} + 1"},
    };
    for (const auto& row : cases) {
        FormulaError error;
        const std::optional<Formula> formula = ParseFormula(row.text, table, FormulaAxis::Lines, error);
        if (row.stored[0] == '\0') {
            EXPECT_EQ(error.what, "It stands for several values, where one is needed.") << row.name;
            continue;
        }
        ASSERT_TRUE(formula) << row.name << ": " << error.what;
        EXPECT_EQ(PrintFormula(*formula, table), row.shown) << row.name;
        EXPECT_EQ(StoredText(*formula, table), row.stored) << row.name;
        for (const char* again : {row.shown, row.stored}) {
            EXPECT_EQ(StoredText(Parse(again), table), row.stored) << row.name << ": " << again;
        }
    }
}

TEST_F(FormulaTest, WhatIsWrongIsSaidWithItsPlace) {
    table.lines.push_back({"R2", "Staff", 0});
    const struct {
        const char* text;
        const char* what;
        const char* where;  ///< the part that is marked; empty: the end
    } cases[] = {
        {"", "It has no value yet.", ""},
        {"Retail * Nobody", "There is no line \"Nobody\".", "Nobody"},
        {"Retail, Dec", "There is no period \"Dec\".", "Dec"},
        {"1 + Staff", "Several lines are called \"Staff\".", "Staff"},
        {"Retail Trade", "An operator is missing before it.", "Trade"},
        {"Retail *", "Something is missing behind it.", "*"},
        {"(Retail + 1", "This bracket is not closed.", "("},
        {"1 + SUM(Retail", "This bracket is not closed.", "SUM"},
        {"Retail)", "No bracket is open that it could close.", ")"},
        {"Retail; 1", "It stands between the arguments of a function only.", ";"},
        {"Retail > 1", "A comparison is not a number.", ">"},
        {"IF(1; 2; 3)", "A comparison is needed here.", "1"},
        {"ROUND(Retail)", "It has 1 argument.", "ROUND"},
        {"LAST(Retail; 0)", "The number of periods is no whole number from 1 on.", "LAST"},
        {"LAST(2; 1)", "What it looks back at has no periods.", "LAST"},
        {"LAST(1 + GROWTH(LAST(Retail; 1)); 2)", "LAST stands in another LAST.", "LAST"},
        {"GROWTH(Retail)", "It is the growth over the periods of LAST.", "GROWTH"},
        {"CUMULATE((Retail, Jan))", "What it adds up has no periods.", "CUMULATE"},
        {"Retail + MEMBERS", "It stands for several values, where one is needed.", "+"},
        {"Retail:Trade", "It stands for several values, where one is needed.", "Retail:Trade"},
        {"\"Retail", "A quotation mark is not closed.", "\"Retail"},
        {"{R|a|b}", "This reference by keys is not complete.", "{R|a|b}"},
        {"{R\\}|x}", "This reference by keys is not complete.", "{R\\}"},
        {"{R", "This reference by keys is not complete.", "{R"},
        {"1 + 1.2.3", "\"1.2.3\" is not a number.", "1.2.3"},
        {"Retail:", "A name is missing.", ""},
        {"Retail } 2", "\"}\" means nothing here.", "}"},
    };
    for (const auto& row : cases) {
        FormulaError error;
        EXPECT_FALSE(ParseFormula(row.text, table, FormulaAxis::Lines, error)) << row.text;
        EXPECT_EQ(error.what, row.what) << row.text;
        EXPECT_FALSE(error.now.empty()) << row.text;
        ASSERT_LE(error.position + error.length, std::string(row.text).size()) << row.text;
        EXPECT_EQ(std::string(row.text).substr(error.position, error.length), row.where) << row.text;
    }
    FormulaError error;
    EXPECT_FALSE(ParseFormula("SUM(MEMBERS)", table, FormulaAxis::Periods, error));
    EXPECT_EQ(error.what, "A column has no lines below it.");
}

TEST_F(FormulaTest, ReferencesKnowTheirPlaceInTheText) {
    const std::string text = "SUM( Retail : Trade , Jan ) + {S|x} * \"Cost-Income\"";
    const Formula formula = Parse(text);
    std::vector<std::string> parts;
    for (const FormulaReference& reference : formula.References()) {
        parts.push_back(text.substr(reference.position, reference.length));
    }
    EXPECT_EQ(parts, (std::vector<std::string>{"Retail : Trade , Jan", "{S|x}", "\"Cost-Income\""}));
    EXPECT_EQ(formula.References()[0].lastPeriod, (FormulaPlace{"P1", "Jan"}));
    EXPECT_EQ(formula.References()[1].lastLine, (FormulaPlace{"S", "x"}));
}

TEST_F(FormulaTest, ReferencesByKeysAreWholeOrNone) {
    for (const char* text : {"{}", "{/}", "{R/}", "{R:}", "{:R}", "{R:S:W}", "{R/P1/P2}", "{R/P1:}", "{R S}", "{R\t}",
                             "{R\\|S|x}", "{{R}", "{|x}", "{R|a|b}", "{R:S|a}", "{R", "{R|x"}) {
        FormulaError error;
        EXPECT_FALSE(ParseFormula(text, table, FormulaAxis::Lines, error)) << text;
        EXPECT_EQ(error.what, "This reference by keys is not complete.") << text;
    }
}

TEST_F(FormulaTest, CaptionsThatSeveralHaveAreShownWithTheirKeys) {
    const Formula formula = Parse("Staff + Jan");
    table.lines.push_back({"S2", "Staff", 0});
    EXPECT_EQ(PrintFormula(formula, table), "{S|Staff} + Jan");
    table.lines.push_back({"J", "jan", 0});
    EXPECT_EQ(PrintFormula(formula, table), "{S|Staff} + {/P1|Jan}") << "a line of that name is read first";
    EXPECT_EQ(PrintFormula(Parse("Jan", FormulaAxis::Periods), table), "Jan");
    EXPECT_EQ(StoredText(Parse(PrintFormula(formula, table)), table), "{S|Staff} + {/P1|Jan}");
}

TEST_F(FormulaTest, NumbersAreReadAsTheCellsShowThem) {
    const NumberFormat grouped = NumberFormat::Parse("#,##0").value();
    FormulaError error;
    const auto shown = [&](const char* text, const NumberFormat* format) {
        return PrintFormula(ParseFormula(text, table, FormulaAxis::Lines, error, format).value(), table);
    };
    EXPECT_EQ(shown("136.000 + 1,125", nullptr), "136 + 1,125");
    EXPECT_EQ(shown("136.000 + 1,125", &grouped), "136000 + 1,125");
    EXPECT_EQ(shown(shown("136.000 + 1,125", &grouped).c_str(), &grouped), "136000 + 1,125");
}

/// A caption that begins with another one and a word of the language.
TEST_F(FormulaTest, WhatIsShownCanBeTypedBack) {
    table.lines = {
        {"A", "Search"}, {"B", "Search and rescue"}, {"C", "rescue"},   {"D", "2006"},    {"E", "say \"so\""},
        {"F", "Sum"},    {"G", "MEMBERS"},           {"H", "a{b}|c\\"}, {"I", "Jan:Feb"}, {"K", "Tage bis Öl"}};
    for (const char* stored :
         {"IF(1 = {A|Search} AND {C|rescue} = 2; 1; 2)", "{D|2006} + 2006", "{E|say \"so\"} - {F|Sum} * ({G|MEMBERS})",
          "SUM({G|MEMBERS}; {H|a{b\\}\\|c\\\\})", "{I|Jan:Feb} / {K|Tage bis Öl}", "SUM({A:C|Search|rescue})"}) {
        const std::string shown = PrintFormula(Parse(stored), table);
        EXPECT_EQ(StoredText(Parse(shown), table), stored) << shown;
    }
    EXPECT_EQ(PrintFormula(Parse("{K} * {F}"), table), "Tage bis Öl * Sum");
}

}  // namespace

}  // namespace planview::test
