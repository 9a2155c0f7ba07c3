// SPDX-License-Identifier: MIT
#include <ostream>
#include <sstream>

#include <planview/Trace.h>

#include "book/BookError.h"
#include "planbook/BookWindow.h"

namespace planbook {
namespace {

using planview::MemoryTable;

struct FaultCase {
    const char* name;
    const char* statements;
    const char* list;  ///< of the faults
    bool losesValues = true;
};

void PrintTo(const FaultCase& fault, std::ostream* stream) {
    *stream << fault.name;
}

class FaultyPlace : public testing::TestWithParam<FaultCase> {};

/// The cell (2, 3) is none that a case is about.
TEST_P(FaultyPlace, IsNamedAndHidesNothingElse) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, GetParam().statements);
    BookWindow w(file);
    EXPECT_EQ(w.window.session().report().List(9), GetParam().list);
    EXPECT_EQ(w.window.session().report().LosesValues(), GetParam().losesValues);
    EXPECT_EQ(w.Shown(2, 3), "30,5");
    EXPECT_EQ(w.Shown(1, 1), "1");
    EXPECT_EQ(w.Grid().Contents(w.Grid().FindCell({"FRC1", "ROW2"}).value()), "25,5") << "the mean";
    EXPECT_FALSE(w.Find<QWidget>("faultNotice")->isHidden());
    EXPECT_TRUE(w.window.windowTitle().contains("(incomplete)"));

    w.window.view().plv_EnableTrace();
    w.window.session().reload();
    std::ostringstream trace;
    planview::WriteTraceLog(trace);
    w.window.view().plv_DisableTrace();
    EXPECT_FALSE(Contains(trace.str(), "ERROR")) << "some table was not read to its end:\n" << trace.str();

    // What is saved goes into its own rows, and the faulty ones stay as they are.
    w.Type(2, 3, "31");
    w.window.view().selectCell("COL3", "ROW2");
    w.window.session().saveTables();
    EXPECT_TRUE(w.questions.failures.empty()) << w.questions.failures[0];
    EXPECT_EQ(w.InFile(2, 3), "31");
    const Book inFile = LoadBook(file);
    const MemoryTable& lines = inFile[BookTable::LineIndex];
    for (std::int32_t row = 1; row <= lines.RowCount(); ++row) {
        const std::string key = lines.Value(row, "GRID_ID").AsText();
        EXPECT_TRUE(key.empty() || key == "ROW" + lines.Value(row, "LINE").AsText()) << key << " in row " << row;
    }
    BookStore store = BookStore::Open(file);
    static_cast<void>(store.LoadReadable());
    EXPECT_EQ(store.Report().List(9), GetParam().list);
}

