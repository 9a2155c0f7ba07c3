// SPDX-License-Identifier: MIT
#include <array>

#include <planview/Events.h>

namespace planview {

namespace {

using Kind = Variant::Kind;

constexpr EventArgument Column{"Column", Kind::Int16};
constexpr EventArgument ColPos{"ColPos", Kind::Text};
constexpr EventArgument Row{"Row", Kind::Int16};
constexpr EventArgument RowPos{"RowPos", Kind::Text};
constexpr EventArgument Switch{"Switch", Kind::Text};
constexpr EventArgument MouseButton{"MouseButton", Kind::Int16};
constexpr EventArgument NodeKey{"NodeKey", Kind::Text};
constexpr EventArgument Value32{"vValue", Kind::Int32};

constexpr std::array ValueChangedArguments{Column, ColPos, Row, RowPos, EventArgument{"strValue", Kind::Empty}};
constexpr std::array CellArguments{Column, ColPos, Row, RowPos, Switch};
constexpr std::array MouseCellArguments{MouseButton, Column, ColPos, Row, RowPos, Switch};
constexpr std::array ColumnResizedArguments{Column, ColPos, Value32, Switch};
constexpr std::array RowResizedArguments{Row, RowPos, Value32, Switch};
constexpr std::array MouseArguments{MouseButton};
constexpr std::array NodeArguments{NodeKey, Switch};
constexpr std::array PopupArguments{
    EventArgument{"Popup", Kind::Int16}, EventArgument{"UComm", Kind::Text}, Column, ColPos, Row, RowPos};
constexpr std::array DroppedArguments{EventArgument{"NodeRefKey", Kind::Text}, EventArgument{"NodeType", Kind::Text},
                                      EventArgument{"Action", Kind::Int16}};
constexpr std::array SelectionArguments{EventArgument{"Selection", Kind::Text}};

constexpr std::array<EventDescription, 20> Descriptions{{
    {EventId::GridValueChanged, "GridValueChanged", ValueChangedArguments},
    {EventId::GridCellDblClick, "GridCellDblClick", CellArguments},
    {EventId::GridCellMouseDown, "GridCellMouseDown", MouseCellArguments},
    {EventId::ColumnResized, "ColumnResized", ColumnResizedArguments},
    {EventId::RowResized, "RowResized", RowResizedArguments},
    {EventId::ChartMouseDown, "ChartMouseDown", MouseArguments},
    {EventId::GridStartUpdate, "GridStartUpdate", {}},
    {EventId::GridTreeNodeClick, "GridTreeNodeClick", NodeArguments},
    {EventId::GridTreeNodeExpand, "GridTreeNodeExpand", NodeArguments},
    {EventId::GridTreeMacroClick, "GridTreeMacroClick", NodeArguments},
    {EventId::GridTreeMacroExpand, "GridTreeMacroExpand", NodeArguments},
    {EventId::MacroTreeMouseDown, "MacroTreeMouseDown", NodeArguments},
    {EventId::GridTreeMacroCollapse, "GridTreeMacroCollapse", NodeArguments},
    {EventId::GridPopupMenuPressed, "GridPopupMenuPressed", PopupArguments},
    {EventId::GridReturnKeyPressed, "GridReturnKeyPressed", {}},
    {EventId::MacroTreeNodeDropped, "MacroTreeNodeDropped", DroppedArguments},
    {EventId::MacroTreeExpand, "MacroTreeExpand", {}},
    {EventId::MacroTreeCollapse, "MacroTreeCollapse", {}},
    {EventId::MacroDragSelection, "MacroDragSelection", SelectionArguments},
    {EventId::MacroRecordSave, "MacroRecordSave", {}},
}};

}  // namespace

std::span<const EventDescription> DescribeEvents() noexcept {
    return Descriptions;
}

}  // namespace planview
