// SPDX-License-Identifier: MIT
#include "exchange/WorkbookExchange.h"

#include <algorithm>

#include "book/BookError.h"
#include "book/BookFormulas.h"
#include "exchange/SpreadsheetObject.h"

namespace planbook {

using planview::ObjectRef;
using planview::PlanView;
using planview::UploadPreview;
using planview::UploadResult;

std::string WorkbookMark(const BookReport& report) {
    constexpr std::size_t MostInCell = 20;
    return report.IsWhole() ? std::string() : "INCOMPLETE: " + report.Headline() + "\n" + report.List(MostInCell);
}

WorkbookExchange::WorkbookExchange(const std::filesystem::path& book)
    : file_(std::filesystem::absolute(book)),
      store_(BookStore::Open(file_)),
      book_(store_.LoadReadable()),
      report_(store_.Report()),
      asRead_(book_) {
    RegisterSpreadsheet(objects_);
    view_ = std::make_unique<PlanView>(planview::Platform{.objects = &objects_});
    GiveTables(*view_, book_);
    view_->DP_Import_Attribute();
    view_->DP_Import_Create();
    AddFormulaFaults(*view_, report_);
}

int WorkbookExchange::Periods() const {
    return book_[BookTable::ColsIndex].RowCount();
}

int WorkbookExchange::Lines() const {
    return book_[BookTable::LineIndex].RowCount();
}

void WorkbookExchange::Download(const std::filesystem::path& workbook, bool printSetup) {
    if (IsBookFile(workbook)) {
        throw BookError("Cannot write the workbook \"" + workbook.string() +
                        "\": there is a planning book of that name. Choose another one.");
    }
    planview::SpreadsheetOptions options;
    options.printSetup = printSetup;
    options.mark = WorkbookMark(Report());
    view_->Exchange().SetOptions(options);
    if (const std::string error = view_->Exchange().DownloadTo(std::filesystem::absolute(workbook).string());
        !error.empty()) {
        throw BookError(error);
    }
}

UploadPreview WorkbookExchange::Preview(const std::filesystem::path& workbook) {
    UploadPreview preview = view_->Exchange().PreviewUpload(std::filesystem::absolute(workbook).string());
    if (!preview.error.empty()) {
        throw BookError(preview.error);
    }
    return preview;
}

UploadResult WorkbookExchange::Apply(const UploadPreview& preview) {
    const UploadResult result = view_->Exchange().ApplyUpload(preview);
    if (result.changed == 0) {
        return result;
    }
    BookChanges changes = asRead_.ChangesIn(book_);
    MarkComputed(*view_, changes);
    // Building the view has written keys into the other tables, which is no change of the user's.
    std::erase_if(changes.tables, [](const TableEdits& edits) {
        return edits.table != BookTable::Tab && edits.table != BookTable::TabOld;
    });
    if (!changes.IsEmpty() && !store_.Write(changes).empty()) {
        throw BookError("Cannot change the book \"" + file_.string() +
                        "\": another program has changed some of these cells meanwhile. Start the upload again.");
    }
    return result;
}

}  // namespace planbook
