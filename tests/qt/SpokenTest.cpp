// SPDX-License-Identifier: MIT
#include "qt/ChartOnScreen.h"
#include "qt/Spoken.h"
#include "qt/WidgetOnScreen.h"

namespace planview {

using Screen = WidgetOnScreen;

/// What the view tells those who do not see it, event by event.
class SpokenTest : public QObject {
    Q_OBJECT

    static QAccessibleInterface* cellAt(Screen& screen, int row, int column) {
        return QAccessible::queryAccessibleInterface(&screen.view())->tableInterface()->cellAt(row, column);
    }

private slots:
    void initTestCase() { useTestFont(); }

    void keysMoveTheFocusAndTellTheSelection() {
        Screen screen;
        screen.goTo(QStringLiteral("COL1/ROW1"));
        QCoreApplication::processEvents();
        const Spoken spoken;
        Screen::press(QStringLiteral("<Right>"));
        QCOMPARE(Spoken::of(QStringLiteral("focus")), QStringLiteral("12"));
        Screen::press(QStringLiteral("<Shift+Down>"));
        QCOMPARE(Spoken::of(QStringLiteral("focus")), QStringLiteral("22"));  // the far end, as in Qt's own tables
        Screen::press(QStringLiteral("<Shift+Right>"));
        QCOMPARE(Spoken::of(QStringLiteral("selected")), QStringLiteral("13; 23"));
        Screen::press(QStringLiteral("<Right>"));
        QCOMPARE(Spoken::of(QStringLiteral("deselected")), QStringLiteral("12; 22; 23"));
    }

    void notices_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("notice");
        const auto row = [](const char* name, const char* from, const char* keys, const char* notice) {
            QTest::newRow(name) << from << keys << notice;
        };
        row("a refusal", "COL1/ROW4", "7", "This cell is read-only.");
        row("what is selected", "COL1/ROW1", "<Shift+Right>", "2 cells, sum 23");
        row("moving on says nothing more", "COL1/ROW1", "<Right>", "");
        row("an entry says nothing more", "COL1/ROW1", "5<Enter>", "");
    }

    void notices() {
        QFETCH(QString, from);
        QFETCH(QString, keys);
        QFETCH(QString, notice);
        Screen screen;
        screen.goTo(from);
        QCoreApplication::processEvents();
        const Spoken spoken;
        Screen::press(keys);
        QVERIFY2(Spoken::of(QStringLiteral("notice")).startsWith(notice) || notice.isEmpty(), "not told");
        if (notice.isEmpty()) {
            QCOMPARE(Spoken::of(QStringLiteral("notice")), QString());
        }
    }

