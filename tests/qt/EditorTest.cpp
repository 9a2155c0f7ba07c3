// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QVBoxLayout>

#include "qt/WidgetOnScreen.h"

namespace planview {

using Screen = WidgetOnScreen;

/// Entering values with keys and mouse, from the key to the host's tables.
class EditorTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void entries_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("contents");
        QTest::addColumn<QString>("tab");
        QTest::addColumn<QString>("heard");
        QTest::addColumn<QString>("current");
        const auto row = [](const char* name, const char* keys, const char* contents, const char* tab,
                            const char* heard, const char* current) {
            QTest::newRow(name) << keys << contents << tab << heard << current;
        };
        row("typing overwrites, Enter goes down", "7,5<Enter>", "7,5", "2,2=7,5", "COL2/ROW2=7,5 return", "COL2/ROW3");
        row("a point is as good", "7.5<Enter>", "7,5", "2,2=7.5", "COL2/ROW2=7.5 return", "COL2/ROW3");
        row("Shift+Enter goes up", "8<Shift+Enter>", "8", "2,2=8", "COL2/ROW2=8 return", "COL2/ROW1");
        row("Tab goes right", "8<Tab>", "8", "2,2=8", "COL2/ROW2=8", "COL3/ROW2");
        row("Shift+Tab goes left", "8<Shift+Tab>", "8", "2,2=8", "COL2/ROW2=8", "COL1/ROW2");
        row("an arrow ends what was typed", "8<Left>", "8", "2,2=8", "COL2/ROW2=8", "COL1/ROW2");
        row("F2 changes what stands there", "<F2><Left>9<Enter>", "292", "2,2=292", "COL2/ROW2=292 return",
            "COL2/ROW3");
        row("F2 lets the arrows move in what was typed", "13<F2><Left>2<Enter>", "123", "2,2=123",
            "COL2/ROW2=123 return", "COL2/ROW3");
        row("up and down stay in an edited text", "<F2><Up><Down>1<Enter>", "221", "2,2=221", "COL2/ROW2=221 return",
            "COL2/ROW3");
        row("Esc gives up", "9<Esc>", "22", "", "", "COL2/ROW2");
        row("Esc gives a refused text up", "x<Enter><Esc>", "22", "", "", "COL2/ROW2");
        row("Enter without a change tells of Return alone", "<F2><Enter>", "22", "", "return", "COL2/ROW3");
        row("Enter without an entry too", "<Enter>", "22", "", "return", "COL2/ROW3");
        row("Backspace empties", "<Backspace><Enter>", "", "2,2=", "COL2/ROW2= return", "COL2/ROW3");
        row("a blank is nothing", " <Enter>", "", "2,2=", "COL2/ROW2= return", "COL2/ROW3");
        row("Delete empties at once", "<Delete>", "", "2,2=", "COL2/ROW2=", "COL2/ROW2");
        row("a refused text can be mended", "1x<Enter><Backspace>2<Enter>", "12", "2,2=12", "COL2/ROW2=12 return",
            "COL2/ROW3");
        row("undo goes back to the cell", "5<Enter><Ctrl+Z>", "22", "", "COL2/ROW2=5 return COL2/ROW2=22", "COL2/ROW2");
        row("redo", "5<Enter><Ctrl+Z><Ctrl+Y>", "5", "2,2=5", "COL2/ROW2=5 return COL2/ROW2=22 COL2/ROW2=5",
            "COL2/ROW2");
        row("redo by its other key", "5<Enter><Ctrl+Z><Ctrl+Shift+Z>", "5", "2,2=5",
            "COL2/ROW2=5 return COL2/ROW2=22 COL2/ROW2=5", "COL2/ROW2");
        row("undo in the entry is about the entry", "<F2>1<Ctrl+Z><Enter>", "22", "", "return", "COL2/ROW3");
        row("the other reading is one key away, once", "136.000<Enter><Ctrl+M><Ctrl+M>", "136000", "2,2=136000",
            "COL2/ROW2=136.000 return COL2/ROW2=136000", "COL2/ROW3");
        row("per cent and brackets", "50%<Enter><Up>(5)<Enter>", "-5", "2,2=-5",
            "COL2/ROW2=0,5 return COL2/ROW2=-5 return", "COL2/ROW3");
        row("copy and paste", "<Ctrl+C><Right><Ctrl+V>", "22", "2,3=22", "COL3/ROW2=22", "COL3/ROW2");
        row("cut", "<Ctrl+X>", "", "2,2=", "COL2/ROW2=", "COL2/ROW2");
    }

    void entries() {
        QFETCH(QString, keys);
        QFETCH(QString, contents);
        QFETCH(QString, tab);
        QFETCH(QString, heard);
        QFETCH(QString, current);
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(keys);
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW2")), contents);
        QCOMPARE(screen.rows(screen.tables.tab), tab);
        QCOMPARE(screen.heard.join(' '), heard);
        QCOMPARE(screen.current(), current);
        QVERIFY(!screen.editor());
        QVERIFY(screen.view().hasFocus());
    }

    void whatIsNoNumberStaysUntilItIsMended() {
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("12a<Enter>"));
        QVERIFY(screen.editor());
        QCOMPARE(screen.editor()->text(), QStringLiteral("12a"));
        QVERIFY(screen.editor()->hasFocus());
        QVERIFY(screen.view().editor().message().contains(QStringLiteral("not a number")));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(QStringLiteral("COL4/ROW1")));
        QCOMPARE(screen.current(), QStringLiteral("COL2/ROW2"));
        QVERIFY2(screen.editor() && screen.editor()->hasFocus(), "a click elsewhere does not throw the text away");
        QVERIFY(!screen.widget->finishEditing());
        Screen::press(QStringLiteral("<Backspace>"));
        QVERIFY2(screen.view().editor().message().isEmpty(), "the message goes with the first change");
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(QStringLiteral("COL4/ROW1")));
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("2,2=12"));
        QCOMPARE(screen.current(), QStringLiteral("COL4/ROW1"));
    }

    void aGuessedNumberIsToldBesideItsCell() {
        Screen screen;
        for (const bool byMouse : {false, true}) {
            screen.goTo(QStringLiteral("COL2/ROW2"));
            Screen::press(QStringLiteral("136.000"));
            if (byMouse) {
                QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier,
                                  screen.middle(QStringLiteral("COL4/ROW1")));
            } else {
                Screen::press(QStringLiteral("<Enter>"));
            }
            QVERIFY(!screen.editor());
            QCOMPARE(screen.view().editor().message(), QStringLiteral("Taken as 136. Ctrl+M takes it as 136.000."));
            Screen::press(QStringLiteral("<Ctrl+M>"));
            QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("2,2=136000"));
            QVERIFY(screen.view().editor().message().isEmpty());
        }
    }

    void cellsThatCannotBeEditedSayWhy_data() {
        QTest::addColumn<QString>("place");
        QTest::addColumn<QString>("message");
        QTest::newRow("read-only line") << "COL2/ROW4"
                                        << "read-only";
        QTest::newRow("text line") << "COL2/ROW5"
                                   << "carries text";
    }

    void cellsThatCannotBeEditedSayWhy() {
        QFETCH(QString, place);
        QFETCH(QString, message);
        Screen screen;
        QApplication::clipboard()->setText(QStringLiteral("5"));
        for (const char* keys : {"5", "<F2>", "<Backspace>", "<Delete>", "<Ctrl+V>"}) {
            screen.goTo(place);
            Screen::press(QString::fromLatin1(keys));
            QVERIFY2(!screen.editor(), keys);
            QVERIFY2(screen.view().editor().message().contains(message), keys);
            Screen::press(QStringLiteral("<Left>"));
            QVERIFY2(screen.view().editor().message().isEmpty(), "the message goes when the user goes on");
        }
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(place));
        QVERIFY(!screen.editor());
        QVERIFY(screen.view().editor().message().contains(message));
        QCOMPARE(screen.rows(screen.tables.tab), QString());
        QVERIFY2(screen.platform.messages.empty(), "no box for a single cell");
    }

    void aReadOnlyViewTakesNothing() {
        Screen screen;
        screen.widget->setReadOnly(true);
        screen.widget->DP_Import_Update();
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("5"));
        QVERIFY(!screen.editor());
        QVERIFY(screen.view().editor().message().contains(QStringLiteral("reading only")));
        screen.widget->setReadOnly(false);
        Screen::press(QStringLiteral("5<Enter>"));
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("2,2=5"));
    }

    void undoComesIntoSight() {
        Screen screen;
        screen.widget->resize(420, 150);
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("5<Enter>"));
        screen.goTo(QStringLiteral("COL4/ROW5"));
        const QRect port = screen.port()->rect();
        QVERIFY(!port.contains(screen.view().cellRect(screen.cell(QStringLiteral("COL1/ROW1")))) ||
                screen.view().cellRect(screen.cell(QStringLiteral("COL1/ROW1"))).isEmpty());
        Screen::press(QStringLiteral("<Ctrl+Z>"));
        const QRect cell = screen.view().cellRect(screen.cell(QStringLiteral("COL1/ROW1")));
        QVERIFY(!cell.isEmpty() && port.contains(cell));
    }

    void aDoubleClickEditsAndTellsTheHost() {
        Screen screen;
        const QSignalSpy clicks(screen.widget.get(), &PlanViewWidget::GridCellDblClick);
        const QPoint place = screen.middle(QStringLiteral("COL3/ROW1"));
        QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, place);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(clicks[0][1].toString(), QStringLiteral("COL3"));
        QVERIFY(screen.editor());
        QCOMPARE(screen.editor()->text(), QStringLiteral("13"));
        Screen::press(QStringLiteral("0<Tab>"));
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,3=130"));
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(QStringLiteral("FLC0/ROW2")));
        QCOMPARE(clicks.size(), 2);
        QVERIFY2(!screen.editor(), "headings are not edited");
    }

    void textsOfAnInputMethodStartAnEntry() {
        Screen screen;
        screen.goTo(QStringLiteral("COL1/ROW1"));
        QInputMethodEvent preedit(QStringLiteral("4"), {});
        QApplication::sendEvent(&screen.view(), &preedit);
        QVERIFY(screen.editor());
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("42"));
        QApplication::sendEvent(QApplication::focusWidget(), &commit);
        Screen::press(QStringLiteral("<Enter>"));
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,1=42"));
        screen.goTo(QStringLiteral("COL1/ROW4"));
        QApplication::sendEvent(&screen.view(), &commit);
        QVERIFY(!screen.editor());
    }

    void leavingTheGridFinishesTheEntry() {
        Screen screen;
        QLineEdit other;
        auto* window = new QWidget;
        auto* layout = new QVBoxLayout(window);
        layout->addWidget(screen.widget.get());
        layout->addWidget(&other);
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        screen.view().setFocus();
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("77"));
        other.setFocus();
        QVERIFY(other.hasFocus());
        QVERIFY(!screen.editor());
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,1=77"));
        screen.view().setFocus();
        Screen::press(QStringLiteral("7x"));
        other.setFocus();
        QVERIFY2(other.hasFocus(), "the user may go on elsewhere");
        QVERIFY(screen.editor());
        screen.view().setFocus();
        Screen::press(QStringLiteral("<Backspace><Tab>"));
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,1=7"));
        screen.widget->setParent(nullptr);
        other.setParent(nullptr);
        delete window;
    }

    void scrollingAwayFinishesTheEntryAndKeepsARefusedOne() {
        Screen screen;
        screen.widget->resize(500, 100);
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("5"));
        screen.view().scrollBy(0, 4);
        QTRY_VERIFY(!screen.editor());
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,1=5"));
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("5y"));
        screen.view().scrollBy(0, 4);
        QTRY_VERIFY(!screen.editor() || !screen.editor()->isVisible());
        QVERIFY(screen.editor());
        QVERIFY(screen.view().hasFocus());
        Screen::press(QStringLiteral("<Backspace>"));
        QVERIFY2(screen.editor()->isVisible(), "a key brings it back into sight");
        Screen::press(QStringLiteral("6<Enter>"));
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,1=56"));
    }

    void aRebuildMeanwhileGivesTheEntryUp() {
        Screen screen;
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("5"));
        screen.widget->DP_Import_Update();
        QVERIFY(!screen.editor());
        QVERIFY(screen.view().hasFocus());
        QCOMPARE(screen.rows(screen.tables.tab), QString());
        // From inside the double click that would open it.
        QObject::connect(screen.widget.get(), &PlanViewWidget::GridCellDblClick, screen.widget.get(),
                         [&screen] { screen.widget->DP_Import_Create(); });
        QTest::mouseDClick(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(QStringLiteral("COL3/ROW1")));
        QVERIFY(!screen.editor());
    }

    void theHostMayDeleteTheWidgetFromInsideAnEntry_data() {
        QTest::addColumn<QString>("keys");
        QTest::newRow("value") << "5<Enter>";
        QTest::newRow("Return alone") << "<Enter>";
        QTest::newRow("Tab") << "5<Tab>";
        QTest::newRow("Delete") << "<Delete>";
    }

    void theHostMayDeleteTheWidgetFromInsideAnEntry() {
        QFETCH(QString, keys);
        Screen screen;
        screen.goTo(QStringLiteral("COL1/ROW1"));
        const auto end = [&screen] { screen.widget.reset(); };
        QObject::connect(screen.widget.get(), &PlanViewWidget::GridValueChanged, qApp, end);
        QObject::connect(screen.widget.get(), &PlanViewWidget::GridReturnKeyPressed, qApp, end);
        Screen::press(keys);
        QVERIFY(!screen.widget);
    }

    void pastesWhatASpreadsheetCopies() {
        Screen screen;
        auto* data = new QMimeData;
        data->setHtml(
            QStringLiteral("<html><body><table><tr><td sdval=\"1234.5\">1.234,5</td><td>2</td></tr>"
                           "<tr><td>3</td><td>x</td></tr></table></body></html>"));
        QApplication::clipboard()->setMimeData(data);
        screen.goTo(QStringLiteral("COL2/ROW1"));
        Screen::press(QStringLiteral("<Ctrl+V>"));
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,2=1234,5 1,3=2 2,2=3"));
        QCOMPARE(screen.contents(QStringLiteral("COL2/ROW1")), QStringLiteral("1234,5"));
        QCOMPARE(screen.heard, QStringList{QStringLiteral("update")});
        QCOMPARE(screen.platform.messages.size(), std::size_t{1});
        QVERIFY(screen.platform.messages[0].text.find("1 cell left alone") != std::string::npos);
        Screen::press(QStringLiteral("<Ctrl+Z>"));
        QCOMPARE(screen.rows(screen.tables.tab), QString());
    }

    /// One undo step, and the same refusals as for a paste.
    void whatIsDroppedIsPasted() {
        Screen screen;
        QMimeData data;
        data.setText(QStringLiteral("1,5\t2\n3\tx\n"));
        const QPoint place = screen.middle(QStringLiteral("COL2/ROW1"));
        const auto drop = [&] {
            QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(screen.port(), &enter);
            QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(screen.port(), &event);
        };
        drop();
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,2=1,5 1,3=2 2,2=3"));
        QCOMPARE(screen.heard, QStringList{QStringLiteral("update")});
        QVERIFY(screen.platform.messages.at(0).text.find("1 cell left alone") != std::string::npos);
        Screen::press(QStringLiteral("<Ctrl+Z>"));
        QCOMPARE(screen.rows(screen.tables.tab), QString());
        screen.widget->setReadOnly(true);
        drop();
        QCOMPARE(screen.rows(screen.tables.tab), QString());
    }

    void theTraceWindowOpensOnlyAfterItsKeyWasArmed() {
        Screen screen;
        const auto shown = [&screen] {
            const std::vector<std::string>& calls = screen.platform.formCalls;
            return std::count(calls.begin(), calls.end(), "show frmTrace");
        };
        screen.widget->plv_EnableTrace();
        Screen::press(QStringLiteral("<Ctrl+D>"));
        QCOMPARE(shown(), 0);
        Screen::press(QStringLiteral("<Ctrl+Alt+D><Ctrl+D>"));
        QCOMPARE(shown(), 1);
        screen.platform.answer = MessageAnswer::No;
        screen.widget->plv_DisableTrace();
    }

    void commandsOfTheHostsMenus() {
        Screen screen;
        PlanViewWidget& widget = *screen.widget;
        const QSignalSpy undoSpy(&widget, &PlanViewWidget::undoAvailable);
        const QSignalSpy redoSpy(&widget, &PlanViewWidget::redoAvailable);
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("5"));
        widget.undo();
        QVERIFY2(screen.editor() && screen.editor()->text().isEmpty(), "while an entry is open it is about the entry");
        Screen::press(QStringLiteral("5<Enter>"));
        QVERIFY(widget.canUndo() && !widget.canRedo());
        QTRY_COMPARE(undoSpy.size(), 1);
        QMetaObject::invokeMethod(&widget, "undo");
        QVERIFY(!widget.canUndo() && widget.canRedo());
        QTRY_COMPARE(redoSpy.size(), 1);
        QMetaObject::invokeMethod(&widget, "redo");
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,1=5"));
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("<Shift+Right>"));
        QMetaObject::invokeMethod(&widget, "fill");
        QCOMPARE(screen.rows(screen.tables.tab), QStringLiteral("1,1=5 1,2=5"));
    }

    void theEditorFitsItsCell_data() {
        QTest::addColumn<double>("scale");
        QTest::newRow("100 %") << 1.0;
        QTest::newRow("200 %") << 2.0;
        QTest::newRow("300 %") << 3.0;
    }

    void theEditorFitsItsCell() {
        QFETCH(double, scale);
        Screen screen;
        screen.widget->setTextScale(scale);
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("1"));
        const QRect cell = screen.view().cellRect(screen.cell(QStringLiteral("COL2/ROW2")));
        QCOMPARE(screen.editor()->geometry(), cell.adjusted(-1, -1, 0, 0));
        QVERIFY2(screen.editor()->fontMetrics().height() <= screen.editor()->height(), "the text is cut");
        QVERIFY(screen.editor()->alignment().testFlag(Qt::AlignRight));
        Screen::press(QStringLiteral("23456789012345678"));
        const QRect grown = screen.editor()->geometry();
        QVERIFY2(grown.width() > cell.width() && grown.right() == cell.right(), "a long entry grows to the left");
        screen.widget->setTextScale(scale / 2);
        QVERIFY(screen.editor()->geometry() != grown);
        QVERIFY(
            screen.editor()->geometry().intersects(screen.view().cellRect(screen.cell(QStringLiteral("COL2/ROW2")))));
    }

    void goingIntoTheEditorIsNoChangeOfFocus() {
        GridOnScreen screen;
        screen.log().events.clear();
        screen.view().selectCurrent(screen.cell(2, 2), SelectionMode::Replace);
        Screen::press(QStringLiteral("5<Enter>6<Esc>"));
        for (const std::string& event : screen.log().events) {
            QVERIFY2(event.rfind("Focus", 0) != 0, event.c_str());
        }
        QCOMPARE(screen.log().actions,
                 (std::vector<std::string>{"TextEntered COL2/ROW2 5", "KeyPress 13", "StayCell"}));
    }

    void clicksAreReported() {
        GridOnScreen screen;
        const auto click = [&](Qt::MouseButton button, Qt::KeyboardModifiers modifiers, const Cell& cell) {
            screen.log().actions.clear();
            QTest::mouseClick(screen.port(), button, modifiers, screen.middle(cell));
            return screen.log().actions;
        };
        using Log = std::vector<std::string>;
        QCOMPARE(click(Qt::LeftButton, Qt::NoModifier, screen.cell(2, 2)),
                 (Log{"MouseDown COL2/ROW2 1 0", "SimpleClick COL2/ROW2"}));
        QCOMPARE(click(Qt::LeftButton, Qt::NoModifier, screen.cell("FLC0", "ROW3")),
                 (Log{"MouseDown FLC0/ROW3 1 0", "SimpleClick FLC0/ROW3"}));
        QCOMPARE(click(Qt::LeftButton, Qt::ShiftModifier, screen.cell(4, 4)), Log{"MouseDown COL4/ROW4 1 1"});
        QCOMPARE(click(Qt::LeftButton, Qt::ControlModifier, screen.cell(1, 6)), Log{"MouseDown COL1/ROW6 1 2"});
        QCOMPARE(click(Qt::RightButton, Qt::NoModifier, screen.cell(3, 3)), Log{"MouseDown COL3/ROW3 2 0"});
        screen.log().actions.clear();
        QTest::mousePress(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(1, 1)));
        QTest::mouseMove(screen.port(), screen.middle(screen.cell(2, 2)));
        QTest::mouseRelease(screen.port(), Qt::LeftButton, Qt::NoModifier, screen.middle(screen.cell(2, 2)));
        QCOMPARE(screen.log().actions, Log{"MouseDown COL1/ROW1 1 0"});
    }
};

}  // namespace planview

QTEST_MAIN(planview::EditorTest)
#include "EditorTest.moc"
