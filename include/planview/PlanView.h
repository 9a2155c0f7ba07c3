#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/AutomationObject.h>
#include <planview/Events.h>
#include <planview/Platform.h>

namespace planview {

struct Cell;
class ChartControl;
class GridControl;
class PaneLayout;

/// One member of the control's automation interface.
struct MemberDescription {
    DispatchId id;  ///< 1 .. 65, the place in the interface
    std::string_view name;
    /// Arguments that a call takes: none, a text (`plv_ActiveNode`) or a table (the setters).
    int argumentCount;
};

/// The 65 members in their order.
[[nodiscard]] std::span<const MemberDescription> DescribeMembers() noexcept;

/// The planning table: shows the tables that the host hands to it and tells the host what the user does.
///
/// The host calls it through these methods, or late-bound by name or by number (DescribeMembers()). Call order:
/// 1. hand over the tables with `PROP_Set_X` or `plvSet_X`, in any order;
/// 2. where wanted `plv_LayoutMode` (before `DP_Import_Attribute`, or the tree pane stays hidden) and
/// `plv_EnableTrace`;
/// 3. `DP_Import_Attribute`, then `DP_Import_Texts`, `DP_Import_MacroTree`, `DP_Import_PopupMenu` in any order;
/// 4. `DP_Import_Create`;
/// 5. after a change of tables `DP_Import_Update`; after a change of GRID_ATTR first `DP_Import_Attribute`.
///
/// Errors: every method that returns a Status returns 0, whatever happens. A failure ends the method quietly and can be
/// seen in the trace (an entry with the message "ERROR"). None of the methods, table properties and commands throws.
/// What does: the constructor, when memory or the platform fails it, and a late-bound access to a member that there is
/// not or with arguments that it does not take (AutomationError).
///
/// The control keeps a counted reference to each table, copies none, and reads the host's object at every access. All
/// calls and events run on the thread that created the control. The trace is shared by all controls of a process.
class PlanView final : public AutomationObject {
public:
    /// Always 0.
    using Status = std::int16_t;

    explicit PlanView(const Platform& platform);
    /// Ends the control as Terminate() does.
    ~PlanView() override;
    PlanView(const PlanView&) = delete;
    PlanView& operator=(const PlanView&) = delete;

    // --- Methods (members 1 to 15) ---------------------------------------------------------------------------------

    Status plv_EnableTrace();
    /// Asks whether to save the trace to the log file.
    Status plv_DisableTrace();
    /// Shows the macro tree pane; needs layout mode. Says "NOTHING" when MACRO_TREE is not set.
    Status plv_LayoutShow();
    Status plv_LayoutHide();
    Status plv_LayoutMode();
    Status plv_LayoutModeDisable();
    /// Makes the macro tree node with this key the active one.
    Status plv_ActiveNode(const std::string& vNode);
    /// Hides every row of LINE_INDEX whose `ROW_MARKED` is "X".
    Status plv_MarkedRowsHide();
    Status plv_MarkedRowsShow();
    Status DP_Import_Texts();
    /// Reads row 1 of GRID_ATTR.
    Status DP_Import_Attribute();
    /// Builds the grid from the tables and writes each column's and row's key into `GRID_ID`.
    Status DP_Import_Create();
    /// A full rebuild.
    Status DP_Import_Update();
    Status DP_Import_PopupMenu();
    Status DP_Import_MacroTree();

    // --- Table properties (members 16 to 65) ------------------------------------------------------------------------
    // Getters return the very object that was set, or a null reference. Setters replace and release the earlier object;
    // a null reference empties the slot. `plvSet_X` is a second name of `PROP_Set_X`.

    ObjectRef PROP_Get_GRID_ATTR();
    Status PROP_Set_GRID_ATTR(ObjectRef table);
    Status plvSet_GRID_ATTR(ObjectRef table);
    ObjectRef PROP_Get_COLS_INDEX();
    Status PROP_Set_COLS_INDEX(ObjectRef table);
    Status plvSet_COLS_INDEX(ObjectRef table);
    ObjectRef PROP_Get_LINE_INDEX();
    Status PROP_Set_LINE_INDEX(ObjectRef table);
    Status plvSet_LINE_INDEX(ObjectRef table);
    ObjectRef PROP_Get_TAB();
    Status PROP_Set_TAB(ObjectRef table);
    Status plvSet_TAB(ObjectRef table);
    ObjectRef PROP_Get_TAB_OLD();
    Status PROP_Set_TAB_OLD(ObjectRef table);
    Status plvSet_TAB_OLD(ObjectRef table);
    ObjectRef PROP_Get_FIXED_COLS();
    Status PROP_Set_FIXED_COLS(ObjectRef table);
    Status plvSet_FIXED_COLS(ObjectRef table);
    ObjectRef PROP_Get_FIXED_LINES();
    Status PROP_Set_FIXED_LINES(ObjectRef table);
    Status plvSet_FIXED_LINES(ObjectRef table);
    Status PROP_Set_FIXED_TAB(ObjectRef table);
    Status plvSet_FIXED_TAB(ObjectRef table);
    ObjectRef PROP_Get_CELL_ATTR();
    Status PROP_Set_CELL_ATTR(ObjectRef table);
    Status plvSet_CELL_ATTR(ObjectRef table);
    ObjectRef PROP_Get_GRID_TREE();
    Status PROP_Set_GRID_TREE(ObjectRef table);
    Status plvSet_GRID_TREE(ObjectRef table);
    ObjectRef PROP_Get_MACRO_TREE();
    Status PROP_Set_MACRO_TREE(ObjectRef table);
    Status plvSet_MACRO_TREE(ObjectRef table);
    ObjectRef PROP_Get_TEXTS();
    Status PROP_Set_TEXTS(ObjectRef table);
    Status plvSet_TEXTS(ObjectRef table);
    ObjectRef PROP_Get_COLMENU();
    Status PROP_Set_COLMENU(ObjectRef table);
    Status plvSet_COLMENU(ObjectRef table);
    ObjectRef PROP_Get_ROWMENU();
    Status PROP_Set_ROWMENU(ObjectRef table);
    Status plvSet_ROWMENU(ObjectRef table);
    ObjectRef PROP_Get_GRIDMENU();
    Status PROP_Set_GRIDMENU(ObjectRef table);
    Status plvSet_GRIDMENU(ObjectRef table);
    ObjectRef PROP_Get_CELLMENU();
    Status PROP_Set_CELLMENU(ObjectRef table);
    Status plvSet_CELLMENU(ObjectRef table);
    ObjectRef PROP_Get_MACROREC();
    Status PROP_Set_MACROREC(ObjectRef table);
    Status plvSet_MACROREC(ObjectRef table);

