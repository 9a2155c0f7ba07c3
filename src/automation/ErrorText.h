// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "automation/TableError.h"
#include "automation/Utf8.h"

namespace planview {

/// What a body threw: its text (valid UTF-8, cut where it is very long), and the place where it was an access to a
/// host's table that failed.
struct CaughtError {
    std::string text;
    TablePlace place{};
};

/// Runs the body and returns what it threw, no value when it went through.
///
/// The one place where exceptions of any type end: error traps and the event source are built on it.
template <class Body>
[[nodiscard]] std::optional<CaughtError> CaughtErrorOf(Body&& body) {
    constexpr std::size_t LongestText = 1000;
    try {
        body();
        return std::nullopt;
    } catch (const TableError& error) {
        return CaughtError{ToValidUtf8(error.what(), LongestText), error.Place()};
    } catch (const std::exception& error) {
        const char* const text = error.what();
        return CaughtError{text ? ToValidUtf8(text, LongestText) : "unknown exception"};
    } catch (...) {
        return CaughtError{"unknown exception"};
    }
}

/// The same for callers that need the text alone.
template <class Body>
[[nodiscard]] std::optional<std::string> ErrorTextOf(Body&& body) {
    std::optional<CaughtError> error = CaughtErrorOf(std::forward<Body>(body));
    return error ? std::optional<std::string>(std::move(error->text)) : std::nullopt;
}

}  // namespace planview
