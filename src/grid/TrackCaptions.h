// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "components/GridControl.h"

namespace planview {

/// All columns and rows of a grid by key, with what their headings say. A key alone does not tell what a host shows
/// under it: it numbers its lines anew at will.
using TrackCaptions = std::unordered_map<std::string, std::string>;

[[nodiscard]] TrackCaptions CaptionsOf(const GridControl& grid);

/// The keys that another build no longer has, or has for something with another caption.
[[nodiscard]] std::unordered_set<std::string> GoneSince(const TrackCaptions& before, const GridControl& grid);

}  // namespace planview
