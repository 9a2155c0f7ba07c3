// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include <planview/Export.h>
#include <planview/Platform.h>

#include "components/GridControl.h"

namespace planview {

/// Every change of a control's grid goes through its one driver: each operation makes its call on the grid, writes a
/// trace entry, and hands a status other than Ok with the keys of the call to the error routine. It answers the status:
/// a failing call has had no effect, and a caller who goes on regardless need not look, for the trace shows it.
///
/// `redraw` false leaves the screen as it is until a call with true. Keys with an empty row mean the column as a whole,
/// with an empty column the row; both empty name nothing and give InvalidName, except where the grid is said to be
/// meant.
class modGrid {
public:
    explicit modGrid(GridControl& grid) noexcept : grid_(grid) {}
    modGrid(const modGrid&) = delete;
    modGrid& operator=(const modGrid&) = delete;

    /// The grid itself, for reading, and for operations without a trace entry.
    [[nodiscard]] GridControl& Grid() noexcept { return grid_; }
    [[nodiscard]] const GridControl& Grid() const noexcept { return grid_; }

    // --- Palette ---

    static constexpr std::int16_t PaletteSize = 16;
    /// The look of what the user cannot edit, as palette indices.
    static constexpr std::int16_t ReadOnlyBackground = 8;
    static constexpr std::int16_t ReadOnlyForeground = 1;
    /// The look of a fixed column or row that can be edited.
    static constexpr std::int16_t EditableBackground = 0;

    /// Registers the sixteen colours in a grid that has none.
    void CreatePalette();
    /// What a palette index looks like; white for a number that is none.
    [[nodiscard]] PLANVIEW_EXPORT static Rgb PaletteColorOf(std::int16_t index) noexcept;
    /// The name of the registered colour with this palette index, in every grid; white's for a number that is none.
    [[nodiscard]] PLANVIEW_EXPORT static std::string_view PaletteName(std::int16_t index) noexcept;
    /// The palette index of a position in the "Colors" popup, where white stands last instead of first.
    [[nodiscard]] static constexpr std::int16_t PaletteIndexOf(int position) noexcept {
        return static_cast<std::int16_t>((position + 1) % PaletteSize);
    }
    GridStatus CreateColor(std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue);

    // --- Keys and positions ---

    /// "FLC" + number for the kind "L", "FRC" for "R", "COL" for any other.
    [[nodiscard]] PLANVIEW_EXPORT static std::string ColumnKey(std::int16_t position, std::string_view kind);
    /// "FTR" + number for the kind "T", "FBR" for "B", "ROW" for any other.
    [[nodiscard]] PLANVIEW_EXPORT static std::string RowKey(std::int16_t position, std::string_view kind);
    /// The number in a planning column's or row's key ("COL7" is 7); 0 for a fixed one and for no key.
    [[nodiscard]] PLANVIEW_EXPORT static std::int16_t PositionOf(std::string_view key);

    // --- The grid as a whole ---

    GridStatus CreateLabelled();
    GridStatus Destructor(bool redraw);
    GridStatus LabelColWidth(std::int16_t width);
    GridStatus LabelAutoFit(std::int16_t width);
    GridStatus DoubleBuffering(std::int16_t value, bool redraw);
    GridStatus MovePermission(std::int16_t value, bool redraw);
    GridStatus ResizePermission(std::int16_t value, bool redraw);
    GridStatus DragDrop(std::int16_t value, bool redraw);
    GridStatus GridlinesColor(std::int16_t color, bool redraw);
    GridStatus Switch(bool switched, bool redraw);
    /// Whether the three operations below, which cannot fail, leave their entries.
    enum class Entries { Written, None };
    /// Off holds every change back from the screen, whatever its own flag says; on shows them.
    void SetRedraw(bool on, Entries entries = Entries::Written);
    /// Shows what was changed without redraw; nothing while the redraw is off.
    void Redraw(Entries entries = Entries::Written);
    /// Shows by the pointer that the control is at work, or that it is no longer.
    void State(bool waiting, Entries entries = Entries::Written);

    /// Keeps the redraw off for as long as the object lives, then draws the grid once, however its scope is left.
    /// Inside another one the drawing waits for the outer end.
    class RedrawAtEnd {
    public:
        explicit RedrawAtEnd(modGrid& driver, Entries entries = Entries::Written);
        ~RedrawAtEnd();
        RedrawAtEnd(const RedrawAtEnd&) = delete;
        RedrawAtEnd& operator=(const RedrawAtEnd&) = delete;

    private:
        modGrid& driver_;
        Entries entries_;
        bool before_;
    };

    /// Keeps the grid in its waiting state for as long as the object lives.
    class WaitingState {
    public:
        explicit WaitingState(modGrid& driver, Entries entries = Entries::Written);
        ~WaitingState();
        WaitingState(const WaitingState&) = delete;
        WaitingState& operator=(const WaitingState&) = delete;

    private:
        modGrid& driver_;
        Entries entries_;
    };

