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

}  // namespace

bool IsValidUtf8(std::string_view text) noexcept {
    constexpr std::uint32_t LastCodePoint = 0x10FFFF;
    std::size_t i = 0;
    while (i < text.size()) {
        if (static_cast<unsigned char>(text[i]) < 0x80) {
            ++i;
            continue;
        }
        const Sequence sequence = SequenceOf(static_cast<unsigned char>(text[i]));
        if (sequence.length == 0 || text.size() - i < sequence.length) {
            return false;
        }
        std::uint32_t point = sequence.firstBits;
        for (std::size_t k = 1; k < sequence.length; ++k) {
            const auto byte = static_cast<unsigned char>(text[i + k]);
            if ((byte & 0xC0U) != 0x80) {
                return false;
            }
            point = (point << 6U) | (byte & 0x3FU);
        }
        const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
        if (point < sequence.smallest || point > LastCodePoint || surrogate) {
            return false;
        }
        i += sequence.length;
    }
    return true;
}

}  // namespace planview
