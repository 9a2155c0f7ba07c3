// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <type_traits>

#include <planview/Events.h>

namespace planview {

namespace {

using Kind = Variant::Kind;

/// Of an argument, by its type in PlanViewEvents.
template <class Type>
constexpr Kind KindOf = Kind::Empty;  // any kind
template <>
constexpr Kind KindOf<std::int16_t> = Kind::Int16;
template <>
constexpr Kind KindOf<std::int32_t> = Kind::Int32;
template <>
constexpr Kind KindOf<std::string> = Kind::Text;

template <class... Types>
constexpr std::array<EventArgument, sizeof...(Types)> ArgumentsOf(
    void (PlanViewEvents::*)(Types...), const std::array<std::string_view, sizeof...(Types)>& names) {
    constexpr std::array<Kind, sizeof...(Types)> Kinds{KindOf<std::remove_cvref_t<Types>>...};
    std::array<EventArgument, sizeof...(Types)> arguments{};
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        arguments[i] = {names[i], Kinds[i]};
    }
    return arguments;
}

#define PLANVIEW_EVENT(NAME, ...) constexpr auto NAME##Arguments = ArgumentsOf(&PlanViewEvents::NAME, __VA_ARGS__);
#include "automation/Events.def"

constexpr EventDescription Descriptions[] = {
#define PLANVIEW_EVENT(NAME, ...) {EventId::NAME, #NAME, NAME##Arguments},
#include "automation/Events.def"
};

/// Whether the list has them by their numbers, and a name for each argument.
constexpr bool IsComplete() {
    std::int32_t number = 0;
    return std::all_of(std::begin(Descriptions), std::end(Descriptions), [&](const EventDescription& event) {
        return event.id == static_cast<EventId>(++number) &&
               std::none_of(event.arguments.begin(), event.arguments.end(),
                            [](const EventArgument& argument) { return argument.name.empty(); });
    });
}
static_assert(IsComplete());

}  // namespace

std::span<const EventDescription> DescribeEvents() noexcept {
    return Descriptions;
}

}  // namespace planview
