// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/AutomationObject.h>
#include <planview/Calculation.h>
#include <planview/Commands.h>
#include <planview/Diagnostics.h>
#include <planview/Editing.h>
#include <planview/Events.h>
#include <planview/Exchange.h>
#include <planview/Export.h>
#include <planview/Macros.h>
#include <planview/Platform.h>
#include <planview/Recording.h>
#include <planview/View.h>

/// The planning table. `PlanView` is the control, `PlanViewWidget` the same as a Qt widget.
namespace planview {

/// One member of the control's automation interface.
struct MemberDescription {
    DispatchId id;          ///< 1 .. 65, the place in the interface
    std::string_view name;  ///< "DP_Import_Create"
    /// Arguments that a call takes: none, a text (`plv_ActiveNode`) or a table (the setters).
    int argumentCount;
};

/// The 65 members in their order.
[[nodiscard]] PLANVIEW_EXPORT std::span<const MemberDescription> DescribeMembers() noexcept;

/// The names of the host's seventeen tables ("GRID_ATTR", "COLS_INDEX" ...) in their order.
[[nodiscard]] PLANVIEW_EXPORT std::span<const std::string_view> TableNames() noexcept;

/// The planning table: shows the tables that the host hands to it and tells the host what the user does.
///
/// The host calls it through these methods, or late-bound by name or by number (DescribeMembers()). Call order:
/// 1. hand over the tables with `PROP_Set_X`, `plvSet_X` or SetTable(), in any order;
/// 2. where wanted `plv_LayoutMode` (before `DP_Import_Attribute`, or the tree pane stays hidden) and
/// `plv_EnableTrace`;
/// 3. `DP_Import_Attribute`, then `DP_Import_Texts`, `DP_Import_MacroTree`, `DP_Import_PopupMenu` in any order;
/// 4. `DP_Import_Create`;
/// 5. after a change of tables `DP_Import_Update`; after a change of GRID_ATTR first `DP_Import_Attribute`.
///
/// Errors: every method that returns a Status returns 0, whatever happens. A failure ends the method quietly; failure
/// listeners hear of it (Diagnostics), and the trace has it. None of the methods, table properties and commands throws.
/// What does: the constructor, when memory or the platform fails it, an unknown table name, and a late-bound
/// access to an unknown member or with arguments that it does not take (AutomationError).
///
/// The control keeps a counted reference to each table, copies none, and reads the host's object at every access.
///
/// Threads: a control is called, raises its events and ends on the thread that created it. Controls on different
/// threads do not disturb each other, where each thread has tables and platforms of its own. The trace is shared by all
/// controls of a process, on whatever threads they are, and is safe to share.
///
/// Lifetimes: a table is held until it is replaced or the control ends. The pieces of the platform and the sinks stay
/// the host's and must outlive the control, a sink until RemoveSink(); listeners are copied. On the control's thread
/// the host may at any time destroy the control, take tables back, add and remove sinks and listeners, also from inside
/// an event, a listener, a table that is being read or a piece of the platform: what was under way then ends quietly.
///
/// Callbacks: tables, sinks, listeners and the platform are called only while a call of the host is under way, or while
/// a window hands on what the user does (PlanViewWidget: from Qt's event loop). Nothing is called later, or from a
/// thread of the control's own.
class PLANVIEW_EXPORT PlanView final : public AutomationObject {
public:
    /// Always 0.
    using Status = std::int16_t;

    /// A control with an empty grid, without a screen where the platform has none. What the platform refers to must
    /// outlive the control.
    explicit PlanView(const Platform& platform = {});
    /// Ends the control as Terminate() does.
    ~PlanView() override;
    PlanView(const PlanView&) = delete;
    PlanView& operator=(const PlanView&) = delete;

    // --- Methods (members 1 to 15) ---------------------------------------------------------------------------------

    /// Switches the trace on with an empty list; nothing while it is on.
    Status plv_EnableTrace();
    /// Asks whether to save the trace to the log file, then switches it off; nothing while it is off.
    Status plv_DisableTrace();
    /// Shows the macro tree pane; needs layout mode. Says "NOTHING" when MACRO_TREE is not set.
    Status plv_LayoutShow();
    /// Hides the macro tree pane; nothing without layout mode or without MACRO_TREE.
    Status plv_LayoutHide();
    /// Allows the macro tree pane from the next DP_Import_Attribute() or plv_LayoutShow() on.
    Status plv_LayoutMode();
    /// Ends layout mode; a pane that is shown stays until the next DP_Import_Attribute().
    Status plv_LayoutModeDisable();
    /// Selects the macro tree node with this key and shows it; nothing while a popup of the tree is open.
    Status plv_ActiveNode(const std::string& vNode);
    /// Hides every row of LINE_INDEX whose `ROW_MARKED` is "X".
    Status plv_MarkedRowsHide();
    /// Shows every row of LINE_INDEX whose `ROW_MARKED` is "X".
    Status plv_MarkedRowsShow();
    /// Takes the tooltips of the macro toolbar from TEXTS.
    Status DP_Import_Texts();
    /// Reads row 1 of GRID_ATTR and lays out the panes.
    Status DP_Import_Attribute();
    /// Builds the grid from the tables and writes each column's and row's key into `GRID_ID`.
    Status DP_Import_Create();
    /// A full rebuild: the same as DP_Import_Create().
    Status DP_Import_Update();
    /// Leaves its trace entry only: the menu tables are read each time a popup opens.
    Status DP_Import_PopupMenu();
    /// Builds the macro tree from MACRO_TREE. A node that was selected stays so where it is there again.
    Status DP_Import_MacroTree();

