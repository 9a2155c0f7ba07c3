// SPDX-License-Identifier: MIT
#include "automation/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace planview {

namespace {

/// The length of a sequence of more than one byte and the smallest code point that may need it; 0 for no first byte.
struct Sequence {
    std::size_t length;
    std::uint32_t smallest;
    std::uint32_t firstBits;
};

Sequence SequenceOf(unsigned char first) noexcept {
    if (first >= 0xC2 && first <= 0xDF) {
        return {2, 0x80, first & 0x1FU};
    }
    if ((first & 0xF0U) == 0xE0) {
        return {3, 0x800, first & 0x0FU};
    }
    if (first >= 0xF0 && first <= 0xF4) {
        return {4, 0x10000, first & 0x07U};
    }
    return {0, 0, 0};
}

/// The length in bytes of the well-formed character that the text begins with; 0 when it begins with none.
std::size_t FirstCharacter(std::string_view text) noexcept {
    constexpr std::uint32_t LastCodePoint = 0x10FFFF;
    if (static_cast<unsigned char>(text.front()) < 0x80) {
        return 1;
    }
    const Sequence sequence = SequenceOf(static_cast<unsigned char>(text.front()));
    if (sequence.length == 0 || text.size() < sequence.length) {
        return 0;
    }
    std::uint32_t point = sequence.firstBits;
    for (std::size_t k = 1; k < sequence.length; ++k) {
        const auto byte = static_cast<unsigned char>(text[k]);
        if ((byte & 0xC0U) != 0x80) {
            return 0;
        }
        point = (point << 6U) | (byte & 0x3FU);
    }
    const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
    return point < sequence.smallest || point > LastCodePoint || surrogate ? 0 : sequence.length;
}

}  // namespace

bool IsValidUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        const std::size_t length = FirstCharacter(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::string ToValidUtf8(std::string_view text, std::size_t longest) {
    std::string valid;
    while (!text.empty()) {
        const std::size_t length = FirstCharacter(text);
        const std::string_view character = length == 0 ? std::string_view("?") : text.substr(0, length);
        if (valid.size() + character.size() > longest) {
            break;
        }
        valid += character;
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return valid;
}

}  // namespace planview
