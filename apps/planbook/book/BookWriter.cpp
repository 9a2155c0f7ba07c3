// SPDX-License-Identifier: MIT
#include "book/BookWriter.h"

#include <QStringList>
#include <optional>
#include <string>

#include "book/BookCheck.h"
#include "book/CellValue.h"
#include "book/SqlValue.h"

namespace planbook {

using planview::Variant;
using Work = BookConnection::Work;

namespace {

std::string Name(const TableDescription& table) {
    return std::string(table.name);
}

/// Inserts a row or, when there is one with its number, overwrites the fields of the schema in it.
QString RowStatement(const TableDescription& table) {
    QStringList columns{Quoted(RowNumberField)};
    QStringList marks{"?"};
    QStringList updates;
    for (const FieldDescription& field : table.fields) {
        columns << Quoted(field.name);
        marks << "?";
        updates << Quoted(field.name) + " = excluded." + Quoted(field.name);
    }
    const QString conflict = updates.isEmpty() ? QString("NOTHING") : "UPDATE SET " + updates.join(", ");
    return "INSERT OR ABORT INTO " + Quoted(table.name) + " (" + columns.join(", ") + ") VALUES (" + marks.join(", ") +
           ") ON CONFLICT (" + Quoted(RowNumberField) + ") DO " + conflict;
}

[[noreturn]] void RefuseRows(const BookConnection& connection, const TableDescription& table, std::size_t rows) {
    connection.Refuse(Work::Write, "the table " + Name(table) + " has " + std::to_string(rows) +
                                       " rows, a book holds at most " + std::to_string(MaxTableRows) +
                                       " in a table. Divide the book.");
}

QVariant SqlField(const BookConnection& connection, const TableDescription& table, std::size_t row, std::size_t field,
                  const Variant& value) {
    const std::optional<QVariant> sql = ToSql(value);
    if (!sql) {
        connection.Refuse(Work::Write, "the field " + std::string(table.fields[field].name) + " in row " +
                                           std::to_string(row + 1) + " of the table " + Name(table) +
                                           " holds an object, which no book can keep.");
    }
    return *sql;
}

void Execute(const BookConnection& connection, QSqlQuery& query) {
    if (!query.exec()) {
        connection.Fail(Work::Write, query.lastError());
    }
}

/// For a statement that changes one row. They all say OR ABORT: a file may have rules by which it would leave a row as
/// it is, or drop others, without a word.
void ExecuteOne(const BookConnection& connection, QSqlQuery& query, const TableDescription& table) {
    Execute(connection, query);
    if (query.numRowsAffected() != 1) {
        connection.Refuse(Work::Write, "a change in the table " + Name(table) + " reached " +
                                           std::to_string(query.numRowsAffected()) +
                                           " rows instead of one. The rows are not numbered as planbook does it; take "
                                           "the book from a backup.");
    }
}

/// TAB or TAB_OLD in the file, as a place of cells.
class CellFile {
public:
    CellFile(const BookConnection& connection, BookTable table) : connection_(connection), table_(Describe(table)) {
        const QString name = Quoted(table_.name);
        // Without it every look-up walks the table. Books made before it was there get it with their first change.
        connection_.Run(Work::Write,
                        "CREATE INDEX IF NOT EXISTS " + Quoted(Name(table_) + "_CELL") + " ON " + name + " (Z, C)");
        find_ = connection_.Prepare(Work::Write,
                                    "SELECT ROW_NO, V FROM " + name + " WHERE Z = ? AND C = ? ORDER BY ROW_NO LIMIT 1");
        update_ = connection_.Prepare(Work::Write, "UPDATE OR ABORT " + name + " SET V = ? WHERE ROW_NO = ?");
        insert_ =
            connection_.Prepare(Work::Write, "INSERT OR ABORT INTO " + name + " (ROW_NO, Z, C, V) VALUES (?, ?, ?, ?)");
    }

    struct Found {
        std::optional<qlonglong> row;  ///< a row without a number has 0, which no change reaches
        Variant value;
    };

    [[nodiscard]] Found Find(CellPosition cell) {
        find_.addBindValue(cell.row);
        find_.addBindValue(cell.column);
        Execute(connection_, find_);
        Found found;
        if (find_.next()) {
            found = {find_.value(0).toLongLong(), FromSql(find_.value(1)).value_or(Variant())};
        }
        find_.finish();
        return found;
    }

    void Update(qlonglong row, const Variant& value) {
        update_.addBindValue(Sql(static_cast<std::size_t>(row) - 1, value));
        update_.addBindValue(row);
        ExecuteOne(connection_, update_, table_);
    }

    void Append(CellPosition cell, const Variant& value) {
        if (lastRow_ == 0) {
            QSqlQuery count =
                connection_.Run(Work::Write, "SELECT COALESCE(MAX(ROW_NO), 0), COUNT(*) FROM " + Quoted(table_.name));
            count.next();
            lastRow_ = count.value(0).toLongLong();
            rowCount_ = count.value(1).toLongLong();
        }
        ++lastRow_;
        if (++rowCount_ > MaxTableRows) {
            RefuseRows(connection_, table_, static_cast<std::size_t>(rowCount_));
        }
        insert_.addBindValue(lastRow_);
        insert_.addBindValue(cell.row);
        insert_.addBindValue(cell.column);
        insert_.addBindValue(Sql(static_cast<std::size_t>(lastRow_) - 1, value));
        ExecuteOne(connection_, insert_, table_);
    }

private:
    [[nodiscard]] QVariant Sql(std::size_t row, const Variant& value) const {
        constexpr std::size_t ValueField = 2;
        return SqlField(connection_, table_, row, ValueField, value);
    }