    /// @name Table properties (members 16 to 65)
    /// @{

    /// Getters return the very object that was set, or a null reference. Setters replace and release the earlier
    /// object; a null reference empties the slot. `plvSet_X` is a second name of `PROP_Set_X`.
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
    /// @}

    /// @{
    /// The same for a table by its name, one of TableNames(): what `PROP_Get_X` answers (of FIXED_TAB too), and what
    /// `PROP_Set_X` does. Throws UnknownMember for another name.
    [[nodiscard]] ObjectRef GetTable(std::string_view name);
    Status SetTable(std::string_view name, ObjectRef table);
    /// @}

    // --- Events -----------------------------------------------------------------------------------------------------

    /// The sink hears all twenty events until RemoveSink(); it must live that long. Sinks may be added and removed, and
    /// the control may be destroyed, from inside an event.
    void AddSink(EventSink& sink);
    /// The sink is not called again, not even for an event being delivered. Nothing for one that was not added.
    void RemoveSink(EventSink& sink) noexcept;

    // --- Commands for the host's own menus --------------------------------------------------------------------------

    /// Runs any command with the arguments that DescribeCommands() says, as the user would from a menu, and records it
    /// while a recording runs. Answers whether it was done: false where there was nothing to do or it could not be
    /// chosen (StateOf()), where it failed, and for another number of arguments.
    bool Run(Command command, Arguments arguments = {});
    /// @{
    /// Whether the command can be chosen now and is checked, for menus and tool bars.
    [[nodiscard]] CommandState StateOf(Command command) const;
    [[nodiscard]] std::vector<CommandState> StatesOf(std::span<const Command> commands) const;
    /// @}
    /// @{
    /// Called when what StateOf() answers may have changed, which is often; a host should ask after the current event.
    /// Called until it is removed.
    ListenerId AddCommandListener(std::function<void()> listener);
    void RemoveCommandListener(ListenerId listener) noexcept;
    /// @}

    // --- The rest of the interface, part by part --------------------------------------------------------------------

    /// Undo, the clipboard, read only, what is pending.
    [[nodiscard]] planview::Editing Editing() noexcept { return planview::Editing(*this); }
    /// Panes, hidden columns and rows, what is in the chart; focus and size.
    [[nodiscard]] planview::View View() noexcept { return planview::View(*this); }
    /// Computed lines and columns.
    [[nodiscard]] planview::Calculation Calculation() noexcept { return planview::Calculation(*this); }
    /// Workbooks.
    [[nodiscard]] planview::Exchange Exchange() noexcept { return planview::Exchange(*this); }
    /// Running macros and recordings.
    [[nodiscard]] planview::Macros Macros() noexcept { return planview::Macros(*this); }
    /// Recording what the user does.
    [[nodiscard]] planview::Recording Recording() noexcept { return planview::Recording(*this); }
    /// The trace.
    [[nodiscard]] planview::Diagnostics Diagnostics() noexcept { return planview::Diagnostics(*this); }

    // --- Late binding -----------------------------------------------------------------------------------------------

    /// Throws UnknownMember for a name that is neither one of the 65 nor a command's.
    [[nodiscard]] DispatchId IdOf(std::string_view name) const override;
    /// @{
    /// Throws UnknownMember: the control has methods only.
    [[nodiscard]] Variant Get(DispatchId member, Arguments arguments) override;
    void Put(DispatchId member, Arguments arguments, const Variant& value) override;
    /// @}
    /// Calls member 1 to 65 or a command. Getters answer their table, all others the status. Throws UnknownMember for
    /// another number, and WrongArguments for another number of arguments.
    Variant Call(DispatchId member, Arguments arguments) override;

    // --- The end ----------------------------------------------------------------------------------------------------

    /// Ends the grid, releases the tables in their order and, when tracing is on, ends the trace. Safe to call twice.
    /// Afterwards the methods and setters do nothing; the getters answer a null reference, and where another control
    /// has switched the trace on they still leave their entry.
    void Terminate();

private:
    friend class Facet;
    std::shared_ptr<detail::ControlState> state_;
};

}  // namespace planview
