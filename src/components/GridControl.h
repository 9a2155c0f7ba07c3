// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>
#include <planview/Variant.h>

#include "components/GridEvents.h"
#include "components/GridSelection.h"
#include "components/GridStyle.h"
#include "components/GridTypes.h"
#include "components/GridViewState.h"

namespace planview {

/// One column: its key, its place and its sizes.
struct GridColumn {
    std::string key;
    ColumnArea area = ColumnArea::Center;
    std::int16_t width = DefaultColumnWidth;
    std::int16_t height = DefaultRowHeight;  ///< of the row it is shown as when the grid is switched
    bool hidden = false;
    bool selectable = true;
};

struct GridRow {
    std::string key;
    RowArea area = RowArea::Center;
    std::int16_t height = DefaultRowHeight;
    std::int16_t width = DefaultColumnWidth;  ///< of the column it is shown as when the grid is switched
    bool hidden = false;
    bool selectable = true;
};

/// Settings of the grid as a whole.
struct GridSettingsState {
    bool created = false;
    bool moveAllowed = false;
    bool resizeAllowed = true;
    std::int16_t dragDrop = 0;  ///< 0 none, DragAllowed, 2 only inside the grid
    bool doubleBuffering = false;
    bool switched = false;
    bool labelAutoFit = false;
    bool waiting = false;  ///< the pointer says that the control is at work
    std::int16_t labelColumnWidth = DefaultLabelColumnWidth;
    std::int16_t gridLineColor = -1;    ///< index into Colors(), -1: the view's own
    std::int16_t backgroundColor = -1;  ///< index into Colors(), -1: the view's own
};

/// The grid as a model without a screen: keyed columns (left, centre, right) and rows (top, centre, bottom), contents,
/// attribute layers (grid < column < row < cell), selection, scroll position and named colours.
///
/// The control changes it by keys and gets a GridStatus; a status other than Ok means that nothing changed. A view
/// reads it by ids and reports what the user does. Changes reach the view through one GridWatcher, user actions reach
/// the control through one GridEvents listener.
///
/// Redraw: a change made with `redraw` false is noted but not reported; the next one with `redraw` true reports both.
/// While SetRedraw(false) holds, nothing is reported at all.
class PLANVIEW_EXPORT GridControl {
public:
    GridControl();
    ~GridControl();
    GridControl(const GridControl&) = delete;
    GridControl& operator=(const GridControl&) = delete;

    void SetWatcher(GridWatcher* watcher) noexcept;
    void SetEvents(GridEvents* events) noexcept;

    // --- Building, by key
    // ---------------------------------------------------------------------------------------------

