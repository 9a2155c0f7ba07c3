// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTimer>

#include "contract/PlatformContract.h"
#include "dialogs/frmGrid.h"
#include "dialogs/frmRow.h"
#include "qt/platform/QtClipboard.h"
#include "qt/platform/QtFileDialogs.h"
#include "qt/platform/QtForms.h"
#include "qt/platform/QtMessageBoxes.h"
#include "qt/platform/QtPopups.h"
#include "qt/platform/QtProgress.h"
#include "qt/platform/QtSystemInformation.h"
#include "trace/frmTrace.h"

namespace planview {

namespace {

constexpr int SoonMilliseconds = 20;

/// Does something to the window that is waiting for the user, as soon as there is one.
template <class Act>
void WhenModal(Act act) {
    QTimer::singleShot(SoonMilliseconds, qApp, [act] {
        if (QWidget* window = QApplication::activeModalWidget()) {
            act(*window);
        } else {
            WhenModal(act);
        }
    });
}

void PressReturn() {
    WhenModal([](QWidget& window) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(&window, &press);
    });
}

void CloseWindow() {
    WhenModal([](QWidget& window) { window.close(); });
}

QAction* FindAction(const QMenu& menu, const QString& name) {
    for (QAction* action : menu.actions()) {
        if (QAction* found = action->menu() ? FindAction(*action->menu(), name) : nullptr) {
            return found;
        }
        if (action->data().toString() == name && !name.isEmpty()) {
            return action;
        }
    }
    return nullptr;
}

/// Chooses an entry as the keyboard does: Return on the entry that has the focus, which a disabled one cannot have.
void ChooseFromPopup(const std::string& name) {
    QTimer::singleShot(SoonMilliseconds, qApp, [name] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) {
            return;
        }
        QAction* action = FindAction(*menu, QString::fromStdString(name));
        if (!action || !action->isEnabled()) {
            menu->close();
            return;
        }
        for (auto* below = qobject_cast<QMenu*>(action->parent()); below != menu;
             below = qobject_cast<QMenu*>(below->parent())) {
            qobject_cast<QMenu*>(below->parent())->setActiveAction(below->menuAction());
        }
        auto* owner = qobject_cast<QMenu*>(action->parent());
        owner->setActiveAction(action);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(owner, &press);
    });
}

void PutOnClipboard(const QString& text, const QString& html) {
    auto* data = new QMimeData;
    if (!text.isNull()) {
        data->setText(text);
    }
    data->setHtml(html);
    QApplication::clipboard()->setMimeData(data);
}

}  // namespace

TEST(PlatformContract, Qt) {
    QWidget control;
    QtMessageBoxes boxes(control);
    QtForms forms(control);
    QtClipboard clipboard;
    test::CheckSystemInformation(QtSystemInformation());
    test::CheckClipboard(clipboard);
    test::CheckMessageBoxes(boxes, PressReturn);
    test::CheckForms(forms, *frmTrace::Share(), CloseWindow);
    QtPopups popups(control);
    test::CheckPopups(popups, true, ChooseFromPopup);
    frmTrace::End(*frmTrace::Share());
    frmGrid options(forms, nullptr);
    test::CheckForms(forms, options, CloseWindow);
    frmRow row(forms, boxes, nullptr);
    test::CheckForms(forms, row, CloseWindow);
}

TEST(QtFileDialogs, AnswerTheFileWithItsExtension) {
    QWidget control;
    QtFileDialogs dialogs(control);
    const QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    const FileDialogRequest request{"Save plan", path, "Pl\xC3\xA4ne 2025", "Excel workbook", {"xlsx", "xlsm"}};
    QString title;
    WhenModal([&](QWidget& window) {
        title = window.windowTitle();
        QMetaObject::invokeMethod(&window, "accept");
    });
    EXPECT_EQ(dialogs.Save(request), path + "/Pl\xC3\xA4ne 2025.xlsx");
    EXPECT_EQ(title, "Save plan");
    CloseWindow();
    EXPECT_EQ(dialogs.Save(request), "") << "cancelled";
    CloseWindow();
    EXPECT_EQ(dialogs.Open(request), "") << "cancelled";
}

TEST(QtProgress, CanBeCancelledByTheUser) {
    QWidget control;
    QtProgress progress(control);
    test::CheckProgress(progress, false);
    progress.Begin("Writing the workbook", 100);
    EXPECT_TRUE(progress.Advance(1));
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QProgressDialog*>(window)) {
            EXPECT_EQ(dialog->labelText(), "Writing the workbook");
            dialog->cancel();
        }
    }
    EXPECT_FALSE(progress.Advance(2));
    progress.End();
    auto host = std::make_unique<QWidget>();
    QtProgress orphan(*host);
    orphan.Begin("Writing the workbook", 100);
    host.reset();
    EXPECT_FALSE(orphan.Advance(2)) << "the window went while it was writing";
    orphan.End();
}

TEST(QtClipboard, ReadsTheTextAndElseTheCellsOfATable) {
    const QString table = QStringLiteral(
        "<html><body><p>Before</p><table><tr><td sdval=\"1234.5\">1.234,5</td><td><b>two</b></td></tr>"
        "<tr><td></td><td>a\tb<br>c</td></tr></table></body></html>");
    QtClipboard clipboard;
    PutOnClipboard(QStringLiteral("plain"), table);
    EXPECT_EQ(clipboard.Get().text, "plain");
    PutOnClipboard(QString(), table);
    EXPECT_EQ(clipboard.Get().text, "1.234,5\ttwo\n\t\"a b\nc\"\n");
    PutOnClipboard(QString(), QStringLiteral("<p>no table <b>here</b></p>"));
    EXPECT_EQ(clipboard.Get().text, "no table here");
}

}  // namespace planview

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
