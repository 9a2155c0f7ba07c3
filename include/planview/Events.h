// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include <planview/Export.h>
#include <planview/Variant.h>

namespace planview {

/// The numbers of the control's events.
///
/// In every event `Column` and `Row` are positions (the number in the key; 0 for a fixed column or row), `ColPos` and
/// `RowPos` the keys that the control writes into `GRID_ID`, and `Switch` is "X" while the grid is switched, else "".
enum class EventId : std::int32_t {
    GridValueChanged = 1,
    GridCellDblClick = 2,
    GridCellMouseDown = 3,  ///< declared, never raised
    ColumnResized = 4,      ///< declared, never raised
    RowResized = 5,         ///< declared, never raised
    ChartMouseDown = 6,     ///< declared, never raised
    GridStartUpdate = 7,
    GridTreeNodeClick = 8,   ///< declared, never raised
    GridTreeNodeExpand = 9,  ///< declared, never raised
    GridTreeMacroClick = 10,
    GridTreeMacroExpand = 11,
    MacroTreeMouseDown = 12,
    GridTreeMacroCollapse = 13,
    GridPopupMenuPressed = 14,
    GridReturnKeyPressed = 15,
    MacroTreeNodeDropped = 16,
    MacroTreeExpand = 17,
    MacroTreeCollapse = 18,
    MacroDragSelection = 19,
    MacroRecordSave = 20
};

/// The `Popup` of `GridPopupMenuPressed`: whose popup it was.
enum class PopupOwner : std::int16_t { Grid = 10, Column = 20, Row = 30, Cell = 40 };

/// The `Action` of `MacroTreeNodeDropped`: what the host is to do, and where beside or below the node `NodeRefKey`.
enum class DropAction : std::int16_t {
    NewBefore = 1,    ///< a new node before it
    NewAfter = 2,     ///< a new node behind it
    NewBelow = 3,     ///< a new node, the last one below it
    MovedBefore = 4,  ///< the node `NodeType` goes before it
    MovedAfter = 5,   ///< the node `NodeType` goes behind it
    MovedBelow = 6    ///< the node `NodeType` becomes the last one below it
};

/// One argument of an event.
struct EventArgument {
    std::string_view name;  ///< as the event's own signature has it ("ColPos")
    /// Int16, Int32 or Text; Empty where any kind may come (a variant).
    Variant::Kind kind;
};

/// One event.
struct EventDescription {
    EventId id;                                ///< its number
    std::string_view name;                     ///< "GridValueChanged"
    std::span<const EventArgument> arguments;  ///< in their order
};

/// The twenty events in the order of their numbers.
[[nodiscard]] PLANVIEW_EXPORT std::span<const EventDescription> DescribeEvents() noexcept;

/// Hears every event of a control by number. Called on the control's thread; the control goes on when it returns.
class PLANVIEW_EXPORT EventSink {
public:
    virtual ~EventSink() = default;
    /// `arguments` are in the order and of the kinds that DescribeEvents() gives. An exception thrown here ends this
    /// sink's turn only: neither the control nor another sink is harmed.
    virtual void OnEvent(EventId event, std::span<const Variant> arguments) = 0;
};

/// An EventSink with one method per event. Override those of interest.
class PLANVIEW_EXPORT PlanViewEvents : public EventSink {
public:
    /// Hands the event to its method.
    void OnEvent(EventId event, std::span<const Variant> arguments) final;

    /// A value was changed: typed, pasted, filled, deleted, undone, dragged in the chart, set by a macro or an upload.
    /// `strValue` is what was entered. Raised before TAB and TAB_OLD are written. With `SINGLEVALUE` off, an action on
    /// several planning cells raises one GridStartUpdate() instead.
    virtual void GridValueChanged(std::int16_t Column, const std::string& ColPos, std::int16_t Row,
                                  const std::string& RowPos, const Variant& strValue);
    /// A double click on a cell, before its editor opens.
    virtual void GridCellDblClick(std::int16_t Column, const std::string& ColPos, std::int16_t Row,
                                  const std::string& RowPos, const std::string& Switch);
    /// @{
    /// Never raised; declared for hosts that sink them.
    virtual void GridCellMouseDown(std::int16_t MouseButton, std::int16_t Column, const std::string& ColPos,
                                   std::int16_t Row, const std::string& RowPos, const std::string& Switch);
    virtual void ColumnResized(std::int16_t Column, const std::string& ColPos, std::int32_t vValue,
                               const std::string& Switch);
    virtual void RowResized(std::int16_t Row, const std::string& RowPos, std::int32_t vValue,
                            const std::string& Switch);
    virtual void ChartMouseDown(std::int16_t MouseButton);
    /// @}
    /// The control has written to the tables and is done: time to read them back and to save. `FIRST_COL` and
    /// `FIRST_ROW` of GRID_ATTR hold what the grid shows first.
    virtual void GridStartUpdate();
    /// @{
    /// Never raised.
    virtual void GridTreeNodeClick(const std::string& NodeKey, const std::string& Switch);
    virtual void GridTreeNodeExpand(const std::string& NodeKey, const std::string& Switch);
    /// @}
    /// A node of the macro tree was double clicked.
    virtual void GridTreeMacroClick(const std::string& NodeKey, const std::string& Switch);
    /// A node of the macro tree was opened.
    virtual void GridTreeMacroExpand(const std::string& NodeKey, const std::string& Switch);
    /// A mouse button was pressed on the macro tree and what its popup offered is done.
    virtual void MacroTreeMouseDown(const std::string& NodeKey, const std::string& Switch);
    /// A node of the macro tree was closed.
    virtual void GridTreeMacroCollapse(const std::string& NodeKey, const std::string& Switch);
    /// An entry from one of the host's menu tables was chosen. `Popup` is a PopupOwner, `UComm` the entry's `PFID` as
    /// text; the rest is the place that was clicked.
    virtual void GridPopupMenuPressed(std::int16_t Popup, const std::string& UComm, std::int16_t Column,
                                      const std::string& ColPos, std::int16_t Row, const std::string& RowPos);
    /// Return was pressed in the grid. Prepared as GridStartUpdate().
    virtual void GridReturnKeyPressed();
    /// The host is to change MACRO_TREE and to build the tree again. `Action` is a DropAction. `NodeType` is "INSERT"
    /// or, for a node one level below, "CREATE"; of a node that was dragged, its key.
    virtual void MacroTreeNodeDropped(const std::string& NodeRefKey, const std::string& NodeType, std::int16_t Action);
    /// The whole macro tree was opened, a node renamed, or a macro edited: MACRO_TREE has changed.
    virtual void MacroTreeExpand();
    /// The whole macro tree was closed.
    virtual void MacroTreeCollapse();
    /// What is selected in the grid is dragged from the macro toolbar: "ROW3/COL4:COL9", or "ROW3:ROW5" for whole
    /// lines.
    virtual void MacroDragSelection(const std::string& Selection);
    /// A recording has ended; its steps are in MACROREC.
    virtual void MacroRecordSave();
};

}  // namespace planview
