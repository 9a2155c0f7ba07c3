// SPDX-License-Identifier: MIT
#include "app/BookSession.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <algorithm>
#include <chrono>
#include <map>
#include <string>
#include <utility>

#include <planview/qt/PlanViewWidget.h>

#include "app/Questions.h"
#include "book/BookError.h"
#include "book/BookFormulas.h"
#include "book/CellValue.h"
#include "book/FixedCell.h"
#include "book/LineCaption.h"

namespace planbook {

using planview::PlanViewWidget;
using planview::Variant;

namespace {

constexpr std::chrono::seconds WatchInterval{1};
constexpr std::chrono::milliseconds WaitInterval{50};

/// A value as an event carries it.
Variant toVariant(const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::UnknownType:
            return {};
        case QMetaType::Bool:
            return value.toBool();
        case QMetaType::Short:
        case QMetaType::Int:
            return static_cast<std::int32_t>(value.toInt());
        case QMetaType::Double:
            return value.toDouble();
        default:
            return value.toString().toStdString();
    }
}

/// TAB notes an edit of a fixed cell at a place that no planning cell has.
bool isOfFixedCell(const CellEdit& edit) {
    return edit.cell.row == 0 || edit.cell.column == 0;
}

/// A spread over several totals may change a cell more than once; another one's value would be in the way of the
/// second.
void KeepLastOfEach(std::vector<CellEdit>& edits) {
    std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> places;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < edits.size(); ++i) {
        const auto [found, isNew] = places.emplace(std::pair(edits[i].cell.row, edits[i].cell.column), kept);
        if (!isNew) {
            edits[found->second].after = edits[i].after;
        } else if (kept++ != i) {
            edits[kept - 1] = std::move(edits[i]);
        }
    }
    edits.resize(kept);
}

QString toText(const Variant& value) {
    return QString::fromStdString(value.AsText());
}

}  // namespace

BookSession::BookSession(PlanViewWidget& view, Questions& questions, QObject* parent)
    : QObject(parent), view_(view), questions_(questions) {
    connect(&view_, &PlanViewWidget::GridValueChanged, this,
            [this](short column, const QString& columnKey, short row, const QString& rowKey, const QVariant& value) {
                valueChanged({row, column}, columnKey, rowKey, value);
            });
    connect(&view_, &PlanViewWidget::severalValuesAnnounced, this, &BookSession::severalAnnounced);
    connect(&view_, &PlanViewWidget::GridStartUpdate, this, &BookSession::tablesChanged);
    connect(&view_, &PlanViewWidget::GridReturnKeyPressed, this, &BookSession::tablesChanged);
    connect(&view_, &PlanViewWidget::MacroTreeExpand, this, &BookSession::tablesChanged);
    connect(&view_, &PlanViewWidget::MacroTreeCollapse, this, &BookSession::tablesChanged);
    connect(&view_, &PlanViewWidget::GridTreeMacroExpand, this, &BookSession::tablesChanged);
    connect(&view_, &PlanViewWidget::GridTreeMacroCollapse, this, &BookSession::tablesChanged);
    connect(&watch_, &QTimer::timeout, this, &BookSession::watch);
    watch_.setInterval(WatchInterval);
    later_.setSingleShot(true);
    connect(&later_, &QTimer::timeout, this, &BookSession::tryAfterwards);
}

BookSession::~BookSession() = default;

void BookSession::open(const std::filesystem::path& file) {
    const std::filesystem::path whole = std::filesystem::absolute(file);
    auto store = std::make_unique<BookStore>(BookStore::Open(whole));
    book_ = store->LoadReadable();
    report_ = store->Report();
    store_ = std::move(store);
    if (!file_.empty() && file_ != whole) {
        leave();
    }
    file_ = whole;
    snapshot_ = BookSnapshot(book_);
    afterwards_ = Afterwards::Nothing;
    announced_ = {};
    dismissed_.reset();
    view_.setReadOnly(isReadOnly());
    setChangedElsewhere(false);
    show();
    watch_.start();
    Q_EMIT opened();
}

/// A build keeps the place in the table by keys, which mean something else in another book.
void BookSession::leave() {
    TakeTables(view_.control());
    view_.DP_Import_Create();
}

void BookSession::reload() {
    if (!isOpen()) {
        return;
    }
    try {
        open(file_);
    } catch (const BookError& error) {
        questions_.tellFailure(QString::fromUtf8(error.what()));
    }
}

