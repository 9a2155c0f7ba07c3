// SPDX-License-Identifier: MIT
#include "qt/grid/GridBubble.h"

#include <QPainter>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>

#include "qt/AssistiveTools.h"
#include "qt/grid/GridFonts.h"
#include "qt/grid/GridTheme.h"

namespace planview {

namespace {

constexpr int MomentMilliseconds = 4000;
// In logical pixels.
constexpr double WidestText = 300;
constexpr double PaddingAcross = 9;
constexpr double PaddingDown = 5;
constexpr double Distance = 4;
constexpr double CornerRadius = 4;
constexpr double StripeWidth = 4;

int pixels(double logical, double scale) {
    return static_cast<int>(std::lround(logical * scale));
}

}  // namespace

GridBubble::GridBubble(QWidget* ground) : QWidget(ground) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

QRect GridBubble::textRect() const {
    const int left = pixels(PaddingAcross + StripeWidth, scale_);
    const int down = pixels(PaddingDown, scale_);
    return rect().adjusted(left, down, -pixels(PaddingAcross, scale_), -down);
}

void GridBubble::say(const QString& text, const QRect& place, const GridTheme& theme, double scale, Stay stay) {
    const bool isNew = !isVisible() || text != text_;  // it may only follow its place
    text_ = text;
    theme_ = theme;
    scale_ = scale;
    QFont scaled = parentWidget()->font();
    scaled.setPixelSize(std::max(1, pixels(BaseTextPixels, scale)));
    setFont(scaled);
    setAccessibleName(text);

    const QRect ground = parentWidget()->rect();
    const int across = pixels(2 * PaddingAcross + StripeWidth, scale);
    const int widest = std::max(1, std::min(pixels(WidestText, scale), ground.width() - across));
    const QSize needed =
        fontMetrics().boundingRect(QRect(0, 0, widest, ground.height()), Qt::TextWordWrap, text).size();
    const QSize size(needed.width() + across, needed.height() + pixels(2 * PaddingDown, scale));
    const int distance = pixels(Distance, scale);
    const bool below = place.bottom() + distance + size.height() <= ground.bottom();
    const int y = below ? place.bottom() + 1 + distance : std::max(0, place.top() - distance - size.height());
    const int x = std::clamp(place.left(), 0, std::max(0, ground.width() - size.width()));
    setGeometry(QRect(QPoint(x, y), size));
    raise();
    show();
    update();
    if (stay == Stay::ForAMoment) {
        goes_.start(MomentMilliseconds, this);
    } else {
        goes_.stop();
    }
    if (isNew) {
        announce(*this, text);
    }
}

void GridBubble::timerEvent(QTimerEvent* event) {
    if (event->timerId() == goes_.timerId()) {
        goes_.stop();
        hide();
    }
}

void GridBubble::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double radius = CornerRadius * scale_;
    painter.setBrush(QColor::fromRgb(theme_.negative));
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setBrush(QColor::fromRgb(theme_.text));
    painter.drawRoundedRect(rect().adjusted(pixels(StripeWidth, scale_), 0, 0, 0), radius, radius);
    painter.setPen(QColor::fromRgb(theme_.base));
    painter.drawText(textRect(), Qt::TextWordWrap | Qt::AlignVCenter, text_);
}

}  // namespace planview
