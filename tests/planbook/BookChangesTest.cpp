// SPDX-License-Identifier: MIT
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "book/BookError.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"
#include "planbook/TestBook.h"

namespace planbook {
namespace {

using planview::MemoryTable;
using planview::Variant;

/// A book that is open: the file, the tables in memory and what was last known of the file.
struct OpenBook {
    explicit OpenBook(const std::filesystem::path& name)
        : file(name), store(BookStore::Open(name)), book(store.Load()), snapshot(book) {}

    /// Writes what differs and remembers it, as a window does.
    void Save() {
        const BookChanges changes = snapshot.ChangesIn(book);
        ASSERT_TRUE(store.Write(changes).empty());
        snapshot.Apply(changes);
    }

    [[nodiscard]] MemoryTable& Tab() const { return book[BookTable::Tab]; }

    std::filesystem::path file;
    BookStore store;
    Book book;
    BookSnapshot snapshot;
};

struct ChangeCase {
    const char* name;
    std::function<void(Book&)> change;
};

void PrintTo(const ChangeCase& change, std::ostream* stream) {
    *stream << change.name;
}

class BookChange : public testing::TestWithParam<ChangeCase> {};

TEST_P(BookChange, ReachesTheFileAsItIsInMemory) {
    const TestFolder folder;
    OpenBook open(MakeSmallBook(folder));
    GetParam().change(open.book);
    open.Save();
    EXPECT_EQ(DumpFile(open.file), DumpBook(open.book));
    EXPECT_TRUE(open.snapshot.ChangesIn(open.book).IsEmpty());
}

const ChangeCase Changes[] = {
    {"Nothing", [](Book&) {}},
    {"Cell", [](Book& book) { book[BookTable::Tab].SetValue(2, "V", "12,50"); }},
    {"EmptiedCell", [](Book& book) { book[BookTable::Tab].SetValue(2, "V", Variant()); }},
    {"NewCells",
     [](Book& book) {
         book[BookTable::Tab].AddRow({std::int16_t{3}, std::int16_t{4}, "7"});
         book[BookTable::TabOld].AddRow({std::int16_t{3}, std::int16_t{4}, Variant()});
         book[BookTable::TabOld].AddRow({std::int16_t{1}, std::int16_t{1}, 1.0});
     }},
    {"PlaceOfACell", [](Book& book) { book[BookTable::Tab].SetValue(2, "Z", std::int16_t{9}); }},
    {"RemovedCells",
     [](Book& book) {
         book[BookTable::Tab].RemoveRow(1);
         book[BookTable::TabOld].Clear();
     }},
    {"Widths",
     [](Book& book) {
         book[BookTable::ColsIndex].SetValue(1, "COL_WIDTH", std::int16_t{33});
         book[BookTable::LineIndex].SetValue(3, "ROW_HIDDEN", "X");
         book[BookTable::GridAttr].SetValue(1, "FIRST_COL", std::int16_t{2});
     }},
    {"RowsOfOtherTables",
     [](Book& book) {
         book[BookTable::Texts].RemoveRow(1);
         book[BookTable::MacroTree].AddRow({"NODE", "MACROS"});
     }},
};

INSTANTIATE_TEST_SUITE_P(Tables, BookChange, testing::ValuesIn(Changes),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(BookChanges, OnlyTheFirstRowOfACellIsTouched) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file, "INSERT INTO TAB (Z, C, V) VALUES (1, 1, 'second')");
    OpenBook open(file);
    EXPECT_EQ(open.snapshot.ValueOf({1, 1}), Variant(1.0));
    ASSERT_TRUE(open.store.Write({{{{1, 1}, 1.0, 5.0}}, {{{1, 1}, 1.0}}, {}}).empty());
    const Book book = LoadBook(file);
    EXPECT_EQ(book[BookTable::Tab].Value(1, "V"), Variant(5.0));
    EXPECT_EQ(book[BookTable::Tab].Value(book[BookTable::Tab].RowCount(), "V"), Variant("second"));
}

TEST(BookChanges, TheFirstOldValueStays) {
    const TestFolder folder;
    OpenBook open(MakeSmallBook(folder));
    ASSERT_TRUE(open.store.Write({{{{1, 1}, 1.0, 5.0}}, {{{1, 1}, 1.0}}, {}}).empty());
    ASSERT_TRUE(open.store.Write({{{{1, 1}, 5.0, 6.0}}, {{{1, 1}, 5.0}}, {}}).empty());
    EXPECT_EQ(DumpTable(LoadBook(open.file), BookTable::TabOld), "TAB_OLD 1: 1 1 1\n");
}

TEST(BookChanges, AFullTableTakesNoMore) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    ChangeBook(file,
               "DELETE FROM TAB; INSERT INTO TAB (Z, C, V) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
               "FROM n WHERE i < 32767) SELECT i, 1, 0 FROM n");
    OpenBook open(file);
    const std::string message = MessageOf<BookError>([&] {
        static_cast<void>(open.store.Write({{{{5, 1}, 0, 1}, {{5, 2}, Variant(), 1}}, {}, {}}));
    });
    EXPECT_TRUE(Contains(message, "the table TAB has 32768 rows")) << message;
    EXPECT_EQ(LoadBook(file)[BookTable::Tab].Value(5, "V"), Variant(0)) << "half of a transaction was kept";
}

