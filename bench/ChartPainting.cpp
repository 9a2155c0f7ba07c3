// SPDX-License-Identifier: MIT
// A chart on the screen: filling it anew and painting it, beside a plotting widget that does the same, and dragging one
// of its points.
//
// Both fill 20 series of 180 categories from the same numbers and paint 1200 × 600 antialiased, with axes, grid lines
// and a legend. The peer is drawn as its manual says: graphs with pens of 2 px, bars moved above each other.

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <cmath>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <qcustomplot.h>

#include "PaintCounter.h"
#include "automation/Late.h"
#include "components/chart/ChartControl.h"
#include "qt/chart/ChartView.h"

namespace planview::bench {

namespace {

constexpr int Series = 20;
constexpr int Categories = 180;
constexpr QSize Size(1200, 600);

/// Waves at different heights; `round` makes every filling another one.
double ValueOf(int series, int category, int round) {
    return 1000.0 * series + 800.0 * std::sin(category / 9.0 + series) + round % 10;
}

double PositiveValueOf(int series, int category, int round) {
    return 100.0 + 80.0 * std::sin(category / 9.0 + series) + round % 10;
}

double ValueFor(ChartType type, int series, int category, int round) {
    return type == ChartType::Line ? ValueOf(series, category, round) : PositiveValueOf(series, category, round);
}

void Fill(ChartControl& chart, ChartType type, int round) {
    const Late root(chart.Object());
    root.Put("Redraw", false);
    root.Put("ChartType", static_cast<std::int16_t>(type));
    const Late sheet = root.Get("DataSheet");
    sheet.Call("DeleteContents");
    root.Call("CreateDataRows", std::int16_t{1}, std::int16_t{1}, std::int16_t{Categories}, std::int16_t{1},
              std::int16_t{Series}, std::int16_t{1});
    for (int c = 1; c <= Categories; ++c) {
        sheet.Get("Cells", c + 1, 1).Put("Value", "Period " + std::to_string(c));
        for (int s = 1; s <= Series; ++s) {
            sheet.Get("Cells", c + 1, s + 1).Put("Value", ValueFor(type, s - 1, c, round));
        }
    }
    for (int s = 1; s <= Series; ++s) {
        sheet.Get("Cells", 1, s + 1).Put("Value", "Series " + std::to_string(s));
        chart.NameSeries(s, "ROW" + std::to_string(s), "#,##0.0");
    }
    root.Put("Redraw", true);
}

void SavePicture(const QImage& image, const char* name) {
    if (const QString folder = qEnvironmentVariable("PLANVIEW_BENCH_PICTURES"); !folder.isEmpty()) {
        image.save(folder + '/' + name + ".png");
    }
}

void PaintOurs(benchmark::State& state, ChartType type, const char* name) {
    ChartControl chart;
    QImage image;
    int round = 0;
    for ([[maybe_unused]] auto _ : state) {
        Fill(chart, type, ++round);
        image = ChartPicture{chart.State(), GridTheme::light(), QApplication::font()}.image(Size, 1.0);
    }
    SavePicture(image, name);
}

/// What both kinds of peer share.
class PeerPlot {
public:
    PeerPlot() {
        plot_.resize(Size);
        plot_.setAntialiasedElements(QCP::aeAll);
        plot_.legend->setVisible(true);
        plot_.axisRect()->insetLayout()->setInsetAlignment(0, Qt::AlignRight | Qt::AlignTop);
        for (int c = 1; c <= Categories; ++c) {
            keys_.push_back(c);
        }
    }
    [[nodiscard]] QCustomPlot& Plot() { return plot_; }
    [[nodiscard]] const QVector<double>& Keys() const { return keys_; }

    QVector<double> Values(ChartType type, int series, int round) const {
        QVector<double> values;
        values.reserve(Categories);
        for (int c = 1; c <= Categories; ++c) {
            values.push_back(ValueFor(type, series, c, round));
        }
        return values;
    }
    static QColor ColorOf(int series) { return QColor::fromHsv(series * 359 / Series, 200, 200); }

    QImage Paint() {
        plot_.rescaleAxes();
        return plot_.toPixmap(Size.width(), Size.height()).toImage();
    }

private:
    QCustomPlot plot_;
    QVector<double> keys_;
};

void AddLines(PeerPlot& peer) {
    constexpr double Width = 2;
    for (int s = 0; s < Series; ++s) {
        QCPGraph* graph = peer.Plot().addGraph();
        graph->setName("Series " + QString::number(s + 1));
        graph->setPen(QPen(PeerPlot::ColorOf(s), Width));
    }
}

void PaintPeerLines(benchmark::State& state) {
    PeerPlot peer;
    AddLines(peer);
    QImage image;
    int round = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++round;
        for (int s = 0; s < Series; ++s) {
            peer.Plot().graph(s)->setData(peer.Keys(), peer.Values(ChartType::Line, s, round), true);
        }
        image = peer.Paint();
    }
    SavePicture(image, "peer-lines");
}

std::vector<QCPBars*> AddColumns(PeerPlot& peer) {
    std::vector<QCPBars*> bars;
    for (int s = 0; s < Series; ++s) {
        auto* bar = new QCPBars(peer.Plot().xAxis, peer.Plot().yAxis);
        bar->setName("Series " + QString::number(s + 1));
        bar->setPen(Qt::NoPen);
        bar->setBrush(PeerPlot::ColorOf(s));
        if (!bars.empty()) {
            bar->moveAbove(bars.back());
        }
        bars.push_back(bar);
    }
    return bars;
}

void PaintPeerColumns(benchmark::State& state) {
    PeerPlot peer;
    const std::vector<QCPBars*> bars = AddColumns(peer);
    QImage image;
    int round = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++round;
        for (int s = 0; s < Series; ++s) {
            bars[static_cast<std::size_t>(s)]->setData(peer.Keys(), peer.Values(ChartType::StackedColumn, s, round),
                                                       true);
        }
        image = peer.Paint();
    }
    SavePicture(image, "peer-columns");
}

