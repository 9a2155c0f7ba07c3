// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QPixmap>
#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "qt/grid/GridTheme.h"

namespace planview {

/// The logical pixels of a bitmap's sides.
inline constexpr int BitmapPixels = 16;

/// The pictures that cells may carry: our own line icons, which take the theme's text colour, and those of the host.
class GridBitmaps {
public:
    GridBitmaps();

    /// The host's picture takes precedence over one of ours with the same name.
    void add(const std::string& name, const QIcon& icon);

    /// The picture with sides of `pixels` paint pixels; null when there is none of that name.
    [[nodiscard]] const QPixmap& pixmap(const std::string& name, int pixels, const GridTheme& theme);
    /// The picture for a button, with sides of `side` logical pixels, each of `ratio` pixels of the device; with this
    /// opacity while the button is disabled.
    [[nodiscard]] QIcon icon(const std::string& name, int side, qreal ratio, const GridTheme& theme, double disabled);

private:
    [[nodiscard]] QPixmap draw(const std::string& name, int pixels, const GridTheme& theme) const;

    std::map<std::string, QIcon> icons_;
    std::map<std::tuple<std::string, int, QRgb>, QPixmap> drawn_;  // by name, size and text colour
};

}  // namespace planview
