// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview::modChart {

inline constexpr std::string_view Label = "CHART";

/// The frame of every procedure: the call under a trap, then the entry. `parameter` builds the entry's text.
template <class Call, class Parameter>
void Run(std::string_view method, const Call& call, const Parameter& parameter) noexcept {
    ErrorTrap(Label, method, [&] {
        call();
        if (modPlan::TraceEnabled) {
            modPlan::TraceWrite(Label, "", method, parameter());
        }
    });
}

}  // namespace planview::modChart
