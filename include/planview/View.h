// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Export.h>
#include <planview/Facet.h>

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
