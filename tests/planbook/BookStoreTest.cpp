// SPDX-License-Identifier: MIT
#include <array>
#include <csignal>
#include <functional>
#include <limits>
#include <ostream>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include "book/BookConnection.h"
#include "book/BookError.h"
#include "book/BookStore.h"
#include "planbook/TestFolder.h"

namespace planbook {
namespace {

using planview::MemoryTable;
using planview::Variant;

/// A book with a row in every table that has fields; every field holds something that tells where it is.
Book FullBook() {
    Book book;
    for (const TableDescription& description : BookSchema()) {
        MemoryTable& table = book[description.table];
        std::int32_t number = 0;
        if (!description.fields.empty()) {
            table.AddRow();
        }
        for (const FieldDescription& field : description.fields) {
            ++number;
            const std::string text = std::string(description.name) + "." + std::string(field.name);
            const Variant value = field.type == FieldType::Integer ? Variant(number)
                                  : field.type == FieldType::Real  ? Variant(number + 0.5)
                                                                   : Variant(text);
            table.SetValue(1, field.name, value);
        }
    }
    return book;
}

void MakeBook(const std::filesystem::path& file, const Book& book) {
    BookStore::Create(file).Save(book, AllBookTables());
}

/// Kind and value of every field, row by row.
std::string Dump(const Book& book) {
    std::string text;
    for (const TableDescription& description : BookSchema()) {
        const MemoryTable& table = book[description.table];
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            text += std::string(description.name) + " " + std::to_string(row) + ":";
            for (const FieldDescription& field : description.fields) {
                const Variant& value = table.Value(row, field.name);
                text += " " + std::to_string(static_cast<int>(value.GetKind())) + "=" + value.AsText();
            }
            text += "\n";
        }
    }
    return text;
}

TEST(BookStore, GivesBackEveryFieldOfEveryTable) {
    const TestFolder folder;
    MakeBook(folder.Path("book"), FullBook());
    EXPECT_EQ(Dump(LoadBook(folder.Path("book"))), Dump(FullBook()));
    EXPECT_EQ(folder.Contents().size(), 1U) << "something was left beside the book";
}

TEST(BookStore, KeepsValuesExactlyAsTheyWereEntered) {
    const std::vector<Variant> values = {
        Variant(),
        "",
        "5840.4",
        "12,50",
        "007",
        "1e5",
        " x ",
        "ä€😀",
        "it's \"quoted\"; DROP TABLE TAB",
        5840.4,
        -0.1,
        1e300,
        3.0,
        0.1 + 0.2,
        std::int32_t{7},
        std::numeric_limits<std::int32_t>::min(),
    };
    Book book;
    for (const Variant& value : values) {
        book[BookTable::Tab].AddRow({1, 1, value});
    }
    const TestFolder folder;
    MakeBook(folder.Path("book"), book);
    const Book loaded = LoadBook(folder.Path("book"));
    ASSERT_EQ(loaded[BookTable::Tab].RowCount(), static_cast<std::int32_t>(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Variant& value = loaded[BookTable::Tab].Value(static_cast<std::int32_t>(i) + 1, "V");
        EXPECT_EQ(value, values[i]) << values[i].AsText() << " came back as " << value.AsText();
    }
}

TEST(BookStore, SaveWritesOnlyTheTablesNamedAndDropsRowsThatWent) {
    const TestFolder folder;
    Book book = FullBook();
    book[BookTable::Tab].AddRow({2, 2, 2.0});
    MakeBook(folder.Path("book"), book);
    ChangeBook(folder.Path("book"), "ALTER TABLE TAB ADD COLUMN NOTE; UPDATE TAB SET NOTE = 'mine'");

    book[BookTable::Tab].RemoveRow(2);
    book[BookTable::Tab].SetValue(1, "V", "new");
    book[BookTable::Texts].SetValue(1, "TEXT", "not to be saved");
    BookStore::Open(folder.Path("book")).Save(book, std::array{BookTable::Tab});

    const Book loaded = LoadBook(folder.Path("book"));
    EXPECT_EQ(loaded[BookTable::Tab].RowCount(), 1);
    EXPECT_EQ(loaded[BookTable::Tab].Value(1, "V"), Variant("new"));
    EXPECT_EQ(loaded[BookTable::Texts].Value(1, "TEXT"), Variant("TEXTS.TEXT"));
    EXPECT_TRUE(Contains(ReadFile(folder.Path("book")), "mine")) << "a column of somebody else's was lost";
}

TEST(BookStore, AFailedSaveChangesNothing) {
    const TestFolder folder;
    Book book = FullBook();
    MakeBook(folder.Path("book"), book);
    book[BookTable::GridAttr].SetValue(1, "CHART", "changed");  // written before the row that fails
    book[BookTable::Tab].SetValue(1, "V", Variant(book.Share(BookTable::Texts)));
    const std::string message =
        MessageOf<BookError>([&] { BookStore::Open(folder.Path("book")).Save(book, AllBookTables()); });
    EXPECT_TRUE(Contains(message, "V in row 1 of the table TAB holds an object")) << message;
    EXPECT_EQ(Dump(LoadBook(folder.Path("book"))), Dump(FullBook()));
}

/// Lets no file grow while it lives, as a full disk does.
class FullDisk {
public:
    FullDisk() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = 150 * 1024;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST(BookStore, AFullDiskChangesNothing) {
    const TestFolder folder;
    MakeBook(folder.Path("book"), FullBook());
    Book large = FullBook();
    for (int i = 0; i < 2000; ++i) {
        large[BookTable::Tab].AddRow({1, 1, std::string(200, 'x')});
    }
    std::string message;
    {
        const FullDisk full;
        message = MessageOf<BookError>([&] { BookStore::Open(folder.Path("book")).Save(large, AllBookTables()); });
    }
    EXPECT_TRUE(Contains(message, "Cannot write the book")) << message;
    EXPECT_EQ(Dump(LoadBook(folder.Path("book"))), Dump(FullBook()));
}

struct Refusal {
    const char* name;
    std::function<void(const TestFolder&)> prepare;  ///< makes "book"
    const char* message;
};

void PrintTo(const Refusal& refusal, std::ostream* stream) {
    *stream << refusal.name;
}

void MakeFullBook(const TestFolder& folder) {
    MakeBook(folder.Path("book"), FullBook());
}

void OverwriteBytes(const TestFolder& folder, std::size_t offset, std::string_view bytes) {
    std::string contents = ReadFile(folder.Path("book"));
    folder.Write("book", contents.replace(offset, bytes.size(), bytes));
}

class BookRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(BookRefusal, SaysWhyAndChangesNothing) {
    const TestFolder folder;
    GetParam().prepare(folder);
    const auto before = folder.Contents();
    const std::string message = MessageOf<BookError>([&] { static_cast<void>(LoadBook(folder.Path("book"))); });
    EXPECT_TRUE(Contains(message, GetParam().message)) << message;
    EXPECT_TRUE(Contains(message, folder.Path("book").string())) << message;
    EXPECT_EQ(folder.Contents(), before);
}

const Refusal Refusals[] = {
    {"NoFile", [](const TestFolder&) {}, "there is no such file. Check the name"},
    {"Folder", [](const TestFolder& f) { std::filesystem::create_directory(f.Path("book")); },
     "it is a folder. Name a book in it."},
    {"Pipe", [](const TestFolder& f) { mkfifo(f.Path("book").c_str(), S_IRUSR | S_IWUSR); }, "it is no ordinary file"},
    {"Empty", [](const TestFolder& f) { f.Write("book", ""); }, "it is no planning book"},
    {"Text", [](const TestFolder& f) { f.Write("book", std::string(500, 'x')); }, "it is no planning book"},
    {"OtherDatabase",
     [](const TestFolder& f) { ChangeBook(f.Path("book"), "CREATE TABLE TAB (ROW_NO); PRAGMA user_version = 1"); },
     "it is a database of another program"},
    {"NewerVersion",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"), "PRAGMA user_version = 5");
     },
     "it has the book version 5, this planbook reads versions up to 4. Open it with a newer planbook."},
    {"NoVersion",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"), "PRAGMA user_version = 0");
     },
     "impossible book version 0"},
    {"CutOff",
     [](const TestFolder& f) {
         MakeFullBook(f);
         std::filesystem::resize_file(f.Path("book"), 5000);
     },
     "take it from a backup"},
    {"HeaderOnly",
     [](const TestFolder& f) {
         MakeFullBook(f);
         std::filesystem::resize_file(f.Path("book"), 100);
     },
     "take it from a backup"},
    {"OverwrittenPages",
     [](const TestFolder& f) {
         MakeFullBook(f);
         OverwriteBytes(f, 4096, std::string(4096 * 4, 'z'));
     },
     "ake it from a backup"},
    {"MissingTable",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"), "DROP TABLE MACROREC");
     },
     "the table MACROREC is missing"},
    {"MissingField",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"), "ALTER TABLE GRID_ATTR DROP COLUMN TITELTEXT");
     },
     "the table GRID_ATTR lacks the field TITELTEXT"},
    {"Bytes",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"), "UPDATE TAB SET V = x'0102'");
     },
     "V in row 1 of the table TAB holds bytes"},
    {"ViewForATable",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"),
                    "DROP TABLE TEXTS; CREATE VIEW texts AS WITH RECURSIVE n(ROW_NO) AS (SELECT 1 UNION ALL SELECT "
                    "ROW_NO + 1 FROM n) SELECT * FROM n");
     },
     "a view stands in the place of the table TEXTS"},
    {"VirtualTable",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"), "DROP TABLE TEXTS; CREATE VIRTUAL TABLE TEXTS USING fts5(ROW_NO, ENTRY)");
     },
     "a virtual table stands in the place of the table TEXTS"},
    {"TooManyRows",
     [](const TestFolder& f) {
         MakeFullBook(f);
         ChangeBook(f.Path("book"),
                    "INSERT INTO TAB (Z) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                    "32767) SELECT i FROM n");
     },
     "the table TAB has more than 32767 rows. Divide the book."},
};

INSTANTIATE_TEST_SUITE_P(Files, BookRefusal, testing::ValuesIn(Refusals),
                         [](const auto& testCase) { return testCase.param.name; });

TEST(BookConnection, WhatTakesTooManyStepsEnds) {
    const TestFolder folder;
    MakeFullBook(folder);
    const BookConnection connection(folder.Path("book"), BookConnection::Access::ReadOnly);
    const BookConnection::StepLimit limit(connection);
    const std::string message = MessageOf<BookError>([&] {
        QSqlQuery query = connection.Run(BookConnection::Work::Read,
                                         "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT "
                                         "MAX(i) FROM n");
        if (!query.next()) {
            connection.Fail(BookConnection::Work::Read, query.lastError());
        }
    });
    EXPECT_TRUE(Contains(message, "more steps than a book of its size can need")) << message;
}

}  // namespace
}  // namespace planbook
