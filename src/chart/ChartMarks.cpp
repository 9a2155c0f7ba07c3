// SPDX-License-Identifier: MIT
#include "chart/ChartMarks.h"

namespace planview {

namespace {

/// What `read` answers; `missing` where the table does not have the field.
template <class Result, class Read>
Result UnlessMissing(Result missing, const Read& read) {
    try {
        return read();
    } catch (const AutomationError& error) {
        if (error.Code() != AutomationErrorCode::UnknownMember) {
            throw;
        }
        return missing;
    }
}

}  // namespace

bool FieldIs(const HostTable& table, HostTable::Row row, std::string_view field, std::string_view text) {
    return UnlessMissing(false, [&] { return table.Text(row, field) == text; });
}

std::int16_t CodeIn(const HostTable& table, HostTable::Row row, std::string_view field) {
    return UnlessMissing(std::int16_t{0}, [&] {
        const Variant value = table.Value(row, field);
        const std::string* text = value.TextIf();
        return text && text->empty() ? std::int16_t{0} : value.AsInt16();
    });
}

std::optional<ChartType> ChartTypeIn(const HostTable& lineIndex, HostTable::Row row) {
    return UnlessMissing(std::optional<ChartType>(), [&]() -> std::optional<ChartType> {
        const Variant value = lineIndex.Value(row, "CHART_TYPE");
        const std::string* text = value.TextIf();
        const std::int16_t code = text && text->empty() ? std::int16_t{0} : value.AsInt16();
        return IsChartType(code) ? std::optional(static_cast<ChartType>(code)) : std::nullopt;
    });
}

HostTable::Row VisibleLine(const HostTable& lineIndex, std::string_view mark) {
    const int count = lineIndex.RowCount();
    for (int row = 1; row <= count; ++row) {
        const auto at = static_cast<HostTable::Row>(row);
        if (FieldIs(lineIndex, at, ShowChart, mark) && !FieldIs(lineIndex, at, "ROW_HIDDEN", "X")) {
            return at;
        }
    }
    return 0;
}

}  // namespace planview
