// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "automation/HostTable.h"
#include "grid/IndexAxis.h"
#include "grid/modGrid.h"

namespace planview {

/// Marking, hiding and resetting of whole columns (table COLS_INDEX) and rows (table LINE_INDEX).
///
/// Each operation walks its table from row 1, changes the grid with redraw off, writes the changed field back and
/// leaves one trace entry per changed row. A failure ends it with the same entry and "ERROR"; what it has written
/// stays, and the answer is false. "Selected" always means: the heading is selected in the grid.

[[nodiscard]] bool SelectAllColumns(HostTable colsIndex, modGrid& driver);
/// From the first selected heading up to, but not including, the next one; to the end when there is only one.
[[nodiscard]] bool SelectBlockColumns(HostTable colsIndex, modGrid& driver);
[[nodiscard]] bool DeselectAllColumns(HostTable colsIndex, modGrid& driver);
[[nodiscard]] bool HideColumn(HostTable colsIndex, modGrid& driver);
[[nodiscard]] bool ShowColumn(HostTable colsIndex, modGrid& driver);
/// Those with these keys, selected or not.
[[nodiscard]] bool ShowColumn(HostTable colsIndex, modGrid& driver, const std::vector<std::string>& keys);

[[nodiscard]] bool SelectAllRows(HostTable lineIndex, modGrid& driver);
[[nodiscard]] bool SelectBlockRows(HostTable lineIndex, modGrid& driver);
[[nodiscard]] bool DeselectAllRows(HostTable lineIndex, modGrid& driver);
[[nodiscard]] bool HideRow(HostTable lineIndex, modGrid& driver);
[[nodiscard]] bool ShowRow(HostTable lineIndex, modGrid& driver);
[[nodiscard]] bool ShowRow(HostTable lineIndex, modGrid& driver, const std::vector<std::string>& keys);

/// Which columns or rows a reset is for.
enum class ResetScope { All, Selected };

/// The sizes of a reset, whatever the sizes were before.
inline constexpr std::int16_t ResetColumnWidth = 80;
inline constexpr std::int16_t ResetRowHeight = 22;

[[nodiscard]] bool ColWidthReset(HostTable colsIndex, modGrid& driver, ResetScope scope);
[[nodiscard]] bool RowHeightReset(HostTable lineIndex, modGrid& driver, ResetScope scope);

/// Gives the selected rows the colour that the table has for them; a locked line goes on looking locked.
[[nodiscard]] bool RowBgColor(HostTable lineIndex, modGrid& driver);
[[nodiscard]] bool RowFgColor(HostTable lineIndex, modGrid& driver);

/// Selects the headings that the table marks and no others, without an event or an entry. Leaves the selection as it is
/// where the table has no marks to read.
void SelectMarkedHeadings(const HostTable& table, const IndexAxis& axis, GridControl& grid) noexcept;

/// Writes every mark of both tables afresh from the grid's selection.
void MirrorSelection(HostTable colsIndex, HostTable lineIndex, const modGrid& driver);

}  // namespace planview
