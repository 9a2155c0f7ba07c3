// SPDX-License-Identifier: MIT
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cmath>

#include "qt/ChartOnPaper.h"

namespace planview {

class ChartPaintTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestFont(); }
    void seriesHaveTheirColors_data();
    void seriesHaveTheirColors();
    void trendLinesStandOut();
    void stacksAreListedFromTheTop();
    void categoryLabelsNeverOverlap_data();
    void categoryLabelsNeverOverlap();
    void shortenedCategoryLabelsDiffer_data();
    void shortenedCategoryLabelsDiffer();
    void monthsAreThinnedOutToQuartersAndYears();
    void theAxisWritesAsTheBubbleDoes();
    void theAxisStaysWhileScrolling();
    void partsDoNotOverlap_data();
    void partsDoNotOverlap();
    void sharesBesideValuesHaveTheirOwnAxis();
    void rangeAndOptimumAreShown();
    void noLabelHidesALine_data();
    void noLabelHidesALine();
    void aNarrowAxisCutsWhatIsDrawn_data();
    void aNarrowAxisCutsWhatIsDrawn();
    void impossibleTrendIsSaid();
    void comparisonTellsTheSigns();
    void longLegendIsCut();
    void emptyChartSaysSo();
    void numbersOfAllSizesFit();
    void savesFiles();
    void savingFailsInWords();
};

void ChartPaintTest::seriesHaveTheirColors_data() {
    QTest::addColumn<int>("type");
    QTest::newRow("columns") << int(ChartType::Column);
    QTest::newRow("stacked columns") << int(ChartType::StackedColumn);
    QTest::newRow("full columns") << int(ChartType::StackedColumn100);
    QTest::newRow("lines") << int(ChartType::Line);
    QTest::newRow("stacked lines") << int(ChartType::StackedLine);
    QTest::newRow("full lines") << int(ChartType::StackedLine100);
}

void ChartPaintTest::seriesHaveTheirColors() {
    QFETCH(int, type);
    const ChartState state = SampleChart(static_cast<ChartType>(type));
    const LaidOut laid(state);
    for (const GridTheme* theme : {&GridTheme::light(), &GridTheme::darkTheme()}) {
        const QImage image = pictureOf(state, *theme).image(Size, 1.0);
        const ChartColors colors(state, *theme);
        for (int series = 1; series <= 3; ++series) {
            const ChartPoint point = laid.layout.plot().Point(series, 5);
            // Just below the end of a column, around the point of a line.
            const bool column = IsColumnType(static_cast<ChartType>(type));
            const QRect place = column ? QRect(qRound(point.x) - 2, qRound(point.y) + 4, 5, 5)
                                       : QRect(qRound(point.x) - 6, qRound(point.y) - 6, 13, 13);
            const int seen = countColor(image, place, colors.series(series));
            QVERIFY2(seen >= (column ? 25 : 12), qPrintable(QString::number(seen)));
        }
    }
}

void ChartPaintTest::trendLinesStandOut() {
    ChartState state = SampleChart(ChartType::Line);
    auto trend = std::make_shared<ChartTrend>(ChartTrend{TrendKind::Linear, "", -1, 2});
    state.series[0].look->trends.push_back(trend);
    for (const GridTheme* theme : {&GridTheme::light(), &GridTheme::darkTheme()}) {
        for (std::int16_t area = 0; area < ChartPaletteSize; ++area) {
            state.plotArea.colorIndex = area;
            for (std::int16_t index = -1; index < ChartPaletteSize; ++index) {
                trend->borderColorIndex = index;
                const ChartColors colors(state, *theme);
                QVERIFY2(contrastRatio(colors.trend(1, 1), colors.plot()) >= 3.0,
                         qPrintable(QStringLiteral("%1 on %2").arg(index).arg(area)));
            }
        }
    }
}

/// As they lie upon each other; above and below the plot, and for what is no stack, in the order of the table.
void ChartPaintTest::stacksAreListedFromTheTop() {
    for (const ChartType type : {ChartType::Column, ChartType::StackedColumn, ChartType::StackedLine100}) {
        for (const LegendPosition position : {LegendPosition::Right, LegendPosition::Left, LegendPosition::Top}) {
            ChartState state = SampleChart(type);
            state.legend.position = position;
            const LaidOut laid(state);
            const auto& entries = laid.layout.legend().entries();
            const bool fromTheTop = IsStackedType(type) && position != LegendPosition::Top;
            QCOMPARE(entries.front().series, fromTheTop ? 3 : 1);
            QCOMPARE(entries.back().series, fromTheTop ? 1 : 3);
        }
    }
}

