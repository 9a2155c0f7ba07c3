// SPDX-License-Identifier: MIT
#include "qt/SignalSink.h"

#include <type_traits>
#include <utility>

#include "qt/VariantConversion.h"

namespace planview {

namespace {

/// An argument as the signal takes it.
template <class Type>
Type as(const Variant& value) {
    if constexpr (std::is_same_v<Type, short>) {
        return value.AsInt16();
    } else if constexpr (std::is_same_v<Type, int>) {
        return value.AsInt32();
    } else if constexpr (std::is_same_v<Type, QString>) {
        return QString::fromStdString(value.AsText());
    } else {
        return toQVariant(value);
    }
}

template <class... Types, std::size_t... Index>
void emitSignal(PlanViewWidget& widget, void (PlanViewWidget::*signal)(Types...),
                [[maybe_unused]] std::span<const Variant> arguments, std::index_sequence<Index...>) {
    Q_EMIT(widget.*signal)(as<std::remove_cvref_t<Types>>(arguments[Index])...);
}

template <class... Types>
void emitSignal(PlanViewWidget& widget, void (PlanViewWidget::*signal)(Types...), std::span<const Variant> arguments) {
    emitSignal(widget, signal, arguments, std::index_sequence_for<Types...>());
}

}  // namespace

void SignalSink::OnEvent(EventId event, std::span<const Variant> arguments) {
    switch (event) {
#define PLANVIEW_EVENT(NAME, ...) \
    case EventId::NAME:           \
        return emitSignal(widget_, &PlanViewWidget::NAME, arguments);
#include "automation/Events.def"
    }
}

}  // namespace planview
