// SPDX-License-Identifier: MIT
#include "qt/grid/GridColors.h"

#include <string_view>

namespace planview {

namespace {

constexpr double ReadableContrast = 4.5;
/// Below this a text cannot be told apart from its background.
constexpr double VisibleContrast = 1.5;
constexpr QRgb White = 0xffffffff;
constexpr QRgb Black = 0xff000000;

}  // namespace

QRgb themeColor(const GridTheme& theme, ViewColor which) {
    return which == ViewColor::Text ? theme.text : which == ViewColor::GridLines ? theme.line : theme.base;
}

std::size_t GridColors::QuestionHash::operator()(const Question& question) const noexcept {
    // Colours are opaque, so their first byte is free.
    const std::uint64_t texts = (static_cast<std::uint64_t>(question.wanted) << 32) | (question.ownText & RGB_MASK);
    const std::uint64_t grounds =
        (question.ground & RGB_MASK) | (question.ownForeground ? 1U << 24 : 0U) | (question.ownGround ? 1U << 25 : 0U);
    constexpr std::uint64_t Spread = 0x9e3779b97f4a7c15;
    return static_cast<std::size_t>((texts * Spread) ^ (grounds * Spread >> 16));
}

GridColors::GridColors(const GridControl& grid, const GridTheme& theme) : theme_(theme) {
    colors_.reserve(grid.Colors().size());
    for (const GridColor& color : grid.Colors()) {
        const std::string_view name = color.name;
        const Role role = name == "tovWhite"   ? Role::White
                          : name == "tovBlack" ? Role::Black
                          : name == "tovGray"  ? Role::Gray
                                               : Role::Other;
        colors_.push_back({qRgb(color.red, color.green, color.blue), role});
    }
    const GridSettingsState& settings = grid.Settings();
    hasOwnBase_ = isOwnBackground(settings.backgroundColor);
    base_ = hasOwnBase_ ? theme.base : background(settings.backgroundColor);
    const Role lineRole = roleOf(settings.gridLineColor, Role::Gray);
    line_ = lineRole == Role::Gray ? theme.line : background(settings.gridLineColor);
}

GridColors::Role GridColors::roleOf(std::int16_t index, Role none) const {
    return index < 0 || static_cast<std::size_t>(index) >= colors_.size()
               ? none
               : colors_[static_cast<std::size_t>(index)].role;
}

bool GridColors::isReadOnlyPair(std::int16_t background, std::int16_t foreground) const {
    return roleOf(background) == Role::Gray && isOwnForeground(foreground);
}

QRgb GridColors::text(std::int16_t index, QRgb ownText, QRgb ground, bool ownGround) {
    ownGround = ownGround && hasOwnBase_;  // the theme's text goes with the theme's grounds only
    const bool ownForeground = isOwnForeground(index);
    if (ownForeground && ownGround) {
        return ownText;
    }
    const QRgb wanted = ownForeground ? ownText : background(index);
    const Question key{wanted, ownText, ground, ownForeground, ownGround};
    const auto known = readable_.find(key);
    if (known != readable_.end()) {
        return known->second;
    }
    const QRgb result = ownForeground || theme_.dark ? readable(wanted, ownText, ground, ownGround)
                        : contrastRatio(wanted, ground) < VisibleContrast
                            ? readable(ownText, ownText, ground, ownGround)
                            : wanted;
    readable_.emplace(key, result);
    return result;
}

QRgb GridColors::readable(QRgb text, QRgb ownText, QRgb ground, bool ownGround) const {
    if (contrastRatio(text, ground) >= ReadableContrast) {
        return text;
    }
    if (!ownGround) {
        return contrastRatio(White, ground) > contrastRatio(Black, ground) ? White : Black;
    }
    constexpr double Step = 0.1;
    for (double weight = Step; weight < 1.0; weight += Step) {
        const QRgb lighter = mixColors(text, theme_.dark ? White : Black, weight);
        if (contrastRatio(lighter, ground) >= ReadableContrast) {
            return lighter;
        }
    }
    return ownText;
}

}  // namespace planview