void ChartPaintTest::categoryLabelsNeverOverlap_data() {
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("orientation");
    QTest::addColumn<double>("scale");
    for (const int count : {1, 2, 11, 40, 180}) {
        for (const int length : {1, 6, 30, 200}) {
            for (const int orientation : {0, 1, 2, 3}) {
                for (const double scale : {1.0, 2.0}) {
                    QTest::addRow("%d of %d letters, stand %d, %g", count, length, orientation, scale)
                        << count << length << orientation << scale;
                }
            }
        }
    }
}

void ChartPaintTest::categoryLabelsNeverOverlap() {
    QFETCH(int, count);
    QFETCH(int, length);
    QFETCH(int, orientation);
    QFETCH(double, scale);
    ChartState state = SampleChart(ChartType::Column);
    state.categories.assign(static_cast<std::size_t>(count), std::string(static_cast<std::size_t>(length), 'n'));
    for (ChartSeries& series : state.series) {
        series.values.assign(static_cast<std::size_t>(count), 5.0);
    }
    state.categoryAxis.orientation = static_cast<LabelOrientation>(orientation);
    const LaidOut laid(state, Size, scale);
    const auto& labels = laid.layout.categories().labels();
    QVERIFY(!labels.empty());
    // Turned by 45 degrees the texts are as long as they may be; they touch no border.
    constexpr double Rounding = 1;
    const QRectF area = laid.scene.area.adjusted(-Rounding, 0, Rounding, Rounding);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        QVERIFY2(area.contains(labels[i].outline.boundingRect()), qPrintable(labels[i].text));
        QVERIFY(labels[i].outline.boundingRect().top() >= laid.layout.plotRect().bottom());
        if (i > 0) {
            QVERIFY2(!labels[i - 1].outline.intersects(labels[i].outline), qPrintable(labels[i].text));
        }
    }
}

void ChartPaintTest::shortenedCategoryLabelsDiffer_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("at the end") << "Budget of the year for construction, first version, period %1";
    QTest::newRow("at the start") << "%1 is the period of the budget for construction, first version";
    QTest::newRow("in the middle") << "Budget of the year for construction, period %1, first version of two";
}

void ChartPaintTest::shortenedCategoryLabelsDiffer() {
    QFETCH(QString, text);
    for (const LabelOrientation orientation : {LabelOrientation::Horizontal, LabelOrientation::Slanted}) {
        ChartState state = SampleChart(ChartType::Column);
        for (int i = 0; i < state.CategoryCount(); ++i) {
            state.categories[static_cast<std::size_t>(i)] = text.arg(10 + i).toStdString();
        }
        state.categoryAxis.orientation = orientation;
        const LaidOut laid(state, QSize(1800, 480));
        const auto& labels = laid.layout.categories().labels();
        QSet<QString> seen;
        for (const CategoryLabels::Label& label : labels) {
            QVERIFY(label.text.contains(QChar(0x2026)));
            seen.insert(label.text);
        }
        QVERIFY(labels.size() > 4);
        QVERIFY2(static_cast<std::size_t>(seen.size()) == labels.size(), qPrintable(labels.front().text));
    }
}

void ChartPaintTest::monthsAreThinnedOutToQuartersAndYears() {
    const struct {
        int months;
        QStringList starts;  // of the labels
    } rows[] = {{24, {"Apr", "Jul", "Oct", "Jan"}}, {60, {"Jul", "Jan"}}, {120, {"Jan"}}};
    constexpr const char* Names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (const auto& row : rows) {
        ChartState state = SampleChart(ChartType::Line);
        state.categories.clear();
        for (int i = 1; i <= row.months; ++i) {
            state.categories.push_back(std::string(Names[i % 12]) + ' ' + std::to_string(2008 + i / 12));
        }
        for (ChartSeries& series : state.series) {
            series.values.assign(state.categories.size(), 5);
        }
        state.categoryAxis.orientation = LabelOrientation::Horizontal;
        const LaidOut laid(state);
        QSet<QString> starts;
        for (const CategoryLabels::Label& label : laid.layout.categories().labels()) {
            starts.insert(label.text.left(3));
        }
        QCOMPARE(starts, QSet<QString>(row.starts.begin(), row.starts.end()));
    }
}

