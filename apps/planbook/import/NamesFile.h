// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/Faults.h"
#include "import/FormulaText.h"
#include "import/MacroText.h"
#include "import/SourceTable.h"

namespace planbook {

enum class LineKind {
    Plain,  ///< numbers that the user plans
    Total,  ///< numbers that follow from others: not editable
    Help    ///< a sub-aggregate that heads the lines below it: not editable, drawn as a help line
};

/// How a line is drawn in the chart, if at all.
enum class ChartUse { None, Column, Line, StackedLine, StackedLine100 };

struct LineName {
    std::string column;  ///< the line's name in the source
    std::string label;
    LineKind kind = LineKind::Plain;
    std::string unit;
    int indent = 0;
    ChartUse chart = ChartUse::None;
};

/// What the book opens its chart with.
struct ChartNames {
    bool shown = false;  ///< the file has a chart section
    std::string title;
    std::string from;  ///< the first period in the chart; empty: the book's first
    std::string to;    ///< the last one; empty: the book's last
    std::optional<double> optimum;
    std::optional<double> rangeFrom;
    std::optional<double> rangeTo;
};

/// What a names file says about a table of numbers. Texts that it leaves out are empty.
///
/// The file is UTF-8 text with up to five sections; a line that begins with "#" is a comment:
///
///     [book]
///     title = US employment
///     unit = thousand
///     source = Bureau of Labor Statistics
///     open-at = 2008-01-01
///     [chart]
///     title = Employment
///     from = 2008-01-01
///     to = 2009-12-01
///     optimum = 13500
///     range-from = 12500
///     range-to = 14500
///     [lines]
///     goods_producing = Goods producing | help
///     construction = Construction | line | thousand | 1 | column
///     [formulas]
///     Goods producing = SUM(MEMBERS) | entry
///     [macros]
///     Raise by 5 % = SELECTED = SELECTED * 1.05 | 2015-01-01 : 2015-12-01
///
/// The title stands in the corner, the source in the note row at the bottom, the book opens at the period open-at.
/// With a chart section the book opens with a chart of the periods from .. to; the optimum and the range are optional.
/// A line of the section of lines is: name in the source = label | kind | unit | indent | chart. Kind is line, total or
/// help; chart is column, line, stacked-line or stacked-line-100 for a line that is in the chart. What is left out
/// takes line, the book's unit, 0 and no chart. The lines of the book stand in this order; those of the source that the
/// file does not name follow in their own. A formula is what ReadFormulaText() reads, a macro what ReadMacroText()
/// does.
struct NamesFile {
    std::string title;
    std::string unit;
    std::string source;
    std::string openAt;
    ChartNames chart;
    std::vector<LineName> lines;
    std::vector<FormulaText> formulas;
    std::vector<MacroText> macros;
};

/// Reads the text of a names file. Faults name their line.
[[nodiscard]] NamesFile ReadNamesFile(std::string_view text, Faults& faults);

/// Adds a fault for every line name and for the opening period that the source does not have.
void CheckNamesAgainst(const SourceTable& source, const NamesFile& names, Faults& faults);

/// "goods_producing" is "Goods producing".
[[nodiscard]] std::string ReadableName(std::string_view name);

}  // namespace planbook
