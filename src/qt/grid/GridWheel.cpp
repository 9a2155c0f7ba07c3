// SPDX-License-Identifier: MIT
#include "qt/grid/GridWheel.h"

#include <QApplication>
#include <QWheelEvent>
#include <cmath>

#include "components/GridTypes.h"

namespace planview {

namespace {

/// What Qt reports for one notch.
constexpr double Notch = 120.0;
/// Typical tracks in logical pixels, by which a touchpad's pixels become steps.
constexpr double PixelsPerColumn = DefaultColumnWidth;
constexpr double PixelsPerRow = DefaultRowHeight;

/// Takes the whole steps out of what has accumulated; a change of direction starts over.
int takeSteps(double& rest, double amount) {
    if (rest * amount < 0) {
        rest = 0;
    }
    rest += amount;
    const double whole = std::trunc(rest);
    rest -= whole;
    return static_cast<int>(whole);
}

}  // namespace

QPoint GridWheel::scrollSteps(const QWheelEvent& event) {
    QPointF columnsAndRows;
    if (!event.pixelDelta().isNull()) {
        const QPointF pixels = event.pixelDelta();
        columnsAndRows = {pixels.x() / PixelsPerColumn, pixels.y() / PixelsPerRow};
    } else {
        const QPointF notches = QPointF(event.angleDelta()) / Notch;
        columnsAndRows = {notches.x(), notches.y() * QApplication::wheelScrollLines()};
    }
    if (event.modifiers().testFlag(Qt::ShiftModifier) && columnsAndRows.x() == 0) {
        const double notches =
            event.pixelDelta().isNull() ? event.angleDelta().y() / Notch : event.pixelDelta().y() / PixelsPerColumn;
        columnsAndRows = {notches, 0};
    }
    double x = scrollRest_.x();
    double y = scrollRest_.y();
    const QPoint steps(-takeSteps(x, columnsAndRows.x()), -takeSteps(y, columnsAndRows.y()));
    scrollRest_ = {x, y};
    return steps;
}

int GridWheel::scaleSteps(const QWheelEvent& event) {
    return takeSteps(scaleRest_, event.angleDelta().y() / Notch);
}

}  // namespace planview
