// SPDX-License-Identifier: MIT
#include "book/BookStore.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryFile>
#include <string>
#include <system_error>
#include <utility>

#include "book/BookConnection.h"
#include "book/BookError.h"
#include "book/BookFormulas.h"
#include "book/BookSnapshot.h"
#include "book/BookUpgrade.h"
#include "book/BookWriter.h"
#include "book/SqlValue.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;
using Access = BookConnection::Access;
using Work = BookConnection::Work;

namespace {

/// Fields that came after the book's version hold nothing.
QString SelectStatement(const TableDescription& table, std::int32_t version) {
    QStringList columns{Quoted(RowNumberField)};
    for (const FieldDescription& field : table.fields) {
        columns << (field.since <= version ? Quoted(field.name) : QString("NULL"));
    }
    return "SELECT " + columns.join(", ") + " FROM " + Quoted(table.name) + " ORDER BY " + Quoted(RowNumberField);
}

std::string Place(const TableDescription& table, std::int32_t row, const FieldDescription& field) {
    return std::string(field.name) + " in row " + std::to_string(row) + " of the table " + std::string(table.name);
}

qint64 BirthOf(const std::filesystem::path& file) {
    const QDateTime born = QFileInfo(QString::fromStdString(file.string())).birthTime();
    return born.isValid() ? born.toMSecsSinceEpoch() : 0;
}

constexpr std::size_t FaultsInMessage = 5;

/// Whether the process as it runs now may write the file and beside it, where SQLite keeps its journal. Tried, not
/// asked: permissions do not tell of read-only disks and of who one is just now.
bool MayWrite(const std::filesystem::path& file) {
    std::error_code error;
    static_cast<void>(std::filesystem::symlink_status(file.string() + "-journal", error));  // too long a name?
    if (error == std::errc::filename_too_long) {
        return false;
    }
    if (!QFile(QString::fromStdString(file.string())).open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        return false;
    }
    QTemporaryFile beside(QString::fromStdString((file.parent_path() / "planbook-XXXXXX").string()));
    return beside.open();
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

BookStore::BookStore(std::unique_ptr<BookConnection> connection, std::filesystem::path file, bool readOnly)
    : connection_(std::move(connection)), file_(std::move(file)), readOnly_(readOnly), loaded_{{}, BirthOf(file_)} {}
BookStore::BookStore(BookStore&&) noexcept = default;
BookStore& BookStore::operator=(BookStore&&) noexcept = default;
BookStore::~BookStore() = default;

BookStore BookStore::Open(const std::filesystem::path& file) {
    CheckBookHeader(file);
    // A book that may be written is opened for that, so that SQLite can undo what a killed process left half done.
    const bool writable = MayWrite(std::filesystem::absolute(file));
    auto connection = std::make_unique<BookConnection>(file, writable ? Access::ReadWrite : Access::ReadOnly);
    const BookConnection::StepLimit limit(*connection);
    connection->CheckKinds();

    QSqlQuery check = connection->Run(Work::Open, "PRAGMA quick_check(1)");
    const QString answer = check.next() ? check.value(0).toString() : QString("no answer");
    if (answer != "ok") {
        connection->Refuse(Work::Open, "it is damaged (" + answer.toStdString() + "). Take it from a backup.");
    }
    check.finish();

    // Of a book that is damaged or cannot be written nothing is brought up; the latter is shown as it is.
    const std::int32_t version = VersionOf(*connection);
    for (const TableDescription& table : BookSchema()) {
        connection->CheckTable(table, version);
    }
    if (writable) {
        BringUp(*connection);
    }
    return BookStore(std::move(connection), file, !writable);
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
        connection->Run(Work::Write, SqlTable(table));
    }
    transaction.Commit();
    newFile.Keep();
    return BookStore(std::move(connection), file, false);
}

Book BookStore::Load() {
    report_ = {};
    const BookConnection::StepLimit limit(*connection_);
    // One transaction, so that all tables are of the same moment.
    const BookTransaction moment(*connection_, Work::Read);
    loaded_.counter = connection_->ChangeCounter();
    return ReadTables();
}

Book BookStore::ReadTables() const {
    Book book;
    const std::int32_t version = VersionOf(*connection_);
    for (const TableDescription& description : BookSchema()) {
        if (description.since > version) {
            continue;
        }
        MemoryTable& table = book[description.table];
        QSqlQuery rows = connection_->Run(Work::Read, SelectStatement(description, version));
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

Book BookStore::LoadReadable() {
    Book book = Load();
    report_ = MakeReadable(book);
    return book;
}

void BookStore::Save(const Book& book, std::span<const BookTable> tables) {
    BookTransaction transaction(*connection_, Work::Write);
    for (const BookTable which : tables) {
        WriteRows(*connection_, Describe(which), RowsOf(book[which], Describe(which)));
    }
    transaction.Commit();
}

std::vector<CellConflict> BookStore::Write(const BookChanges& changes) {
    BookTransaction transaction(*connection_, Work::Write);
    std::vector<CellConflict> conflicts = WriteChanges(*connection_, ForFile(changes));
    if (conflicts.empty()) {
        if (IsChangedElsewhere()) {
            ComputeAgain();  // the computed values here do not know of the others' changes
        }
        transaction.Commit();
    }
    return conflicts;
}

void BookStore::ComputeAgain() const {
    QSqlQuery formulas = connection_->Run(Work::Write, "SELECT 1 FROM FORMULAS LIMIT 1");
    if (!formulas.next()) {
        return;
    }
    formulas.finish();
    const Book book = ReadTables();
    static_cast<void>(MakeReadable(book));
    if (const std::vector<CellEdit> edits = Recompute(book); !edits.empty()) {
        static_cast<void>(WriteChanges(*connection_, {edits, {}, {}}));
    }
}

bool BookStore::WriteUnlessChanged(const BookChanges& changes) {
    BookTransaction transaction(*connection_, Work::Write);
    if (IsChangedElsewhere() || !WriteChanges(*connection_, ForFile(changes)).empty()) {
        return false;
    }
    transaction.Commit();
    return true;
}

BookChanges BookStore::ForFile(const BookChanges& changes) const {
    BookChanges inFile = changes;
    for (TableEdits& edits : inFile.tables) {
        if (edits.allRows && report_.Concerns(edits.table)) {
            connection_->Refuse(Work::Write, "parts of the table " + std::string(Describe(edits.table).name) +
                                                 " cannot be read, and writing its rows anew would lose them. Mend "
                                                 "them first:\n" +
                                                 report_.List(FaultsInMessage));
        }
        const std::vector<std::size_t>& leftOut = report_.LeftOut(edits.table);
        edits.rowCount += leftOut.size();
        for (FieldEdit& edit : edits.fields) {
            for (const std::size_t row : leftOut) {
                edit.row += row <= edit.row ? 1U : 0U;
            }
        }
    }
    return inFile;
}

BookStore::Stamp BookStore::CurrentStamp() const {
    return {connection_->ChangeCounter(), BirthOf(file_)};
}

bool BookStore::IsChangedElsewhere() const {
    const Stamp now = CurrentStamp();
    return (now.counter && now.counter != loaded_.counter) || (now.bornAt != 0 && now.bornAt != loaded_.bornAt);
}

bool BookStore::EndPendingChanges(OldValues what) {
    BookTransaction transaction(*connection_, Work::Write);
    if (IsChangedElsewhere()) {
        return false;
    }
    if (what == OldValues::PutBack) {
        PutOldValuesBack(*connection_);
        ComputeAgain();
    } else {
        ForgetOldValues(*connection_);
    }
    transaction.Commit();
    return true;
}

Book LoadBook(const std::filesystem::path& file) {
    return BookStore::Open(file).Load();
}

}  // namespace planbook
