// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace planview::fuzz {

/// The input of one run, taken byte by byte as a list of choices. Once it is used up every choice is 0, which always is
/// the harmless one.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    [[nodiscard]] bool Empty() const noexcept { return rest_.empty(); }
    [[nodiscard]] std::uint8_t Byte() noexcept {
        if (rest_.empty()) {
            return 0;
        }
        const std::uint8_t byte = rest_.front();
        rest_ = rest_.subspan(1);
        return byte;
    }
    /// 0 .. count - 1.
    [[nodiscard]] int Below(int count) noexcept { return Byte() % count; }
    [[nodiscard]] std::int32_t Number() noexcept {
        std::uint32_t number = 0;
        for (int i = 0; i < 4; ++i) {
            number = number << 8U | Byte();
        }
        return static_cast<std::int32_t>(number);
    }
    /// At most 255 bytes, any of them.
    [[nodiscard]] std::string Text() {
        std::string text;
        for (int left = Byte(); left > 0 && !rest_.empty(); --left) {
            text += static_cast<char>(Byte());
        }
        return text;
    }

private:
    std::span<const std::uint8_t> rest_;
};

}  // namespace planview::fuzz
