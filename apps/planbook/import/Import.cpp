// SPDX-License-Identifier: MIT
#include "import/Import.h"

#include <QFileInfo>
#include <QString>
#include <iterator>
#include <string>
#include <system_error>
#include <utility>

#include <planview/AutomationObject.h>
#include <planview/SaveBeside.h>

#include "book/BookCheck.h"
#include "book/BookConnection.h"
#include "book/BookError.h"
#include "book/BookStore.h"
#include "book/BookUpgrade.h"
#include "import/BookBuilder.h"
#include "import/NamesFile.h"
#include "import/SourceTable.h"
#include "import/TextFile.h"

namespace planbook {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Refuse(const fs::path& book, const std::string& why) {
    throw BookError("Cannot make the book \"" + book.string() + "\": " + why);
}

/// Where the book is to stand: a link is followed, so that the file behind it is replaced and not the link.
fs::path TargetOf(const fs::path& book) {
    std::error_code error;
    const fs::path target = fs::weakly_canonical(fs::absolute(book, error), error);
    if (error) {
        Refuse(book, error.message() + ". Choose another name.");
    }
    return target;
}

/// What a killed program left beside a book would be done to the book that comes into its place. Only a program that is
/// at work keeps it.
void EndCutOffChange(const ImportRequest& request, const fs::path& target) {
    const auto findLeftover = [&]() -> std::string {
        std::error_code ignored;
        for (const char* suffix : {"-journal", "-wal"}) {
            if (fs::exists(target.string() + suffix, ignored)) {
                return target.string() + suffix;
            }
        }
        return {};
    };
    if (findLeftover().empty()) {
        return;
    }
    try {
        const BookConnection connection(target, BookConnection::Access::ReadWrite);
        BookTransaction transaction(connection, BookConnection::Work::Write);
        // Any change makes SQLite begin a journal of its own and remove it at the end.
        connection.Run(BookConnection::Work::Write, QString("PRAGMA user_version = %1").arg(VersionOf(connection)));
        transaction.Commit();
    } catch (const BookError& error) {
        Refuse(request.book, "a change to it is under way or was cut short, and could not be ended. (" +
                                 std::string(error.what()) + ")");
    }
    if (const std::string leftover = findLeftover(); !leftover.empty()) {
        Refuse(request.book,
               "another program is at work on it (there is \"" + leftover + "\"). Close that program and try again.");
    }
}

void CheckTarget(const ImportRequest& request, const fs::path& target) {
    std::error_code ignored;
    const fs::path folder = target.parent_path();
    if (!fs::is_directory(folder, ignored)) {
        Refuse(request.book, "there is no folder \"" + folder.string() + "\". Make it first.");
    }
    if (!QFileInfo(QString::fromStdString(folder.string())).isWritable()) {
        Refuse(request.book, "the folder \"" + folder.string() + "\" does not let you write. Check your access to it.");
    }
    if (fs::is_directory(target, ignored)) {
        Refuse(request.book, "it is a folder. Name a file in it.");
    }
    if (!fs::exists(fs::symlink_status(target, ignored))) {
        return;
    }
    if (!request.force) {
        Refuse(request.book, "there is such a file. Choose another name, or add --force to replace the book.");
    }
    try {
        CheckBookHeader(target);
    } catch (const BookError& error) {
        Refuse(request.book, "--force replaces books only, and this file is none. Choose another name. (" +
                                 std::string(error.what()) + ")");
    }
    EndCutOffChange(request, target);
}

/// Headings, units and means take rows too, so that fewer numbers than a table holds may still be too many.
void CheckTables(const ImportRequest& request, const SourceTable& source, const Book& book) {
    for (const TableDescription& table : BookSchema()) {
        const std::int32_t rows = book[table.table].RowCount();
        if (rows > MaxTableRows) {
            throw BookError("Nothing was imported: the " + std::to_string(source.lines.size()) + " lines and " +
                            std::to_string(source.periods.size()) + " periods of \"" + request.source.string() +
                            "\" take " + std::to_string(rows) + " rows of the table " + std::string(table.name) +
                            ", which holds at most " + std::to_string(MaxTableRows) + ". Divide the file.");
        }
    }
}

/// What a view could not read is not made in the first place.
void CheckReadable(const ImportRequest& request, const Book& book) {
    constexpr std::size_t MostFaults = 20;
    if (const BookReport report = MakeReadable(book); !report.IsWhole()) {
        throw BookError("Nothing was imported: the book made from \"" + request.source.string() +
                        "\" could not be read. " + report.Headline() + "\n" + report.List(MostFaults));
    }
}

NamesFile ReadNames(const ImportRequest& request, const SourceTable& source) {
    NamesFile names;
    if (request.names) {
        Faults faults;
        names = ReadNamesFile(ReadTextFile(*request.names, "names file"), faults);
        CheckNamesAgainst(source, names, faults);
        faults.Throw(request.names->string());
    }
    if (names.title.empty()) {
        names.title = ReadableName(request.source.stem().string());
    }
    return names;
}

/// Those of the names file, then the totals over time.
std::vector<FormulaText> FormulasOf(const ImportRequest& request, const NamesFile& names,
                                    const std::vector<PlannedColumn>& columns) {
    std::vector<FormulaText> formulas = names.formulas;
    if (!request.totals.Any()) {
        return formulas;
    }
    if (request.names) {
        Faults faults;
        CheckTotalsAgainst(names, faults);
        faults.Throw(request.names->string());
    }
    std::vector<FormulaText> totals = TotalFormulas(columns);
    if (totals.empty()) {
        throw BookError("Nothing was imported: the periods of \"" + request.source.string() +
                        "\" are no dates or months such as 2008-01, so that there are no quarters and years to add "
                        "up. Leave out --totals, or write the periods so.");
    }
    formulas.insert(formulas.end(), std::make_move_iterator(totals.begin()), std::make_move_iterator(totals.end()));
    return formulas;
}

}  // namespace

ImportResult ImportBook(const ImportRequest& request) {
    const fs::path target = TargetOf(request.book);
    CheckTarget(request, target);

    Faults faults;
    const SourceTable source =
        ReadSourceTable(ReadTextFile(request.source, "table of numbers"), request.decimalMark, faults);
    faults.Throw(request.source.string());
    const NamesFile names = ReadNames(request, source);
    const std::vector<PlannedColumn> columns = PlanColumns(source.periods, request.totals);
    const std::vector<FormulaText> formulas = FormulasOf(request, names, columns);
    const Book book = BuildBook(source, names, columns);
    CheckTables(request, source, book);
    const int numbers = book[BookTable::Tab].RowCount();
    Faults formulaFaults;
    Contradictions contradictions = AddFormulaRows(book, source, columns, formulas, formulaFaults);
    if (request.names) {
        formulaFaults.Throw(request.names->string());
    }
    CheckTables(request, source, book);  // a computed cell takes a row, too
    CheckReadable(request, book);

    const auto write = [&](const fs::path& beside) {
        fs::remove(beside);  // an empty file is no book
        BookStore store = BookStore::Create(beside);
        fs::permissions(beside, fs::perms::owner_read | fs::perms::owner_write);
        store.Save(book, AllBookTables());
    };
    try {
        planview::SaveBeside(target, write, request.force ? planview::IfThere::Replace : planview::IfThere::Refuse);
    } catch (const planview::AutomationError& error) {
        Refuse(request.book, error.what());
    }

    return {static_cast<int>(source.periods.size()), static_cast<int>(source.lines.size()), numbers,
            std::move(contradictions)};
}

}  // namespace planbook
