// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"

namespace planbook {

/// Shows a book in a window until that is closed, or writes a picture of it; then writes the trace where one is asked
/// for. Makes the application object. Throws BookError. Partly: the picture or the trace is of a book of which
/// something could not be read.
[[nodiscard]] ExitCode RunView(int& argc, char** argv, const ViewRequest& request);

}  // namespace planbook
