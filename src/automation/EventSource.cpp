// SPDX-License-Identifier: MIT
#include "automation/EventSource.h"

#include <algorithm>
#include <string>

#include <planview/AutomationObject.h>

#include "automation/ErrorText.h"

namespace planview {

struct EventSource::State {
    std::vector<EventSink*> sinks;  // null where a sink was removed while an event was being raised
    int raising = 0;
    FailureHandler onFailure;
};

namespace {

const EventDescription& Describe(EventId event) {
    return DescribeEvents()[static_cast<std::size_t>(static_cast<std::int32_t>(event)) - 1];
}

void CheckArguments(const EventDescription& event, std::span<const Variant> arguments) {
    bool fits = event.arguments.size() == arguments.size();
    for (std::size_t i = 0; fits && i < arguments.size(); ++i) {
        const Variant::Kind wanted = event.arguments[i].kind;
        fits = wanted == Variant::Kind::Empty || wanted == arguments[i].GetKind();
    }
    if (!fits) {
        throw AutomationError(AutomationErrorCode::WrongArguments,
                              "The arguments do not fit the event " + std::string(event.name));
    }
}

}  // namespace

EventSource::EventSource(FailureHandler onFailure) : state_(std::make_shared<State>()) {
    state_->onFailure = std::move(onFailure);
}

EventSource::~EventSource() {
    std::fill(state_->sinks.begin(), state_->sinks.end(), nullptr);
}

void EventSource::AddSink(EventSink& sink) {
    state_->sinks.push_back(&sink);
}

void EventSource::RemoveSink(EventSink& sink) noexcept {
    std::vector<EventSink*>& sinks = state_->sinks;
    if (state_->raising > 0) {
        std::replace(sinks.begin(), sinks.end(), &sink, static_cast<EventSink*>(nullptr));
    } else {
        sinks.erase(std::remove(sinks.begin(), sinks.end(), &sink), sinks.end());
    }
}

void EventSource::Raise(EventId event, std::span<const Variant> arguments) {
    const EventDescription& description = Describe(event);
    CheckArguments(description, arguments);

    const std::shared_ptr<State> state = state_;  // a sink may destroy the source
    struct Raising {
        State& state;
        explicit Raising(State& s) : state(s) { ++state.raising; }
        ~Raising() {
            if (--state.raising == 0) {
                state.sinks.erase(std::remove(state.sinks.begin(), state.sinks.end(), nullptr), state.sinks.end());
            }
        }
    } const raising(*state);

    const std::size_t count = state->sinks.size();
    for (std::size_t i = 0; i < count; ++i) {
        EventSink* sink = state->sinks[i];
        if (!sink) {
            continue;
        }
        if (const auto error = ErrorTextOf([&] { sink->OnEvent(event, arguments); })) {
            state->onFailure(description.name, *error);
        }
    }
}

}  // namespace planview
