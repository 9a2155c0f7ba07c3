// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "import/Faults.h"

namespace planbook {

struct CsvRecord {
    int line = 0;  ///< where it begins, from 1
    std::vector<std::string> fields;
};

/// Reads a text of separated values: fields may stand in quotation marks, with doubled marks and line ends inside;
/// lines end with LF, CRLF or CR. Empty lines are passed over. The separator is the one of comma, semicolon and tab
/// that the first line uses most. Faults are named by line and column; the fields of a faulty line are kept as far as
/// they can be read.
[[nodiscard]] std::vector<CsvRecord> ReadCsv(std::string_view text, Faults& faults);

}  // namespace planbook
