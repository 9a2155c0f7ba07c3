// SPDX-License-Identifier: MIT
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QWheelEvent>
#include <set>

#include "qt/ChartOnScreen.h"

namespace planview {

class ChartMouseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestFont(); }
    void clickSelects();
    void rightClickLeavesSelectingToItsListener();
    void draggedPointTakesSnappedValue_data();
    void draggedPointTakesSnappedValue();
    void bubblesOfSharesTellThem();
    void pointOfNoHeightCanBeTaken();
    void stackedPointChangesItsOwnValue();
    void dragBeyondTheAxisGoesOn();
    void escapeEndsTheDrag();
    void nothingMovesThatMayNot();
    void wheelScrollsCategories();
    void altDragsTheChart();
    void dropsAreNamed();
    void viewMayGoInsideAnEvent_data();
    void viewMayGoInsideAnEvent();
};

namespace {

void drag(ChartOnScreen& screen, QPoint from, QPoint to) {
    QTest::mousePress(screen.port(), Qt::LeftButton, {}, from);
    moveMouse(screen.port(), (from + to) / 2, Qt::LeftButton);
    moveMouse(screen.port(), to, Qt::LeftButton);
}

void release(ChartOnScreen& screen, QPoint at) {
    QTest::mouseRelease(screen.port(), Qt::LeftButton, {}, at);
}

ChartState withFormat(ChartState state, const char* format) {
    for (ChartSeries& series : state.series) {
        series.format = format;
    }
    return state;
}

double modulo(double value, double step) {
    return std::abs(value / step - std::round(value / step));
}

}  // namespace

void ChartMouseTest::clickSelects() {
    ChartOnScreen screen(SampleChart(ChartType::Line));
    QTest::mouseClick(screen.port(), Qt::LeftButton, {}, screen.grip(2, 3));
    QCOMPARE(screen.heard(), QStringLiteral("down 1 0 8, select 8 2/3"));
    // Between two points of a line lies the series.
    const QPoint between = (screen.grip(3, 4) + screen.grip(3, 5)) / 2;
    QTest::mouseClick(screen.port(), Qt::LeftButton, Qt::ControlModifier, between);
    QCOMPARE(screen.heard(), QStringLiteral("down 1 2 7, select 7 3/0"));
    // The names stand at the ends of their lines, the lowest last.
    const QPoint legend = screen.view().layout().legend().entries().back().rect.center().toPoint();
    QTest::mouseClick(screen.port(), Qt::LeftButton, {}, legend);
    QCOMPARE(screen.heard(), QStringLiteral("down 1 0 7, select 7 1/0"));
    QCOMPARE(screen.chart.State().selected.series, 1);
}

void ChartMouseTest::rightClickLeavesSelectingToItsListener() {
    ChartState state = SampleChart(ChartType::Column);
    ChartOnScreen screen(state);
    Late(screen.chart.Object()).Get("Chart").Get("SeriesCollection", 1).Get("Trendlines").Call("Add");
    const auto trend = screen.view().layout().plot().Trend(1, 1);
    // Between two columns, where nothing but the trend line lies.
    const QPoint gap((screen.grip(3, 4).x() + screen.grip(1, 5).x()) / 2,
                     qRound((trend[0].front().y + trend[0].back().y) / 2));
    QCOMPARE(screen.view().hitTest(gap).code, ChartHitCode::Trendline);
    QTest::mouseClick(screen.port(), Qt::RightButton, {}, gap);
    QCOMPARE(screen.heard(), QStringLiteral("down 2 0 26"));
}

void ChartMouseTest::draggedPointTakesSnappedValue_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<double>("step");
    QTest::addColumn<double>("freeStep");
    QTest::newRow("columns, tenths") << int(ChartType::Column) << QByteArray("#,##0.0") << 100.0 << 0.1;
    QTest::newRow("lines, whole") << int(ChartType::Line) << QByteArray("0") << 100.0 << 1.0;
    QTest::newRow("percent") << int(ChartType::Line) << QByteArray("0%") << 100.0 << 0.01;
    QTest::newRow("no format: what a pixel can reach") << int(ChartType::Column) << QByteArray("") << 100.0 << 10.0;
}

