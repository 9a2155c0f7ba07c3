// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include "qt/AssistiveTools.h"
#include "qt/InputCodes.h"
#include "qt/chart/ChartDrawn.h"
#include "qt/chart/ChartNumbers.h"
#include "qt/chart/ChartView.h"

// What the user does with the view. The host may delete it from inside the event that follows.

namespace planview {

namespace {

constexpr double ScaleStep = 0.1;
constexpr int SmallStep = 1;
constexpr int LargeStep = 10;
/// The point follows the mouse from here on, in logical pixels; a click moves nothing.
constexpr int LeastMove = 3;
constexpr double DraggedPart = 0.35;

/// The nearest name in the tree of widgets that a programmer has given.
std::string nameOf(const QObject* source) {
    for (; source; source = source->parent()) {
        const QString name = source->objectName();
        if (!name.isEmpty() && !name.startsWith(QLatin1String("qt_"))) {
            return name.toStdString();
        }
    }
    return {};
}

}  // namespace

// --- Mouse

void ChartView::mousePressEvent(QMouseEvent* event) {
    press(*event);
}

void ChartView::mouseDoubleClickEvent(QMouseEvent* event) {
    press(*event);
}

void ChartView::press(QMouseEvent& event) {
    const QPointer<ChartView> self(this);
    if (moved_ || (event.button() != Qt::LeftButton && event.button() != Qt::RightButton)) {
        return;
    }
    refused_ = false;
    const QPoint at = event.position().toPoint();
    const ChartHit hit = hitTest(at);
    const ShiftState shift = shiftOf(event.modifiers());
    setBubble(std::nullopt);
    if (event.button() == Qt::RightButton) {
        chart_.UserPressed(MouseButton::Right, shift, hit);  // the popup's owner selects what it is about
        return;
    }
    const bool ofChart = event.modifiers() == Qt::AltModifier;
    const std::uint64_t version = chart_.Version();
    const double height = hit.code == ChartHitCode::Point ? layout().plot().Point(hit.series, hit.category).y : 0;
    chart_.UserPressed(MouseButton::Left, shift, hit);
    if (!self || chart_.Version() != version) {
        return;  // what lay under the mouse may lie elsewhere now
    }
    if (!ofChart) {
        chart_.UserSelected(hit);
    }
    if (self) {
        press_ = Press{at, hit, ofChart, height - at.y()};
    }
}

void ChartView::mouseMoveEvent(QMouseEvent* event) {
    const QPointer<ChartView> self(this);
    const QPoint at = event->position().toPoint();
    const bool freely = event->modifiers().testFlag(Qt::ShiftModifier);
    if (moved_) {
        moveTo(at, freely);
        return;
    }
    const bool held = event->buttons().testFlag(Qt::LeftButton);
    if (refused_ && held) {
        return;  // the reason stays until the button is let go
    }
    if (!press_ || !held) {
        press_.reset();
        hover(at);
        return;
    }
    if (press_->ofChart) {
        if ((at - press_->at).manhattanLength() >= QApplication::startDragDistance()) {
            press_.reset();
            dragChart();
        }
        return;
    }
    const ChartHit hit = press_->hit;
    if (hit.code != ChartHitCode::Point || std::abs(at.y() - press_->at.y()) < LeastMove) {
        return;
    }
    if (!chart_.UserMayChange(hit.series, hit.category)) {
        if (self) {
            press_.reset();
            refused_ = true;
            showRefusal({hit.series, hit.category});
        }
        return;
    }
    if (self && press_ && isPoint({hit.series, hit.category})) {
        startMoving();
        if (moved_) {
            moveTo(at, freely);
        }
    }
}

void ChartView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    refused_ = false;
    if (moved_) {
        endMoving();
    } else {
        press_.reset();
    }
}

bool ChartView::handleViewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave && !moved_) {
        setBubble(std::nullopt);
    }
    return GuardedView::handleViewportEvent(event);
}

