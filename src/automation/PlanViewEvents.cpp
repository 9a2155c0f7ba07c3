// SPDX-License-Identifier: MIT
#include <planview/Events.h>

namespace planview {

void PlanViewEvents::OnEvent(EventId event, std::span<const Variant> a) {
    switch (event) {
        case EventId::GridValueChanged:
            return GridValueChanged(a[0].AsInt16(), a[1].AsText(), a[2].AsInt16(), a[3].AsText(), a[4]);
        case EventId::GridCellDblClick:
            return GridCellDblClick(a[0].AsInt16(), a[1].AsText(), a[2].AsInt16(), a[3].AsText(), a[4].AsText());
        case EventId::GridCellMouseDown:
            return GridCellMouseDown(a[0].AsInt16(), a[1].AsInt16(), a[2].AsText(), a[3].AsInt16(), a[4].AsText(),
                                     a[5].AsText());
        case EventId::ColumnResized:
            return ColumnResized(a[0].AsInt16(), a[1].AsText(), a[2].AsInt32(), a[3].AsText());
        case EventId::RowResized:
            return RowResized(a[0].AsInt16(), a[1].AsText(), a[2].AsInt32(), a[3].AsText());
        case EventId::ChartMouseDown:
            return ChartMouseDown(a[0].AsInt16());
        case EventId::GridStartUpdate:
            return GridStartUpdate();
        case EventId::GridTreeNodeClick:
            return GridTreeNodeClick(a[0].AsText(), a[1].AsText());
        case EventId::GridTreeNodeExpand:
            return GridTreeNodeExpand(a[0].AsText(), a[1].AsText());
        case EventId::GridTreeMacroClick:
            return GridTreeMacroClick(a[0].AsText(), a[1].AsText());
        case EventId::GridTreeMacroExpand:
            return GridTreeMacroExpand(a[0].AsText(), a[1].AsText());
        case EventId::MacroTreeMouseDown:
            return MacroTreeMouseDown(a[0].AsText(), a[1].AsText());
        case EventId::GridTreeMacroCollapse:
            return GridTreeMacroCollapse(a[0].AsText(), a[1].AsText());
        case EventId::GridPopupMenuPressed:
            return GridPopupMenuPressed(a[0].AsInt16(), a[1].AsText(), a[2].AsInt16(), a[3].AsText(), a[4].AsInt16(),
                                        a[5].AsText());
        case EventId::GridReturnKeyPressed:
            return GridReturnKeyPressed();
        case EventId::MacroTreeNodeDropped:
            return MacroTreeNodeDropped(a[0].AsText(), a[1].AsText(), a[2].AsInt16());
        case EventId::MacroTreeExpand:
            return MacroTreeExpand();
        case EventId::MacroTreeCollapse:
            return MacroTreeCollapse();
        case EventId::MacroDragSelection:
            return MacroDragSelection(a[0].AsText());
        case EventId::MacroRecordSave:
            return MacroRecordSave();
    }
}

// Nothing happens on an event that the host does not override.
void PlanViewEvents::GridValueChanged(std::int16_t, const std::string&, std::int16_t, const std::string&,
                                      const Variant&) {}
void PlanViewEvents::GridCellDblClick(std::int16_t, const std::string&, std::int16_t, const std::string&,
                                      const std::string&) {}
void PlanViewEvents::GridCellMouseDown(std::int16_t, std::int16_t, const std::string&, std::int16_t, const std::string&,
                                       const std::string&) {}
void PlanViewEvents::ColumnResized(std::int16_t, const std::string&, std::int32_t, const std::string&) {}
void PlanViewEvents::RowResized(std::int16_t, const std::string&, std::int32_t, const std::string&) {}
void PlanViewEvents::ChartMouseDown(std::int16_t) {}
void PlanViewEvents::GridStartUpdate() {}
void PlanViewEvents::GridTreeNodeClick(const std::string&, const std::string&) {}
void PlanViewEvents::GridTreeNodeExpand(const std::string&, const std::string&) {}
void PlanViewEvents::GridTreeMacroClick(const std::string&, const std::string&) {}
void PlanViewEvents::GridTreeMacroExpand(const std::string&, const std::string&) {}
void PlanViewEvents::MacroTreeMouseDown(const std::string&, const std::string&) {}
void PlanViewEvents::GridTreeMacroCollapse(const std::string&, const std::string&) {}
void PlanViewEvents::GridPopupMenuPressed(std::int16_t, const std::string&, std::int16_t, const std::string&,
                                          std::int16_t, const std::string&) {}
void PlanViewEvents::GridReturnKeyPressed() {}
void PlanViewEvents::MacroTreeNodeDropped(const std::string&, const std::string&, std::int16_t) {}
void PlanViewEvents::MacroTreeExpand() {}
void PlanViewEvents::MacroTreeCollapse() {}
void PlanViewEvents::MacroDragSelection(const std::string&) {}
void PlanViewEvents::MacroRecordSave() {}

}  // namespace planview