    const BookConnection& connection_;
    const TableDescription& table_;
    QSqlQuery find_;
    QSqlQuery update_;
    QSqlQuery insert_;
    qlonglong lastRow_ = 0;  // asked for with the first row that is appended
    qlonglong rowCount_ = 0;
};

std::vector<CellConflict> WriteCells(const BookConnection& connection, const std::vector<CellEdit>& edits) {
    std::vector<CellConflict> conflicts;
    CellFile tab(connection, BookTable::Tab);
    for (const CellEdit& edit : edits) {
        CellFile::Found found = tab.Find(edit.cell);
        const bool isPlanned = edit.cell.row != 0 && edit.cell.column != 0;
        if (isPlanned && !IsCellValue(found.value)) {
            found.value = Variant();  // as it was shown
        }
        if (!edit.computed && !SameValue(found.value, edit.before) && !SameValue(found.value, edit.after)) {
            conflicts.push_back({edit.cell, edit.after, found.value});
        } else if (!found.row) {
            tab.Append(edit.cell, edit.after);
        } else {
            tab.Update(*found.row, edit.after);
        }
    }
    return conflicts;
}

void WriteOldValues(const BookConnection& connection, const std::vector<OldValue>& values) {
    CellFile tabOld(connection, BookTable::TabOld);
    for (const OldValue& old : values) {
        if (!tabOld.Find(old.cell).row) {
            tabOld.Append(old.cell, old.value);
        }
    }
}

/// The numbers of the table's rows in their order.
std::vector<qlonglong> RowNumbers(const BookConnection& connection, const TableDescription& table) {
    std::vector<qlonglong> numbers;
    QSqlQuery rows = connection.Run(Work::Write, "SELECT ROW_NO FROM " + Quoted(table.name) + " ORDER BY ROW_NO");
    while (rows.next()) {
        numbers.push_back(rows.value(0).toLongLong());
    }
    return numbers;
}

void WriteTable(const BookConnection& connection, const TableEdits& edits) {
    const TableDescription& table = Describe(edits.table);
    const std::vector<qlonglong> numbers = RowNumbers(connection, table);
    if (numbers.size() != edits.rowCount) {
        connection.Refuse(Work::Write, "another window has changed the rows of the table " + Name(table) +
                                           ". Reload the book and try again.");
    }
    if (edits.allRows) {
        WriteRows(connection, table, *edits.allRows);
    }
    for (const FieldEdit& edit : edits.fields) {
        QSqlQuery update =
            connection.Prepare(Work::Write, "UPDATE OR ABORT " + Quoted(table.name) + " SET " +
                                                Quoted(table.fields[edit.field].name) + " = ? WHERE ROW_NO = ?");
        update.addBindValue(SqlField(connection, table, edit.row, edit.field, edit.after));
        update.addBindValue(numbers[edit.row]);
        ExecuteOne(connection, update, table);
    }
}

}  // namespace

std::vector<CellConflict> WriteChanges(const BookConnection& connection, const BookChanges& changes) {
    if (!changes.cells.empty()) {
        std::vector<CellConflict> conflicts = WriteCells(connection, changes.cells);
        if (!conflicts.empty()) {
            return conflicts;
        }
    }
    if (!changes.oldValues.empty()) {
        WriteOldValues(connection, changes.oldValues);
    }
    for (const TableEdits& edits : changes.tables) {
        WriteTable(connection, edits);
    }
    return {};
}

void WriteRows(const BookConnection& connection, const TableDescription& table, const BookRows& rows) {
    if (rows.size() > static_cast<std::size_t>(MaxTableRows)) {
        RefuseRows(connection, table, rows.size());
    }
    connection.Run(Work::Write, "DELETE FROM " + Quoted(table.name) + " WHERE ROW_NO NOT BETWEEN 1 AND " +
                                    QString::number(rows.size()));
    QSqlQuery write = connection.Prepare(Work::Write, RowStatement(table));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        write.addBindValue(static_cast<qlonglong>(row) + 1);
        for (std::size_t field = 0; field < table.fields.size(); ++field) {
            write.addBindValue(SqlField(connection, table, row, field, rows[row][field]));
        }
        if (table.fields.empty()) {
            Execute(connection, write);  // the row may be there
        } else {
            ExecuteOne(connection, write, table);
        }
    }
}

void ForgetOldValues(const BookConnection& connection) {
    connection.Run(Work::Write, "DELETE FROM TAB_OLD");
}

void PutOldValuesBack(const BookConnection& connection) {
    // Of several rows for a cell the first one counts, in both tables.
    connection.Run(Work::Write,
                   "UPDATE OR ABORT TAB SET V = (SELECT o.V FROM TAB_OLD o WHERE o.Z = TAB.Z AND o.C = TAB.C "
                   "ORDER BY o.ROW_NO LIMIT 1) WHERE ROW_NO IN (SELECT (SELECT MIN(t.ROW_NO) FROM TAB t "
                   "WHERE t.Z = o.Z AND t.C = o.C) FROM TAB_OLD o)");
    ForgetOldValues(connection);
}

}  // namespace planbook
