// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "import/Faults.h"

namespace planbook {

/// The whole text of a file without the byte order mark. Throws BookError when it cannot be read, is larger than any
/// table of numbers that fits a book, or is UTF-16. `what` names it in the message ("table of numbers").
[[nodiscard]] std::string ReadTextFile(const std::filesystem::path& file, std::string_view what);

/// Names every line that is no UTF-8 or holds a NUL.
void CheckEncoding(std::string_view text, Faults& faults);

/// Without blanks and tabs at both ends.
[[nodiscard]] std::string_view Trimmed(std::string_view text) noexcept;

/// The text in quotation marks, shortened where it is long.
[[nodiscard]] std::string Shown(std::string_view text);

}  // namespace planbook
