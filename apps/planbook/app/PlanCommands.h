// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "app/CommandLine.h"

namespace planbook {

// What is done to a book's computed lines without a window. All of these print what they find, and throw BookError.

/// Lists the formulas.
[[nodiscard]] ExitCode ListFormulas(const std::filesystem::path& book);
/// Computes everything from the leaves and lists where the book differs.
[[nodiscard]] ExitCode CheckFormulas(const std::filesystem::path& book);
/// Enters numbers, all or none.
[[nodiscard]] ExitCode SetNumbers(const SetRequest& request);

}  // namespace planbook
