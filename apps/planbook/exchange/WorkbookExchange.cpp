// SPDX-License-Identifier: MIT
#include "exchange/WorkbookExchange.h"

#include <algorithm>
#include <iterator>

#include "book/BookError.h"
#include "exchange/SpreadsheetObject.h"

namespace planbook {

using planview::ObjectRef;
using planview::PlanView;
using planview::UploadPreview;
using planview::UploadResult;

namespace {

/// Which member takes which table.
struct Slot {
    BookTable table;
    PlanView::Status (PlanView::*set)(ObjectRef);
};

constexpr Slot Slots[] = {
    {BookTable::GridAttr, &PlanView::PROP_Set_GRID_ATTR},     {BookTable::ColsIndex, &PlanView::PROP_Set_COLS_INDEX},
    {BookTable::LineIndex, &PlanView::PROP_Set_LINE_INDEX},   {BookTable::Tab, &PlanView::PROP_Set_TAB},
    {BookTable::TabOld, &PlanView::PROP_Set_TAB_OLD},         {BookTable::FixedCols, &PlanView::PROP_Set_FIXED_COLS},
    {BookTable::FixedLines, &PlanView::PROP_Set_FIXED_LINES}, {BookTable::FixedTab, &PlanView::PROP_Set_FIXED_TAB},
    {BookTable::CellAttr, &PlanView::PROP_Set_CELL_ATTR},     {BookTable::Texts, &PlanView::PROP_Set_TEXTS},
};

bool IsBook(const std::filesystem::path& file) {
    try {
        CheckBookHeader(file);
        return true;
    } catch (const BookError&) {
        return false;
    }
}

}  // namespace

WorkbookExchange::WorkbookExchange(const std::filesystem::path& book)
    : file_(std::filesystem::absolute(book)), store_(BookStore::Open(file_)), book_(store_.Load()) {
    RegisterSpreadsheet(platform_.Objects());
    view_ = std::make_unique<PlanView>(platform_.Interfaces());
    for (const Slot& slot : Slots) {
        ((*view_).*slot.set)(book_.Share(slot.table));
    }
    view_->DP_Import_Attribute();
    view_->DP_Import_Create();
}

int WorkbookExchange::Periods() const {
    return book_[BookTable::ColsIndex].RowCount();
}

int WorkbookExchange::Lines() const {
    return book_[BookTable::LineIndex].RowCount();
}

void WorkbookExchange::Download(const std::filesystem::path& workbook, bool printSetup) {
    if (IsBook(workbook)) {
        throw BookError("Cannot write the workbook \"" + workbook.string() +
                        "\": there is a planning book of that name. Choose another one.");
    }
    planview::SpreadsheetOptions options;
    options.printSetup = printSetup;
    view_->SetSpreadsheetOptions(options);
    if (const std::string error = view_->DownloadTo(std::filesystem::absolute(workbook).string()); !error.empty()) {
        throw BookError(error);
    }
}

UploadPreview WorkbookExchange::Preview(const std::filesystem::path& workbook) {
    UploadPreview preview = view_->PreviewUpload(std::filesystem::absolute(workbook).string());
    if (!preview.error.empty()) {
        throw BookError(preview.error);
    }
    return preview;
}

UploadResult WorkbookExchange::Apply(const UploadPreview& preview) {
    // Taken now: building the view has written keys into the tables, which is no change of the user's.
    const BookSnapshot before(book_);
    const UploadResult result = view_->ApplyUpload(preview);
    BookChanges changes = before.ChangesIn(book_);
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
