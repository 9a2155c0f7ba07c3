// SPDX-License-Identifier: MIT
#include "trace/ErrorTrap.h"

#include "trace/TraceText.h"

namespace planview {

void TraceError(std::string_view control, std::string_view method, std::string_view error) noexcept {
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(control, "ERROR", method, TraceText("{error: ", error, "}"));
    }
}

}  // namespace planview
