// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <QtTest>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "automation/Late.h"
#include "components/chart/ChartControl.h"
#include "qt/GridOnScreen.h"
#include "qt/chart/ChartNumbers.h"
#include "qt/chart/ChartView.h"

namespace planview {

/// Eleven months of three lines of trade, two below nought among them.
inline ChartState SampleChart(ChartType type) {
    ChartState state;
    state.type = type;
    state.title = "Employment: construction, manufacturing, retail";
    state.titleFont.size = 10;
    state.categories = {"Jan 08", "Feb 08", "Mar 08", "Apr 08", "May 08", "Jun 08",
                        "Jul 08", "Aug 08", "Sep 08", "Oct 08", "Nov 08"};
    const std::vector<std::pair<const char*, std::vector<double>>> lines{
        {"Construction", {7476, 7453, 7406, 7327, 7274, 7213, 7160, 7114, 7044, 6967, 6813}},
        {"Manufacturing", {13725, 13696, 13659, 13599, 13564, 13504, 13430, 13358, 13275, 13147, 13034}},
        {"Retail trade",
         {15565.6, 15523, 15526.2, 15426.1, 15370.9, 15337.4, 15300, 15241.1, 15171.9, 15101.4, 14986.6}},
    };
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ChartSeries series;
        series.key = "ROW" + std::to_string(i + 1);
        series.caption = lines[i].first;
        series.format = "#,##0.0";
        series.type = type;
        series.values = lines[i].second;
        constexpr ChartColor Colors[] = {{36, 99, 214}, {224, 138, 30}, {22, 155, 118}};
        series.look->color = Colors[i];
        state.series.push_back(std::move(series));
    }
    return state;
}

/// Lets nothing but points above the first line's change, and writes down what it hears.
class ChartLog final : public ChartEvents {
public:
    void MouseDown(MouseButton button, ShiftState shift, const ChartHit& hit) override {
        heard << QStringLiteral("down %1 %2 %3")
                     .arg(static_cast<int>(button))
                     .arg(static_cast<int>(shift))
                     .arg(static_cast<int>(hit.code));
        call(onPress);
    }
    void Selected(const ChartHit& hit) override {
        heard << QStringLiteral("select %1 %2/%3").arg(static_cast<int>(hit.code)).arg(hit.series).arg(hit.category);
        call(onSelect);
    }
    void Drag(const std::string& source) override { heard << "drag " + QString::fromStdString(source); }
    void DragDrop(const std::string& source) override { heard << "drop " + QString::fromStdString(source); }
    void GotFocus() override { heard << QStringLiteral("focus"); }
    void LostFocus() override { heard << QStringLiteral("no focus"); }
    bool PointMayChange(int series, int /*category*/) override { return series != readOnlySeries; }
    void PointValueChanged(int series, int category, double value) override {
        heard << QStringLiteral("value %1/%2=%3").arg(series).arg(category).arg(value, 0, 'g', 15);
        call(onValue);
    }

    QStringList heard;
    int readOnlySeries = 0;
    std::function<void()> onPress;
    std::function<void()> onSelect;
    std::function<void()> onValue;

private:
    /// A copy runs: it may end what holds the original.
    static void call(std::function<void()> listener) {
        if (listener) {
            listener();
        }
    }
};

/// A chart in a window of its own.
class ChartOnScreen {
public:
    explicit ChartOnScreen(const ChartState& state = SampleChart(ChartType::Column)) {
        fill(state);
        view_ = std::make_unique<ChartView>(chart);
        view_->setTheme(GridTheme::light());
        view_->resize(760, 420);
        view_->show();
        view_->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(view_.get()));
        view_->setFocus();
        chart.SetEvents(&log);
    }
    ~ChartOnScreen() { chart.SetEvents(nullptr); }

    [[nodiscard]] ChartView& view() { return *view_; }
    [[nodiscard]] QWidget* port() { return view_->viewport(); }
    void deleteView() { view_.reset(); }

    /// Where a point can be taken: its end.
    [[nodiscard]] QPoint grip(int series, int category) {
        const ChartPoint point = view_->layout().plot().Point(series, category);
        return QPointF(point.x, point.y).toPoint();
    }
    /// The height at which a value stands.
    [[nodiscard]] int heightOf(double value, int series) { return qRound(view_->layout().plot().YOf(value, series)); }
    [[nodiscard]] QImage picture() { return port()->grab().toImage().convertToFormat(QImage::Format_RGB32); }
    /// What was heard since the last question, apart from the focus.
    QString heard() {
        const QString text = log.heard.filter(QRegularExpression(QStringLiteral("^(?!(no )?focus)"))).join(", ");
        log.heard.clear();
        return text;
    }

    /// Puts a state into the chart by the names of its object model, as whoever fills charts does.
    void fill(const ChartState& state) {
        const Late root(chart.Object());
        root.Put("Redraw", false);
        root.Put("ChartType", static_cast<std::int16_t>(state.type));
        root.Call("CreateDataRows", std::int16_t{1}, std::int16_t{1}, static_cast<std::int16_t>(state.CategoryCount()),
                  std::int16_t{1}, static_cast<std::int16_t>(state.SeriesCount()), std::int16_t{1});
        const Late sheet = root.Get("DataSheet");
        for (int c = 1; c <= state.CategoryCount(); ++c) {
            sheet.Get("Cells", c + 1, 1).Put("Value", state.categories[static_cast<std::size_t>(c - 1)]);
        }
        for (int s = 1; s <= state.SeriesCount(); ++s) {
            const ChartSeries& series = state.series[static_cast<std::size_t>(s - 1)];
            sheet.Get("Cells", 1, s + 1).Put("Value", series.caption);
            for (int c = 1; c <= state.CategoryCount(); ++c) {
                sheet.Get("Cells", c + 1, s + 1).Put("Value", series.values[static_cast<std::size_t>(c - 1)]);
            }
            chart.NameSeries(s, series.key, series.format);
            root.Get("Chart").Get("SeriesCollection", s).Put("ChartType", static_cast<std::int16_t>(series.type));
        }
        root.Put("Redraw", true);
    }

    ChartControl chart;
    ChartLog log;

private:
    std::unique_ptr<ChartView> view_;
};

}  // namespace planview
