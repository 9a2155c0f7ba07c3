// SPDX-License-Identifier: MIT
// The passes of modChart over the index tables, and its trend lines.

#include "automation/CheckedInt.h"
#include "automation/Late.h"
#include "chart/ChartMarks.h"
#include "chart/ChartRun.h"
#include "chart/modChart.h"
#include "components/chart/ChartTypes.h"

namespace planview::modChart {

namespace {

// The members of a trend line that are reached by number.
constexpr DispatchId TrendName = 5;
constexpr DispatchId TrendType = 8;
constexpr DispatchId TrendDelete = 12;

constexpr auto Line = static_cast<std::int16_t>(planview::ChartType::Line);

/// Counts the rows that `visit` answers true for, under the procedure's trap, with one entry at the end.
template <class Visit>
std::int16_t CountRows(std::string_view method, const HostTable& table, const Visit& visit) noexcept {
    std::int16_t count = 0;
    Run(
        method,
        [&] {
            ForEachIndexRow(table, [&](HostTable::Row row) {
                if (visit(row)) {
                    count = CheckedAdd(count, std::int16_t{1});
                }
            });
        },
        [&] { return TraceText("{count:", count, "}"); });
    return count;
}

template <class Visit>
std::int16_t MarkRows(std::string_view method, const HostTable& table, const Visit& visit) noexcept {
    return CountRows(method, table, [&](HostTable::Row row) {
        if (!visit(row)) {
            return false;
        }
        table.Put(row, ShowChart, InChart);
        return true;
    });
}

ObjectRef TrendlineOf(const ObjectRef& chart, std::int16_t index) {
    const Late trendlines = Late(chart).Get("Chart").Get("SeriesCollection", index).Get("Trendlines");
    if (trendlines.Get("Count").Value().AsInt16() == 0) {
        return nullptr;
    }
    return trendlines.Get("", std::int16_t{1}).Value().AsObject();
}

}  // namespace

std::int16_t GetColumns(HostTable colsIndex) noexcept {
    return CountRows("GetColumns", colsIndex, [&](HostTable::Row row) {
        return FieldIs(colsIndex, row, ShowChart, InChart) && !FieldIs(colsIndex, row, "COL_HIDDEN", "X");
    });
}

std::int16_t GetLines(HostTable lineIndex) noexcept {
    return CountRows("GetLines", lineIndex, [&](HostTable::Row row) {
        return FieldIs(lineIndex, row, ShowChart, InChart) && !FieldIs(lineIndex, row, "ROW_HIDDEN", "X");
    });
}

std::int16_t SetAllColumns(HostTable colsIndex) noexcept {
    return MarkRows("SetAllColumns", colsIndex,
                    [&](HostTable::Row row) { return !FieldIs(colsIndex, row, "COL_HIDDEN", "X"); });
}

std::int16_t SetAllLines(HostTable lineIndex) noexcept {
    return MarkRows("SetAllLines", lineIndex, [&](HostTable::Row row) {
        return !FieldIs(lineIndex, row, "ROW_HIDDEN", "X") && !FieldIs(lineIndex, row, "LINETYPE", "H") &&
               !FieldIs(lineIndex, row, "ROW_TEXT", "X");
    });
}

std::int16_t ResetAllLines(HostTable lineIndex) noexcept {
    constexpr std::int16_t SalesAndForecast = 2;
    ErrorTrap(Label, "ResetAllLines", [&] {
        ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
            if (FieldIs(lineIndex, row, ShowChart, SalesLine) || FieldIs(lineIndex, row, ShowChart, ForecastLine)) {
                return;
            }
            lineIndex.Put(row, ShowChart, "");
            if (modPlan::TraceEnabled) {
                modPlan::TraceWrite(Label, "", "ResetAllLines", TraceText("{count:", row, "}"));
            }
        });
    });
    return SalesAndForecast;
}

void ResetTypes(HostTable lineIndex) noexcept {
    ErrorTrap(Label, "ResetTypes", [&] {
        ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
            if (FieldIs(lineIndex, row, "CHART_TYPE", "21") || FieldIs(lineIndex, row, "CHART_TYPE", "22")) {
                lineIndex.Put(row, "CHART_TYPE", Line);
            }
            if (modPlan::TraceEnabled) {
                modPlan::TraceWrite(Label, "", "ResetTypes", TraceText("{row:", lineIndex.Text(row, "GRID_ID"), "}"));
            }
        });
    });
}

ObjectRef GetTrendline(const ObjectRef& chart, std::int16_t index) noexcept {
    ObjectRef trendline;
    Run(
        "GetTrendline", [&] { trendline = TrendlineOf(chart, index); },
        [&] { return TraceText("{index:", index, "}"); });
    return trendline;
}

ObjectRef AddTrendline(const ObjectRef& chart, std::int16_t index) noexcept {
    ObjectRef trendline;
    Run(
        "AddTrendline",
        [&] {
            const Late series = Late(chart).Get("Chart").Get("SeriesCollection", index);
            trendline = series.Get("Trendlines").Call("Add").Value().AsObject();
        },
        [&] { return TraceText("{index:", index, "}"); });
    return trendline;
}

ObjectRef TrendlineAdd(const ObjectRef& chart, const modGrid& driver, HostTable lineIndex, std::int16_t kind) noexcept {
    ObjectRef trendline;
    ErrorTrap(Label, "TrendlineAdd", [&] {
        const HostTable::Row count = lineIndex.RowCount();
        HostTable::Row row = 1;
        std::int16_t index = 0;
        for (; row <= count; row = CheckedAdd(row, HostTable::Row{1})) {
            const std::string key = lineIndex.Text(row, "GRID_ID");
            index = CodeIn(lineIndex, row, "CHART_ID");
            if (driver.HeadingSelected({{}, key}) && index != 0) {
                break;
            }
        }
        // With no such line the row is one past the last, and reading it is the error that ends this.
        const std::string key = lineIndex.Text(row, "GRID_ID");
        ObjectRef found = GetTrendline(chart, index);
        found = found ? GetTrendline(chart, index) : AddTrendline(chart, index);
        if (!found) {
            throw AutomationError(AutomationErrorCode::ObjectNotSet, "The chart gave no trend line");
        }
        constexpr std::int16_t LastKind = 4;
        const std::int32_t type = kind >= 1 && kind <= LastKind ? kind : 0;
        found->Put(TrendType, {}, Variant(type));
        found->Put(TrendName, {}, Variant(key));
        if (modPlan::TraceEnabled) {
            modPlan::TraceWrite(Label, "", "TrendlineAdd", TraceText("{type:", kind, " - index:", index, "}"));
        }
        trendline = std::move(found);
    });
    return trendline;
}

void TrendlineDelete(ObjectRef& trendline) noexcept {
    ErrorTrap(Label, "TrendlineDelete", [&] {
        if (!trendline) {
            throw AutomationError(AutomationErrorCode::ObjectNotSet, "There is no trend line");
        }
        const std::string name = trendline->Get(TrendName, {}).AsText();
        trendline->Call(TrendDelete, {});
        if (modPlan::TraceEnabled) {
            modPlan::TraceWrite(Label, "", "TrendlineDelete", TraceText("{trendline:", name, "}"));
        }
        trendline.reset();
    });
}

bool CheckSetSales(std::int16_t count) noexcept {
    Run(
        "CheckSetSales", [] {}, [] { return TraceText("{}"); });
    return count > 0;
}

bool CheckSetForecast(std::int16_t count) noexcept {
    Run(
        "CheckSetForecast", [] {}, [] { return TraceText("{}"); });
    return count > 0;
}

}  // namespace planview::modChart
