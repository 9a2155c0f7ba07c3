// SPDX-License-Identifier: MIT
#include "qt/grid/GridTextBatch.h"

#include <QGlyphRun>
#include <QPainter>

namespace planview {

GridTextBatch::Batch& GridTextBatch::batch(int rawFont, QRgb color) {
    if (last_ < batches_.size() && batches_[last_].rawFont == rawFont && batches_[last_].color == color) {
        return batches_[last_];
    }
    for (last_ = 0; last_ < batches_.size(); ++last_) {
        if (batches_[last_].rawFont == rawFont && batches_[last_].color == color) {
            return batches_[last_];
        }
    }
    return batches_.emplace_back(Batch{rawFont, color, {}, {}});
}

void GridTextBatch::addNumber(const TextShaper& shaper, std::string_view text, QPointF start, QRgb color) {
    Batch& into = batch(shaper.numberRawFont(), color);
    shaper.placeNumber(text, [&](quint32 glyph, qreal x) {
        into.glyphs.append(glyph);
        into.positions.append(QPointF(start.x() + x, start.y()));
    });
}

void GridTextBatch::addText(const ShapedText& text, QPointF start, QRgb color) {
    for (const ShapedText::Run& run : text.runs) {
        Batch& into = batch(run.rawFont, color);
        into.glyphs.append(run.glyphs);
        for (const QPointF& position : run.positions) {
            into.positions.append(position + start);
        }
    }
}

void GridTextBatch::paint(QPainter& painter) {
    for (Batch& batch : batches_) {
        if (batch.glyphs.isEmpty()) {
            continue;
        }
        QGlyphRun run;
        run.setRawFont(fonts_.rawFonts()[static_cast<std::size_t>(batch.rawFont)]);
        run.setRawData(batch.glyphs.constData(), batch.positions.constData(), static_cast<int>(batch.glyphs.size()));
        painter.setPen(QColor::fromRgb(batch.color));
        painter.drawGlyphRun(QPointF(), run);
        batch.glyphs.clear();
        batch.positions.clear();
    }
}

}  // namespace planview
