// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/CsvNumbers.h"
#include "import/Faults.h"

namespace planbook {

/// One column of the source, which becomes a line of the book.
struct SourceLine {
    std::string name;                           ///< as the header row has it
    std::vector<std::optional<double>> values;  ///< one per period; no value where the field is empty
};

/// A table of numbers: the first column holds the periods, the header row the names of the lines.
struct SourceTable {
    std::vector<std::string> periods;
    std::vector<SourceLine> lines;
};

/// Reads and checks the text of a CSV file. What is wrong is added to `faults`; the table is whole only when there are
/// none.
///
/// Numbers use the decimal point or the decimal comma throughout; with DecimalMark::Automatic the file's own numbers
/// say which, and a number that could be read both ways in a file that does not say is a fault.
[[nodiscard]] SourceTable ReadSourceTable(std::string_view text, DecimalMark mark, Faults& faults);

}  // namespace planbook
