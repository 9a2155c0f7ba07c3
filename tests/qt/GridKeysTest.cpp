// SPDX-License-Identifier: MIT
#include "qt/GridOnScreen.h"

namespace planview {

/// What keys do to the current cell and the selection.
class GridKeysTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void moves_data() {
        QTest::addColumn<bool>("switched");
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<QString>("to");
        const auto row = [](const char* name, bool switched, const char* from, int key, int modifiers, const char* to) {
            QTest::newRow(name) << switched << from << key << modifiers << to;
        };
        const int none = Qt::NoModifier;
        row("right", false, "COL3/ROW4", Qt::Key_Right, none, "COL4/ROW4");
        row("down", false, "COL3/ROW4", Qt::Key_Down, none, "COL3/ROW5");
        row("left into the fixed column", false, "COL1/ROW4", Qt::Key_Left, none, "FLC1/ROW4");
        row("left stops before the labels", false, "FLC1/ROW4", Qt::Key_Left, none, "FLC1/ROW4");
        row("up into the fixed row, not the headings", false, "COL3/FTR1", Qt::Key_Up, none, "COL3/FTR1");
        row("right into the totals", false, "COL20/ROW4", Qt::Key_Right, none, "FRC1/ROW4");
        row("down stops at the last fixed row", false, "COL3/FBR1", Qt::Key_Down, none, "COL3/FBR1");
        row("Enter goes down", false, "COL3/ROW4", Qt::Key_Return, none, "COL3/ROW5");
        row("Shift+Enter goes up", false, "COL3/ROW4", Qt::Key_Return, Qt::ShiftModifier, "COL3/ROW3");
        row("Tab goes right", false, "COL3/ROW4", Qt::Key_Tab, none, "COL4/ROW4");
        row("Tab behind the last column starts the next line", false, "COL20/ROW4", Qt::Key_Tab, none, "COL1/ROW5");
        row("Shift+Tab before the first column ends the line before", false, "COL1/ROW5", Qt::Key_Backtab,
            Qt::ShiftModifier, "COL20/ROW4");
        row("Home", false, "COL3/ROW4", Qt::Key_Home, none, "COL1/ROW4");
        row("End", false, "COL3/ROW4", Qt::Key_End, none, "COL20/ROW4");
        row("Ctrl+Home", false, "COL3/ROW4", Qt::Key_Home, Qt::ControlModifier, "COL1/ROW1");
        row("Ctrl+End", false, "COL3/ROW4", Qt::Key_End, Qt::ControlModifier, "COL20/ROW40");
        row("Page Down by what is wholly visible", false, "COL3/ROW4", Qt::Key_PageDown, none, "COL3/ROW20");
        row("Page Up stops at the first row", false, "COL3/ROW4", Qt::Key_PageUp, none, "COL3/ROW1");
        row("Alt+Page Down goes right", false, "COL3/ROW4", Qt::Key_PageDown, Qt::AltModifier, "COL8/ROW4");
        row("Alt+Page Up goes left", false, "COL3/ROW4", Qt::Key_PageUp, Qt::AltModifier, "COL1/ROW4");
        row("Ctrl+Right to the last filled cell", false, "COL3/ROW4", Qt::Key_Right, Qt::ControlModifier, "COL20/ROW4");
        row("Ctrl+Right before a gap", false, "COL3/ROW6", Qt::Key_Right, Qt::ControlModifier, "COL7/ROW6");
        row("Ctrl+Right over a gap", false, "COL7/ROW6", Qt::Key_Right, Qt::ControlModifier, "COL11/ROW6");
        row("Ctrl+Down out of a gap", false, "COL9/ROW6", Qt::Key_Down, Qt::ControlModifier, "COL9/ROW7");
        row("Ctrl+Up to the edge", false, "COL9/ROW5", Qt::Key_Up, Qt::ControlModifier, "COL9/ROW1");
        row("skips hidden columns", false, "COL14/ROW4", Qt::Key_Right, none, "COL17/ROW4");
        row("switched: right is the next line", true, "COL3/ROW4", Qt::Key_Right, none, "COL3/ROW5");
        row("switched: down is the next column", true, "COL3/ROW4", Qt::Key_Down, none, "COL4/ROW4");
        row("switched: End is the last line", true, "COL3/ROW4", Qt::Key_End, none, "COL3/ROW40");
    }

    /// COL8 to COL10 are empty in ROW6; COL15 and COL16 are hidden.
    void moves() {
        QFETCH(bool, switched);
        QFETCH(QString, from);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(QString, to);
        GridOnScreen screen(switched);
        for (const char* column : {"COL8", "COL9", "COL10"}) {
            screen.set({column, "ROW6"}, GridAttribute::Contents, "");
        }
        screen.set({"COL15", {}}, GridAttribute::Hidden, true);
        screen.set({"COL16", {}}, GridAttribute::Hidden, true);
        const QStringList start = from.split('/');
        screen.view().selectCurrent(screen.cell(start[0].toStdString(), start[1].toStdString()),
                                    SelectionMode::Replace);
        QTest::keyClick(&screen.view(), static_cast<Qt::Key>(key), static_cast<Qt::KeyboardModifiers>(modifiers));
        QCOMPARE(screen.current(), to);
        const QRect seen = screen.view().cellRect(*screen.grid().CurrentCell());
        QVERIFY2(!seen.isEmpty(), "the current cell is out of sight");
        QVERIFY(seen.width() == GridOnScreen::ColumnWidth || seen.width() == GridOnScreen::FixedSize);
    }

