// SPDX-License-Identifier: MIT
#include "qt/WidgetOnScreen.h"

namespace planview {

using Screen = WidgetOnScreen;

/// What the widget tells its host of the selection and of pending changes.
class StatusTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void summary_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("summary");  // name, cells, sum, mean
        const auto row = [](const char* name, const char* from, const char* keys, const char* summary) {
            QTest::newRow(name) << from << keys << summary;
        };
        row("one cell", "COL2/ROW3", "", "Line 3 \u00B7 Month 2; 1; 32; 32");
        row("a block", "COL1/ROW1", "<Shift+Right><Shift+Down>", "Line 1 \u00B7 Month 1; 4; 66; 16,5");
        row("cells without numbers count as cells", "COL4/ROW4", "<Shift+Down>", "Line 4 \u00B7 Month 4; 2; 44; 44");
        row("nothing to add up", "COL4/ROW5", "", "Line 5 \u00B7 Month 4; 1; ; ");
        row("groups and decimals", "COL1/ROW1", "123456,25<Tab>", "Line 1 \u00B7 Month 2; 1; 12; 12");
    }

    void summary() {
        QFETCH(QString, from);
        QFETCH(QString, keys);
        QFETCH(QString, summary);
        Screen screen;
        const QSignalSpy spy(screen.widget.get(), &PlanViewWidget::selectionSummaryChanged);
        screen.goTo(from);
        Screen::press(keys);
        const auto shown = [&screen] {
            const PlanViewWidget& widget = *screen.widget;
            return QStringList{widget.currentCellName(), QString::number(widget.selectedCells()), widget.selectionSum(),
                               widget.selectionMean()}
                .join(QLatin1String("; "));
        };
        QCOMPARE(shown(), summary);
        QTRY_VERIFY(!spy.isEmpty());
    }

    void sumsAreShownAsTheGridShowsNumbers() {
        Screen screen;
        screen.goTo(QStringLiteral("COL1/ROW1"));
        Screen::press(QStringLiteral("123456,25<Enter>0,1<Enter>0,2<Enter><Up><Up><Shift+Down>"));
        QCOMPARE(screen.widget->selectionSum(), QStringLiteral("0,3"));
        screen.goTo(QStringLiteral("COL1/ROW1"));
        QCOMPARE(screen.widget->selectionSum(), QStringLiteral("123.456,25"));
    }

    void pendingChangesAreMarkedUntilTheyAreAccepted() {
        Screen screen;
        const QSignalSpy spy(screen.widget.get(), &PlanViewWidget::pendingChangesChanged);
        const auto corner = [&screen](const char* place) {
            const QRect cell = screen.view().cellRect(screen.cell(QString::fromLatin1(place)));
            const QImage picture = screen.port()->grab().toImage().convertToFormat(QImage::Format_RGB32);
            const double ratio = picture.devicePixelRatio();
            const QRectF area((cell.right() - 5) * ratio, (cell.top() + 1) * ratio, 4 * ratio, 3 * ratio);
            return countColor(picture, area.toRect(), GridTheme::light().accent) > 4;
        };
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("5<Enter>6<Enter>"));
        QCOMPARE(screen.widget->pendingChanges(), 2);
        QTRY_VERIFY(!spy.isEmpty() && spy.last().at(0).toInt() == 2);
        screen.goTo(QStringLiteral("COL4/ROW1"));
        QVERIFY(corner("COL2/ROW2") && corner("COL2/ROW3"));
        QVERIFY(!corner("COL1/ROW2") && !corner("COL3/ROW3"));
        screen.widget->undo();
        QCOMPARE(screen.widget->pendingChanges(), 1);
        QVERIFY2(!corner("COL2/ROW3"), "the old value again is no change");
        screen.tables.tabOld->Clear();
        screen.widget->refreshPendingChanges();
        QCOMPARE(screen.widget->pendingChanges(), 0);
        QVERIFY(!corner("COL2/ROW2"));
        QCOMPARE(spy.last().at(0).toInt(), 0);
        screen.tables.tabOld->AddRow({1, 3, 99});
        screen.widget->DP_Import_Update();
        QCOMPARE(screen.widget->pendingChanges(), 1);
        QVERIFY(corner("COL3/ROW1"));
    }

    void aHostThatDeletesTheWidgetWhenItHearsOfAChange() {
        Screen screen;
        QObject::connect(screen.widget.get(), &PlanViewWidget::pendingChangesChanged, qApp,
                         [&screen] { screen.widget.reset(); });
        screen.goTo(QStringLiteral("COL2/ROW2"));
        Screen::press(QStringLiteral("5<Enter>"));
        QTRY_VERIFY(!screen.widget);
    }
};

}  // namespace planview

QTEST_MAIN(planview::StatusTest)
#include "StatusTest.moc"
