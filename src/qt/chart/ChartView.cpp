// SPDX-License-Identifier: MIT
#include "qt/chart/ChartView.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QFocusEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "qt/chart/ChartAccessible.h"
#include "qt/chart/ChartDrawn.h"
#include "qt/chart/ChartNumbers.h"

namespace planview {

namespace {

constexpr double SmallestScale = 0.5;
constexpr double LargestScale = 3.0;
constexpr QSize SmallestSize(60, 40);
constexpr double Reach = 7;

QRect outer(const QRectF& rect) {
    constexpr int Blur = 2;
    return rect.toAlignedRect().adjusted(-Blur, -Blur, Blur, Blur);
}

}  // namespace

ChartView::ChartView(ChartControl& chart, std::shared_ptr<void> owner, QWidget* parent)
    : GuardedView(EntryGuard("CHART", std::move(owner)), parent),
      chart_(chart),
      runDrag_([](QDrag& drag) { drag.exec(Qt::CopyAction); }) {
    installChartAccessibility();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Chart"));
    setAcceptDrops(true);
    setLayoutDirection(Qt::LeftToRight);  // its periods run so, and the scroll bar runs with them
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    setTheme(GridTheme::forPalette(QApplication::palette()));
    chart_.SetWatcher(this);
    updateScrollBar();
}

ChartView::~ChartView() {
    chart_.SetWatcher(nullptr);
}

// --- Look

void ChartView::setTheme(const GridTheme& theme) {
    theme_ = theme;
    QPalette colors = theme.widgetPalette(QApplication::palette());
    colors.setColor(QPalette::Window, QColor::fromRgb(theme.base));
    setPalette(colors);
    forgetDrawn();
}

void ChartView::setTextScale(double scale) {
    const double clamped = std::clamp(scale, SmallestScale, LargestScale);
    if (clamped != textScale_) {
        textScale_ = clamped;
        forgetDrawn();
    }
}

QSize ChartView::minimumSizeHint() const {
    return SmallestSize;
}

void ChartView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        forgetDrawn();
    }
}

// --- Layout

QRectF ChartView::area() const {
    return QRectF(QPointF(0, 0), QSizeF(viewport()->size()));
}

double ChartView::reach() const {
    return Reach * textScale_;
}

void ChartView::forgetDrawn() {
    drawn_.reset();
    picture_ = QPixmap();
    bubble_.reset();
    viewport()->update();
}

/// The chart may have changed silently while redraw is off.
ChartView::Drawn& ChartView::drawn() {
    const bool current = drawn_ && drawn_->version == chart_.Version() && drawn_->scene.area == area() &&
                         drawn_->scene.ratio == devicePixelRatioF() && drawn_->scene.focused == hasFocus();
    if (!current) {
        picture_ = QPixmap();
        drawn_ = std::make_unique<Drawn>(
            ChartScene{chart_.State(), theme_, font(), textScale_, area(), devicePixelRatioF(), true, hasFocus()},
            chart_.Version());
    }
    return *drawn_;
}

const ChartLayout& ChartView::layout() {
    return drawn().layout;
}

QRectF ChartView::pointRect(int series, int category) {
    const Drawn& now = drawn();
    if (now.layout.isEmpty() || category < now.layout.plot().FirstCategory() ||
        category > now.layout.plot().LastCategory()) {
        return {};
    }
    return ChartSeriesPainter(now.scene, now.scene.state, now.layout.plot(), now.painter.colors())
        .pointRect(series, category);
}

ChartHit ChartView::hitTest(QPointF point) {
    return layout().hitTest(point, reach());
}

void ChartView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    cancelMoving();
    forgetDrawn();
}

