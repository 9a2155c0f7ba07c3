// SPDX-License-Identifier: MIT
#include "planbook/TestBook.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "book/BookStore.h"
#include "import/Import.h"

using planbook::Book;
using planbook::BookTable;
using planview::Variant;

namespace {

std::string Shown(const Variant& value) {
    switch (value.GetKind()) {
        case Variant::Kind::Empty:
            return "-";
        case Variant::Kind::Text:
            return "\"" + value.AsText() + "\"";
        default:
            return value.AsText();
    }
}

constexpr uid_t Nobody = 65534;

}  // namespace

std::string DumpTable(const Book& book, BookTable which) {
    const planbook::TableDescription& description = planbook::Describe(which);
    const planview::MemoryTable& table = book[which];
    std::string text;
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        text += std::string(description.name) + " " + std::to_string(row) + ":";
        for (const planbook::FieldDescription& field : description.fields) {
            text += " " + Shown(table.Value(row, field.name));
        }
        text += "\n";
    }
    return text;
}

std::string DumpBook(const Book& book) {
    std::string text;
    for (const BookTable table : planbook::AllBookTables()) {
        text += DumpTable(book, table);
    }
    return text;
}

std::string DumpFile(const std::filesystem::path& file) {
    return DumpBook(planbook::LoadBook(file));
}

std::filesystem::path MakeSmallBook(const TestFolder& folder) {
    planbook::ImportRequest request;
    request.source = folder.Write("small.csv",
                                  "month,alpha,beta,gamma\n2008-01,1,10.5,100\n2008-02,2,20.5,200\n"
                                  "2008-03,3,30.5,300\n2008-04,4,40.5,\n");
    request.book = folder.Path("small.planbook");
    planbook::ImportBook(request);
    return request.book;
}

struct Obstacle::State {
    Kind kind;
    std::filesystem::path book;
    rlimit limit{};
    void (*signalHandler)(int) = nullptr;
    std::filesystem::perms permissions{};
};

Obstacle::Obstacle(Kind kind, const std::filesystem::path& book) : state_(std::make_unique<State>()) {
    state_->kind = kind;
    state_->book = book;
    switch (kind) {
        case Kind::FullDisk: {  // not even the journal finds room
            state_->signalHandler = std::signal(SIGXFSZ, SIG_IGN);
            getrlimit(RLIMIT_FSIZE, &state_->limit);
            rlimit small = state_->limit;
            small.rlim_cur = 100;
            setrlimit(RLIMIT_FSIZE, &small);
            break;
        }
        case Kind::NoPermission: {
            using std::filesystem::perms;
            state_->permissions = std::filesystem::status(book.parent_path()).permissions();
            std::filesystem::permissions(book, perms::owner_read | perms::group_read | perms::others_read);
            std::filesystem::permissions(book.parent_path(), perms::owner_read | perms::owner_exec | perms::group_read |
                                                                 perms::group_exec | perms::others_read |
                                                                 perms::others_exec);
            if (geteuid() == 0 && seteuid(Nobody) != 0) {  // to root nothing is forbidden
                ADD_FAILURE() << "cannot become an ordinary user";
            }
            break;
        }
        case Kind::Locked: {
            QSqlDatabase other = QSqlDatabase::addDatabase("QSQLITE", "Obstacle");
            other.setDatabaseName(QString::fromStdString(book.string()));
            EXPECT_TRUE(other.open());
            EXPECT_TRUE(QSqlQuery(other).exec("BEGIN IMMEDIATE"));
            break;
        }
    }
}

Obstacle::~Obstacle() {
    switch (state_->kind) {
        case Kind::FullDisk:
            setrlimit(RLIMIT_FSIZE, &state_->limit);
            std::signal(SIGXFSZ, state_->signalHandler);
            break;
        case Kind::NoPermission:
            if (getuid() == 0 && seteuid(0) != 0) {
                ADD_FAILURE() << "cannot become root again";
            }
            std::filesystem::permissions(state_->book, std::filesystem::perms::owner_write,
                                         std::filesystem::perm_options::add);
            std::filesystem::permissions(state_->book.parent_path(), state_->permissions);
            break;
        case Kind::Locked:
            QSqlDatabase::database("Obstacle").close();
            QSqlDatabase::removeDatabase("Obstacle");
            break;
    }
}
