// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <planview/Export.h>

namespace planview {

/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
[[nodiscard]] PLANVIEW_EXPORT bool IsValidUtf8(std::string_view text) noexcept;

/// At most `longest` bytes of the text, ended between two characters; bytes that belong to none are replaced by "?".
[[nodiscard]] PLANVIEW_EXPORT std::string ToValidUtf8(std::string_view text,
                                                      std::size_t longest = std::string_view::npos);

}  // namespace planview
