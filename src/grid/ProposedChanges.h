// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include <planview/Spreadsheet.h>

#include "grid/ValueEntry.h"

namespace planview {

/// A value that a cell would get, for a preview: with the captions and the contents that the grid shows, ticked.
[[nodiscard]] UploadChange ProposedChange(const GridControl& grid, Cell cell, const Variant& value);

/// Applies what is ticked and not refused as one action of the user. A cell that shows another value, or stands under
/// other captions, than when the preview was made is left alone and counted.
UploadResult ApplyTicked(const GridControl& grid, ValueEntry& valueEntry, std::span<const UploadChange> changes);

/// What became of them, for the user: "3 cells changed.", and on further lines what was left alone.
[[nodiscard]] std::string TextOf(const UploadResult& result, std::string_view since);

}  // namespace planview
