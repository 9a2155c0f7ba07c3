// SPDX-License-Identifier: MIT
#pragma once

#include <type_traits>

// Calls a member with arguments of its own types, which a host can only do where it has the whole of them. Nobody runs
// these programs; that they compile and link is the test.

template <class Object, class Result, class... Arguments>
void Use(Object& object, Result (Object::*member)(Arguments...)) {
    static_cast<void>((object.*member)(std::remove_cvref_t<Arguments>()...));
}

template <class Object, class Result, class... Arguments>
void Use(const Object& object, Result (Object::*member)(Arguments...) const) {
    static_cast<void>((object.*member)(std::remove_cvref_t<Arguments>()...));
}

/// Each of them.
template <class Object, class... Members>
void UseAll(Object& object, Members... members) {
    (Use(object, members), ...);
}
