// SPDX-License-Identifier: MIT
#include "qt/chart/ChartPicture.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <ostream>

#include <planview/AutomationObject.h>
#include <planview/SaveBeside.h>

#include "qt/chart/ChartPainter.h"

namespace planview {

namespace {

/// Enough pixels for print.
constexpr qreal FileRatio = 2;
constexpr int PixelsPerInch = 96;

QString words(const char* text) {
    return QCoreApplication::translate("planview::ChartView", text);
}

}  // namespace

void ChartPicture::paint(QPainter& painter, QSizeF size, qreal ratio) const {
    const ChartScene scene{state, theme, family, scale, QRectF(QPointF(0, 0), size), ratio, false, false};
    const ChartLayout layout(scene);
    ChartPainter(scene, layout).paint(painter);
}

QImage ChartPicture::image(QSize size, qreal ratio) const {
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return image;
    }
    image.setDevicePixelRatio(ratio);
    QPainter painter(&image);
    paint(painter, size, ratio);
    return image;
}

QByteArray ChartPicture::png(QSize size) const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image(size, FileRatio).save(&buffer, "PNG") ? bytes : QByteArray();
}

QByteArray ChartPicture::pdf(QSize size) const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(PixelsPerInch);
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        constexpr double PointsPerInch = 72;
        writer.setPageSize(QPageSize(QSizeF(size) * PointsPerInch / PixelsPerInch, QPageSize::Point));
        writer.setTitle(QString::fromStdString(state.title));
        QPainter painter;
        if (!painter.begin(&writer)) {
            return {};
        }
        paint(painter, size, FileRatio);
    }
    return bytes;
}

QByteArray ChartPicture::svg(QSize size) const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setResolution(PixelsPerInch);
        generator.setSize(size);
        generator.setViewBox(QRect(QPoint(0, 0), size));
        generator.setTitle(QString::fromStdString(state.title));
        QPainter painter;
        if (!painter.begin(&generator)) {
            return {};
        }
        paint(painter, size, FileRatio);
    }
    return bytes;
}

QString ChartPicture::save(const QString& path, QSize size) const {
    const QString suffix = QFileInfo(path).suffix().toLower();
    QByteArray bytes;
    if (suffix == QLatin1String("png")) {
        bytes = png(size);
    } else if (suffix == QLatin1String("pdf")) {
        bytes = pdf(size);
    } else if (suffix == QLatin1String("svg")) {
        bytes = svg(size);
    } else {
        return words("The chart can be saved as PNG, PDF or SVG; %1 is none of them.").arg(QFileInfo(path).fileName());
    }
    if (bytes.isEmpty()) {
        return words("The picture for %1 could not be made.").arg(path);
    }
    try {
        SaveStream(path.toStdU16String(), [&](std::ostream& file) { file.write(bytes.constData(), bytes.size()); });
    } catch (const AutomationError& error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

}  // namespace planview
