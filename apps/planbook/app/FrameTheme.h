// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QString>

namespace planbook {

/// The colours of the window around the view, which bring it and the view together.
struct FrameTheme {
    QPalette palette;
    QString styleSheet;  ///< of the main window: its bars with hairlines, their buttons as links

    [[nodiscard]] static FrameTheme make(bool dark);
};

/// Whether a palette has one ground for all, and texts nearly as far from it as they can be. It is kept as it is.
[[nodiscard]] bool isHighContrast(const QPalette& palette);

/// Whether the desktop's own palette is a dark one.
[[nodiscard]] bool isDark(const QPalette& palette);

}  // namespace planbook
