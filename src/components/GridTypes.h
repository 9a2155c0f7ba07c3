// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include <planview/CellKey.h>

namespace planview {

/// What a grid operation answers. 0 is success; the numbers are fixed, because the trace turns them into texts.
enum class GridStatus : std::int16_t {
    Ok = 0,
    RowDefined = 1,              ///< a row with this key exists
    ColumnDefined = 2,           ///< a column with this key exists
    UnknownRow = 3,              ///< no row with this key
    UnknownColumn = 4,           ///< no column with this key
    InvalidName = 5,             ///< a key without a known prefix and a number behind it, or an empty colour name
    UndefinedGridAttribute = 6,  ///< the grid as a whole has no such attribute
    UndefinedRowAttribute = 7,
    UndefinedColumnAttribute = 8,
    UndefinedCellAttribute = 9,
    NoItemAtLocation = 10,    ///< nothing selectable, visible or scrolled at the place asked for
    InvalidRowPosition = 11,  ///< outside 1 .. number of rows of the area + 1
    InvalidColumnPosition = 12,
    InvalidCellPosition = 13,  ///< neither the column nor the row of a cell exists
    AttributeNotPossible =
        14,  ///< the attribute exists but cannot be set now (the grid is not created, a label is hidden)
    UnknownBitmap = 15,
    UnknownColor = 16,
    UnknownFont = 17,
    TooManyElements = 18,  ///< more columns, rows or colours than a 16-bit number counts; has no text of its own
    InvalidText = 19,      ///< a text that is no valid UTF-8; has no text of its own
    Busy = 20,  ///< the watcher tries to build, move or destroy while it is told of a change; no text of its own
    ColorDefined = 21,     ///< a colour with this name exists
    NoRegisterPress = 22,  ///< a heading is dragged or released that was not pressed before
    InvalidAttribute = 23  ///< a value of the wrong kind or outside the attribute's range
};

enum class ColumnArea : std::uint8_t { Left, Center, Right };
enum class RowArea : std::uint8_t { Top, Center, Bottom };

/// What an attribute is set on.
enum class GridElement : std::uint8_t { Grid, Column, Row, Cell };

enum class GridAttribute : std::uint8_t {
    // Of cells; also of columns, rows and the grid, which give them to the cells that have none of their own
    // (grid < column < row < cell).
    BackgroundColor,  ///< text: a registered colour's name
    ForegroundColor,  ///< text: a registered colour's name
    // An empty text removes Format, Font and Bitmap from the element, which then follows the layers below it.
    Format,           ///< text: a number code ("#,##0.0"); with none, the contents are shown as they are
    Font,             ///< text: "name;size;style", style of Normal, Bold, Cursiv; missing pieces take the defaults
    Alignment,        ///< number: 0 right, 1 left, 2 centre
    Relief,           ///< boolean
    Bitmap,           ///< text: a built-in or registered bitmap's name
    BitmapAlignment,  ///< number: 0 right, 1 left, 2 centre
    ReadOnly,         ///< boolean
    TextLine,         ///< boolean: carries text, takes no planning values
    HelpLine,         ///< boolean: drawn as a help line
    Computed,         ///< boolean: holds what a formula computes
    // Of cells only.
    Contents,  ///< text
    Tooltip,   ///< text
    // Of columns and rows only.
    Hidden,  ///< boolean
    // Sizes are numbers of logical pixels up to MaxTrackSize, 0 takes the default. The width of the label column and of
    // the heading row is LabelColumnWidth.
    Width,       ///< of a column; a row's width is that of its column when switched
    Height,      ///< of a row; a column's height is that of its row when switched
    Selectable,  ///< boolean: whether the heading can be selected
    // Of the grid only.
    GridLineColor,     ///< text: a registered colour's name
    MovePermission,    ///< number: 0 or 1
    ResizePermission,  ///< number: 0 or 1
    DragDrop,          ///< number: 0 none, DragAllowed, 2 only inside the grid
    DoubleBuffering,   ///< number: 0 or 1; kept only, the desktop always paints buffered
    LabelColumnWidth,  ///< number of logical pixels, 0 takes the default
    LabelAutoFit,      ///< boolean: the label column is as wide as its longest text
    Switched           ///< boolean: columns are shown as rows and rows as columns
};

/// `ROW_ALIGN`, `BMP_ALIGN` and `TEXTALIGN` use these numbers.
enum class GridAlignment : std::int8_t { Right = 0, Left = 1, Center = 2 };

/// Names a column inside one GridControl for as long as the grid is not destroyed; moving does not change it.
struct ColumnId {
    std::int32_t value = -1;
    friend bool operator==(ColumnId, ColumnId) = default;
};

struct RowId {
    std::int32_t value = -1;
    friend bool operator==(RowId, RowId) = default;
};

struct Cell {
    ColumnId column;
    RowId row;
    friend bool operator==(Cell, Cell) = default;
};

/// The value of GridAttribute::DragDrop that lets blocks of cells out of the grid and into it.
inline constexpr std::int16_t DragAllowed = 1;

inline constexpr int DefaultColumnWidth = 80;
inline constexpr int DefaultRowHeight = 22;
inline constexpr int DefaultLabelColumnWidth = 160;
inline constexpr int MaxTrackSize = 4000;
/// Smaller ones are hardly seen: a border that is dragged below this hides its column or row.
inline constexpr int LeastTrackSize = 8;

/// The heading row above the planning columns and the label column left of the planning rows.
inline constexpr std::string_view HeadingRowKey = "FTR0";
inline constexpr std::string_view LabelColumnKey = "FLC0";

}  // namespace planview
