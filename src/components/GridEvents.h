// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "components/GridTypes.h"
#include "components/InputTypes.h"

namespace planview {

/// Which part of the grid looks different now. The one record by which every view learns of a change.
struct GridChange {
    /// Columns or rows were created, destroyed, moved, hidden, shown, resized or switched, or the scroll position has
    /// changed: the layout must be recomputed and everything repainted.
    bool layout = false;
    /// Selection, current cell or a grid-wide look changed: everything must be repainted.
    bool everything = false;
    /// Otherwise the one changed cell; when several changed, `everything` is set instead.
    bool oneCell = false;
    Cell cell;
    /// Only the pointer over the grid has changed (GridSettingsState::waiting).
    bool pointer = false;
};

/// Hears what changed on screen. Called once per change whose redraw flag was set, with all changes made since the last
/// call; never while redraw is switched off. It may change attributes and the selection, and hears of that after it has
/// returned, but it must not build or destroy (GridStatus::Busy).
class GridWatcher {
public:
    virtual ~GridWatcher() = default;
    virtual void GridChanged(const GridChange& change) = 0;
};

enum class MovedTracks { Columns, Rows };

/// Hears what the user did. Called after the grid itself has applied the action, except for what it is asked to do
/// (TextEntered, ShowHidden..., Dropped); may change, destroy and rebuild the grid.
class GridEvents {
public:
    virtual ~GridEvents() = default;
    /// Sizes in logical pixels. The heading sizes are those of columns shown as rows and rows shown as columns.
    virtual void ColumnResized(const std::string& column, int width) = 0;
    virtual void RowResized(const std::string& row, int height) = 0;
    virtual void HeadingHeightResized(const std::string& column, int height) = 0;
    virtual void HeadingWidthResized(const std::string& row, int width) = 0;
    /// The user dragged the border of this column or row so far that it is to be hidden. It has its former size again.
    virtual void HideColumn(const std::string& column) = 0;
    virtual void HideRow(const std::string& row) = 0;
    /// Planning columns or rows stand in another order now; `before` are the keys of all of them as they stood.
    virtual void Moved(MovedTracks moved, const std::vector<std::string>& before) = 0;
    /// A whole column is named by its heading cell, a whole row by its label cell, everything by the corner (label
    /// column, heading row). `selected` is the state of that place now. Not called when the selection does not change.
    virtual void SelectionChanged(const CellKey& cell, bool selected) = 0;
    /// The user entered this text, which the cell does not show yet: whoever takes it sets what the cell shows then.
    virtual void TextEntered(const CellKey& cell, const std::string& text) = 0;
    /// The user ended an entry without leaving the cell.
    virtual void StayCell() = 0;
    virtual void DoubleClick(const CellKey& cell) = 0;
    /// A click on the cell or heading that selected nothing else and dragged nothing.
    virtual void SimpleClick(const CellKey& cell) = 0;
    virtual void MouseDown(const CellKey& cell, MouseButton button, ShiftState shift) = 0;
    /// The user asked by key for the menu of what is selected: the current cell, the heading of its column or the label
    /// of its row where those are selected as a whole, and the corner where both are, or where no cell is current.
    virtual void MenuKey(const CellKey& cell) = 0;
    /// A key that edits nothing; answers whether it was a command. `keyCode` is 46 for Delete, else the capital
    /// letter's code; `shift` is a sum of ShiftState.
    virtual bool KeyDown(std::int16_t shift, std::int16_t keyCode) = 0;
    /// A typed character that edits nothing; 13 is Return.
    virtual void KeyPress(std::int16_t character) = 0;
    /// The user asks for these hidden columns or rows to be shown. The grid has not shown them yet.
    virtual void ShowHiddenColumns(const std::vector<std::string>& columns) = 0;
    virtual void ShowHiddenRows(const std::vector<std::string>& rows) = 0;
    /// The user dropped what another program or the grid offers: as plain text, and as HTML where there is any.
    virtual void Dropped(const CellKey& cell, const std::string& text, const std::string& html) = 0;
    virtual void FocusIn() = 0;
    virtual void FocusOut() = 0;
};

}  // namespace planview
