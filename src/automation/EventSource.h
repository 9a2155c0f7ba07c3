// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include <planview/Events.h>

namespace planview {

/// Raises the control's events to any number of sinks, in the order in which they were added.
///
/// A sink that throws ends its own turn only. Sinks may be added and removed, and the source may be destroyed, while an
/// event is being raised: a sink removed before its turn is not called, one added meanwhile hears the next event.
class EventSource {
public:
    /// Called for a sink that threw, with the event's name and the error's text.
    using FailureHandler = std::function<void(std::string_view event, std::string_view error)>;

    explicit EventSource(FailureHandler onFailure);
    ~EventSource();
    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;

    void AddSink(EventSink& sink);
    void RemoveSink(EventSink& sink) noexcept;

    /// The arguments must be of the number and kinds that DescribeEvents() gives; otherwise throws WrongArguments.
    void Raise(EventId event, std::span<const Variant> arguments = {});

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace planview
