// SPDX-License-Identifier: MIT
#include "book/BookUpgrade.h"

#include <array>

#include "book/HostCommands.h"

namespace planbook {

namespace {

using Work = BookConnection::Work;

/// A menu entry that books of earlier versions lack.
struct NewEntry {
    BookTable menu;
    HostCommand command;
    const char* text;
    std::int32_t since;
};

constexpr std::array<NewEntry, 2> NewEntries = {{{BookTable::RowMenu, HostCommand::RaiseLine, RaiseText, 2},
                                                 {BookTable::CellMenu, HostCommand::RaiseCells, RaiseText, 2}}};

void AddTablesAndFields(const BookConnection& connection, std::int32_t version) {
    for (const TableDescription& table : BookSchema()) {
        if (table.since > version) {
            connection.Run(Work::Write, SqlTable(table));
            continue;
        }
        for (const FieldDescription& field : table.fields) {
            if (field.since > version) {
                connection.Run(Work::Write, "ALTER TABLE " + Quoted(table.name) + " ADD COLUMN " + SqlColumn(field));
            }
        }
    }
}

/// Behind the entries that are there; a menu without any was emptied on purpose.
void AddEntries(const BookConnection& connection, std::int32_t version) {
    for (const NewEntry& entry : NewEntries) {
        if (entry.since <= version) {
            continue;
        }
        const QString menu = Quoted(Describe(entry.menu).name);
        const QString number = QString::number(static_cast<std::int32_t>(entry.command));
        QSqlQuery add = connection.Prepare(Work::Write, "INSERT OR ABORT INTO " + menu +
                                                            " (ROW_NO, PFID, TEXT, ENABLED) SELECT MAX(ROW_NO) + 1, " +
                                                            number + ", ?, 'X' FROM " + menu +
                                                            " HAVING COUNT(*) > 0 AND SUM(PFID = " + number + ") = 0");
        add.addBindValue(QString::fromUtf8(entry.text));
        if (!add.exec()) {
            connection.Fail(Work::Write, add.lastError());
        }
    }
}

}  // namespace

std::int32_t VersionOf(const BookConnection& connection) {
    QSqlQuery query = connection.Run(Work::Open, "PRAGMA user_version");
    return query.next() ? query.value(0).toInt() : 0;
}

void BringUp(const BookConnection& connection) {
    if (VersionOf(connection) >= BookVersion) {
        return;
    }
    BookTransaction transaction(connection, Work::Write);
    const std::int32_t version = VersionOf(connection);  // another planbook may have been faster
    if (version >= BookVersion) {
        return;
    }
    AddTablesAndFields(connection, version);
    AddEntries(connection, version);
    connection.Run(Work::Write, QString("PRAGMA user_version = %1").arg(BookVersion));
    transaction.Commit();
}

}  // namespace planbook
