// SPDX-License-Identifier: MIT
#include "HostWindow.h"

#include <QSplitter>
#include <QTimer>

using planview::MemoryTable;
using planview::PlanViewWidget;

namespace {

constexpr int Months = 6;
constexpr int Lines = 4;

// The numbers of the host's entries: what PFID holds, and what comes back when one is chosen.
constexpr const char* RaiseValue = "1";
constexpr const char* CopyToTheEnd = "2";
constexpr const char* SetLineToZero = "3";

int cellOf(int line, int month) {
    return (line - 1) * Months + month;
}

}  // namespace

HostWindow::HostWindow() {
    auto* splitter = new QSplitter(Qt::Vertical);
    view_ = new PlanViewWidget;
    events_ = new QListWidget;
    splitter->addWidget(view_);
    splitter->addWidget(events_);
    splitter->setSizes({240, 160});
    setCentralWidget(splitter);
    setWindowTitle("Entries and events of the host");
    resize(760, 420);

    fillTables();
    offerEntries();
    listen();
    view_->DP_Import_PopupMenu();
    view_->DP_Import_Create();
    report("Right-click a cell or the heading of a line: the host's entries stand at the end of the popup.");
}

void HostWindow::fillTables() {
    const auto columns = MemoryTable::WithFieldsOf("COLS_INDEX");
    const auto lines = MemoryTable::WithFieldsOf("LINE_INDEX");
    cells_ = MemoryTable::WithFieldsOf("TAB");
    oldCells_ = MemoryTable::WithFieldsOf("TAB_OLD");
    const char* const months[Months] = {"January", "February", "March", "April", "May", "June"};
    const char* const names[Lines] = {"North", "East", "South", "West"};
    for (int month = 1; month <= Months; ++month) {
        columns->AddRowWith({{"COLUMN", month}, {"PERDY", months[month - 1]}});
    }
    for (int line = 1; line <= Lines; ++line) {
        lines->AddRowWith(
            {{"LINE", line}, {"LTEXT", "F"}, {"FREET", names[line - 1]}, {"ROW_FORMAT", "#,##0"}, {"ROW_FG", 1}});
        for (int month = 1; month <= Months; ++month) {
            cells_->AddRowWith({{"Z", line}, {"C", month}, {"V", 1000.0 * line + 75 * month}});
        }
    }
    view_->PROP_Set_COLS_INDEX(columns);
    view_->PROP_Set_LINE_INDEX(lines);
    view_->PROP_Set_TAB(cells_);
    view_->PROP_Set_TAB_OLD(oldCells_);  // the control keeps the value before each change there
}

void HostWindow::offerEntries() {
    const auto cellMenu = MemoryTable::WithFieldsOf("CELLMENU");
    cellMenu->AddRowWith({{"PFID", RaiseValue}, {"TEXT", "Raise by 10 %"}, {"ENABLED", "X"}});
    cellMenu->AddRowWith({{"PFID", CopyToTheEnd}, {"TEXT", "Copy to the months behind it"}, {"ENABLED", "X"}});
    view_->PROP_Set_CELLMENU(cellMenu);
    const auto rowMenu = MemoryTable::WithFieldsOf("ROWMENU");
    rowMenu->AddRowWith({{"PFID", SetLineToZero}, {"TEXT", "Set the line to 0"}, {"ENABLED", "X"}});
    rowMenu->AddRowWith({{"PFID", "4"}, {"TEXT", "Not yet possible"}, {"ENABLED", ""}});
    view_->PROP_Set_ROWMENU(rowMenu);
}

void HostWindow::listen() {
    connect(
        view_, &PlanViewWidget::GridValueChanged, this,
        [this](short month, const QString&, short line, const QString&, const QVariant& value) {
            report(QString("GridValueChanged: line %1, month %2 is now %3").arg(line).arg(month).arg(value.toString()));
        });
    connect(view_, &PlanViewWidget::GridStartUpdate, this,
            [this] { report("GridStartUpdate: the control has written to the tables"); });
    connect(view_, &PlanViewWidget::GridCellDblClick, this,
            [this](short month, const QString& column, short line, const QString& row) {
                report(QString("GridCellDblClick: %1 %2, line %3, month %4").arg(row, column).arg(line).arg(month));
            });
    connect(view_, &PlanViewWidget::GridPopupMenuPressed, this,
            [this](short popup, const QString& command, short month, const QString&, short line) {
                report(QString("GridPopupMenuPressed: popup %1, entry %2").arg(popup).arg(command));
                // After the event, because the view must not be rebuilt while it raises one.
                QTimer::singleShot(0, this, [this, command, month, line] { runCommand(command, month, line); });
            });
}

void HostWindow::runCommand(const QString& command, short month, short line) {
    if (line < 1) {
        return;  // a fixed row, which this host has none of
    }
    if (command == RaiseValue) {
        put(line, month, cells_->Value(cellOf(line, month), "V").AsDouble() * 1.1);
    } else if (command == CopyToTheEnd) {
        const double value = cells_->Value(cellOf(line, month), "V").AsDouble();
        for (int next = month + 1; next <= Months; ++next) {
            put(line, next, value);
        }
    } else if (command == SetLineToZero) {
        for (int each = 1; each <= Months; ++each) {
            put(line, each, 0);
        }
    }
    view_->DP_Import_Update();
}

void HostWindow::put(int line, int month, double value) {
    cells_->SetValue(cellOf(line, month), "V", value);
}

void HostWindow::report(const QString& text) {
    events_->addItem(text);
    events_->scrollToBottom();
}