/// Lets every point be moved.
class Willing final : public ChartEvents {
public:
    void MouseDown(MouseButton, ShiftState, const ChartHit&) override {}
    void Selected(const ChartHit&) override {}
    void Drag(const std::string&) override {}
    void DragDrop(const std::string&) override {}
    void GotFocus() override {}
    void LostFocus() override {}
    bool PointMayChange(int, int) override { return true; }
    void PointValueChanged(int, int, double) override {}
};

/// One frame while a point is being dragged up and down: the mouse event and what it repaints.
void DragFrame(benchmark::State& state, ChartType type, bool withTrend) {
    ChartControl chart;
    Willing events;
    chart.SetEvents(&events);
    Fill(chart, type, 0);
    if (withTrend) {
        Late(chart.Object()).Get("Chart").Get("SeriesCollection", Series / 2).Get("Trendlines").Call("Add");
    }
    ChartView view(chart);
    view.resize(Size);
    view.show();
    QApplication::processEvents();
    const ChartPoint point = view.layout().plot().Point(Series / 2, Categories / 2);
    const auto send = [&](QEvent::Type kind, double y) {
        const QPointF at(point.x, y);
        QMouseEvent event(kind, at, view.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
        QApplication::processEvents();
    };
    send(QEvent::MouseButtonPress, point.y);
    constexpr int Way = 40;
    constexpr int Threshold = 5;
    send(QEvent::MouseMove, point.y + Threshold);
    if (!view.moved()) {
        state.SkipWithError("the point cannot be dragged");
    }
    const PaintCounter painted(*view.viewport());
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++step;
        send(QEvent::MouseMove, point.y + Threshold + step % Way);
    }
    if (painted.Count() < state.iterations()) {
        state.SkipWithError("not every step was painted");
    }
    SavePicture(view.grab().toImage(), withTrend ? "drag-trend" : "drag");
    send(QEvent::MouseButtonRelease, point.y);
}

/// The least squares line through the points of a graph.
void Fit(const QCPGraph& from, QCPGraph& line) {
    double sumX = 0;
    double sumY = 0;
    double sumXX = 0;
    double sumXY = 0;
    for (const QCPGraphData& point : *from.data()) {
        sumX += point.key;
        sumY += point.value;
        sumXX += point.key * point.key;
        sumXY += point.key * point.value;
    }
    const double slope = (Categories * sumXY - sumX * sumY) / (Categories * sumXX - sumX * sumX);
    const double base = (sumY - slope * sumX) / Categories;
    line.setData({1, Categories}, {base + slope, base + slope * Categories}, true);
}

/// One value of the peer's plot is another one, and all of it is painted.
template <class SetValue>
void PeerFrames(benchmark::State& state, PeerPlot& peer, const SetValue& setValue) {
    constexpr int Way = 40;
    QCustomPlot& plot = peer.Plot();
    plot.rescaleAxes();
    plot.show();
    QApplication::processEvents();
    int step = 0;
    for ([[maybe_unused]] auto _ : state) {
        setValue(100.0 + ++step % Way);
        plot.replot(QCustomPlot::rpImmediateRefresh);
        QApplication::processEvents();
    }
}

void PeerDragLine(benchmark::State& state, bool withTrend) {
    PeerPlot peer;
    AddLines(peer);
    for (int s = 0; s < Series; ++s) {
        peer.Plot().graph(s)->setData(peer.Keys(), peer.Values(ChartType::Line, s, 0), true);
    }
    const QCPGraph* dragged = peer.Plot().graph(Series / 2);
    QCPGraph* trend = withTrend ? peer.Plot().addGraph() : nullptr;
    PeerFrames(state, peer, [&](double value) {
        (dragged->data()->begin() + Categories / 2)->value = value;
        if (trend) {
            Fit(*dragged, *trend);
        }
    });
}

void PeerDragColumn(benchmark::State& state) {
    PeerPlot peer;
    const std::vector<QCPBars*> bars = AddColumns(peer);
    for (int s = 0; s < Series; ++s) {
        bars[static_cast<std::size_t>(s)]->setData(peer.Keys(), peer.Values(ChartType::StackedColumn, s, 0), true);
    }
    PeerFrames(state, peer, [&](double value) { (bars[Series / 2]->data()->begin() + Categories / 2)->value = value; });
}

BENCHMARK_CAPTURE(PaintOurs, lines, ChartType::Line, "lines")->Name("ChartLines")->Unit(benchmark::kMillisecond);
BENCHMARK(PaintPeerLines)->Name("PeerChartLines")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PaintOurs, columns, ChartType::StackedColumn, "columns")
    ->Name("ChartColumns")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(PaintPeerColumns)->Name("PeerChartColumns")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DragFrame, lines, ChartType::Line, false)->Name("ChartDragFrame")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DragFrame, columns, ChartType::StackedColumn, false)
    ->Name("ChartDragColumn")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DragFrame, trend, ChartType::Line, true)->Name("ChartDragTrend")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PeerDragLine, lines, false)->Name("PeerChartDragFrame")->Unit(benchmark::kMillisecond);
BENCHMARK(PeerDragColumn)->Name("PeerChartDragColumn")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PeerDragLine, trend, true)->Name("PeerChartDragTrend")->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace planview::bench