// --- Books of strangers

struct StrangerCase {
    const char* name;
    std::vector<const char*> statements;
    const char* refusal;  ///< empty: what is written stands in the file
};

void PrintTo(const StrangerCase& stranger, std::ostream* stream) {
    *stream << stranger.name;
}

class StrangersBook : public testing::TestWithParam<StrangerCase> {};

/// Whatever the file says, a value is stored as it was entered, or there is a message and nothing is.
TEST_P(StrangersBook, StoresWhatIsEnteredOrSaysThatItDoesNot) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    for (const char* statement : GetParam().statements) {
        RunOnBook(file, statement);
    }
    OpenBook open(file);
    const std::string before = DumpFile(file);
    const BookChanges changes{{{{1, 1}, 1.0, 50.0}, {{3, 4}, Variant(), 60.0}}, {{{1, 1}, 1.0}}, {}};
    const std::string message = MessageOf<BookError>([&] { EXPECT_TRUE(open.store.Write(changes).empty()); });
    if (std::string(GetParam().refusal).empty()) {
        EXPECT_EQ(message, "");
        const BookSnapshot inFile(LoadBook(file));
        EXPECT_EQ(inFile.ValueOf({1, 1}), Variant(50.0));
        EXPECT_EQ(inFile.ValueOf({3, 4}), Variant(60.0));
        EXPECT_EQ(inFile.ValueOf({2, 2}), Variant(20.5)) << "a value that nobody has changed";
    } else {
        EXPECT_TRUE(Contains(message, GetParam().refusal)) << message;
        EXPECT_EQ(DumpFile(file), before);
    }
}

constexpr const char* CopyOfTab = "INSERT INTO TAB SELECT * FROM t";

const StrangerCase Strangers[] = {
    {"TriggerThatSwallows",
     {"CREATE TRIGGER t BEFORE UPDATE ON TAB BEGIN SELECT RAISE(IGNORE); END",
      "CREATE TRIGGER u BEFORE INSERT ON TAB BEGIN SELECT RAISE(IGNORE); END"},
     ""},
    {"TriggerThatAlters",
     {"CREATE TRIGGER t AFTER UPDATE ON TAB BEGIN UPDATE TAB SET V = V + 1 WHERE Z = 2; END",
      "CREATE TRIGGER u AFTER INSERT ON TAB BEGIN DELETE FROM TAB WHERE Z = 2; END"},
     ""},
    {"RuleThatSwallows",
     {"ALTER TABLE TAB RENAME TO t", "CREATE TABLE TAB (ROW_NO INTEGER PRIMARY KEY, Z, C, V CHECK (V <> 50))",
      CopyOfTab},
     "CHECK constraint"},
    {"UniqueThatSwallows",
     {"UPDATE TAB SET V = 50 WHERE Z = 2 AND C = 1", "ALTER TABLE TAB RENAME TO t",
      "CREATE TABLE TAB (ROW_NO INTEGER PRIMARY KEY, Z, C, V UNIQUE ON CONFLICT IGNORE)", CopyOfTab},
     "UNIQUE constraint"},
    {"UniqueThatDropsOthers",
     {"UPDATE TAB SET V = 50 WHERE Z = 2 AND C = 1", "ALTER TABLE TAB RENAME TO t",
      "CREATE TABLE TAB (ROW_NO INTEGER PRIMARY KEY, Z, C, V UNIQUE ON CONFLICT REPLACE)", CopyOfTab},
     "UNIQUE constraint"},
    {"RowsOfOneNumber",
     {"ALTER TABLE TAB RENAME TO t", "CREATE TABLE TAB (ROW_NO, Z, C, V)", CopyOfTab, "UPDATE TAB SET ROW_NO = 1"},
     "reached 11 rows instead of one"},
    {"RowsWithoutNumber",
     {"ALTER TABLE TAB RENAME TO t", "CREATE TABLE TAB (ROW_NO, Z, C, V)", CopyOfTab, "UPDATE TAB SET ROW_NO = NULL"},
     "reached "},
};

