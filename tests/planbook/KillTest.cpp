// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <map>
#include <random>
#include <utility>

#include <gtest/gtest.h>
#include <unistd.h>

#include "book/BookSnapshot.h"
#include "book/BookStore.h"
#include "book/CellValue.h"
#include "import/Import.h"
#include "planbook/KillScript.h"
#include "planbook/TestBook.h"

namespace {

using planbook::BookSnapshot;
using planbook::BookTable;
using planview::Variant;

constexpr int Edits = 200;
constexpr int TotalLine = KillLines + 1;

using Cells = std::map<std::pair<int, int>, Variant>;

/// The book that is edited: every cell holds 1000 times its line plus its period.
/// Its last line adds the others up.
/// With `singleValue` each cell of a block is announced, else the block as a whole.
std::filesystem::path MakeBook(const TestFolder& folder, bool singleValue) {
    std::string csv = "month";
    for (int line = 1; line <= KillLines; ++line) {
        csv += ",line" + std::to_string(line);
    }
    csv += ",total";
    for (int period = 1; period <= KillPeriods; ++period) {
        csv += "\np" + std::to_string(period);
        for (int line = 1; line <= KillLines; ++line) {
            csv += "," + std::to_string(line * 1000 + period);
        }
        csv += ",0";
    }
    planbook::ImportRequest request;
    request.source = folder.Write("kill.csv", csv + "\n");
    request.book = folder.Path("kill.planbook");
    planbook::ImportBook(request);
    ChangeBook(request.book,
               singleValue ? "UPDATE GRID_ATTR SET SINGLEVALUE = 'X'" : "UPDATE GRID_ATTR SET SINGLEVALUE = ''");
    ChangeBook(request.book, "INSERT INTO FORMULAS VALUES (1, 'ROW" + std::to_string(TotalLine) + "', 'SUM({ROW1:ROW" +
                                 std::to_string(KillLines) + "})', 0, '')");
    return request.book;
}

Cells CellsOf(const planbook::Book& book, BookTable which) {
    Cells cells;
    const planview::MemoryTable& table = book[which];
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        cells.try_emplace({table.Value(row, "Z").AsInt32(), table.Value(row, "C").AsInt32()}, table.Value(row, "V"));
    }
    return cells;
}

/// Takes the totals out and compares them with the sums of the leaves.
void ExpectTotals(Cells& cells) {
    std::map<int, double> sums;
    for (const auto& [place, value] : cells) {
        if (place.first != TotalLine) {
            sums[place.second] += planbook::NumberOf(value).value_or(0);
        }
    }
    for (const auto& [period, sum] : sums) {
        const auto total = cells.extract({TotalLine, period});
        ASSERT_FALSE(total.empty());
        EXPECT_EQ(planbook::NumberOf(total.mapped()), sum) << "the total of period " << period;
    }
}

void Apply(const KillEdit& edit, Cells& cells, Cells& old) {
    const int side = edit.kind == KillEdit::Kind::Type ? 1 : KillBlockSide;
    for (int line = edit.line; line < edit.line + side; ++line) {
        for (int period = edit.period; period < edit.period + side; ++period) {
            Variant& value = cells[{line, period}];
            old.try_emplace({line, period}, value);
            value = Variant(edit.value);
        }
    }
}

bool Same(const Cells& left, const Cells& right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), [](const auto& one, const auto& other) {
               return one.first == other.first && planbook::SameValue(one.second, other.second);
           });
}

/// Runs the editing process, kills it after `edits` reported edits and `delay` microseconds more, and returns the
/// number of the last edit that it reported.
int RunAndKill(const std::filesystem::path& book, unsigned seed, int edits, int delay) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(KILL_CHILD, {QString::fromStdString(book.string()), QString::number(seed), QString::number(Edits)});
    int reported = 0;
    const auto read = [&] {
        while (process.canReadLine()) {
            reported = process.readLine().trimmed().toInt();
        }
    };
    constexpr int Patience = 20000;
    while (reported < edits && process.waitForReadyRead(Patience)) {
        read();
    }
    usleep(static_cast<useconds_t>(delay));
    process.kill();
    process.waitForFinished();
    read();
    return reported;
}

/// SQLite's own look at the file, which also undoes what was left half done.
QString Integrity(const std::filesystem::path& book) {
    QString answer;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", "Integrity");
        database.setDatabaseName(QString::fromStdString(book.string()));
        EXPECT_TRUE(database.open());
        QSqlQuery query("PRAGMA integrity_check", database);
        answer = query.next() ? query.value(0).toString() : QString("no answer");
    }
    QSqlDatabase::removeDatabase("Integrity");
    return answer;
}

class Kill : public testing::TestWithParam<unsigned> {};

TEST_P(Kill, LosesNoEditWhoseEventWasHandled) {
    const unsigned seed = GetParam();
    std::mt19937 random(seed);
    const TestFolder folder;
    const std::filesystem::path file = MakeBook(folder, seed % 2 == 0);
    Cells cells = CellsOf(planbook::LoadBook(file), BookTable::Tab);
    std::erase_if(cells, [](const auto& cell) { return cell.first.first == TotalLine; });
    Cells old;

    const auto edits = static_cast<int>(random() % (Edits - 1)) + 1;
    const auto delay = static_cast<int>(random() % 12000U);
    const int reported = RunAndKill(file, seed, edits, delay);
    ASSERT_GE(reported, edits);
    EXPECT_EQ(Integrity(file), "ok");

    const std::vector<KillEdit> script = KillScript(seed, Edits);
    for (int i = 0; i < reported; ++i) {
        Apply(script[static_cast<std::size_t>(i)], cells, old);
    }
    const planbook::Book book = planbook::LoadBook(file);
    Cells stored = CellsOf(book, BookTable::Tab);
    ExpectTotals(stored);
    const auto holds = [&] { return Same(stored, cells) && Same(CellsOf(book, BookTable::TabOld), old); };
    bool asReported = holds();
    if (!asReported && reported < Edits) {
        // The next one may have been written, and only its report was cut off.
        Apply(script[static_cast<std::size_t>(reported)], cells, old);
        asReported = holds();
    }
    EXPECT_TRUE(asReported) << reported << " edits were reported; the book holds\n"
                            << DumpTable(book, BookTable::Tab) << DumpTable(book, BookTable::TabOld);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Kill, testing::Range(1U, 11U));

}  // namespace
