// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "automation/Numbers.h"

/// Whatever is read as a number is finite, and what is written of it is read back as the same number.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto number = planview::TryParseNumber({reinterpret_cast<const char*>(data), size});
    if (!number) {
        return 0;
    }
    for (const char mark : {'.', ','}) {
        const auto again = planview::TryParseNumber(planview::NumberText(*number, mark));
        const double tolerance = std::abs(*number) * 1e-14;
        if (!again || !std::isfinite(*again) || std::abs(*again - *number) > tolerance) {
            std::abort();
        }
    }
    return 0;
}
