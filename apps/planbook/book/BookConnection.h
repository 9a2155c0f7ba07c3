// SPDX-License-Identifier: MIT
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <filesystem>
#include <optional>
#include <string>

#include "book/BookSchema.h"

struct sqlite3;

namespace planbook {

/// One SQLite connection to one file, closed at its end. Whatever fails throws BookError.
///
/// Books come from strangers: nothing that a file brings along runs. Triggers and views are off, functions in its
/// schema are those that are harmless, and no field is longer than a book can need.
class BookConnection {
public:
    enum class Access { ReadOnly, ReadWrite };
    /// What is being done, for messages.
    enum class Work { Open, Read, Write };

    /// Makes the file when there is none and it may be written.
    BookConnection(const std::filesystem::path& file, Access access);
    ~BookConnection();
    BookConnection(const BookConnection&) = delete;
    BookConnection& operator=(const BookConnection&) = delete;

    QSqlQuery Run(Work work, const QString& statement) const;
    [[nodiscard]] QSqlQuery Prepare(Work work, const QString& statement) const;

    /// Throws unless the tables of the schema are ordinary tables or missing: a view in the place of one calculates for
    /// as long as its maker likes.
    void CheckKinds() const;
    /// Throws unless the table is there with all the fields that a book of this version has; that has no later tables.
    void CheckTable(const TableDescription& table, std::int32_t version) const;

    [[noreturn]] void Fail(Work work, const QSqlError& error) const;
    [[noreturn]] void Refuse(Work work, const std::string& why) const;

    /// A number that changes whenever another connection has changed the file. No value while somebody is writing:
    /// this does not wait.
    [[nodiscard]] std::optional<qlonglong> ChangeCounter() const;

    [[nodiscard]] QSqlDatabase Database() const;

    /// Ends what runs on the connection, with an error, once it has taken far more steps than a file of this size can
    /// need.
    class StepLimit {
    public:
        explicit StepLimit(const BookConnection& connection);
        ~StepLimit();
        StepLimit(const StepLimit&) = delete;
        StepLimit& operator=(const StepLimit&) = delete;

    private:
        sqlite3* handle_;
        long long left_;
    };

private:
    void Harden();
    void SetBusyTimeout(int milliseconds) const;

    std::filesystem::path file_;
    QString name_;
    sqlite3* handle_ = nullptr;  // of Qt's connection
};

/// A transaction that rolls back unless it was committed. One that writes has the book for itself from its beginning
/// on, so that what it reads is still true when it writes.
class BookTransaction {
public:
    BookTransaction(const BookConnection& connection, BookConnection::Work work);
    ~BookTransaction();
    BookTransaction(const BookTransaction&) = delete;
    BookTransaction& operator=(const BookTransaction&) = delete;

    void Commit();

private:
    const BookConnection& connection_;
    BookConnection::Work work_;
    bool committed_ = false;
};

/// A field as CREATE TABLE and ALTER TABLE name it.
[[nodiscard]] QString SqlColumn(const FieldDescription& field);

/// The statement that makes the table.
[[nodiscard]] QString SqlTable(const TableDescription& table);

/// A name in an SQL statement.
[[nodiscard]] QString Quoted(std::string_view name);

}  // namespace planbook
