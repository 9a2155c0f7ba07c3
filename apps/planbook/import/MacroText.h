// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "import/Faults.h"

namespace planbook {

/// A node of a macro's expression, as MACRO_TREE has it.
struct MacroTextNode {
    std::string type;   ///< `NODETYPE`
    std::string value;  ///< `NODEVALUE`; of a line of the source its name there, empty for the selected line
    std::vector<MacroTextNode> children{};
};

/// A macro as a names file writes it: one line that gets a value, in some or all periods.
struct MacroText {
    std::string name;
    MacroTextNode target;  ///< its children are the expression
    std::string from;      ///< the first and the last period, as in the source; empty: all
    std::string to;
    int line = 0;  ///< of the names file, for messages
};

/// Reads "target = expression | from : to". A target is SELECTED or a line of the source in square brackets; an
/// expression holds these, numbers with a point, the operators + - * / and brackets, and the functions SUM, MIN, MAX,
/// AVERAGE, COPY, SHIFT, ABS, ROUND, PRODUCT, COUNT, MOD, INT, LAST, GROWTH and CUMULATE with their arguments divided
/// by
/// ";":
///
///     SELECTED = SELECTED * 1.05 | 2015-01-01 : 2015-12-01
///     [manufacturing] = [durable_goods] + [nondurable_goods]
///     SELECTED = SHIFT(SELECTED ; -12) | 2015-01-01 : 2015-12-01
[[nodiscard]] MacroText ReadMacroText(const std::string& name, std::string_view text, int line, Faults& faults);

/// The names of the source's lines in a macro.
[[nodiscard]] std::vector<std::string> LinesIn(const MacroText& macro);

}  // namespace planbook
