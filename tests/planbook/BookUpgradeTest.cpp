// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "book/BookError.h"
#include "book/BookStore.h"
#include "book/HostCommands.h"
#include "planbook/TestBook.h"
#include "planbook/TestFolder.h"

namespace planbook {
namespace {

using planview::MemoryTable;

/// A book as planbook made it before there were macros.
std::filesystem::path MakeVersion1(const TestFolder& folder) {
    std::string statements = ReadFile(VERSION_1_BOOK);
    statements.erase(statements.find_last_of(';'));
    ChangeBook(folder.Path("old"), statements);
    return folder.Path("old");
}

std::int32_t VersionIn(const std::filesystem::path& file) {
    constexpr std::size_t Offset = 60;
    return static_cast<unsigned char>(ReadFile(file)[Offset + 3]);
}

TEST(BookUpgrade, AVersion1BookGetsWhatCameSinceAndKeepsAllElse) {
    const TestFolder folder;
    const std::filesystem::path old = MakeVersion1(folder);
    EXPECT_EQ(VersionIn(old), 1);
    const Book book = LoadBook(old);
    EXPECT_EQ(VersionIn(old), 4);
    const MemoryTable& tree = book[BookTable::MacroTree];
    EXPECT_EQ(tree.Value(2, "NODETEXT").AsText(), "Recorded");
    EXPECT_TRUE(tree.Value(2, "NODETYPE").IsEmpty());
    EXPECT_EQ(book[BookTable::MacroRec].RowCount(), 0);

    // But for the icons of the tree it is what a new import of the same numbers makes.
    const Book made = LoadBook(MakeSmallBook(folder));
    for (const BookTable table : AllBookTables()) {
        if (table != BookTable::MacroTree) {
            EXPECT_EQ(DumpTable(book, table), DumpTable(made, table));
        }
    }
    const std::string once = ReadFile(old);
    EXPECT_EQ(DumpFile(old), DumpBook(book));
    EXPECT_EQ(ReadFile(old), once) << "a book of this version is not touched";
}

TEST(BookUpgrade, EntriesAreNotAddedTwiceNorToAnEmptiedMenu) {
    const TestFolder folder;
    const std::filesystem::path old = MakeVersion1(folder);
    ChangeBook(old, "DELETE FROM ROWMENU;INSERT INTO CELLMENU VALUES (3, 33, 'Mine', '')");
    const Book book = LoadBook(old);
    EXPECT_EQ(book[BookTable::RowMenu].RowCount(), 0);
    ASSERT_EQ(book[BookTable::CellMenu].RowCount(), 3);
    EXPECT_EQ(book[BookTable::CellMenu].Value(3, "TEXT").AsText(), "Mine");
}

TEST(BookUpgrade, ABookThatCannotBeWrittenIsShownAsItIs) {
    const TestFolder folder;
    const std::filesystem::path old = MakeVersion1(folder);
    const std::string before = ReadFile(old);
    const Obstacle obstacle(Obstacle::Kind::NoPermission, old);
    BookStore store = BookStore::Open(old);
    EXPECT_TRUE(store.IsReadOnly());
    const Book book = store.Load();
    EXPECT_EQ(book[BookTable::MacroTree].RowCount(), 2);
    EXPECT_TRUE(book[BookTable::MacroTree].Value(1, "NODETYPE").IsEmpty());
    EXPECT_EQ(book[BookTable::Formulas].RowCount(), 0);
    EXPECT_EQ(ReadFile(old), before);
}

TEST(BookUpgrade, ADamagedBookIsLeftAlone) {
    const TestFolder folder;
    const std::filesystem::path old = MakeVersion1(folder);
    ChangeBook(old, "ALTER TABLE MACRO_TREE DROP COLUMN EXPANDED");
    const std::string before = ReadFile(old);
    const std::string message = MessageOf<BookError>([&] { static_cast<void>(LoadBook(old)); });
    EXPECT_TRUE(Contains(message, "the table MACRO_TREE lacks the field EXPANDED")) << message;
    EXPECT_EQ(ReadFile(old), before);
}

TEST(BookUpgrade, AnInterruptedOneLeavesTheOldBook) {
    const TestFolder folder;
    const std::filesystem::path old = MakeVersion1(folder);
    // A field that is there already makes the upgrade fail after it has added others.
    ChangeBook(old, "ALTER TABLE MACROREC ADD COLUMN LINE_NAME TEXT");
    const std::string before = ReadFile(old);
    EXPECT_NE(MessageOf<BookError>([&] { static_cast<void>(LoadBook(old)); }), "");
    EXPECT_EQ(ReadFile(old), before);
    EXPECT_EQ(VersionIn(old), 1);
}

}  // namespace
}  // namespace planbook
