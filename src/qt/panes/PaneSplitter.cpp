// SPDX-License-Identifier: MIT
#include "qt/panes/PaneSplitter.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "qt/AssistiveTools.h"

namespace planview {

namespace {

constexpr int GripLength = 28;
constexpr int GripWidth = 1;
constexpr int KeyStep = 20;  // per mille

/// Where the first of two panes ends.
int firstExtent(int extent, int perMille) {
    return std::max(0, extent - PaneSplitter::HandleWidth) * perMille / PaneLayout::WholeExtent;
}

class PaneHandle final : public GuardedWidget<QSplitterHandle> {
public:
    explicit PaneHandle(PaneSplitter& splitter)
        : GuardedWidget(splitter.guard(), splitter.orientation(), &splitter), splitter_(splitter) {
        setAttribute(Qt::WA_Hover);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        splitter_.paintHandle(painter, rect(), underMouse() || hasFocus());
    }
    void keyPressEvent(QKeyEvent* event) override { event->setAccepted(splitter_.handleKey(event->key())); }
    void focusInEvent(QFocusEvent* event) override {
        QSplitterHandle::focusInEvent(event);
        update();
    }
    void focusOutEvent(QFocusEvent* event) override {
        QSplitterHandle::focusOutEvent(event);
        update();
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        QSplitterHandle::mouseReleaseEvent(event);
        splitter_.handleReleased();
    }

private:
    PaneSplitter& splitter_;
};

}  // namespace

PaneSplitter::PaneSplitter(Splitter which, Qt::Orientation orientation, PaneLayout& layout)
    : GuardedWidget(EntryGuard(SplitterLabel(which)), orientation), which_(which), layout_(layout) {
    setHandleWidth(HandleWidth);
    setChildrenCollapsible(false);
}

void PaneSplitter::setTheme(const GridTheme& theme) {
    theme_ = theme;
    for (int i = 0; i < count(); ++i) {
        handle(i)->update();
    }
}

QSplitterHandle* PaneSplitter::createHandle() {
    return new PaneHandle(*this);
}

bool PaneSplitter::bothShown() const {
    return count() == 2 && !widget(0)->isHidden() && !widget(1)->isHidden();
}

void PaneSplitter::follow() {
    if (!bothShown()) {
        return;
    }
    const int extent = orientation() == Qt::Horizontal ? width() : height();
    const int first = firstExtent(extent, layout_.Position(which_));
    if (sizes().value(0) == first && sizes().value(1) == extent - HandleWidth - first) {
        return;
    }
    setSizes({first, std::max(0, extent - HandleWidth - first)});
}

void PaneSplitter::handleReleased() {
    const QList<int> now = sizes();
    const int room = now.value(0) + now.value(1);
    // Within the layout's own unit the handle has not moved.
    const int position = room > 0 ? (now[0] * PaneLayout::WholeExtent + room / 2) / room : 0;
    const int extent = orientation() == Qt::Horizontal ? width() : height();
    if (bothShown() && now[0] != firstExtent(extent, layout_.Position(which_))) {
        layout_.MoveSplitter(which_, position);
    }
}

// --- By keys

bool PaneSplitter::takeKeyboard(QWidget* before) {
    if (!bothShown() || !isVisible()) {
        return false;
    }
    if (!hasKeyboard()) {
        before_ = before ? before : QApplication::focusWidget();
        nameHandle();
        handle(1)->setFocus(Qt::ShortcutFocusReason);
    }
    return true;
}

bool PaneSplitter::hasKeyboard() const {
    return count() == 2 && handle(1)->hasFocus();
}

void PaneSplitter::nameHandle() {
    const QString which = which_ == Splitter::CtrlSplit   ? tr("Border beside the macro tree")
                          : which_ == Splitter::GridSplit ? tr("Border between table and chart")
                          : which_ == Splitter::TreeSplit ? tr("Border below the macro tree")
                                                          : tr("Border within the macro editor");
    constexpr int PerMilleOfPercent = PaneLayout::WholeExtent / 100;
    handle(1)->setAccessibleName(tr("%1, at %2 percent").arg(which).arg(layout_.Position(which_) / PerMilleOfPercent));
}

bool PaneSplitter::handleKey(int key) {
    const bool across = orientation() == Qt::Horizontal;
    int position = layout_.Position(which_);
    if (key == (across ? Qt::Key_Left : Qt::Key_Up)) {
        position -= KeyStep;
    } else if (key == (across ? Qt::Key_Right : Qt::Key_Down)) {
        position += KeyStep;
    } else if (key == Qt::Key_Home) {
        position = PaneLayout::LeastShare;
    } else if (key == Qt::Key_End) {
        position = PaneLayout::WholeExtent - PaneLayout::LeastShare;
    } else if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) {
        if (before_) {
            before_->setFocus(Qt::ShortcutFocusReason);
        }
        return true;
    } else {
        return false;
    }
    layout_.MoveSplitter(which_, position);
    nameHandle();
    announce(*this, handle(1)->accessibleName());
    return true;
}

/// Only now has a pane that was shown or hidden been laid out.
bool PaneSplitter::handleEvent(QEvent* event) {
    const bool done = GuardedWidget::handleEvent(event);
    if (event->type() == QEvent::LayoutRequest) {
        follow();
    }
    return done;
}

void PaneSplitter::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    follow();
}

PaneSplitter::Places PaneSplitter::placesIn(const QRect& rect) const {
    Places places;
    if (!bothShown()) {
        for (int i = 0; i < count(); ++i) {
            places.panes[static_cast<std::size_t>(i)] = widget(i)->isHidden() ? QRect() : rect;
        }
        return places;
    }
    places.panes = {rect, rect};
    places.handle = rect;
    if (orientation() == Qt::Horizontal) {
        const int first = rect.left() + firstExtent(rect.width(), layout_.Position(which_));
        places.panes[0].setRight(first - 1);
        places.handle = QRect(first, rect.top(), HandleWidth, rect.height());
        places.panes[1].setLeft(first + HandleWidth);
    } else {
        const int first = rect.top() + firstExtent(rect.height(), layout_.Position(which_));
        places.panes[0].setBottom(first - 1);
        places.handle = QRect(rect.left(), first, rect.width(), HandleWidth);
        places.panes[1].setTop(first + HandleWidth);
    }
    return places;
}

void PaneSplitter::paintHandle(QPainter& painter, const QRect& rect, bool pointedAt) const {
    const bool across = orientation() == Qt::Horizontal;
    const QColor line = QColor::fromRgb(theme_.line);
    painter.fillRect(rect, QColor::fromRgb(pointedAt ? theme_.accentTint : theme_.panel));
    painter.fillRect(
        across ? QRect(rect.left(), rect.top(), 1, rect.height()) : QRect(rect.left(), rect.top(), rect.width(), 1),
        line);
    painter.fillRect(
        across ? QRect(rect.right(), rect.top(), 1, rect.height()) : QRect(rect.left(), rect.bottom(), rect.width(), 1),
        line);
    const int length = std::min(GripLength, (across ? rect.height() : rect.width()) / 2);
    const QPoint middle = rect.center();
    painter.fillRect(across ? QRect(middle.x(), middle.y() - length / 2, GripWidth, length)
                            : QRect(middle.x() - length / 2, middle.y(), length, GripWidth),
                     QColor::fromRgb(pointedAt ? theme_.accent : theme_.muted));
}

}  // namespace planview
