// SPDX-License-Identifier: MIT
#include "qt/macro/MacroListView.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <utility>

#include "macro/tree/MacroTable.h"

namespace planview {

namespace {

constexpr int RowHeight = 24;
constexpr int SideMargin = 8;
constexpr int Indentation = 14;
constexpr int PictureGap = 6;
constexpr int MarkPixels = 14;
constexpr double InactiveOpacity = 0.4;
/// A sentence that needs more rows than these is shortened to one.
constexpr int MostTextRows = 8;

}  // namespace

class MacroListView::Elements final : public QAbstractListModel {
public:
    Elements(MacroEditor& editor, QObject* parent) : QAbstractListModel(parent), editor_(editor) {}

    void readAnew() {
        beginResetModel();
        elements_ = editor_.Elements();
        endResetModel();
    }
    [[nodiscard]] const MacroElement& at(const QModelIndex& index) const {
        return elements_[static_cast<std::size_t>(index.row())];
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(elements_.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid() || index.row() >= static_cast<int>(elements_.size())) {
            return {};
        }
        const MacroElement& element = at(index);
        const QString text = QString::fromStdString(element.text);
        switch (role) {
            case Qt::DisplayRole:
                return text;
            case Qt::AccessibleTextRole:
                return tr("Level %1: %2%3%4")
                    .arg(element.depth)
                    .arg(text, element.inactive ? tr(", left out") : QString(),
                         element.problem.empty() ? QString()
                                                 : tr(", problem: ") + QString::fromStdString(element.problem));
            case Qt::ToolTipRole: {
                QString tip = text;
                if (!element.note.empty()) {
                    tip += QLatin1Char('\n') + QString::fromStdString(element.note);
                }
                if (!element.problem.empty()) {
                    tip += QLatin1Char('\n') + QString::fromStdString(element.problem);
                }
                return tip.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
            }
            default:
                return {};
        }
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        return QAbstractListModel::flags(index) | Qt::ItemIsEditable;
    }

private:
    MacroEditor& editor_;
    std::vector<MacroElement> elements_;
};

/// Draws the lines, and edits a name in place.
class MacroListView::Painter final : public QStyledItemDelegate {
public:
    Painter(MacroListView& view, GridBitmaps& bitmaps) : QStyledItemDelegate(&view), view_(view), bitmaps_(bitmaps) {}

    void setLook(const GridTheme& theme, double scale) {
        theme_ = theme;
        scale_ = scale;
    }
    [[nodiscard]] int scaled(int logical) const { return qRound(logical * scale_); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const MacroElement& element = view_.elements_->at(index);
        const QFontMetrics metrics(fontOf(option.font, element));
        const int width = roomFor(element, QRect(0, 0, view_.viewport()->width(), 0)).width();
        const int rows = textRows(metrics, QString::fromStdString(element.text), width);
        return {scaled(RowHeight), scaled(RowHeight) + (rows - 1) * metrics.lineSpacing()};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const MacroElement& element = view_.elements_->at(index);
        const bool current = index == view_.currentIndex();
        painter->save();
        painter->fillRect(option.rect, QColor(current ? theme_.accentTint : theme_.base));
        if (current && view_.hasFocus()) {
            painter->fillRect(QRect(option.rect.left(), option.rect.top(), 2, option.rect.height()),
                              QColor(theme_.accent));
        }
        const QRect room = roomFor(element, option.rect);
        if (!element.problem.empty()) {
            paintPicture(*painter, "error",
                         QRect(room.right() + scaled(PictureGap), room.top(), scaled(MarkPixels), scaled(RowHeight)),
                         MarkPixels);
        }
        painter->setOpacity(element.inactive ? InactiveOpacity : 1.0);
        const int pictureLeft = room.left() - scaled(BitmapPixels + PictureGap);
        paintPicture(*painter, std::string(MacroImageOf(element.type)),
                     QRect(pictureLeft, room.top(), scaled(BitmapPixels), scaled(RowHeight)), BitmapPixels);
        paintText(*painter, fontOf(option.font, element), room, element);
        painter->restore();
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& /*index*/) const override {
        auto* edit = new QLineEdit(parent);
        edit->setAccessibleName(tr("Name"));
        return edit;
    }
    void setEditorData(QWidget* editor, const QModelIndex& /*index*/) const override {
        static_cast<QLineEdit*>(editor)->setText(QString::fromStdString(view_.editor_.NameToEdit()));
    }
    /// Later, once the view is done with its editor: renaming rebuilds the list.
    void setModelData(QWidget* editor, QAbstractItemModel* /*model*/, const QModelIndex& /*index*/) const override {
        const std::string text = static_cast<QLineEdit*>(editor)->text().toStdString();
        view_.guard().later(&view_, "Rename", [&view = view_, text] { view.editor_.Rename(text); });
    }

private:
    void paintPicture(QPainter& painter, const std::string& name, const QRect& room, int pixels) const {
        const qreal ratio = painter.device()->devicePixelRatioF();
        const int side = scaled(pixels);
        QPixmap picture = bitmaps_.pixmap(name, qRound(side * ratio), theme_);
        picture.setDevicePixelRatio(ratio);
        painter.drawPixmap(room.left(), room.top() + (room.height() - side) / 2, picture);
    }

