// SPDX-License-Identifier: MIT
#include "qt/grid/GridEditor.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "grid/CellEntry.h"
#include "qt/grid/CellContentPainter.h"
#include "qt/grid/GridBubble.h"
#include "qt/grid/GridNavigation.h"
#include "qt/grid/GridView.h"

namespace planview {

namespace {

constexpr int FrameWidth = 2;
/// The margin that QLineEdit itself keeps on each side.
constexpr int LineMargin = 2;

std::optional<GridMove> finishingMove(const QKeyEvent& event, GridEditor::Start start) {
    if (const std::optional<GridMove> onward = entryMove(event)) {
        return onward;
    }
    if (start != GridEditor::Start::Typed || (event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) {
        return std::nullopt;
    }
    switch (event.key()) {
        case Qt::Key_Left:
            return GridMove::Left;
        case Qt::Key_Right:
            return GridMove::Right;
        case Qt::Key_Up:
            return GridMove::Up;
        case Qt::Key_Down:
            return GridMove::Down;
        case Qt::Key_PageUp:
            return GridMove::PageUp;
        case Qt::Key_PageDown:
            return GridMove::PageDown;
        default:
            return std::nullopt;
    }
}

bool isReturn(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

/// The text line with the current cell's frame around it.
class EditLine final : public QLineEdit {
public:
    explicit EditLine(QWidget* parent) : QLineEdit(parent) { setFrame(false); }

    void setFrameLook(QRgb color, int width) {
        frameColor_ = color;
        frameWidth_ = width;
        update();
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        QLineEdit::paintEvent(event);
        QPainter painter(this);
        const QColor color = QColor::fromRgb(frameColor_);
        painter.fillRect(0, 0, width(), frameWidth_, color);
        painter.fillRect(0, height() - frameWidth_, width(), frameWidth_, color);
        painter.fillRect(0, 0, frameWidth_, height(), color);
        painter.fillRect(width() - frameWidth_, 0, frameWidth_, height(), color);
    }

private:
    QRgb frameColor_ = 0;
    int frameWidth_ = FrameWidth;
};

GridEditor::GridEditor(GridView& view) : view_(view) {}

GridEditor::~GridEditor() = default;

bool GridEditor::hasFocus() const {
    return line_ && line_->hasFocus();
}

QLineEdit* GridEditor::line() const {
    return line_;
}

QString GridEditor::message() const {
    return bubble_ && bubble_->isVisibleTo(view_.viewport()) ? bubble_->accessibleName() : QString();
}

// --- Opening and closing

void GridEditor::makeLine() {
    if (line_) {
        return;
    }
    line_ = new EditLine(view_.viewport());
    line_->setObjectName(QStringLiteral("CellEditor"));
    line_->installEventFilter(this);
    view_.guard().connect(line_.data(), &QLineEdit::textChanged, this, "EntryChanged", [this] {
        hideMessage();
        follow();
    });
}

bool GridEditor::open(Cell cell, Start start) {
    const GridControl& grid = view_.grid();
    if (const Refusal refusal = RefusalOf(grid, cell); refusal != Refusal::None) {
        say(refusal, cell);
        return false;
    }
    hideMessage();
    makeLine();
    view_.ensureVisible(cell);
    cell_ = cell;
    builtFor_ = grid.BuildVersion();
    before_ = grid.Contents(cell);
    start_ = start;

    const CellLook look = grid.Look(cell);
    const bool planning = IsPlanningCell(grid.KeyOf(cell));
    const bool right =
        (planning && !look.hasAlignment ? GridAlignment::Right : grid.Alignment(cell, look)) == GridAlignment::Right;
    line_->setAlignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    line_->setText(start == Start::Edited ? QString::fromStdString(before_) : QString());
    line_->setModified(false);
    line_->setAccessibleName(view_.cellName(cell));
    open_ = true;
    Q_EMIT openChanged();
    follow();
    line_->setFocus(Qt::OtherFocusReason);
    return true;
}

void GridEditor::close() {
    open_ = false;
    Q_EMIT openChanged();
    hideMessage();
    if (line_->hasFocus()) {
        view_.setFocus(Qt::OtherFocusReason);
    }
    line_->hide();
}

void GridEditor::giveUp() {
    if (open_) {
        close();
    }
}

std::string GridEditor::entered() const {
    const QString text = line_->text();
    return (IsPlanningCell(view_.grid().KeyOf(cell_)) ? text.trimmed() : text).toStdString();
}

bool GridEditor::finish() {
    if (!open_) {
        return true;
    }
    GridControl& grid = view_.grid();
    if (builtFor_ != grid.BuildVersion()) {
        close();
        return true;
    }
    const std::string text = entered();
    const Cell cell = cell_;
    if (text == before_) {
        close();
        grid.ReportStay();
        return true;
    }
    if (const Refusal refusal = RefusalOfEntry(grid, cell, text); refusal != Refusal::None) {
        refuse(refusal);
        return false;
    }
    close();
    grid.EnterText(cell, text);
    return true;
}

bool GridEditor::finishForMouse() {
    const QPointer<GridEditor> self(this);
    const bool ends = std::exchange(endedByMouse_, false) || open_;
    if (!finish() || !self) {
        return false;
    }
    if (!ends) {
        hideMessage();
    }
    return true;
}

void GridEditor::pass(QEvent& event) {
    view_.ensureVisible(cell_);
    follow();
    line_->setFocus(Qt::OtherFocusReason);
    QCoreApplication::sendEvent(line_, &event);
}

// --- Messages

void GridEditor::say(Refusal refusal, Cell cell) {
    const std::string_view text = RefusalText(refusal);
    static_cast<void>(tell(cell, QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))));
}

bool GridEditor::tell(Cell cell, const QString& sentence) {
    if (!bubble_) {
        bubble_ = new GridBubble(view_.viewport());
    }
    const QRect place = view_.cellRect(cell);
    if (place.isEmpty()) {
        return false;
    }
    told_ = cell;
    toldAt_ = place;
    toldFor_ = view_.grid().BuildVersion();
    bubble_->say(sentence, place, view_.theme(), view_.textScale(),
                 open_ ? GridBubble::Stay::UntilHidden : GridBubble::Stay::ForAMoment);
    return true;
}

void GridEditor::followMessage() {
    const QString sentence = message();
    if (sentence.isEmpty()) {
        return;
    }
    const QRect place = toldFor_ == view_.grid().BuildVersion() ? view_.cellRect(told_) : QRect();
    if (place.isEmpty()) {
        hideMessage();
    } else if (place != toldAt_) {
        static_cast<void>(tell(told_, sentence));
    }
}

void GridEditor::refuse(Refusal refusal) {
    refused_ = refusal;
    say(refusal, cell_);
    line_->setFrameLook(view_.theme().negative, view_.frameWidth());
    // The user may go on elsewhere in the window; the text waits.
    if (line_->isVisible() && view_.hasFocus()) {
        line_->setFocus(Qt::OtherFocusReason);
    }
}

void GridEditor::hideMessage() {
    refused_ = Refusal::None;
    if (bubble_) {
        bubble_->hide();
    }
    if (line_) {
        line_->setFrameLook(view_.theme().accent, view_.frameWidth());
    }
}

// --- Place

void GridEditor::follow() {
    if (!open_ || placing_) {
        return;
    }
    if (builtFor_ != view_.grid().BuildVersion()) {
        close();
        return;
    }
    const QScopedValueRollback placing(placing_, true);
    const QRect cell = view_.cellRect(cell_);
    if (!cell.isEmpty()) {
        place(cell);
        line_->show();
        line_->raise();
    } else if (line_->isVisible()) {
        if (line_->hasFocus()) {
            view_.setFocus(Qt::OtherFocusReason);
        }
        line_->hide();
        if (bubble_) {
            bubble_->hide();
        }
        // Not now: the grid may be telling of the change that scrolled the cell away.
        view_.guard().later(this, "FinishOutOfSight", [this] { finishOutOfSight(); });
    }
}

/// The editor covers its cell with the frame and grows over its neighbours as the text needs.
void GridEditor::place(const QRect& cell) {
    const double scale = view_.textScale();
    const int frame = view_.frameWidth();
    const int side = std::max(frame, static_cast<int>(std::lround(CellPadding * scale)) - LineMargin);
    QFont font = view_.cellFont(cell_);
    line_->setFont(font);
    line_->setTextMargins(side, 0, side, 0);
    QRect rect = cell.adjusted(-1, -1, 0, 0);
    const int needed = line_->fontMetrics().horizontalAdvance(line_->text()) + 2 * (side + LineMargin) + frame;
    const QRect ground = view_.viewport()->rect();
    if (needed > rect.width() && line_->alignment().testFlag(Qt::AlignRight)) {
        rect.setLeft(std::max(ground.left(), rect.right() + 1 - needed));
    }
    if (needed > rect.width()) {
        rect.setRight(std::min(ground.right(), rect.left() + needed - 1));
    }
    line_->setGeometry(rect);
    line_->setFrameLook(refused_ == Refusal::None ? view_.theme().accent : view_.theme().negative, frame);
    if (refused_ != Refusal::None) {
        say(refused_, cell_);
    }
}

void GridEditor::finishOutOfSight() {
    if (open_ && view_.cellRect(cell_).isEmpty()) {
        static_cast<void>(finish());
    }
}

// --- Input

bool GridEditor::isForUs(const QKeyEvent& event) const {
    return event.key() == Qt::Key_Escape || event.key() == Qt::Key_F2 || finishingMove(event, start_).has_value();
}

bool GridEditor::handleKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) {
        giveUp();
        view_.grid().ReportStay();
        return true;
    }
    if (event.key() == Qt::Key_F2) {
        start_ = Start::Edited;
        return true;
    }
    const std::optional<GridMove> move = finishingMove(event, start_);
    if (!move) {
        return false;
    }
    view_.finishAndMove(*move, isReturn(event));
    return true;
}

bool GridEditor::eventFilter(QObject* watched, QEvent* event) {
    if (watched != line_ || !open_) {
        return QObject::eventFilter(watched, event);
    }
    return view_.guard().run(*event, [&] { return handleLineEvent(event); });
}

bool GridEditor::handleLineEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            if (isForUs(*static_cast<QKeyEvent*>(event))) {
                event->accept();
                return true;
            }
            break;
        case QEvent::KeyPress:
            if (handleKey(*static_cast<QKeyEvent*>(event))) {
                event->accept();
                return true;
            }
            break;
        case QEvent::FocusIn:
            view_.reportFocus();
            break;
        case QEvent::FocusOut: {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            const bool comesBack = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
                                   reason == Qt::MenuBarFocusReason;
            const QPointer<GridEditor> self(this);
            bool ended = false;
            if (!comesBack && !placing_) {
                ended = finish();
            }
            if (self) {
                endedByMouse_ = ended && reason == Qt::MouseFocusReason;
                view_.reportFocus();
            }
            // The line may be gone; if it is not, QLineEdit must still hear of the focus.
            return !self;
        }
        default:
            break;
    }
    return false;
}

}  // namespace planview
