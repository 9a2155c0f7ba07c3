// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "import/Faults.h"

namespace planbook {

/// A formula as a names file writes it.
struct FormulaText {
    std::string target;  ///< a line's label, a period, or "line, period"
    std::string formula;
    std::int16_t solveOrder = 0;
    bool entry = false;
    int line = 0;       ///< of the names file, for messages
    std::string key{};  ///< of the target, where it is known
};

/// Reads "formula | solve order | entry", of which the latter two may be left out.
[[nodiscard]] FormulaText ReadFormulaText(const std::string& target, std::string_view text, int line, Faults& faults);

}  // namespace planbook
