// SPDX-License-Identifier: MIT
#include "qt/tree/ToolbarView.h"

#include <QApplication>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>

#include "qt/panes/ButtonFlow.h"
#include "qt/platform/MenuLetters.h"

namespace planview {

namespace {

constexpr int Margin = 8;
constexpr int Side = 26;
constexpr int Gap = 3;
constexpr int GroupGap = 8;
/// More rows would leave the macro below too little room.
constexpr int MostRows = 3;
/// Pictures stop growing with the texts here.
constexpr double MostScale = 1.5;

constexpr double FaintWeight = 0.35;  // of a disabled button's picture

constexpr auto SelectionIcon = "macro-selection";
constexpr auto SelectionFormat = "application/x-planview-selection";

/// The place among the buttons; the selection's stands first, so that it can always be dragged.
constexpr std::size_t placeOf(ToolbarButton button) {
    return static_cast<std::size_t>(button) + 1;
}

/// Whether a gap stands before the button.
bool beginsGroup(std::size_t place) {
    constexpr ToolbarButton Firsts[] = {ToolbarButton::CondString, ToolbarButton::TabLine, ToolbarButton::Operator,
                                        ToolbarButton::MakLine, ToolbarButton::Attribute};
    return std::any_of(std::begin(Firsts), std::end(Firsts),
                       [place](ToolbarButton first) { return placeOf(first) == place; });
}

QString styleSheetFor(const GridTheme& theme) {
    const auto name = [](QRgb color) { return QColor(color).name(); };
    return QStringLiteral(
               "QToolButton { background: %1; border: 1px solid %2; border-radius: 5px; padding: 0px; }"
               "QToolButton:hover, QToolButton:checked { background: %3; border-color: %4; }"
               "QToolButton:pressed { background: %5; }"
               "QToolButton:focus { border: 2px solid %4; }"
               "QToolButton:disabled { background: transparent; border-color: %2; }"
               "QToolButton::menu-indicator { image: none; }"
               "QToolTip { background: %5; color: %6; border: 1px solid %2; }")
        .arg(name(theme.base), name(theme.line), name(theme.accentTint), name(theme.accent), name(theme.heading),
             name(theme.text));
}

}  // namespace

/// A button to drag from. What is dragged is determined when the drag begins, or on a click.
class SelectionButton final : public GuardedWidget<QToolButton> {
public:
    SelectionButton(MacroToolbar& toolbar, std::function<std::string()> selection, const EntryGuard& whole,
                    QWidget* parent)
        : GuardedWidget(whole, parent), toolbar_(toolbar), selection_(std::move(selection)) {
        guard().connect(this, &QToolButton::clicked, this, "HandOverSelection", [this] { handOver(); });
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        pressedAt_ = event->position().toPoint();
        QToolButton::mousePressEvent(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        const QPoint moved = event->position().toPoint() - pressedAt_;
        if (!isDown() || moved.manhattanLength() < QApplication::startDragDistance()) {
            QToolButton::mouseMoveEvent(event);
            return;
        }
        setDown(false);
        const QPointer<SelectionButton> self(this);
        const std::string text = handOver();
        if (self && !text.empty()) {
            auto* drag = new QDrag(this);
            auto* content = new QMimeData;
            content->setData(QLatin1String(SelectionFormat), QByteArray::fromStdString(text));
            content->setText(QString::fromStdString(text));
            drag->setMimeData(content);
            drag->exec(Qt::CopyAction);
        }
    }

private:
    std::string handOver() {
        std::string text = selection_();
        if (!text.empty()) {
            toolbar_.UserDragSelection(text);
        }
        return text;
    }

    MacroToolbar& toolbar_;
    std::function<std::string()> selection_;
    QPoint pressedAt_;
};

ToolbarView::ToolbarView(MacroToolbar& toolbar, GridBitmaps& bitmaps, std::function<std::string()> selection,
                         std::shared_ptr<void> owner, QWidget* parent)
    : GuardedWidget(EntryGuard(MacroToolbar::Label, std::move(owner)), parent),
      toolbar_(toolbar),
      bitmaps_(bitmaps),
      more_(new QToolButton(this)) {
    setAccessibleName(tr("Macro elements"));
    for (const ToolbarButtonInfo& info : ToolbarButtons()) {
        auto* button = new QToolButton(this);
        button->setObjectName(QString::fromUtf8(info.field.data(), static_cast<qsizetype>(info.field.size())));
        guard().connect(button, &QToolButton::clicked, this, "Press", [this, which = info.button] {
            const QPointer<ToolbarView> self(this);
            toolbar_.UserPress(which);
            if (self) {
                ToolbarChanged();  // the control decides whether it looks pressed
            }
        });
        buttons_.push_back(button);
    }
    auto* drag = new SelectionButton(toolbar, std::move(selection), guard(), this);
    drag->setObjectName(QLatin1String("SELECTION"));
    drag->setToolTip(tr("Drag what is selected in the grid into the macro"));
    drag->setAccessibleName(drag->toolTip());
    buttons_.insert(buttons_.begin(), drag);
    more_->setObjectName(QLatin1String("MORE"));
    more_->setText(QStringLiteral("\u22ef"));
    more_->setToolTip(tr("More macro elements"));
    more_->setAccessibleName(more_->toolTip());
    more_->setPopupMode(QToolButton::InstantPopup);
    more_->setMenu(new QMenu(this));
    guard().connect(more_->menu(), &QMenu::aboutToShow, this, "FillMenu", [this] { fillMenu(); });
    more_->setFocusPolicy(Qt::TabFocus);
    for (QToolButton* button : buttons_) {
        button->setFocusPolicy(Qt::TabFocus);
    }
    setTheme(theme_);
    ToolbarChanged();
    toolbar_.SetWatcher(this);
}

ToolbarView::~ToolbarView() {
    toolbar_.SetWatcher(nullptr);
}

QToolButton* ToolbarView::button(ToolbarButton which) const {
    return buttons_[placeOf(which)];
}

void ToolbarView::ToolbarChanged() {
    for (const ToolbarButtonInfo& info : ToolbarButtons()) {
        QToolButton* shown = button(info.button);
        const QString tooltip = QString::fromStdString(toolbar_.Tooltip(info.button));
        shown->setToolTip(tooltip.toHtmlEscaped());
        shown->setAccessibleName(tooltip);
        // Only a checkable button repaints itself when it is unchecked.
        const bool checked = toolbar_.IsChecked(info.button);
        shown->setCheckable(checked || shown->isCheckable());
        shown->setChecked(checked);
        shown->setCheckable(checked);
    }
}

void ToolbarView::setTheme(const GridTheme& theme) {
    theme_ = theme;
    setStyleSheet(styleSheetFor(theme));
    showIcons();
    update();
}

void ToolbarView::setTextScale(double scale) {
    scale_ = std::min(scale, MostScale);
    showIcons();
    resizeEvent(nullptr);
}

void ToolbarView::showIcons() {
    const int side = scaled(BitmapPixels);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const std::string name(i == 0 ? std::string_view(SelectionIcon) : ToolbarButtons()[i - 1].icon);
        buttons_[i]->setIcon(bitmaps_.icon(name, side, devicePixelRatioF(), theme_, FaintWeight));
        buttons_[i]->setIconSize(QSize(side, side));
    }
}

// --- Places

std::vector<QRect> ToolbarView::placesIn(int width) const {
    const ButtonFlow flow{scaled(Side), scaled(Gap), scaled(GroupGap), scaled(Margin), scaled(Margin)};
    return placesOf(buttons_.size(), width, flow, beginsGroup);
}

int ToolbarView::heightForWidth(int width) const {
    const int most = 2 * scaled(Margin) + MostRows * scaled(Side) + (MostRows - 1) * scaled(Gap);
    return std::min(most, placesIn(width).back().bottom() + 1 + scaled(Margin));
}

QSize ToolbarView::sizeHint() const {
    const int width = 6 * scaled(Side + Gap) + 2 * scaled(Margin);
    return {width, heightForWidth(width)};
}

QSize ToolbarView::minimumSizeHint() const {
    return {scaled(Side) + 2 * scaled(Margin), scaled(Side) + 2 * scaled(Margin)};
}

void ToolbarView::resizeEvent(QResizeEvent* /*event*/) {
    const std::vector<QRect> places = placesIn(width());
    std::size_t fitting = 0;
    while (fitting < places.size() && places[fitting].bottom() < height()) {
        ++fitting;
    }
    const bool all = fitting == places.size();
    if (!all && fitting > 0) {
        more_->setGeometry(places[--fitting]);
    }
    more_->setVisible(!all);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setGeometry(places[i]);
        buttons_[i]->setVisible(i < fitting);
    }
}

