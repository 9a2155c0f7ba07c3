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
#include <planview/CellKey.h>
#include <planview/Commands.h>
#include <planview/Events.h>
#include <planview/Export.h>
#include <planview/Platform.h>
#include <planview/Spreadsheet.h>

/// The planning table. `PlanView` is the control, `PlanViewWidget` the same as a Qt widget.
namespace planview {

/// One member of the control's automation interface.
struct MemberDescription {
    DispatchId id;          ///< 1 .. 65, the place in the interface
    std::string_view name;  ///< "DP_Import_Create"
    /// Arguments that a call takes: none, a text (`plv_ActiveNode`) or a table (the setters).
    int argumentCount;
};

/// What became of a macro that was run or replayed.
struct MacroResult {
    bool done = false;    ///< false: nothing was changed
    int cells = 0;        ///< that were given a value
    std::string message;  ///< for the user: what was done, or what is wrong, where, and what now
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
/// Errors: every method that returns a Status returns 0, whatever happens. A failure ends the method quietly and can be
/// seen in the trace (an entry with the message "ERROR"). None of the methods, table properties and commands throws.
/// What does: the constructor, when memory or the platform fails it, a table by a name that there is not, and a
/// late-bound access to a member that there is not or with arguments that it does not take (AutomationError).
///
/// The control keeps a counted reference to each table, copies none, and reads the host's object at every access.
///
/// Threads: a control is called, raises its events and ends on the thread that created it. Controls on different
/// threads do not disturb each other, where each thread has tables and platforms of its own. The trace is shared by all
/// controls of a process, on whatever threads they are, and is safe to share.
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
    /// The sink hears nothing more, also of an event that is being told. Nothing for one that was not added.
    void RemoveSink(EventSink& sink) noexcept;

    /// Called when an action of the user begins (true) that announces several values by `GridValueChanged`, and when it
    /// has ended (false), so that a host can keep what it hears in between as one. A single value's event comes outside
    /// of any. There is one listener; an empty one takes it away.
    void SetBulkListener(std::function<void(bool running)> listener);

    /// Whether the user may edit nothing at all, for a host that can keep no change. Outlives a rebuild; the host
    /// itself may change its tables as before.
    void SetLocked(bool locked) noexcept;
    /// What SetLocked() was last told; false at first.
    [[nodiscard]] bool IsLocked() const noexcept;

    /// The planning cells that show another value than TAB_OLD keeps for them: what the user has changed and the host
    /// has not taken over yet.
    [[nodiscard]] std::vector<CellKey> PendingCells() const;

    /// Called to show the user beside a cell why it does not take a value; false where that is not possible, and then a
    /// message box says it. There is one listener; an empty one takes it away.
    void SetHintListener(std::function<bool(const CellKey& cell, std::string_view reason)> listener);

    // --- Commands for the host's own menus --------------------------------------------------------------------------

    /// Runs any command with the arguments that DescribeCommands() says, as the user would from a menu, and records it
    /// while a recording runs. Answers whether it was done: false where there was nothing to do, where it failed, and
    /// for another number of arguments. A command that could not be chosen now (StateOf()) may be run all the same.
    bool Run(Command command, Arguments arguments = {});
    /// @{
    /// Whether the command can be chosen now and is checked, for menus and tool bars.
    [[nodiscard]] CommandState StateOf(Command command) const;
    [[nodiscard]] std::vector<CommandState> StatesOf(std::span<const Command> commands) const;
    /// @}
    /// Called when StateOf() may answer otherwise than before, which is often; a host had better ask when the present
    /// event is over. There is one listener; an empty one takes it away.
    void SetCommandListener(std::function<void()> listener);

    /// Takes back the user's last change of values, however many cells it was; nothing where there is none. Undoing and
    /// redoing write the tables and raise the events as any other change does. A rebuild ends the history.
    void Undo();
    /// Makes the change again that Undo() took back last; nothing after another change of values.
    void Redo();
    /// Whether Undo() has something to take back.
    [[nodiscard]] bool CanUndo() const noexcept;
    /// Whether Redo() has something to make again.
    [[nodiscard]] bool CanRedo() const noexcept;
    /// Puts the selected block on the clipboard, the current cell where nothing is selected. Says so where the selected
    /// cells form no block.
    void Copy();
    /// Copy(), then Delete().
    void Cut();
    /// Puts the clipboard's cells from the first selected one on, or over the selection where they fit it a whole
    /// number of times. Cells that take no value are left out and the user is told how many.
    void Paste();
    /// Gives every selected cell the value of the first one.
    void Fill();
    /// Empties the selected planning cells.
    void Delete();
    /// Multiplies the numbers of the selected planning cells by 1 + percent / 100, -1,000,000 .. 1,000,000; empty cells
    /// stay empty. One change, undone as one; what may not change is left alone and named.
    void RaiseSelected(double percent);
    /// Shows or hides the chart pane.
    void SwitchChart();
    /// Whether the chart belongs to the view; a zoomed grid hides it all the same.
    [[nodiscard]] bool ChartShown() const noexcept;
    /// Shows or hides the macro tree pane, and writes it into `HIDDEN_LIST` of GRID_ATTR; needs layout mode.
    void SwitchMacroTree();
    /// Whether the macro tree pane belongs to the view; false without layout mode.
    [[nodiscard]] bool MacroTreeShown() const noexcept;
    /// @{
    /// Puts exactly the columns (rows) whose headers are selected into the chart.
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

