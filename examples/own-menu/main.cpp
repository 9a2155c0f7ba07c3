// A host with menu entries of its own that listens to the control's events. "own_menu PICTURE.png" lets the control raise the
// events of a chosen entry, writes a picture and ends.

#include <QApplication>

#include "HostWindow.h"

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    HostWindow window;
    if (argc > 1) {
        window.runCommand("1", 2, 3);
        return window.grab().save(argv[1]) ? 0 : 1;
    }
    window.show();
    return QApplication::exec();
}
