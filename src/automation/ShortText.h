// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace planview {

/// Whether two texts are equal, for the keys and field names that the innermost loops compare.
///
/// They are mostly compared right after they have been written. The library's comparison reads them in wider pieces
/// than they were written in, and so waits for the memory each time; this one reads them as they were written.
[[nodiscard]] inline bool SameShortText(std::string_view left, std::string_view right) noexcept {
    const std::size_t size = left.size();
    if (size != right.size()) {
        return false;
    }
    const auto samePiece = [&]<class Piece>(std::size_t at, Piece one, Piece other) {
        std::memcpy(&one, left.data() + at, sizeof one);
        std::memcpy(&other, right.data() + at, sizeof other);
        return one == other;
    };
    const auto sameEnds = [&]<class Piece>(Piece zero) {
        return samePiece(0, zero, zero) && samePiece(size - sizeof zero, zero, zero);
    };
    if (size > 2 * sizeof(std::uint64_t)) {
        return left == right;
    }
    if (size >= sizeof(std::uint64_t)) {
        return sameEnds(std::uint64_t{});
    }
    if (size >= sizeof(std::uint32_t)) {
        return sameEnds(std::uint32_t{});
    }
    for (std::size_t i = 0; i < size; ++i) {
        if (left[i] != right[i]) {
            return false;
        }
    }
    return true;
}

}  // namespace planview