    // --- Exchange with a spreadsheet application ("Excel.Application" of the platform's objects) --------------------

    /// @{
    /// How workbooks are written and where their dialogs open; kept for the life of the control.
    void SetSpreadsheetOptions(SpreadsheetOptions options);
    [[nodiscard]] const SpreadsheetOptions& GetSpreadsheetOptions() const noexcept;
    /// @}
    /// @{
    /// Ask for a file, work and tell what went wrong, as the entries of the grid's popup do.
    void Download();
    void Upload();
    /// @}
    /// Writes the grid into a new workbook without asking. A sentence about what went wrong, empty when the file is
    /// written; a failure leaves an older file of that name as it was. `path` in UTF-8.
    [[nodiscard]] std::string DownloadTo(const std::string& path);
    /// What an upload of the workbook would change. Changes nothing.
    [[nodiscard]] UploadPreview PreviewUpload(const std::string& path);
    /// Applies the ticked changes of a preview as one action of the user: one undo step, events as for a paste. Cells
    /// that have changed since the preview was made are left alone.
    UploadResult ApplyUpload(const UploadPreview& preview);

    // --- Recording and replaying
    // --------------------------------------------------------------------------------------

    /// Records what the user does from now on into MACROREC, or goes on with a recording that was paused. What was in
    /// MACROREC is dropped when a recording begins. Says so where there is no such table.
    void StartRecording();
    /// Records nothing until StartRecording(); what is recorded stays.
    void PauseRecording();
    /// Raises `MacroRecordSave`, at which a host keeps the recording.
    void StopRecording();
    /// Drops the last recorded step; what it did stays done.
    void UndoRecordedStep();
    /// Whether there is a recording that has not been stopped, be it paused or not.
    [[nodiscard]] bool IsRecording() const noexcept;
    /// Whether there is a recording, and it is paused.
    [[nodiscard]] bool IsRecordingPaused() const noexcept;
    /// How many steps the recording has, be it paused or not; 0 without one.
    [[nodiscard]] int RecordedSteps() const noexcept;
    /// Called when one of the three above is another. There is one listener; an empty one takes it away.
    void SetRecordingListener(std::function<void()> listener);
    /// Keeps the steps in MACROREC as a node of MACRO_TREE with this text, last below the node `parentNode` or among
    /// the roots, and builds the tree anew. Answers the key of the new node; empty, and told to the user, where there
    /// is nothing to keep or MACRO_TREE cannot take it.
    std::string KeepRecording(const std::string& name, const std::string& parentNode = {});
    /// Replays the recording that is the MACRO_TREE node with this key. Steps find their lines and periods by the key
    /// while it has still the caption of the recording, else by the caption when it is the only one; a step that does
    /// not find them ends the replay before anything is changed. All values are one change, undone as one.
    /// `onSelectedLine` takes the selected line (that of the selected cells) in the place of the one that the recording
    /// is about; it has to be about one alone.
    MacroResult ReplayMacro(const std::string& nodeKey, bool onSelectedLine = false);
    /// Runs the MACRO_TREE node with this key: a macro, or a recording as ReplayMacro() does. A macro computes
    /// everything first; whatever is wrong then (the check, a division by zero, a cell that may not be changed),
    /// nothing is changed. Its values are one change, undone as one. `onSelectedLine` as for ReplayMacro().
    MacroResult RunMacro(const std::string& nodeKey, bool onSelectedLine = false);
    /// Says what would keep the macro from running, each problem on a line of its own; `done` where nothing would.
    MacroResult CheckMacro(const std::string& nodeKey);
    /// Moves a MACRO_TREE node, with all below it, as `MacroTreeNodeDropped` reports it: `action` 4 before, 5 after, 6
    /// as the last one below the target. What does not go there is not moved; the macro editor says why. The host hears
    /// of the change by `MacroTreeExpand`.
    void MoveMacroNode(const std::string& nodeKey, const std::string& target, std::int16_t action);

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

    // --- What the window tells the control --------------------------------------------------------------------------

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
    /// Ends the grid, releases the tables in their order and, when tracing is on, ends the trace. Safe to call twice.
    /// Afterwards the methods and setters do nothing; the getters answer a null reference, and where another control
    /// has switched the trace on they still leave their entry.
    void Terminate();

private:
    friend class ControlParts;  // src/control: by it the widget reaches what it shows
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace planview
