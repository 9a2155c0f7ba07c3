// SPDX-License-Identifier: MIT
#include "grid/LineCaption.h"

namespace planview {

std::string LineCaption(const HostTable& lineIndex, HostTable::Row row) {
    const std::string kind = lineIndex.Text(row, "LTEXT");
    if (kind == "F" || kind == "T") {
        return lineIndex.Text(row, "FREET");
    }
    return lineIndex.Text(row, kind == "P" ? "PLOBT" : "DDICT");
}

}  // namespace planview
