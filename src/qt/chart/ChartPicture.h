// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFont>
#include <QImage>
#include <QSize>
#include <QString>

#include "components/chart/ChartState.h"
#include "qt/grid/GridTheme.h"

class QPainter;

namespace planview {

/// A chart for others to see: a picture or a file, without the marks of what is selected.
struct ChartPicture {
    const ChartState& state;
    GridTheme theme;
    QFont family;
    double scale = 1.0;  ///< of texts

    /// `size` in logical pixels, of which each has `ratio` pixels of the image.
    [[nodiscard]] QImage image(QSize size, qreal ratio) const;
    /// Writes a PNG, PDF or SVG file, as the suffix of the path says. Answers a sentence for the user about what went
    /// wrong, and leaves an existing file as it is then; empty when the file is written.
    [[nodiscard]] QString save(const QString& path, QSize size) const;

private:
    void paint(QPainter& painter, QSizeF size, qreal ratio) const;
    [[nodiscard]] QByteArray png(QSize size) const;
    [[nodiscard]] QByteArray pdf(QSize size) const;
    [[nodiscard]] QByteArray svg(QSize size) const;
};

}  // namespace planview