void ToolbarView::fillMenu() {
    QMenu& menu = *more_->menu();
    menu.clear();
    menu.setPalette(theme_.widgetPalette(menu.palette()));
    for (QToolButton* button : buttons_) {
        if (button->isHidden()) {
            QAction* entry = menu.addAction(button->icon(), button->accessibleName());
            entry->setEnabled(button->isEnabled());
            entry->setCheckable(button->isChecked());
            entry->setChecked(button->isChecked());
            connect(entry, &QAction::triggered, button, &QToolButton::click);
        }
    }
    giveLetters(menu);
}

// --- Painting

void ToolbarView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(theme_.panel));
    painter.fillRect(QRect(0, height() - 1, width(), 1), QColor(theme_.line));
}

void ToolbarView::paintOn(QPainter& painter, const QRect& rect) const {
    painter.fillRect(rect, QColor(theme_.panel));
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), QColor(theme_.line));
    const std::vector<QRect> places = placesIn(rect.width());
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const QRect place = places[i].translated(rect.topLeft());
        if (place.bottom() >= rect.bottom()) {
            break;
        }
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QColor(theme_.line));
        painter.setBrush(QColor(theme_.base));
        painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
        QRect picture(QPoint(), buttons_[i]->iconSize());
        picture.moveCenter(place.center());
        buttons_[i]->icon().paint(&painter, picture, Qt::AlignCenter,
                                  buttons_[i]->isEnabled() ? QIcon::Normal : QIcon::Disabled);
        painter.restore();
    }
}

}  // namespace planview