void BookSession::show() {
    GiveTables(view_.control(), book_);
    view_.plv_LayoutMode();  // or the tree pane could not be shown
    view_.DP_Import_Attribute();
    view_.DP_Import_Texts();
    view_.DP_Import_MacroTree();
    view_.DP_Import_PopupMenu();
    view_.DP_Import_Create();
    AddFormulaFaults(view_.control(), report_);
    findOutdated();
}

/// Whoever changed the leaves did not compute: the file is mended with the next change of values, not by looking at it.
void BookSession::findOutdated() {
    outdated_.clear();
    if (book_[BookTable::Formulas].RowCount() > 0) {
        BookChanges changes = changesInTables();
        std::erase_if(changes.cells, [](const CellEdit& edit) { return !edit.computed; });
        outdated_ = std::move(changes.cells);
    }
}

BookChanges BookSession::changesInTables() {
    BookChanges changes = snapshot_.ChangesIn(book_);
    MarkComputed(view_.control(), changes);
    return changes;
}

// --- Saving

void BookSession::valueChanged(CellPosition cell, const QString& columnKey, const QString& rowKey,
                               const QVariant& value) {
    const std::string columnName = columnKey.toStdString();
    const std::string rowName = rowKey.toStdString();
    if (!held_) {  // else the tables are compared at the end
        const Variant before = snapshot_.ValueOf(cell);
        const bool computed = view_.control().Calculation().IsComputed({columnName, rowName});
        announced_.cells.push_back({cell, before, toVariant(value), computed});
        if (!computed) {
            announced_.oldValues.push_back({cell, before});
        }
    }
    if (IsFixedCell(columnName, rowName)) {
        PutFixedCell(book_, columnName, rowName, toVariant(value));
    }
    if (!view_.isAnnouncingSeveral()) {
        severalAnnounced();
    }
}

void BookSession::severalAnnounced() {
    BookChanges changes = std::exchange(announced_, {});
    if (changes.IsEmpty()) {
        return;
    }
    KeepLastOfEach(changes.cells);
    if (std::any_of(changes.cells.begin(), changes.cells.end(), isOfFixedCell)) {
        if (std::optional<TableEdits> texts = snapshot_.EditsOf(book_, BookTable::FixedTab)) {
            changes.tables.push_back(std::move(*texts));
        }
    }
    commit(changes);
}

void BookSession::tablesChanged() {
    if (!isOpen() || held_ || afterwards_ != Afterwards::Nothing) {
        return;  // the tables hold what the file refused
    }
    BookChanges changes = changesInTables();
    // Sizes and hidden lines of a book that cannot be written last as long as it is shown.
    const bool entered =
        std::any_of(changes.cells.begin(), changes.cells.end(), [](const CellEdit& edit) { return !edit.computed; });
    if (changes.IsEmpty() || (isReadOnly() && !entered)) {
        return;
    }
    commit(changes);
}

bool BookSession::saveHeld() {
    const BookChanges changes = changesInTables();
    return changes.IsEmpty() || store_->WriteUnlessChanged(changes);
}

bool BookSession::commit(BookChanges& changes) {
    if (!isOpen() || afterwards_ == Afterwards::ShowSnapshot) {
        return false;  // what follows a failure within one action of the user fails with it
    }
    if (!changes.cells.empty()) {
        // Before those of the action, which may compute the same cells.
        changes.cells.insert(changes.cells.begin(), outdated_.begin(), outdated_.end());
    }
    try {
        for (std::vector<CellConflict> conflicts; !(conflicts = store_->Write(changes)).empty();) {
            decide(changes, conflicts);
        }
    } catch (const BookError& error) {
        afterwards(Afterwards::ShowSnapshot, QString::fromUtf8(error.what()));
        return false;
    }
    snapshot_.Apply(changes);
    if (!changes.cells.empty()) {
        outdated_.clear();
    }
    watch();
    return true;
}

template <class Question>
bool BookSession::asked(const Question& question) {
    const QScopedValueRollback<bool> busy(busy_, true);
    return question();
}

