// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace planview::bench {

/// A download of the grid of 181 × 181 cells to a path, ready to be called.
[[nodiscard]] std::function<void(const std::string&)> PreparedDownload();

}  // namespace planview::bench
