// SPDX-License-Identifier: MIT
#include <type_traits>
#include <utility>

#include <planview/Events.h>

namespace planview {

namespace {

template <class Type>
Type As(const Variant& value) {
    if constexpr (std::is_same_v<Type, std::int16_t>) {
        return value.AsInt16();
    } else if constexpr (std::is_same_v<Type, std::int32_t>) {
        return value.AsInt32();
    } else if constexpr (std::is_same_v<Type, std::string>) {
        return value.AsText();
    } else {
        return value;
    }
}

template <class... Types, std::size_t... Index>
void Tell(PlanViewEvents& sink, void (PlanViewEvents::*method)(Types...),
          [[maybe_unused]] std::span<const Variant> arguments, std::index_sequence<Index...>) {
    (sink.*method)(As<std::remove_cvref_t<Types>>(arguments[Index])...);
}

template <class... Types>
void Tell(PlanViewEvents& sink, void (PlanViewEvents::*method)(Types...), std::span<const Variant> arguments) {
    Tell(sink, method, arguments, std::index_sequence_for<Types...>());
}

}  // namespace

void PlanViewEvents::OnEvent(EventId event, std::span<const Variant> arguments) {
    switch (event) {
#define PLANVIEW_EVENT(NAME, ...) \
    case EventId::NAME:           \
        return Tell(*this, &PlanViewEvents::NAME, arguments);
#include "automation/Events.def"
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
