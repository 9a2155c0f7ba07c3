// SPDX-License-Identifier: MIT
#include "app/FrameTheme.h"

#include <QColor>
#include <cmath>

namespace planbook {

namespace {

struct FrameColors {
    QColor base;
    QColor panel;
    QColor heading;
    QColor line;
    QColor text;
    QColor muted;
    QColor accent;
    QColor accentTint;
};

const FrameColors& colors(bool dark) {
    static const FrameColors light{"#ffffff", "#f6f7f9", "#eef1f5", "#dfe3e8",
                                   "#1b1f24", "#5f6973", "#2463d6", "#e8effc"};
    static const FrameColors night{"#1b1e23", "#22262c", "#282d34", "#363c45",
                                   "#e6e9ee", "#98a2ae", "#6ea0ff", "#26375a"};
    return dark ? night : light;
}

}  // namespace

FrameTheme FrameTheme::make(bool dark) {
    const FrameColors& c = colors(dark);
    FrameTheme theme;
    QPalette& palette = theme.palette;
    palette = QPalette(c.text, c.panel, c.heading, c.line, c.muted, c.text, c.text, c.base, c.panel);
    palette.setColor(QPalette::AlternateBase, c.panel);
    palette.setColor(QPalette::Highlight, c.accent);
    palette.setColor(QPalette::HighlightedText, dark ? c.base : QColor(Qt::white));
    palette.setColor(QPalette::Link, c.accent);
    palette.setColor(QPalette::PlaceholderText, c.muted);
    palette.setColor(QPalette::ToolTipBase, c.heading);
    palette.setColor(QPalette::ToolTipText, c.text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, c.muted);
    }
    const QString styleSheet =
        "QMenuBar { background: %1; color: %2; border-bottom: 1px solid %3; padding: 2px 4px; }"
        "QMenuBar::item { background: transparent; padding: 4px 9px; border-radius: 4px; }"
        "QMenuBar::item:selected, QMenuBar::item:pressed { background: %4; }"
        "QStatusBar { background: %1; border-top: 1px solid %3; }"
        "QStatusBar::item { border: none; }"
        "QStatusBar QLabel, #findOutcome { color: %5; }"
        "#selection { padding-right: 8px; }"
        "#findBar { background: %1; border-bottom: 1px solid %3; }"
        "planbook--NoticeBar { background: %4; border-top: 1px solid %3; }"
        "QStatusBar QToolButton, #findBar QToolButton, planbook--NoticeBar QToolButton"
        " { color: %6; background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 1px 6px; }"
        "QStatusBar QToolButton:hover, #findBar QToolButton:hover { background: %4; }"
        "QStatusBar QToolButton:focus, #findBar QToolButton:focus, planbook--NoticeBar QToolButton:focus,"
        " planbook--NoticeBar QToolButton:hover { border-color: %6; }"
        "#findBar QLineEdit { background: %7; color: %2; border: 1px solid %3; border-radius: 4px; padding: 2px 5px; }"
        "#findBar QLineEdit:focus { border-color: %6; }";
    theme.styleSheet = styleSheet.arg(c.panel.name(), c.text.name(), c.line.name(), c.accentTint.name(), c.muted.name(),
                                      c.accent.name(), c.base.name());
    return theme;
}

bool isHighContrast(const QPalette& palette) {
    const auto lightness = [&](QPalette::ColorRole role) { return palette.color(QPalette::Active, role).lightnessF(); };
    constexpr double Apart = 0.95;
    constexpr double Same = 0.02;
    const double base = lightness(QPalette::Base);
    const auto isBase = [&](QPalette::ColorRole role) { return std::abs(lightness(role) - base) < Same; };
    const auto isFar = [&](QPalette::ColorRole role) { return std::abs(lightness(role) - base) > Apart; };
    return isBase(QPalette::Window) && isBase(QPalette::Button) && isFar(QPalette::Text) && isFar(QPalette::WindowText);
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightnessF() > palette.color(QPalette::Window).lightnessF();
}

}  // namespace planbook
