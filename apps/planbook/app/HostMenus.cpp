// SPDX-License-Identifier: MIT
#include "app/HostMenus.h"

#include <QTimer>
#include <algorithm>
#include <vector>

#include <planview/qt/PlanViewWidget.h>

#include "app/BookSession.h"
#include "app/Questions.h"
#include "book/LineCaption.h"

namespace planbook {

using planview::MemoryTable;
using planview::PlanViewWidget;

namespace {

constexpr BookTable MenuTables[] = {BookTable::GridMenu, BookTable::ColMenu, BookTable::RowMenu, BookTable::CellMenu};

/// The row of LINE_INDEX that is about a line; 0 for none.
std::int32_t rowOf(const MemoryTable& table, std::int32_t line) {
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        if (table.Value(row, "LINE").AsText() == std::to_string(line)) {
            return row;
        }
    }
    return 0;
}

QString captionOf(const Book& book, std::int32_t line) {
    const MemoryTable& table = book[BookTable::LineIndex];
    const std::int32_t row = rowOf(table, line);
    return row == 0 ? QString("line %1").arg(line) : QString::fromStdString(LineCaption(table, row));
}

std::string formatOf(const Book& book, std::int32_t line) {
    const MemoryTable& table = book[BookTable::LineIndex];
    const std::int32_t row = rowOf(table, line);
    return row == 0 ? std::string() : table.Value(row, "ROW_FORMAT").AsText();
}

}  // namespace

HostMenus::HostMenus(PlanViewWidget& view, BookSession& session, Questions& questions, QObject* parent)
    : QObject(parent), view_(view), session_(session), questions_(questions) {
    connect(&session_, &BookSession::opened, this, &HostMenus::offer);
    connect(&view_, &PlanViewWidget::pendingChangesChanged, this, &HostMenus::offer);
    connect(&view_, &PlanViewWidget::GridPopupMenuPressed, this,
            [this](short /*popup*/, const QString& command, short column, const QString& /*columnKey*/, short row) {
                const auto number = static_cast<HostCommand>(command.toInt());
                // After the event: the view must not be rebuilt while it is raising one.
                QTimer::singleShot(0, this, [this, number, row, column] { run(number, {row, column}); });
            });
}

/// Copies, so that what is possible at the moment does not get into the book.
void HostMenus::offer() {
    if (!session_.isOpen()) {
        return;
    }
    for (const BookTable menu : MenuTables) {
        const MemoryTable& inBook = session_.book()[menu];
        const std::string_view name = Describe(menu).name;
        const std::shared_ptr<MemoryTable> offered = MemoryTable::WithFieldsOf(name);
        for (std::int32_t row = 1; row <= inBook.RowCount(); ++row) {
            const planview::Variant& number = inBook.Value(row, "PFID");
            const auto command = static_cast<HostCommand>(std::atoi(number.AsText().c_str()));
            const bool enabled = inBook.Value(row, "ENABLED").AsText() == "X" && canDo(command);
            offered->AddRowWith(
                {{"PFID", number}, {"TEXT", inBook.Value(row, "TEXT")}, {"ENABLED", enabled ? "X" : ""}});
        }
        view_.control().SetTable(name, offered);
    }
}

bool HostMenus::canDo(HostCommand command) const {
    switch (command) {
        case HostCommand::Reload:
            return true;
        case HostCommand::AcceptChanges:
        case HostCommand::RevertChanges:
        case HostCommand::ClearPeriod:
        case HostCommand::ClearLine:
        case HostCommand::ClearCell:
            return !session_.isReadOnly() && view_.pendingChanges() > 0;
        default:
            return !session_.isReadOnly();
    }
}

