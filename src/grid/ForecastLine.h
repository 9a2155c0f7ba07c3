// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "automation/HostTable.h"

namespace planview {

/// A click on a line's heading in the forecast view: the line becomes the sales line ("S" in `SHOW_CHART`) when no line
/// is that yet or it was the forecast line, else the forecast line ("F").
void ChooseForecastLine(HostTable lineIndex, std::string_view key);

}  // namespace planview
