// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "automation/Late.h"

namespace planview {

/// What a download wrote: the keys and captions of its periods and lines, and the contents of every cell.
///
/// It stands on a hidden sheet of the workbook, packed into few cells, because a cell costs more than its text: a mark
/// in A1, the periods' keys in row 2, their captions in row 3, then a row for each line with its key, its caption and
/// its values. A field is "|" and its text, so that no application takes it for a number; a row that is longer than a
/// cell goes on in the next one.
struct DownloadRecord {
    struct Axis {
        std::vector<std::string> keys;
        std::vector<std::string> captions;
    };
    Axis periods;
    Axis lines;
    std::vector<std::vector<std::string>> values;  ///< of each line, by period; as the grid keeps them
};

/// Adds the hidden sheet behind the worksheet. Throws what the application throws; a sheet without its mark is none.
void WriteRecord(const Late& workbook, const Late& worksheet, const DownloadRecord& record);

/// None where the workbook has no such sheet, or an incomplete one.
[[nodiscard]] std::optional<DownloadRecord> ReadRecord(const Late& workbook);

/// For each row of an index table its place in the record's axis, or None (-1).
///
/// A row is found by a caption that stands once in both, or by its key where the caption is the same, or where the row
/// was renamed: then no other row has the caption that it had. Where a caption is found under another key, keys were
/// given anew and decide nothing. None at all where fewer than half of the rows have the caption of the record: it is
/// another table's.
[[nodiscard]] std::vector<int> PlacesInRecord(const DownloadRecord::Axis& table, const DownloadRecord::Axis& record);

}  // namespace planview
