// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include <planview/Export.h>

namespace planview {

/// A number that a user has typed into a window of the host, read as if it were typed into a cell with this number
/// code (as in `ROW_FORMAT`): "136.000" is 136000 where the code groups digits, and 136 with "0.00" or without a code.
/// Also "50%", "5-", "(5)" and what the code itself shows. None for what is no number, the empty text among it.
[[nodiscard]] PLANVIEW_EXPORT std::optional<double> ReadTypedNumber(std::string_view text,
                                                                    std::string_view numberCode = {});

}  // namespace planview
