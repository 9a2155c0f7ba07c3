// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QRectF>
#include <cmath>

#include "components/chart/ChartState.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// All that a picture of the chart is made from. No widget is involved, so that screen, clipboard and files share the
/// painter. Lengths are in logical pixels.
struct ChartScene {
    const ChartState& state;
    GridTheme theme;
    QFont family;        ///< as the surrounding widgets use it
    double scale = 1.0;  ///< of texts and marks
    QRectF area;
    /// Pixels of the device in a logical one; what is straight is put on them.
    double ratio = 1.0;
    /// Whether what is selected is marked, and how: pictures for others carry no marks.
    bool marks = true;
    bool focused = false;

    [[nodiscard]] double pixels(double logical) const { return logical * scale; }
    /// The nearest border between two pixels of the device.
    [[nodiscard]] double onPixel(double place) const { return std::round(place * ratio) / ratio; }
};

}  // namespace planview