    /// An empty grid with the label column "FLC0" and the heading row "FTR0". ColumnDefined when there is a grid; until
    /// then, everything that needs one answers AttributeNotPossible.
    GridStatus CreateLabelled(bool redraw);
    /// Removes all columns, rows, contents, selection and colours. The settings return to their defaults.
    GridStatus Destroy(bool redraw);
    /// The key's prefix says the area: "COL" centre, "FLC" left, "FRC" right. `position` is 1-based within the area,
    /// 1 .. count + 1 (not counting the label column); 0 appends.
    GridStatus CreateColumn(std::string_view key, std::int16_t position, bool redraw);
    /// "ROW" centre, "FTR" top, "FBR" bottom; otherwise as CreateColumn().
    GridStatus CreateRow(std::string_view key, std::int16_t position, bool redraw);
    GridStatus CreateColor(std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    /// Names that `Bitmap` attributes may use beside the built-in ones. They survive Destroy().
    void RegisterBitmap(std::string_view name);
    /// Font names that `Font` attributes may use; while none is registered every name is taken.
    void RegisterFonts(std::vector<std::string> names);

    /// Sets an attribute of the grid (no keys), a column (column key), a row (row key) or a cell (both keys).
    /// Attributes of a column or row hold for all its cells, fixed ones included, and take the place of those set on
    /// its centre alone.
    GridStatus SetAttribute(GridElement element, CellKeyView keys, GridAttribute attribute, const Variant& value,
                            bool redraw);
    /// As SetAttribute() for a column or row, but only for its cells in the centre area. `Hidden` hides the column or
    /// row as a whole.
    GridStatus SetCenterAttribute(GridElement element, CellKeyView keys, GridAttribute attribute, const Variant& value,
                                  bool redraw);

    /// Takes from a column (column key), a row (row key) or a cell (both keys) all attributes that it gives to its
    /// cells or has itself, so that it looks as those around it; contents, sizes and what is hidden stay.
    GridStatus ResetLook(CellKeyView keys, bool redraw);

    /// Moves a column to a 1-based position within its area (not counting the label column). Whole columns and rows
    /// stay selected, blocks of cells do not. Permissions bind the user only: a view asks Settings().moveAllowed first.
    GridStatus MoveColumn(std::string_view key, std::int16_t position, bool redraw);
    GridStatus MoveRow(std::string_view key, std::int16_t position, bool redraw);

    /// Switching it on reports what is still unreported.
    void SetRedraw(bool on);
    [[nodiscard]] bool RedrawOn() const noexcept;
    /// Reports what is still unreported (nothing while redraw is off).
    void Redraw();
    /// Shows the waiting pointer over the grid; reported at once, whatever redraw says.
    void SetWaiting(bool waiting);

    // --- Scroll position
    // ----------------------------------------------------------------------------------------------

    /// Makes this planning column the first one on screen of the centre area; while it is hidden, the next one is.
    GridStatus SetFirstColumn(std::string_view key, bool redraw);
    GridStatus SetFirstRow(std::string_view key, bool redraw);
    /// The first centre column or row on screen that is not hidden; no value in a grid without any.
    [[nodiscard]] std::optional<ColumnId> FirstColumn() const;
    [[nodiscard]] std::optional<RowId> FirstRow() const;

    // --- Selection and current cell
    // ------------------------------------------------------------------------------------

    /// Selects a cell (both keys), a whole column (row key empty or the heading row) or a whole row (column key empty
    /// or the label column), in addition to what is selected. Hidden ones can be selected, so that they can be shown.
    GridStatus SetSelection(CellKeyView keys, bool redraw);
    /// The same places taken out of the selection; the corner (label column, heading row) clears all of it.
    GridStatus DeleteSelection(CellKeyView keys, bool redraw);
    /// 19 for a selectable column heading, 20 for a selectable row heading, else 0.
    [[nodiscard]] int HeadingKind(CellKeyView keys) const;
    /// Whether the whole column or row (one key empty) or the cell (both keys) is selected.
    [[nodiscard]] bool IsSelected(CellKeyView keys) const;

    [[nodiscard]] const GridSelection& Selection() const noexcept;
    /// The cell that keys act on; it is never hidden. Before the user chooses one it is the first one on screen. No
    /// value in a grid without visible planning cells.
    [[nodiscard]] std::optional<Cell> CurrentCell() const;
    /// What Shift goes on extending: a block of cells, or the whole columns or rows that were selected last.
    [[nodiscard]] SelectionKind ExtendedKind() const;
    /// The end of the selection opposite the current cell, from which it is extended further; the current cell itself
    /// while it has not been extended. Never hidden.
    [[nodiscard]] std::optional<Cell> SelectionEnd() const;

    [[nodiscard]] GridViewState ViewState() const;
    /// Brings back what is still there, without redraw and without an event; what is selected now is deselected. The
    /// scroll position stays where the state's column or row is not there.
    void RestoreViewState(const GridViewState& view);

    // --- What the user does (called by the view)
    // -----------------------------------------------------------------------

    /// Selects the cell: alone (Replace), from the anchor to it (Extend), or besides (Add). The anchor is the place
    /// that was last selected otherwise, and the current cell stays there; Add takes a selected place out again.
    /// NoItemAtLocation for what is hidden, a heading or not selectable; hidden ones within a block are selected with
    /// it.
    GridStatus SelectCell(Cell cell, SelectionMode mode);
    GridStatus SelectColumn(ColumnId column, SelectionMode mode);
    GridStatus SelectRow(RowId row, SelectionMode mode);
    /// While the user adds to the selection by keys, these move the current cell without taking the selection away.
    /// Ends by itself with the next selection that replaces another, and with ClearSelection(). What the current cell
    /// alone would be is selected first.
    void SetAdding(bool on);
    [[nodiscard]] bool IsAdding() const noexcept;
    /// Makes the cell the current one, from which SelectCell() extends a block of its own; the selection stays.
    GridStatus GoToCell(Cell cell);
    /// All selectable columns and rows.
    void SelectAll();
    /// Leaves the current cell alone and selects nothing else.
    void ClearSelection();
    GridStatus ScrollToColumn(ColumnId column);
    GridStatus ScrollToRow(RowId row);

    /// Resizing by the heading border: press, any number of drags, release. Sizes are clamped to LeastTrackSize ..
    /// MaxTrackSize. A planning column or row, unless it is the last one that can be seen, may be dragged below that:
    /// it has its former size again on release, and the listener is asked to hide it. Otherwise the listener hears one
    /// event, on release, if the size has changed by then. `switchedSize` means the size that counts
    /// when switched. The label column's own border changes LabelColumnWidth; the lower border of a heading changes the
    /// size that it takes from the first planning column or row.
    GridStatus PressColumnBorder(ColumnId column, bool switchedSize);
    GridStatus PressRowBorder(RowId row, bool switchedSize);
    GridStatus DragBorder(int size);
    GridStatus ReleaseBorder();
    /// Restores the size that the heading had when it was pressed; raises no event.
    GridStatus CancelBorder();

    /// Asks the listener to take the text that the user entered, and the cell shows what the listener sets; without a
    /// listener it shows the text as it is. Whether the cell can be edited, and takes this text, is asked before.
    GridStatus EnterText(Cell cell, const std::string& text);
    /// The user has moved planning columns or rows (MoveColumn, MoveRow), which stood in this order before.
    void ReportMoved(MovedTracks moved, const std::vector<std::string>& before);
    void ReportStay();
    void ReportDoubleClick(Cell cell);
    void ReportSimpleClick(Cell cell);
    void ReportMouseDown(Cell cell, MouseButton button, ShiftState shift);
    void ReportMenuKey();
    bool ReportKeyDown(std::int16_t shift, std::int16_t keyCode);
    void ReportKeyPress(std::int16_t character);
    void ReportDrop(Cell cell, const std::string& text, const std::string& html);
    void ReportFocus(bool in);
    /// Asks the listener to show the hidden columns that stand right before or behind this one, up to the next one that
    /// is not hidden. NoItemAtLocation where there are none.
    GridStatus ReportShowHidden(ColumnId beside, HiddenSide side);
    GridStatus ReportShowHidden(RowId beside, HiddenSide side);

    /// Whether the user may not edit anything. Survives Destroy(); binds only those who ask the cell's rules.
    void SetReadOnly(bool readOnly) noexcept;
    [[nodiscard]] bool IsReadOnly() const noexcept;

    // --- Reading, by id. One that names nothing in this grid, such as one from before a rebuild, reads as a hidden
    // column or row without a key, and its cells as empty ones.

    [[nodiscard]] const GridSettingsState& Settings() const noexcept;
    [[nodiscard]] std::span<const GridColor> Colors() const noexcept;

    /// In their order; the label column is the first left one, the heading row the last top one, next to the cells.
    [[nodiscard]] std::span<const ColumnId> Columns(ColumnArea area) const noexcept;
    [[nodiscard]] std::span<const RowId> Rows(RowArea area) const noexcept;
    [[nodiscard]] const GridColumn& Column(ColumnId column) const;
    [[nodiscard]] const GridRow& Row(RowId row) const;
    [[nodiscard]] std::optional<ColumnId> FindColumn(std::string_view key) const;
    [[nodiscard]] std::optional<RowId> FindRow(std::string_view key) const;
    [[nodiscard]] std::optional<Cell> FindCell(CellKeyView keys) const;
    [[nodiscard]] CellKey KeyOf(Cell cell) const;
    /// The 0-based place among all columns (left, centre, right), hidden ones included.
    [[nodiscard]] int OrderOf(ColumnId column) const;
    [[nodiscard]] int OrderOf(RowId row) const;

    [[nodiscard]] const std::string& Contents(Cell cell) const;
    [[nodiscard]] const std::string& Tooltip(Cell cell) const;
    [[nodiscard]] CellLook Look(Cell cell) const;
    /// The number that the contents are; no value for other contents and in text lines.
    [[nodiscard]] std::optional<double> Number(Cell cell, const CellLook& look) const;
    /// The look's own alignment; without one, numbers stand right and texts left.
    [[nodiscard]] GridAlignment Alignment(Cell cell, const CellLook& look) const;
    /// The contents as they are shown: by the cell's number format where they are a number.
    [[nodiscard]] std::string DisplayText(Cell cell) const;
    [[nodiscard]] std::string DisplayText(Cell cell, const CellLook& look) const;
    /// The same for callers that already have Number().
    [[nodiscard]] std::string DisplayText(Cell cell, const CellLook& look, std::optional<double> number) const;
    /// Grows whenever the grid is created or destroyed; older ids no longer name anything.
    [[nodiscard]] std::uint64_t BuildVersion() const noexcept;
    /// Grows with every change of order, sizes, hidden state or switched state.
    [[nodiscard]] std::uint64_t LayoutVersion() const noexcept;
    /// Counts up with every change of what is shown, whatever redraw says, but not with the scroll position.
    [[nodiscard]] std::uint64_t ChangeVersion() const noexcept;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace planview
