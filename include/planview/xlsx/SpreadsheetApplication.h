// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Export.h>
#include <planview/Variant.h>

namespace planview {
class ObjectRegistry;
}

namespace planview::xlsx {

/// Makes a spreadsheet application of its own, without a window, whose workbooks are .xlsx files.
///
/// It is used late-bound; rows, columns and numbers of things count from 1. Its objects and their members:
///
/// - the application: "Application", "Version" ("8.0"), "Workbooks", "ActiveWindow" (Nothing without a workbook),
/// "Quit"
/// - "Workbooks": "Add", "Open"(file name), "Item"(number), "Count"
/// - a workbook: "Worksheets", "Worksheets"(name or number), "ActiveSheet", "Title", "Subject", "Saveas"(file name),
///   "Close"
/// - "Worksheets": "Item"(name or number), "Count"
/// - a worksheet: "Name", "Cells", "Cells"(row, column), "Columns"(number), "Rows"(number), "UsedRange" (around the
///   values), "Protect", "Unprotect", "PageSetup", "Visible" (-1 visible, 0 hidden, 2 hidden from the user's lists)
/// - a range: "Value" (the default), "Interior", "Locked", "NumberFormat", "Font", "Borders", "HorizontalAlignment",
///   "ColumnWidth" (characters), "Row", "Column", "Rows", "Columns", "Count", "MergeCells"
/// - "Font": "Bold", "Size" (points); "Interior": "ColorIndex"
/// - "Borders": "LineStyle", "ColorIndex", of all four edges of each cell
/// - "ActiveWindow": "SplitRow", "SplitColumn" (how many stand before the split), "FreezePanes"
/// - "PageSetup": "Orientation" (1 portrait, 2 landscape), "PrintTitleRows" ("$1:$1"), "PrintTitleColumns" ("$A:$A")
///
/// "ColorIndex" is 1 to 56, -4142 none, -4105 automatic (1 black, 2 white, 15 grey); "HorizontalAlignment" 1 general,
/// 2 left, 3 centre, 4 right; "LineStyle" 1 thin, 9 or -4119 double, -4142 none. File names are full paths in UTF-8;
/// late-bound calls have no named arguments here, so that the file name is the only one.
///
/// A number put as "Value" is a number in the file, a text stays a text whatever it looks like, Empty clears. What a
/// member of several cells answers is what its first cell has. While a sheet is protected, only values of cells that
/// are not locked can be put.
///
/// "Saveas" writes beside the file and renames: when it fails, an older file is whole. An opened workbook is read only
/// and answers values: of a formula the last one, of a cell that shows a date or a time its text ("2026-11-21",
/// "2026-11-21 18:00", "18:00"), of an error its text ("#DIV/0!").
///
/// What cannot be done is an AutomationError whose text is meant for the user: what, where, and what to do now.
[[nodiscard]] PLANVIEW_EXPORT ObjectRef MakeApplication();

/// Has the registry make one for each request for "Excel.Application".
PLANVIEW_EXPORT void Register(ObjectRegistry& registry);

}  // namespace planview::xlsx
