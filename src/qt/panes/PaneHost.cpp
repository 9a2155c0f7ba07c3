#include "qt/panes/PaneHost.h"

#include <QPainter>
#include <QVBoxLayout>
#include <utility>

#include "qt/chart/ChartView.h"
#include "qt/grid/GridView.h"
#include "qt/panes/EmptyPane.h"
#include "qt/panes/PaneSplitter.h"

namespace planview {

namespace {

using Ground = EmptyPane::Ground;

constexpr std::size_t indexOf(Splitter splitter) {
    return static_cast<std::size_t>(splitter);
}

}  // namespace

PaneHost::PaneHost(PaneLayout& layout, GridView* grid, ChartView* chart, QWidget* parent)
    : QWidget(parent), layout_(layout), gridView_(grid), chart_(chart) {
    EmptyPane* tree = addPane("TreePane", new EmptyPane(tr("Macros"), Ground::Panel));
    EmptyPane* list = addPane("MacroPane", new EmptyPane(tr("Macro"), Ground::Panel));
    EmptyPane* operands = addPane("OperandPane", new EmptyPane(tr("Operand"), Ground::Panel));
    chart_->setObjectName(QLatin1String("ChartPane"));
    PaneSplitter* macro = addSplitter(Splitter::MacroSplit, "MacroSplit", Qt::Horizontal, list, operands);
    PaneSplitter* left = addSplitter(Splitter::TreeSplit, "TreeSplit", Qt::Vertical, tree, macro);
    PaneSplitter* right = addSplitter(Splitter::GridSplit, "GridSplit", Qt::Vertical, grid, chart_);
    PaneSplitter* all = addSplitter(Splitter::CtrlSplit, "CtrlSplit", Qt::Horizontal, left, right);

    auto* only = new QVBoxLayout(this);
    only->setContentsMargins(0, 0, 0, 0);
    only->addWidget(all);
    connect(gridView_, &GridView::textScaleChanged, this, [this](double scale) {
        for (EmptyPane* pane : empty_) {
            pane->setTextScale(scale);
        }
        chart_->setTextScale(scale);
    });
    connect(chart_, &ChartView::textScaleWanted, gridView_, &GridView::setTextScale);
    connect(chart_, &ChartView::chartChanged, this, &PaneHost::showRowDots);
    layout_.SetWatcher(this);
    PanesChanged();
}

PaneHost::~PaneHost() {
    layout_.SetWatcher(nullptr);
}

EmptyPane* PaneHost::addPane(const char* name, EmptyPane* pane) {
    pane->setObjectName(QLatin1String(name));
    empty_.push_back(pane);
    return pane;
}

PaneSplitter* PaneHost::addSplitter(Splitter which, const char* name, Qt::Orientation orientation, QWidget* first,
                                    QWidget* second) {
    auto* splitter = new PaneSplitter(which, orientation, layout_);
    splitter->setObjectName(QLatin1String(name));
    splitter->addWidget(first);
    splitter->addWidget(second);
    splitters_[indexOf(which)] = splitter;
    return splitter;
}

void PaneHost::setTheme(const GridTheme& theme) {
    gridView_->setTheme(theme);
    for (EmptyPane* pane : empty_) {
        pane->setTheme(theme);
    }
    for (PaneSplitter* splitter : splitters_) {
        splitter->setTheme(theme);
    }
    chart_->setTheme(theme);
    showRowDots();
}

/// The rows of the grid that the chart shows, in the colours of its series; those chosen for a comparison with the
/// letters that LINE_INDEX marks them by, even before there is anything to draw.
void PaneHost::showRowDots() {
    RowDots dots;
    if (layout_.ChartPaneVisible()) {
        const ChartState& chart = chart_->chart().State();
        for (const ChartSeries& series : chart.series) {
            dots.emplace(series.key, RowDot{markColor(series.look->color, chart_->theme().heading), {}});
        }
        for (const auto& [key, letter] : {std::pair(chart.salesKey, 'S'), std::pair(chart.forecastKey, 'F')}) {
            if (!key.empty()) {
                RowDot& dot = dots.try_emplace(key, RowDot{chart_->theme().muted, {}}).first->second;
                dot.letter = QLatin1Char(letter);
            }
        }
    }
    gridView_->setRowDots(std::move(dots));
}

void PaneHost::PanesChanged() {
    splitters_[indexOf(Splitter::TreeSplit)]->setVisible(layout_.TreePaneVisible());
    chart_->setVisible(layout_.ChartPaneVisible());
    showRowDots();
    for (PaneSplitter* splitter : splitters_) {
        splitter->follow();
    }
}

QImage PaneHost::renderToImage(QSize size, qreal scale) const {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    paintPane(painter, splitters_[indexOf(Splitter::CtrlSplit)], QRect(QPoint(0, 0), size), scale);
    return image;
}

void PaneHost::paintPane(QPainter& painter, QWidget* pane, const QRect& rect, qreal scale) const {
    if (rect.isEmpty()) {
        return;
    }
    if (pane == gridView_) {
        painter.drawImage(rect.topLeft(), gridView_->renderToImage(rect.size(), scale));
    } else if (pane == chart_) {
        painter.drawImage(rect.topLeft(), chart_->renderToImage(rect.size(), scale));
    } else if (const auto* empty = dynamic_cast<const EmptyPane*>(pane)) {
        empty->paintOn(painter, rect);
    } else if (const auto* splitter = qobject_cast<const PaneSplitter*>(pane)) {
        const PaneSplitter::Places places = splitter->placesIn(rect);
        for (int i = 0; i < splitter->count(); ++i) {
            paintPane(painter, splitter->widget(i), places.panes[static_cast<std::size_t>(i)], scale);
        }
        if (!places.handle.isEmpty()) {
            splitter->paintHandle(painter, places.handle, false);
        }
    }
}

}  // namespace planview
