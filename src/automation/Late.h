// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

#include <planview/AutomationObject.h>

namespace planview {

/// The short way to write late-bound calls by name:
/// `Late(chart).Get("Chart").Get("Axes", 2, 0).Put("MinimumScale", value)`. An empty name is the default member.
///
/// Every step throws ObjectNotSet when the object so far is Nothing, TypeMismatch when it is no object.
class Late {
public:
    explicit Late(ObjectRef object) : value_(std::move(object)) {}
    explicit Late(Variant value) : value_(std::move(value)) {}

    template <class... Arguments>
    [[nodiscard]] Late Get(std::string_view member, Arguments&&... arguments) const {
        const std::array<Variant, sizeof...(Arguments)> values{Variant(std::forward<Arguments>(arguments))...};
        AutomationObject& object = Object(member);
        return Late(object.Get(IdOf(object, member), values));
    }

    /// The last argument is the value, those before it are the member's arguments.
    template <class... Arguments>
    void Put(std::string_view member, Arguments&&... argumentsAndValue) const {
        static_assert(sizeof...(Arguments) > 0, "a put needs a value");
        const std::array<Variant, sizeof...(Arguments)> values{Variant(std::forward<Arguments>(argumentsAndValue))...};
        AutomationObject& object = Object(member);
        object.Put(IdOf(object, member), AutomationObject::Arguments(values).first(values.size() - 1), values.back());
    }

    template <class... Arguments>
    Late Call(std::string_view member, Arguments&&... arguments) const {
        const std::array<Variant, sizeof...(Arguments)> values{Variant(std::forward<Arguments>(arguments))...};
        AutomationObject& object = Object(member);
        return Late(object.Call(IdOf(object, member), values));
    }

    [[nodiscard]] const Variant& Value() const noexcept { return value_; }

private:
    [[nodiscard]] AutomationObject& Object(std::string_view member) const;
    [[nodiscard]] static DispatchId IdOf(const AutomationObject& object, std::string_view member) {
        return member.empty() ? DefaultMember : object.IdOf(member);
    }

    Variant value_;
};

}  // namespace planview
