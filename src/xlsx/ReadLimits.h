// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace planview::xlsx {

/// What a file may demand of whoever reads it. A sheet of 5,000 × 181 numbers needs an eighth of
/// the cells and a twelfth of the bytes; reading to every limit at once takes some 500 MB.
struct ReadLimits {
    std::uint64_t fileBytes = std::uint64_t{64} << 20;
    std::uint64_t inflatedBytes = std::uint64_t{512} << 20;  ///< of all parts together
    /// A part may grow to this many times its size in the file, as soon as it is larger than ratioFreeBytes.
    std::uint64_t ratio = 250;
    std::uint64_t ratioFreeBytes = std::uint64_t{16} << 20;
    std::size_t parts = 10'000;
    std::size_t cells = 8'000'000;
    std::size_t textBytes = std::size_t{64} << 20;
    std::size_t texts = 1'000'000;
    std::size_t mergedAreas = 20'000;
    std::size_t sheets = 1'000;
    /// Of one element's tag, and of a text without a break.
    std::size_t tokenBytes = std::size_t{1} << 20;
    int elementDepth = 64;
};

/// What a reader throws where the file is not what it should be; the text says what, without the file's name.
class BrokenFile : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace planview::xlsx
