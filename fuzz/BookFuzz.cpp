// SPDX-License-Identifier: MIT
#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

#include <planview/PlanView.h>

#include "FuzzBytes.h"
#include "book/BookError.h"
#include "book/BookSnapshot.h"
#include "book/BookStore.h"
#include "import/BookBuilder.h"

namespace {

using namespace planbook;
using planview::fuzz::Bytes;
namespace fs = std::filesystem;

constexpr int MaxSteps = 64;

/// Runs SQL on a book file beside planbook, as any other program may.
template <class Use>
void WithDatabase(const fs::path& file, const Use& use) {
    const QString name = QStringLiteral("fuzz");
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        database.setDatabaseName(QString::fromStdString(file.string()));
        if (!database.open()) {
            std::abort();
        }
        use(database);
    }
    QSqlDatabase::removeDatabase(name);
}

/// The folder of all runs and in it a sound book, whose pages are small so that a few damaged bytes meet much of it.
class Workplace {
public:
    Workplace() {
        std::string pattern = (fs::temp_directory_path() / "planbook-fuzz-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        const fs::path sound = folder_ / "sound.planbook";
        NamesFile names;
        names.title = "Fuzzed";
        names.chart.shown = true;
        const SourceTable source{{"2008-01", "2008-02"}, {{"one", {1.5, 2.0}}, {"two", {{}, -4.0}}}};
        BookStore::Create(sound).Save(BuildBook(source, names), AllBookTables());
        WithDatabase(sound, [](const QSqlDatabase& database) {
            QSqlQuery(database).exec(QStringLiteral("PRAGMA page_size = 512"));
            QSqlQuery(database).exec(QStringLiteral("VACUUM"));
        });
        std::ifstream stream(sound, std::ios::binary);
        sound_.assign(std::istreambuf_iterator<char>(stream), {});
    }
    ~Workplace() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    [[nodiscard]] const std::string& Sound() const noexcept { return sound_; }
    [[nodiscard]] fs::path Write(const std::string& contents) const {
        fs::path file = folder_ / "fuzzed.planbook";
        for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
            std::error_code ignored;
            fs::remove(file.string() + suffix, ignored);
        }
        std::ofstream(file, std::ios::binary) << contents;
        return file;
    }

private:
    fs::path folder_;
    std::string sound_;
};

std::string Damaged(std::string contents, Bytes& input) {
    for (int step = 0; step < MaxSteps && !input.Empty(); ++step) {
        const auto place = static_cast<std::uint32_t>(input.Number()) % contents.size();
        contents[place] = static_cast<char>(input.Byte());
    }
    if (input.Byte() == 1) {
        contents.resize(static_cast<std::uint32_t>(input.Number()) % contents.size());
    }
    return contents;
}

QVariant AnyValue(Bytes& input) {
    switch (input.Below(6)) {
        case 0:
            return QVariant(QStringLiteral("X"));
        case 1:
            return QVariant(QString::fromStdString(input.Text()));
        case 2:
            return QVariant(input.Number());
        case 3:
            return QVariant(qlonglong{input.Number()} * input.Number());
        case 4:
            return QVariant(input.Number() / 7.0 * input.Number());
        default:
            return input.Byte() % 2 ? QVariant() : QVariant(QByteArray::fromStdString(input.Text()));
    }
}

/// Puts values into the book, and rows and columns, that no planbook has put there.
void Rewrite(const QSqlDatabase& database, Bytes& input) {
    for (int step = 0; step < MaxSteps && !input.Empty(); ++step) {
        const TableDescription& table = BookSchema()[static_cast<std::size_t>(input.Below(BookTableCount))];
        const QString name = QString::fromUtf8(table.name.data(), static_cast<qsizetype>(table.name.size()));
        if (table.fields.empty()) {
            continue;
        }
        const auto field = table.fields[static_cast<std::size_t>(input.Byte()) % table.fields.size()].name;
        const QString column = QString::fromUtf8(field.data(), static_cast<qsizetype>(field.size()));
        QSqlQuery query(database);
        switch (const int what = input.Below(16)) {
            case 0:
                query.exec(QStringLiteral("ALTER TABLE %1 DROP COLUMN %2").arg(name, column));
                break;
            case 1:
                query.exec(QStringLiteral("DELETE FROM %1").arg(name));
                break;
            case 2:
            case 3:
            case 4:
                query.prepare(QStringLiteral("INSERT INTO %1 (ROW_NO, %2) VALUES (?, ?)").arg(name, column));
                query.addBindValue(input.Number());
                query.addBindValue(AnyValue(input));
                query.exec();
                break;
            default:
                query.prepare(QStringLiteral("UPDATE %1 SET %2 = ? WHERE ROW_NO %3 ?")
                                  .arg(name, column, what < 8 ? QStringLiteral(">=") : QStringLiteral("=")));
                query.addBindValue(AnyValue(input));
                query.addBindValue(input.Below(8));
                query.exec();
        }
    }
}

/// What a user does with a book that opened: look at it, change it, save, take it all back.
void Work(BookStore& store, const Book& book) {
    const BookSnapshot before(book);
    planview::PlanView control;
    for (const TableDescription& table : BookSchema()) {
        control.SetTable(table.name, book.Share(table.table));
    }
    control.DP_Import_Attribute();
    control.DP_Import_Texts();
    control.DP_Import_PopupMenu();
    control.DP_Import_Create();
    control.Editing().DeleteContents();
    control.View().HideRows();
    control.Editing().Undo();
    static_cast<void>(store.Write(before.ChangesIn(book)));
    static_cast<void>(store.EndPendingChanges(BookStore::OldValues::PutBack));
    static_cast<void>(store.Load());
}

}  // namespace

/// A book that was damaged, or that another program has written into, is opened and used, or refused with a message.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int count = 1;
    static char name[] = "fuzz_book";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
    static const Workplace workplace;
    Bytes input(data, size);
    const bool rewrite = input.Byte() % 2 != 0;
    const fs::path file = workplace.Write(rewrite ? workplace.Sound() : Damaged(workplace.Sound(), input));
    if (rewrite) {
        WithDatabase(file, [&](const QSqlDatabase& database) { Rewrite(database, input); });
    }
    try {
        BookStore store = BookStore::Open(file);
        static_cast<void>(store.Load());
        Work(store, store.LoadReadable());
    } catch (const BookError&) {
        return 0;
    }
    return 0;
}
