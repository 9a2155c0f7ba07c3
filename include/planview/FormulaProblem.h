// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace planview {

/// A row of FORMULAS that computes nothing, or not what it should.
struct FormulaProblem {
    int row = 0;         ///< of the table, from 1; 0 where several rows are concerned
    std::string target;  ///< as the row names it; the captions of several
    std::string what;    ///< a sentence for the user
};

}  // namespace planview
