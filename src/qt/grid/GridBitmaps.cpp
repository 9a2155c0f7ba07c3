// SPDX-License-Identifier: MIT
#include "qt/grid/GridBitmaps.h"

#include <QColor>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

// A statically linked library registers its resources only here.
static void initializeIcons() {
    Q_INIT_RESOURCE(planview_icons);
}

namespace planview {

namespace {

/// What the drawings are stroked with wherever they have no colour of their own.
constexpr const char* Ink = "#1b1f24";

}  // namespace

GridBitmaps::GridBitmaps() {
    initializeIcons();
}

void GridBitmaps::add(const std::string& name, const QIcon& icon) {
    icons_[name] = icon;
    drawn_.clear();
}

const QPixmap& GridBitmaps::pixmap(const std::string& name, int pixels, const GridTheme& theme) {
    const auto key = std::make_tuple(name, pixels, theme.text);
    const auto known = drawn_.find(key);
    return known != drawn_.end() ? known->second : drawn_.emplace(key, draw(name, pixels, theme)).first->second;
}

QIcon GridBitmaps::icon(const std::string& name, int side, qreal ratio, const GridTheme& theme, double disabled) {
    QPixmap picture = pixmap(name, qRound(side * ratio), theme);
    picture.setDevicePixelRatio(ratio);
    QIcon icon(picture);
    if (!picture.isNull()) {
        QPixmap faint(picture.size());
        faint.setDevicePixelRatio(ratio);
        faint.fill(Qt::transparent);
        QPainter painter(&faint);
        painter.setOpacity(disabled);
        painter.drawPixmap(0, 0, picture);
        painter.end();
        icon.addPixmap(faint, QIcon::Disabled);
    }
    return icon;
}

QPixmap GridBitmaps::draw(const std::string& name, int pixels, const GridTheme& theme) const {
    const auto icon = icons_.find(name);
    if (icon != icons_.end()) {
        return icon->second.pixmap(QSize(pixels, pixels), 1.0);
    }
    QFile file(QStringLiteral(":/planview/icons/%1.svg").arg(QString::fromStdString(name)));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QSvgRenderer renderer(file.readAll().replace(Ink, QColor::fromRgb(theme.text).name().toLatin1()));
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    return pixmap;
}

}  // namespace planview
