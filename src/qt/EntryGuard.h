// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QMetaObject>
#include <QObject>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "trace/ErrorTrap.h"

namespace planview {

/// The name of an event's type ("MouseButtonPress"), for the trace.
[[nodiscard]] std::string_view eventName(QEvent::Type type) noexcept;

/// Stands wherever Qt calls our code: event handlers, slots, timers, accessible interfaces.
///
/// Qt cannot carry exceptions through its event loop: a failure ends the call quietly and leaves an "ERROR" entry with
/// the name of the handler in the trace. And the host may delete the widget, the control behind it and this guard from
/// inside an event that the call raises: the owner lives until the call has returned.
class EntryGuard {
public:
    /// `control` is the label in the trace, a literal. `owner` keeps alive what the widget shows; null if that outlives
    /// the widget.
    explicit EntryGuard(std::string_view control, std::shared_ptr<void> owner = nullptr)
        : control_(control), owner_(std::move(owner)) {}

    /// Runs the body. Answers what it answers, or a default value when it fails.
    template <class Body>
    auto run(std::string_view method, Body&& body) const noexcept {
        using Answer = std::invoke_result_t<Body&>;
        if constexpr (std::is_void_v<Answer>) {
            trap([method] { return method; }, body);
        } else {
            Answer answer{};
            trap([method] { return method; }, [&] { answer = body(); });
            return answer;
        }
    }
    /// The same for the handler of an event, which gives the trace entry its name. An event whose handler fails counts
    /// as handled: no other widget must try it.
    template <class Body>
    bool run(const QEvent& event, Body&& body) const noexcept {
        bool handled = true;
        trap([type = event.type()] { return eventName(type); }, [&] { handled = body(); });
        return handled;
    }

    /// As QObject::connect(), with a slot that is run guarded. The guard must outlive the context.
    template <class Sender, class Signal, class Slot>
    void connect(Sender* sender, Signal signal, QObject* context, std::string_view method, Slot slot) const {
        if constexpr (std::is_invocable_v<Slot&>) {
            QObject::connect(sender, signal, context, [this, method, slot]() mutable { this->run(method, slot); });
        } else {
            QObject::connect(sender, signal, context, [this, method, slot](const auto&... arguments) mutable {
                this->run(method, [&] { slot(arguments...); });
            });
        }
    }

    /// Runs the body in a later turn of the event loop, unless the context is gone by then. The guard must outlive it.
    template <class Body>
    void later(QObject* context, std::string_view method, Body body) const {
        QMetaObject::invokeMethod(
            context, [this, method, body]() mutable { this->run(method, body); }, Qt::QueuedConnection);
    }

private:
    template <class Name, class Body>
    void trap(const Name& name, Body&& body) const noexcept {
        const std::shared_ptr<void> alive = owner_;
        const std::string_view control = control_;
        if (const std::optional<CaughtError> error = CaughtErrorOf(body)) {
            TraceError(control, name(), *error);
        }
    }

    std::string_view control_;
    std::shared_ptr<void> owner_;
};

}  // namespace planview
