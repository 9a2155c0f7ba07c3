// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace planview {

/// Something that the control could not do.
struct Failure {
    /// The host's table that it failed on, by its name ("TAB"); empty where it was none, such as a sink that throws.
    std::string table;
    std::string field;   ///< empty where it is about a row or the table as a whole
    int row = 0;         ///< from 1 on; 0 where it is about the table as a whole
    std::string reason;  ///< a sentence; of what a table or an object threw, its own
    std::string method;  ///< what ended there, as the trace names it ("FillCells")
};

/// What became of one table in a build.
struct TableReport {
    std::string table;  ///< its name ("TAB")
    int rows = 0;       ///< that it has; 0 where it is not set or could not be asked
    int read = 0;       ///< that the grid took over
    /// That the grid did not take over, or not as a whole: a field cannot be read, a key comes twice, a cell's line or
    /// period is not there. A field that cannot be read ends the reading of its table: the rows behind it are neither
    /// read nor refused.
    int refused = 0;
    /// The first refused row and its field, with the reason; empty and 0 where none was. Row 0 with a reason: the table
    /// as a whole could not be read, or COLS_INDEX, LINE_INDEX or TAB is not set.
    Failure first;

    /// Whether the grid shows all of the table.
    [[nodiscard]] bool IsComplete() const noexcept { return first.reason.empty() && read == rows; }
};

}  // namespace planview
