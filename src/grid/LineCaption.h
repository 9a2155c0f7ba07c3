// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "automation/HostTable.h"

namespace planview {

/// The text by which a row of LINE_INDEX is called, in the grid's label column and in the chart alike: `LTEXT` "F" or
/// "T" takes `FREET`, "P" takes `PLOBT`, anything else takes `DDICT`.
[[nodiscard]] std::string LineCaption(const HostTable& lineIndex, HostTable::Row row);

}  // namespace planview
