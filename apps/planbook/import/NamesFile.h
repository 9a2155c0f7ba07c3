#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "import/Faults.h"
#include "import/SourceTable.h"

namespace planbook {

enum class LineKind {
    Plain,  ///< numbers that the user plans
    Total,  ///< numbers that follow from others: not editable
    Help    ///< a sub-aggregate that heads the lines below it: not editable, drawn as a help line
};

struct LineName {
    std::string column;  ///< the line's name in the source
    std::string label;
    LineKind kind = LineKind::Plain;
    std::string unit;
    int indent = 0;
};

/// What a names file says about a table of numbers. Texts that it leaves out are empty.
///
/// The file is UTF-8 text with two sections; a line that begins with "#" is a comment:
///
///     [book]
///     title = US employment
///     unit = thousand
///     source = Bureau of Labor Statistics
///     open-at = 2008-01-01
///     [lines]
///     goods_producing = Goods producing | help
///     construction = Construction | line | thousand | 1
///
/// The title stands in the corner, the source in the note row at the bottom, the book opens at the period open-at.
/// A line of the second section is: name in the source = label | kind | unit | indent. Kind is line, total or help;
/// what is left out takes line, the book's unit and 0. The lines of the book stand in this order; those of the source
/// that the file does not name follow in their own.
struct NamesFile {
    std::string title;
    std::string unit;
    std::string source;
    std::string openAt;
    std::vector<LineName> lines;
};

/// Reads the text of a names file. Faults name their line.
[[nodiscard]] NamesFile ReadNamesFile(std::string_view text, Faults& faults);

/// Adds a fault for every line name and for the opening period that the source does not have.
void CheckNamesAgainst(const SourceTable& source, const NamesFile& names, Faults& faults);

/// "goods_producing" is "Goods producing".
[[nodiscard]] std::string ReadableName(std::string_view name);

}  // namespace planbook