void ChartView::hover(QPoint point) {
    const QPointer<ChartView> self(this);
    const ChartHit hit = hitTest(point);
    const ChartState& state = chart_.State();
    const Place place{hit.series, hit.category};
    const ChartLegendBox::Entry* entry = layout().legend().entryAt(point);
    if (hit.code == ChartHitCode::Point) {
        showPointBubble(place);
    } else if (entry && (layout().legend().isCut(*entry) || !entry->reason.isEmpty())) {
        setBubble(Bubble{entry->rect, entry->text + entry->remark(), entry->reason});
    } else if (hit.code == ChartHitCode::Trendline && !entry) {
        setBubble(Bubble{QRectF(point, QSizeF(1, 1)), trendName(state, hit.series, 1), {}});
    } else {
        setBubble(std::nullopt);
    }
    const bool movable = hit.code == ChartHitCode::Point && mayChange(place);
    if (self) {
        viewport()->setCursor(movable ? Qt::SizeVerCursor : Qt::ArrowCursor);
    }
}

/// Asked once for each point that the mouse comes to.
bool ChartView::mayChange(const Place& place) {
    if (asked_ != place) {
        const QPointer<ChartView> self(this);
        const bool may = chart_.UserMayChange(place.series, place.category);
        if (!self) {
            return false;
        }
        asked_ = place;
        mayChange_ = may;
    }
    return mayChange_;
}

void ChartView::showPointBubble(const Place& place) {
    const QRectF rect = pointRect(place.series, place.category);
    if (rect.isNull()) {
        setBubble(std::nullopt);
        return;
    }
    const ChartState& state = chart_.State();
    setBubble(Bubble{rect, pointName(state, place.series, place.category),
                     pointValueText(state, layout().plot().Stack(), place.series, place.category)});
}

void ChartView::showRefusal(const Place& place) {
    if (isPoint(place)) {
        const QString sentence = tr("This value cannot be changed");
        setBubble(Bubble{pointRect(place.series, place.category), describe(place), sentence});
        planview::announce(*this, sentence);
    }
}

void ChartView::wheelEvent(QWheelEvent* event) {
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        Q_EMIT textScaleWanted(textScale_ + ScaleStep * wheel_.scaleSteps(*event));
        event->accept();
        return;
    }
    const ChartState& state = chart_.State();
    if (!state.categoryAxis.scrollBar || state.VisibleCount() >= state.CategoryCount() || moved_) {
        event->ignore();
        return;
    }
    const QPoint steps = wheel_.scrollSteps(*event);
    event->accept();
    chart_.UserScrolledTo(state.FirstVisible() + (steps.x() != 0 ? steps.x() : steps.y()));
}

// --- Dragging of the chart itself, and over it

void ChartView::dragChart() {
    const QPointer<ChartView> self(this);
    const QImage image = picture().image(viewport()->size(), devicePixelRatioF());
    auto* drag = new QDrag(this);
    auto* contents = new QMimeData;
    contents->setImageData(image);
    drag->setMimeData(contents);
    drag->setPixmap(
        QPixmap::fromImage(image.scaled(image.size() * DraggedPart, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    runDrag_(*drag);
    if (self) {
        drag->deleteLater();
    }
}

void ChartView::dragEnterEvent(QDragEnterEvent* event) {
    if (!event->source()) {
        return;  // nothing that the control or its host has
    }
    event->acceptProposedAction();
    chart_.UserDragged(nameOf(event->source()), false);
}

void ChartView::dragMoveEvent(QDragMoveEvent* event) {
    if (event->source()) {
        event->acceptProposedAction();
    }
}

void ChartView::dropEvent(QDropEvent* event) {
    if (!event->source()) {
        return;
    }
    event->acceptProposedAction();
    chart_.UserDragged(nameOf(event->source()), true);
}

// --- Focus

void ChartView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    forgetDrawn();
    // Qt itself names the chart as a whole after this event.
    guard().later(this, "TellFocus", [this] { announce(true); });
    chart_.UserFocus(true);
}

void ChartView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    cancelMoving();
    forgetDrawn();
    chart_.UserFocus(false);
}

// --- Keyboard

bool ChartView::isPoint(const Place& place) const {
    const ChartState& state = chart_.State();
    return place.series >= 1 && place.series <= state.SeriesCount() && place.category >= 1 &&
           place.category <= state.CategoryCount();
}

std::optional<ChartView::Place> ChartView::current() const {
    return cursor_ && isPoint(*cursor_) ? cursor_ : std::nullopt;
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && (moved_ || bubble_)) {
        cancelMoving();
        setBubble(std::nullopt);
        return;
    }
    if (moved_ || (!changeByKey(*event) && !walk(*event))) {
        event->ignore();
    }
}

