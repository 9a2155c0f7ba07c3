// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <planview/Spreadsheet.h>

namespace planbook {

/// What an upload would do, for a terminal: a headline, a table with a line for each changed cell, and what does not
/// match. Ends with a line break.
[[nodiscard]] QString PreviewText(const planview::UploadPreview& preview);

/// Whether all of the workbook can be uploaded.
[[nodiscard]] bool IsWhole(const planview::UploadPreview& preview);

/// "1 value", "3 values".
[[nodiscard]] QString CountedValues(int count);

}  // namespace planbook
