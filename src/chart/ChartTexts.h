// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "automation/HostTable.h"

namespace planview {

/// The texts that the chart takes from the host, by the numbers under which TEXTS holds them.
enum class ChartText : std::int16_t {
    StackedView = 97,
    StackedView100 = 98,
    Title = 180,
    StandardView = 181,
    NoForecastLine = 183,
    NoSalesLine = 184
};

/// The text whose `ENTRY` in TEXTS is this number; in English where the host has none.
[[nodiscard]] std::string TextOf(const HostTable& texts, ChartText text);

}  // namespace planview