bool ChartView::walk(const QKeyEvent& event) {
    const ChartState& state = chart_.State();
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier || state.SeriesCount() == 0 ||
        state.CategoryCount() == 0) {
        return false;
    }
    const std::optional<Place> from = current();
    Place to = from.value_or(Place{1, state.FirstVisible()});
    switch (event.key()) {
        case Qt::Key_Left:
            to.category -= from ? 1 : 0;
            break;
        case Qt::Key_Right:
            to.category += from ? 1 : 0;
            break;
        case Qt::Key_Up:
            to.series -= from ? 1 : 0;
            break;
        case Qt::Key_Down:
            to.series += from ? 1 : 0;
            break;
        case Qt::Key_Home:
            to.category = 1;
            break;
        case Qt::Key_End:
            to.category = state.CategoryCount();
            break;
        case Qt::Key_PageUp:
            to.category -= state.VisibleCount();
            break;
        case Qt::Key_PageDown:
            to.category += state.VisibleCount();
            break;
        default:
            return false;
    }
    goTo({std::clamp(to.series, 1, state.SeriesCount()), std::clamp(to.category, 1, state.CategoryCount())});
    return true;
}

void ChartView::goTo(const Place& place) {
    const QPointer<ChartView> self(this);
    cursor_ = place;
    const ChartState& state = chart_.State();
    const int first = state.FirstVisible();
    if (place.category < first) {
        chart_.UserScrolledTo(place.category);
    } else if (place.category >= first + state.VisibleCount()) {
        chart_.UserScrolledTo(place.category - state.VisibleCount() + 1);
    }
    chart_.UserSelected({ChartHitCode::Point, place.series, place.category});
    if (self && isPoint(place)) {
        viewport()->update();
        showPointBubble(place);
        announce();
    }
}

bool ChartView::changeByKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool small = modifiers == Qt::AltModifier;
    const bool large = modifiers == (Qt::AltModifier | Qt::ControlModifier);
    const std::optional<Place> place = current();
    if (!place || (!small && !large)) {
        return false;
    }
    const int steps = large ? LargeStep : SmallStep;
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Right:
            changeBy(*place, steps);
            return true;
        case Qt::Key_Down:
        case Qt::Key_Left:
            changeBy(*place, -steps);
            return true;
        default:
            return false;
    }
}

void ChartView::changeBy(const Place& place, int steps) {
    const QPointer<ChartView> self(this);
    if (layout().isEmpty()) {
        return;
    }
    const bool may = chart_.UserMayChange(place.series, place.category);
    if (!self || !isPoint(place) || layout().isEmpty()) {
        return;
    }
    if (!may) {
        showRefusal(place);
        return;
    }
    const MovedPoint point(chart_.State(), layout().plot(), layout().maximumSteps(), place.series, place.category);
    const double to = snapped(point.from() + steps * point.step(), point.step());
    chart_.UserChangedPoint(place.series, place.category, to);
    if (self && isPoint(place)) {
        showPointBubble(place);
        announce();
    }
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Mouse) {
        return;  // the press has opened it
    }
    const ChartHit& selected = chart_.State().selected;
    chart_.UserPressed(MouseButton::Right, ShiftState::None,
                       selected.code == ChartHitCode::None ? ChartHit{ChartHitCode::PlotArea, 0, 0} : selected);
}

}  // namespace planview
