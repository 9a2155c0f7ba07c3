// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace planview {

/// Why a macro cannot run, or did not: said about one of its nodes.
struct MacroProblem {
    std::string nodeKey;
    std::string nodeText;  ///< the node as a sentence, for a message that stands alone
    std::string what;      ///< a sentence: what is wrong
    std::string now;       ///< a sentence: what the user can do; may be empty

    [[nodiscard]] std::string Text() const {
        return (nodeText.empty() ? std::string() : nodeText + ": ") + what + (now.empty() ? std::string() : " " + now);
    }
};

using MacroProblems = std::vector<MacroProblem>;

}  // namespace planview
