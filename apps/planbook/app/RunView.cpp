// SPDX-License-Identifier: MIT
#include "app/RunView.h"

#include <QApplication>
#include <QBuffer>
#include <QByteArray>
#include <QIcon>
#include <QImage>
#include <QScreen>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <ostream>
#include <string>

#include "app/BookSession.h"
#include "app/HostMessageBoxes.h"
#include "app/MainWindow.h"
#include "app/OutputFile.h"
#include "app/QtMessages.h"
#include "book/BookError.h"

namespace planbook {

namespace {

constexpr QSize FrameRoom(16, 48);  // for the window's frame on a small screen
constexpr const char* PlatformVariable = "QT_QPA_PLATFORM";

bool hasDisplay() {
    const QByteArray name = qgetenv(PlatformVariable).split(':').first();
    if (name == "offscreen" || name == "minimal") {
        return false;  // nobody could close the window
    }
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet(PlatformVariable);
}

/// Whether the user gets a window. Settles what the application object reads from the environment.
bool chooseScreen(const ViewRequest& request) {
    const bool onScreen = hasDisplay() && !request.screenshot;
    if (!onScreen && !request.screenshot && !request.trace) {
        throw BookError(
            "Cannot open a window: there is no display (neither DISPLAY nor WAYLAND_DISPLAY is set, or QT_QPA_PLATFORM "
            "names a platform without one). Start planbook on "
            "a desktop, or write a picture: planbook --screenshot PICTURE.png BOOK");
    }
    if (!onScreen && !qEnvironmentVariableIsSet(PlatformVariable)) {
        qputenv(PlatformVariable, "offscreen");
    }
    if (request.screenshot) {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(request.scale));
    }
    return onScreen;
}

bool applicationRuns = false;

/// Writes Qt's own messages. A display that does not answer makes Qt end the process; the user is told in planbook's
/// words then.
void reportMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtFatalMsg && !applicationRuns) {
        std::fputs(
            "planbook: Cannot open a window: the display cannot be used, the lines above say why. Check DISPLAY, or "
            "write a picture: planbook --screenshot PICTURE.png BOOK\n",
            stderr);
        std::fflush(nullptr);
        std::_Exit(static_cast<int>(ExitCode::Failed));
    }
    writeQtMessage(type, context, text);
}

void savePicture(MainWindow& window, const ViewRequest& request) {
    QApplication::processEvents();  // what the window works out a moment later belongs into the picture, too
    const QImage picture = window.grab().toImage();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "PNG")) {
        throw BookError("The picture \"" + request.screenshot->string() + "\" could not be made.");
    }
    WriteOutput(*request.screenshot, [&](std::ostream& file) { file.write(bytes.constData(), bytes.size()); });
}

/// Has the window show the book until it is closed, or be the picture that was asked for.
void show(MainWindow& window, HostMessageBoxes& messageBoxes, const ViewRequest& request, bool onScreen) {
    window.setScheme(request.scheme);
    // A picture is as large as was asked for; a window is no larger than the screen.
    window.resize(onScreen ? request.size.boundedTo(window.screen()->availableSize() - FrameRoom) : request.size);
    if (request.book) {
        window.openBook(*request.book);
    }
    if (request.screenshot) {
        savePicture(window, request);
    } else if (onScreen) {
        messageBoxes.setParent(&window);
        window.show();
        QApplication::exec();
        messageBoxes.setParent(nullptr);
    }
}

}  // namespace

ExitCode RunView(int& argc, char** argv, const ViewRequest& request) {
    for (const std::optional<std::filesystem::path>& output : {request.screenshot, request.trace}) {
        if (output) {
            CheckOutput(*output);
        }
    }
    const bool onScreen = chooseScreen(request);

    qInstallMessageHandler(reportMessage);
    QApplication application(argc, argv);
    applicationRuns = true;
    QApplication::setStyle("Fusion");
    QApplication::setOrganizationName("planbook");  // both name the user's settings
    QApplication::setApplicationName("planbook");
    QApplication::setWindowIcon(QIcon(":/planbook/planbook.svg"));

    HostMessageBoxes messageBoxes;
    std::unique_ptr<MainWindow> window;  // its end is no part of the trace
    const auto run = [&] {
        window = std::make_unique<MainWindow>(messageBoxes, request.trace.has_value());
        show(*window, messageBoxes, request, onScreen);
    };
    if (request.trace) {
        WriteTraceOf(*request.trace, run);
    } else {
        run();
    }
    // The window has told it.
    return request.book && !onScreen ? TellReport(*request.book, window->session().report()) : ExitCode::Done;
}

}  // namespace planbook
