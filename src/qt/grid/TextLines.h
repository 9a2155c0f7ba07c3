// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace planview {

/// Whether the text has a line break.
[[nodiscard]] inline bool hasLineBreak(const std::string& text) {
    return text.find_first_of("\r\n") != std::string::npos;
}

/// The lines of a text, at least one; empty ones at its end do not count.
[[nodiscard]] inline std::vector<std::string> textLines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
        lines.push_back(text.substr(begin, end - begin));
        begin = end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
    while (lines.size() > 1 && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

}  // namespace planview
