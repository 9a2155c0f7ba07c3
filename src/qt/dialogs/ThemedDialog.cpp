// SPDX-License-Identifier: MIT
#include "qt/dialogs/ThemedDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "qt/platform/MenuLetters.h"

namespace planview {

namespace {

constexpr double DisabledWeight = 0.5;
constexpr QSize FrameRoom(16, 48);  // for the window's frame on a small screen

// Includes the window's own background, because a style sheet of the host's window would hide the palette's.
constexpr const char* StyleSheet = R"(
QDialog { background: %panel; color: %text; }
QMenu { background: %base; color: %text; border: 1px solid %edge; padding: 4px; }
QMenu::item { padding: 5px 24px 5px 26px; border-radius: 4px; }
QMenu::item:selected { background: %tint; color: %text; }
QMenu::item:disabled { color: %faint; }
QMenu::indicator { width: 16px; height: 16px; left: 6px; }
QMenu::indicator:exclusive:checked { image: url(:/planview/icons/bullet.svg); }
QMenu::separator { height: 1px; background: %line; margin: 4px 6px; }
QLabel, QCheckBox, QRadioButton { color: %text; }
QLabel#note { color: %muted; }
QLabel#message { color: %negative; }
QLabel#headline { font-weight: 600; font-size: 15px; }
QGroupBox { border: none; margin-top: 26px; font-weight: 600; }
QGroupBox::title { subcontrol-origin: margin; subcontrol-position: top left; left: -2px; padding: 4px 0px;
    color: %text; }
QGroupBox QWidget { font-weight: normal; }
QPushButton { background: %base; color: %text; border: 1px solid %edge; border-radius: 5px; padding: 5px 12px; }
QPushButton:hover { background: %tint; border-color: %accent; }
QPushButton:pressed { background: %heading; }
QPushButton:focus { border: 2px solid %accent; padding: 4px 11px; }
QPushButton:default { background: %accent; color: %onAccent; border-color: %accent; font-weight: 600; }
QPushButton:default:hover { background: %strong; }
QPushButton:default:focus { border: 2px solid %text; }
QPushButton:disabled { color: %faint; border-color: %line; }
QDialogButtonBox QPushButton { min-width: 64px; }
QPushButton#colorButton { text-align: left; padding: 5px 28px 5px 8px; min-width: 130px; }
QPushButton#colorButton:focus { padding: 4px 27px 4px 7px; }
QLineEdit, QComboBox { background: %base; color: %text; border: 1px solid %edge; border-radius: 5px;
    padding: 4px 7px; selection-background-color: %accent; selection-color: %onAccent; }
QLineEdit:focus, QComboBox:focus { border: 2px solid %accent; padding: 3px 6px; }
QLineEdit:disabled, QComboBox:disabled { background: %panel; color: %faint; border-color: %line; }
QLineEdit[wrong="true"] { border-color: %negative; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: url(:/planview/icons/chevron-down.svg); width: 16px; height: 16px; }
QComboBox QAbstractItemView { background: %base; color: %text; border: 1px solid %edge;
    selection-background-color: %tint; selection-color: %text; }
QCheckBox, QRadioButton { spacing: 8px; padding: 2px 4px 2px 0px; }
QCheckBox::indicator, QRadioButton::indicator { width: 14px; height: 14px; border: 1px solid %muted; background: %base; }
QCheckBox::indicator { border-radius: 4px; }
QCheckBox::indicator:checked { background: %accent; border-color: %accent; image: url(:/planview/icons/%tick); }
QRadioButton::indicator { border-radius: 8px; }
QRadioButton::indicator:checked { width: 6px; height: 6px; border: 5px solid %accent; border-radius: 8px;
    background: %onAccent; }
QCheckBox::indicator:hover, QRadioButton::indicator:hover { border-color: %accent; }
QCheckBox:focus, QRadioButton:focus { background: %tint; border-radius: 4px; }
QCheckBox:disabled, QRadioButton:disabled { color: %faint; }
QRadioButton::indicator:disabled { border-color: %line; background: %panel; }
QMenuBar { background: %panel; color: %text; border-bottom: 1px solid %line; padding: 2px 4px; }
QMenuBar::item { background: transparent; padding: 4px 9px; border-radius: 4px; }
QMenuBar::item:selected, QMenuBar::item:pressed { background: %tint; }
QTreeView { background: %base; color: %text; border: 1px solid %line; outline: none;
    show-decoration-selected: 1; selection-background-color: %tint; selection-color: %text; }
QTreeView::item { padding: 2px 4px; border: none; }
QTreeView::item:hover { background: %panel; }
QTreeView::item:selected { background: %tint; color: %text; }
QTreeView#ticked::item { padding: 4px 4px; }
QTreeView#ticked::indicator { width: 13px; height: 13px; border: 1px solid %muted; border-radius: 4px;
    background: %base; }
QTreeView#ticked::indicator:checked { background: %accent; border-color: %accent; image: url(:/planview/icons/%tick); }
QPlainTextEdit#notes { background: %heading; color: %text; border: none; border-radius: 5px; padding: 4px 5px; }
QHeaderView { background: %heading; }
QHeaderView::section { background: %heading; color: %muted; border: none; border-right: 1px solid %line;
    border-bottom: 1px solid %line; padding: 4px 7px; font-weight: 600; }
QToolTip { background: %heading; color: %text; border: 1px solid %edge; }
)";