    // --- Events -----------------------------------------------------------------------------------------------------

    /// The sink hears all twenty events until RemoveSink(); it must live that long. Sinks may be added and removed, and
    /// the control may be destroyed, from inside an event.
    void AddSink(EventSink& sink);
    void RemoveSink(EventSink& sink) noexcept;

    /// Called when an action of the user begins (true) that announces several values by `GridValueChanged`, and when it
    /// has ended (false), so that a host can keep what it hears in between as one. A single value's event comes outside
    /// of any. There is one listener; an empty one takes it away.
    void SetBulkListener(std::function<void(bool running)> listener);

    /// Whether the user may edit nothing at all, for a host that can keep no change. Outlives a rebuild; the host
    /// itself may change its tables as before.
    void SetLocked(bool locked) noexcept;
    [[nodiscard]] bool IsLocked() const noexcept;

    /// Called to show the user beside a cell why it does not take a value; false where that is not possible, and then a
    /// message box says it. There is one listener; an empty one takes it away.
    void SetHintListener(std::function<bool(const Cell& cell, std::string_view reason)> listener);

    // --- Commands for the host's own menus --------------------------------------------------------------------------

    /// Takes back the user's last change of values, however many cells it was; nothing where there is none. Undoing and
    /// redoing write the tables and raise the events as any other change does. A rebuild ends the history.
    void Undo();
    void Redo();
    [[nodiscard]] bool CanUndo() const noexcept;
    [[nodiscard]] bool CanRedo() const noexcept;
    void Copy();
    void Cut();
    void Paste();
    /// Gives every selected cell the value of the first one.
    void Fill();
    void Delete();
    /// Shows or hides the chart pane.
    void SwitchChart();
    [[nodiscard]] bool ChartShown() const noexcept;
    /// Puts exactly the columns (rows) whose headers are selected into the chart.
    void ShowSelectedColumnsInChart();
    void ShowSelectedRowsInChart();
    /// Ends the chart's forecast view: LINE_INDEX and COLS_INDEX have the marks for the chart again that they had before
    /// it. For a host that is about to put its tables away; nothing in another view.
    void LeaveForecastView();
    /// Hides the columns whose headings are selected, writes it into COLS_INDEX and raises `GridStartUpdate`; hidden ones
    /// can be selected along with those around them, and so be shown again. The same for rows and LINE_INDEX.
    void HideColumns();
    void ShowColumns();
    void HideRows();
    void ShowRows();

    // --- Late binding -----------------------------------------------------------------------------------------------

    /// Throws UnknownMember for a name that is none of the 65.
    [[nodiscard]] DispatchId IdOf(std::string_view name) const override;
    /// Throws UnknownMember: the control has methods only.
    [[nodiscard]] Variant Get(DispatchId member, Arguments arguments) override;
    void Put(DispatchId member, Arguments arguments, const Variant& value) override;
    /// Calls member 1 to 65. Getters answer their table, all others the status. Throws UnknownMember for another
    /// number, and for arguments of the wrong number or kind.
    Variant Call(DispatchId member, Arguments arguments) override;

    // --- What the window tells the control --------------------------------------------------------------------------

    void EnterFocus();
    void ExitFocus();
    void GotFocus();
    void LostFocus();
    /// The control's new size in logical pixels.
    void Resize(int width, int height);
    /// Ends the grid, releases the tables in their order and, when tracing is on, ends the trace. Safe to call twice.
    /// Afterwards the methods and setters do nothing; the getters answer a null reference, and where another control
    /// has switched the trace on they still leave their entry.
    void Terminate();

    /// The grid, for the layer that puts it on the screen.
    [[nodiscard]] GridControl& Grid() noexcept;
    /// The chart, for the same layer.
    [[nodiscard]] ChartControl& Chart() noexcept;
    /// The planning cells whose value the user has changed since TAB_OLD was last emptied, for the same layer.
    [[nodiscard]] std::vector<Cell> PendingCells() const;
    /// The panes, for the same layer.
    [[nodiscard]] PaneLayout& Panes() noexcept;

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace planview
