// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace planview {

/// Why a macro cannot run or did not run, for one of its nodes.
struct MacroProblem {
    std::string nodeKey;
    std::string nodeText;  ///< the node in words; empty if the message needs no such start
    std::string what;      ///< what is wrong, a sentence
    std::string now;       ///< what the user can do, a sentence; may be empty

    [[nodiscard]] std::string Text() const {
        return (nodeText.empty() ? std::string() : nodeText + ": ") + what + (now.empty() ? std::string() : " " + now);
    }
};

using MacroProblems = std::vector<MacroProblem>;

/// The result of a run.
struct MacroOutcome {
    MacroProblems problems{};  ///< empty: it ran
    int changed = 0;           ///< number of cells with a new value
    std::string done{};        ///< what was done, for the user; may be empty
};

/// An outcome with one problem that is not about a single node.
[[nodiscard]] inline MacroOutcome FailedOutcome(const std::string& what) {
    return {{{"", "", what, ""}}};
}

}  // namespace planview
