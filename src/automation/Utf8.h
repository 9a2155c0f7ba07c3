#pragma once

#include <string_view>

namespace planview {

/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
[[nodiscard]] bool IsValidUtf8(std::string_view text) noexcept;

}  // namespace planview
