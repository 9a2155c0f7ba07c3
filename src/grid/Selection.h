// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "automation/HostTable.h"
#include "components/GridControl.h"

namespace planview {

/// Marking, hiding and resetting of whole columns (table COLS_INDEX) and rows (table LINE_INDEX).
///
/// Each operation walks its table from row 1, changes the grid with redraw off, writes the changed field back and
/// leaves one trace entry per changed row. A failure ends it with the same entry and "ERROR"; what it has written
/// stays. "Selected" always means: the header is selected in the grid.

void SelectAllColumns(HostTable colsIndex, GridControl& grid);
/// From the first selected header up to, but not including, the next one; to the end when there is only one.
void SelectBlockColumns(HostTable colsIndex, GridControl& grid);
void DeselectAllColumns(HostTable colsIndex, GridControl& grid);
void HideColumn(HostTable colsIndex, GridControl& grid);
void ShowColumn(HostTable colsIndex, GridControl& grid);
/// Those with these keys, selected or not.
void ShowColumn(HostTable colsIndex, GridControl& grid, const std::vector<std::string>& keys);

void SelectAllRows(HostTable lineIndex, GridControl& grid);
void SelectBlockRows(HostTable lineIndex, GridControl& grid);
void DeselectAllRows(HostTable lineIndex, GridControl& grid);
void HideRow(HostTable lineIndex, GridControl& grid);
void ShowRow(HostTable lineIndex, GridControl& grid);
void ShowRow(HostTable lineIndex, GridControl& grid, const std::vector<std::string>& keys);

/// Which columns or rows a reset is for.
enum class ResetScope { All, Selected };

/// The sizes of a reset, whatever the sizes were before.
inline constexpr std::int16_t ResetColumnWidth = 80;
inline constexpr std::int16_t ResetRowHeight = 22;

void ColWidthReset(HostTable colsIndex, GridControl& grid, ResetScope scope);
void RowHeightReset(HostTable lineIndex, GridControl& grid, ResetScope scope);

/// Gives the selected rows the colour that the table has for them.
void RowBgColor(HostTable lineIndex, GridControl& grid);
void RowFgColor(HostTable lineIndex, GridControl& grid);

/// Writes every mark of both tables afresh from the grid's selection.
void MirrorSelection(HostTable colsIndex, HostTable lineIndex, GridControl& grid);

}  // namespace planview