    static QFont fontOf(const QFont& base, const MacroElement& element) {
        QFont font = base;
        font.setBold(element.depth == 0);
        font.setStrikeOut(element.inactive);
        return font;
    }

    /// Where the text of the element goes. In a narrow pane, indentation gives way to it.
    [[nodiscard]] QRect roomFor(const MacroElement& element, const QRect& row) const {
        QRect room = row.adjusted(scaled(SideMargin), 0, -scaled(SideMargin), 0);
        room.setRight(room.right() - (element.problem.empty() ? 0 : scaled(MarkPixels + PictureGap)));
        const int depth = std::min(element.depth * scaled(Indentation), room.width() / 4);
        room.setLeft(room.left() + depth + scaled(BitmapPixels + PictureGap));
        return room;
    }

    /// Also 1 if it would not fit otherwise.
    static int textRows(const QFontMetrics& metrics, const QString& text, int width) {
        if (metrics.horizontalAdvance(text) <= width) {
            return 1;
        }
        const QSize size = metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, text).size();
        const int rows = (size.height() + metrics.lineSpacing() - 1) / metrics.lineSpacing();
        return rows <= MostTextRows && size.width() <= width ? rows : 1;
    }

    void paintText(QPainter& painter, QFont font, const QRect& room, const MacroElement& element) const {
        painter.setFont(font);
        const QFontMetrics metrics(font);
        const QString text = QString::fromStdString(element.text);
        painter.setPen(QColor(!element.problem.empty() ? theme_.negative
                              : element.isPart         ? theme_.muted
                                                       : theme_.text));
        if (textRows(metrics, text, room.width()) > 1) {
            // The first row stands beside the picture.
            const int above = std::max(0, (scaled(RowHeight) - metrics.lineSpacing()) / 2);
            painter.drawText(room.adjusted(0, above, 0, 0), Qt::AlignTop | Qt::TextWordWrap, text);
            return;
        }
        const QString shown = metrics.elidedText(text, Qt::ElideRight, room.width());
        painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine, shown);
        const int used = metrics.horizontalAdvance(shown) + scaled(2 * PictureGap);
        if (!element.note.empty() && used < room.width()) {
            font.setItalic(true);
            painter.setFont(font);
            painter.setPen(QColor(theme_.muted));
            const QRect rest = room.adjusted(used, 0, 0, 0);
            painter.drawText(
                rest, Qt::AlignVCenter | Qt::TextSingleLine,
                QFontMetrics(font).elidedText(QString::fromStdString(element.note), Qt::ElideRight, rest.width()));
        }
    }

    MacroListView& view_;
    GridBitmaps& bitmaps_;
    GridTheme theme_ = GridTheme::light();
    double scale_ = 1.0;
};

MacroListView::MacroListView(MacroEditor& editor, GridBitmaps& bitmaps, EntryGuard pane, QWidget* parent)
    : GuardedView(std::move(pane), parent),
      editor_(editor),
      elements_(new Elements(editor, this)),
      painter_(new Painter(*this, bitmaps)) {
    setObjectName(QLatin1String("MacroView"));
    setAccessibleName(tr("Elements of the macro"));
    setModel(elements_);
    setItemDelegate(painter_);
    setWordWrap(true);  // lays the lines out again when the width changes
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    follow();
}

void MacroListView::setLook(const GridTheme& theme, double scale) {
    painter_->setLook(theme, scale);
    scheduleDelayedItemsLayout();
    viewport()->update();
}

void MacroListView::follow() {
    const QScopedValueRollback following(following_, true);
    const int top = verticalScrollBar() ? verticalScrollBar()->value() : 0;
    elements_->readAnew();
    const QModelIndex current = elements_->index(editor_.Current());
    setCurrentIndex(current);
    if (verticalScrollBar()) {
        verticalScrollBar()->setValue(top);
    }
    if (current.isValid()) {
        scrollTo(current);
    }
}

void MacroListView::editName() {
    setFocus();
    if (currentIndex().isValid()) {
        edit(currentIndex());
    }
}

void MacroListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (following_ || !current.isValid()) {
        return;
    }
    // Once the view is done with the press: the list is rebuilt.
    guard().later(this, "SetCurrent", [this, row = current.row()] { editor_.SetCurrent(row); });
}

void MacroListView::keyPressEvent(QKeyEvent* event) {
    const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
    const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
    const int key = event->key();
    if (key == Qt::Key_Delete) {
        Q_EMIT deleteWanted();
    } else if (alt && (key == Qt::Key_Up || key == Qt::Key_Down)) {
        Q_EMIT moveWanted(key == Qt::Key_Up);
    } else if (control && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        Q_EMIT runWanted();
    } else {
        QListView::keyPressEvent(event);
        return;
    }
    event->accept();
}

}  // namespace planview
