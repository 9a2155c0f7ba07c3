// SPDX-License-Identifier: MIT
#include "book/BookConnection.h"

#include <QSqlRecord>
#include <atomic>

#include "book/BookError.h"

namespace planbook {

namespace {

constexpr int BusyTimeoutMilliseconds = 2000;

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
    if (access == Access::ReadWrite) {
        // What was committed is on the disk, and the journal's end too, whatever happens to the machine afterwards.
        // The rollback journal (and not a write-ahead log) keeps a book one file that can be copied.
        Run(Work::Open, "PRAGMA synchronous = EXTRA");
    }
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

void BookConnection::CheckTable(const TableDescription& table, std::int32_t version) const {
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
