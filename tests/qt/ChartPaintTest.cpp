#include <QTemporaryDir>
#include <cmath>

#include "qt/ChartOnScreen.h"
#include "qt/chart/ChartPainter.h"
#include "qt/chart/ChartPicture.h"

namespace planview {

namespace {

constexpr QSize Size(900, 480);

QFont testFont() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    return font;
}

ChartPicture pictureOf(const ChartState& state, const GridTheme& theme = GridTheme::light(), double scale = 1.0) {
    return {state, theme, testFont(), scale};
}

/// A chart laid out as in a picture of it.
struct LaidOut {
    explicit LaidOut(const ChartState& state, QSize size = Size, double scale = 1.0)
        : scene{state, GridTheme::light(), testFont(), scale, QRectF(QPointF(0, 0), QSizeF(size)), 1.0, false, false},
          layout(scene) {}
    ChartScene scene;
    ChartLayout layout;
};

}  // namespace

class ChartPaintTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useTestFont(); }
    void gallery();
};

/// Leaves pictures to look at in the folder that PLANVIEW_CHART_PICTURES names.
void ChartPaintTest::gallery() {
    const QString folder = qEnvironmentVariable("PLANVIEW_CHART_PICTURES");
    if (folder.isEmpty()) {
        QSKIP("no folder for pictures given");
    }
    const std::vector<std::pair<const char*, ChartType>> types{
        {"columns", ChartType::Column},           {"stacked-columns", ChartType::StackedColumn},
        {"full-columns", ChartType::StackedColumn100}, {"lines", ChartType::Line},
        {"stacked-lines", ChartType::StackedLine}, {"full-lines", ChartType::StackedLine100}};
    const auto save = [&](const QString& name, const ChartPicture& picture, QSize size = Size) {
        QVERIFY(picture.image(size, 1.0).save(folder + '/' + name + ".png"));
    };
    for (const auto& [name, type] : types) {
        save(QLatin1String(name), pictureOf(SampleChart(type)));
    }
    ChartState mixed = SampleChart(ChartType::Column);
    mixed.series[2].type = ChartType::Line;
    auto trend = std::make_shared<ChartTrend>();
    mixed.series[2].look->trends.push_back(trend);
    mixed.valueAxis.rangeMinimum = {ChartLimit::Shown, 12500};
    mixed.valueAxis.rangeMaximum = {ChartLimit::Shown, 14500};
    mixed.valueAxis.optimum = {ChartLimit::Shown, 13500};
    save("mixed", pictureOf(mixed));
    save("mixed-dark", pictureOf(mixed, GridTheme::darkTheme()));
    save("mixed-200", pictureOf(mixed, GridTheme::light(), 2.0));
    mixed.selected = {ChartHitCode::Series, 2, 0};
    const auto marked = [&](const char* name) {
        const ChartScene scene{mixed, GridTheme::light(), testFont(), 1.0, QRectF(QPointF(0, 0), QSizeF(Size)), 1.0,
                               true, true};
        const ChartLayout layout(scene);
        QImage image(Size, QImage::Format_RGB32);
        QPainter painter(&image);
        const ChartPainter chart(scene, layout);
        chart.paint(painter);
        const ChartSeriesPainter series(scene, mixed, layout.plot(), chart.colors());
        chart.paintBubble(painter, series.pointRect(3, 7), pointName(mixed, 3, 7), "15.284,7 → 15.310,0");
        painter.end();
        QVERIFY(image.save(folder + '/' + QLatin1String(name) + ".png"));
    };
    marked("selected-series");
    mixed.selected = {ChartHitCode::Point, 3, 4};
    marked("selected-point");
    mixed.selected = {ChartHitCode::Trendline, 3, 0};
    marked("selected-trend");
    mixed.series[1].type = ChartType::StackedColumn100;
    mixed.series[0].type = ChartType::StackedColumn100;
    save("values-and-shares", pictureOf(mixed));
    ChartState negative = SampleChart(ChartType::Column);
    for (std::size_t i = 0; i < 11; ++i) {
        negative.series[1].values[i] = i % 3 == 0 ? -4000.0 - 100.0 * static_cast<double>(i) : 0;
    }
    negative.legend.position = LegendPosition::Bottom;
    negative.series[0].look->trends.push_back(std::make_shared<ChartTrend>(ChartTrend{TrendKind::Power, "", -1, 2}));
    negative.series[1].look->trends.push_back(std::make_shared<ChartTrend>(ChartTrend{TrendKind::Power, "", -1, 2}));
    save("negative", pictureOf(negative));
    for (ChartSeries& series : negative.series) {
        series.type = ChartType::StackedColumn;
    }
    negative.legend.position = LegendPosition::Top;
    save("negative-stacked", pictureOf(negative));
    ChartState forecast = SampleChart(ChartType::Line);
    forecast.title = "Sales and forecast";
    forecast.series.pop_back();
    forecast.series[0].caption = "Sales";
    forecast.series[1].caption = "Forecast";
    for (std::size_t i = 0; i < 11; ++i) {
        forecast.series[1].values[i] = forecast.series[0].values[i] + 300 * std::sin(static_cast<double>(i));
    }
    forecast.comparison = true;
    save("forecast", pictureOf(forecast));
    save("forecast-dark", pictureOf(forecast, GridTheme::darkTheme()));
    forecast.series[0].type = forecast.series[1].type = ChartType::Column;
    save("forecast-columns", pictureOf(forecast));
    ChartState many;
    for (int i = 0; i < 180; ++i) {
        many.categories.push_back("Month " + std::to_string(i + 1));
    }
    for (int s = 0; s < 20; ++s) {
        ChartSeries series;
        series.caption = "Line number " + std::to_string(s + 1);
        series.type = ChartType::Line;
        series.look->color = {static_cast<std::uint8_t>(13 * s), 99, static_cast<std::uint8_t>(250 - 9 * s)};
        for (int i = 0; i < 180; ++i) {
            series.values.push_back(1000 * s + 800 * std::sin(i / 9.0 + s));
        }
        many.series.push_back(series);
    }
    save("many", pictureOf(many), QSize(1200, 600));
    ChartState names = SampleChart(ChartType::Column);
    for (std::size_t i = 0; i < names.categories.size(); ++i) {
        names.categories[i] = "Distribution centre north " + std::to_string(i);
    }
    save("long-names", pictureOf(names));
    names.categoryAxis.orientation = LabelOrientation::Vertical;
    names.legend.position = LegendPosition::Left;
    save("vertical-names", pictureOf(names));
    save("small", pictureOf(SampleChart(ChartType::Column)), QSize(240, 140));
    save("empty", pictureOf(ChartState()));
}

}  // namespace planview

QTEST_MAIN(planview::ChartPaintTest)
#include "ChartPaintTest.moc"
