// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "automation/HostTable.h"
#include "automation/MemberNumber.h"
#include "grid/modGrid.h"

/// Every change of the chart goes through one of these procedures: each makes one change on the chart control,
/// late-bound by the names of its object model, and then writes one trace entry.
///
/// Each has an error trap of its own: a failing call of the chart ends the procedure quietly and leaves an entry with
/// the message "ERROR"; the caller goes on.
namespace planview::modChart {

// --- Simple settings ------------------------------------------------------------------------------------------------

/// The chart is not painted until redraw is switched on again.
void Redraw(const ObjectRef& chart, bool flag) noexcept;
void AllowContextMenus(const ObjectRef& chart, bool flag) noexcept;
void AllowDialogs(const ObjectRef& chart, bool flag) noexcept;
void AllowSelection(const ObjectRef& chart, bool flag) noexcept;
void AllowValueChange(const ObjectRef& chart, bool flag) noexcept;
void HasLegend(const ObjectRef& chart, bool flag) noexcept;
void LegendPosition(const ObjectRef& chart, std::int16_t code) noexcept;
void MinValue(const ObjectRef& chart, double value) noexcept;
void MaxValue(const ObjectRef& chart, double value) noexcept;
void XaxisOrientation(const ObjectRef& chart, std::int16_t code) noexcept;
void LabelX(const ObjectRef& chart, bool flag) noexcept;
void LabelY(const ObjectRef& chart, bool flag) noexcept;
void XScrollBar(const ObjectRef& chart, bool flag) noexcept;
void AutoArrange(const ObjectRef& chart) noexcept;
void DeleteContents(const ObjectRef& chart) noexcept;

// --- Settings with rules of their own -------------------------------------------------------------------------------

/// `dataRows` says where the series stand: 1 in the data sheet's columns.
void CreateDataRows(const ObjectRef& chart, std::int16_t categories, std::int16_t series,
                    std::int16_t dataRows) noexcept;
/// One type for the whole chart; every series keeps its colour and loses its gradient.
void ChartType(const ObjectRef& chart, std::int16_t code) noexcept;
void ChartTitle(const ObjectRef& chart, std::string_view text) noexcept;
/// Title and legend share the font. An empty name changes nothing and leaves no entry.
void LegendFont(const ObjectRef& chart, std::string_view name) noexcept;
void AutoScale(const ObjectRef& chart, bool minimumIsAuto, bool maximumIsAuto) noexcept;
/// The value range and the optimum are shown for values above zero only.
void MinRange(const ObjectRef& chart, double value) noexcept;
void MaxRange(const ObjectRef& chart, double value) noexcept;
void Optimum(const ObjectRef& chart, double value) noexcept;
/// Shows one category more than `count`, from the first one on.
void Caterogies(const ObjectRef& chart, std::int16_t count) noexcept;
/// Nothing but an entry when the flag is false.
void StackView(const ObjectRef& chart, bool flag) noexcept;
void StackView100(const ObjectRef& chart, bool flag) noexcept;
/// `color` is an index into the chart's palette; a negative one changes nothing and leaves no entry.
void AreaBgColor(const ObjectRef& chart, std::int16_t color) noexcept;
void PlotBgColor(const ObjectRef& chart, std::int16_t color) noexcept;
void LegendBgColor(const ObjectRef& chart, std::int16_t color) noexcept;
void LegendBorderColor(const ObjectRef& chart, std::int16_t color) noexcept;
/// The type of one series (from 1), which keeps its colour.
void SeriesCollection(const ObjectRef& chart, std::int16_t id, std::int16_t code) noexcept;

// --- Data sheet -----------------------------------------------------------------------------------------------------
// `column` is the number of a category, `row` that of a series, both from 1; the captions stand before them.

/// The chart's data sheet, held while it is filled. A null sheet is the error of whoever writes into it.
class DataSheet {
public:
    explicit DataSheet(ObjectRef sheet) noexcept : sheet_(std::move(sheet)) {}
    /// "Cells"(row, column)."Value" = value; throws what the sheet throws.
    void Put(std::int16_t row, std::int16_t column, const Variant& value);

private:
    ObjectRef sheet_;
    MemberNumber cells_{"Cells"};
    MemberNumber value_{"Value"};
};

void CellTextY(DataSheet& dataSheet, std::int16_t column, std::string_view text) noexcept;
void CellTextX(DataSheet& dataSheet, std::int16_t row, std::string_view text) noexcept;
void CellValue(DataSheet& dataSheet, std::int16_t column, std::int16_t row, double value) noexcept;

// --- Passes over the index tables -----------------------------------------------------------------------------------
// A row whose field is missing counts as not equal.

/// How many visible rows of the table are marked for the chart.
[[nodiscard]] std::int16_t GetColumns(HostTable colsIndex) noexcept;
[[nodiscard]] std::int16_t GetLines(HostTable lineIndex) noexcept;
/// Marks all visible columns and returns how many.
std::int16_t SetAllColumns(HostTable colsIndex) noexcept;
/// Marks all visible lines that are neither help nor text lines and returns how many.
std::int16_t SetAllLines(HostTable lineIndex) noexcept;
/// Takes every mark back but those of the sales line "S" and the forecast line "F"; always 2, for these two.
std::int16_t ResetAllLines(HostTable lineIndex) noexcept;
/// Turns the types 21 and 22 into 23.
void ResetTypes(HostTable lineIndex) noexcept;

// --- Trend lines ----------------------------------------------------------------------------------------------------

/// Nothing when the series has none.
[[nodiscard]] ObjectRef GetTrendline(const ObjectRef& chart, std::int16_t index) noexcept;
ObjectRef AddTrendline(const ObjectRef& chart, std::int16_t index) noexcept;
/// Gives the first selected line that is in the chart a trend line, or its trend line another kind: 1 logarithmic,
/// 2 power, 3 exponential, 4 moving average, any other linear. Nothing where no line qualifies.
ObjectRef TrendlineAdd(const ObjectRef& chart, const modGrid& driver, HostTable lineIndex, std::int16_t kind) noexcept;
/// Deletes it and lets the reference go.
void TrendlineDelete(ObjectRef& trendline) noexcept;
/// Whether there is a line; changes nothing.
[[nodiscard]] bool CheckSetSales(std::int16_t count) noexcept;
[[nodiscard]] bool CheckSetForecast(std::int16_t count) noexcept;

}  // namespace planview::modChart
