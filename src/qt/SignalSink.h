// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Events.h>
#include <planview/qt/PlanViewWidget.h>

namespace planview {

/// Turns the control's events into the widget's signals. A slot may delete the widget and this sink with it.
class SignalSink final : public PlanViewEvents {
public:
    explicit SignalSink(PlanViewWidget& widget) : widget_(widget) {}

    void GridValueChanged(std::int16_t Column, const std::string& ColPos, std::int16_t Row, const std::string& RowPos,
                          const Variant& strValue) override;
    void GridCellDblClick(std::int16_t Column, const std::string& ColPos, std::int16_t Row, const std::string& RowPos,
                          const std::string& Switch) override;
    void GridCellMouseDown(std::int16_t MouseButton, std::int16_t Column, const std::string& ColPos, std::int16_t Row,
                           const std::string& RowPos, const std::string& Switch) override;
    void ColumnResized(std::int16_t Column, const std::string& ColPos, std::int32_t vValue,
                       const std::string& Switch) override;
    void RowResized(std::int16_t Row, const std::string& RowPos, std::int32_t vValue,
                    const std::string& Switch) override;
    void ChartMouseDown(std::int16_t MouseButton) override;
    void GridStartUpdate() override;
    void GridTreeNodeClick(const std::string& NodeKey, const std::string& Switch) override;
    void GridTreeNodeExpand(const std::string& NodeKey, const std::string& Switch) override;
    void GridTreeMacroClick(const std::string& NodeKey, const std::string& Switch) override;
    void GridTreeMacroExpand(const std::string& NodeKey, const std::string& Switch) override;
    void MacroTreeMouseDown(const std::string& NodeKey, const std::string& Switch) override;
    void GridTreeMacroCollapse(const std::string& NodeKey, const std::string& Switch) override;
    void GridPopupMenuPressed(std::int16_t Popup, const std::string& UComm, std::int16_t Column,
                              const std::string& ColPos, std::int16_t Row, const std::string& RowPos) override;
    void GridReturnKeyPressed() override;
    void MacroTreeNodeDropped(const std::string& NodeRefKey, const std::string& NodeType, std::int16_t Action) override;
    void MacroTreeExpand() override;
    void MacroTreeCollapse() override;
    void MacroDragSelection(const std::string& Selection) override;
    void MacroRecordSave() override;

private:
    PlanViewWidget& widget_;
};

}  // namespace planview
