// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <exception>
#include <optional>
#include <string>

#include "automation/Utf8.h"

namespace planview {

/// Runs the body and returns the text of what it threw (valid UTF-8, cut where it is very long), no value when it went
/// through.
///
/// The one place where exceptions of any type end: error traps and the event source are built on it.
template <class Body>
[[nodiscard]] std::optional<std::string> ErrorTextOf(Body&& body) {
    try {
        body();
        return std::nullopt;
    } catch (const std::exception& error) {
        constexpr std::size_t LongestText = 1000;
        const char* const text = error.what();
        return text ? ToValidUtf8(text, LongestText) : "unknown exception";
    } catch (...) {
        return "unknown exception";
    }
}

}  // namespace planview
