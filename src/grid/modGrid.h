// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include <planview/Export.h>
#include <planview/Platform.h>

#include "components/GridControl.h"

/// Every change of the grid goes through one of these procedures: each keeps the keys it was given, makes its call on
/// the grid, writes a trace entry and hands a status other than Ok to the error routine. A failing call never stops the
/// caller; it has had no effect, and only the trace shows it.
///
/// `redraw` false leaves the screen as it is until a call with true. Keys with an empty row mean the column as a whole,
/// with an empty column the row; both empty name nothing and give InvalidName, except where the grid is said to be
/// meant.
namespace planview::modGrid {

// --- Process-wide state ---------------------------------------------------------------------------------------------

/// The keys of the last call, for the error routine.
inline std::string LastColumnKey;
inline std::string LastRowKey;
/// What the last call answered.
inline GridStatus Status = GridStatus::Ok;

// --- Palette --------------------------------------------------------------------------------------------------------

inline constexpr std::int16_t PaletteSize = 16;
/// The names of the registered colours by palette index, as the grid takes them; Empty until CreatePalette().
inline std::array<Variant, PaletteSize> ColorNames;
/// The look of what the user cannot edit, as palette indices.
inline constexpr std::int16_t ReadOnlyBackground = 8;
inline constexpr std::int16_t ReadOnlyForeground = 1;
/// The look of a fixed column or row that can be edited.
inline constexpr std::int16_t EditableBackground = 0;

void CreatePalette(GridControl& grid);
/// What a palette index looks like; white for a number that is none.
[[nodiscard]] PLANVIEW_EXPORT Rgb PaletteColorOf(std::int16_t index) noexcept;
/// The name of the registered colour with this palette index, in every grid; white's for a number that is none.
[[nodiscard]] PLANVIEW_EXPORT std::string_view PaletteName(std::int16_t index) noexcept;
/// The palette index of a position in the "Colors" popup, where white stands last instead of first.
[[nodiscard]] constexpr std::int16_t PaletteIndexOf(int position) noexcept {
    return static_cast<std::int16_t>((position + 1) % PaletteSize);
}
void CreateColor(GridControl& grid, std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue);

// --- Keys and positions ---------------------------------------------------------------------------------------------

/// "FLC" + number for the kind "L", "FRC" for "R", "COL" for any other.
[[nodiscard]] PLANVIEW_EXPORT std::string ColumnKey(std::int16_t position, std::string_view kind);
/// "FTR" + number for the kind "T", "FBR" for "B", "ROW" for any other.
[[nodiscard]] PLANVIEW_EXPORT std::string RowKey(std::int16_t position, std::string_view kind);
/// The number in a planning column's or row's key ("COL7" is 7); 0 for a fixed one and for no key.
[[nodiscard]] PLANVIEW_EXPORT std::int16_t PositionOf(std::string_view key);

// --- The grid as a whole --------------------------------------------------------------------------------------------

void CreateLabelled(GridControl& grid);
void Destructor(GridControl& grid, bool redraw);
void LabelColWidth(GridControl& grid, std::int16_t width);
void LabelAutoFit(GridControl& grid, std::int16_t width);
void DoubleBuffering(GridControl& grid, std::int16_t value, bool redraw);
void MovePermission(GridControl& grid, std::int16_t value, bool redraw);
void ResizePermission(GridControl& grid, std::int16_t value, bool redraw);
void DragDrop(GridControl& grid, std::int16_t value, bool redraw);
void GridlinesColor(GridControl& grid, std::int16_t color, bool redraw);
void Switch(GridControl& grid, bool switched, bool redraw);
/// Off holds every change back from the screen, whatever its own flag says; on shows them.
void SetRedraw(GridControl& grid, bool on);
/// Shows what was changed without redraw; nothing while the redraw is off.
void Redraw(GridControl& grid);

/// Keeps the redraw off for as long as the object lives, then draws the grid once, however its scope is left. Inside
/// another one the drawing waits for the outer end.
class RedrawAtEnd {
public:
    explicit RedrawAtEnd(GridControl& grid);
    ~RedrawAtEnd();
    RedrawAtEnd(const RedrawAtEnd&) = delete;
    RedrawAtEnd& operator=(const RedrawAtEnd&) = delete;

private:
    GridControl& grid_;
    bool before_;
};

/// Shows by the pointer that the control is at work, or that it is no longer.
void State(GridControl& grid, bool waiting);

/// Keeps the grid in its waiting state for as long as the object lives.
class WaitingState {
public:
    explicit WaitingState(GridControl& grid) : grid_(grid) { State(grid_, true); }
    ~WaitingState() { State(grid_, false); }
    WaitingState(const WaitingState&) = delete;
    WaitingState& operator=(const WaitingState&) = delete;

private:
    GridControl& grid_;
};

/// Makes the key's column the first visible one.
void FirstColumn(GridControl& grid, std::string_view key, bool redraw);
void FirstRow(GridControl& grid, std::string_view key, bool redraw);

// --- Columns and rows -----------------------------------------------------------------------------------------------

/// `position` is 1-based within the area that the key's prefix names.
void CreateColumn(GridControl& grid, std::string_view key, std::int16_t position, bool redraw);
void CreateRow(GridControl& grid, std::string_view key, std::int16_t position, bool redraw);
void ColumnWidth(GridControl& grid, std::string_view key, std::int16_t width, bool redraw);
void ColumnHeight(GridControl& grid, std::string_view key, std::int16_t height, bool redraw);
void RowHeight(GridControl& grid, std::string_view key, std::int16_t height, bool redraw);
void RowWidth(GridControl& grid, std::string_view key, std::int16_t width, bool redraw);
/// Takes the header of a fixed column or row out of the selection, so that only planning ones can be marked.
void SelectionFlag(GridControl& grid, const CellKeyView& keys, bool redraw);
void SetSelection(GridControl& grid, const CellKeyView& keys, bool redraw);
void DeleteSelection(GridControl& grid, const CellKeyView& keys, bool redraw);
void CenterHidden(GridControl& grid, const CellKeyView& keys, bool hidden, bool redraw);
/// 1 when the header of this column (empty row) or row (empty column) can be selected and is, else 0. Leaves no entry.
[[nodiscard]] int HeaderSelected(const GridControl& grid, const CellKeyView& keys);

// --- Cells ----------------------------------------------------------------------------------------------------------

void Contents(GridControl& grid, const CellKeyView& keys, std::string_view text, bool redraw);
/// The contents of a cell, empty where there is no such cell. Leaves no entry.
[[nodiscard]] std::string CellText(const GridControl& grid, const CellKeyView& keys);
void Tooltip(GridControl& grid, const CellKeyView& keys, std::string_view text, bool redraw);

// --- Attributes of cells, columns and rows --------------------------------------------------------------------------

void ReadOnly(GridControl& grid, const CellKeyView& keys, bool readOnly, bool redraw);
void Format(GridControl& grid, const CellKeyView& keys, std::string_view format, bool redraw);
void Font(GridControl& grid, const CellKeyView& keys, std::string_view font, bool redraw);
void Alignment(GridControl& grid, const CellKeyView& keys, std::int16_t alignment, bool redraw);
void Relief(GridControl& grid, const CellKeyView& keys, bool relief, bool redraw);
/// The bitmap and its place beside the text.
void Bitmap(GridControl& grid, const CellKeyView& keys, std::string_view bitmap, std::int16_t alignment, bool redraw);
/// `color` is a palette index. The background of the grid as a whole has no keys.
void BackgroundColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw);
void ForegroundColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw);

