// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include <planview/Platform.h>

namespace planview {

/// The palette index that stands for the view's own colour.
[[nodiscard]] constexpr std::int16_t PaletteIndexOf(ViewColor own) noexcept {
    constexpr std::int16_t White = 0;
    constexpr std::int16_t Black = 1;
    constexpr std::int16_t Gray = 8;
    return own == ViewColor::Text ? Black : own == ViewColor::GridLines ? Gray : White;
}

/// What a colour is chosen for.
struct ColorQuestion {
    std::optional<std::int16_t> present;  ///< the palette index of the colour that it has; none where nobody can tell
    std::optional<ViewColor> own;  ///< the colour that it has by itself; none where it always has one of the palette
};

/// Lets the user choose one of sixteen colours. Answers its position in the "Colors" popup, where black is 0 and white
/// is 15, or nothing when the popup was closed. For the view's own colour it is the position of that palette index.
using ColorChooser = std::function<std::optional<int>(const ColorQuestion& question)>;

}  // namespace planview
