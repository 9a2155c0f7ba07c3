// SPDX-License-Identifier: MIT
#include "book/BookConnection.h"

#include <QSqlDriver>
#include <QSqlRecord>
#include <QVariant>
#include <atomic>
#include <cstdint>
#include <string_view>
#include <system_error>
#include <utility>

#include <sqlite3.h>

#include "book/BookError.h"

namespace planbook {

namespace {

constexpr int BusyTimeoutMilliseconds = 2000;

/// The longest field, in bytes; a view takes a small part of it.
constexpr int MaxFieldLength = 16 * 1024 * 1024;

// The largest book takes some millions of steps to be checked and read; another program's tables in the file take more
// the larger it is.
constexpr long long FreeSteps = 50'000'000;
constexpr long long StepsPerByte = 10;
constexpr int StepsAtOnce = 10'000;

/// For SQLite: takes off what was done, and answers whether to end.
int CountSteps(void* left) {
    long long& steps = *static_cast<long long*>(left);
    steps -= StepsAtOnce;
    return steps < 0 ? 1 : 0;
}

const char* Name(BookConnection::Work work) {
    switch (work) {
        case BookConnection::Work::Open:
            return "open";
        case BookConnection::Work::Read:
            return "read";
        case BookConnection::Work::Write:
            break;
    }
    return "write";
}

QString NextConnectionName() {
    static std::atomic<int> count = 0;
    return "planbook-" + QString::number(++count);
}

QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// SQLite's result codes that the user can do something about.
enum SqliteCode {
    NoPermission = 3,
    Busy = 5,
    Locked = 6,
    ReadOnly = 8,
    Interrupted = 9,
    InputOutput = 10,
    Corrupt = 11,
    Full = 13,
    CannotOpen = 14,
    NoDatabase = 26,
    FileMoved = 8 | 4 << 8  // an extended code of ReadOnly
};

std::string WhatNow(const QSqlError& error) {
    constexpr int PrimaryCodeMask = 0xFF;  // extended codes have more above it
    const int code = error.nativeErrorCode().toInt();
    if (code == FileMoved) {
        return "The file was moved, deleted or replaced by another one. Reload the book.";
    }
    switch (code & PrimaryCodeMask) {
        case Busy:
        case Locked:
            return "Another program is writing to it; try again when that is done.";
        case NoPermission:
        case ReadOnly:
        case CannotOpen:
            return "Check your access to the file and its folder.";
        case Interrupted:
            return "It takes more steps than a book of its size can need, so it was not made by planbook. Do not use "
                   "it.";
        case InputOutput:
            return "Check the medium it is on and the room there.";
        case Corrupt:
        case NoDatabase:
            return "The file is damaged; take it from a backup.";
        case Full:
            return "Make room on the disk and try again.";
        default:
            return "Nothing was changed.";
    }
}

}  // namespace

BookConnection::BookConnection(const std::filesystem::path& file, Access access)
    : file_(std::filesystem::absolute(file)), name_(NextConnectionName()) {
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", name_);
    database.setDatabaseName(QString::fromStdString(file_.string()));
    database.setConnectOptions(QString("QSQLITE_BUSY_TIMEOUT=%1").arg(BusyTimeoutMilliseconds) +
                               (access == Access::ReadOnly ? ";QSQLITE_OPEN_READONLY" : ""));
    if (!database.open()) {
        const QSqlError error = database.lastError();
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(name_);
        Fail(Work::Open, error);
    }
    try {
        Harden();
        if (access == Access::ReadWrite) {
            // What was committed is on the disk, and the journal's end too, whatever happens to the machine afterwards.
            // The rollback journal (and not a write-ahead log) keeps a book one file that can be copied.
            Run(Work::Open, "PRAGMA synchronous = EXTRA");
        }
    } catch (const BookError&) {
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(name_);
        throw;
    }
}

void BookConnection::Harden() {
    const QVariant handle = Database().driver()->handle();
    if (handle.isValid() && std::string_view(handle.typeName()) == "sqlite3*") {
        handle_ = *static_cast<sqlite3* const*>(handle.constData());
    }
    // Qt may bring an SQLite of its own, whose connections this program's one must not touch.
    QSqlQuery source(Database());
    if (!handle_ || !source.exec("SELECT sqlite_source_id()") || !source.next() ||
        source.value(0).toString() != sqlite3_sourceid()) {
        Refuse(Work::Open,
               "planbook and Qt use different versions of SQLite, so that a book cannot be opened safely. Install both "
               "from one source.");
    }
    for (const auto& [option, value] : {std::pair(SQLITE_DBCONFIG_DEFENSIVE, 1),
                                        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                        {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0}}) {
        if (sqlite3_db_config(handle_, option, value, nullptr) != SQLITE_OK) {
            Refuse(Work::Open,
                   "this SQLite cannot be told to run nothing of a stranger's file. Install version 3.31 "
                   "or a later one.");
        }
    }
    sqlite3_limit(handle_, SQLITE_LIMIT_LENGTH, MaxFieldLength);
}

BookConnection::StepLimit::StepLimit(const BookConnection& connection) : handle_(connection.handle_) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(connection.file_, error);
    left_ = FreeSteps + (error ? 0 : static_cast<long long>(size) * StepsPerByte);
    sqlite3_progress_handler(handle_, StepsAtOnce, &CountSteps, &left_);
}

