// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace planview {

/// What a formula says, by the lines and columns of now.
struct FormulaReading {
    std::string target;  ///< the caption of what it computes: "Goods", "Jan", "Goods, Jan"
    std::string shown;   ///< the formula by captions
    std::string stored;  ///< the formula by keys, as FORMULAS keeps it best: it survives new captions and places
    /// Why it cannot be read, for the user; empty where it can. What could not be read is then given as it is.
    std::string error;
};

}  // namespace planview
