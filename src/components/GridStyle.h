// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/NumberFormat.h"
#include "components/GridTypes.h"

namespace planview {

struct GridColor {
    std::string name;
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
};

/// A font as tables name it: "name;size;style". Empty name and size 0 mean the view's own.
struct GridFont {
    std::string name;
    int size = 0;  ///< points, 4 .. 96, or 0
    bool bold = false;
    bool italic = false;
    friend bool operator==(const GridFont&, const GridFont&) = default;
};

/// How one cell looks after the layers grid, column, row and cell have been laid over each other.
/// References stay valid until the next change of the grid.
struct CellLook {
    /// Indices into GridControl::Colors(); -1 where no layer sets one.
    std::int16_t background = -1;
    std::int16_t foreground = -1;
    const GridFont* font = nullptr;        ///< null: the view's own
    const NumberFormat* format = nullptr;  ///< null: contents are shown as they are
    const std::string* bitmap = nullptr;   ///< null: none
    GridAlignment bitmapAlignment = GridAlignment::Right;
    /// Set by no layer: numbers stand right, texts left; see GridControl::Alignment().
    bool hasAlignment = false;
    GridAlignment alignment = GridAlignment::Right;
    bool relief = false;
    bool readOnly = false;
    bool textLine = false;
    bool helpLine = false;
    bool computed = false;
};

}  // namespace planview
