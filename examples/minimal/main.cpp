// SPDX-License-Identifier: MIT
// The smallest host: a plan of two lines and three months in a window. "minimal PICTURE.png" writes a picture instead.

#include <QApplication>

#include <planview/MemoryTable.h>
#include <planview/qt/PlanViewWidget.h>

using planview::MemoryTable;

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);

    // A column per month, a row per line, a cell per value.
    const auto columns = MemoryTable::WithFieldsOf("COLS_INDEX");
    const auto lines = MemoryTable::WithFieldsOf("LINE_INDEX");
    const auto cells = MemoryTable::WithFieldsOf("TAB");
    const char* const months[] = {"January", "February", "March"};
    const char* const names[] = {"Sales", "Costs"};
    const double values[2][3] = {{1250.5, 1310, 1402.25}, {980, 1015.75, 990}};
    for (int month = 1; month <= 3; ++month) {
        columns->AddRowWith({{"COLUMN", month}, {"PERDY", months[month - 1]}});
    }
    for (int line = 1; line <= 2; ++line) {
        lines->AddRowWith({{"LINE", line},
                           {"LTEXT", "F"},  // the label is in FREET
                           {"FREET", names[line - 1]},
                           {"ROW_FORMAT", "#,##0.00"},
                           {"ROW_FG", 1}});  // black on 0, white
        for (int month = 1; month <= 3; ++month) {
            cells->AddRowWith({{"Z", line}, {"C", month}, {"V", values[line - 1][month - 1]}});
        }
    }

    planview::PlanViewWidget view;
    view.PROP_Set_COLS_INDEX(columns);
    view.PROP_Set_LINE_INDEX(lines);
    view.PROP_Set_TAB(cells);
    view.DP_Import_Create();
    view.resize(520, 160);
    if (argc > 1) {
        return view.grab().save(argv[1]) ? 0 : 1;
    }
    view.show();
    return QApplication::exec();
}
