// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace planview::bench {

/// The argument by which the program, started anew, measures the heap growth of one subject and prints it.
inline constexpr std::string_view HeapGrowthArgument = "--heap-growth-of=";

/// Builds the subject ("grid" or "peer") and prints by how many bytes the heap has grown. Returns the exit code.
int PrintHeapGrowth(std::string_view subject);

}  // namespace planview::bench