void ChartMouseTest::draggedPointTakesSnappedValue() {
    QFETCH(int, type);
    QFETCH(QByteArray, format);
    QFETCH(double, step);
    ChartOnScreen screen(withFormat(SampleChart(static_cast<ChartType>(type)), format.constData()));
    const QPoint from = screen.grip(2, 6);
    const QPoint to(from.x(), screen.heightOf(12000, 2));
    drag(screen, from, to);
    QVERIFY(screen.view().moved());
    const double value = screen.view().moved()->to();
    // The hand may be half a pixel beside the point.
    QVERIFY2(std::abs(value - 12000) < 110, qPrintable(QString::number(value)));
    QVERIFY2(modulo(value, step) < 1e-6, qPrintable(QString::number(value, 'g', 15)));
    const ChartSeries& series = screen.chart.State().series[1];
    QCOMPARE(screen.view().bubbleText(),
             "Manufacturing, Jun 08\n" + valueText(series, 13504) + " → " + valueText(series, value));
    QCOMPARE(screen.chart.State().series[1].values[5], 13504.0);
    // Shift lets the hand move freely; each pixel is another value then.
    QFETCH(double, freeStep);
    std::set<double> free;
    for (int pixel = 0; pixel < 5; ++pixel) {
        moveMouse(screen.port(), to - QPoint(0, pixel), Qt::LeftButton, Qt::ShiftModifier);
        free.insert(screen.view().moved()->to());
        QVERIFY(modulo(*free.rbegin(), freeStep) < 1e-6);
    }
    QCOMPARE(static_cast<int>(free.size()), 5);
    moveMouse(screen.port(), to, Qt::LeftButton);
    QCOMPARE(screen.view().moved()->to(), value);
    screen.heard();
    release(screen, to);
    QCOMPARE(screen.heard(), QStringLiteral("value 2/6=%1").arg(value, 0, 'g', 15));
    QVERIFY(!screen.view().moved());
}

void ChartMouseTest::bubblesOfSharesTellThem() {
    ChartState state = SampleChart(ChartType::StackedColumn100);
    state.series[0].values[5] = state.series[2].values[5] = 1000;
    state.series[1].values[5] = 2000;
    ChartOnScreen screen(state);
    moveMouse(screen.port(), screen.grip(2, 6) + QPoint(0, 12));
    QCOMPARE(screen.view().bubbleText(), QStringLiteral("Manufacturing, Jun 08\n2.000,0 (50,0%)"));
    const QPoint from = screen.grip(2, 6) + QPoint(0, 12);
    drag(screen, from, from - QPoint(0, 40));
    const double value = screen.view().moved()->to();
    QVERIFY(value > 2000);
    QVERIFY2(screen.view().bubbleText().endsWith(shareText(value / (value + 2000), 1) + ')'),
             qPrintable(screen.view().bubbleText()));
}

void ChartMouseTest::pointOfNoHeightCanBeTaken() {
    ChartState state = SampleChart(ChartType::Column);
    state.series[0].values[2] = 0;
    state.series[1].values[2] = -4000;
    ChartOnScreen screen(state);
    for (const int series : {1, 2}) {
        const QPoint from = screen.grip(series, 3);
        const ChartHit expected{ChartHitCode::Point, series, 3};
        QVERIFY(screen.view().hitTest(from) == expected);
        const QPoint to(from.x(), screen.heightOf(5000, series));
        drag(screen, from, to);
        QVERIFY(screen.view().moved());
        QVERIFY(std::abs(screen.view().moved()->to() - 5000) < 120);
        QTest::keyClick(&screen.view(), Qt::Key_Escape);
        release(screen, to);
    }
}

void ChartMouseTest::stackedPointChangesItsOwnValue() {
    ChartOnScreen screen(SampleChart(ChartType::StackedColumn));
    // Within the column: where two of a stack meet, it is the other one's.
    const QPoint from = screen.grip(2, 6) + QPoint(0, 12);
    // The second stands on the first: its end is the sum of both.
    const QPoint to(from.x(), screen.heightOf(7213 + 9000, 2) + 12);
    drag(screen, from, to);
    QVERIFY(screen.view().moved());
    QVERIFY2(std::abs(screen.view().moved()->to() - 9000) < 150,
             qPrintable(QString::number(screen.view().moved()->to())));
}

void ChartMouseTest::dragBeyondTheAxisGoesOn() {
    ChartOnScreen screen(SampleChart(ChartType::Line));
    const QPoint from = screen.grip(3, 6);
    const double top = screen.view().layout().plot().Values().maximum;
    const QPoint to(from.x(), 2);
    drag(screen, from, to);
    QVERIFY(screen.view().moved()->to() > top);
    QCOMPARE(screen.view().moved()->plot().Values().maximum, top);
}

void ChartMouseTest::escapeEndsTheDrag() {
    ChartOnScreen screen;
    const QImage before = (QTest::mouseClick(screen.port(), Qt::LeftButton, {}, screen.grip(1, 2)), screen.picture());
    const QPoint from = screen.grip(1, 2);
    drag(screen, from, from - QPoint(0, 80));
    QVERIFY(screen.picture() != before);
    screen.heard();
    QTest::keyClick(&screen.view(), Qt::Key_Escape);
    release(screen, from - QPoint(0, 80));
    QCOMPARE(screen.heard(), QString());
    QVERIFY(screen.picture() == before);
}

