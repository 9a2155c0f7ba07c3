// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "components/chart/Periods.h"

namespace planview {

TEST(PeriodsTest, MonthsAreRecognised) {
    constexpr int May = 4;
    const struct {
        const char* caption;
        std::optional<int> month;
    } rows[] = {{"May 08", 8 * 12 + May},       {"May 2008", 2008 * 12 + May},
                {"MAY. 2008", 2008 * 12 + May}, {"Mai 2008", 2008 * 12 + May},
                {"2008 May", 2008 * 12 + May},  {"2008-05", 2008 * 12 + May},
                {"5/2008", 2008 * 12 + May},    {"05.08", 8 * 12 + May},
                {"2008M05", 2008 * 12 + May},   {"may", May},
                {"Sept 08", 8 * 12 + 8},        {"M\xc3\xa4rz 08", 8 * 12 + 2},
                {"Mrz 08", 8 * 12 + 2},         {"Dezember 08", 8 * 12 + 11},
                {"Mayor 08", std::nullopt},     {"Ma 08", std::nullopt},
                {"Q1 2008", std::nullopt},      {"2008", std::nullopt},
                {"2008-13", std::nullopt},      {"1.5.2008", std::nullopt},
                {"May 8 2008", std::nullopt},   {"May 123", std::nullopt},
                {"P5", std::nullopt},           {"", std::nullopt},
                {"1234567890123", std::nullopt}};
    for (const auto& row : rows) {
        EXPECT_EQ(MonthOf(row.caption), row.month) << row.caption;
    }
}

TEST(PeriodsTest, LabelsOfMonthsStandAtQuartersAndYears) {
    std::vector<std::string> months;
    std::vector<std::string> yearless;
    for (int i = 0; i < 60; ++i) {  // from October 1998 on
        const int month = 9 + i;
        const int year = (98 + month / 12) % 100;
        months.push_back(std::to_string(month % 12 + 1) + (year < 10 ? "/0" : "/") + std::to_string(year));
        yearless.push_back(std::vector<std::string>{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep",
                                                    "Oct", "Nov", "Dec"}[static_cast<std::size_t>(month % 12)]);
    }
    const std::vector<std::string> none;
    std::vector<std::string> gap = months;
    gap.erase(gap.begin() + 20);
    std::vector<std::string> other = months;
    other.back() = "Total";
    const struct {
        const char* name;
        const std::vector<std::string>& categories;
        int first;
        int last;
        int least;
        LabelSteps steps;
    } rows[] = {
        {"room for all", months, 5, 60, 1, {5, 1}},
        {"every second would be no quarter", months, 1, 60, 2, {1, 3}},
        {"quarters", months, 2, 60, 3, {4, 3}},
        {"halves", months, 1, 60, 4, {4, 6}},
        {"years", months, 1, 60, 7, {4, 12}},
        {"the window has no January", months, 5, 15, 7, {5, 7}},
        {"without years", yearless, 1, 60, 7, {4, 12}},
        {"a month is missing", gap, 1, 59, 7, {1, 7}},
        {"not all are months", other, 1, 60, 7, {1, 7}},
        {"more than any step", months, 1, 60, 1000, {1, 1000}},
        {"nothing", none, 1, 0, 3, {1, 3}},
    };
    for (const auto& row : rows) {
        const LabelSteps steps = StepsOf(row.categories, row.first, row.last, row.least);
        EXPECT_EQ(std::pair(steps.first, steps.every), std::pair(row.steps.first, row.steps.every)) << row.name;
    }
}

}  // namespace planview
