// SPDX-License-Identifier: MIT
#include "qt/panes/PaneHost.h"

#include <QApplication>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/chart/ChartColors.h"
#include "qt/chart/ChartView.h"
#include "qt/grid/GridView.h"
#include "qt/macro/MacroPane.h"
#include "qt/macro/OperandPane.h"
#include "qt/panes/BarredPane.h"
#include "qt/panes/PaneSplitter.h"
#include "qt/tree/ToolbarView.h"
#include "qt/tree/TreePane.h"

namespace planview {

namespace {

constexpr std::size_t indexOf(Splitter splitter) {
    return static_cast<std::size_t>(splitter);
}

/// Gives the keyboard to what had it in the pane last, or to the first that takes it; false where nothing does.
bool takeFocus(QWidget& pane) {
    const auto takes = [](const QWidget& widget) {
        return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0;
    };
    QWidget* target = pane.focusWidget();
    if (!target || !takes(*target)) {
        target = &pane;
        while (!takes(*target) || !(target == &pane || pane.isAncestorOf(target))) {
            target = target->nextInFocusChain();
            if (target == &pane) {
                return false;
            }
        }
    }
    target->setFocus(Qt::TabFocusReason);
    return true;
}

}  // namespace

PaneHost::PaneHost(PaneLayout& layout, MacroEditor& editor, const Panes& panes, QWidget* parent)
    : QWidget(parent),
      layout_(layout),
      macroEditor_(editor),
      gridView_(panes.grid),
      chart_(panes.chart),
      tree_(panes.tree),
      toolbar_(panes.toolbar),
      macro_(panes.macro),
      operands_(panes.operands) {
    tree_->setObjectName(QLatin1String("TreePane"));
    toolbar_->setObjectName(QLatin1String("MacroToolbar"));
    chart_->setObjectName(QLatin1String("ChartPane"));
    PaneSplitter* macro = addSplitter(Splitter::MacroSplit, "MacroSplit", Qt::Horizontal, macro_, operands_);
    editor_ = new BarredPane(toolbar_, macro);
    PaneSplitter* left = addSplitter(Splitter::TreeSplit, "TreeSplit", Qt::Vertical, tree_, editor_);
    PaneSplitter* right = addSplitter(Splitter::GridSplit, "GridSplit", Qt::Vertical, gridView_, chart_);
    PaneSplitter* all = addSplitter(Splitter::CtrlSplit, "CtrlSplit", Qt::Horizontal, left, right);

    auto* only = new QVBoxLayout(this);
    only->setContentsMargins(0, 0, 0, 0);
    only->addWidget(all);
    gridView_->guard().connect(gridView_, &GridView::textScaleChanged, this, "TextScale", [this](double scale) {
        macro_->setTextScale(scale);
        operands_->setTextScale(scale);
        chart_->setTextScale(scale);
        tree_->setTextScale(scale);
        toolbar_->setTextScale(scale);
        editor_->placeParts();
    });
    chart_->guard().connect(chart_, &ChartView::textScaleWanted, this, "TextScale",
                            [this](double scale) { gridView_->setTextScale(scale); });
    chart_->guard().connect(chart_, &ChartView::chartChanged, this, "RowDots", [this] { showRowDots(); });
    layout_.SetWatcher(this);
    macroEditor_.SetWatcher(this);
    PanesChanged();
}

PaneHost::~PaneHost() {
    macroEditor_.SetWatcher(nullptr);
    layout_.SetWatcher(nullptr);
}

void PaneHost::EditorChanged() {
    macro_->follow();
    operands_->follow();
}

void PaneHost::EditorOpened() {
    if (layout_.TreePaneVisible()) {
        macro_->setFocus(Qt::OtherFocusReason);
    }
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
    macro_->setTheme(theme);
    operands_->setTheme(theme);
    for (PaneSplitter* splitter : splitters_) {
        splitter->setTheme(theme);
    }
    chart_->setTheme(theme);
    tree_->setTheme(theme);
    toolbar_->setTheme(theme);
    showRowDots();
}

/// The rows of the grid that the chart shows, in the colours of its series; those chosen for a comparison with the
/// letters that LINE_INDEX marks them by, even before there is anything to draw.
void PaneHost::showRowDots() {
    RowDots dots;
    if (layout_.ChartPaneVisible()) {
        const ChartState& chart = chart_->chart().State();
        const ChartColors colors(chart, chart_->theme());
        for (int series = 1; series <= chart.SeriesCount(); ++series) {
            dots.emplace(chart.series[static_cast<std::size_t>(series - 1)].key, RowDot{colors.series(series), {}});
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
        splitter->refresh();  // one that was never on screen does not notice by itself that a pane is hidden
        splitter->follow();
    }
}

// --- Going about by keys

std::array<QWidget*, 6> PaneHost::panes() const {
    return {gridView_, chart_, tree_, toolbar_, macro_, operands_};
}

void PaneHost::PaneWanted(PaneGoal goal) {
    switch (goal) {
        case PaneGoal::Next:
            goOn(1);
            break;
        case PaneGoal::Previous:
            goOn(-1);
            break;
        case PaneGoal::NextSplitter:
            goToNextSplitter();
            break;
    }
}

void PaneHost::goOn(int step) {
    const std::array<QWidget*, 6> all = panes();
    const QWidget* const focus = QApplication::focusWidget();
    const auto at = std::find_if(all.begin(), all.end(),
                                 [&](const QWidget* pane) { return pane == focus || pane->isAncestorOf(focus); });
    int place = at == all.end() ? -step : static_cast<int>(at - all.begin());
    for (place += step; place >= 0 && place < static_cast<int>(all.size()); place += step) {
        if (takeFocus(*all[static_cast<std::size_t>(place)])) {
            return;
        }
    }
    if (!leave_ || !leave_(step > 0)) {
        enter(step > 0);
    }
}

void PaneHost::enter(bool first) {
    const std::array<QWidget*, 6> all = panes();
    if (first) {
        static_cast<void>(std::any_of(all.begin(), all.end(), [](QWidget* pane) { return takeFocus(*pane); }));
    } else {
        static_cast<void>(std::any_of(all.rbegin(), all.rend(), [](QWidget* pane) { return takeFocus(*pane); }));
    }
}

void PaneHost::goToNextSplitter() {
    const auto has = [](const PaneSplitter* splitter) { return splitter->hasKeyboard(); };
    const auto at = std::find_if(splitters_.begin(), splitters_.end(), has);
    const std::size_t first = at == splitters_.end() ? 0 : static_cast<std::size_t>(at - splitters_.begin()) + 1;
    QWidget* const before = at == splitters_.end() ? nullptr : (*at)->before();
    for (std::size_t i = 0; i < splitters_.size(); ++i) {
        if (splitters_[(first + i) % splitters_.size()]->takeKeyboard(before)) {
            return;
        }
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
    } else if (pane == tree_) {
        tree_->paintOn(painter, rect);
    } else if (pane == editor_) {
        const BarredPane::Places places = editor_->placesIn(rect);
        toolbar_->paintOn(painter, places.bar);
        paintPane(painter, editor_->pane(), places.pane, scale);
    } else if (pane == macro_) {
        macro_->paintOn(painter, rect);
    } else if (pane == operands_) {
        operands_->paintOn(painter, rect);
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