void ChartPaintTest::theAxisWritesAsTheBubbleDoes() {
    ChartState state = SampleChart(ChartType::Line);
    const auto last = [&] { return LaidOut(state).layout.leftMarks().back().text; };
    const auto setFormats = [&](const char* format) {
        for (ChartSeries& series : state.series) {
            series.format = format;
        }
    };
    setFormats("#,##0.00\" EUR\"");
    QCOMPARE(last(), valueText(state.series[0], 16000));
    QCOMPARE(last(), QStringLiteral("16.000,00 EUR"));
    setFormats("0");
    QCOMPARE(last(), QStringLiteral("16000"));
    state.series[1].format = "0.0";
    QCOMPARE(last(), QStringLiteral("16.000"));  // they do not agree
    setFormats("0%");
    QCOMPARE(last(), QStringLiteral("1600000%"));
    // A code that could not tell the marks apart does not write them.
    setFormats("#,##0");
    for (ChartSeries& series : state.series) {
        series.values.assign(11, 0.5);
    }
    QCOMPARE(last(), QStringLiteral("0,50"));
    // A code of many letters does not cost the axis its marks.
    setFormats("0\" thousands of persons employed in the whole of the country, by the month\"");
    QVERIFY(!LaidOut(state).layout.leftMarks().empty());
}

void ChartPaintTest::theAxisStaysWhileScrolling() {
    ChartState state = SampleChart(ChartType::Line);
    state.series[1].values[10] = 40000;
    state.series[0].look->trends.push_back(std::make_shared<ChartTrend>(ChartTrend{TrendKind::Linear, "", -1, 2}));
    state.categoryAxis.visibleCategories = 3;
    const ChartScale before = LaidOut(state).layout.plot().Values();
    for (std::int16_t first = 2; first <= 9; ++first) {
        state.categoryAxis.startAtCategory = first;
        const ChartScale now = LaidOut(state).layout.plot().Values();
        QCOMPARE(now.maximum, before.maximum);
        QCOMPARE(now.minimum, before.minimum);
    }
}

void ChartPaintTest::partsDoNotOverlap_data() {
    QTest::addColumn<int>("position");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<double>("scale");
    for (const int position : {0, 1, 2, 3}) {
        for (const QSize size : {QSize(900, 480), QSize(400, 260), QSize(200, 120), QSize(90, 60), QSize(20, 10)}) {
            for (const double scale : {1.0, 1.5, 2.0}) {
                QTest::addRow("legend %d, %dx%d, %g", position, size.width(), size.height(), scale)
                    << position << size << scale;
            }
        }
    }
}

void ChartPaintTest::partsDoNotOverlap() {
    QFETCH(int, position);
    QFETCH(QSize, size);
    QFETCH(double, scale);
    ChartState state = SampleChart(ChartType::Column);
    state.legend.position = static_cast<LegendPosition>(position);
    const LaidOut laid(state, size, scale);
    QVERIFY(!pictureOf(state, GridTheme::light(), scale).image(size, 1.0).isNull());
    if (laid.layout.isEmpty()) {
        QVERIFY(size.width() < 250 * scale);
        return;
    }
    const QRectF area = laid.scene.area;
    const QRectF plot = laid.layout.plotRect();
    QVERIFY(area.contains(plot));
    if (!laid.layout.title().isEmpty()) {
        QVERIFY(area.contains(laid.layout.titleRect()) && !laid.layout.titleRect().intersects(plot));
    }
    if (laid.layout.legend().isShown()) {
        const QRectF box = laid.layout.legend().box();
        QVERIFY(area.contains(box));
        QVERIFY(!box.intersects(plot));
        QVERIFY(!box.intersects(laid.layout.titleRect()));
        for (const CategoryLabels::Label& label : laid.layout.categories().labels()) {
            QVERIFY(!box.intersects(label.outline.boundingRect()));
        }
    }
    const auto& marks = laid.layout.leftMarks();
    for (std::size_t i = 0; i < marks.size(); ++i) {
        QVERIFY(area.contains(marks[i].rect) && !marks[i].rect.intersects(plot));
        QVERIFY(i == 0 || !marks[i].rect.intersects(marks[i - 1].rect));
    }
}

