// SPDX-License-Identifier: MIT
#include <QClipboard>
#include <QTemporaryDir>

#include "qt/ChartOnScreen.h"
#include "qt/WidgetOnScreen.h"

namespace planview {

/// The chart as a pane of the whole control: what is done in it reaches the host's tables, and back.
class ChartPaneTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestFont(); }
    void rowsInTheChartCarryDots();
    void dotsFollowTheLinesIntoTheSwitchedView();
    void linesOfTheForecastCarryLetters();
    void draggedPointReachesTheTable();
    void readOnlyRowStaysAsItIs();
    void clickedPointIsTheCurrentCell();
    void undoneFromTheChart();
    void picturesForOthers();
    void followsThemeAndScale();
};

namespace {

/// The second, third and fourth of the lines as a chart below the grid.
class Screen : public WidgetOnScreen {
public:
    Screen() : WidgetOnScreen(false) {
        tables.gridAttr->SetValue(1, "CHART", "X");
        for (const int line : {2, 3, 4}) {
            tables.lineIndex->SetValue(line, "SHOW_CHART", "X");
            tables.lineIndex->SetValue(line, "ROW_FORMAT", "0.0");
        }
        widget->resize(900, 700);
        widget->DP_Import_Attribute();
        widget->DP_Import_Create();
        QApplication::processEvents();
    }
    [[nodiscard]] ChartView& chart() { return *widget->findChild<ChartView*>(); }
    [[nodiscard]] QPoint grip(int series, int category) {
        const ChartPoint point = chart().layout().plot().Point(series, category);
        return QPointF(point.x, point.y).toPoint();
    }
    /// Drags a point to where another value stands.
    void drag(int series, int category, double value) {
        const QPoint from = grip(series, category);
        const QPoint to(from.x(), qRound(chart().layout().plot().YOf(value, series)));
        QWidget* port = chart().viewport();
        QTest::mousePress(port, Qt::LeftButton, {}, from);
        moveMouse(port, (from + to) / 2, Qt::LeftButton);
        moveMouse(port, to, Qt::LeftButton);
        QTest::mouseRelease(port, Qt::LeftButton, {}, to);
    }
};

}  // namespace

void ChartPaneTest::rowsInTheChartCarryDots() {
    Screen screen;
    const QRgb heading = GridTheme::light().heading;
    const auto hasDot = [&](const QString& row) {
        const QImage picture = screen.port()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRect label = screen.view().cellRect(screen.cell("FLC0/" + row));
        const QRectF place(label.left() + 4, label.top() + 3, 13, label.height() - 6);
        const qreal ratio = picture.devicePixelRatio();
        return countInk(picture, QRectF(place.topLeft() * ratio, place.size() * ratio).toRect(), heading) > 12;
    };
    QVERIFY(!hasDot("ROW1"));
    QVERIFY(hasDot("ROW2"));
    QVERIFY(hasDot("ROW4"));
    const RowDots& dots = screen.view().rowDots();
    QCOMPARE(dots.at("ROW3").color, ChartColors(screen.chart().chart().State(), GridTheme::light()).series(2));
    screen.widget->control().View().SwitchChart();
    QVERIFY(!hasDot("ROW2"));
}

/// There the lines stand in columns, whose headings carry the dots and letters.
void ChartPaneTest::dotsFollowTheLinesIntoTheSwitchedView() {
    Screen screen;
    screen.tables.gridAttr->SetValue(1, "SWITCHED", "X");
    screen.widget->DP_Import_Attribute();
    screen.widget->DP_Import_Create();
    QApplication::processEvents();
    const auto dotOf = [&](const QString& row, QRgb color) {
        const QImage picture = screen.port()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRect label = screen.view().cellRect(screen.cell("FLC0/" + row));
        const qreal ratio = picture.devicePixelRatio();
        const QRectF place(label.left() + 1, label.top() + 1, 17, label.height() - 3);
        return countColor(picture, QRectF(place.topLeft() * ratio, place.size() * ratio).toRect(), color);
    };
    const ChartColors colors(screen.chart().chart().State(), GridTheme::light());
    QVERIFY(dotOf("ROW2", colors.series(1)) > 12);
    QVERIFY(dotOf("ROW4", colors.series(3)) > 12);
    QCOMPARE(dotOf("ROW1", colors.series(1)), 0);
    screen.platform.choices = {"mnuForecast1"};
    QTest::mouseClick(screen.chart().viewport(), Qt::RightButton, {}, QPoint(5, 5));
    const int before = dotOf("ROW1", GridTheme::light().muted);
    QTest::mouseClick(screen.port(), Qt::LeftButton, {}, screen.middle(QStringLiteral("FLC0/ROW1")));
    QCOMPARE(screen.view().rowDots().at("ROW1").letter, QChar('S'));
    QVERIFY(dotOf("ROW1", GridTheme::light().muted) > before + 50);
}

