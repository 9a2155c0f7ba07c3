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

/// Whether the desktop's own palette is a dark one.
[[nodiscard]] bool isDark(const QPalette& palette);

}  // namespace planbook
