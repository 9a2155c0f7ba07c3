// SPDX-License-Identifier: MIT
// planbook_kill_child BOOK SEED EDITS: edits a book in a real window of planbook and reports on standard output the
// number of each edit when the handlers of its events have returned. For KillTest, which kills it.
#include <QApplication>
#include <cstdlib>

#include <unistd.h>

#include <planview/qt/PlanViewWidget.h>

#include "app/HostMessageBoxes.h"
#include "app/MainWindow.h"
#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "planbook/KillScript.h"

namespace {

using planview::Cell;
using planview::GridControl;
using planview::PlanViewWidget;

Cell cellAt(const GridControl& grid, int line, int period) {
    const std::string column = "COL" + std::to_string(period);
    const std::string row = "ROW" + std::to_string(line);
    return grid.FindCell({column, row}).value();
}

void run(PlanViewWidget& view, const KillEdit& edit) {
    GridControl& grid = planview::ControlParts(view.control()).Grid();
    const Cell first = cellAt(grid, edit.line, edit.period);
    if (edit.kind == KillEdit::Kind::Type) {
        grid.EnterText(first, edit.value);
        return;
    }
    grid.SelectCell(first, planview::SelectionMode::Replace);
    grid.SelectCell(cellAt(grid, edit.line + KillBlockSide - 1, edit.period + KillBlockSide - 1),
                    planview::SelectionMode::Extend);
    view.deleteContents();
}

void report(int number) {
    const std::string line = std::to_string(number) + "\n";
    if (write(STDOUT_FILENO, line.data(), line.size()) < 0) {
        std::_Exit(EXIT_FAILURE);
    }
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    planbook::HostMessageBoxes messageBoxes;
    planbook::MainWindow window(messageBoxes, false);
    window.openBook(argv[1]);
    int number = 0;
    // After the window's own handlers, because these are connected later.
    QObject::connect(&window.view(), &PlanViewWidget::GridValueChanged, [&] {
        if (!window.view().isAnnouncingSeveral()) {
            report(number);
        }
    });
    QObject::connect(&window.view(), &PlanViewWidget::severalValuesAnnounced, [&] { report(number); });
    QObject::connect(&window.view(), &PlanViewWidget::GridStartUpdate, [&] { report(number); });
    for (const KillEdit& edit : KillScript(static_cast<unsigned>(std::atoi(argv[2])), std::atoi(argv[3]))) {
        ++number;
        run(window.view(), edit);
        QApplication::processEvents();
    }
    return EXIT_SUCCESS;
}
