// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "automation/HostTable.h"
#include "grid/modGrid.h"

namespace planview {

enum class RowColor { Background, Foreground };

/// Writes the palette index into `ROW_BG` or `ROW_FG` of the rows whose heading is selected, then shows it. False when
/// it could not be shown; the trace has the failure.
[[nodiscard]] bool ColorSelectedRows(HostTable lineIndex, modGrid& driver, RowColor which, std::int16_t color);

}  // namespace planview
