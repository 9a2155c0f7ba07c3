// SPDX-License-Identifier: MIT
#include "qt/dialogs/ColorButton.h"

#include <QPainter>
#include <array>

#include "grid/ColorQuestion.h"
#include "grid/modGrid.h"
#include "qt/grid/GridColors.h"

namespace planview {

namespace {

constexpr QSize SwatchSize(28, 16);
constexpr int ChevronRoom = 24;
constexpr double EdgeWeight = 0.6;

constexpr std::array<const char*, modGrid::PaletteSize> ColorNames{
    "White", "Black",     "Blue",       "Green",       "Cyan",       "Red",       "Magenta",       "Yellow",
    "Gray",  "Dark gray", "Light blue", "Light green", "Light cyan", "Light red", "Light magenta", "Light yellow"};

QColor paletteColor(int index) {
    const Rgb rgb = modGrid::PaletteColorOf(static_cast<std::int16_t>(index));
    return {rgb.red, rgb.green, rgb.blue};
}

}  // namespace

ColorButton::ColorButton(ViewColor own, const QString& what, QWidget* parent)
    : QPushButton(parent), own_(own), what_(what) {
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

void ColorButton::setViewBackground(int index) {
    viewBackground_ = index;
    showColor();
}

QColor ColorButton::ownColor() const {
    const bool coloured = own_ == ViewColor::Background && viewBackground_ != PaletteIndexOf(ViewColor::Base) &&
                          viewBackground_ >= 0 && viewBackground_ < modGrid::PaletteSize;
    return coloured ? paletteColor(viewBackground_) : QColor(themeColor(theme_, own_));
}

void ColorButton::showColor() {
    const bool isOwn = index_ == PaletteIndexOf(own_);
    const QColor color = isOwn ? ownColor() : paletteColor(index_);
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
    setText(isOwn ? tr("As the view") : tr(ColorNames[static_cast<std::size_t>(index_)]));
    setAccessibleName(what_ + QStringLiteral(": ") + text());
}

void ColorButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    const QRect room(width() - ChevronRoom, 0, ChevronRoom, height());
    QIcon(QStringLiteral(":/planview/icons/chevron-down.svg")).paint(&painter, room.adjusted(0, 0, -6, 0));
}

}  // namespace planview
