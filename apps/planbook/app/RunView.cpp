// SPDX-License-Identifier: MIT
#include "app/RunView.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QSaveFile>
#include <QScreen>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include <planview/Trace.h>

#include "app/BookSession.h"
#include "app/HostMessageBoxes.h"
#include "app/MainWindow.h"
#include "app/QtMessages.h"
#include "book/BookError.h"

namespace planbook {

namespace {

constexpr QSize FrameRoom(16, 48);  // for the window's frame on a small screen
constexpr const char* PlatformVariable = "QT_QPA_PLATFORM";

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet(PlatformVariable);
}

/// Whether the user gets a window. Settles what the application object reads from the environment.
bool chooseScreen(const ViewRequest& request) {
    const bool onScreen = hasDisplay() && !request.screenshot;
    if (!onScreen && !request.screenshot && !request.trace) {
        throw BookError(
            "Cannot open a window: there is no display (neither DISPLAY nor WAYLAND_DISPLAY is set). Start planbook on "
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

/// An output must not destroy the book that it is about.
void checkOutput(const std::optional<std::filesystem::path>& output, const ViewRequest& request) {
    std::error_code ignored;
    if (output && request.book && std::filesystem::equivalent(*output, *request.book, ignored)) {
        throw BookError("Cannot write \"" + output->string() + "\": it is the book. Choose another name.");
    }
}

void savePicture(MainWindow& window, const ViewRequest& request) {
    QApplication::processEvents();  // what the window works out a moment later belongs into the picture, too
    const QImage picture = window.grab().toImage();
    const QString name = QString::fromStdString(request.screenshot->string());
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || !picture.save(&file, "PNG") || !file.commit()) {
        throw BookError("Cannot write the picture \"" + request.screenshot->string() +
                        "\": " + file.errorString().toStdString() + ". Check the name and your access to the folder.");
    }
}

void saveTrace(const std::filesystem::path& name) {
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    planview::WriteTraceLog(file);
    file.close();
    if (!file) {
        throw BookError("Cannot write the trace \"" + name.string() +
                        "\". Check the name, your access to the folder and the room on the disk.");
    }
}

}  // namespace

ExitCode RunView(int& argc, char** argv, const ViewRequest& request) {
    checkOutput(request.screenshot, request);
    checkOutput(request.trace, request);
    const bool onScreen = chooseScreen(request);

    qInstallMessageHandler(reportMessage);
    QApplication application(argc, argv);
    applicationRuns = true;
    QApplication::setStyle("Fusion");
    QApplication::setOrganizationName("planbook");  // both name the user's settings
    QApplication::setApplicationName("planbook");
    QApplication::setWindowIcon(QIcon(":/planbook/planbook.svg"));

    HostMessageBoxes messageBoxes;
    MainWindow window(messageBoxes, request.trace.has_value());
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
    if (request.trace) {
        saveTrace(*request.trace);
    }
    // The window has told it.
    return request.book && !onScreen ? TellReport(*request.book, window.session().report()) : ExitCode::Done;
}

}  // namespace planbook
