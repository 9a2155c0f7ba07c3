// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "automation/HostTable.h"
#include "components/chart/ChartTypes.h"

/// What the index tables say of the chart: `SHOW_CHART` of a row.
namespace planview {

inline constexpr std::string_view ShowChart = "SHOW_CHART";
/// In the chart.
inline constexpr std::string_view InChart = "X";
/// The two lines that the forecast view sets against each other.
inline constexpr std::string_view SalesLine = "S";
inline constexpr std::string_view ForecastLine = "F";

/// Whether the row's field holds this text; a field that the table does not have holds none.
[[nodiscard]] bool FieldIs(const HostTable& table, HostTable::Row row, std::string_view field, std::string_view text);

/// The number in a row's field; 0 where the field holds nothing or the table does not have it.
[[nodiscard]] std::int16_t CodeIn(const HostTable& table, HostTable::Row row, std::string_view field);

/// The type that a line has in `CHART_TYPE`; none for a code that means nothing, or where there is no such field.
[[nodiscard]] std::optional<ChartType> ChartTypeIn(const HostTable& lineIndex, HostTable::Row row);

/// Calls body(row) for each row of the table. The counter is a 16-bit number: Overflow behind row 32,767.
template <class Body>
void ForEachIndexRow(const HostTable& table, const Body& body) {
    const int count = table.RowCount();
    for (int row = 1; row <= count; ++row) {
        body(static_cast<HostTable::Row>(row));
    }
}

/// The first line with this mark that is not hidden; 0 for none.
[[nodiscard]] HostTable::Row VisibleLine(const HostTable& lineIndex, std::string_view mark);

}  // namespace planview
