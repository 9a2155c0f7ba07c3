#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QTimer>

#include "contract/PlatformContract.h"
#include "qt/platform/QtClipboard.h"
#include "qt/platform/QtForms.h"
#include "qt/platform/QtMessageBoxes.h"
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
    test::CheckForms(forms, frmTrace::Instance(), CloseWindow);
    frmTrace::End();
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
