// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIcon>
#include <QImage>
#include <QList>
#include <QMetaType>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <memory>

#include <planview/AutomationObject.h>
#include <planview/Export.h>
#include <planview/ObjectRegistry.h>
#include <planview/PlanView.h>
#include <planview/Platform.h>
#include <planview/Spreadsheet.h>

Q_DECLARE_METATYPE(planview::ObjectRef)

class QAction;

namespace planview {

/// The planning table as a widget.
///
/// The 65 members of PlanView are invokable and its 20 events are signals, both with their own names and in their own
/// order, so that every Qt host (C++, QML, script) can use them by name. A table is any planview::ObjectRef. See
/// PlanView for what the members do, for the order of calls and for errors.
///
/// As a widget it belongs to the thread of the user interface, and so do all of its members, its signals and the
/// tables that it reads: call it on that thread only.
///
/// The widget may be deleted at any time, also inside a slot that one of its own signals called.
class PLANVIEW_EXPORT PlanViewWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(ColorScheme colorScheme READ colorScheme WRITE setColorScheme NOTIFY colorSchemeChanged)
    Q_PROPERTY(double textScale READ textScale WRITE setTextScale NOTIFY textScaleChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY undoAvailable)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY redoAvailable)
    Q_PROPERTY(bool spreadsheetPrintSetup READ spreadsheetPrintSetup WRITE setSpreadsheetPrintSetup)
    Q_PROPERTY(QString currentCellName READ currentCellName NOTIFY selectionSummaryChanged)
    Q_PROPERTY(int selectedCells READ selectedCells NOTIFY selectionSummaryChanged)
    Q_PROPERTY(QString selectionSum READ selectionSum NOTIFY selectionSummaryChanged)
    Q_PROPERTY(QString selectionMean READ selectionMean NOTIFY selectionSummaryChanged)
    Q_PROPERTY(int pendingChanges READ pendingChanges NOTIFY pendingChangesChanged)