void HostMenus::run(HostCommand command, CellPosition place) {
    if (!session_.isOpen() || !canDo(command) || !view_.finishEditing()) {
        return;
    }
    switch (command) {
        case HostCommand::Reload:
            Q_EMIT reloadWanted();
            break;
        case HostCommand::AcceptChanges:
            session_.acceptChanges();
            break;
        case HostCommand::RevertChanges:
            session_.revertChanges();
            break;
        case HostCommand::CopyPeriod:
            copyPeriod(place.column);
            break;
        case HostCommand::ClearPeriod:
            clear([place](CellPosition cell) { return cell.column == place.column; });
            break;
        case HostCommand::CopyLine:
            copyLine(place.row);
            break;
        case HostCommand::SpreadTotal:
            spreadTotal(place.row);
            break;
        case HostCommand::ClearLine:
            clear([place](CellPosition cell) { return cell.row == place.row; });
            break;
        case HostCommand::CopyValue:
            change("Copy value", CopyValueOn(session_.book(), place),
                   "The following periods hold this value already, or the line cannot be edited.");
            break;
        case HostCommand::ClearCell:
            clear([place](CellPosition cell) { return cell == place; });
            break;
        case HostCommand::RaiseLine:
        case HostCommand::RaiseCells:
            raise();
            break;
    }
}

void HostMenus::change(std::string_view name, const PlanEdits& edits, const QString& nothingChanged) {
    std::vector<planview::ValueChange> changes;
    for (const PlanEdit& edit : edits) {
        changes.push_back(
            {{"COL" + std::to_string(edit.cell.column), "ROW" + std::to_string(edit.cell.row)}, edit.value});
    }
    const planview::ChangeResult result = view_.control().Editing().ChangeValues(changes, name);
    if (result.changed == 0 && result.failed == 0) {
        questions_.tell(nothingChanged);
    }
}

void HostMenus::copyLine(std::int32_t line) {
    std::vector<std::int32_t> targets = EditableLines(session_.book());
    targets.erase(std::remove(targets.begin(), targets.end(), line), targets.end());
    QStringList captions;
    for (const std::int32_t target : targets) {
        captions << captionOf(session_.book(), target);
    }
    if (captions.isEmpty()) {
        questions_.tell("There is no other line that can be edited.");
        return;
    }
    const int chosen = questions_.chooseLine(QString("Copy \"%1\" to").arg(captionOf(session_.book(), line)), captions);
    if (chosen >= 0) {
        const std::int32_t target = targets[static_cast<std::size_t>(chosen)];
        change("Copy line", CopyLine(session_.book(), line, target), "Both lines hold the same values.");
    }
}

void HostMenus::copyPeriod(std::int32_t period) {
    const std::int32_t next = PeriodBehind(session_.book(), period);
    if (next == 0) {
        questions_.tell("There is no period behind this one.");
        return;
    }
    change("Copy period", CopyPeriod(session_.book(), period, next), "The next period holds the same values.");
}

void HostMenus::spreadTotal(std::int32_t line) {
    const std::vector<std::int32_t> lines = EditableLines(session_.book());
    if (std::find(lines.begin(), lines.end(), line) == lines.end()) {
        questions_.tell("This line cannot be edited.");
        return;
    }
    const QString text =
        QString("Total of \"%1\" over all periods that are shown").arg(captionOf(session_.book(), line));
    if (const std::optional<double> total =
            questions_.askNumber(text, TotalOf(session_.book(), line), formatOf(session_.book(), line))) {
        change("Spread total", SpreadTotal(session_.book(), line, *total), "The line has this total already.");
    }
}

void HostMenus::raise() {
    const int cells = view_.selectedCells();
    const QString what = cells == 1 ? view_.currentCellName() : counted(cells, "selected cell");
    if (const std::optional<double> percent = questions_.askPercent("Raise " + what + " by")) {
        view_.raiseSelected(*percent);
    }
}

void HostMenus::clear(const std::function<bool(CellPosition)>& which) {
    change("Clear pending changes", ClearPending(session_.book(), which), "There is no pending change here.");
}

}  // namespace planbook
