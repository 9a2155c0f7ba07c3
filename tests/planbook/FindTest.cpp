// SPDX-License-Identifier: MIT
#include <ostream>

#include <gtest/gtest.h>

#include "book/BookStore.h"
#include "find/BookFinder.h"
#include "find/FindText.h"
#include "planbook/TestBook.h"

namespace planbook {
namespace {

struct NumberCase {
    const char* name;
    const char* text;
    double number;
    const char* format;
    bool found;
};

void PrintTo(const NumberCase& number, std::ostream* stream) {
    *stream << number.name;
}

class FindNumber : public testing::TestWithParam<NumberCase> {};

TEST_P(FindNumber, InEveryWayItIsWritten) {
    EXPECT_EQ(FindText(GetParam().text).IsIn(GetParam().number, GetParam().format), GetParam().found);
}

const NumberCase Numbers[] = {
    {"Point", "5840.4", 5840.4, "#,##0.0", true},
    {"Comma", "5840,4", 5840.4, "#,##0.0", true},
    {"Groups", "5.840,4", 5840.4, "#,##0.0", true},
    {"OtherGroups", "5,840.4", 5840.4, "#,##0.0", true},
    {"GroupsAlone", "1.234.567", 1234567, "#,##0", true},
    {"OneGroup", "5.840", 5840, "#,##0", true},
    {"OneGroupOrDecimals", "5,840", 15.8405, "", true},
    {"Part", "840", 5840.4, "#,##0.0", true},
    {"AsShown", "1234,6", 1234.5678, "0.0", true},
    {"AsKept", "1234,5678", 1234.5678, "0", true},
    {"ShownZeros", "7,00", 7, "0.00", true},
    {"Percent", "12,5", 0.125, "0.0%", true},
    {"Negative", "-21", -21.5, "", true},
    {"OtherNumber", "5841", 5840.4, "#,##0.0", false},
    {"Words", "jan", 5840.4, "", false},
    {"Blanks", "  42 ", 42, "", true},
};

INSTANTIATE_TEST_SUITE_P(Texts, FindNumber, testing::ValuesIn(Numbers),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(Find, GoesThroughPeriodsLinesAndValuesButNotWhatIsHidden) {
    const TestFolder folder;
    Book book = LoadBook(MakeSmallBook(folder));
    using Places = std::vector<FoundPlace>;
    EXPECT_EQ(FindInBook(book, "jan"), (Places{{0, 1}}));
    EXPECT_EQ(FindInBook(book, "ALPHA"), (Places{{1, 0}}));
    EXPECT_EQ(FindInBook(book, "30"), (Places{{2, 3}, {3, 3}}));
    EXPECT_EQ(FindInBook(book, "40,5"), (Places{{2, 4}}));
    EXPECT_EQ(FindInBook(book, "a"), (Places{{0, 1}, {0, 3}, {0, 4}, {1, 0}, {2, 0}, {3, 0}}));
    EXPECT_TRUE(FindInBook(book, " ").empty());

    book[BookTable::LineIndex].SetValue(2, "ROW_HIDDEN", "X");
    book[BookTable::ColsIndex].SetValue(1, "COL_HIDDEN", "X");
    EXPECT_EQ(FindInBook(book, "30"), (Places{{3, 3}}));
    EXPECT_EQ(FindInBook(book, "a"), (Places{{0, 3}, {0, 4}, {1, 0}, {3, 0}}));
    book[BookTable::ColsIndex].SetValue(2, "GRID_ID", "COL2");
    book[BookTable::LineIndex].SetValue(3, "GRID_ID", "ROW3");
    EXPECT_EQ(KeysOf(book, {3, 0}).column, "COL2") << "the first one that is not hidden";
    EXPECT_EQ(KeysOf(book, {3, 0}).row, "ROW3");
}

}  // namespace
}  // namespace planbook
