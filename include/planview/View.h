// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include <planview/CellKey.h>
#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/Variant.h>

namespace planview {

/// What is shown: panes, hidden columns and rows, what is in the chart; and what the window tells the control.
class PLANVIEW_EXPORT View final : public Facet {
public:
    /// That of this control.
    explicit View(PlanView& control) noexcept : Facet(control) {}

    /// Shows or hides the chart pane.
    void SwitchChart();
    /// Whether the chart belongs to the view; a zoomed grid hides it all the same.
    [[nodiscard]] bool ChartShown() const noexcept;
    /// Shows or hides the macro tree pane, and writes it into `HIDDEN_LIST` of GRID_ATTR; needs layout mode.
    void SwitchMacroTree();
    /// Whether the macro tree pane belongs to the view; false without layout mode.
    [[nodiscard]] bool MacroTreeShown() const noexcept;
    /// @{
    /// Puts exactly the columns (rows) whose headings are selected into the chart.
    void ShowSelectedColumnsInChart();
    void ShowSelectedRowsInChart();
    /// @}
    /// Ends the chart's forecast view: LINE_INDEX and COLS_INDEX have the marks for the chart again that they had
    /// before it. For a host that is about to put its tables away; nothing in another view.
    void LeaveForecastView();
    /// @{
    /// Hides the columns whose headings are selected, writes it into COLS_INDEX and raises `GridStartUpdate`; hidden
    /// ones can be selected along with those around them, and so be shown again. The same for rows and LINE_INDEX.
    void HideColumns();
    void ShowColumns();
    void HideRows();
    void ShowRows();
    /// @}

    /// @{
    /// Reads exactly these again from the tables and shows them as one change: of cells their values, texts and looks;
    /// of columns and rows also their headings, sizes, looks and whether they are hidden, and all their cells. For a
    /// host that has changed its tables. Selection, scroll position, an open entry, the chart's position and the undo
    /// history stay; nothing is announced or pending. Keys as events name them, fixed ones too; one that the grid does
    /// not have is passed over, and only a build adds, removes or reorders columns and rows. Of a table that cannot be
    /// read to its end no cell is shown again. Allowed inside every event.
    void UpdateCells(std::span<const CellKey> cells);
    void UpdateColumns(std::span<const std::string> columns);
    void UpdateRows(std::span<const std::string> rows);
    /// @}

    /// The text of a cell as it is shown: a number in its format ("1.234,5 EUR"). Empty for an empty cell and for keys
    /// that the grid does not have. {"COL5", "FTR0"} is a column's heading, {"FLC0", "ROW2"} a row's label.
    [[nodiscard]] std::string TextOf(const CellKey& cell) const;
    /// What a cell holds: a number (Double) where the contents are one, else the text, Empty where nothing is.
    [[nodiscard]] Variant ValueOf(const CellKey& cell) const;
    /// The selected cells that are not hidden, row by row as they stand on the screen (in the switched view, too);
    /// the current cell where none is selected, nothing where there is none.
    [[nodiscard]] std::vector<CellKey> SelectedCells() const;
    /// The cell that keys act on; none in a grid without visible planning cells.
    [[nodiscard]] std::optional<CellKey> CurrentCell() const;

    /// @{
    /// The keyboard focus comes to the control or leaves it, and comes to its own surface or leaves it. Each leaves its
    /// trace entry and does nothing else.
    void EnterFocus();
    void ExitFocus();
    void GotFocus();
    void LostFocus();
    /// @}
    /// The control's new size in logical pixels.
    void Resize(int width, int height);
};

}  // namespace planview
