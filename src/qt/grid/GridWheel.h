// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

class QWheelEvent;

namespace planview {

/// Turns wheel and touchpad movements into whole columns, rows and scale steps, and keeps the remainder for the next
/// one.
class GridWheel {
public:
    /// Columns to the right and rows down.
    [[nodiscard]] QPoint scrollSteps(const QWheelEvent& event);
    /// Steps of the text scale, positive to enlarge.
    [[nodiscard]] int scaleSteps(const QWheelEvent& event);

private:
    QPointF scrollRest_;
    double scaleRest_ = 0;
};

}  // namespace planview
