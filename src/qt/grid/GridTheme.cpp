// SPDX-License-Identifier: MIT
#include "qt/grid/GridTheme.h"

#include <algorithm>
#include <cmath>

namespace planview {

namespace {

constexpr QRgb White = 0xffffffff;
constexpr QRgb Black = 0xff000000;

double linearChannel(int value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(QRgb color) {
    return 0.2126 * linearChannel(qRed(color)) + 0.7152 * linearChannel(qGreen(color)) +
           0.0722 * linearChannel(qBlue(color));
}

QRgb colorOf(const QPalette& palette, QPalette::ColorRole role) {
    return palette.color(QPalette::Active, role).rgb();
}

/// One ground for all, and texts that are nearly as far from it as they can be. The usual palettes have windows and
/// buttons of a grey beside their base.
bool isHighContrast(const QPalette& palette) {
    constexpr double Far = 18;
    constexpr double SameGround = 1.05;
    const QRgb base = colorOf(palette, QPalette::Base);
    return contrastRatio(base, colorOf(palette, QPalette::Window)) < SameGround &&
           contrastRatio(base, colorOf(palette, QPalette::Button)) < SameGround &&
           contrastRatio(base, colorOf(palette, QPalette::Text)) > Far &&
           contrastRatio(base, colorOf(palette, QPalette::WindowText)) > Far;
}

/// The first of these colours that can be read on the ground.
QRgb readable(QRgb wanted, QRgb other, QRgb ground) {
    constexpr double TextContrast = 4.5;
    return contrastRatio(wanted, ground) >= TextContrast ? wanted : other;
}

GridTheme ofHighContrast(const QPalette& palette) {
    GridTheme theme = luminance(colorOf(palette, QPalette::Base)) < luminance(colorOf(palette, QPalette::Text))
                          ? GridTheme::darkTheme()
                          : GridTheme::light();
    theme.base = colorOf(palette, QPalette::Base);
    theme.panel = theme.heading = theme.total = theme.readOnly = theme.helpLine = theme.base;
    theme.text = theme.muted = theme.line = colorOf(palette, QPalette::Text);
    theme.accent = readable(colorOf(palette, QPalette::Highlight), theme.text, theme.base);
    constexpr double TintWeight = 0.25;
    theme.accentTint = mixColors(theme.base, theme.accent, TintWeight);
    theme.negative = readable(theme.negative, theme.text, theme.accentTint);
    return theme;
}

}  // namespace

const GridTheme& GridTheme::light() {
    static const GridTheme theme{.dark = false,
                                 .base = 0xffffffff,
                                 .panel = 0xfff6f7f9,
                                 .heading = 0xffeef1f5,
                                 .total = 0xfff0f3f8,
                                 .readOnly = 0xfff4f5f7,
                                 .helpLine = 0xfffbf7ea,
                                 .line = 0xffdfe3e8,
                                 .text = 0xff1b1f24,
                                 .muted = 0xff5f6973,
                                 .accent = 0xff2463d6,
                                 .accentTint = 0xffe8effc,
                                 .negative = 0xffc0392b,
                                 .reliefLight = 0xccffffff,
                                 .reliefShade = 0x1a1b1f24};
    return theme;
}

const GridTheme& GridTheme::darkTheme() {
    static const GridTheme theme{.dark = true,
                                 .base = 0xff1b1e23,
                                 .panel = 0xff22262c,
                                 .heading = 0xff282d34,
                                 .total = 0xff252b34,
                                 .readOnly = 0xff20242a,
                                 .helpLine = 0xff2c2a20,
                                 .line = 0xff363c45,
                                 .text = 0xffe6e9ee,
                                 .muted = 0xff98a2ae,
                                 .accent = 0xff6ea0ff,
                                 .accentTint = 0xff26375a,
                                 .negative = 0xffff7b6b,
                                 .reliefLight = 0x1cffffff,
                                 .reliefShade = 0x50000000};
    return theme;
}

GridTheme GridTheme::forPalette(const QPalette& palette) {
    if (isHighContrast(palette)) {
        return ofHighContrast(palette);
    }
    const bool dark = palette.color(QPalette::Active, QPalette::Base).lightness() <
                      palette.color(QPalette::Active, QPalette::Text).lightness();
    return dark ? darkTheme() : light();
}

QPalette GridTheme::widgetPalette(const QPalette& origin) const {
    QPalette palette = origin;
    const auto set = [&palette](QPalette::ColorRole role, QRgb color) { palette.setColor(role, QColor(color)); };
    set(QPalette::Window, panel);
    set(QPalette::WindowText, text);
    set(QPalette::Base, base);
    set(QPalette::AlternateBase, panel);
    set(QPalette::Text, text);
    set(QPalette::Button, heading);
    set(QPalette::ButtonText, text);
    set(QPalette::Highlight, accent);
    set(QPalette::HighlightedText, dark ? Black : White);
    set(QPalette::Light, dark ? mixColors(heading, White, 0.1) : White);
    set(QPalette::Midlight, mixColors(heading, White, dark ? 0.05 : 0.5));
    set(QPalette::Mid, line);
    set(QPalette::Dark, mixColors(line, Black, dark ? 0.3 : 0.15));
    return palette;
}

double contrastRatio(QRgb first, QRgb second) {
    const double a = luminance(first);
    const double b = luminance(second);
    constexpr double Flare = 0.05;
    return (std::max(a, b) + Flare) / (std::min(a, b) + Flare);
}

QRgb mixColors(QRgb under, QRgb over, double weight) {
    const auto channel = [weight](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * weight));
    };
    return qRgb(channel(qRed(under), qRed(over)), channel(qGreen(under), qGreen(over)),
                channel(qBlue(under), qBlue(over)));
}

}  // namespace planview