void ChartView::updateScrollBar() {
    const ChartState& state = chart_.State();
    const int hidden = state.categoryAxis.scrollBar ? state.CategoryCount() - state.VisibleCount() : 0;
    QScrollBar* bar = horizontalScrollBar();
    const QScopedValueRollback updating(updatingBar_, true);
    bar->setRange(0, std::max(0, hidden));
    bar->setPageStep(std::max(1, state.VisibleCount()));
    bar->setValue(state.FirstVisible() - 1);
}

void ChartView::scrollContentsBy(int /*dx*/, int /*dy*/) {
    if (!updatingBar_) {
        guard().run("Scroll", [this] { chart_.UserScrolledTo(horizontalScrollBar()->value() + 1); });
    }
}

// --- Changes of the chart

void ChartView::ChartChanged() {
    moved_.reset();
    press_.reset();
    asked_.reset();
    const bool keyboard = bubble_ && cursor_;
    forgetDrawn();
    updateScrollBar();
    const ChartHit& selected = chart_.State().selected;
    if (selected.code == ChartHitCode::Point) {
        cursor_ = Place{selected.series, selected.category};
    } else if (cursor_ && !isPoint(*cursor_)) {
        cursor_.reset();
    }
    if (keyboard && cursor_) {
        showPointBubble(*cursor_);
    }
    announce();
    Q_EMIT chartChanged();
}

void ChartView::CopyPicture() {
    QApplication::clipboard()->setImage(picture().image(viewport()->size(), devicePixelRatioF()));
}

// --- Painting

void ChartView::makePicture(Drawn& drawn) {
    picture_ = QPixmap((area().size() * drawn.scene.ratio).toSize());
    picture_.setDevicePixelRatio(drawn.scene.ratio);
    QPainter painter(&picture_);
    if (moved_) {
        drawn.painter.paintWithoutTrends(painter, moved_->series());
    } else {
        drawn.painter.paint(painter);
    }
}

void ChartView::paintEvent(QPaintEvent* event) {
    Drawn& now = drawn();
    if (area().isEmpty()) {
        return;
    }
    if (picture_.isNull()) {
        makePicture(now);
    }
    QPainter painter(viewport());
    const QRect part = event->rect();
    painter.drawPixmap(
        part.topLeft(), picture_,
        QRectF(QPointF(part.topLeft()) * now.scene.ratio, QSizeF(part.size()) * now.scene.ratio).toRect());
    paintOverlay(painter, now);
}

void ChartView::paintOverlay(QPainter& painter, Drawn& drawn) {
    if (moved_ && !drawn.layout.isEmpty()) {
        drawn.painter.paintMoved(painter, moved_->state(), moved_->plot(), moved_->series(), moved_->category());
    }
    const bool marked = chart_.State().selected.series > 0;
    if (hasFocus() && !marked) {
        if (cursor_ && isPoint(*cursor_) && !pointRect(cursor_->series, cursor_->category).isEmpty()) {
            ChartSeriesPainter(drawn.scene, drawn.scene.state, drawn.layout.plot(), drawn.painter.colors())
                .paintPointMark(painter, cursor_->series, cursor_->category, theme_.accent);
        } else {
            // Nothing else would show where the focus is.
            painter.setRenderHint(QPainter::Antialiasing, false);
            painter.setPen(QColor::fromRgb(theme_.accent));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
        }
    }
    if (bubble_) {
        drawn.painter.paintBubble(painter, bubble_->place, bubble_->name, bubble_->value);
    }
}

QString ChartView::bubbleText() const {
    return bubble_ ? bubble_->name + QLatin1Char('\n') + bubble_->value : QString();
}

void ChartView::setBubble(std::optional<Bubble> bubble) {
    if (bubble == bubble_) {
        return;
    }
    const ChartPainter& painter = drawn().painter;
    for (const std::optional<Bubble>& shown : {bubble_, bubble}) {
        if (shown) {
            viewport()->update(outer(painter.bubbleRect(shown->place, shown->name, shown->value)));
        }
    }
    bubble_ = std::move(bubble);
}

ChartPicture ChartView::picture() const {
    return {chart_.State(), theme_, font(), textScale_};
}

