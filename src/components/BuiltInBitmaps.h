// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace planview {

namespace detail {
inline constexpr std::array<std::string_view, 12> BuiltInBitmapNames{
    "arrow-up",   "arrow-down", "arrow-left", "arrow-right", "flag-red", "flag-yellow",
    "flag-green", "lock",       "note",       "ok",          "warning",  "error"};
}

/// The names that `Bitmap` attributes may use in every grid; each view brings its own drawings of them.
inline constexpr std::span<const std::string_view> BuiltInBitmaps{detail::BuiltInBitmapNames};

}  // namespace planview
