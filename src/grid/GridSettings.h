// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "automation/HostTable.h"

namespace planview {

/// The palette index of grid lines in the theme's own colour; also taken where GRID_ATTR names none.
inline constexpr std::int16_t ThemeLineColor = 8;

/// What the view is set to, in the one place where all that use it read and write it. What GRID_ATTR says is kept until
/// it is read again.
struct GridSettings {
    /// While it is off, GRID_ATTR and `plv_LayoutShow` cannot show the tree pane. No field of GRID_ATTR holds it.
    bool layoutMode = false;
    bool chartShown = false;
    bool treeShown = false;
    std::int16_t moveAllowed = 1;    ///< 0 or 1
    std::int16_t resizeAllowed = 1;  ///< 0 or 1
    std::int16_t singleValue = 0;    ///< 0 or 1
    std::int16_t dragMode = 1;       ///< 0 none, 1 allowed, 2 only inside the grid; no field of GRID_ATTR holds it
    bool switched = false;
    bool zoomed = false;
    std::int16_t backgroundColor = 0;             ///< palette index
    std::int16_t gridLineColor = ThemeLineColor;  ///< palette index
    std::int16_t firstColumn = 0;                 ///< position, 0 for none
    std::int16_t firstRow = 0;                    ///< position, 0 for none
    std::int16_t chartType = 0;
    bool autoMinimum = true;
    bool autoMaximum = true;
    double minimum = 0;
    double maximum = 0;
    double rangeMinimum = 0;
    double rangeMaximum = 0;
    double optimum = 0;
    std::int16_t labelColumnWidth = 0;  ///< 0 takes the default
    std::string titleText;
};

/// Reads row 1 of GRID_ATTR, field by field in a fixed order. A field that cannot be read throws and leaves those
/// behind it as they were. The tree is shown only in layout mode, whatever the table says.
void ReadGridAttributes(HostTable gridAttr, GridSettings& settings);

/// Keeps a setting in row 1 of GRID_ATTR, where there is such a table. What it refuses leaves an entry of the error and
/// nothing else: the setting holds all the same, and whoever is to hear of it does.
void PutGridAttribute(const HostTable& gridAttr, std::string_view field, const Variant& value) noexcept;
void PutGridFlag(const HostTable& gridAttr, std::string_view field, bool set) noexcept;

}  // namespace planview