// --- Attributes of the centre cells of a column or row --------------------------------------------------------------

void CenterFormat(GridControl& grid, const CellKeyView& keys, std::string_view format, bool redraw);
void CenterFont(GridControl& grid, const CellKeyView& keys, std::string_view font, bool redraw);
void CenterAlignment(GridControl& grid, const CellKeyView& keys, std::int16_t alignment, bool redraw);
void CenterReadOnly(GridControl& grid, const CellKeyView& keys, bool readOnly, bool redraw);
/// `textLine` is the table's `ROW_TEXT`: "X" makes a text line.
void CenterTextLine(GridControl& grid, const CellKeyView& keys, std::string_view textLine, bool redraw);
/// `lineType` is the table's `LINETYPE`: "H" makes a help line.
void CenterHelpLine(GridControl& grid, const CellKeyView& keys, std::string_view lineType, bool redraw);
void CenterRelief(GridControl& grid, const CellKeyView& keys, bool relief, bool redraw);
void CenterBgColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw);
void CenterFgColor(GridControl& grid, const CellKeyView& keys, std::int16_t color, bool redraw);

// --- Errors ---------------------------------------------------------------------------------------------------------

/// The text of a status; "Unknown error" for a number without one.
[[nodiscard]] std::string_view StatusText(GridStatus status) noexcept;

}  // namespace planview::modGrid
