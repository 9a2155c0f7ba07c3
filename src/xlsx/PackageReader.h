// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "xlsx/Workbook.h"
#include "xlsx/ZipParts.h"

namespace planview::xlsx {

/// What a part refers to.
struct Relationship {
    std::string kind;    ///< the last word of its type, such as "worksheet"
    std::string target;  ///< the part's full name
};
using Relationships = std::map<std::string, Relationship, std::less<>>;  ///< by their identifiers

/// The relationships of a part, of the whole file for "". None where it has no such list.
[[nodiscard]] Relationships ReadRelationships(ZipParts& parts, const std::string& part);

struct SheetEntry {
    std::string name;
    std::string part;
    SheetVisibility visibility = SheetVisibility::Visible;
};

/// What the workbook's own part says.
struct WorkbookOutline {
    std::vector<SheetEntry> sheets;  ///< only those with cells
    std::size_t activeSheet = 0;     ///< into `sheets`; a visible one where the file allows it
    std::string textsPart;           ///< empty: none
    std::string propertiesPart;      ///< empty: none
    std::string stylesPart;          ///< empty: none
    bool startsIn1904 = false;       ///< how the workbook counts days
};

[[nodiscard]] WorkbookOutline ReadOutline(ZipParts& parts);

/// Fills the workbook's texts in the order of the file, so that a cell's number for a text is good as it is.
void ReadTexts(ZipParts& parts, const std::string& part, TextPool& texts);

/// Fills title and subject.
void ReadProperties(ZipParts& parts, const std::string& part, Workbook& workbook);

}  // namespace planview::xlsx
