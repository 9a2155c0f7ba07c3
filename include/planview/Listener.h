// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace planview {

/// Names a function that a host has added to hear of something, for taking it away. 0 names none.
enum class ListenerId : std::uint64_t {};

}  // namespace planview