public:
    /// The colours of the view. Unscoped, because forms of Qt Designer name the values without the enumeration.
    enum ColorScheme { System, Light, Dark };
    Q_ENUM(ColorScheme)

    /// A widget with an empty grid on Qt's desktop.
    explicit PlanViewWidget(QWidget* parent = nullptr);
    /// The same with some of the desktop's pieces replaced; null ones stay Qt's. What the platform refers to must
    /// outlive the widget. With `objects` replaced, the host's own are used instead of objects().
    explicit PlanViewWidget(const Platform& platform, QWidget* parent = nullptr);
    ~PlanViewWidget() override;

    /// The control behind the widget, for late binding and for event sinks; lives as long as the widget.
    [[nodiscard]] PlanView& control();

    /// Where the host registers objects of other programs, such as the spreadsheet application. Empty at first.
    [[nodiscard]] ObjectRegistry& objects();

    /// @{
    /// System follows the widget's palette, which follows the desktop.
    [[nodiscard]] ColorScheme colorScheme() const;
    void setColorScheme(ColorScheme scheme);
    /// @}

    /// @{
    /// 0.5 .. 3.0, as Ctrl and the wheel set it. Scales what is seen, not the sizes in the tables.
    [[nodiscard]] double textScale() const;
    void setTextScale(double scale);
    /// @}

    /// Makes a name known that `BITMAP` fields may hold. Goes before a built-in one of the same name.
    void registerBitmap(const QString& name, const QIcon& icon);

    /// What the widget shows, in another size in logical pixels and without scroll bars; works without being shown.
    /// `scale` is the picture's device pixel ratio.
    [[nodiscard]] QImage renderToImage(QSize size, qreal scale = 1.0);

    /// The chart alone, in logical pixels and without the marks of what is selected; null for an empty size.
    [[nodiscard]] QImage chartImage(QSize size, qreal scale = 1.0) const;

    /// @{
    /// For layouts, in logical pixels.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// @}

    /// @name The members of PlanView, in their order
    /// @{

    /// As the member of PlanView with this name; methods and setters answer 0.
    Q_INVOKABLE short plv_EnableTrace();
    Q_INVOKABLE short plv_DisableTrace();
    Q_INVOKABLE short plv_LayoutShow();
    Q_INVOKABLE short plv_LayoutHide();
    Q_INVOKABLE short plv_LayoutMode();
    Q_INVOKABLE short plv_LayoutModeDisable();
    Q_INVOKABLE short plv_ActiveNode(const QString& vNode);
    Q_INVOKABLE short plv_MarkedRowsHide();
    Q_INVOKABLE short plv_MarkedRowsShow();
    Q_INVOKABLE short DP_Import_Texts();
    Q_INVOKABLE short DP_Import_Attribute();
    Q_INVOKABLE short DP_Import_Create();
    Q_INVOKABLE short DP_Import_Update();
    Q_INVOKABLE short DP_Import_PopupMenu();
    Q_INVOKABLE short DP_Import_MacroTree();

    Q_INVOKABLE planview::ObjectRef PROP_Get_GRID_ATTR();
    Q_INVOKABLE short PROP_Set_GRID_ATTR(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_GRID_ATTR(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_COLS_INDEX();
    Q_INVOKABLE short PROP_Set_COLS_INDEX(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_COLS_INDEX(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_LINE_INDEX();
    Q_INVOKABLE short PROP_Set_LINE_INDEX(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_LINE_INDEX(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_TAB();
    Q_INVOKABLE short PROP_Set_TAB(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_TAB(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_TAB_OLD();
    Q_INVOKABLE short PROP_Set_TAB_OLD(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_TAB_OLD(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_FIXED_COLS();
    Q_INVOKABLE short PROP_Set_FIXED_COLS(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_FIXED_COLS(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_FIXED_LINES();
    Q_INVOKABLE short PROP_Set_FIXED_LINES(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_FIXED_LINES(const planview::ObjectRef& table);
    Q_INVOKABLE short PROP_Set_FIXED_TAB(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_FIXED_TAB(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_CELL_ATTR();
    Q_INVOKABLE short PROP_Set_CELL_ATTR(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_CELL_ATTR(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_GRID_TREE();
    Q_INVOKABLE short PROP_Set_GRID_TREE(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_GRID_TREE(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_MACRO_TREE();
    Q_INVOKABLE short PROP_Set_MACRO_TREE(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_MACRO_TREE(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_TEXTS();
    Q_INVOKABLE short PROP_Set_TEXTS(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_TEXTS(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_COLMENU();
    Q_INVOKABLE short PROP_Set_COLMENU(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_COLMENU(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_ROWMENU();
    Q_INVOKABLE short PROP_Set_ROWMENU(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_ROWMENU(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_GRIDMENU();
    Q_INVOKABLE short PROP_Set_GRIDMENU(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_GRIDMENU(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_CELLMENU();
    Q_INVOKABLE short PROP_Set_CELLMENU(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_CELLMENU(const planview::ObjectRef& table);
    Q_INVOKABLE planview::ObjectRef PROP_Get_MACROREC();
    Q_INVOKABLE short PROP_Set_MACROREC(const planview::ObjectRef& table);
    Q_INVOKABLE short plvSet_MACROREC(const planview::ObjectRef& table);
    /// @}

    /// @{
    /// The same for a table by its name, one of planview::TableNames(). Null and false for another name.
    [[nodiscard]] Q_INVOKABLE planview::ObjectRef table(const QString& name);
    Q_INVOKABLE bool setTable(const QString& name, const planview::ObjectRef& table);
    /// @}

    // --- Commands for the host's own menus. While a cell is being edited, Undo, Redo, Cut, Copy and Paste act on the
    //     editor's text.

    /// The command as an action for menus and tool bars, the same one at each call; null for a number that is none. Its
    /// text, icon, enabled and checked state follow by themselves; while it is disabled its tool tip and status tip say
    /// why. It shows the command's key and does not listen to it: the view does that, and only while it has the
    /// keyboard. The widget owns it. Triggering it runs the command; one that takes an argument (Raise) runs nothing,
    /// so that the host can ask for the argument and call the method. To forbid a command beside this, a host puts the
    /// action into a QActionGroup and disables that.
    [[nodiscard]] QAction* action(planview::Command command);
    /// Runs a command that takes no argument; an entry that is open is ended first, and where it is refused nothing
    /// runs. Undoing and redoing bring the current cell into sight.
    Q_INVOKABLE void run(planview::Command command);
    /// @{
    /// Whether undo() or redo() would do something, in the open entry or in the tables.
    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    /// @}
    /// @{
    /// The command of PlanView with this name; the current cell is brought into sight where it changes a value.
    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();
    Q_INVOKABLE void copy();
    Q_INVOKABLE void cut();
    Q_INVOKABLE void paste();
    /// @}
    /// Gives every selected cell the value of the first one.
    Q_INVOKABLE void fill();
    /// Empties the selected planning cells.
    Q_INVOKABLE void deleteContents();
    /// Multiplies the numbers of the selected planning cells by 1 + percent / 100.
    Q_INVOKABLE void raiseSelected(double percent);
    /// @{
    /// The columns or rows whose headings are selected; hidden ones can be selected along with those around them.
    Q_INVOKABLE void hideColumns();
    Q_INVOKABLE void showColumns();
    Q_INVOKABLE void hideRows();
    Q_INVOKABLE void showRows();
    /// @}
    /// Shows or hides the chart pane.
    Q_INVOKABLE void switchChart();
    /// Whether the chart belongs to the view; a zoomed grid hides it all the same.
    [[nodiscard]] Q_INVOKABLE bool chartShown() const;
    /// Shows or hides the macro tree pane; needs layout mode.
    Q_INVOKABLE void switchMacroTree();
    /// Whether the macro tree pane belongs to the view.
    [[nodiscard]] Q_INVOKABLE bool macroTreeShown() const;
    /// @{
    /// Puts exactly the columns (rows) whose headings are selected into the chart.
    Q_INVOKABLE void showSelectedColumnsInChart();
    Q_INVOKABLE void showSelectedRowsInChart();
    /// @}
    /// Ends the chart's forecast view; nothing in another view.
    Q_INVOKABLE void leaveForecastView();
    /// @{
    /// The grid into a new workbook, and changed values from one: asks for the file, works and tells what went wrong.
    /// The spreadsheet application is the one that the host has registered with objects().
    Q_INVOKABLE void download();
    Q_INVOKABLE void upload();
    /// @}
    /// @{
    /// The same without dialogs; see PlanView. An entry that is open is ended first.
    [[nodiscard]] Q_INVOKABLE QString downloadTo(const QString& path);
    [[nodiscard]] Q_INVOKABLE planview::UploadPreview previewUpload(const QString& path);
    Q_INVOKABLE planview::UploadResult applyUpload(const planview::UploadPreview& preview);
    /// @}
    /// @{
    /// How workbooks are written and where their dialogs open.
    [[nodiscard]] const SpreadsheetOptions& spreadsheetOptions() const;
    void setSpreadsheetOptions(const SpreadsheetOptions& options);
    [[nodiscard]] bool spreadsheetPrintSetup() const;
    Q_INVOKABLE void setSpreadsheetPrintSetup(bool on);
    /// @}
    /// Writes the chart as a PNG, PDF or SVG file, as the suffix of the path says, in the given size in logical pixels
    /// or a usual one. Answers a sentence for the user about what went wrong, empty when the file is written.
    Q_INVOKABLE QString saveChart(const QString& path, QSize size = {}) const;
    /// @{
    /// Whether the user may edit nothing; each try is answered beside its cell. For a host that can keep no change.
    [[nodiscard]] bool isReadOnly() const;
    Q_INVOKABLE void setReadOnly(bool readOnly);
    /// @}
    /// Ends an entry that is open. False when its text is refused; it then stays open. Ask before closing or saving.
    Q_INVOKABLE bool finishEditing();
    /// Ends an entry that is open, then makes the cell with these keys the current one, selects it alone and scrolls it
    /// into sight. False when the entry is refused, or when there is no such cell or it is hidden.
    Q_INVOKABLE bool selectCell(const QString& column, const QString& row);
    /// @{
    /// The keys of the current cell, as selectCell() takes them; empty without one.
    [[nodiscard]] QString currentColumn() const;
    [[nodiscard]] QString currentRow() const;
    /// @}

    /// @{
    /// The text of a cell as it is shown, and what it holds: a number, a text, or nothing; see View. Invalid and empty
    /// for keys that the grid does not have.
    [[nodiscard]] Q_INVOKABLE QString cellText(const QString& column, const QString& row) const;
    [[nodiscard]] Q_INVOKABLE QVariant cellValue(const QString& column, const QString& row) const;
    /// @}
    /// The formula that computes the cell, by the captions of now; empty where none does. See Calculation.
    [[nodiscard]] Q_INVOKABLE QString cellFormula(const QString& column, const QString& row) const;
    /// @{
    /// Reads exactly these again from the tables and shows them as one change; selection, scroll position, an open
    /// entry and the undo history stay. Keys as the events name them; see View.
    Q_INVOKABLE void updateCells(const QList<planview::CellKey>& cells);
    Q_INVOKABLE void updateColumns(const QStringList& keys);
    Q_INVOKABLE void updateRows(const QStringList& keys);
    /// @}
    /// The view as the user has arranged it, to be put away: scroll position, order and sizes of columns and rows,
    /// splitters, textScale(), and which nodes of the macro tree are open. No values, and nothing that the tables say.
    [[nodiscard]] QByteArray saveState() const;
    /// Brings back what saveState() has put away, as far as its columns, rows and nodes are there (by key); goes after
    /// DP_Import_Create(). The tables are not changed, so that a further build takes sizes and order from them again.
    /// False, and nothing is changed, for bytes that are no such state, and while an entry is open that is refused.
    bool restoreState(const QByteArray& state);
    /// Gives the keyboard to the first or to the last pane that is shown: for a host whose own bars F6 reaches, too.
    /// See panesLeft().
    Q_INVOKABLE void enterPanes(bool first);
    /// Has a screen reader speak a sentence, where one runs; nothing is seen of it. The view itself tells why a value
    /// is refused, what undo, redo and the clipboard have changed, and what is selected.
    Q_INVOKABLE void announce(const QString& sentence);

    // --- Macros; what each does stands at the control's method of the same name

    /// @{
    /// The command or state of PlanView with this name.
    Q_INVOKABLE void startRecording();
    Q_INVOKABLE void pauseRecording();
    Q_INVOKABLE void stopRecording();
    Q_INVOKABLE void undoRecordedStep();
    [[nodiscard]] Q_INVOKABLE bool isRecording() const;
    [[nodiscard]] Q_INVOKABLE bool isRecordingPaused() const;
    [[nodiscard]] Q_INVOKABLE int recordedSteps() const;
    Q_INVOKABLE QString keepRecording(const QString& name, const QString& parentNode = {});
    /// @}
    /// With an entry open that is refused: not done, and without a message, for the entry says it itself.
    Q_INVOKABLE planview::MacroResult replayMacro(const QString& nodeKey, bool onSelectedLine = false);
    /// Runs a macro, or replays a recording.
    Q_INVOKABLE planview::MacroResult runMacro(const QString& nodeKey, bool onSelectedLine = false);
    /// Runs a macro after the user has seen what it changes and has left out what he does not want.
    Q_INVOKABLE planview::MacroResult runMacroPreviewed(const QString& nodeKey, bool onSelectedLine = false);
    /// Opens the macro tree pane and goes to the element with this key, or to its macro, in the macro editor.
    Q_INVOKABLE void editMacro(const QString& nodeKey);
    /// Looks whether it could be run or replayed now.
    Q_INVOKABLE planview::MacroResult checkMacro(const QString& nodeKey);
    /// Carries out what MacroTreeNodeDropped has reported of a node that was dragged.
    Q_INVOKABLE void moveMacroNode(const QString& nodeKey, const QString& target, planview::DropAction action);

    // --- For a host that keeps the changes

    /// True while the user's action announces several values by GridValueChanged, one after the other, so that a host
    /// can gather them; severalValuesAnnounced() follows before the user can do anything else.
    [[nodiscard]] bool isAnnouncingSeveral() const;

    // --- For the host's status bar

    /// "Construction · May 08"; empty without a current cell.
    [[nodiscard]] QString currentCellName() const;
    /// The number of selected cells that are visible, 1 when only the current cell is.
    [[nodiscard]] int selectedCells() const;
    /// @{
    /// Of the selected cells that hold numbers, as the grid writes numbers; empty when none does.
    [[nodiscard]] QString selectionSum() const;
    [[nodiscard]] QString selectionMean() const;
    /// @}
    /// The number of planning cells that show another value than TAB_OLD keeps for them.
    [[nodiscard]] int pendingChanges() const;
    /// Looks at TAB_OLD again. Needed only when the host has changed it without building the grid anew.
    Q_INVOKABLE void refreshPendingChanges();

Q_SIGNALS:
    /// @name The events, in their order
    /// @{

    /// The event with this name; PlanViewEvents says when it is raised.
    void GridValueChanged(short Column, const QString& ColPos, short Row, const QString& RowPos,
                          const QVariant& strValue);
    void GridCellDblClick(short Column, const QString& ColPos, short Row, const QString& RowPos, const QString& Switch);
    void GridCellMouseDown(short MouseButton, short Column, const QString& ColPos, short Row, const QString& RowPos,
                           const QString& Switch);
    void ColumnResized(short Column, const QString& ColPos, int vValue, const QString& Switch);
    void RowResized(short Row, const QString& RowPos, int vValue, const QString& Switch);
    void ChartMouseDown(short MouseButton);
    void GridStartUpdate();
    void GridTreeNodeClick(const QString& NodeKey, const QString& Switch);
    void GridTreeNodeExpand(const QString& NodeKey, const QString& Switch);
    void GridTreeMacroClick(const QString& NodeKey, const QString& Switch);
    void GridTreeMacroExpand(const QString& NodeKey, const QString& Switch);
    void MacroTreeMouseDown(const QString& NodeKey, const QString& Switch);
    void GridTreeMacroCollapse(const QString& NodeKey, const QString& Switch);
    void GridPopupMenuPressed(short Popup, const QString& UComm, short Column, const QString& ColPos, short Row,
                              const QString& RowPos);
    void GridReturnKeyPressed();
    void MacroTreeNodeDropped(const QString& NodeRefKey, const QString& NodeType, short Action);
    void MacroTreeExpand();
    void MacroTreeCollapse();
    void MacroDragSelection(const QString& Selection);
    void MacroRecordSave();
    /// @}

    /// @name The widget's own
    /// @{

    /// The property has this value now.
    void colorSchemeChanged(planview::PlanViewWidget::ColorScheme scheme);
    void textScaleChanged(double scale);
    void undoAvailable(bool available);
    void redoAvailable(bool available);
    void pendingChangesChanged(int count);
    /// @}
    /// Current cell, selection or a selected value is another one.
    void selectionSummaryChanged();
    /// F6 went on behind the last pane (true), or Shift+F6 back before the first. A host that connects this gives the
    /// keyboard to a bar of its own, and back by enterPanes(); without one F6 goes round within the view.
    void panesLeft(bool forward);
    /// Recording has begun, is paused or has ended, or has another number of steps.
    void recordingChanged();
    /// The control could not do something; see Diagnostics::AddFailureListener(). `row` counts from 1, 0 for none;
    /// `table` and `field` are empty where it is about none.
    void failed(const QString& table, const QString& field, int row, const QString& reason);
    /// What isAnnouncingSeveral() announced has come to its end.
    void severalValuesAnnounced();

protected:
    /// @{
    /// Follow the desktop's colours and the widget's size.
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// @}
    /// Undo and redo, from every pane that has no use for these keys itself.
    void keyPressEvent(QKeyEvent* event) override;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace planview
