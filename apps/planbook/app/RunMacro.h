// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"

namespace planbook {

/// Runs or replays a macro of a book, without a window, and prints what changed. Throws BookError with what was wrong;
/// the book is then as it was. Partly: of the book something could not be read, no figure among it.
[[nodiscard]] ExitCode RunMacro(int& argc, char** argv, const MacroRequest& request);

}  // namespace planbook
