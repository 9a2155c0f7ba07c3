// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "automation/HostTable.h"
#include "grid/modGrid.h"

namespace planview {

enum class RowColor { Background, Foreground };

/// Writes the palette index into `ROW_BG` or `ROW_FG` of the rows whose heading is selected, then shows it. False when
/// it could not be shown; the trace has the failure.
[[nodiscard]] bool ColorSelectedRows(HostTable lineIndex, modGrid& driver, RowColor which, std::int16_t color);

/// The palette index that the first row with a selected heading has; none where it cannot be read.
[[nodiscard]] std::optional<std::int16_t> ColorOfSelectedRow(const HostTable& lineIndex, modGrid& driver,
                                                             RowColor which);

}  // namespace planview
