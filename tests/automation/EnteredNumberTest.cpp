// SPDX-License-Identifier: MIT
#include <cmath>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "automation/EnteredNumber.h"
#include "automation/NumberFormat.h"
#include "automation/Numbers.h"

namespace planview {
namespace {

std::optional<EnteredNumber> Read(const char* text, const std::string& code) {
    const std::optional<NumberFormat> format = NumberFormat::Parse(code);
    return ReadEntered(text, format ? &*format : nullptr);
}

TEST(EnteredNumberTest, ReadsATextInItsPlace) {
    const struct {
        const char* text;
        const char* code;
        double number;
        std::optional<double> other = std::nullopt;
        bool guess = false;
    } cases[] = {
        // One mark before three digits.
        {"136.000", "#,##0", 136000, 136, true},
        {"136.000", "0", 136, 136000, true},
        {"136.000", "", 136, 136000, true},
        {"-136.000", "#,##0", -136000, -136, true},
        {"-136.000", "0;-#,##0", -136000, -136, true},
        {"136.000", "0;-#,##0", 136, 136000, true},
        {"1,234", "#,##0", 1.234, 1234, true},
        {"1,234", "#,##0.000", 1.234, 1234, false},
        {"1.234", "#,##0.000", 1234, 1.234, true},
        {"1.234", "General", 1.234, 1234, true},
        {"1.234%", "#,##0%", 12.34, 0.01234, true},
        {"(1.234)", "#,##0", -1234, -1.234, true},
        {"1.234 EUR", "#,##0\" EUR\"", 1234, 1.234, true},
        // Texts that decide alone.
        {"0.123", "#,##0", 0.123},
        {"0.007", "0,000", 7, 0.007},
        {".123", "#,##0", 0.123},
        {"1234.567", "#,##0", 1234.567},
        {"1.234E5", "#,##0", 123400},
        {"136.00", "#,##0", 136},
        {"1.234.567", "0", 1234567},
        {"1,234.567", "#,##0", 1234.567},
        {"1 234,567", "#,##0", 1234.567},
        // What cells show.
        {"50%", "", 0.5},
        {"25,7 %", "0.0 %", 0.257},
        {"%50", "0", 0.5},
        {"50", "0%", 50},
        {"50%", "0\"%\"", 50},
        {"-50%", "", -0.5},
        {"(50%)", "", -0.5},
        {"5-", "", -5},
        {"(5)", "", -5},
        {"( 5 )", "0", -5},
        {"1'234", "", 1234},
        {"1\u2019234\u2019567.5", "", 1234567.5},
        {"1.234,5 EUR", "#,##0.0\" EUR\"", 1234.5},
        {"1.234,5EUR", "#,##0.0\" EUR\"", 1234.5},
        {"1.234,5", "#,##0.0\" EUR\"", 1234.5},
        {"-€ 5", "\"€ \"0", -5},
        {"€ -5", "\"€ \"0", -5},
        {"\u221212\u00A0€", "0 €", -12},
        {"5 €", "0\u00A0€", 5},
        {"(5 h)", "0\" h\";(0\" h\")", -5},
        {"loss 5", "0;\"loss \"0", -5},
        {"57", "\"5\"0", 7},
        {"-", "0;-0;\"-\"", 0},
        {"none", "0;-0;\"none\"", 0},
        {"1,5E+20 h", "0\" h\"", 1.5e20},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(std::string(row.text) + " by " + row.code);
        const std::optional<EnteredNumber> read = Read(row.text, row.code);
        ASSERT_TRUE(read);
        EXPECT_EQ(read->number, row.number);
        EXPECT_EQ(read->other, row.other);
        EXPECT_EQ(read->IsGuess(), row.guess);
    }
}

TEST(EnteredNumberTest, RefusesWhatNoCellShows) {
    const struct {
        const char* text;
        const char* code = "#,##0.0\" EUR\"";
    } cases[] = {{""},          {"%"},     {"()"},  {"-"},     {"(-5)"}, {"-5-"},      {"--5"},       {"- -5"},
                 {"(5"},        {"5)"},    {"5%%"}, {"((5))"}, {"5--"},  {"1'23"},     {"1'234 567"}, {"'5"},
                 {"5 EUR EUR"}, {"5 USD"}, {"EUR"}, {"EUR 5"}, {"abc"},  {"1.234.56"}, {"5 €", ""},   {"1E999"}};
    for (const auto& row : cases) {
        EXPECT_FALSE(Read(row.text, row.code)) << row.text;
    }
    EXPECT_FALSE(ReadEntered(std::string(1 << 20, '9'), nullptr)) << "a megabyte of digits";
}

TEST(EnteredNumberTest, OneTextThatCanBeReadInOneWayDecidesForItsBlock) {
    const struct {
        const char* beside;
        const char* code;
        double number;
        bool guess;
    } cases[] = {
        {"1,234,567", "", 12345, false},  {"1.5", "#,##0.000", 12345, false}, {"1,5", "", 12.345, false},
        {"1.234.567", "", 12.345, false}, {"999", "", 12.345, true},          {"text", "", 12.345, true},
        {"9,876", "", 12.345, true},      {"1'234.5", "", 12345, false},      {"0.125", "", 12345, false},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.beside);
        MarkEvidence evidence;
        if (const std::optional<EnteredNumber> beside = Read(row.beside, row.code)) {
            evidence.Add(*beside);
        }
        EnteredNumber read = Read("12,345", row.code).value();
        evidence.Decide(read);
        EXPECT_EQ(read.number, row.number);
        EXPECT_EQ(read.IsGuess(), row.guess);
    }
    MarkEvidence contradictory;
    contradictory.Add(Read("1.5", "").value());
    contradictory.Add(Read("1,5", "").value());
    EnteredNumber read = Read("136.000", "#,##0").value();
    contradictory.Decide(read);
    EXPECT_EQ(read.number, 136000);
    EXPECT_TRUE(read.IsGuess());
}

TEST(EnteredNumberTest, TablesGetTextsThatTheyReadAsTheSameNumber) {
    for (const auto& [entered, number, text] :
         {std::tuple("12.5", 12.5, "12.5"), std::tuple("136.000", 136000.0, "136000"),
          std::tuple("136.000", 136.0, "136.000"), std::tuple("50%", 0.5, "0,5"), std::tuple("(5)", -5.0, "-5"),
          std::tuple("1'234,567", 1234.567, "1234,567")}) {
        EXPECT_EQ(TableText(entered, number), text) << entered;
        EXPECT_EQ(TryParseNumber(TableText(entered, number)), number) << entered;
    }
}

/// Whatever a number's code shows is read, and shown again as the same text.
TEST(EnteredNumberTest, EveryShownTextCanBeTypedBack) {
    const char* const codes[] = {"0",
                                 "000",
                                 "#",
                                 "0.00",
                                 "0.000",
                                 "#.###",
                                 "0.0##",
                                 "#,##0",
                                 "0,000",
                                 "#,##0.0",
                                 "#,##0.000",
                                 "#,##0.###",
                                 "0%",
                                 "0.0 %",
                                 "#,##0.000%",
                                 "%0",
                                 "+0;-0",
                                 "+0",
                                 "-0",
                                 "(0)",
                                 "0-",
                                 "0\"%\"",
                                 "\"5\"0",
                                 "0\"000\"",
                                 "0;(0)",
                                 "#,##0.00;(#,##0.00)",
                                 "#,##0;#,##0-",
                                 "0;-#,##0",
                                 "#,##0;-0",
                                 "0;0",
                                 "0.0 ;-0.0%",
                                 "\"€ \"#,##0.00",
                                 "#,##0.00 €",
                                 "#,##0\u00A0€",
                                 "[$€-407] #,##0.00;[Red]-[$€-407] #,##0.00",
                                 "$#,##0.00_);[Red]($#,##0.00)",
                                 "#,##0.0\" EUR\"",
                                 "\"ca. \"0\" t; x\"",
                                 "\"x\"0;\"y\"0;\"z\"",
                                 "0;-0;\"-\"",
                                 "0;;\"none\"",
                                 "General",
                                 "General\" h\"",
                                 "General;[Red](General)",
                                 "@",
                                 "_-* #,##0.00 €_-;-* #,##0.00 €_-;_-* \"-\"?? €_-;_-@_-",
                                 "_(* #,##0_);_(* (#,##0);_(* \"-\"??_);_(@_)"};
    std::mt19937 random(14);  // the same numbers in every run
    std::uniform_real_distribution<double> digits(-10, 10);
    std::uniform_int_distribution<int> power(-6, 17);
    for (const char* code : codes) {
        const std::optional<NumberFormat> format = NumberFormat::Parse(code);
        ASSERT_TRUE(format) << code;
        const auto check = [&](double value) {
            const std::string shown = format->Format(value);
            if (shown.empty()) {
                return;
            }
            const std::optional<EnteredNumber> read = ReadEntered(shown, &*format);
            ASSERT_TRUE(read) << "'" << shown << "' by " << code;
            EXPECT_EQ(format->Format(read->number), shown)
                << value << " by " << code << " was read as " << read->number;
            EXPECT_EQ(TryParseNumber(TableText(shown, read->number)), read->number) << shown;
        };
        for (const double value :
             {0.0,    1.0,    -1.0,     7.0,       -0.001,    0.5,          0.05, 136.0, 136.789, 999.0,
              1000.0, 1234.5, 136000.0, -136000.0, 1234567.0, -1234567.891, 1e14, 1e15,  -1.5e20, 2.5e300}) {
            check(value);
        }
        for (int i = 0; i < 500; ++i) {
            check(digits(random) * std::pow(10.0, power(random)));
        }
    }
}

}  // namespace
}  // namespace planview