void ChartPaneTest::linesOfTheForecastCarryLetters() {
    Screen screen;
    const auto letterOf = [&](const char* row) {
        const auto dot = screen.view().rowDots().find(row);
        return dot == screen.view().rowDots().end() ? QChar() : dot->second.letter;
    };
    screen.platform.choices = {"mnuForecast1"};
    QTest::mouseClick(screen.chart().viewport(), Qt::RightButton, {}, QPoint(5, 5));
    QTest::mouseClick(screen.port(), Qt::LeftButton, {}, screen.middle(QStringLiteral("FLC0/ROW3")));
    QCOMPARE(letterOf("ROW3"), QChar('S'));  // before there is anything to draw
    QTest::mouseClick(screen.port(), Qt::LeftButton, {}, screen.middle(QStringLiteral("FLC0/ROW2")));
    QCOMPARE(letterOf("ROW3"), QChar('S'));
    QCOMPARE(letterOf("ROW2"), QChar('F'));
    QCOMPARE(screen.chart().chart().State().SeriesCount(), 2);
    screen.widget->leaveForecastView();
    QCOMPARE(letterOf("ROW3"), QChar());
    QCOMPARE(screen.chart().chart().State().SeriesCount(), 3);
}

void ChartPaneTest::draggedPointReachesTheTable() {
    Screen screen;
    screen.drag(2, 3, 20);
    const double value = screen.chart().chart().State().series[1].values[2];
    QVERIFY2(std::abs(value - 20) < 0.6, qPrintable(QString::number(value)));
    const QString text = QString::number(value).replace('.', ',');
    QCOMPARE(screen.contents("COL3/ROW3"), text);
    QCOMPARE(screen.heard, QStringList{"COL3/ROW3=" + text});
    QVERIFY(screen.rows(screen.tables.tab).startsWith("3,3=20") || screen.rows(screen.tables.tab).startsWith("3,3=19"));
    screen.widget->undo();
    QCOMPARE(screen.contents("COL3/ROW3"), QStringLiteral("33"));
    QCOMPARE(screen.chart().chart().State().series[1].values[2], 33.0);
}

void ChartPaneTest::readOnlyRowStaysAsItIs() {
    Screen screen;
    screen.drag(3, 1, 20);
    QCOMPARE(screen.contents("COL1/ROW4"), QStringLiteral("41"));
    QCOMPARE(screen.heard, QStringList());
}

void ChartPaneTest::clickedPointIsTheCurrentCell() {
    Screen screen;
    QTest::mouseClick(screen.chart().viewport(), Qt::LeftButton, {}, screen.grip(2, 4));
    QCOMPARE(screen.current(), QStringLiteral("COL4/ROW3"));
    QVERIFY(screen.chart().hasFocus());
    QTest::keyClick(&screen.chart(), Qt::Key_Left);
    QCOMPARE(screen.current(), QStringLiteral("COL3/ROW3"));
}

void ChartPaneTest::undoneFromTheChart() {
    Screen screen;
    QTest::mouseClick(screen.chart().viewport(), Qt::LeftButton, {}, screen.grip(2, 3));
    const QString before = screen.contents("COL3/ROW3");
    QTest::keyClick(&screen.chart(), Qt::Key_Up, Qt::AltModifier);
    const QString changed = screen.contents("COL3/ROW3");
    QVERIFY(changed != before);
    QTest::keyClick(&screen.chart(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(screen.contents("COL3/ROW3"), before);
    QTest::keyClick(&screen.chart(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(screen.contents("COL3/ROW3"), changed);
}

void ChartPaneTest::picturesForOthers() {
    Screen screen;
    const ChartColors colors(screen.chart().chart().State(), GridTheme::light());
    screen.chart().chart().CopyPicture();
    const QImage copied = QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(copied.size(), screen.chart().viewport()->size() * screen.chart().devicePixelRatio());
    QVERIFY(countColor(copied, copied.rect(), colors.series(1)) > 400);
    const QImage image = screen.widget->chartImage(QSize(640, 320), 2.0);
    QCOMPARE(image.size(), QSize(1280, 640));
    QTemporaryDir folder;
    QCOMPARE(screen.widget->saveChart(folder.filePath("chart.png")), QString());
    QVERIFY(screen.widget->saveChart(folder.filePath("chart.txt")).contains("chart.txt"));
}

void ChartPaneTest::followsThemeAndScale() {
    Screen screen;
    const QImage light = screen.chart().viewport()->grab().toImage();
    QCOMPARE(light.pixel(1, 1), GridTheme::light().base);
    const double small = screen.chart().layout().categories().labels()[0].outline.boundingRect().height();
    screen.widget->setColorScheme(PlanViewWidget::ColorScheme::Dark);
    QCOMPARE(screen.chart().viewport()->grab().toImage().pixel(1, 1), GridTheme::darkTheme().base);
    screen.widget->setTextScale(2.0);
    const double large = screen.chart().layout().categories().labels()[0].outline.boundingRect().height();
    QVERIFY(large > 1.8 * small);
    const QImage whole = screen.widget->renderToImage(QSize(900, 700));
    QCOMPARE(whole.pixel(895, 695), GridTheme::darkTheme().base);
}

}  // namespace planview

QTEST_MAIN(planview::ChartPaneTest)
#include "ChartPaneTest.moc"