void ChartPaintTest::sharesBesideValuesHaveTheirOwnAxis() {
    ChartState state = SampleChart(ChartType::StackedColumn100);
    QVERIFY(LaidOut(state).layout.rightMarks().empty());
    QCOMPARE(LaidOut(state).layout.leftMarks().back().text, QStringLiteral("100%"));
    state.series[2].type = ChartType::Line;
    const LaidOut mixed(state);
    QCOMPARE(mixed.layout.rightMarks().back().text, QStringLiteral("100%"));
    QCOMPARE(mixed.layout.leftMarks().back().text, QStringLiteral("16.000,0"));
    QVERIFY(mixed.layout.rightMarks().back().rect.left() > mixed.layout.plotRect().right());
    state.valueAxis.visible = false;
    QVERIFY(LaidOut(state).layout.rightMarks().empty() && LaidOut(state).layout.leftMarks().empty());
}

void ChartPaintTest::rangeAndOptimumAreShown() {
    ChartState state = SampleChart(ChartType::Line);
    state.valueAxis.rangeMinimum = {ChartLimit::Shown, 9000};
    state.valueAxis.rangeMaximum = {ChartLimit::Shown, 12000};
    state.valueAxis.optimum = {ChartLimit::Shown, 10000};
    const LaidOut laid(state);
    const ChartPlot& plot = laid.layout.plot();
    const ChartColors colors(state, GridTheme::light());
    const auto rowOf = [&](const QImage& image, double value, QRgb color) {
        const QRect row(qRound(plot.Area().x), qRound(plot.YOf(value)) - 1, qRound(plot.Area().width), 3);
        return countColor(image, row, color);
    };
    const QImage image = pictureOf(state).image(Size, 1.0);
    const int width = qRound(plot.Area().width);
    QVERIFY(rowOf(image, 11000, colors.band()) > 2 * width);
    QVERIFY(rowOf(image, 12800, GridTheme::light().base) > 2 * width);
    QVERIFY(rowOf(image, 10000, colors.accent()) > width / 8);
    // A limit on one side only reaches to the end of the axis.
    state.valueAxis.rangeMinimum.type = ChartLimit::Hidden;
    const QImage half = pictureOf(state).image(Size, 1.0);
    QVERIFY(rowOf(half, 500, colors.band()) > width);
}

void ChartPaintTest::noLabelHidesALine_data() {
    QTest::addColumn<double>("optimum");
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 2.0}) {
        for (const double optimum : {6900.0, 7300.0, 13200.0, 13500.0, 14400.0, 15300.0}) {
            QTest::addRow("%g at %g", optimum, scale) << optimum << scale;
        }
    }
}

/// Between its points, because these are rings.
void ChartPaintTest::noLabelHidesALine() {
    QFETCH(double, optimum);
    QFETCH(double, scale);
    ChartState state = SampleChart(ChartType::Line);
    state.valueAxis.optimum = {ChartLimit::Shown, optimum};
    const LaidOut laid(state, Size, scale);
    const ChartPlot& plot = laid.layout.plot();
    const QImage image = pictureOf(state, GridTheme::light(), scale).image(Size, 1.0);
    for (int series = 1; series <= state.SeriesCount(); ++series) {
        const QRgb color = seriesColor(*state.series[static_cast<std::size_t>(series - 1)].look, 0xffffffff);
        for (int category = 2; category <= state.CategoryCount(); ++category) {
            const ChartPoint from = plot.Point(series, category - 1);
            const ChartPoint to = plot.Point(series, category);
            if (std::abs(plot.YOf(optimum) - (from.y + to.y) / 2) < 5 * scale) {
                continue;  // the optimum's own line crosses here
            }
            const QRect middle(qRound((from.x + to.x) / 2) - 2, qRound((from.y + to.y) / 2) - 3, 5, 7);
            QVERIFY2(countColor(image, middle, color) >= 5,
                     qPrintable(QStringLiteral("series %1 before category %2").arg(series).arg(category)));
        }
    }
}

void ChartPaintTest::aNarrowAxisCutsWhatIsDrawn_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("middle");
    QTest::addColumn<bool>("compared");
    for (const double middle : {7200.0, 13500.0, 0.0, 40000.0}) {
        for (const ChartType type : {ChartType::Column, ChartType::StackedColumn, ChartType::Line,
                                     ChartType::StackedLine, ChartType::StackedLine100}) {
            for (const bool compared : {false, true}) {
                QTest::addRow("type %d at %g%s", int(type), middle, compared ? ", compared" : "")
                    << int(type) << middle << compared;
            }
        }
    }
}

