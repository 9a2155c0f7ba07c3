// SPDX-License-Identifier: MIT
#pragma once

#include "commands/CommandTable.h"

class QKeyEvent;

namespace planview {

/// The pressed key as commands know it; without a code where it can be none of theirs. The desktop's other keys for the
/// clipboard and for undoing (Ctrl+Insert) are those of the commands.
[[nodiscard]] KeyStroke keyStrokeOf(const QKeyEvent& event);

}  // namespace planview
