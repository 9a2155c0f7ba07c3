// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace planview {

/// A key with those that are held beside it, as the grid's listener knows it (GridEvents::KeyDown()).
struct KeyStroke {
    static constexpr std::int16_t Shift = 1;
    static constexpr std::int16_t Control = 2;
    static constexpr std::int16_t Alt = 4;

    static constexpr std::int16_t Space = 32;
    static constexpr std::int16_t Left = 37;  ///< Up, Right and Down follow
    static constexpr std::int16_t Up = 38;
    static constexpr std::int16_t Right = 39;
    static constexpr std::int16_t Down = 40;
    static constexpr std::int16_t Delete = 46;
    static constexpr std::int16_t F1 = 112;  ///< F2 to F12 follow
    static constexpr std::int16_t F12 = 123;

    std::int16_t shift = 0;  ///< of Shift, Control and Alt, added
    std::int16_t code = 0;   ///< a capital letter's or one of those above; 0 for no key

    /// A letter, Space or Delete: the grid's listener hears of these whether they are a command or not.
    [[nodiscard]] constexpr bool IsTyped() const noexcept {
        return code != 0 && (code < Left || code > Down) && (code < F1 || code > F12);
    }

    friend constexpr bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

/// Reads "Ctrl+Shift+Z", "Shift+Space", "Alt+Left", "F6", "Del". The code is 0 for any other text.
[[nodiscard]] constexpr KeyStroke ReadKeyStroke(std::string_view text) noexcept {
    KeyStroke key;
    const auto take = [&](std::string_view name, std::int16_t held) {
        if (text.starts_with(name)) {
            text.remove_prefix(name.size());
            key.shift = static_cast<std::int16_t>(key.shift + held);
        }
    };
    take("Ctrl+", KeyStroke::Control);
    take("Alt+", KeyStroke::Alt);
    take("Shift+", KeyStroke::Shift);
    if (text == "Del") {
        key.code = KeyStroke::Delete;
    } else if (text == "Space") {
        key.code = KeyStroke::Space;
    } else if (text == "Left") {
        key.code = KeyStroke::Left;
    } else if (text == "Up") {
        key.code = KeyStroke::Up;
    } else if (text == "Right") {
        key.code = KeyStroke::Right;
    } else if (text == "Down") {
        key.code = KeyStroke::Down;
    } else if (text.size() == 2 && text.front() == 'F' && text.back() >= '1' && text.back() <= '9') {
        key.code = static_cast<std::int16_t>(KeyStroke::F1 + (text.back() - '1'));
    } else if (text.size() == 1 && text.front() >= 'A' && text.front() <= 'Z') {
        key.code = text.front();
    }
    return key;
}

}  // namespace planview