INSTANTIATE_TEST_SUITE_P(Files, StrangersBook, testing::ValuesIn(Strangers),
                         [](const auto& testCase) { return testCase.param.name; });

// --- Two windows

TEST(TwoWindows, AWriteUnlessChangedTakesNobodysChangeBack) {
    const TestFolder folder;
    OpenBook mine(MakeSmallBook(folder));
    mine.Tab().SetValue(1, "V", 50.0);
    ChangeBook(mine.file, "UPDATE TAB SET V = 70 WHERE Z = 2 AND C = 2");  // not even the same cell
    const std::string before = DumpFile(mine.file);
    EXPECT_FALSE(mine.store.WriteUnlessChanged(mine.snapshot.ChangesIn(mine.book)));
    EXPECT_EQ(DumpFile(mine.file), before);
    OpenBook again(mine.file);
    again.Tab().SetValue(1, "V", 50.0);
    EXPECT_TRUE(again.store.WriteUnlessChanged(again.snapshot.ChangesIn(again.book)));
    EXPECT_EQ(BookSnapshot(LoadBook(mine.file)).ValueOf({1, 1}), Variant(50.0));
}

TEST(TwoWindows, ACellChangedInBothIsAConflictAndNothingIsWritten) {
    const TestFolder folder;
    OpenBook mine(MakeSmallBook(folder));
    ChangeBook(mine.file, "UPDATE TAB SET V = 70 WHERE Z = 1 AND C = 1");
    mine.Tab().SetValue(1, "V", 50.0);
    mine.Tab().SetValue(2, "V", 60.0);
    const std::string before = DumpFile(mine.file);
    const std::vector<CellConflict> conflicts = mine.store.Write(mine.snapshot.ChangesIn(mine.book));
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts[0].cell, (CellPosition{1, 1}));
    EXPECT_EQ(conflicts[0].theirs, Variant(70));
    EXPECT_EQ(conflicts[0].mine, Variant(50.0));
    EXPECT_EQ(DumpFile(mine.file), before);
}

TEST(TwoWindows, OtherCellsAndTheSameValueAreNoConflict) {
    const TestFolder folder;
    OpenBook mine(MakeSmallBook(folder));
    ChangeBook(mine.file,
               "UPDATE TAB SET V = 70 WHERE Z = 2 AND C = 2; UPDATE TAB SET V = '50,0' WHERE Z = 1 AND C = 1;"
               "INSERT INTO TAB (Z, C, V) VALUES (3, 4, 400)");
    EXPECT_TRUE(mine.store.IsChangedElsewhere());
    mine.Tab().SetValue(1, "V", 50.0);
    mine.Tab().AddRow({3, 5, 500.0});
    mine.Save();
    const Book both = LoadBook(mine.file);
    EXPECT_EQ(BookSnapshot(both).ValueOf({1, 1}), Variant(50.0));
    EXPECT_EQ(BookSnapshot(both).ValueOf({2, 2}), Variant(70));
    EXPECT_EQ(BookSnapshot(both).ValueOf({3, 4}), Variant(400));
    EXPECT_EQ(BookSnapshot(both).ValueOf({3, 5}), Variant(500.0));
}

TEST(TwoWindows, OnesOwnChangeIsNobodyElses) {
    const TestFolder folder;
    OpenBook mine(MakeSmallBook(folder));
    mine.Tab().SetValue(1, "V", 50.0);
    mine.Save();
    EXPECT_FALSE(mine.store.IsChangedElsewhere());
    EXPECT_TRUE(mine.store.EndPendingChanges(BookStore::OldValues::Forget));
    EXPECT_FALSE(mine.store.IsChangedElsewhere());
}

