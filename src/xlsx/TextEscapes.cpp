// SPDX-License-Identifier: MIT
#include "xlsx/TextEscapes.h"

#include <charconv>
#include <system_error>

namespace planview::xlsx {

namespace {

constexpr int EscapeLength = 7;  // "_x000D_"

/// The code of an escape at this place, -1 where there is none.
int EscapeAt(std::string_view text, std::size_t at) noexcept {
    if (at + EscapeLength > text.size() || text[at + 1] != 'x' || text[at + EscapeLength - 1] != '_') {
        return -1;
    }
    unsigned code = 0;
    const char* const first = text.data() + at + 2;
    const char* const last = first + 4;
    const auto [end, error] = std::from_chars(first, last, code, 16);
    return error == std::errc() && end == last ? static_cast<int>(code) : -1;
}

/// U+FFFE and U+FFFF differ in their last byte only.
bool IsNoCharacter(std::string_view text, std::size_t at) noexcept {
    return text.substr(at).starts_with("\xEF\xBF\xBE") || text.substr(at).starts_with("\xEF\xBF\xBF");
}

}  // namespace

std::string WithoutEscapes(std::string text) {
    for (std::size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at + 1)) {
        const int code = EscapeAt(text, at);
        // Only what a single byte holds: characters beyond need no escape.
        if (code >= 0 && code < 0x80) {
            text.replace(at, EscapeLength, 1, static_cast<char>(code));
        }
    }
    return text;
}

bool NeedsEscapes(std::string_view text) noexcept {
    return text.find("_x") != std::string_view::npos || text.find("\xEF\xBF") != std::string_view::npos;
}

std::string WithEscapes(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsNoCharacter(text, at)) {
            result += '?';
            at += 2;
            continue;
        }
        result += text[at];
        if (text[at] == '_' && EscapeAt(text, at) >= 0) {
            result += "x005F_";
        }
    }
    return result;
}

}  // namespace planview::xlsx