const FaultCase Faults[] = {
    {"ValueIsText", "UPDATE TAB SET V = 'n/a' WHERE Z = 3 AND C = 1",
     "TAB, row 9, field V: \"n/a\" is no number; the cell is shown empty"},
    {"ValueIsInfinite", "UPDATE TAB SET V = 9e999 WHERE Z = 3 AND C = 1",
     "TAB, row 9, field V: a value beyond all numbers is no number; the cell is shown empty"},
    {"PlaceIsTooLarge", "UPDATE TAB SET C = 65537 WHERE Z = 3 AND C = 1",
     "TAB, row 9, field C: \"65537\" is no place; the row is left out"},
    {"PlaceIsText", "UPDATE TAB SET Z = 'three' WHERE Z = 3 AND C = 1",
     "TAB, row 9, field Z: \"three\" is no place; the row is left out"},
    {"CellTwice", "INSERT INTO TAB (Z, C, V) VALUES (1, 1, 7), (1, 2, 2)",
     "TAB, row 12, field V: row 1 has a value for this cell already; \"7\" is left out"},
    {"LineTwice", "UPDATE LINE_INDEX SET LINE = 1 WHERE LINE = 3",
     "LINE_INDEX, row 3, field LINE: 1 stands in row 1 already; the row is left out\n"
     "TAB, row 9, field Z: there is no line 3; the value \"100\" is left out\n"
     "TAB, row 10, field Z: there is no line 3; the value \"200\" is left out\n"
     "TAB, row 11, field Z: there is no line 3; the value \"300\" is left out\n"
     "FIXED_TAB, row 6, field LINE: there is no such cell; \"200\" is left out"},
    {"LineInTheMiddleTwice",
     "UPDATE LINE_INDEX SET ROW_NO = ROW_NO + 5 WHERE LINE > 1;"
     "INSERT INTO LINE_INDEX (ROW_NO, LINE, LTEXT, FREET) VALUES (4, 1, 'F', 'again')",
     "LINE_INDEX, row 2, field LINE: 1 stands in row 1 already; the row is left out"},
    {"PeriodGone", "DELETE FROM COLS_INDEX WHERE \"COLUMN\" = 4; DELETE FROM TAB WHERE C = 4 AND Z = 1",
     "TAB, row 7, field C: there is no period 4; the value \"40.5\" is left out"},
    {"PeriodIsNoPlace", "INSERT INTO COLS_INDEX (ROW_NO, \"COLUMN\") VALUES (0, 0)",
     "COLS_INDEX, row 1, field COLUMN: \"0\" is no place; the row is left out"},
    {"WidthIsText", "UPDATE COLS_INDEX SET COL_WIDTH = 'wide' WHERE \"COLUMN\" = 2",
     "COLS_INDEX, row 2, field COL_WIDTH: \"wide\" is no whole number up to 32767; it is taken as empty", false},
    {"SettingIsInfinite", "UPDATE GRID_ATTR SET OPTIMUM = 9e999",
     "GRID_ATTR, row 1, field OPTIMUM: a value beyond all numbers is no number; it is taken as empty", false},
    {"NodesBesideNone",
     "INSERT INTO MACRO_TREE (NODEKEY, NODEREF, RELATION, NODETEXT) VALUES ('A', 'gone', 4, 'a'), ('B', 'A', 4, 'b'), "
     "('MACROS', '', 1, 'c'), ('D', 'MACROS', 9, 'd'), ('E', '', '', 'e')",
     "MACRO_TREE, row 5, field NODEKEY: \"MACROS\" stands in row 1 already; the node is left out\n"
     "MACRO_TREE, row 3, field NODEREF: there is no node \"gone\"; the node is left out\n"
     "MACRO_TREE, row 4, field NODEREF: there is no node \"A\"; the node is left out\n"
     "MACRO_TREE, row 6, field RELATION: \"9\" is no relation of nodes; the node is left out"},
    {"LookOfNoCell", "INSERT INTO CELL_ATTR (LINE, \"COLUMN\") VALUES ('x', 1)",
     "CELL_ATTR, row 1, field LINE: \"x\" is no place; the row is left out", false},
};

INSTANTIATE_TEST_SUITE_P(Books, FaultyPlace, testing::ValuesIn(Faults),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(BookCheck, FindsNothingInSoundBooks) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    // Notes of edited fixed cells hold texts and have no place; blanks are no value.
    ChangeBook(file,
               "INSERT INTO TAB (Z, C, V) VALUES (0, 1, 'a note'), (3, 4, '  '); "
               "INSERT INTO TAB_OLD (Z, C, V) VALUES (0, 1, 'old')");
    BookWindow w(file);
    EXPECT_EQ(w.window.session().report().List(9), "");
    EXPECT_TRUE(w.Find<QWidget>("faultNotice")->isHidden());
    EXPECT_EQ(w.Shown(1, 1), "1");
}

TEST(BookCheck, AFaultyCellCanBeMendedByTyping) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, "UPDATE TAB SET V = 'n/a' WHERE Z = 1 AND C = 1");
    BookWindow w(file);
    w.Press("noticeActionOfFaults");
    ASSERT_EQ(w.questions.news.size(), 1U);
    EXPECT_TRUE(Contains(w.questions.news[0], "TAB, row 1, field V")) << w.questions.news[0];
    w.Type(1, 1, "5");
    EXPECT_TRUE(w.questions.disputes.empty()) << "nobody else has changed the cell";
    EXPECT_EQ(w.InFile(1, 1), "5");
    w.window.session().reload();
    EXPECT_TRUE(w.window.session().report().IsWhole());
    EXPECT_TRUE(w.Find<QWidget>("faultNotice")->isHidden());
}

TEST(BookCheck, RowsAreNotWrittenAnewOverFaultyOnes) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file,
               "INSERT INTO FIXED_TAB (ROW_NO, LINE, FLG_LINE_FIX, \"COLUMN\", FLG_COL_FIX, VALUE) VALUES "
               "(0, 'x', 'T', 1, 'L', 'kept')");
    BookStore store = BookStore::Open(file);
    const Book book = store.LoadReadable();
    const BookSnapshot before(book);
    book[BookTable::FixedTab].AddRow();
    const std::string message = MessageOf<BookError>([&] { static_cast<void>(store.Write(before.ChangesIn(book))); });
    EXPECT_TRUE(Contains(message, "parts of the table FIXED_TAB cannot be read")) << message;
    EXPECT_TRUE(Contains(DumpFile(file), "\"kept\""));
}

}  // namespace
}  // namespace planbook
