// SPDX-License-Identifier: MIT
// A grid on the screen: painting all of it, and scrolling it by a row.
//
// Both windows are of one size and show cells of one size, so that both paint the same number of cells; the control's
// fixed columns and rows are some of them. The peer has no fixed ones: Qt's table cannot have any.

#include <QAbstractScrollArea>
#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>
#include <QTableView>
#include <memory>

#include <benchmark/benchmark.h>

#include <planview/qt/PlanViewWidget.h>

#include "BenchTables.h"
#include "PaintCounter.h"
#include "Peers.h"
#include "qt/grid/GridView.h"

namespace planview::bench {

namespace {

constexpr int Side = 181;
constexpr QSize WindowSize(1280, 800);

class GridWindow {
public:
    static constexpr const char* Name = "grid";

    GridWindow() : tables_(MakeTables(Plan(Side))) {
        AddFixedSides(tables_, Plan(Side));
        for (int row = 1; row <= Side; ++row) {
            tables_.lineIndex->SetValue(row, "ROW_FORMAT", "#,##0.0");
        }
        widget_.setColorScheme(PlanViewWidget::ColorScheme::Light);
        tables_.GiveTo(widget_.control());
        widget_.DP_Import_Attribute();
        widget_.DP_Import_Create();
    }

    [[nodiscard]] QWidget& Window() { return widget_; }
    [[nodiscard]] QAbstractScrollArea& Area() { return *widget_.findChild<GridView*>(); }

private:
    test::Tables tables_;
    PlanViewWidget widget_;
};

class PeerWindow {
public:
    static constexpr const char* Name = "peer";

    PeerWindow() : model_(PeerSource(Plan(Side))) {
        view_.setModel(&model_);
        view_.setWordWrap(false);
        view_.setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
        view_.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
        view_.horizontalHeader()->setFixedHeight(RowHeight);
        view_.verticalHeader()->setFixedWidth(LabelWidth);
        view_.horizontalHeader()->setMinimumSectionSize(1);
        view_.verticalHeader()->setMinimumSectionSize(1);
        view_.horizontalHeader()->setDefaultSectionSize(ColumnWidth);
        view_.verticalHeader()->setDefaultSectionSize(RowHeight);
    }

    [[nodiscard]] QWidget& Window() { return view_; }
    [[nodiscard]] QAbstractScrollArea& Area() { return view_; }

private:
    VectorModel model_;
    QTableView view_;
};

template <class Shown>
std::unique_ptr<Shown> Show() {
    auto shown = std::make_unique<Shown>();
    shown->Window().resize(WindowSize);
    shown->Window().show();
    QApplication::processEvents();
    return shown;
}

template <class Shown>
void RepaintAll(benchmark::State& state) {
    const std::unique_ptr<Shown> shown = Show<Shown>();
    QImage image(WindowSize, QImage::Format_RGB32);
    for ([[maybe_unused]] auto _ : state) {
        shown->Window().render(&image);
    }
    if (const QString folder = qEnvironmentVariable("PLANVIEW_BENCH_PICTURES"); !folder.isEmpty()) {
        image.save(folder + '/' + Shown::Name + ".png");
    }
}

/// Down row by row and back again, each step painted before the next one.
template <class Shown>
void ScrollByRow(benchmark::State& state) {
    constexpr int Steps = 100;
    const std::unique_ptr<Shown> shown = Show<Shown>();
    QScrollBar& bar = *shown->Area().verticalScrollBar();
    const PaintCounter painted(*shown->Area().viewport());
    int value = bar.value();
    int direction = 1;
    for ([[maybe_unused]] auto _ : state) {
        if (value == Steps) {
            direction = -1;
        } else if (value == 0) {
            direction = 1;
        }
        value += direction;
        bar.setValue(value);
        QApplication::processEvents();
    }
    if (bar.maximum() < Steps || painted.Count() < state.iterations()) {
        state.SkipWithError("not every step was painted");
    }
}

BENCHMARK(RepaintAll<GridWindow>)->Name("Repaint")->Unit(benchmark::kMicrosecond);
BENCHMARK(RepaintAll<PeerWindow>)->Name("PeerRepaint")->Unit(benchmark::kMicrosecond);
BENCHMARK(ScrollByRow<GridWindow>)->Name("ScrollStep")->Unit(benchmark::kMicrosecond);
BENCHMARK(ScrollByRow<PeerWindow>)->Name("PeerScrollStep")->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace planview::bench
