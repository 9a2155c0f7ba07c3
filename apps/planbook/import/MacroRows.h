// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <planview/MemoryTable.h>

#include "import/MacroText.h"
#include "import/NamesFile.h"

namespace planbook {

/// What the names in a macro stand for in the book.
struct MacroPlaces {
    std::vector<LineName> lines;              ///< in the order of the book
    const std::vector<std::string>& periods;  ///< as the source has them
    std::vector<std::string> captions;        ///< as the book shows them
    std::vector<std::int32_t> columns;        ///< their columns
};

/// Fills MACRO_TREE: the folder "Macros" with these macros and, last, the folder for recordings. Names that stand for
/// nothing are faults of the names file; CheckNamesAgainst() finds them.
void AddMacroRows(planview::MemoryTable& macroTree, const std::vector<MacroText>& macros, const MacroPlaces& places);

}  // namespace planbook
