#include "book/BookStore.h"

#include <QFileInfo>
#include <QStringList>
#include <QVariant>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "book/BookConnection.h"
#include "book/BookError.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;
using Access = BookConnection::Access;
using Work = BookConnection::Work;

namespace {

std::string SqlColumn(const FieldDescription& field) {
    std::string column = '"' + std::string(field.name) + '"';
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

QString CreateStatement(const TableDescription& table) {
    std::string columns = '"' + std::string(RowNumberField) + "\" INTEGER PRIMARY KEY";
    for (const FieldDescription& field : table.fields) {
        columns += ", " + SqlColumn(field);
    }
    return "CREATE TABLE " + Quoted(table.name) + " (" + QString::fromStdString(columns) + ")";
}

QString SelectStatement(const TableDescription& table) {
    QStringList columns{Quoted(RowNumberField)};
    for (const FieldDescription& field : table.fields) {
        columns << Quoted(field.name);
    }
    return "SELECT " + columns.join(", ") + " FROM " + Quoted(table.name) + " ORDER BY " + Quoted(RowNumberField);
}

/// Inserts a row or, when there is one with its number, overwrites the fields of the schema in it.
QString WriteStatement(const TableDescription& table) {
    QStringList columns{Quoted(RowNumberField)};
    QStringList marks{"?"};
    QStringList updates;
    for (const FieldDescription& field : table.fields) {
        columns << Quoted(field.name);
        marks << "?";
        updates << Quoted(field.name) + " = excluded." + Quoted(field.name);
    }
    const QString conflict = updates.isEmpty() ? QString("NOTHING") : "UPDATE SET " + updates.join(", ");
    return "INSERT INTO " + Quoted(table.name) + " (" + columns.join(", ") + ") VALUES (" + marks.join(", ") +
           ") ON CONFLICT (" + Quoted(RowNumberField) + ") DO " + conflict;
}

/// No value for an object reference, which no file can keep.
std::optional<QVariant> ToSql(const Variant& value) {
    switch (value.GetKind()) {
        case Variant::Kind::Empty:
            return QVariant();
        case Variant::Kind::Boolean:
        case Variant::Kind::Int16:
        case Variant::Kind::Int32:
            return value.AsInt32();
        case Variant::Kind::Double:
            return value.AsDouble();
        case Variant::Kind::Text:
            return QString::fromStdString(*value.TextIf());
        case Variant::Kind::Nothing:
        case Variant::Kind::Object:
            break;
    }
    return std::nullopt;
}

/// No value for bytes, which no field holds.
std::optional<Variant> FromSql(const QVariant& value) {
    if (value.isNull()) {
        return Variant();
    }
    switch (value.typeId()) {
        case QMetaType::Int:
        case QMetaType::LongLong: {
            const qlonglong number = value.toLongLong();
            const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                              number <= std::numeric_limits<std::int32_t>::max();
            return fits ? Variant(static_cast<std::int32_t>(number)) : Variant(static_cast<double>(number));
        }
        case QMetaType::Double:
            return value.toDouble();
        case QMetaType::QString:
            return value.toString().toStdString();
        default:
            return std::nullopt;
    }
}

std::string Place(const TableDescription& table, std::int32_t row, const FieldDescription& field) {
    return std::string(field.name) + " in row " + std::to_string(row) + " of the table " + std::string(table.name);
}

/// Removes a new file again unless it was completed.
class NewFile {
public:
    explicit NewFile(std::filesystem::path file) : file_(std::move(file)) {}
    ~NewFile() {
        if (!kept_) {
            std::error_code ignored;
            std::filesystem::remove(file_, ignored);
        }
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    void Keep() noexcept { kept_ = true; }

private:
    std::filesystem::path file_;
    bool kept_ = false;
};

}  // namespace

BookStore::BookStore(std::unique_ptr<BookConnection> connection) noexcept : connection_(std::move(connection)) {}
BookStore::BookStore(BookStore&&) noexcept = default;
BookStore& BookStore::operator=(BookStore&&) noexcept = default;
BookStore::~BookStore() = default;

BookStore BookStore::Open(const std::filesystem::path& file) {
    CheckBookHeader(file);
    // A book that may be written is opened for that, so that SQLite can undo what a killed process left half done.
    const bool writable = QFileInfo(QString::fromStdString(file.string())).isWritable();
    auto connection = std::make_unique<BookConnection>(file, writable ? Access::ReadWrite : Access::ReadOnly);

    QSqlQuery check = connection->Run(Work::Open, "PRAGMA quick_check(1)");
    const QString answer = check.next() ? check.value(0).toString() : QString("no answer");
    if (answer != "ok") {
        connection->Refuse(Work::Open, "it is damaged (" + answer.toStdString() + "). Take it from a backup.");
    }
    check.finish();

    for (const TableDescription& table : BookSchema()) {
        connection->CheckTable(table);
    }
    return BookStore(std::move(connection));
}

BookStore BookStore::Create(const std::filesystem::path& file) {
    if (std::filesystem::exists(std::filesystem::symlink_status(file))) {
        throw BookError("Cannot make the book \"" + file.string() + "\": there is such a file. Choose another name.");
    }
    NewFile newFile(file);
    auto connection = std::make_unique<BookConnection>(file, Access::ReadWrite);
    // Nobody else sees the file before it is complete; a journal beside it would only be in the way.
    connection->Run(Work::Write, "PRAGMA journal_mode = MEMORY").finish();
    BookTransaction transaction(*connection, Work::Write);
    connection->Run(Work::Write, QString("PRAGMA application_id = %1").arg(BookApplicationId));
    connection->Run(Work::Write, QString("PRAGMA user_version = %1").arg(BookVersion));
    for (const TableDescription& table : BookSchema()) {
        connection->Run(Work::Write, CreateStatement(table));
    }
    transaction.Commit();
    newFile.Keep();
    return BookStore(std::move(connection));
}

Book BookStore::Load() {
    Book book;
    // One transaction, so that all tables are of the same moment.
    const BookTransaction moment(*connection_, Work::Read);
    for (const TableDescription& description : BookSchema()) {
        MemoryTable& table = book[description.table];
        QSqlQuery rows = connection_->Run(Work::Read, SelectStatement(description));
        while (rows.next()) {
            if (table.RowCount() == MaxTableRows) {
                connection_->Refuse(Work::Read, "the table " + std::string(description.name) + " has more than " +
                                                    std::to_string(MaxTableRows) + " rows. Divide the book.");
            }
            std::vector<Variant> values;
            values.reserve(description.fields.size());
            for (const FieldDescription& field : description.fields) {
                std::optional<Variant> value = FromSql(rows.value(static_cast<int>(values.size()) + 1));
                if (!value) {
                    connection_->Refuse(Work::Read, "the field " + Place(description, table.RowCount() + 1, field) +
                                                        " holds bytes. The file is damaged; take it from a backup.");
                }
                values.push_back(std::move(*value));
            }
            table.AddRow(std::move(values));
        }
        if (rows.lastError().isValid()) {
            connection_->Fail(Work::Read, rows.lastError());
        }
    }
    return book;
}

void BookStore::Save(const Book& book, std::span<const BookTable> tables) {
    BookTransaction transaction(*connection_, Work::Write);
    for (const BookTable which : tables) {
        const TableDescription& description = Describe(which);
        const MemoryTable& table = book[which];
        if (table.RowCount() > MaxTableRows) {
            connection_->Refuse(Work::Write, "the table " + std::string(description.name) + " has " +
                                                 std::to_string(table.RowCount()) + " rows, a book holds at most " +
                                                 std::to_string(MaxTableRows) + " in a table. Divide the book.");
        }
        connection_->Run(Work::Write, "DELETE FROM " + Quoted(description.name) + " WHERE " + Quoted(RowNumberField) +
                                          " NOT BETWEEN 1 AND " + QString::number(table.RowCount()));
        QSqlQuery write = connection_->Prepare(Work::Write, WriteStatement(description));
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            write.addBindValue(row);
            for (const FieldDescription& field : description.fields) {
                const std::optional<QVariant> value = ToSql(table.Value(row, field.name));
                if (!value) {
                    connection_->Refuse(Work::Write, "the field " + Place(description, row, field) +
                                                         " holds an object, which no book can keep.");
                }
                write.addBindValue(*value);
            }
            if (!write.exec()) {
                connection_->Fail(Work::Write, write.lastError());
            }
        }
    }
    transaction.Commit();
}

Book LoadBook(const std::filesystem::path& file) {
    return BookStore::Open(file).Load();
}

}  // namespace planbook
