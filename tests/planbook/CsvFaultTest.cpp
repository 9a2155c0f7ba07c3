// SPDX-License-Identifier: MIT
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "book/BookError.h"
#include "import/Import.h"
#include "planbook/TestFolder.h"

namespace planbook {
namespace {

struct FaultCase {
    const char* name;
    std::string csv;
    const char* message;  ///< of every line that is expected, in order
};

void PrintTo(const FaultCase& fault, std::ostream* stream) {
    *stream << fault.name;
}

std::string Header() {
    return "month,a,b\n";
}

std::string ManyNumbers(int rows) {
    std::string csv = "row,a\n";
    for (int i = 0; i < rows; ++i) {
        csv += std::to_string(i) + ",1\n";
    }
    return csv;
}

std::string ManyLines(int lines) {
    std::string header = "row";
    std::string row = "x";
    for (int i = 0; i < lines; ++i) {
        header += ",a" + std::to_string(i);
        row += ",1";
    }
    return header + "\n" + row + "\n";
}

class CsvFault : public testing::TestWithParam<FaultCase> {};

TEST_P(CsvFault, IsNamedAndNothingIsWritten) {
    const TestFolder folder;
    ImportRequest request{folder.Write("data.csv", GetParam().csv), folder.Path("book"), {}, {}, false};
    const auto before = folder.Contents();
    const std::string message = MessageOf<BookError>([&] { ImportBook(request); });
    EXPECT_TRUE(Contains(message, GetParam().message)) << message;
    EXPECT_TRUE(Contains(message, folder.Path("data.csv").string())) << message;
    EXPECT_EQ(folder.Contents(), before);
}

const FaultCase Cases[] = {
    {"EmptyFile", "", "the file is empty"},
    {"BlankLinesOnly", "\r\n\n", "the file is empty"},
    {"HeaderOnly", Header(), "no row of numbers below the header row"},
    {"OneColumn", "month\n2008-01\n", "line 1: the header row names no line"},
    {"UnnamedLine", "month,a, \n2008-01,1,2\n", "line 1, column 3: the header row has no name here"},
    {"DuplicateLine", "month,a,b, a\n2008-01,1,2,3\n", "line 1, column 4: the name \"a\" stands in column 2 already"},
    {"TooFewFields", Header() + "2008-01,1,2\n2008-02,1\n", "line 3: too few fields: 2 instead of 3"},
    {"TooManyFields", Header() + "2008-01,1,2,3\n", "line 2: too many fields: 4 instead of 3"},
    {"NoNumber", Header() + "2008-01,1,n/a\n", "line 2, column 3: \"n/a\" (b) is no number"},
    {"Infinity", Header() + "2008-01,inf,2\n", "line 2, column 2: \"inf\" (a) is no number"},
    {"TooLarge", Header() + "2008-01,1e999,2\n", "line 2, column 2: \"1e999\" (a) is no number"},
    {"TwoDecimalPoints", Header() + "2008-01,1.2.3,2\n", "line 2, column 2: \"1.2.3\" (a) is no number"},
    {"NumberWithUnit", Header() + "2008-01,5 %,2\n", "line 2, column 2: \"5 %\" (a) is no number"},
    {"MissingPeriod", Header() + " ,1,2\n", "line 2, column 1: the period is missing"},
    {"DuplicatePeriod", Header() + "2008-01,1,2\n\n2008-01,3,4\n",
     "line 4, column 1: the period \"2008-01\" stands in line 2 already"},
    {"UnclosedQuote", Header() + "2008-01,1,2\n\"2008-02,1,2\n2008-03,1,2\n",
     "line 3, column 1: the quotation mark that opens this field is never closed"},
    {"TextBehindQuote", Header() + "\"2008-01\"x,1,2\n", "line 2, column 1: text behind the closing quotation mark"},
    {"QuoteInField", Header() + "2008\"01,1,2\n", "line 2, column 1: a quotation mark in the middle of a field"},
    {"LineCountAcrossQuotedLineEnds", Header() + "\"a\r\nb\",1,2\r\n2008-02,x,2\r\n", "line 4, column 2: \"x\""},
    {"NotUtf8", Header() + "J\xE4n,1,2\n", "line 2: no UTF-8 text"},
    {"NulByte", Header() + std::string("2008-01,1\0,2\n", 13), "line 2: no UTF-8 text"},
    {"MixedMarks", "p;a;b\nx;1,5;2.25\n",
     "line 2, column 3: \"2.25\" (b) uses the decimal point, but \"1,5\" in line "
     "2 uses the decimal comma"},
    {"UnclearMark", "p;a;b\nx;1,234;2\n",
     "line 2, column 2: \"1,234\" (a) can mean a fraction or thousands; add --decimal point or --decimal comma"},
    {"MoreLinesThanFixedCells", ManyLines(32767), "take 32769 rows of the table FIXED_TAB"},
    {"OneNumberTooMany", ManyNumbers(32768), "it has 32768 numbers, a book holds at most 32767; divide the file"},
};

INSTANTIATE_TEST_SUITE_P(Lines, CsvFault, testing::ValuesIn(Cases),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(CsvFaults, AllAreNamedUpToTheLimit) {
    const TestFolder folder;
    std::string csv = Header();
    for (int i = 0; i < 25; ++i) {
        csv += std::to_string(i) + ",bad,1\n";
    }
    const ImportRequest request{folder.Write("data.csv", csv), folder.Path("book"), {}, {}, false};
    const std::string message = MessageOf<BookError>([&] { ImportBook(request); });
    EXPECT_TRUE(Contains(message, "line 2, column 2: \"bad\" (a) is no number\n  line 3,")) << message;
    EXPECT_TRUE(Contains(message, "line 21, column 2")) << message;
    EXPECT_FALSE(Contains(message, "line 22")) << message;
    EXPECT_TRUE(message.ends_with("and 5 more")) << message;
}

TEST(CsvFaults, TheLargestTableIsTaken) {
    const TestFolder folder;
    const ImportRequest request{folder.Write("data.csv", ManyNumbers(32767)), folder.Path("book"), {}, {}, false};
    EXPECT_EQ(ImportBook(request).cells, 32767);
}

}  // namespace
}  // namespace planbook
