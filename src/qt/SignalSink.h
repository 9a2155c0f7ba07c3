// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Events.h>
#include <planview/qt/PlanViewWidget.h>

namespace planview {

/// Turns the control's events into the widget's signals. A slot may delete the widget and this sink with it.
class SignalSink final : public EventSink {
public:
    explicit SignalSink(PlanViewWidget& widget) : widget_(widget) {}

    void OnEvent(EventId event, std::span<const Variant> arguments) override;

private:
    PlanViewWidget& widget_;
};

}  // namespace planview