BookConnection::StepLimit::~StepLimit() {
    sqlite3_progress_handler(handle_, 0, nullptr, nullptr);
}

BookConnection::~BookConnection() {
    Database().close();
    QSqlDatabase::removeDatabase(name_);
}

QSqlQuery BookConnection::Run(Work work, const QString& statement) const {
    QSqlQuery query(Database());
    query.setForwardOnly(true);
    if (!query.exec(statement)) {
        Fail(work, query.lastError());
    }
    return query;
}

QSqlQuery BookConnection::Prepare(Work work, const QString& statement) const {
    QSqlQuery query(Database());
    if (!query.prepare(statement)) {
        Fail(work, query.lastError());
    }
    return query;
}

void BookConnection::CheckKinds() const {
    // A virtual table has no page of its own.
    QSqlQuery objects =
        Run(Work::Open,
            "SELECT upper(name), type FROM sqlite_master WHERE type = 'view' OR type = 'table' AND rootpage = 0");
    while (objects.next()) {
        const std::string name = objects.value(0).toString().toStdString();
        for (const TableDescription& table : BookSchema()) {
            if (name == table.name) {
                const bool isView = objects.value(1).toString() == "view";
                Refuse(Work::Open, std::string(isView ? "a view" : "a virtual table") +
                                       " stands in the place of the table " + name +
                                       ", so it was not made by planbook. Do not use it.");
            }
        }
    }
}

void BookConnection::CheckTable(const TableDescription& table, std::int32_t version) const {
    if (table.since > version) {
        return;
    }
    const std::string name(table.name);
    const QSqlRecord columns = Database().record(ToQt(table.name));
    if (columns.isEmpty()) {
        Refuse(Work::Open, "the table " + name + " is missing. The file is damaged; take it from a backup.");
    }
    const auto check = [&](std::string_view field) {
        if (!columns.contains(ToQt(field))) {
            Refuse(Work::Open, "the table " + name + " lacks the field " + std::string(field) +
                                   ". The file is damaged; take it from a backup.");
        }
    };
    check(RowNumberField);
    for (const FieldDescription& field : table.fields) {
        if (field.since <= version) {
            check(field.name);
        }
    }
}

void BookConnection::Fail(Work work, const QSqlError& error) const {
    const QString reason = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    Refuse(work, reason.toStdString() + ". " + WhatNow(error));
}

void BookConnection::Refuse(Work work, const std::string& why) const {
    throw BookError("Cannot " + std::string(Name(work)) + " the book \"" + file_.string() + "\": " + why);
}

std::optional<qlonglong> BookConnection::ChangeCounter() const {
    SetBusyTimeout(0);
    QSqlQuery query(Database());
    const bool answered = query.exec("PRAGMA data_version") && query.next();
    const std::optional<qlonglong> counter = answered ? std::optional(query.value(0).toLongLong()) : std::nullopt;
    query.finish();
    SetBusyTimeout(BusyTimeoutMilliseconds);
    return counter;
}

void BookConnection::SetBusyTimeout(int milliseconds) const {
    QSqlQuery(Database()).exec(QString("PRAGMA busy_timeout = %1").arg(milliseconds));
}

QSqlDatabase BookConnection::Database() const {
    return QSqlDatabase::database(name_, false);
}

BookTransaction::BookTransaction(const BookConnection& connection, BookConnection::Work work)
    : connection_(connection), work_(work) {
    connection_.Run(work_, work_ == BookConnection::Work::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

BookTransaction::~BookTransaction() {
    if (!committed_) {
        QSqlQuery(connection_.Database()).exec("ROLLBACK");
    }
}

void BookTransaction::Commit() {
    connection_.Run(work_, "COMMIT");
    committed_ = true;
}

QString SqlTable(const TableDescription& table) {
    QString columns = Quoted(RowNumberField) + " INTEGER PRIMARY KEY";
    for (const FieldDescription& field : table.fields) {
        columns += ", " + SqlColumn(field);
    }
    return "CREATE TABLE " + Quoted(table.name) + " (" + columns + ")";
}

QString SqlColumn(const FieldDescription& field) {
    const QString column = Quoted(field.name);
    switch (field.type) {
        case FieldType::Text:
            return column + " TEXT";
        case FieldType::Integer:
            return column + " INTEGER";
        case FieldType::Real:
            return column + " REAL";
        case FieldType::Any:
            break;
    }
    return column;
}

QString Quoted(std::string_view name) {
    return u'"' + ToQt(name) + u'"';
}

}  // namespace planbook