void ChartMouseTest::nothingMovesThatMayNot() {
    ChartOnScreen screen;
    screen.log.readOnlySeries = 1;
    moveMouse(screen.port(), screen.grip(1, 2));
    QCOMPARE(screen.port()->cursor().shape(), Qt::ArrowCursor);
    moveMouse(screen.port(), screen.grip(2, 2));
    QCOMPARE(screen.port()->cursor().shape(), Qt::SizeVerCursor);
    const QPoint from = screen.grip(1, 2);
    drag(screen, from, from - QPoint(0, 80));
    QVERIFY(!screen.view().moved());
    QVERIFY(screen.view().bubbleText().contains("cannot be changed"));
    moveMouse(screen.port(), from - QPoint(0, 90), Qt::LeftButton);
    QVERIFY(screen.view().bubbleText().contains("cannot be changed"));
    release(screen, from - QPoint(0, 80));
    moveMouse(screen.port(), QPoint(2, 2));
    QCOMPARE(screen.view().bubbleText(), QString());

    Late(screen.chart.Object()).Put("AllowValueChange", false);
    const QPoint other = screen.grip(2, 2);
    drag(screen, other, other - QPoint(0, 80));
    QVERIFY(!screen.view().moved());
    release(screen, other - QPoint(0, 80));
    QVERIFY(!screen.heard().contains("value"));
}

void ChartMouseTest::wheelScrollsCategories() {
    ChartOnScreen screen;
    const Late axis = Late(screen.chart.Object()).Get("Chart").Get("Axes", 1, 0);
    axis.Put("VisibleCategories", 4);
    QVERIFY(!screen.view().horizontalScrollBar()->isVisible());
    axis.Put("VisibleCategoriesIsAuto", true);
    QTRY_VERIFY(screen.view().horizontalScrollBar()->isVisible());
    const auto turn = [&](int notches) {
        const QPointF at(screen.port()->rect().center());
        QWheelEvent event(at, screen.port()->mapToGlobal(at), {}, QPoint(notches * 120, 0), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(screen.port(), &event);
    };
    turn(-2);
    QCOMPARE(screen.chart.State().FirstVisible(), 3);
    QCOMPARE(screen.view().horizontalScrollBar()->value(), 2);
    turn(-99);
    QCOMPARE(screen.chart.State().FirstVisible(), 8);
    screen.view().horizontalScrollBar()->setValue(0);
    QCOMPARE(screen.chart.State().FirstVisible(), 1);
    QVERIFY(screen.view().pointRect(1, 5).isEmpty());
    QVERIFY(!screen.view().pointRect(1, 4).isEmpty());
}

void ChartMouseTest::altDragsTheChart() {
    ChartOnScreen screen;
    int drags = 0;
    screen.view().setDragRunner([&](QDrag& drag) {
        ++drags;
        QVERIFY(drag.mimeData()->hasImage());
        QVERIFY(!drag.pixmap().isNull());
    });
    const QPoint from = screen.grip(1, 2);
    QTest::mousePress(screen.port(), Qt::LeftButton, Qt::AltModifier, from);
    QCOMPARE(screen.heard(), QStringLiteral("down 1 4 8"));
    moveMouse(screen.port(), from + QPoint(60, 60), Qt::LeftButton);
    moveMouse(screen.port(), from + QPoint(80, 60), Qt::LeftButton);
    QCOMPARE(drags, 1);
    QVERIFY(!screen.view().moved());
}

void ChartMouseTest::dropsAreNamed() {
    ChartOnScreen screen;
    QMimeData data;
    data.setText("x");
    // Without a source it comes from another program.
    QDragEnterEvent strange(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    strange.ignore();
    QApplication::sendEvent(screen.port(), &strange);
    QVERIFY(!strange.isAccepted());
    QCOMPARE(screen.heard(), QString());
}

void ChartMouseTest::viewMayGoInsideAnEvent_data() {
    QTest::addColumn<QString>("when");
    QTest::newRow("press") << "press";
    QTest::newRow("select") << "select";
    QTest::newRow("value") << "value";
}

void ChartMouseTest::viewMayGoInsideAnEvent() {
    QFETCH(QString, when);
    ChartOnScreen screen;
    const auto end = [&] { screen.deleteView(); };
    const QPoint from = screen.grip(1, 2);
    const QPoint to = from - QPoint(0, 60);
    QWidget* port = screen.port();
    if (when == "press") {
        screen.log.onPress = end;
        QTest::mousePress(port, Qt::LeftButton, {}, from);
    } else if (when == "select") {
        screen.log.onSelect = end;
        QTest::mousePress(port, Qt::LeftButton, {}, from);
    } else {
        screen.log.onValue = end;
        drag(screen, from, to);
        QTest::mouseRelease(port, Qt::LeftButton, {}, to);
    }
    QVERIFY(!screen.log.heard.isEmpty());
}

}  // namespace planview

QTEST_MAIN(planview::ChartMouseTest)
#include "ChartMouseTest.moc"
