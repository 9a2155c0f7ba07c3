// SPDX-License-Identifier: MIT
#include "qt/grid/GridCellStyle.h"

namespace planview {

namespace {

using Area = AxisLayout::Area;

/// How much of the accent a selected cell with a colour of its own takes on.
constexpr double SelectionWeight = 0.3;

bool isHeading(const PlacedCell& cell) {
    return cell.top() || cell.left();
}

bool isCorner(const PlacedCell& cell) {
    return cell.top() && cell.left();
}

/// The track whose heading the cell is.
const TrackLook& headed(const PlacedCell& cell) {
    return cell.top() ? cell.horizontal : cell.vertical;
}

/// By the colour of the number's code; without one, where the number is shown as a negative one.
bool isRed(double number, const NumberFormat* format) {
    using Color = NumberFormat::Color;
    const Color color = format ? format->ColorOf(number) : Color::None;
    return color == Color::None ? (format ? format->ShowsNegative(number) : number < 0) : color == Color::Red;
}

/// Stands on the ground of the planning cells: the tints of fixed columns and rows tell that nothing can be typed
/// there.
bool isEditableFixed(const PlacedCell& cell, const CellLook& look) {
    const bool fixed = cell.row.area != Area::Center || cell.column.area != Area::Center;
    return fixed && !isHeading(cell) && !look.readOnly && !cell.row.helpLine && !look.helpLine;
}

}  // namespace

QRgb GridStyler::ownGround(const PlacedCell& cell, const CellLook& look) const {
    if (isHeading(cell) && (cell.top() || cell.vertical.area == Area::Leading)) {
        return theme_.heading;
    }
    if (isEditableFixed(cell, look)) {
        return colors_.base();
    }
    if (cell.row.area == Area::Leading) {
        return theme_.heading;
    }
    if (cell.row.area == Area::Trailing) {
        return cell.row.sums ? theme_.total : theme_.panel;
    }
    if (cell.column.area == Area::Trailing) {
        return theme_.total;
    }
    if (cell.row.helpLine || look.helpLine) {
        return theme_.helpLine;
    }
    if (cell.column.area == Area::Leading) {
        return cell.left() ? theme_.heading : theme_.panel;
    }
    if (cell.left()) {
        return theme_.heading;
    }
    if (look.computed) {
        return theme_.total;
    }
    return look.readOnly && colors_.isReadOnlyPair(look.background, look.foreground) ? theme_.readOnly : colors_.base();
}

QRgb GridStyler::ownText(const PlacedCell& cell, const CellLook& look) const {
    if (isCorner(cell)) {
        return theme_.text;
    }
    if (cell.top()) {
        return theme_.muted;
    }
    if (cell.row.area == Area::Leading || cell.column.area == Area::Trailing || isEditableFixed(cell, look)) {
        return theme_.text;
    }
    if (cell.row.area == Area::Trailing) {
        return cell.row.sums ? theme_.text : theme_.muted;
    }
    if (cell.left()) {
        return cell.row.readOnly && !cell.row.helpLine ? theme_.muted : theme_.text;
    }
    if (cell.column.area == Area::Leading) {
        return theme_.muted;
    }
    const bool readOnly = look.readOnly && colors_.isReadOnlyPair(look.background, look.foreground);
    return readOnly && !look.helpLine && !look.computed ? theme_.muted
                                                        : theme_.text;  // a help line tells itself apart by its tint
}

void GridStyler::setFontStyle(const PlacedCell& cell, const CellLook& look, GridCellStyle& style) const {
    const bool totals = cell.column.area == Area::Trailing || (cell.row.area == Area::Trailing && cell.row.sums);
    const bool helpLine = cell.row.helpLine || look.helpLine;
    const bool fixedTop = cell.left() ? cell.vertical.area == Area::Leading : cell.row.area == Area::Leading;
    style.bold = cell.top() || fixedTop || totals || look.computed || (cell.left() && helpLine);
    style.italic = !totals && (helpLine || (cell.row.area == Area::Trailing && !cell.top()));
}

GridCellStyle GridStyler::style(const PlacedCell& cell, const CellLook& look, std::optional<double> number) {
    GridCellStyle style;
    style.marked = isHeading(cell) && !isCorner(cell) && headed(cell).touched;

    const bool ownBackground = colors_.isOwnBackground(look.background) ||
                               (look.readOnly && colors_.isReadOnlyPair(look.background, look.foreground));
    const bool selected = !isHeading(cell) && current_ != cell.cell &&
                          grid_.Selection().HasCell(cell.cell, cell.column.order, cell.row.order);
    style.ground = ownBackground ? ownGround(cell, look) : colors_.background(look.background);
    if (style.marked || selected) {
        style.ground = ownBackground ? theme_.accentTint : mixColors(style.ground, theme_.accent, SelectionWeight);
    }

    const bool negative = number && !isHeading(cell) && isRed(*number, look.format);
    const QRgb plainText = style.marked ? theme_.accent : negative ? theme_.negative : ownText(cell, look);
    style.text =
        colors_.text(style.marked ? std::int16_t{-1} : look.foreground, plainText, style.ground, ownBackground);

    setFontStyle(cell, look, style);
    style.alignment = look.hasAlignment               ? look.alignment
                      : cell.top() && !isCorner(cell) ? GridAlignment::Center
                      : number && !isHeading(cell)    ? GridAlignment::Right
                                                      : GridAlignment::Left;
    return style;
}

}  // namespace planview
