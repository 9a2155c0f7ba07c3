// SPDX-License-Identifier: MIT
// A host with menu entries of its own that listens to the control's events. "own_menu PICTURE.png" changes two cells,
// as a user and as the host, writes a picture and ends.

#include <QApplication>

#include "HostWindow.h"

namespace {

bool showChanges(HostWindow& window, const QString& picture) {
    auto* view = window.findChild<planview::PlanViewWidget*>();
    const auto* events = window.findChild<QListWidget*>();
    view->selectCell("COL2", "ROW3");
    view->deleteContents();
    const bool heard = !events->findItems("GridValueChanged: line 3, month 2", Qt::MatchStartsWith).isEmpty();
    window.runCommand("1", 1, 4);
    return heard && window.grab().save(picture);
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    HostWindow window;
    if (argc > 1) {
        return showChanges(window, argv[1]) ? 0 : 1;
    }
    window.show();
    return QApplication::exec();
}