QString filledIn(QString sheet, const GridTheme& theme) {
    const QRgb onAccent = theme.dark ? theme.base : 0xffffffff;
    const QPair<const char*, QString> values[] = {
        {"%base", QColor(theme.base).name()},
        {"%panel", QColor(theme.panel).name()},
        {"%heading", QColor(theme.heading).name()},
        {"%line", QColor(theme.line).name()},
        {"%edge", QColor(mixColors(theme.line, theme.muted, DisabledWeight)).name()},
        {"%text", QColor(theme.text).name()},
        {"%muted", QColor(theme.muted).name()},
        {"%faint", QColor(mixColors(theme.panel, theme.muted, DisabledWeight)).name()},
        {"%accent", QColor(theme.accent).name()},
        {"%strong", QColor(mixColors(theme.accent, theme.text, 0.2)).name()},
        {"%onAccent", QColor(onAccent).name()},
        {"%tint", QColor(theme.accentTint).name()},
        {"%negative", QColor(theme.negative).name()},
        {"%tick", QLatin1String(theme.dark ? "tick-dark.svg" : "tick-light.svg")},
    };
    for (const auto& [name, value] : values) {
        sheet.replace(QLatin1String(name), value);
    }
    return sheet;
}

}  // namespace

void ThemedDialog::resizeOnScreen(QSize usual) {
    resize(usual.boundedTo(screen()->availableSize() - FrameRoom));
}

void ThemedDialog::setTheme(const GridTheme& theme) {
    QPalette palette = theme.widgetPalette(QApplication::palette());
    palette.setColor(QPalette::PlaceholderText, QColor(theme.muted));
    palette.setColor(QPalette::ToolTipBase, QColor(theme.heading));
    palette.setColor(QPalette::ToolTipText, QColor(theme.text));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, mixColors(theme.panel, theme.muted, DisabledWeight));
    }
    setPalette(palette);
    setStyleSheet(filledIn(QLatin1String(StyleSheet), theme));
}

void ThemedDialog::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = isReturn ? qobject_cast<QPushButton*>(focusWidget()) : nullptr;
    if (button && button->isEnabled()) {
        button->click();  // may end the window
    } else {
        QDialog::keyPressEvent(event);
    }
}

QPushButton* ThemedDialog::addButtons(QVBoxLayout& layout, const std::string& ok, const std::string& cancel) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    for (QAbstractButton* each : buttons->buttons()) {
        each->setIcon({});  // some styles bring pictures of their own, which fit none of our colours
    }
    QPushButton* accepting = buttons->button(QDialogButtonBox::Ok);
    accepting->setText(QString::fromStdString(ok));
    accepting->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setText(QString::fromStdString(cancel));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout.addWidget(buttons);
    return accepting;
}

void ThemedDialog::endForm() {
    ended_ = true;
    hide();
    deleteLater();
}

QString withMnemonic(const std::string& text, char letter) {
    const QString shown = QString::fromStdString(text);
    return withMnemonicAt(shown, shown.indexOf(QLatin1Char(letter), 0, Qt::CaseInsensitive));
}

}  // namespace planview
