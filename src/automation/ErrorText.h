#pragma once

#include <cstddef>
#include <exception>
#include <optional>
#include <string>

namespace planview {

/// Runs the body and returns the text of what it threw, no value when it went through.
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
        return text ? std::string(text).substr(0, LongestText) : "unknown exception";
    } catch (...) {
        return "unknown exception";
    }
}

}  // namespace planview
