// SPDX-License-Identifier: MIT
#include <QSqlDatabase>
#include <QSqlQuery>
#include <array>
#include <filesystem>
#include <ostream>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "book/BookError.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"
#include "import/BookBuilder.h"
#include "import/Import.h"
#include "import/Periods.h"
#include "planbook/TestBook.h"

namespace planbook {
namespace {

using planview::MemoryTable;

/// The rows of a table as text, the given fields divided by "|".
std::string Show(const Book& book, BookTable table, const std::vector<const char*>& fields) {
    std::string text;
    for (std::int32_t row = 1; row <= book[table].RowCount(); ++row) {
        for (const char* field : fields) {
            text += (field == fields.front() ? "" : "|") + book[table].Value(row, field).AsText();
        }
        text += "\n";
    }
    return text;
}

Book ImportText(std::string_view csv, std::string_view names = "", DecimalMark mark = DecimalMark::Automatic) {
    const TestFolder folder;
    ImportRequest request{folder.Write("my_plan.csv", csv), folder.Path("book"), {}, mark, false};
    if (!names.empty()) {
        request.names = folder.Write("names", names);
    }
    ImportBook(request);
    return LoadBook(folder.Path("book"));
}

struct NumberCase {
    const char* name;
    const char* csv;
    const char* cells;  ///< Z|C|V of TAB
    DecimalMark mark = DecimalMark::Automatic;
};

void PrintTo(const NumberCase& number, std::ostream* stream) {
    *stream << number.name;
}

class ImportNumbers : public testing::TestWithParam<NumberCase> {};

TEST_P(ImportNumbers, ReachTheTableUnchanged) {
    EXPECT_EQ(Show(ImportText(GetParam().csv, "", GetParam().mark), BookTable::Tab, {"Z", "C", "V"}), GetParam().cells);
}

const NumberCase Numbers[] = {
    {"Plain", "p,a,b\nx,5840.4,-229\ny,0,1e3\n", "1|1|5840.4\n1|2|0\n2|1|-229\n2|2|1000\n"},
    {"EmptyFieldsGetNoCell", "p,a,b\nx,,1\ny,\"\", \n", "2|1|1\n"},
    {"ByteOrderMarkAndCrLf", "\xEF\xBB\xBFp,a\r\nx,1\r\ny,2", "1|1|1\n1|2|2\n"},
    {"OldMacLineEnds", "p,a\rx,1\ry,2\r", "1|1|1\n1|2|2\n"},
    {"QuotedFields", "\"p\",\"a, \"\"b\"\"\"\n\"x\ny\",\"1.5\"\n", "1|1|1.5\n"},
    {"DecimalComma", "p;a;b\nx;1,5;1.234,25\n", "1|1|1.5\n2|1|1234.25\n"},
    {"CommaThatGroups", "p;a;b\nx;1,234;1,234,567.5\n", "1|1|1234\n2|1|1234567.5\n"},
    {"PointThatGroups", "p;a;b\nx;1.234;0,5\n", "1|1|1234\n2|1|0.5\n"},
    {"PointAloneIsDecimal", "p;a\nx;1.234\n", "1|1|1.234\n"},
    {"CommaByCommand", "p;a\nx;1,234\n", "1|1|1.234\n", DecimalMark::Comma},
    {"PointByCommand", "p;a\nx;1,234\n", "1|1|1234\n", DecimalMark::Point},
    {"Tabs", "p\ta\nx\t-.5\n", "1|1|-0.5\n"},
    {"ManyDigits", "p,a\nx,0.1234567890123\n", "1|1|0.1234567890123\n"},
};

INSTANTIATE_TEST_SUITE_P(Files, ImportNumbers, testing::ValuesIn(Numbers),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(Periods, AreShownByTheirKind) {
    using Texts = std::vector<std::string>;
    struct Case {
        Texts periods, captions, years;
    };
    const Case cases[] = {
        {{"2008-11-01", "2008-12-01", "2009-01-01"}, {"Nov 08", "Dec 08", "Jan 09"}, {"2008", "", "2009"}},
        {{"1999-12", "2000-01"}, {"Dec 99", "Jan 00"}, {"1999", "2000"}},
        {{"2008-01-01", "2008-01-15"}, {"01 Jan 08", "15 Jan 08"}, {"2008", ""}},
        {{"2008", "2009"}, {"2008", "2009"}, {"", ""}},
        {{"2008-02-29", "2009-02-29"}, {"2008-02-29", "2009-02-29"}, {"", ""}},  // the second is no date
        {{"2008-01", "2008-02-01"}, {"2008-01", "2008-02-01"}, {"", ""}},
        {{"Spring", "2008-01"}, {"Spring", "2008-01"}, {"", ""}},
    };
    for (const Case& c : cases) {
        const PeriodAxis axis = DescribePeriods(c.periods);
        EXPECT_EQ(axis.captions, c.captions) << c.periods.back();
        EXPECT_EQ(axis.years, c.years) << c.periods.back();
    }
}

TEST(Import, WithoutNamesMakesAReadableBook) {
    const Book book = ImportText("month,net_sales,growth\n2007-12,10,0.25\n2008-01,20,-0.5\n");
    EXPECT_EQ(Show(book, BookTable::ColsIndex, {"COLUMN", "PERDY"}), "1|Dec 07\n2|Jan 08\n");
    EXPECT_EQ(Show(book, BookTable::LineIndex, {"LINE", "FREET", "DDICT", "READONLY", "ROW_FORMAT", "LTEXT"}),
              "1|Net sales|net_sales||#,##0|F\n2|Growth|growth||#,##0.00|F\n");
    EXPECT_EQ(Show(book, BookTable::FixedTab, {"FLG_COL_FIX", "COLUMN", "FLG_LINE_FIX", "LINE", "VALUE"}),
              "L|0|T|0|My plan\n"
              "|1|T|1|2007\n|2|T|1|2008\n"
              "R|1|T|0|Mean\nR|1||1|15\nR|1||2|-0,13\n");
    EXPECT_EQ(Show(book, BookTable::CellAttr, {"COLUMN", "LINE", "TOOLTIP"}), "2|2|Growth, Jan 08: -0,5 (negative)\n");
    EXPECT_EQ(book[BookTable::GridAttr].Value(1, "FIRST_COL").AsInt32(), 0);
}

TEST(Import, MeansShowTheDigitsOfTheirLine) {
    const Book book = ImportText("p,whole,fine,none,huge\nx,1,0.25,,1e308\ny,2,0.5,,1e308\nz,2,0.5,,-1\n");
    EXPECT_EQ(Show(book, BookTable::FixedCols, {"FLG_POSITION", "COL_FORMAT"}), "R|#,##0.0#\n");
    const std::string fixed = Show(book, BookTable::FixedTab, {"FLG_COL_FIX", "LINE", "VALUE"});
    EXPECT_TRUE(fixed.ends_with("R|0|Mean\nR|1|1,7\nR|2|0,42\n")) << fixed;
}

TEST(Import, NamesOrderLabelAndLockTheLines) {
    const Book book = ImportText("month,a,b,c,d\n2008-01,1,2,3,4\n2008-02,1,2,3,4\n",
                                 "\xEF\xBB\xBF# comment\n[book]\ntitle = Plan = B\nunit=EUR\nsource = me\r\n"
                                 "open-at = 2008-02\n[lines]\nc = Head | help | pcs\nb = All | total\na = | | | 2\n");
    EXPECT_EQ(Show(book, BookTable::LineIndex, {"LINE", "FREET", "LINETYPE", "READONLY", "ROW_FONT"}),
              "1|Head|H|X|;;Cursiv\n2|All||X|\n3|      A|||\n4|D|||\n");
    EXPECT_EQ(Show(book, BookTable::Tab, {"Z", "C", "V"}), "1|1|3\n1|2|3\n2|1|2\n2|2|2\n3|1|1\n3|2|1\n4|1|4\n4|2|4\n");
    const std::string fixed =
        Show(book, BookTable::FixedTab, {"FLG_COL_FIX", "COLUMN", "FLG_LINE_FIX", "LINE", "VALUE"});
    EXPECT_TRUE(Contains(fixed, "L|0|T|0|Plan = B\n")) << fixed;
    EXPECT_TRUE(Contains(fixed, "L|1|T|0|Unit\nL|1||1|pcs\nL|1||2|EUR\nL|1||3|EUR\nL|1||4|EUR\n")) << fixed;
    EXPECT_TRUE(Contains(fixed, "L|0|B|1|Source\n|1|B|1|me\n")) << fixed;
    EXPECT_EQ(book[BookTable::GridAttr].Value(1, "FIRST_COL").AsInt32(), 2);
}

TEST(Import, TheChartSectionSaysWhatTheChartShows) {
    const Book book = ImportText("month,a,b\n2008-01,1,2\n2008-02,1,2\n2008-03,1,2\n",
                                 "[chart]\ntitle = Plan\nfrom = 2008-02\noptimum = 2.5\nrange-to = 4\n"
                                 "[lines]\nb = B | | | | stacked-line\n");
    EXPECT_EQ(Show(book, BookTable::GridAttr, {"CHART", "OPTIMUM", "MINRANGE", "MAXRANGE", "TITELTEXT"}),
              "X|2.5|0|4|Plan\n");
    EXPECT_EQ(Show(book, BookTable::ColsIndex, {"SHOW_CHART"}), "\nX\nX\n");
    EXPECT_EQ(Show(book, BookTable::LineIndex, {"FREET", "SHOW_CHART", "CHART_TYPE"}), "B|X|21\nA||0\n");

    const Book plain = ImportText("p,a,b,c,d\nx,1,2,3,4\n");
    EXPECT_EQ(Show(plain, BookTable::GridAttr, {"CHART"}), "\n");
    EXPECT_EQ(Show(plain, BookTable::LineIndex, {"SHOW_CHART", "CHART_TYPE"}), "X|23\nX|23\nX|23\n|0\n");
}

TEST(Import, FaultsInTheNamesFileAreNamed) {
    const std::pair<const char*, const char*> cases[] = {
        {"title = x\n", "line 1: this stands before the first section"},
        {"[book]\n[columns]\n", "line 2: unknown section \"[columns]\""},
        {"[book]\ncolour = red\n", "line 2: unknown setting \"colour\""},
        {"[book]\ntitle\n", "line 2: \"title\" is no setting"},
        {"[book]\nunit = a\nunit = b\n", "line 3: \"unit\" stands twice"},
        {"[lines]\na = A | sum\n", "line 2: unknown kind \"sum\""},
        {"[lines]\na = A | line | | 9\n", "line 2: the indent \"9\" is no number from 0 to 5"},
        {"[lines]\na = A | line | EUR | 1 | pie\n", "line 2: unknown chart type \"pie\""},
        {"[lines]\na = A | line | EUR | 1 | line | x\n", "line 2: too many parts"},
        {"[chart]\noptimum = 1,5\n", "line 2: optimum: \"1,5\" is no number above 0"},
        {"[chart]\nfrom = 1999\n", "the chart's from is \"1999\", which is no period"},
        {"[chart]\nwings = 2\n", "line 2: unknown setting \"wings\""},
        {"[lines]\na = A\na = B\n", "line 3: \"a\" stands twice"},
        {"[lines]\nz = Z\n", "it names the line \"z\", which the table of numbers does not have"},
        {"[book]\nopen-at = 2009\n", "open-at is \"2009\", which is no period"},
        {"[macros]\nm = 5\n", "line 2: a macro is: name = target = value"},
        {"[macros]\nm = SELECTED = \n", "line 2: there is no value behind the ="},
        {"[macros]\nm = [z] = 1\n", "line 2: the table of numbers has no line \"z\""},
        {"[macros]\nm = SELECTED = 1 +\n", "line 2: a value is missing behind \"+\""},
        {"[macros]\nm = SELECTED = 1 2\n", "line 2: an operator is missing before \"2\""},
        {"[macros]\nm = SELECTED = SUM(1 ; 2\n", "line 2: there is no \")\""},
        {"[macros]\nm = SELECTED = WURZEL(2)\n", "line 2: \"WURZEL(2)\" is no line, number or function"},
        {"[macros]\nm = SELECTED = [a\n", "line 2: there is no \"]\""},
        {"[macros]\nm = SELECTED = 2 | 1999\n", "line 2: \"1999\" is no period"},
        {"[formulas]\nA =\n", "line 2: \"A\" has no formula"},
        {"[formulas]\nA = 1 | typed\n", "line 2: \"typed\" is none of the parts behind a formula"},
        {"[formulas]\nA = 1 | 2 | 3\n", "line 2: \"3\" is none of the parts"},
        {"[formulas]\nZ = 1\n", "line 2: there is no line or period \"Z\" to be computed"},
        {"[formulas]\nA = Z + 1\n", "line 2: \"A\": "},
        {"[formulas]\nA = 1 +\n", "line 2: \"A\": "},
        {"[formulas]\n\nA = A + 1\n", "line 3: \"A\" are computed from themselves"},
        {"[formulas]\nA, 2008 = 1\nA, 1999 = 1\n", "line 3: there is no line or period \"A, 1999\""},
    };
    for (const auto& [names, expected] : cases) {
        const std::string message =
            MessageOf<BookError>([&, text = names] { static_cast<void>(ImportText("p,a\n2008,1\n", text)); });
        EXPECT_TRUE(Contains(message, expected)) << message;
    }
}

TEST(Import, FormulasOfTheNamesFileComputeWhatTheTableOfNumbersSays) {
    const TestFolder folder;
    ImportRequest request{
        folder.Write("plan.csv", "p,a,b,s,r\n2008-01,1,-2,-1,4\n2008-02,4,5,10,\n"), folder.Path("book"), {}};
    request.names = folder.Write("names",
                                 "[lines]\ns = Sum | total\na = A, first | line | | 1\nb = B | line | | 1\n"
                                 "[formulas]\nSum = SUM(MEMBERS) | entry\nA, first, Feb 08 = 7 | 2\nR = Sum / B\n");
    const ImportResult result = ImportBook(request);
    const Book book = LoadBook(request.book);
    EXPECT_EQ(Show(book, BookTable::Formulas, {"TARGET", "FORMULA", "SOLVE_ORDER", "ENTRY"}),
              "ROW1|SUM(MEMBERS)|0|X\nROW2/COL2|7|2|\nROW4|{ROW1|Sum} / {ROW3|B}|0|\n");
    EXPECT_EQ(Show(book, BookTable::Tab, {"Z", "C", "V"}),
              "1|1|-1\n1|2|12\n2|1|1\n2|2|7\n3|1|-2\n3|2|5\n4|1|0.5\n4|2|2.4\n");
    EXPECT_EQ(Show(book, BookTable::LineIndex, {"FREET", "READONLY", "ROW_FORMAT"}),
              "Sum||#,##0;[Red]-#,##0\n   A, first||#,##0\n   B||#,##0\nR|X|#,##0\n");
    EXPECT_EQ(Show(book, BookTable::CellAttr, {"LINE", "COLUMN"}), "3|1\n") << "a computed number may change its sign";
    EXPECT_EQ(result.contradictions.count, 3);
    EXPECT_EQ(result.contradictions.largest, 3.5);
    EXPECT_EQ(result.contradictions.first,
              (std::vector<std::string>{"Sum, Feb 08: 10 in the table, 12 by its formula",
                                        "A, first, Feb 08: 4 in the table, 7 by its formula",
                                        "R, Jan 08: 4 in the table, 0.5 by its formula"}));
}

constexpr const char* FourMonths = "p,a,b,s\n2007-12,1,2,3\n2008-01,4,5,9\n2008-03,7,8,15\n2008-04,10,,10\n";

TEST(Import, TotalsOverTimeStandBehindTheirMonths) {
    const TestFolder folder;
    ImportRequest request{folder.Write("plan.csv", FourMonths), folder.Path("book"), {}};
    request.names = folder.Write("names",
                                 "[book]\nopen-at = 2008-03\n[formulas]\nS = A + B | entry\n2008-04 = 2 * Mar 08 | -1\n"
                                 "[macros]\nm = [a] = 1 | 2008-01 : 2008-04\n");
    request.totals = {true, true};
    const ImportResult result = ImportBook(request);
    const Book book = LoadBook(request.book);
    EXPECT_EQ(Show(book, BookTable::ColsIndex, {"PERDY", "SHOW_CHART"}),
              "Dec 07|\nQ4 07|\n2007|\nJan 08|\nMar 08|X\nQ1 08|\nApr 08|X\nQ2 08|\n2008|\n");
    EXPECT_EQ(Show(book, BookTable::Formulas, {"TARGET", "FORMULA", "SOLVE_ORDER", "ENTRY"}),
              "ROW3|{ROW1|A} + {ROW2|B}|0|X\nCOL7|2 * {/COL5|Mar 08}|-1|\n"
              "COL2|SUM({/COL1|Dec 07})|0|X\nCOL3|SUM({/COL1|Dec 07})|0|X\n"
              "COL6|SUM({/COL4:COL5|Jan 08|Mar 08})|0|X\nCOL8|SUM({/COL7|Apr 08})|0|X\n"
              "COL9|SUM({/COL4:COL5|Jan 08|Mar 08}; {/COL7|Apr 08})|0|X\n");
    const BookSnapshot values(book);
    const auto line = [&](int row) {
        std::string text;
        for (int column = 1; column <= 9; ++column) {
            text += (column == 1 ? "" : " ") + values.ValueOf({row, column}).AsText();
        }
        return text;
    };
    EXPECT_EQ(line(1), "1 1 1 4 7 11 14 14 25");
    EXPECT_EQ(line(3), "3 3 3 9 15 24 30 30 54") << "a total of totals";
    EXPECT_EQ(result.contradictions.count, 2) << "A and S in April";
    EXPECT_EQ(book[BookTable::GridAttr].Value(1, "FIRST_COL").AsInt32(), 5);
    EXPECT_TRUE(Contains(Show(book, BookTable::FixedTab, {"VALUE", "COLUMN", "FLG_LINE_FIX"}), "2007|1|T\n2008|4|T\n"));
    EXPECT_TRUE(Contains(Show(book, BookTable::MacroTree, {"NODEVALUE"}), "PERIODS=COL4:COL7\n"));
}

TEST(Import, WhatTotalsOverTimeDoNotGoWithIsRefused) {
    const TestFolder folder;
    ImportRequest request{folder.Write("plan.csv", FourMonths), folder.Path("book"), {}};
    request.totals.years = true;
    const auto message = [&] { return MessageOf<BookError>([&] { ImportBook(request); }); };
    request.names = folder.Write("names",
                                 "[formulas]\nB = \"LAST(A\" + 1\nA = B and shift (S; -1)\n[macros]\n"
                                 "m = [a] = 2 * LAST([b] ; 2)\n");
    EXPECT_TRUE(Contains(message(), "line 3: SHIFT counts columns")) << message();
    EXPECT_TRUE(Contains(message(), "line 5: LAST counts columns")) << message();
    EXPECT_FALSE(Contains(message(), "line 2")) << message();
    request.names.reset();
    request.source = folder.Write("plan.csv", "p,a\nfirst,1\n");
    EXPECT_TRUE(Contains(message(), "are no dates or months")) << message();
}

TEST(Import, AMacroOfTheNamesFileBecomesNodes) {
    const Book book =
        ImportText("p,a,b\n2008,1,2\n2009,3,4\n",
                   "[lines]\nb = Beta\n[macros]\nPlan = [b] = SHIFT(SELECTED ; -1) * (2.5 + [b]) | 2009\n");
    EXPECT_EQ(Show(book, BookTable::MacroTree, {"NODEREF", "NODETYPE", "NODEVALUE", "NODENAME"}),
              "|||\n"
              "MACROS|M_MAKRO||\n"
              "MACRO1|M_ATTRIBUTE|PERIODS=COL2:COL2|2009|2009\n"
              "MACRO1|M_TABLINE|ROW1|Beta\n"
              "MACRO1_2|M_FUNCTION|SHIFT|\n"
              "MACRO1_3|M_TABLINE|SELECTED|\n"
              "MACRO1_3|M_OPERATOR|;|\n"
              "MACRO1_3|M_CONSTANT|-1|\n"
              "MACRO1_2|M_OPERATOR|*|\n"
              "MACRO1_2|M_OPERATOR|(|\n"
              "MACRO1_2|M_CONSTANT|2,5|\n"
              "MACRO1_2|M_OPERATOR|+|\n"
              "MACRO1_2|M_TABLINE|ROW1|Beta\n"
              "MACRO1_2|M_OPERATOR|)|\n"
              "MACROS|||\n");
}

TEST(Import, ReplacesBooksOnlyAndOnlyWhenAsked) {
    const TestFolder folder;
    const auto csv = folder.Write("data.csv", "p,a\nx,1\n");
    const auto import = [&](const char* book, bool force) {
        return MessageOf<BookError>([&] { ImportBook({csv, folder.Path(book), {}, {}, force}); });
    };
    ASSERT_EQ(import("book", false), "");
    std::filesystem::create_symlink(folder.Path("book"), folder.Path("link"));
    std::filesystem::create_directory(folder.Path("folder"));
    folder.Write("other", "text");
    folder.Write("data.csv", "p,a\nx,2\n");

    const auto before = folder.Contents();
    const struct {
        const char* book;
        bool force;
        const char* message;
    } refusals[] = {
        {"book", false, "there is such a file. Choose another name, or add --force"},
        {"link", false, "there is such a file"},
        {"other", true, "--force replaces books only"},
        {"data.csv", true, "--force replaces books only"},
        {"folder", true, "it is a folder"},
        {"nowhere/book", true, "there is no folder"},
    };
    for (const auto& refusal : refusals) {
        const std::string message = import(refusal.book, refusal.force);
        EXPECT_TRUE(Contains(message, refusal.message)) << message;
        EXPECT_EQ(folder.Contents(), before) << refusal.book;
    }
    EXPECT_EQ(import("link", true), "");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
    EXPECT_EQ(LoadBook(folder.Path("book"))[BookTable::Tab].Value(1, "V").AsInt32(), 2);
    EXPECT_EQ(folder.Contents().size(), before.size()) << "something was left behind";
}

/// A book whose last change a killed program has left half done in "book-journal".
void MakeCutOffBook(const TestFolder& folder) {
    const std::filesystem::path source = folder.Write("data.csv", "p,a\nx,1\n");
    ImportBook({source, folder.Path("live"), {}, {}, false});
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "CutOff");
        database.setDatabaseName(QString::fromStdString(folder.Path("live").string()));
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        // So little room that the change goes to the file, and the journal before it.
        for (const char* statement : {"PRAGMA cache_size = 1", "BEGIN", "UPDATE TAB SET V = hex(randomblob(50000))",
                                      "UPDATE TEXTS SET TEXT = hex(randomblob(50000))"}) {
            ASSERT_TRUE(query.exec(statement));
        }
        for (const char* suffix : {"", "-journal"}) {
            std::filesystem::copy_file(folder.Path("live").string() + suffix, folder.Path("book").string() + suffix);
        }
        query.exec("ROLLBACK");
    }
    QSqlDatabase::removeDatabase("CutOff");
}

TEST(Import, WhatAKilledProgramLeftBesideABookIsInNobodysWay) {
    for (const char* journal : {"of the change", "of another time", ""}) {
        const TestFolder folder;
        MakeCutOffBook(folder);
        ASSERT_TRUE(std::filesystem::exists(folder.Path("book-journal")));
        if (std::string(journal) != "of the change") {
            folder.Write("book-journal", journal);
            ImportBook({folder.Path("data.csv"), folder.Path("sound"), {}, {}, false});
            std::filesystem::rename(folder.Path("sound"), folder.Path("book"));
        }
        folder.Write("data.csv", "p,a\nx,7\n");
        EXPECT_EQ(MessageOf<BookError>([&] {
                      ImportBook({folder.Path("data.csv"), folder.Path("book"), {}, {}, true});
                  }),
                  "");
        EXPECT_FALSE(std::filesystem::exists(folder.Path("book-journal"))) << journal;
        EXPECT_EQ(LoadBook(folder.Path("book"))[BookTable::Tab].Value(1, "V").AsInt32(), 7) << journal;
    }
}

TEST(Import, AProgramThatIsAtWorkKeepsItsBook) {
    const TestFolder folder;
    const std::filesystem::path book = MakeSmallBook(folder);
    const auto before = ReadFile(book);
    std::string message;
    {
        const Obstacle atWork(Obstacle::Kind::Locked, book);
        folder.Write("small.planbook-journal", "");
        message = MessageOf<BookError>([&] { ImportBook({folder.Path("small.csv"), book, {}, {}, true}); });
    }
    EXPECT_TRUE(Contains(message, "Another program is writing to it")) << message;
    EXPECT_EQ(ReadFile(book), before);
}

TEST(Import, AReplacedBookKeepsItsRights) {
    const TestFolder folder;
    const std::filesystem::path book = MakeSmallBook(folder);
    using std::filesystem::perms;
    std::filesystem::permissions(book, perms::owner_read | perms::owner_write);
    ImportBook({folder.Path("small.csv"), book, {}, {}, true});
    EXPECT_EQ(std::filesystem::status(book).permissions(), perms::owner_read | perms::owner_write);
}

TEST(Import, NamesAsLongAsTheFileSystemAllows) {
    const TestFolder folder;
    const auto csv = folder.Write("data.csv", "p,a\nx,1\n");
    for (const std::size_t length : {247U, 249U, 255U}) {
        const std::filesystem::path book = folder.Path(std::string(length, 'b'));
        EXPECT_EQ(MessageOf<BookError>([&] { ImportBook({csv, book, {}, {}, false}); }), "");
        EXPECT_EQ(MessageOf<BookError>([&] { ImportBook({csv, book, {}, {}, true}); }), "");
        BookStore store = BookStore::Open(book);
        EXPECT_EQ(store.Load()[BookTable::Tab].RowCount(), 1);
        EXPECT_EQ(store.IsReadOnly(), length > 247) << "a change needs a journal, whose name is longer by 8";
    }
    EXPECT_EQ(folder.Contents().size(), 4U);
}

TEST(Import, TheSampleMakesABookWorthLookingAt) {
    const TestFolder folder;
    const std::filesystem::path examples = EXAMPLES_FOLDER;
    const ImportResult result =
        ImportBook({examples / "us-employment.csv", folder.Path("book"), examples / "us-employment.names", {}, false});
    EXPECT_EQ(result.periods, 120);
    EXPECT_EQ(result.lines, 23);
    EXPECT_EQ(result.cells, 2760);

    const Book book = LoadBook(folder.Path("book"));
    const MemoryTable& lines = book[BookTable::LineIndex];
    const std::int32_t january08 = book[BookTable::GridAttr].Value(1, "FIRST_COL").AsInt32();
    EXPECT_EQ(book[BookTable::ColsIndex].Value(january08, "PERDY").AsText(), "Jan 08");
    std::int32_t construction = 0;
    std::int32_t change = 0;
    for (std::int32_t row = 1; row <= lines.RowCount(); ++row) {
        construction = lines.Value(row, "FREET").AsText() == "Construction" ? row : construction;
        change = lines.Value(row, "FREET").AsText() == "Change on month" ? row : change;
        EXPECT_FALSE(Contains(lines.Value(row, "FREET").AsText(), "_")) << "a line without a readable name";
    }
    EXPECT_TRUE(Contains(Show(book, BookTable::Tab, {"Z", "C", "V"}),
                         std::to_string(construction) + "|" + std::to_string(january08) + "|7476\n"));
    EXPECT_EQ(lines.Value(construction, "ROW_FORMAT").AsText(), "#,##0");

    // Every month in which the total fell is coloured, and nothing else: by the format, because it is computed.
    EXPECT_EQ(lines.Value(change, "ROW_FORMAT").AsText(), "#,##0;[Red]-#,##0");
    EXPECT_EQ(book[BookTable::CellAttr].RowCount(), 0);

    // The published totals are the computed ones but for the rounding that examples/README.md tells of.
    EXPECT_EQ(book[BookTable::Formulas].RowCount(), 9);
    EXPECT_EQ(result.contradictions.count, 661);
    EXPECT_NEAR(result.contradictions.largest, 0.9, 1e-9);
}

}  // namespace
}  // namespace planbook