TEST(TwoWindows, AReplacedFileIsNoticedAndNotWrittenTo) {
    const TestFolder folder;
    OpenBook mine(MakeSmallBook(folder));
    std::filesystem::copy_file(mine.file, folder.Path("other"));
    std::filesystem::rename(folder.Path("other"), mine.file);
    EXPECT_TRUE(mine.store.IsChangedElsewhere());
    mine.Tab().SetValue(1, "V", 50.0);
    const std::string message = MessageOf<BookError>([&] { mine.Save(); });
    EXPECT_TRUE(Contains(message, "replaced by another one. Reload the book.")) << message;
}

// --- Pending changes

TEST(PendingChanges, AreForgottenOrTakenBack) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    const std::string original = DumpTable(LoadBook(file), BookTable::Tab);
    const auto change = [&] {
        OpenBook open(file);
        // The last one has had no row; its old value is none.
        EXPECT_TRUE(open.store
                        .Write({{{{1, 1}, 1.0, 5.0}, {{2, 3}, 30.5, "6,5"}, {{3, 4}, Variant(), 7.0}},
                                {{{1, 1}, 1.0}, {{2, 3}, 30.5}, {{3, 4}, Variant()}},
                                {}})
                        .empty());
        return open;
    };
    EXPECT_TRUE(change().store.EndPendingChanges(BookStore::OldValues::PutBack));
    EXPECT_EQ(DumpTable(LoadBook(file), BookTable::Tab), original + "TAB 12: 3 4 -\n");
    EXPECT_EQ(DumpTable(LoadBook(file), BookTable::TabOld), "");

    ChangeBook(file, "DELETE FROM TAB WHERE V IS NULL");
    EXPECT_TRUE(change().store.EndPendingChanges(BookStore::OldValues::Forget));
    EXPECT_EQ(BookSnapshot(LoadBook(file)).ValueOf({2, 3}), Variant("6,5"));
    EXPECT_EQ(DumpTable(LoadBook(file), BookTable::TabOld), "");
}

TEST(PendingChanges, ThatNobodyHereHasSeenStay) {
    const TestFolder folder;
    OpenBook mine(MakeSmallBook(folder));
    ChangeBook(mine.file,
               "UPDATE TAB SET V = 70 WHERE Z = 1 AND C = 1; INSERT INTO TAB_OLD (Z, C, V) VALUES (1, 1, 1)");
    const std::string before = DumpFile(mine.file);
    EXPECT_FALSE(mine.store.EndPendingChanges(BookStore::OldValues::PutBack));
    EXPECT_FALSE(mine.store.EndPendingChanges(BookStore::OldValues::Forget));
    EXPECT_EQ(DumpFile(mine.file), before);
}

// --- Failures

struct FailureCase {
    const char* name;
    Obstacle::Kind kind;
    const char* message;
};

void PrintTo(const FailureCase& failure, std::ostream* stream) {
    *stream << failure.name;
}

class WriteFailure : public testing::TestWithParam<FailureCase> {};

TEST_P(WriteFailure, SaysWhatAndWhatNowAndLeavesTheBookUsable) {
    const TestFolder folder;
    const std::filesystem::path file = MakeSmallBook(folder);
    const std::string before = DumpFile(file);
    const BookChanges changes{{{{1, 1}, 1.0, 5.0}}, {{{1, 1}, 1.0}}, {}};
    OpenBook open(file);
    {
        const Obstacle obstacle(GetParam().kind, file);
        const std::string message = MessageOf<BookError>([&] {
            if (GetParam().kind == Obstacle::Kind::NoPermission) {
                open.store = BookStore::Open(file);  // SQLite looks at the permissions when it opens a file
            }
            static_cast<void>(open.store.Write(changes));
        });
        EXPECT_TRUE(Contains(message, "Cannot write the book \"" + file.string())) << message;
        EXPECT_TRUE(Contains(message, GetParam().message)) << message;
    }
    EXPECT_EQ(DumpFile(file), before);
    if (GetParam().kind != Obstacle::Kind::NoPermission) {
        EXPECT_TRUE(open.store.Write(changes).empty()) << "the same connection works when the obstacle is gone";
    }
}

const FailureCase Failures[] = {
    {"FullDisk", Obstacle::Kind::FullDisk, "Check the medium it is on and the room there"},
    {"NoPermission", Obstacle::Kind::NoPermission, "Check your access to the file"},
    {"Locked", Obstacle::Kind::Locked, "Another program is writing to it"},
};

INSTANTIATE_TEST_SUITE_P(Obstacles, WriteFailure, testing::ValuesIn(Failures),
                         [](const auto& testCase) { return testCase.param.name; });

}  // namespace
}  // namespace planbook