/// Files have no clip, and a painter takes its time for a line of a million pixels, seen or not.
void ChartPaintTest::aNarrowAxisCutsWhatIsDrawn() {
    QFETCH(int, type);
    QFETCH(double, middle);
    QFETCH(bool, compared);
    ChartState state = SampleChart(static_cast<ChartType>(type));
    state.comparisonBase = compared ? 1 : 0;
    for (ChartSeries& series : state.series) {
        for (const TrendKind kind : {TrendKind::Linear, TrendKind::MovingAverage, TrendKind::Exponential}) {
            series.look->trends.push_back(std::make_shared<ChartTrend>(ChartTrend{kind, "", -1, 3}));
        }
    }
    state.valueAxis.minimumIsAuto = state.valueAxis.maximumIsAuto = false;
    state.valueAxis.minimum = middle - 0.01;
    state.valueAxis.maximum = middle + 0.01;
    QTemporaryDir folder;
    const QString path = folder.filePath("a.svg");
    QCOMPARE(pictureOf(state).save(path, Size), QString());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const LaidOut laid(state);
    const QRectF plot = laid.layout.plotRect().adjusted(-9, -9, 9, 9);
    const QRectF legend = laid.layout.legend().box().adjusted(-1, -1, 1, 1);
    int inPlot = 0;
    static const QRegularExpression pair(QStringLiteral("(-?[0-9.e+]+)[, ](-?[0-9.e+]+)"));
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        reader.readNext();
        const QString shape = reader.isStartElement() ? reader.attributes().value("d").toString() +
                                                            reader.attributes().value("points").toString()
                                                      : QString();
        for (auto it = pair.globalMatch(shape); it.hasNext();) {
            const QRegularExpressionMatch match = it.next();
            const QPointF place(match.captured(1).toDouble(), match.captured(2).toDouble());
            const bool corner =
                (place.x() == 0 || place.x() == Size.width()) && (place.y() == 0 || place.y() == Size.height());
            QVERIFY2(corner || plot.contains(place) || legend.contains(place),
                     qPrintable(match.captured() + " in " + shape.left(200)));
            inPlot += plot.contains(place) ? 1 : 0;
        }
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    const bool crossed = type == int(ChartType::Line) && middle > 0 && middle < 20000;
    QVERIFY(inPlot > 0 || !crossed);
}

void ChartPaintTest::impossibleTrendIsSaid() {
    ChartState state = SampleChart(ChartType::Line);
    state.series[0].look->trends.push_back(std::make_shared<ChartTrend>(ChartTrend{TrendKind::Power, "", -1, 2}));
    state.series[1].look->trends.push_back(std::make_shared<ChartTrend>(ChartTrend{TrendKind::Power, "", -1, 2}));
    state.series[1].values[3] = -1;
    const LaidOut laid(state);
    const auto& entries = laid.layout.legend().entries();
    QCOMPARE(static_cast<int>(entries.size()), 5);
    QCOMPARE(entries[3].text, QStringLiteral("Power (Construction)"));
    QVERIFY(entries[3].kind == ChartLegendBox::Entry::Kind::Trend);
    QVERIFY(entries[4].kind == ChartLegendBox::Entry::Kind::NoTrend);
    QCOMPARE(entries[4].text + entries[4].remark(), QStringLiteral("Power (Manufacturing) (not possible)"));
    QVERIFY2(entries[4].reason.endsWith(QStringLiteral("the value in Apr 08 is -1.")), qPrintable(entries[4].reason));
    // However long the name is, the remark is seen and the plot keeps its room.
    state.series[1].caption = std::string(200, 'm');
    const LaidOut named(state);
    const auto& entry = named.layout.legend().entries()[4];
    QVERIFY(entry.rect.width() <= 240);
    QVERIFY(named.layout.legend().isCut(entry));
    const ChartHit hit = laid.layout.hitTest(entries[3].rect.center(), 5);
    QVERIFY(hit.code == ChartHitCode::Trendline && hit.series == 1);
}

void ChartPaintTest::comparisonTellsTheSigns() {
    ChartState state = SampleChart(ChartType::Line);
    state.comparisonBase = 1;
    state.series.pop_back();
    for (std::size_t i = 0; i < 11; ++i) {
        state.series[0].values[i] = 5000;
        state.series[1].values[i] = i < 5 ? 9000 : 1000;
    }
    const LaidOut laid(state);
    const QImage image = pictureOf(state).image(Size, 1.0);
    const auto tintAt = [&](int category, double value) {
        return QColor(image.pixel(qRound(laid.layout.plot().CategoryCenter(category)) + 7,
                                  qRound(laid.layout.plot().YOf(value)) + 3));
    };
    QVERIFY(tintAt(3, 6500).blue() > tintAt(3, 6500).red());
    QVERIFY(tintAt(9, 3500).red() > tintAt(9, 3500).blue());
    QCOMPARE(tintAt(3, 3500), QColor(Qt::white));
    QCOMPARE(differenceText(state.series[1], 4000), QStringLiteral("+4.000,0"));
    QCOMPARE(differenceText(state.series[1], -0.04), QStringLiteral("0,0"));
}

