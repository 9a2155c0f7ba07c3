// SPDX-License-Identifier: MIT
#include "qt/tree/TreeRowPainter.h"

#include <QPainterPath>
#include <algorithm>

#include "automation/Texts.h"

namespace planview {

namespace {

constexpr int RowHeight = 24;
constexpr int Indentation = 16;
constexpr int LeftMargin = 6;
constexpr int PictureGap = 6;
constexpr int TextPixels = 13;
constexpr int ChevronHalf = 4;
constexpr int RowRadius = 4;
constexpr int FocusWidth = 2;
constexpr double HoverWeight = 0.5;
constexpr double UnfocusedWeight = 0.45;
constexpr double LeftOutOpacity = 0.5;
/// Nodes deeper than this are shown at this level anyway.
constexpr int MostLevels = 64;

bool isLeftOut(TreeNode node) {
    for (int level = 0; node && level <= MostLevels; ++level, node = node.Parent()) {
        if (node.LeftOut()) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::string pictureName(const std::string& name) {
    constexpr std::string_view TypePrefix = "M_";
    if (!name.starts_with(TypePrefix)) {
        return name;
    }
    if (name == "M_MAKRO") {
        return "macro";
    }
    if (name == "M_RECORD") {
        return "macro-recording";
    }
    std::string file = "macro-" + name.substr(TypePrefix.size());
    std::transform(file.begin(), file.end(), file.begin(), LowerCase);
    return file;
}

int TreeRowPainter::rowHeight() const {
    return scaled(RowHeight);
}

int TreeRowPainter::indentation() const {
    return scaled(Indentation);
}

int TreeRowPainter::textLeft(int level, bool hasPicture) const {
    return scaled(LeftMargin) + (level + 1) * indentation() + (hasPicture ? scaled(BitmapPixels + PictureGap) : 0);
}

QFont TreeRowPainter::font(const QFont& base) const {
    QFont font = base;
    font.setPixelSize(scaled(TextPixels));
    return font;
}

const QPixmap& TreeRowPainter::picture(TreeNode node, qreal ratio) const {
    const std::string& selected = node.SelectedImage();
    const std::string& name = node.Selected() && !selected.empty() ? selected : node.Image();
    return bitmaps_.pixmap(pictureName(name), qRound(scaled(BitmapPixels) * ratio), theme_);
}

bool TreeRowPainter::hasPicture(TreeNode node) const {
    return !picture(node, 1.0).isNull();
}

void TreeRowPainter::paintChevron(QPainter& painter, const QRect& place, bool open) const {
    const QPointF middle = QRectF(place).center();
    const double half = scaled(ChevronHalf);
    QPainterPath path;
    if (open) {
        path.moveTo(middle + QPointF(-half, -half / 2));
        path.lineTo(middle + QPointF(0, half / 2));
        path.lineTo(middle + QPointF(half, -half / 2));
    } else {
        path.moveTo(middle + QPointF(-half / 2, -half));
        path.lineTo(middle + QPointF(half / 2, 0));
        path.lineTo(middle + QPointF(-half / 2, half));
    }
    painter.setPen(QPen(QColor(theme_.muted), 1.5 * scale_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
}

void TreeRowPainter::paint(QPainter& painter, const QRect& row, TreeNode node, const State& state) const {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ground = QRectF(row).adjusted(FocusWidth, 0.5, -FocusWidth, -0.5);
    if (node.Selected() || state.hovered) {
        const double weight = !node.Selected() ? HoverWeight : state.focused ? 1.0 : UnfocusedWeight;
        const QRgb over = node.Selected() ? theme_.accentTint : theme_.heading;
        const QRgb tint = node.Selected() && !state.focused ? mixColors(theme_.heading, theme_.accentTint, weight)
                                                            : mixColors(theme_.panel, over, weight);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(tint));
        painter.drawRoundedRect(ground, RowRadius, RowRadius);
        if (node.Selected() && state.focused) {
            painter.setBrush(QColor(theme_.accent));
            painter.drawRoundedRect(QRectF(row.left(), row.top() + 2, FocusWidth + 1, row.height() - 4), 1, 1);
        }
    }
    const int left = row.left() + scaled(LeftMargin) + state.level * indentation();
    if (state.hasChildren) {
        paintChevron(painter, QRect(left, row.top(), indentation(), row.height()), node.Expanded());
    }
    const bool leftOut = isLeftOut(node);
    painter.setOpacity(leftOut ? LeftOutOpacity : 1.0);
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPixmap& shown = picture(node, ratio);
    if (!shown.isNull()) {
        const int side = scaled(BitmapPixels);
        painter.drawPixmap(QRect(left + indentation(), row.top() + (row.height() - side) / 2, side, side), shown);
    }
    const QRect text = row.adjusted(textLeft(state.level, !shown.isNull()), 0, -scaled(LeftMargin), 0);
    QFont textFont = font(painter.font());
    textFont.setStrikeOut(leftOut);
    painter.setFont(textFont);
    painter.setPen(QColor(theme_.text));
    const QString full = QString::fromStdString(node.Text()).simplified();
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(full, Qt::ElideRight, text.width()));
    painter.restore();
}

}  // namespace planview
