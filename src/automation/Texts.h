// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace planview {

// --- Reading texts

/// The text without the blanks at its ends.
[[nodiscard]] constexpr std::string_view Trimmed(std::string_view text, std::string_view blanks = " ") noexcept {
    const auto isBlank = [blanks](char c) {
        for (const char blank : blanks) {
            if (c == blank) {
                return true;
            }
        }
        return false;
    };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

/// Converts A to Z only, in every locale.
[[nodiscard]] constexpr char LowerCase(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Whether two texts are equal apart from the case of A to Z.
[[nodiscard]] constexpr bool EqualIgnoringCase(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return LowerCase(a) == LowerCase(b); });
}

/// The pieces of a text between the marks; the whole text if there is no mark.
[[nodiscard]] std::vector<std::string_view> SplitAt(std::string_view text, char mark);

// --- Writing texts for people

/// "1 cell", "2 cells".
template <std::integral Count>
[[nodiscard]] std::string Counted(Count count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

/// Concatenates the texts with `between` between them.
[[nodiscard]] std::string Joined(const std::vector<std::string>& texts, std::string_view between);

}  // namespace planview