void ChartPaintTest::longLegendIsCut() {
    ChartState state = SampleChart(ChartType::Line);
    for (int i = 0; i < 100; ++i) {
        state.series.push_back(state.series[0]);
    }
    for (const int position : {0, 1, 2, 3}) {
        state.legend.position = static_cast<LegendPosition>(position);
        const LaidOut laid(state);
        const auto& entries = laid.layout.legend().entries();
        const int shown = static_cast<int>(entries.size()) - 1;
        QVERIFY(shown > 2 && shown < 103);
        QCOMPARE(entries.back().text, QStringLiteral("+%1 more").arg(103 - shown));
        QVERIFY(laid.scene.area.contains(entries.back().rect));
        QVERIFY(laid.layout.plotRect().height() > 200);
    }
}

void ChartPaintTest::emptyChartSaysSo() {
    ChartState noCategories = SampleChart(ChartType::Column);
    noCategories.categories.clear();
    for (ChartSeries& series : noCategories.series) {
        series.values.clear();
    }
    ChartState guided;
    guided.guidance = "Click the heading of a line.";
    QVERIFY(pictureOf(guided).image(Size, 1.0) != pictureOf(ChartState()).image(Size, 1.0));
    for (const ChartState& state : {ChartState(), noCategories, guided}) {
        const QImage image = pictureOf(state).image(Size, 1.0);
        QVERIFY(countInk(image, QRect(200, 200, 500, 80), GridTheme::light().base) > 300);
        const LaidOut laid(state);
        QVERIFY(laid.layout.isEmpty());
        QVERIFY(laid.layout.hitTest(QPointF(400, 200), 5).code == ChartHitCode::ChartArea);
    }
}

void ChartPaintTest::numbersOfAllSizesFit() {
    for (const double size : {1e-300, 1e-7, 0.5, 1e6, 1e13, 1e300}) {
        for (const ChartType type : {ChartType::Column, ChartType::Line, ChartType::StackedLine100}) {
            ChartState state = SampleChart(type);
            for (ChartSeries& series : state.series) {
                series.format.clear();
                for (double& value : series.values) {
                    value *= size / 1e4;
                }
            }
            state.series[1].values[0] = -size;
            const LaidOut laid(state);
            QVERIFY(laid.layout.plotRect().width() > 400);
            QVERIFY2(!laid.layout.leftMarks().empty(), qPrintable(QString::number(size)));
            QVERIFY(!pictureOf(state).image(Size, 1.0).isNull());
        }
    }
}

void ChartPaintTest::savesFiles() {
    QTemporaryDir folder;
    const ChartState state = SampleChart(ChartType::Line);
    const std::vector<std::pair<const char*, QByteArray>> files{
        {"a.png", "\x89PNG"}, {"a.PDF", "%PDF"}, {"a.svg", "<?xml"}};
    for (const auto& [name, start] : files) {
        const QString path = folder.filePath(QLatin1String(name));
        QCOMPARE(pictureOf(state).save(path, Size), QString());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QVERIFY2(bytes.startsWith(start), name);
        QVERIFY(bytes.size() > 1000);
    }
    QFile drawing(folder.filePath("a.svg"));
    QVERIFY(drawing.open(QIODevice::ReadOnly));
    // Texts stay texts, for whoever goes on working with the file.
    QVERIFY(drawing.readAll().contains("Retail trade"));
    QCOMPARE(QImage(folder.filePath("a.png")).size(), 2 * Size);
}

void ChartPaintTest::savingFailsInWords() {
    QTemporaryDir folder;
    const ChartState state = SampleChart(ChartType::Line);
    QVERIFY(pictureOf(state).save(folder.filePath("a.bmp"), Size).contains("a.bmp"));
    QVERIFY(!QFile::exists(folder.filePath("a.bmp")));
    QVERIFY(pictureOf(state).save(folder.filePath("none/a.png"), Size).contains("none/a.png"));
}

}  // namespace planview

QTEST_MAIN(planview::ChartPaintTest)
#include "ChartPaintTest.moc"
