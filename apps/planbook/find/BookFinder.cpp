// SPDX-License-Identifier: MIT
#include "find/BookFinder.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "book/CellValue.h"
#include "book/LineCaption.h"
#include "find/FindText.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

bool IsSet(const MemoryTable& table, std::int32_t row, std::string_view field) {
    return table.Value(row, field) == Variant("X");
}

/// The rows of an index table that are on screen, by the number that TAB uses.
class ShownRows {
public:
    ShownRows(const MemoryTable& table, std::string_view numberField, std::string_view hiddenField) {
        for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
            const std::optional<double> number = NumberOf(table.Value(row, numberField));
            if (number && !IsSet(table, row, hiddenField)) {
                rows_.push_back(row);
                byNumber_.emplace(static_cast<std::int32_t>(*number), row);
            }
        }
    }

    [[nodiscard]] const std::vector<std::int32_t>& Rows() const noexcept { return rows_; }
    /// 0 when it is not shown.
    [[nodiscard]] std::int32_t RowOf(const Variant& number) const {
        const std::optional<double> value = NumberOf(number);
        const auto found = value ? byNumber_.find(static_cast<std::int32_t>(*value)) : byNumber_.end();
        return found == byNumber_.end() ? 0 : found->second;
    }

private:
    std::vector<std::int32_t> rows_;
    std::unordered_map<std::int32_t, std::int32_t> byNumber_;
};

ShownRows ShownLines(const Book& book) {
    return {book[BookTable::LineIndex], "LINE", "ROW_HIDDEN"};
}

ShownRows ShownPeriods(const Book& book) {
    return {book[BookTable::ColsIndex], "COLUMN", "COL_HIDDEN"};
}

bool IsInValue(const FindText& wanted, const Variant& value, std::string_view format) {
    const std::optional<double> number = NumberOf(value);
    return number ? wanted.IsIn(*number, format) : !value.IsEmpty() && wanted.IsIn(ToQt(value.AsText()));
}

}  // namespace

std::vector<FoundPlace> FindInBook(const Book& book, const QString& text) {
    const FindText wanted(text);
    std::vector<FoundPlace> places;
    if (wanted.IsEmpty()) {
        return places;
    }
    const MemoryTable& lineIndex = book[BookTable::LineIndex];
    const MemoryTable& colsIndex = book[BookTable::ColsIndex];
    const MemoryTable& tab = book[BookTable::Tab];
    const ShownRows lines = ShownLines(book);
    const ShownRows periods = ShownPeriods(book);
    for (const std::int32_t period : periods.Rows()) {
        if (wanted.IsIn(ToQt(colsIndex.Value(period, "PERDY").AsText()))) {
            places.push_back({0, period});
        }
    }
    for (const std::int32_t line : lines.Rows()) {
        if (wanted.IsIn(ToQt(LineCaption(lineIndex, line)))) {
            places.push_back({line, 0});
        }
    }
    for (std::int32_t row = 1; row <= tab.RowCount(); ++row) {
        const FoundPlace place{lines.RowOf(tab.Value(row, "Z")), periods.RowOf(tab.Value(row, "C"))};
        if (place.line != 0 && place.period != 0 &&
            IsInValue(wanted, tab.Value(row, "V"), lineIndex.Value(place.line, "ROW_FORMAT").AsText())) {
            places.push_back(place);
        }
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

CellKeys KeysOf(const Book& book, FoundPlace place) {
    const auto key = [](const MemoryTable& table, std::int32_t row, const ShownRows& shown) {
        const std::int32_t chosen = row != 0 || shown.Rows().empty() ? row : shown.Rows().front();
        return chosen == 0 ? QString() : ToQt(table.Value(chosen, "GRID_ID").AsText());
    };
    return {key(book[BookTable::ColsIndex], place.period, ShownPeriods(book)),
            key(book[BookTable::LineIndex], place.line, ShownLines(book))};
}

FoundPlace PlaceOf(const Book& book, const CellKeys& keys) {
    const auto rowOf = [](const MemoryTable& table, const std::string& key) {
        std::int32_t row = table.RowCount();
        while (row > 0 && table.Value(row, "GRID_ID").AsText() != key) {
            --row;
        }
        return row;
    };
    return {rowOf(book[BookTable::LineIndex], keys.row.toStdString()),
            rowOf(book[BookTable::ColsIndex], keys.column.toStdString())};
}

}  // namespace planbook