QImage ChartView::renderToImage(QSize size, qreal scale) const {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    Drawn drawn(
        ChartScene{chart_.State(), theme_, font(), textScale_, QRectF(QPointF(0, 0), QSizeF(size)), scale, true, true},
        chart_.Version());
    QPainter painter(&image);
    drawn.painter.paint(painter);
    return image;
}

// --- Moving a point

void ChartView::startMoving() {
    const Drawn& now = drawn();
    if (now.layout.isEmpty()) {
        return;
    }
    moved_.emplace(chart_.State(), now.layout.plot(), now.layout.maximumSteps(), press_->hit.series,
                   press_->hit.category);
    const auto& trends = chart_.State().series[static_cast<std::size_t>(press_->hit.series - 1)].look->trends;
    if (!trends.empty()) {
        picture_ = QPixmap();  // without those that move
        viewport()->update();
    }
}

void ChartView::moveTo(QPoint point, bool freely) {
    if (!moved_->moveTo(point.y() + press_->grip, freely) && bubble_) {
        return;
    }
    const Drawn& now = drawn();
    const ChartState& state = moved_->state();
    const ChartSeries& series = state.series[static_cast<std::size_t>(moved_->series() - 1)];
    const ChartSeriesPainter painter(now.scene, state, moved_->plot(), now.painter.colors());
    QRectF place = painter.pointRect(moved_->series(), moved_->category());
    const QRectF plot = now.layout.plotRect();
    place.moveTop(std::clamp(place.top(), plot.top(), plot.bottom()));
    const QRectF strip = now.painter.movedRect(moved_->plot(), moved_->category());
    viewport()->update(outer(series.look->trends.empty() ? strip : plot | strip));
    setBubble(Bubble{place, pointName(state, moved_->series(), moved_->category()),
                     valueText(series, moved_->from()) + QStringLiteral(" → ") +
                         pointValueText(state, moved_->plot().Stack(), moved_->series(), moved_->category())});
}

void ChartView::cancelMoving() {
    press_.reset();
    if (moved_) {
        moved_.reset();
        picture_ = QPixmap();
        bubble_.reset();
        viewport()->update();
    }
}

void ChartView::endMoving() {
    const MovedPoint moved = std::move(*moved_);
    cancelMoving();
    const QPointer<ChartView> self(this);
    if (moved.isMoved()) {
        chart_.UserChangedPoint(moved.series(), moved.category(), moved.to());
    }
    if (self) {
        viewport()->update();
    }
}

// --- For those who do not see the screen

QString ChartView::describe(const Place& place) const {
    const ChartState& state = chart_.State();
    return pointName(state, place.series, place.category) + QStringLiteral(": ") +
           pointValueText(state, StackSeries(state), place.series, place.category);
}

ChartHit ChartView::currentPoint() const {
    const std::optional<Place> place = current();
    return place ? ChartHit{ChartHitCode::Point, place->series, place->category} : ChartHit{};
}

void ChartView::announce(bool again) {
    const ChartState& state = chart_.State();
    const QString title = QString::fromStdString(state.title).simplified();
    setAccessibleName(title.isEmpty() ? tr("Chart") : tr("Chart: %1").arg(title));
    const std::pair<int, int> shape(state.SeriesCount(), state.CategoryCount());
    if (std::exchange(shape_, shape) != shape) {
        tellChartShape(*this);
    }
    const std::optional<Place> place = current();
    const QString text = place ? describe(*place) : QString();
    const bool changed = text != accessibleDescription();
    if (changed) {
        setAccessibleDescription(text);
    }
    if (!place || !hasFocus()) {
        told_.reset();
    } else if (std::exchange(told_, place) != place || again) {
        tellChartFocus(*this, place->series, place->category);
    } else if (changed) {
        tellChartValue(*this, place->series, place->category);
    }
}

}  // namespace planview
