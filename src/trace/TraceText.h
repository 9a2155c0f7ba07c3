#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <string>
#include <string_view>

#include "automation/Numbers.h"
#include "trace/modPlan.h"

namespace planview {

namespace trace_text {

inline void Append(std::string& out, std::string_view text) {
    out += text;
}

template <std::same_as<bool> Flag>
void Append(std::string& out, Flag flag) {
    out += flag ? "True" : "False";
}

template <std::integral Integer>
requires(!std::same_as<Integer, bool>) void Append(std::string& out, Integer number) {
    std::array<char, 24> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    out.append(digits.data(), result.ptr);
}

inline void Append(std::string& out, double number) {
    out += NumberText(number, modPlan::TraceDecimalMark);
}

}  // namespace trace_text

/// The parameter text of a trace entry from its pieces: texts as they are, booleans as True or False, numbers with the
/// user's decimal mark. Called only inside a test of `TraceEnabled`.
template <class... Pieces>
[[nodiscard]] std::string TraceText(const Pieces&... pieces) {
    std::string text;
    text.reserve(64);
    (trace_text::Append(text, pieces), ...);
    return text;
}

}  // namespace planview
