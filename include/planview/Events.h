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

struct EventArgument {
    std::string_view name;
    /// Int16, Int32 or Text; Empty where any kind may come (a variant).
    Variant::Kind kind;
};

struct EventDescription {
    EventId id;
    std::string_view name;
    std::span<const EventArgument> arguments;
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
    void OnEvent(EventId event, std::span<const Variant> arguments) final;

    virtual void GridValueChanged(std::int16_t Column, const std::string& ColPos, std::int16_t Row,
                                  const std::string& RowPos, const Variant& strValue);
    virtual void GridCellDblClick(std::int16_t Column, const std::string& ColPos, std::int16_t Row,
                                  const std::string& RowPos, const std::string& Switch);
    virtual void GridCellMouseDown(std::int16_t MouseButton, std::int16_t Column, const std::string& ColPos,
                                   std::int16_t Row, const std::string& RowPos, const std::string& Switch);
    virtual void ColumnResized(std::int16_t Column, const std::string& ColPos, std::int32_t vValue,
                               const std::string& Switch);
    virtual void RowResized(std::int16_t Row, const std::string& RowPos, std::int32_t vValue,
                            const std::string& Switch);
    virtual void ChartMouseDown(std::int16_t MouseButton);
    virtual void GridStartUpdate();
    virtual void GridTreeNodeClick(const std::string& NodeKey, const std::string& Switch);
    virtual void GridTreeNodeExpand(const std::string& NodeKey, const std::string& Switch);
    virtual void GridTreeMacroClick(const std::string& NodeKey, const std::string& Switch);
    virtual void GridTreeMacroExpand(const std::string& NodeKey, const std::string& Switch);
    virtual void MacroTreeMouseDown(const std::string& NodeKey, const std::string& Switch);
    virtual void GridTreeMacroCollapse(const std::string& NodeKey, const std::string& Switch);
    virtual void GridPopupMenuPressed(std::int16_t Popup, const std::string& UComm, std::int16_t Column,
                                      const std::string& ColPos, std::int16_t Row, const std::string& RowPos);
    virtual void GridReturnKeyPressed();
    virtual void MacroTreeNodeDropped(const std::string& NodeRefKey, const std::string& NodeType, std::int16_t Action);
    virtual void MacroTreeExpand();
    virtual void MacroTreeCollapse();
    virtual void MacroDragSelection(const std::string& Selection);
    virtual void MacroRecordSave();
};

}  // namespace planview
