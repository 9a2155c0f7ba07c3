#include "chart/ChartMarks.h"

#include "automation/CheckedInt.h"

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

std::int16_t CountLines(const HostTable& lineIndex, std::string_view mark) {
    std::int16_t count = 0;
    ForEachIndexRow(lineIndex, [&](HostTable::Row row) {
        if (FieldIs(lineIndex, row, ShowChart, mark)) {
            count = CheckedAdd(count, std::int16_t{1});
        }
    });
    return count;
}

}  // namespace planview