    void tabLeavesTheGridBehindTheLastCell() {
        GridOnScreen screen;
        QWidget window;
        auto* next = new QWidget(&window);
        next->setFocusPolicy(Qt::StrongFocus);
        screen.view().setParent(&window);
        QWidget::setTabOrder(&screen.view(), next);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        screen.view().setFocus();
        screen.view().selectCurrent(screen.cell("COL20", "FBR1"), SelectionMode::Replace);
        QTest::keyClick(&screen.view(), Qt::Key_Tab);
        QVERIFY(next->hasFocus());
        screen.view().setParent(nullptr);
    }

    void shiftExtendsTheSelection() {
        GridOnScreen screen;
        screen.view().selectCurrent(screen.cell(3, 4), SelectionMode::Replace);
        QTest::keyClick(&screen.view(), Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(&screen.view(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&screen.view(), Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(screen.grid().Selection().Ranges().size(), std::size_t{1});
        QVERIFY(screen.isSelected("COL3", "ROW4") && screen.isSelected("COL4", "ROW6"));
        QTest::keyClick(&screen.view(), Qt::Key_Up, Qt::ShiftModifier);
        QVERIFY(screen.isSelected("COL4", "ROW5") && !screen.isSelected("COL4", "ROW6"));
        QCOMPARE(screen.current(), QStringLiteral("COL3/ROW4"));
        QTest::keyClick(&screen.view(), Qt::Key_Right);
        QCOMPARE(screen.current(), QStringLiteral("COL4/ROW4"));
        QVERIFY(!screen.isSelected("COL3", "ROW4"));
    }

    /// So that several columns or rows can be marked, hidden and sized without a mouse.
    void shiftExtendsHeadings() {
        for (const bool switched : {false, true}) {
            GridOnScreen screen(switched);
            const auto along = switched ? Qt::Key_Down : Qt::Key_Right;
            const auto across = switched ? Qt::Key_Right : Qt::Key_Down;
            screen.view().selectCurrent(screen.cell(3, 4), SelectionMode::Replace);
            screen.grid().SelectColumn(screen.cell(3, 4).column, SelectionMode::Replace);
            for (const auto key : {along, along, across}) {
                QTest::keyClick(&screen.view(), key, Qt::ShiftModifier);
                QVERIFY(screen.isSelected("COL3", "") && screen.isSelected("COL4", ""));
            }
            QVERIFY(screen.isSelected("COL5", "") && !screen.isSelected("COL6", ""));
            QTest::keyClick(&screen.view(), switched ? Qt::Key_Up : Qt::Key_Left, Qt::ShiftModifier);
            QVERIFY(!screen.isSelected("COL5", "") && screen.isSelected("COL4", ""));
            QCOMPARE(screen.current(), QStringLiteral("COL3/ROW4"));
            screen.grid().SelectRow(screen.cell(3, 4).row, SelectionMode::Replace);
            QTest::keyClick(&screen.view(), across, Qt::ShiftModifier);
            QTest::keyClick(&screen.view(), along, Qt::ShiftModifier);
            QVERIFY(screen.isSelected("", "ROW4") && screen.isSelected("", "ROW5") && !screen.isSelected("", "ROW6"));
            QTest::keyClick(&screen.view(), across);
            QVERIFY(!screen.isSelected("", "ROW4"));
        }
    }

    void everythingAndNothing() {
        GridOnScreen screen;
        screen.view().selectCurrent(screen.cell(3, 4), SelectionMode::Replace);
        QTest::keyClick(&screen.view(), Qt::Key_A, Qt::ControlModifier);
        QVERIFY(screen.isSelected("COL20", "") && screen.isSelected("", "ROW40"));
        QTest::keyClick(&screen.view(), Qt::Key_Escape);
        QVERIFY(screen.grid().Selection().IsEmpty());
        QTest::keyClick(&screen.view(), Qt::Key_Space, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(screen.isSelected("COL20", "") && screen.isSelected("", "ROW40"));
        QTest::keyClick(&screen.view(), Qt::Key_Escape);
        QVERIFY(screen.grid().Selection().IsEmpty());
        QCOMPARE(screen.current(), QStringLiteral("COL3/ROW4"));
    }

    void aKeyThatIsNotTheGridsIsLeftToTheWindow() {
        GridOnScreen screen;
        screen.grid().ClearSelection();
        for (const auto& [key, modifiers] :
             {std::pair(Qt::Key_Escape, Qt::NoModifier), std::pair(Qt::Key_F5, Qt::NoModifier),
              std::pair(Qt::Key_Home, Qt::AltModifier), std::pair(Qt::Key_Tab, Qt::ControlModifier)}) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers);
            QApplication::sendEvent(&screen.view(), &event);
            QVERIFY2(!event.isAccepted(), qPrintable(QKeySequence(key).toString()));
        }
    }

    void anEmptyGridTakesKeys() {
        GridControl grid;
        GridView view(grid);
        view.resize(300, 200);
        view.show();
        for (const int key : {Qt::Key_Right, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_Tab}) {
            QTest::keyClick(&view, static_cast<Qt::Key>(key), Qt::ControlModifier);
            QTest::keyClick(&view, static_cast<Qt::Key>(key));
        }
        QVERIFY(!grid.CurrentCell());
    }
};

}  // namespace planview

QTEST_MAIN(planview::GridKeysTest)
#include "GridKeysTest.moc"
