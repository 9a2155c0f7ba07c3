// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "components/GridAttributes.h"
#include "components/GridCells.h"
#include "components/GridControl.h"
#include "components/GridReports.h"
#include "components/GridStyles.h"
#include "components/GridTracks.h"

namespace planview {

inline constexpr ColumnId LabelColumn{0};
inline constexpr RowId HeadingRow{0};

/// A column or row and the attributes that it gives to its cells: to all of them, and to those in the centre area.
struct ColumnTrack : GridColumn {
    StyleId style = PlainStyle;
    StyleId centerStyle = PlainStyle;
};

struct RowTrack : GridRow {
    StyleId style = PlainStyle;
    StyleId centerStyle = PlainStyle;
};

using ColumnTracks = GridTracks<ColumnTrack, ColumnId, ColumnArea>;
using RowTracks = GridTracks<RowTrack, RowId, RowArea>;

/// Which planning column or row is the first on screen: the one asked for or, while that is hidden, its neighbour.
template <class Id>
struct ScrollPlace {
    std::optional<Id> wanted;  ///< none: the first one
    // The answer for the layout version that it was looked up for.
    std::optional<Id> found;
    std::uint64_t foundFor = 0;

    void Want(Id id) {
        wanted = id;
        foundFor = 0;
    }
};

/// What a pair of keys means to the selection.
struct SelectionPlace {
    enum class Kind { Nothing, Cell, Column, Row, Corner };
    Kind kind = Kind::Nothing;
    Cell cell;  ///< only the column or the row of it counts where the place is a whole one
};

/// Where an extending selection starts, and how far it goes now.
struct SelectionAnchor {
    SelectionPlace::Kind kind = SelectionPlace::Kind::Nothing;
    Cell start;
    Cell end;
    /// Whether the block added last is the anchor's own, which extending replaces.
    bool ownsRange = false;
};

/// A heading border between press and release.
struct PressedBorder {
    enum class Size { ColumnWidth, ColumnHeight, RowWidth, RowHeight, LabelWidth };
    Size size = Size::ColumnWidth;
    std::int32_t track = -1;  ///< the id's value; none for the label column
    std::int16_t before = 0;
    bool hides = false;  ///< dragged below LeastTrackSize it hides its column or row
};

struct GridControl::State {
    GridEvents* events = nullptr;
    GridReports reports;
    GridSettingsState settings;
    ColumnTracks columns;
    RowTracks rows;
    GridCells cells;
    GridStyles styles;
    StyleId gridStyle = PlainStyle;
    GridSelection selection;
    SelectionAnchor anchor;
    std::optional<Cell> current;
    ScrollPlace<ColumnId> firstColumn;
    ScrollPlace<RowId> firstRow;
    std::optional<PressedBorder> pressed;
    std::uint64_t layoutVersion = 1;
    std::uint64_t buildVersion = 1;
    bool readOnly = false;
    bool adding = false;

    void LayoutChanged() noexcept {
        ++layoutVersion;
        reports.NoteLayout();
    }
    /// Reports a change that was made and answers Ok.
    GridStatus Done(bool redraw) {
        reports.Report(redraw);
        return GridStatus::Ok;
    }

    // Look-up by key; Ok or why there is no such element.
    GridStatus Find(std::string_view key, ColumnId& column) const;
    GridStatus Find(std::string_view key, RowId& row) const;
    GridStatus Find(CellKeyView keys, Cell& cell) const;
    [[nodiscard]] GridStatus Check(Cell cell) const noexcept;
    [[nodiscard]] CellKey KeyOf(Cell cell) const { return {columns.At(cell.column).key, rows.At(cell.row).key}; }
    [[nodiscard]] std::optional<Cell> CurrentCell();

    // Attributes (GridControlAttributes.cpp).
    GridStatus SetOnGrid(GridAttribute attribute, const Variant& value);
    GridStatus SetOption(GridAttribute attribute, const Variant& value);
    GridStatus SetLabelWidth(const Variant& value);
    GridStatus SetOnTrack(GridElement element, CellKeyView keys, GridAttribute attribute, const Variant& value,
                          bool centerOnly);
    template <class Tracks, class Id>
    GridStatus SetOnTrack(Tracks& tracks, Id id, GridAttribute attribute, const Variant& value, bool centerOnly);
    template <class Id, class Track>
    void SetSelectable(Id id, Track& track, bool on);
    GridStatus SetOnCell(Cell cell, GridAttribute attribute, const Variant& value);
    [[nodiscard]] AttributeSet MergedStyle(Cell cell) const;

    // Selection (GridControlSelection.cpp).
    [[nodiscard]] bool HasWhole(ColumnId column) const noexcept { return selection.HasColumn(column); }
    [[nodiscard]] bool HasWhole(RowId row) const noexcept { return selection.HasRow(row); }
    void SetWhole(ColumnId column, bool selected) { selection.SetColumn(column, selected); }
    void SetWhole(RowId row, bool selected) { selection.SetRow(row, selected); }
    GridStatus FindPlace(CellKeyView keys, SelectionPlace& place) const;
    [[nodiscard]] CellRange RangeOf(Cell from, Cell to) const;
    [[nodiscard]] bool HasCell(Cell cell) const;
    void AddCell(Cell cell);
    void RemoveCell(Cell cell);
    void SelectCell(Cell cell, SelectionMode mode);
    template <class Tracks, class Id>
    void SelectTrack(const Tracks& tracks, Id id, SelectionMode mode);
    void Finish(const GridSelection& before, std::optional<Cell> currentBefore, const CellKey& place, bool selected);

    // Scrolling and borders (GridControlUser.cpp).
    [[nodiscard]] std::int16_t& SizeOf(const PressedBorder& which);
    GridStatus Press(PressedBorder border);
    /// False if it already had this size.
    bool Resize(const PressedBorder& which, std::int16_t size);
    [[nodiscard]] bool CanHide(const PressedBorder& which) const;
    void ReportResized(const PressedBorder& released);
    void ReportHide(const PressedBorder& released);
};

}  // namespace planview
