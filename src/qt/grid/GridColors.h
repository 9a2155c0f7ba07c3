// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <planview/Platform.h>

#include "components/GridControl.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// What a theme alone says of a view's own colour.
[[nodiscard]] QRgb themeColor(const GridTheme& theme, ViewColor which);

/// Turns the control's named colours into what is painted in a theme.
///
/// White as a background and black as a foreground mean the view's own base and text. Every other background is painted
/// as it is, and text on it becomes black or white where it could not be read. A coloured text on the view's own ground
/// is lightened in the dark theme until it can be read.
class GridColors {
public:
    GridColors(const GridControl& grid, const GridTheme& theme);

    [[nodiscard]] bool isOwnBackground(std::int16_t index) const { return roleOf(index) == Role::White; }
    [[nodiscard]] bool isOwnForeground(std::int16_t index) const { return roleOf(index, Role::Black) == Role::Black; }
    /// Whether background and foreground are those which the control itself gives to cells that cannot be edited.
    [[nodiscard]] bool isReadOnlyPair(std::int16_t background, std::int16_t foreground) const;

    /// The colour of a background that is not the view's own.
    [[nodiscard]] QRgb background(std::int16_t index) const { return colors_[static_cast<std::size_t>(index)].rgb; }
    /// The colour of a text with this foreground on a ground; `ownText` where the foreground names none.
    [[nodiscard]] QRgb text(std::int16_t index, QRgb ownText, QRgb ground, bool ownGround);

    /// A colour that the view has by itself.
    [[nodiscard]] QRgb own(ViewColor which) const {
        return which == ViewColor::Background ? base_ : themeColor(theme_, which);
    }
    [[nodiscard]] QRgb base() const { return base_; }
    [[nodiscard]] QRgb line() const { return line_; }

private:
    enum class Role : std::uint8_t { White, Black, Gray, Other };
    struct Entry {
        QRgb rgb;
        Role role;
    };
    /// All that the answer of text() depends on.
    struct Question {
        QRgb wanted;
        QRgb ownText;
        QRgb ground;
        bool ownForeground;
        bool ownGround;
        bool operator==(const Question&) const = default;
    };
    struct QuestionHash {
        std::size_t operator()(const Question& question) const noexcept;
    };
    [[nodiscard]] Role roleOf(std::int16_t index, Role none = Role::White) const;
    [[nodiscard]] QRgb readable(QRgb text, QRgb ownText, QRgb ground, bool ownGround) const;

    GridTheme theme_;
    std::vector<Entry> colors_;
    bool hasOwnBase_ = true;
    QRgb base_;
    QRgb line_;
    std::unordered_map<Question, QRgb, QuestionHash> readable_;
};

}  // namespace planview
