// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPointF>
#include <QRgb>
#include <string_view>
#include <vector>

#include "qt/grid/GridFonts.h"

class QPainter;

namespace planview {

/// Collects texts and paints all those of one font and colour with a single call.
class GridTextBatch {
public:
    explicit GridTextBatch(const GridFonts& fonts) : fonts_(fonts) {}

    /// A plain number of the shaper, see TextShaper::isPlainNumber().
    void addNumber(const TextShaper& shaper, std::string_view text, QPointF start, QRgb color);
    void addText(const ShapedText& text, QPointF start, QRgb color);
    void paint(QPainter& painter);

private:
    struct Batch {
        int rawFont;
        QRgb color;
        QList<quint32> glyphs;
        QList<QPointF> positions;
    };
    Batch& batch(int rawFont, QRgb color);

    const GridFonts& fonts_;
    std::vector<Batch> batches_;
    std::size_t last_ = 0;
};

}  // namespace planview
