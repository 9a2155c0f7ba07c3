// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <set>

#include "components/chart/SeriesColors.h"
#include "qt/ChartOnPaper.h"
#include "qt/chart/ChartMarks.h"

namespace planview {

/// How series are told apart: by colour, by markers and dashes, and by names at the ends of their lines.
class SeriesLooksTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestFont(); }
    void colorsStandOut();
    void neighboursDifferForEveryEye_data();
    void neighboursDifferForEveryEye();
    void colorsOfTheHostStay();
    void noTwoStylesAreDrawnAlike();
    void dashesAreAsLongAsTheyAreSaidToBe();
    void dashedLinesHaveGaps_data();
    void dashedLinesHaveGaps();
    void denseLinesKeepTheirMarkers();
    void linesAreNamedAtTheirEnds();
    void namesAtEndsNeverMeet();
    void theLegendStaysWhereEndsHaveNoRoom_data();
    void theLegendStaysWhereEndsHaveNoRoom();
};

namespace {

constexpr int Styles = static_cast<int>(SeriesColors.size());

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

/// G. M. Machado, M. M. Oliveira, L. A. F. Fernandes: A Physiologically-based Model for Simulation of Color Vision
/// Deficiency. IEEE Transactions on Visualization and Computer Graphics 15(6), 2009: severity 1.0, for linear RGB.
constexpr Matrix Protanopia{
    {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
constexpr Matrix Deuteranopia{
    {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
constexpr Matrix Tritanopia{
    {{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}};
constexpr Matrix FullSight{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
/// sRGB to XYZ by D65, the white of which is the sum of each row.
constexpr Matrix ToXyz{
    {{0.4124564, 0.3575761, 0.1804375}, {0.2126729, 0.7151522, 0.0721750}, {0.0193339, 0.1191920, 0.9503041}}};

Triple times(const Matrix& matrix, const Triple& vector) {
    Triple product{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            product[row] += matrix[row][column] * vector[column];
        }
    }
    return product;
}

double linear(int channel) {
    const double part = channel / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// CIELAB of a colour as an eye sees it.
Triple labOf(QRgb color, const Matrix& eye) {
    Triple seen = times(eye, {linear(qRed(color)), linear(qGreen(color)), linear(qBlue(color))});
    for (double& channel : seen) {
        channel = std::clamp(channel, 0.0, 1.0);
    }
    const Triple xyz = times(ToXyz, seen);
    Triple f{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double part = xyz[i] / (ToXyz[i][0] + ToXyz[i][1] + ToXyz[i][2]);
        f[i] = part > 216.0 / 24389 ? std::cbrt(part) : (24389.0 / 27 * part + 16) / 116;
    }
    return {116 * f[1] - 16, 500 * (f[0] - f[1]), 200 * (f[1] - f[2])};
}

/// The difference of two colours by the formula of 1976; 2.3 is one that is just noticed.
double difference(QRgb one, QRgb other, const Matrix& eye) {
    const Triple a = labOf(one, eye);
    const Triple b = labOf(other, eye);
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

ChartSeriesLook lookOf(int style) {
    ChartSeriesLook look;
    look.style = style;
    look.color = SeriesColors[static_cast<std::size_t>(style)].onLight;
    return look;
}

ChartState lines(const std::vector<double>& ends) {
    ChartState state = SampleChart(ChartType::Line);
    const ChartSeries sample = state.series[0];
    state.series.assign(ends.size(), sample);
    for (std::size_t i = 0; i < ends.size(); ++i) {
        state.series[i].caption = "Line " + std::to_string(i + 1);
        state.series[i].values.assign(11, 0);
        state.series[i].values[10] = ends[i];
        state.series[i].look = std::make_shared<ChartSeriesLook>(lookOf(static_cast<int>(i) % Styles));
    }
    return state;
}

}  // namespace

void SeriesLooksTest::colorsStandOut() {
    for (const GridTheme* theme : {&GridTheme::light(), &GridTheme::darkTheme()}) {
        for (int style = 0; style < Styles; ++style) {
            const SeriesColor& own = SeriesColors[static_cast<std::size_t>(style)];
            const ChartColor wanted = theme->dark ? own.onDark : own.onLight;
            const QRgb seen = seriesColor(lookOf(style), theme->base);
            QCOMPARE(seen, qRgb(wanted.red, wanted.green, wanted.blue));
            // Dots on the headings have the colour that a series has in the plot.
            for (const QRgb ground : {theme->base, theme->heading}) {
                QVERIFY2(contrastRatio(seen, ground) >= 3.0, qPrintable(QString::number(style)));
            }
        }
    }
}

void SeriesLooksTest::neighboursDifferForEveryEye_data() {
    QTest::addColumn<int>("eye");
    QTest::newRow("full sight") << 0;
    QTest::newRow("protanopia") << 1;
    QTest::newRow("deuteranopia") << 2;
    QTest::newRow("tritanopia") << 3;
}

void SeriesLooksTest::neighboursDifferForEveryEye() {
    QFETCH(int, eye);
    const Matrix matrix = std::array{FullSight, Protanopia, Deuteranopia, Tritanopia}[static_cast<std::size_t>(eye)];
    for (const GridTheme* theme : {&GridTheme::light(), &GridTheme::darkTheme()}) {
        const auto apart = [&](int one, int other) {
            return difference(seriesColor(lookOf(one % Styles), theme->base),
                              seriesColor(lookOf(other % Styles), theme->base), matrix);
        };
        for (int style = 0; style < Styles; ++style) {
            const QByteArray where = QByteArray::number(style) + (theme->dark ? ", dark" : ", light");
            QVERIFY2(apart(style, style + 1) >= 25, where.constData());
            QVERIFY2(apart(style, style + 2) >= 17, where.constData());
        }
        for (int one = 0; one < 8; ++one) {
            for (int other = 0; other < one; ++other) {
                QVERIFY2(apart(one, other) >= 12, qPrintable(QStringLiteral("%1 and %2").arg(one).arg(other)));
            }
        }
    }
}

void SeriesLooksTest::colorsOfTheHostStay() {
    ChartSeriesLook look = lookOf(1);
    look.color = {90, 140, 90};
    QCOMPARE(seriesColor(look, GridTheme::light().base), qRgb(90, 140, 90));
    QCOMPARE(seriesColor(look, GridTheme::darkTheme().base), qRgb(90, 140, 90));
    look.color = {255, 255, 255};
    QVERIFY(contrastRatio(seriesColor(look, GridTheme::light().base), GridTheme::light().base) >= 3);
}

void SeriesLooksTest::noTwoStylesAreDrawnAlike() {
    std::set<std::pair<int, std::vector<double>>> codes;
    for (int style = 0; style < Styles; ++style) {
        const ChartSeriesLook look = lookOf(style);
        const std::span<const double> dashes = chartmarks::dashesOf(look);
        codes.emplace(static_cast<int>(chartmarks::markerOf(look)), std::vector<double>(dashes.begin(), dashes.end()));
        QVERIFY(chartmarks::markerOf(look) != chartmarks::markerOf(lookOf((style + 1) % Styles)));
    }
    QCOMPARE(static_cast<int>(codes.size()), Styles);
}

void SeriesLooksTest::dashesAreAsLongAsTheyAreSaidToBe() {
    const ChartState state;
    const ChartScene scene{state, GridTheme::light(), testFont(), 2.0, QRectF(0, 0, 100, 100), 1.0, false, false};
    const std::array<double, 2> dashes{10, 5};
    // 20 on and 10 off at this scale, over the corner from one segment to the next.
    const QVector<QLineF> pieces =
        chartmarks::dashed(scene, {QLineF(0, 0, 40, 0), QLineF(40, 0, 40, 30), QLineF(40, 30, 40, 30)}, dashes);
    QCOMPARE(pieces, (QVector<QLineF>{QLineF(0, 0, 20, 0), QLineF(30, 0, 40, 0), QLineF(40, 0, 40, 10),
                                      QLineF(40, 20, 40, 30)}));
    QCOMPARE(chartmarks::dashed(scene, {QLineF(0, 0, 40, 0)}, {}), (QVector<QLineF>{QLineF(0, 0, 40, 0)}));
}

void SeriesLooksTest::dashedLinesHaveGaps_data() {
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("points");
    for (const int style : {0, 4, 8, 12}) {
        for (const int points : {11, 300}) {
            QTest::addRow("style %d, %d points", style, points) << style << points;
        }
    }
}

void SeriesLooksTest::dashedLinesHaveGaps() {
    QFETCH(int, style);
    QFETCH(int, points);
    ChartState state = lines({0});
    state.legend.shown = false;
    state.series[0].look = std::make_shared<ChartSeriesLook>(lookOf(style));
    state.series[0].values.assign(static_cast<std::size_t>(points), 50);
    state.series[0].values[0] = 70;  // so that the line is not one of the grid's
    state.categories.assign(static_cast<std::size_t>(points), "n");
    const LaidOut laid(state);
    const ChartPlot& plot = laid.layout.plot();
    const QImage image = pictureOf(state).image(Size, 1.0);
    const int left = qRound(plot.CategoryCenter(2));
    const int width = qRound(plot.CategoryCenter(points)) - left;
    const QRgb color = seriesColor(*state.series[0].look, GridTheme::light().base);
    int drawn = 0;
    for (int x = left; x < left + width; ++x) {
        drawn += countColor(image, QRect(x, qRound(plot.YOf(50)) - 1, 1, 3), color) > 0 ? 1 : 0;
    }
    const double part = 1.0 * drawn / width;
    if (style == 0) {
        QVERIFY2(part > 0.9, qPrintable(QString::number(part)));
    } else {
        QVERIFY2(part > 0.4 && part < 0.85, qPrintable(QString::number(part)));
    }
}

void SeriesLooksTest::denseLinesKeepTheirMarkers() {
    const auto markedPixels = [](int style) {
        ChartState state = lines({0});
        state.legend.shown = false;
        state.series[0].look = std::make_shared<ChartSeriesLook>(lookOf(style));
        state.series[0].values.assign(300, 50);
        state.categories.assign(300, "n");
        const LaidOut laid(state);
        const QImage image = pictureOf(state).image(Size, 1.0);
        // Above the line itself there is nothing but its markers.
        const QRect above(qRound(laid.layout.plotRect().left()), qRound(laid.layout.plot().YOf(50)) - 5,
                          qRound(laid.layout.plotRect().width()), 3);
        return countInk(image, above, GridTheme::light().base);
    };
    QVERIFY(markedPixels(0) > 20);
    QVERIFY(markedPixels(3) > 20);
}

void SeriesLooksTest::linesAreNamedAtTheirEnds() {
    ChartState state = SampleChart(ChartType::Line);
    auto trend = std::make_shared<ChartTrend>(ChartTrend{TrendKind::Linear, "", -1, 2});
    state.series[0].look->trends.push_back(trend);
    state.series[0].values[10] = 9000;
    const LaidOut laid(state);
    const auto& entries = laid.layout.legend().entries();
    QCOMPARE(entries.size(), 4U);
    QCOMPARE(entries[0].text, QStringLiteral("Retail trade"));
    QCOMPARE(entries[3].text, QStringLiteral("Linear (Construction)"));
    const double line = QFontMetricsF(testFont()).height();
    for (const ChartLegendBox::Entry& entry : entries) {
        QVERIFY(entry.end.has_value());
        QVERIFY(std::abs(entry.rect.center().y() - entry.end->y()) < 2 * line);
        QVERIFY(entry.rect.left() > laid.layout.plotRect().right());
        const ChartHit hit = laid.layout.hitTest(entry.rect.center(), 5);
        QVERIFY(hit.series == entry.series &&
                hit.code == (entry.trend > 0 ? ChartHitCode::Trendline : ChartHitCode::Series));
    }
    // Scrolling moves the names to what is seen last.
    state.categoryAxis.visibleCategories = 4;
    const LaidOut scrolled(state);
    QCOMPARE(scrolled.layout.legend().entries()[0].end->y(), scrolled.layout.plot().Point(3, 4).y);
}

void SeriesLooksTest::namesAtEndsNeverMeet() {
    for (const double scale : {1.0, 2.0}) {
        for (const std::vector<double>& ends :
             {std::vector<double>{95, 94, 93, 10}, {0, 1, 100}, {50, 50}, {100, 0, 99, 1}, {7}}) {
            const ChartState state = lines(ends);
            const LaidOut laid(state, Size, scale);
            const auto& entries = laid.layout.legend().entries();
            // Large names near the border may have to stay in the legend, but then all of them.
            if (scale > 1 && !entries[0].end) {
                continue;
            }
            for (std::size_t i = 0; i < entries.size(); ++i) {
                QVERIFY2(entries[i].end.has_value(), qPrintable(QStringLiteral("%1 at %2").arg(ends[0]).arg(scale)));
                QVERIFY(laid.scene.area.contains(entries[i].rect));
                QVERIFY(entries[i].rect.left() > laid.layout.plotRect().right());
                QVERIFY(!laid.layout.titleRect().intersects(entries[i].rect));
                QVERIFY(i == 0 || entries[i].rect.top() >= entries[i - 1].rect.bottom() - 1e-6);
                // Leaders from the ends to the names do not cross.
                QVERIFY(i == 0 || entries[i].end->y() >= entries[i - 1].end->y());
            }
        }
    }
}

void SeriesLooksTest::theLegendStaysWhereEndsHaveNoRoom_data() {
    QTest::addColumn<int>("reason");
    QTest::newRow("too many ends in one place") << 0;
    QTest::newRow("columns among them") << 1;
    QTest::newRow("an end beyond a fixed axis") << 2;
    QTest::newRow("a legend elsewhere") << 3;
    QTest::newRow("a legend with a ground of its own") << 4;
    QTest::newRow("a trend line that cannot be drawn") << 5;
}

void SeriesLooksTest::theLegendStaysWhereEndsHaveNoRoom() {
    QFETCH(int, reason);
    ChartState state = lines({100, 60, 20});
    QVERIFY(LaidOut(state).layout.legend().entries()[0].end.has_value());
    switch (reason) {
        case 0:
            state = lines({50, 50.1, 50.2, 50.3, 50.4, 100});
            break;
        case 1:
            state.series[1].type = ChartType::Column;
            break;
        case 2:
            state.valueAxis.maximumIsAuto = false;
            state.valueAxis.maximum = 80;
            break;
        case 3:
            state.legend.position = LegendPosition::Bottom;
            break;
        case 4:
            state.legend.interior.colorIndex = 3;
            break;
        default:
            state.series[0].look->trends.push_back(
                std::make_shared<ChartTrend>(ChartTrend{TrendKind::Power, "", -1, 2}));
    }
    const LaidOut laid(state);
    QVERIFY(!laid.layout.legend().entries().empty());
    for (const ChartLegendBox::Entry& entry : laid.layout.legend().entries()) {
        QVERIFY(!entry.end.has_value());
    }
    QCOMPARE(laid.layout.legend().entries()[0].series, 1);
}

}  // namespace planview

QTEST_MAIN(planview::SeriesLooksTest)
#include "SeriesLooksTest.moc"
