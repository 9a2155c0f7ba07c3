// SPDX-License-Identifier: MIT
#include "book/BookFormulas.h"
#include "planbook/BookWindow.h"
#include "planbook/TestFolder.h"

namespace planbook {
namespace {

/// The small book, in which Gamma is Alpha + Beta and can be entered; the file still has other values for it.
std::filesystem::path MakeComputedBook(const TestFolder& folder, const char* more = "") {
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, std::string("INSERT INTO FORMULAS VALUES (1, 'ROW3', '{ROW1} + {ROW2}', 0, 'X')") + more);
    return file;
}

/// How often the file has been written to, as SQLite counts it in its header.
int Transactions(const std::filesystem::path& file) {
    constexpr std::size_t Offset = 24;
    const std::string header = ReadFile(file).substr(Offset, 4);
    int count = 0;
    for (const char byte : header) {
        count = count * 256 + static_cast<unsigned char>(byte);
    }
    return count;
}

std::string Totals(const std::filesystem::path& file) {
    const BookSnapshot book(LoadBook(file));
    std::string text;
    for (int period = 1; period <= 4; ++period) {
        text += (period == 1 ? "" : " ") + book.ValueOf({3, period}).AsText();
    }
    return text;
}

/// The file's own leaves, computed again, give what it holds.
void ExpectTotalsFit(const std::filesystem::path& file) {
    EXPECT_TRUE(Recompute(LoadBook(file)).empty()) << Totals(file);
}

TEST(BookFormulas, ALeafAndItsTotalsAreStoredInOneTransaction) {
    const TestFolder folder;
    BookWindow w(MakeComputedBook(folder));
    EXPECT_EQ(w.Shown(3, 1), "11,5");
    EXPECT_EQ(Totals(w.file), "100 200 300 ") << "looking at a book does not change it";
    const int before = Transactions(w.file);
    w.Type(1, 1, "5");
    EXPECT_EQ(Transactions(w.file), before + 1);
    EXPECT_EQ(Totals(w.file), "15.5 22.5 33.5 44.5") << "with what was outdated";
    w.ExpectSaved();
    EXPECT_EQ(DumpTable(LoadBook(w.file), BookTable::TabOld), "TAB_OLD 1: 1 1 1\n");
    EXPECT_EQ(w.window.view().pendingChanges(), 1);
    w.window.view().undo();
    EXPECT_EQ(Totals(w.file), "11.5 22.5 33.5 44.5");
    EXPECT_EQ(Transactions(w.file), before + 2);
}

TEST(BookFormulas, AnEnteredTotalStoresItsLeavesInOneTransaction) {
    const TestFolder folder;
    BookWindow w(MakeComputedBook(folder));
    const int before = Transactions(w.file);
    w.Type(3, 2, "45");
    EXPECT_EQ(Transactions(w.file), before + 1);
    EXPECT_EQ(w.InFile(1, 2), "4");
    EXPECT_EQ(w.InFile(2, 2), "41");
    w.ExpectSaved();
    ExpectTotalsFit(w.file);
    EXPECT_EQ(w.window.view().pendingChanges(), 2);
}

TEST(BookFormulas, BlocksAreStoredWithTheirTotalsWhetherEachCellIsAnnouncedOrNot) {
    for (const char* single : {"", "X"}) {
        const TestFolder folder;
        BookWindow w(
            MakeComputedBook(folder, (std::string(";UPDATE GRID_ATTR SET SINGLEVALUE = '") + single + "'").c_str()));
        const int before = Transactions(w.file);
        w.EmptyBlock(1, 1, 2, 3);
        EXPECT_EQ(Transactions(w.file), before + 1) << single;
        EXPECT_EQ(Totals(w.file), "0 0 0 44.5") << single;
        EXPECT_EQ(w.window.view().pendingChanges(), 6);
        w.ExpectSaved();
    }
}

TEST(BookFormulas, TheTotalFitsWhatTwoWindowsHaveTyped) {
    const TestFolder folder;
    BookWindow one(MakeComputedBook(folder));
    BookWindow other(one.file);
    one.Type(1, 1, "5");
    other.Type(2, 1, "20");
    EXPECT_TRUE(other.questions.disputes.empty()) << "nobody has entered a total";
    EXPECT_EQ(one.InFile(3, 1), "25");
    ExpectTotalsFit(one.file);
    one.Type(1, 1, "6");
    EXPECT_TRUE(one.questions.disputes.empty());
    EXPECT_EQ(one.InFile(3, 1), "26");
    other.window.session().reload();
    EXPECT_EQ(other.Shown(3, 1), "26");
}

TEST(BookFormulas, ALeafThatGivesWayLeavesTheTotalOfTheOther) {
    const TestFolder folder;
    BookWindow one(MakeComputedBook(folder));
    BookWindow other(one.file);
    other.questions.keep = Questions::Keep::Theirs;
    one.Type(1, 1, "5");
    other.Type(1, 1, "7");
    ASSERT_EQ(other.questions.disputes.size(), 1U);
    EXPECT_EQ(other.questions.disputes[0].size(), 1U) << "the total is nobody's value";
    EXPECT_EQ(one.InFile(1, 1), "5");
    EXPECT_EQ(one.InFile(3, 1), "15.5");
    other.window.session().settle();
    EXPECT_EQ(other.Shown(3, 1), "15,5");
}

TEST(BookFormulas, RevertedLeavesTakeTheirTotalsBack) {
    const TestFolder folder;
    BookWindow w(MakeComputedBook(folder));
    w.Type(1, 1, "5");
    w.Type(1, 2, "6");
    w.window.session().revertChanges();
    EXPECT_EQ(Totals(w.file), "11.5 22.5 33.5 44.5");
    EXPECT_EQ(w.Shown(3, 1), "11,5");
}

TEST(BookFormulas, WhatCannotBeComputedIsNamedAndKept) {
    const TestFolder folder;
    BookWindow w(MakeComputedBook(folder,
                                  ";INSERT INTO FORMULAS VALUES (2, 'ROW9', '1', 0, ''), (3, 'ROW2', '{ROW7|Old} * 2', "
                                  "0, '')"));
    const BookReport& report = w.window.session().report();
    EXPECT_EQ(report.Headline(), "2 formulas of the book cannot be computed; the values stay as they are.");
    EXPECT_EQ(report.List(9),
              "FORMULAS, row 2, field FORMULA: ROW9: There is no line or column \"ROW9\".\n"
              "FORMULAS, row 3, field FORMULA: ROW2: \"Old\" is not there any more.");
    EXPECT_FALSE(report.LosesValues());
    EXPECT_FALSE(w.Find<QWidget>("faultNotice")->isHidden());
    w.Type(1, 1, "5");
    EXPECT_EQ(LoadBook(w.file)[BookTable::Formulas].RowCount(), 3);
}

}  // namespace
}  // namespace planbook
