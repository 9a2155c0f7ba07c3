// SPDX-License-Identifier: MIT
#include "qt/macro/EditorButtons.h"

#include <algorithm>

#include "qt/panes/ButtonFlow.h"

namespace planview {

namespace {

constexpr int Margin = 8;
constexpr int Side = 26;
constexpr int Gap = 3;
constexpr int GroupGap = 8;
constexpr double FaintWeight = 0.5;

}  // namespace

EditorButtons::EditorButtons(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QToolButton* EditorButtons::add(const char* name, const char* icon, const QString& tooltip, bool beginsGroup) {
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tooltip.toHtmlEscaped());
    button->setAccessibleName(tooltip);
    button->setFocusPolicy(Qt::TabFocus);
    entries_.push_back({button, icon, beginsGroup});
    return button;
}

void EditorButtons::setLook(GridBitmaps& bitmaps, const GridTheme& theme, double scale) {
    scale_ = scale;
    const int side = scaled(BitmapPixels);
    for (const Entry& entry : entries_) {
        entry.button->setIcon(bitmaps.icon(entry.icon, side, devicePixelRatioF(), theme, FaintWeight));
        entry.button->setIconSize(QSize(side, side));
    }
    updateGeometry();
    resizeEvent(nullptr);
}

std::vector<QRect> EditorButtons::placesIn(int width) const {
    const ButtonFlow flow{scaled(Side), scaled(Gap), scaled(GroupGap), scaled(Margin), 0};
    return placesOf(entries_.size(), width, flow, [this](std::size_t i) { return entries_[i].beginsGroup; });
}

int EditorButtons::heightForWidth(int width) const {
    const std::vector<QRect> places = placesIn(width);
    return places.empty() ? 0 : places.back().bottom() + 1 + scaled(Margin);
}

QSize EditorButtons::sizeHint() const {
    const int width = scaled(Margin) * 2 + static_cast<int>(entries_.size()) * (scaled(Side) + scaled(Gap));
    return {width, heightForWidth(width)};
}

QSize EditorButtons::minimumSizeHint() const {
    return {scaled(Side) + 2 * scaled(Margin), heightForWidth(std::max(width(), scaled(Side)))};
}

void EditorButtons::resizeEvent(QResizeEvent* /*event*/) {
    const std::vector<QRect> places = placesIn(width());
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        entries_[i].button->setGeometry(places[i]);
    }
}

QString editorStyleSheet(const GridTheme& theme, double scale) {
    const auto name = [](QRgb color) { return QColor(color).name(); };
    QString sheet = QStringLiteral(R"(
QWidget { font-size: %pixelspx; color: %text; }
QToolButton, QPushButton { background: %base; border: 1px solid %line; border-radius: 5px; padding: 0px; }
QToolButton:hover, QPushButton:hover { background: %tint; border-color: %accent; }
QToolButton:checked { background: %tint; border-color: %accent; }
QToolButton:pressed, QPushButton:pressed { background: %heading; }
QToolButton:focus, QPushButton:focus { border: 2px solid %accent; }
QToolButton:disabled, QPushButton:disabled { background: transparent; color: %faint; }
QToolButton[digit="true"] { background: %heading; }
QToolButton[digit="true"]:hover { background: %tint; }
QToolButton::menu-indicator { image: none; }
QPushButton#cmdOpa { background: %accent; color: %onAccent; border-color: %accent; font-weight: 600; }
QPushButton#cmdOpa:hover { background: %strong; }
QPushButton#cmdOpa:focus { border: 2px solid %text; }
QPushButton#cmdOpa:disabled { background: %heading; color: %faint; border-color: %line; }
QLineEdit { background: %base; color: %text; border: 1px solid %edge; border-radius: 5px; padding: 3px 6px;
    selection-background-color: %accent; selection-color: %onAccent; }
QLineEdit:focus { border: 2px solid %accent; padding: 2px 5px; }
QLineEdit:disabled { background: transparent; color: %faint; border-color: %line; }
QListView { background: %base; color: %text; border: none; border-top: 1px solid %line; outline: none;
    selection-background-color: %tint; selection-color: %text; }
QMenu { background: %base; color: %text; border: 1px solid %edge; padding: 4px; }
QMenu::item { padding: 4px 18px 4px 12px; border-radius: 4px; }
QMenu::item:selected { background: %tint; }
QScrollBar:vertical { background: transparent; width: 10px; margin: 0px; }
QScrollBar::handle:vertical { background: %edge; border-radius: 3px; min-height: 20px; margin: 2px; }
QScrollBar::handle:vertical:hover { background: %muted; }
QScrollBar::add-line, QScrollBar::sub-line, QScrollBar::add-page, QScrollBar::sub-page { background: transparent;
    height: 0px; }
QLabel#EditorMessage { color: %muted; border-top: 1px solid %line; }
QLabel#EditorMessage[problem="true"] { color: %negative; }
QToolTip { background: %heading; color: %text; border: 1px solid %edge; }
)");
    const QPair<const char*, QString> values[] = {
        {"%pixels", QString::number(qRound(EditorTextPixels * scale))},
        {"%base", name(theme.base)},
        {"%heading", name(theme.heading)},
        {"%line", name(theme.line)},
        {"%edge", name(mixColors(theme.line, theme.muted, FaintWeight))},
        {"%text", name(theme.text)},
        {"%muted", name(theme.muted)},
        {"%faint", name(mixColors(theme.panel, theme.muted, FaintWeight))},
        {"%accent", name(theme.accent)},
        {"%strong", name(mixColors(theme.accent, theme.text, 0.2))},
        {"%onAccent", name(theme.dark ? theme.base : 0xffffffff)},
        {"%tint", name(theme.accentTint)},
        {"%negative", name(theme.negative)},
    };
    for (const auto& [place, value] : values) {
        sheet.replace(QLatin1String(place), value);
    }
    return sheet;
}

}  // namespace planview