    /// Makes the key's column the first visible one.
    GridStatus FirstColumn(std::string_view key, bool redraw);
    GridStatus FirstRow(std::string_view key, bool redraw);

    // --- Columns and rows ---

    /// `position` is 1-based within the area that the key's prefix names.
    GridStatus CreateColumn(std::string_view key, std::int16_t position, bool redraw);
    GridStatus CreateRow(std::string_view key, std::int16_t position, bool redraw);
    GridStatus ColumnWidth(std::string_view key, std::int16_t width, bool redraw);
    GridStatus ColumnHeight(std::string_view key, std::int16_t height, bool redraw);
    GridStatus RowHeight(std::string_view key, std::int16_t height, bool redraw);
    GridStatus RowWidth(std::string_view key, std::int16_t width, bool redraw);
    /// Takes the heading of a fixed column or row out of the selection, so that only planning ones can be marked.
    GridStatus SelectionFlag(const CellKeyView& keys, bool redraw);
    GridStatus SetSelection(const CellKeyView& keys, bool redraw);
    GridStatus DeleteSelection(const CellKeyView& keys, bool redraw);
    GridStatus CenterHidden(const CellKeyView& keys, bool hidden, bool redraw);
    /// Whether the heading of this column (empty row) or row (empty column) can be selected and is. Leaves no entry.
    [[nodiscard]] bool HeadingSelected(const CellKeyView& keys) const;

    // --- Cells ---

    GridStatus Contents(const CellKeyView& keys, std::string_view text, bool redraw);
    /// The contents of a cell, empty where there is no such cell. Leaves no entry.
    [[nodiscard]] std::string CellText(const CellKeyView& keys) const;
    GridStatus Tooltip(const CellKeyView& keys, std::string_view text, bool redraw);

    // --- Attributes of cells, columns and rows ---

    GridStatus ReadOnly(const CellKeyView& keys, bool readOnly, bool redraw);
    GridStatus Format(const CellKeyView& keys, std::string_view format, bool redraw);
    GridStatus Font(const CellKeyView& keys, std::string_view font, bool redraw);
    GridStatus Alignment(const CellKeyView& keys, std::int16_t alignment, bool redraw);
    GridStatus Relief(const CellKeyView& keys, bool relief, bool redraw);
    /// The bitmap and its place beside the text.
    GridStatus Bitmap(const CellKeyView& keys, std::string_view bitmap, std::int16_t alignment, bool redraw);
    /// `color` is a palette index. The background of the grid as a whole has no keys.
    GridStatus BackgroundColor(const CellKeyView& keys, std::int16_t color, bool redraw);
    GridStatus ForegroundColor(const CellKeyView& keys, std::int16_t color, bool redraw);

    // --- Attributes of the centre cells of a column or row ---

    GridStatus CenterFormat(const CellKeyView& keys, std::string_view format, bool redraw);
    GridStatus CenterFont(const CellKeyView& keys, std::string_view font, bool redraw);
    GridStatus CenterAlignment(const CellKeyView& keys, std::int16_t alignment, bool redraw);
    GridStatus CenterReadOnly(const CellKeyView& keys, bool readOnly, bool redraw);
    /// `textLine` is the table's `ROW_TEXT`: "X" makes a text line.
    GridStatus CenterTextLine(const CellKeyView& keys, std::string_view textLine, bool redraw);
    /// `lineType` is the table's `LINETYPE`: "H" makes a help line.
    GridStatus CenterHelpLine(const CellKeyView& keys, std::string_view lineType, bool redraw);
    GridStatus CenterRelief(const CellKeyView& keys, bool relief, bool redraw);
    GridStatus CenterBgColor(const CellKeyView& keys, std::int16_t color, bool redraw);
    GridStatus CenterFgColor(const CellKeyView& keys, std::int16_t color, bool redraw);

    // --- Errors ---

    /// A call that the grid refused.
    struct Refusal {
        GridStatus status = GridStatus::Ok;
        std::string_view operation;  ///< as the trace names it
        CellKey keys;
    };
    /// The last one, and how many there were so far.
    [[nodiscard]] const Refusal& LastRefusal() const noexcept { return lastRefusal_; }
    [[nodiscard]] std::uint64_t Refusals() const noexcept { return refusals_; }
    void NoteRefusal(GridStatus status, std::string_view operation, const CellKeyView& keys);

    /// The text of a status; "Unknown error" for a number without one.
    [[nodiscard]] static std::string_view StatusText(GridStatus status) noexcept;

private:
    /// The name of a palette colour; the empty one, which no grid knows, outside the palette.
    [[nodiscard]] const Variant& ColorName(std::int16_t color) const noexcept;

    GridControl& grid_;
    Refusal lastRefusal_;
    std::uint64_t refusals_ = 0;
    /// The names of the registered colours by palette index, as the grid takes them; Empty until CreatePalette().
    std::array<Variant, PaletteSize> colorNames_;
};

}  // namespace planview
