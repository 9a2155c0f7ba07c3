// SPDX-License-Identifier: MIT
// A host with data of its own: one model, shown by Qt's own table and by PlanView. What is edited in one of them is
// seen in the other. "own_table PICTURE.png" changes a value, writes a picture and ends.

#include <QApplication>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <memory>

#include <planview/MemoryTable.h>
#include <planview/qt/PlanViewWidget.h>

#include "CellsOfModel.h"
#include "SalesModel.h"

using planview::MemoryTable;
using planview::PlanViewWidget;

namespace {

std::string headingOf(const SalesModel& model, int section, Qt::Orientation orientation) {
    return model.headerData(section, orientation, Qt::DisplayRole).toString().toStdString();
}

void show(const SalesModel& model, const std::shared_ptr<CellsOfModel>& cells, PlanViewWidget& view) {
    const auto columns = MemoryTable::WithFieldsOf("COLS_INDEX");
    for (int column = 0; column < model.columnCount(); ++column) {
        columns->AddRowWith({{"COLUMN", column + 1}, {"PERDY", headingOf(model, column, Qt::Horizontal)}});
    }
    const auto lines = MemoryTable::WithFieldsOf("LINE_INDEX");
    for (int row = 0; row < model.rowCount(); ++row) {
        lines->AddRowWith({{"LINE", row + 1},
                           {"LTEXT", "F"},
                           {"FREET", headingOf(model, row, Qt::Vertical)},
                           {"ROW_FORMAT", "#,##0.0"},
                           {"ROW_FG", 1}});
    }
    view.PROP_Set_COLS_INDEX(columns);
    view.PROP_Set_LINE_INDEX(lines);
    view.PROP_Set_TAB(cells);
    view.DP_Import_Create();
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    SalesModel model;  // before the window, so that it outlives the control

    QSplitter window;
    window.setWindowTitle("One model, two views");
    auto* table = new QTableView;
    table->setModel(&model);
    auto* view = new PlanViewWidget;
    window.addWidget(table);
    window.addWidget(view);
    window.setSizes({480, 520});
    window.resize(1000, 260);
    const auto cells = std::make_shared<CellsOfModel>(model);
    show(model, cells, *view);

    // The control shows its own changes already; those of others it learns by an update, one for many of them.
    QTimer update;
    update.setSingleShot(true);
    QObject::connect(&update, &QTimer::timeout, view, [view] { view->DP_Import_Update(); });
    QObject::connect(&model, &SalesModel::dataChanged, &update, [&update, cells] {
        if (!cells->isWriting()) {
            update.start(0);
        }
    });

    if (argc > 1) {
        model.setData(model.index(1, 2), 999.5, Qt::EditRole);
        QApplication::processEvents();
        return window.grab().save(argv[1]) ? 0 : 1;
    }
    window.show();
    return QApplication::exec();
}
