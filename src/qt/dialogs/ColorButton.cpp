// SPDX-License-Identifier: MIT
#include "qt/dialogs/ColorButton.h"

#include <QPainter>
#include <array>

#include "grid/modGrid.h"

namespace planview {

namespace {

constexpr QSize SwatchSize(28, 16);
constexpr int ChevronRoom = 24;
constexpr double EdgeWeight = 0.6;

constexpr std::array<const char*, modGrid::PaletteSize> ColorNames{
    "White", "Black",     "Blue",       "Green",       "Cyan",       "Red",       "Magenta",       "Yellow",
    "Gray",  "Dark gray", "Light blue", "Light green", "Light cyan", "Light red", "Light magenta", "Light yellow"};

/// The index that means the view's own colour, and that colour.
struct OwnColor {
    int index;
    QRgb rgb;
};

OwnColor ownColor(ColorButton::Use use, const GridTheme& theme) {
    switch (use) {
        case ColorButton::Use::Background:
            return {0, theme.base};
        case ColorButton::Use::Foreground:
            return {1, theme.text};
        case ColorButton::Use::GridLines:
            break;
    }
    return {8, theme.line};
}

}  // namespace

ColorButton::ColorButton(Use use, const QString& what, QWidget* parent) : QPushButton(parent), use_(use), what_(what) {
    setObjectName(QStringLiteral("colorButton"));  // for the style sheet
    setAutoDefault(false);
    setIconSize(SwatchSize);
    showColor();
}

void ColorButton::setTheme(const GridTheme& theme) {
    theme_ = theme;
    showColor();
}

void ColorButton::setColor(int index) {
    index_ = index;
    showColor();
}

void ColorButton::showColor() {
    const OwnColor own = ownColor(use_, theme_);
    const Rgb rgb = modGrid::PaletteColorOf(static_cast<std::int16_t>(index_));
    const QColor color = index_ == own.index ? QColor(own.rgb) : QColor(rgb.red, rgb.green, rgb.blue);
    const qreal ratio = devicePixelRatioF();
    QPixmap swatch(SwatchSize * ratio);
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(Qt::transparent);
    QPainter painter(&swatch);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(mixColors(theme_.line, theme_.muted, EdgeWeight)), 1));
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(QPointF(0, 0), QSizeF(SwatchSize)).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.end();
    setIcon(QIcon(swatch));
    const QString name = tr(ColorNames[static_cast<std::size_t>(index_)]);
    setText(index_ == own.index ? tr("%1 (as the view)").arg(name) : name);
    setAccessibleName(what_ + QStringLiteral(": ") + text());
}

void ColorButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    const QRect room(width() - ChevronRoom, 0, ChevronRoom, height());
    QIcon(QStringLiteral(":/planview/icons/chevron-down.svg")).paint(&painter, room.adjusted(0, 0, -6, 0));
}

}  // namespace planview
