// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include <planview/AutomationObject.h>

#include "automation/CheckedInt.h"
#include "automation/Numbers.h"
#include "automation/Utf8.h"

namespace planview {

TEST(Numbers, ParserReadsWhatPeopleWrite) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"12.5", 12.5},
        {"12,5", 12.5},
        {"1,234", 1.234},
        {"1.234.567", 1234567},
        {"1,234,567", 1234567},
        {"1.234,5", 1234.5},
        {"1,234.5", 1234.5},
        {"12.345.678,25", 12345678.25},
        {" -7 ", -7},
        {"+5", 5},
        {".5", 0.5},
        {"5.", 5},
        {"-0", 0},
        {"1E+20", 1e20},
        {"1,5e-3", 0.0015},
        {"2E3", 2000},
        {"999.999.999", 999999999},
        {"1.234.567,", 1234567},
        {"1 234 567,5", 1234567.5},
        {"1\u00A0234.5", 1234.5},
        {"12\u202F345\u202F678", 12345678},
        {"1\u2009234", 1234},
        {"\u22127,5", -7.5},
        {"\u00A0-1 234,567\u00A0", -1234.567},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(TryParseNumber(row.text), row.value) << row.text;
    }
}

TEST(Numbers, ParserRefusesTheRest) {
    for (const char* text :
         {"",           " ",       "-",         ".",           ",",         "abc",          "1 2",
          "1 23 456",   "1  234",  "- 5",       "1 234.567,8", "1,234 567", "1\u00A02",     "5\u2212",
          "1\u3000234", "\u00A0",  "12a",       "1.2.3",       "12.34.567", "1234.567.890", "1.234.56",
          ".123.456",   "1,2.3,4", "1.234,5,6", "1.23,4",      "1e",        "1E+-5",        "1E++5",
          "1E+",        "e5",      "--5",       "1-",          "0x10",      "inf",          "nan",
          "1E999",      "5 €",     "1,234.5.6"}) {
        EXPECT_EQ(TryParseNumber(text), std::nullopt) << text;
        EXPECT_THROW(static_cast<void>(ParseNumber(std::string_view(text))), AutomationError) << text;
    }
    EXPECT_EQ(TryParseNumber(std::string(1 << 20, '9')), std::nullopt) << "a megabyte of digits";
}

/// Around the length up to which numbers are read by arithmetic on whole numbers.
TEST(Numbers, NumbersOfAnyLengthAreTheNearestToWhatIsWritten) {
    const std::string digits = "98765432109876543210";
    for (std::size_t length = 13; length <= digits.size(); ++length) {
        for (std::size_t mark = 0; mark <= length; ++mark) {
            std::string text = digits.substr(0, length);
            text.insert(mark, ".");
            const double expected = std::strtod(text.c_str(), nullptr);
            EXPECT_EQ(TryParseNumber(text), expected) << text;
            text[mark] = ',';
            EXPECT_EQ(TryParseNumber("-" + text), -expected) << text;
        }
        const std::string whole = digits.substr(0, length);
        EXPECT_EQ(TryParseNumber(whole), std::strtod(whole.c_str(), nullptr)) << whole;
    }
}

TEST(Numbers, WriterGivesShortestReadableForm) {
    const struct {
        double value;
        const char* text;
    } cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {12.5, "12.5"},
        {-81, "-81"},
        {0.1 + 0.2, "0.3"},
        {1234567890123456, "1.23456789012346E+15"},
        {123456789012345, "123456789012345"},
        {1e15, "1E+15"},
        {0.0000001, "0.0000001"},
        {1.5e-30, "1.5E-30"},
        {-2e300, "-2E+300"},
        {999999999999999.9, "1E+15"},
        {100, "100"},
        {0.05, "0.05"},
        {15283.7, "15283.7"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(NumberText(row.value), row.text);
        EXPECT_NEAR(*TryParseNumber(row.text), row.value, std::abs(row.value) * 1e-14);
    }
    EXPECT_EQ(NumberText(-1234.5, ','), "-1234,5");
    EXPECT_THROW(static_cast<void>(NumberText(std::numeric_limits<double>::quiet_NaN())), AutomationError);
    EXPECT_THROW(static_cast<void>(NumberText(std::numeric_limits<double>::infinity())), AutomationError);
}

TEST(Numbers, RoundingAndRangesAreChecked) {
    EXPECT_EQ(RoundToInt16(2.5), 2);
    EXPECT_EQ(RoundToInt16(3.5), 4);
    EXPECT_EQ(RoundToInt16(-2.5), -2);
    EXPECT_EQ(RoundToInt16(32767.4), 32767);
    EXPECT_THROW(static_cast<void>(RoundToInt16(32768)), AutomationError);
    EXPECT_THROW(static_cast<void>(RoundToInt16(-32769)), AutomationError);
    EXPECT_THROW(static_cast<void>(RoundToInt32(std::numeric_limits<double>::quiet_NaN())), AutomationError);
    EXPECT_EQ(CheckedAdd<std::int16_t>(32000, 767), 32767);
    EXPECT_THROW(static_cast<void>(CheckedAdd<std::int16_t>(32767, 1)), AutomationError);
    EXPECT_THROW(static_cast<void>(CheckedCast<std::int16_t>(32768)), AutomationError);
}

TEST(Utf8, KnowsMalformedText) {
    for (const char* good : {"", "abc", "Grüße", "€ 5", "\xF0\x9F\x98\x80"}) {
        EXPECT_TRUE(IsValidUtf8(good)) << good;
    }
    for (const char* bad : {"\xFF", "\xC3", "a\x80", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
        EXPECT_FALSE(IsValidUtf8(bad));
    }
}

}  // namespace planview
