// SPDX-License-Identifier: MIT
#include "import/FormulaText.h"

#include <charconv>

#include "import/TextFile.h"

namespace planbook {

FormulaText ReadFormulaText(const std::string& target, std::string_view text, int line, Faults& faults) {
    FormulaText formula{target, std::string(Trimmed(text.substr(0, text.find('|')))), 0, false, line, {}};
    if (formula.formula.empty()) {
        faults.Add(line, 0, Shown(target) + " has no formula; write one behind the \"=\"");
    }
    bool hasOrder = false;
    for (std::size_t bar = text.find('|'); bar != std::string_view::npos;) {
        text.remove_prefix(bar + 1);
        bar = text.find('|');
        const std::string_view part = Trimmed(text.substr(0, bar));
        const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), formula.solveOrder);
        const bool isNumber = !part.empty() && error == std::errc() && end == part.data() + part.size();
        if (part == "entry" && !formula.entry) {
            formula.entry = true;
        } else if (isNumber && !hasOrder) {
            hasOrder = true;
        } else {
            faults.Add(line, 0,
                       Shown(part) +
                           " is none of the parts behind a formula; there are a solve order, which is a whole "
                           "number, and entry, each once");
        }
    }
    return formula;
}

}  // namespace planbook