void BookSession::decide(BookChanges& changes, const std::vector<CellConflict>& conflicts) {
    std::vector<DisputedCell> cells;
    for (const CellConflict& conflict : conflicts) {
        cells.push_back({nameOf(conflict.cell), toText(conflict.mine), toText(conflict.theirs)});
    }
    const bool keepMine = asked([&] { return questions_.whoseValues(cells) == Questions::Keep::Mine; });
    for (const CellConflict& conflict : conflicts) {
        const auto isDisputed = [&](const auto& change) { return change.cell == conflict.cell; };
        if (keepMine) {
            std::find_if(changes.cells.begin(), changes.cells.end(), isDisputed)->before = conflict.theirs;
            for (OldValue& old : changes.oldValues) {
                old.value = isDisputed(old) ? conflict.theirs : old.value;
            }
        } else {
            if (std::any_of(changes.cells.begin(), changes.cells.end(),
                            [&](const CellEdit& edit) { return isDisputed(edit) && isOfFixedCell(edit); })) {
                std::erase_if(changes.tables,
                              [](const TableEdits& edits) { return edits.table == BookTable::FixedTab; });
            }
            std::erase_if(changes.cells, isDisputed);
            std::erase_if(changes.oldValues, isDisputed);
            gaveWay_ = true;
            afterwards(Afterwards::Reload, {});
        }
    }
}

// --- Pending changes

void BookSession::acceptChanges() {
    if (isOpen() && view_.finishEditing()) {
        endPendingChanges(BookStore::OldValues::Forget);
    }
}

void BookSession::revertChanges() {
    if (!isOpen() || !view_.finishEditing()) {
        return;
    }
    if (asked([&] { return questions_.mayRevert(view_.pendingChanges()); })) {
        endPendingChanges(BookStore::OldValues::PutBack);
    }
}

void BookSession::endPendingChanges(BookStore::OldValues what) {
    try {
        if (!store_->EndPendingChanges(what)) {
            reload();
            questions_.tell(
                "Another window has changed the book meanwhile. It has been reloaded; look at the changes, then accept "
                "or revert them.");
        } else if (what == BookStore::OldValues::Forget) {
            snapshot_.ForgetOldValues();
            book_[BookTable::TabOld].Clear();
            view_.refreshPendingChanges();
        } else {
            reload();
        }
    } catch (const BookError& error) {
        questions_.tellFailure(QString::fromUtf8(error.what()));
    }
}

// --- Other windows

void BookSession::watch() {
    if (isOpen() && !busy_ && !changedElsewhere_ && store_->IsChangedElsewhere() &&
        (!dismissed_ || *dismissed_ != store_->CurrentStamp())) {
        setChangedElsewhere(true);
    }
}

void BookSession::dismissChange() {
    if (isOpen()) {
        dismissed_ = store_->CurrentStamp();
    }
    setChangedElsewhere(false);
}

void BookSession::setChangedElsewhere(bool changed) {
    if (changedElsewhere_ != changed) {
        changedElsewhere_ = changed;
        Q_EMIT changedElsewhereChanged(changed);
    }
}

QString BookSession::nameOf(CellPosition cell) const {
    return QString::fromStdString(CellName(book_, cell));
}

// --- What has to wait for the view

void BookSession::afterwards(Afterwards what, const QString& failure) {
    if (afterwards_ == Afterwards::Nothing) {
        later_.start(0);
    }
    if (afterwards_ != Afterwards::ShowSnapshot) {
        afterwards_ = what;
        failure_ = failure;
    }
}

/// The view must not be rebuilt while it handles an event, nor behind a message that is being read: an event loop
/// within one of its events comes here, too.
void BookSession::tryAfterwards() {
    if (busy_ || view_.isAnnouncingSeveral() || QApplication::activeModalWidget()) {
        later_.start(WaitInterval);
    } else {
        doAfterwards();
    }
}

bool BookSession::settle() {
    return doAfterwards();
}

bool BookSession::doAfterwards() {
    const Afterwards what = std::exchange(afterwards_, Afterwards::Nothing);
    if (what == Afterwards::Reload) {
        reload();
    } else if (what == Afterwards::ShowSnapshot) {
        snapshot_.PutInto(book_);
        rebuild();
        questions_.tellFailure(failure_ + "\n\nThe change was not saved; the table shows again what the book holds.");
    }
    return what != Afterwards::ShowSnapshot;
}

void BookSession::rebuild() {
    view_.DP_Import_Attribute();
    view_.DP_Import_Update();
    view_.refreshPendingChanges();
}

}  // namespace planbook
