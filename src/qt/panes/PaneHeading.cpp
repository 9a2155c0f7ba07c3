// SPDX-License-Identifier: MIT
#include "qt/panes/PaneHeading.h"

#include <QPainter>
#include <algorithm>

namespace planview {

namespace {

constexpr int Height = 30;
constexpr int HeadingLeft = 12;
constexpr int HeadingTop = 8;
constexpr int HeadingPixels = 11;
/// How far a narrow pane reduces these so that its whole heading can be read.
constexpr int LeastSideMargin = 4;
constexpr int LeastHeadingPixels = 8;
constexpr QSize SmallestSize(40, 28);

}  // namespace

PaneHeading::PaneHeading(const QString& heading, QWidget* parent) : QWidget(parent), heading_(heading) {
    setAccessibleName(heading);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PaneHeading::setTheme(const GridTheme& theme) {
    theme_ = theme;
    update();
}

void PaneHeading::setTextScale(double scale) {
    textScale_ = scale;
    setFixedHeight(scaled(Height));
    update();
}

int PaneHeading::scaled(int logical) const {
    return qRound(logical * textScale_);
}

QFont PaneHeading::headingFont(int width) const {
    QFont heading = font();
    heading.setCapitalization(QFont::AllUppercase);
    heading.setBold(true);
    for (int pixels = scaled(HeadingPixels);; --pixels) {
        heading.setPixelSize(std::max(pixels, LeastHeadingPixels));
        if (pixels <= LeastHeadingPixels || QFontMetrics(heading).horizontalAdvance(heading_) <= width) {
            return heading;
        }
    }
}

void PaneHeading::paintOn(QPainter& painter, const QRect& rect) const {
    painter.fillRect(rect, QColor::fromRgb(theme_.panel));
    const int room = rect.width() - 2 * LeastSideMargin;
    const QFont heading = headingFont(room);
    const QFontMetrics metrics(heading);
    painter.setFont(heading);
    painter.setPen(QColor::fromRgb(theme_.muted));
    const int spare = room - metrics.horizontalAdvance(heading_);
    const int left = LeastSideMargin + std::clamp(spare, 0, std::max(0, scaled(HeadingLeft) - LeastSideMargin));
    const QRect place = rect.adjusted(left, scaled(HeadingTop), -LeastSideMargin, 0);
    const QString fitting = spare < 0 ? metrics.elidedText(heading_, Qt::ElideRight, place.width()) : heading_;
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, fitting);
}

QSize PaneHeading::minimumSizeHint() const {
    return SmallestSize;
}

void PaneHeading::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintOn(painter, rect());
}

}  // namespace planview
