// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "components/GridControl.h"
#include "macro/tree/MacroOutline.h"
#include "macro/tree/MacroTable.h"

namespace planview {

/// A formula as a user types it: "Retail = Retail * 1,05; 2015", or the expression alone.
struct TypedFormula {
    static constexpr int TopLevel = -1;

    struct Part {
        NewMacroNode node;
        int parent = TopLevel;  ///< the part that it stands in
    };

    /// The first one is what gets the value if it is a statement; the expression then stands in it.
    std::vector<Part> parts;
    bool isStatement = false;
    std::optional<NewMacroNode> periods;
    std::string fault;  ///< a sentence why it cannot be read; then the rest says nothing
};

/// Captions of lines, the macro's own names and functions are known in any case; the longest one that fits counts, so
/// that captions may contain blanks and signs. A name in quotation marks is taken as it stands. `hasTarget` false: a
/// "=" is always a comparison. What stands behind the last ";" outside of functions are the periods: a caption, "Jan to
/// Mar", or a word that all of them have ("2015").
[[nodiscard]] TypedFormula ReadFormula(const GridControl& grid, const MacroOutline& outline, std::string_view text,
                                       bool hasTarget);

}  // namespace planview
