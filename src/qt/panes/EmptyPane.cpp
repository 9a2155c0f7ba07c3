#include "qt/panes/EmptyPane.h"

#include <QPainter>

namespace planview {

namespace {

constexpr int HeadingLeft = 12;
constexpr int HeadingRight = 4;
constexpr int HeadingTop = 8;
constexpr int HeadingPixels = 11;
constexpr QSize SmallestSize(40, 28);

}  // namespace

EmptyPane::EmptyPane(const QString& heading, Ground ground, QWidget* parent)
    : QWidget(parent), heading_(heading), ground_(ground) {
    setAccessibleName(heading);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void EmptyPane::setTheme(const GridTheme& theme) {
    theme_ = &theme;
    update();
}

void EmptyPane::paintOn(QPainter& painter, const QRect& rect) const {
    painter.fillRect(rect, QColor::fromRgb(ground_ == Ground::Panel ? theme_->panel : theme_->base));
    QFont heading = font();
    heading.setPixelSize(HeadingPixels);
    heading.setCapitalization(QFont::AllUppercase);
    heading.setBold(true);
    painter.setFont(heading);
    painter.setPen(QColor::fromRgb(theme_->muted));
    const QRect place = rect.adjusted(HeadingLeft, HeadingTop, -HeadingRight, 0);
    const QString fitting = QFontMetrics(heading).elidedText(heading_, Qt::ElideRight, place.width());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, fitting);
}

QSize EmptyPane::minimumSizeHint() const {
    return SmallestSize;
}

void EmptyPane::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintOn(painter, rect());
}

}  // namespace planview
