// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace planview::xlsx {

/// Workbooks write a character that XML cannot hold by its code, "_x000D_".

/// Replaces what stands for such characters by the characters themselves.
[[nodiscard]] std::string WithoutEscapes(std::string text);

/// Has a text that looks like an escape read as it is, and replaces the two characters of Unicode that are none. The
/// control characters are left to the library that writes.
[[nodiscard]] std::string WithEscapes(std::string_view text);

/// Whether WithEscapes() would change the text.
[[nodiscard]] bool NeedsEscapes(std::string_view text) noexcept;

}  // namespace planview::xlsx
