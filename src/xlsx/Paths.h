// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace planview::xlsx {

/// @{
/// The path of a UTF-8 name and back.
[[nodiscard]] inline std::filesystem::path PathOf(std::string_view utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}
[[nodiscard]] inline std::string TextOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}
/// @}

}  // namespace planview::xlsx
