// SPDX-License-Identifier: MIT
#include "automation/Texts.h"

namespace planview {

std::vector<std::string_view> SplitAt(std::string_view text, char mark) {
    std::vector<std::string_view> pieces;
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find(mark, start);
        pieces.push_back(text.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos) {
            return pieces;
        }
        start = end + 1;
    }
}

std::string Joined(const std::vector<std::string>& texts, std::string_view between) {
    std::string joined;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        joined += i == 0 ? std::string_view() : between;
        joined += texts[i];
    }
    return joined;
}

}  // namespace planview