    void whatCommandsHaveDoneIsTold() {
        Screen screen;
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("<Shift+Right>"));
        QCoreApplication::processEvents();
        const Spoken spoken;
        screen.widget->run(Command::DeleteContents);
        QVERIFY(Spoken::of(QStringLiteral("notice")).startsWith(QStringLiteral("2 cells emptied")));
        screen.widget->run(Command::Undo);
        QVERIFY(Spoken::of(QStringLiteral("notice")).startsWith(QStringLiteral("2 cells undone")));
        screen.widget->announce(QStringLiteral("Hello"));
        screen.widget->announce(QStringLiteral("Hello"));
        QCOMPARE(Spoken::of(QStringLiteral("notice")), QStringLiteral("Hello; Hello"));
    }

    void aChangedValueIsAnEventOnItsCell() {
        Screen screen;
        screen.goTo(QStringLiteral("COL1/ROW1"));
        const Spoken spoken;
        QVERIFY(cellAt(screen, 0, 0) && cellAt(screen, 1, 1));
        Screen::press(QStringLiteral("77<Enter>"));
        QCOMPARE(Spoken::of(QStringLiteral("renamed")), QStringLiteral("77"));
        screen.widget->run(Command::Undo);
        QCOMPARE(Spoken::of(QStringLiteral("renamed")), QStringLiteral("11"));
    }

    void theCellIsToldAgainWhenTheFocusComesBack() {
        Screen screen;
        screen.goTo(QStringLiteral("COL2/ROW3"));
        const Spoken spoken;
        Screen::press(QStringLiteral("<F2><Esc>"));
        QVERIFY(Spoken::of(QStringLiteral("focus")).endsWith(QStringLiteral("32")));
        QFocusEvent fromPopup(QEvent::FocusIn, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(&screen.view(), &fromPopup);
        QVERIFY(Spoken::of(QStringLiteral("focus")).endsWith(QStringLiteral("32")));
    }

    void descriptionsAreForPeople() {
        Screen screen;
        GridControl& grid = screen.grid();
        const auto set = [&grid](const char* column, const char* row, const char* text) {
            GridOnScreen::require(
                grid.SetAttribute(GridElement::Cell, {column, row}, GridAttribute::Contents, text, true));
        };
        set("FLC0", "ROW1", "   indented");
        set("FLC0", "ROW2", "");
        set("FRC1", "ROW1", "46");
        GridOnScreen::require(
            grid.SetAttribute(GridElement::Column, {"FRC1", {}}, GridAttribute::ReadOnly, true, true));
        Screen::press(QStringLiteral("5<Enter>"));
        QCoreApplication::processEvents();
        screen.widget->refreshPendingChanges();
        const auto description = [&](int row, int column) {
            return cellAt(screen, row, column)->text(QAccessible::Description);
        };
        QCOMPARE(description(0, 0), QStringLiteral("indented, Month 1, changed"));
        QCOMPARE(description(0, 1), QStringLiteral("indented, Month 2"));
        QCOMPARE(description(1, 1), QStringLiteral("Month 2"));
        QVERIFY(description(0, 4).endsWith(QStringLiteral("computed")));
        screen.goTo(QStringLiteral("COL1/ROW2"));
        QVERIFY(!screen.widget->currentCellName().contains(QStringLiteral("ROW")));
        const QAccessibleInterface* label = cellAt(screen, 0, 0)->tableCellInterface()->rowHeaderCells().value(0);
        QCOMPARE(label->text(QAccessible::Name), QStringLiteral("indented"));
    }

    void theChartHasSeriesAndPoints() {
        ChartOnScreen screen;
        QCoreApplication::processEvents();
        const Spoken spoken;
        QAccessibleInterface* chart = QAccessible::queryAccessibleInterface(&screen.view());
        QCOMPARE(chart->childCount(), 3);
        QAccessibleInterface* series = chart->child(1);
        QCOMPARE(series->text(QAccessible::Name), QStringLiteral("Manufacturing"));
        QCOMPARE(series->childCount(), 11);
        QCOMPARE(series->parent(), chart);
        QCOMPARE(chart->indexOfChild(series), 1);
        QAccessibleInterface* point = series->child(2);
        QCOMPARE(point->text(QAccessible::Name), QStringLiteral("Manufacturing, Mar 08"));
        QCOMPARE(point->text(QAccessible::Value), QStringLiteral("13.659,0"));
        QVERIFY(point->valueInterface());
        QCOMPARE(point->valueInterface()->currentValue().toDouble(), 13659.0);
        QCOMPARE(series->indexOfChild(point), 2);
        QCOMPARE(point->parent(), series);
        point->valueInterface()->setCurrentValue(13000);
        QCOMPARE(screen.heard(), QStringLiteral("value 2/3=13000"));
        QTest::keyClick(&screen.view(), Qt::Key_Right);
        QTest::keyClick(&screen.view(), Qt::Key_Down);
        QCOMPARE(Spoken::of(QStringLiteral("focus")), QStringLiteral("Construction, Jan 08; Manufacturing, Jan 08"));
        QVERIFY(series->child(0)->state().focused);
        QCOMPARE(chart->focusChild(), series->child(0));
        ChartState changed = SampleChart(ChartType::Column);
        changed.series[1].values[0] = 13800;
        screen.log.onValue = [&] { screen.fill(changed); };
        Spoken::of(QString());
        QTest::keyClick(&screen.view(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(Spoken::of(QStringLiteral("value")), QStringLiteral("Manufacturing, Jan 08=13.800,0"));
    }

    void aRefusedPointIsTold() {
        ChartOnScreen screen;
        screen.log.readOnlySeries = 1;
        const Spoken spoken;
        QTest::keyClick(&screen.view(), Qt::Key_Right);
        QTest::keyClick(&screen.view(), Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(Spoken::of(QStringLiteral("notice")), QStringLiteral("This value cannot be changed"));
    }
};

}  // namespace planview

QTEST_MAIN(planview::SpokenTest)
#include "SpokenTest.moc"
