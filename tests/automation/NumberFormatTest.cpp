// SPDX-License-Identifier: MIT
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "automation/NumberFormat.h"

namespace planview {
namespace {

TEST(NumberFormatTest, ShowsNumbersByCode) {
    struct Row {
        const char* code;
        double value;
        const char* shown;
    };
    for (const Row& row : {
             Row{"0", 1234.5, "1235"},
             {"0", 0, "0"},
             {"0", -0.4, "0"},
             {"0", -0.5, "-1"},
             {"0", 0.5, "1"},
             {"0", 0.049, "0"},
             {"0", 9.5, "10"},
             {"000", 7, "007"},
             {"#", 0, ""},
             {"#.##", 0.5, ",5"},
             {"0.00", 1.005, "1,01"},  // binary doubles lie below it
             {"0.00", 2.675, "2,68"},
             {"0.00", 99.995, "100,00"},
             {"0.00", -12.3, "-12,30"},
             {"0.0#", 1.2, "1,2"},
             {"0.0#", 1.25, "1,25"},
             {"0.0##", 1.0, "1,0"},
             {"#,##0", 0, "0"},
             {"#,##0", 999, "999"},
             {"#,##0", 1000, "1.000"},
             {"#,##0", 999999.5, "1.000.000"},
             {"#,##0.0", 1234.5, "1.234,5"},
             {"#,##0.0", -1234567.89, "-1.234.567,9"},
             {"0,000", 7, "0.007"},
             {"0%", 0.256, "26%"},
             {"0.0 %", 0.2565, "25,7 %"},
             {"%0", 1.005, "%101"},
             {"+0", 5, "+5"},
             {"\"ca. \"0\" t; x\"", 5, "ca. 5 t; x"},
             {"\"€ \"#,##0.00", 1e6, "€ 1.000.000,00"},
             {"0;(0)", 5, "5"},
             {"0;(0)", -5, "(5)"},
             {"0;(0)", -0.2, "0"},
             {"0.00;(0)", -4.6, "(5)"},
             {"0.0 ;-0.0%", -0.5, "-50,0%"},
             {"0", 1e15, "1E+15"},
             {"0", 999999999999999, "999999999999999"},
             {"#,##0.0\" h\";-#,##0.0", 1.5e20, "1,5E+20 h"},
             {"#,##0.0;(0)", -1.5e20, "(1,5E+20)"},
             {"0.00%", 2e15, "2E+17%"},
             {"0%", 1e308, "1E+308"},
             {"0.00", -0.001, "0,00"},
             {"0.00;(0)", -0.2, "0,00"},
             {"0;-0;\"-\"", 0, "-"},
             {"0;-0;\"none\";@", 12, "12"},
             {"0;-0;\"none\"", -0.2, "none"},
             {"0;-0;\"none\"", 0.2, "none"},
             {";;;", -7, ""},
             {"0;;", -7, ""},
             {"\"up\";\"down\";\"even\"", -7, "down"},
             {"General", 1234.56789, "1234,56789"},
             {"general\" EUR\"", -0.5, "-0,5 EUR"},
             {"General;(0)", -0.2, "0"},
             {"@", 12.5, "12,5"},
             {"$#,##0.00", 1234, "$1.234,00"},
             {"#,##0.00 €", -1234, "-1.234,00 €"},
             {"[$€-407] 0", 5, "€ 5"},
             {"0.00 [$EUR]", 5, "5,00 EUR"},
             {"0_);(0)", 5, "5 "},
             {"0;[Red]-0", -5, "-5"},
             {"[Color10]0", 5, "5"},
             {"0\\;\\x", 5, "5;x"},
             {"_-* #,##0.00 €_-;-* #,##0.00 €_-;_-* \"-\"?? €_-;_-@_-", 1234.5, " 1.234,50 € "},
             {"_-* #,##0.00 €_-;-* #,##0.00 €_-;_-* \"-\"?? €_-;_-@_-", -1234.5, "-1.234,50 € "},
             {"_-* #,##0.00 €_-;-* #,##0.00 €_-;_-* \"-\"?? €_-;_-@_-", 0, " - € "},
             {"_(* #,##0_);_(* (#,##0);_(* \"-\"??_);_(@_)", -1234, " (1.234)"},
             {"0.00", std::numeric_limits<double>::denorm_min(), "0,00"},
             {"0", std::numeric_limits<double>::infinity(), ""},
             {"0", std::numeric_limits<double>::quiet_NaN(), ""},
         }) {
        const std::optional<NumberFormat> format = NumberFormat::Parse(row.code);
        ASSERT_TRUE(format) << row.code;
        EXPECT_EQ(format->Format(row.value), row.shown) << row.value << " by " << row.code;
        EXPECT_EQ(format->Code(), row.code);
    }
    const std::string largest = NumberFormat::Parse("0.0%")->Format(std::numeric_limits<double>::max());
    EXPECT_EQ(largest, "1,79769313486232E+308") << "a percentage that no double holds";
}

TEST(NumberFormatTest, RefusesOtherCodes) {
    const std::string long30(31, '0');
    for (const std::string& code : {std::string(),
                                    std::string("0.0.0"),
                                    std::string("0,"),
                                    std::string(",0"),
                                    std::string("0,,0"),
                                    std::string("0.0,0"),
                                    std::string("0%%"),
                                    std::string("\"open"),
                                    std::string("\"only text\""),
                                    std::string("0;"),
                                    std::string(";0"),
                                    std::string("0;0;0;0"),
                                    std::string("@;0;0"),
                                    std::string("0;0;0;@;@"),
                                    std::string("[>100]0"),
                                    std::string("[Red"),
                                    std::string("[Blau]0"),
                                    std::string("0\\"),
                                    std::string("0 0"),
                                    std::string("yyyy"),
                                    std::string("."),
                                    std::string("0E+00"),
                                    long30,
                                    "0." + long30,
                                    std::string(300, ' ') + "0"}) {
        EXPECT_FALSE(NumberFormat::Parse(code)) << "'" << code << "'";
    }
}

TEST(NumberFormatTest, CountsDecimalsShown) {
    EXPECT_EQ(NumberFormat::Parse("#,##0.0#")->Decimals(), 2);
    EXPECT_EQ(NumberFormat::Parse("0%")->Decimals(), 0);
    EXPECT_EQ(NumberFormat::Parse("General")->Decimals(), std::nullopt);
}

TEST(NumberFormatTest, TellsOfNegativeNumbersAndColoursAsTheyAreShown) {
    using Color = NumberFormat::Color;
    struct Row {
        const char* code;
        double value;
        bool negative;
        Color color;
    };
    for (const Row& row : {
             Row{"0.00", -0.001, false, Color::None},
             {"0.00", -0.005, true, Color::None},
             {"0.00%", -0.00005, true, Color::None},
             {"0.00%", -0.00004, false, Color::None},
             {"0", 5, false, Color::None},
             {"0", -1e300, true, Color::None},
             {"General", -1e-9, true, Color::None},
             {"0;[Red](0)", -1, true, Color::Red},
             {"0;[Red](0)", -0.1, false, Color::None},
             {"0;[Red](0)", 1, false, Color::None},
             {"[red]0;[BLACK]-0", -1, true, Color::Other},
             {"0;-0;[Color3]\"-\"", 0, false, Color::Red},
         }) {
        const std::optional<NumberFormat> format = NumberFormat::Parse(row.code);
        ASSERT_TRUE(format) << row.code;
        EXPECT_EQ(format->ShowsNegative(row.value), row.negative) << row.value << " by " << row.code;
        EXPECT_EQ(format->ColorOf(row.value), row.color) << row.value << " by " << row.code;
    }
}

TEST(NumberFormatTest, ShowsTextsByTheirSection) {
    EXPECT_EQ(NumberFormat::Parse("0;-0;0;\"<\"@\">\"")->FormatText("a"), "<a>");
    EXPECT_EQ(NumberFormat::Parse("0;-0;0;")->FormatText("a"), "");
    EXPECT_EQ(NumberFormat::Parse("0;@\"!\"")->FormatText("a"), "a!");
    EXPECT_EQ(NumberFormat::Parse("0;-0;0")->FormatText("a"), "a");
}

}  // namespace
}  // namespace planview
