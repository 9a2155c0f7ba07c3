// SPDX-License-Identifier: MIT
#include "xlsx/CellReference.h"

#include <algorithm>

namespace planview::xlsx {

namespace {

constexpr int LetterCount = 26;

/// Takes the letters of a column off the front; 0 where there are none or too many.
std::int32_t TakeColumn(std::string_view& text) noexcept {
    std::int32_t column = 0;
    while (!text.empty() && column <= MostColumns) {
        const char letter =
            text.front() >= 'a' && text.front() <= 'z' ? static_cast<char>(text.front() - 'a' + 'A') : text.front();
        if (letter < 'A' || letter > 'Z') {
            break;
        }
        column = column * LetterCount + (letter - 'A' + 1);
        text.remove_prefix(1);
    }
    return column > MostColumns ? 0 : column;
}

std::int32_t TakeRow(std::string_view& text) noexcept {
    std::int32_t row = 0;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9' && row <= MostRows) {
        row = row * 10 + (text.front() - '0');
        text.remove_prefix(1);
    }
    return row > MostRows ? 0 : row;
}

void SkipDollar(std::string_view& text) noexcept {
    if (text.starts_with('$')) {
        text.remove_prefix(1);
    }
}

/// Either may be missing and is 0 then.
std::optional<CellAddress> ParseCorner(std::string_view text) noexcept {
    CellAddress place;
    SkipDollar(text);
    const std::size_t before = text.size();
    place.column = TakeColumn(text);
    if (place.column == 0 && text.size() != before) {
        return std::nullopt;
    }
    SkipDollar(text);
    const bool hasRow = !text.empty();
    place.row = TakeRow(text);
    if (!text.empty() || (hasRow && place.row == 0) || (place.column == 0 && place.row == 0)) {
        return std::nullopt;
    }
    return place;
}

}  // namespace

std::optional<CellAddress> ParseCell(std::string_view text) noexcept {
    const std::optional<CellAddress> place = ParseCorner(text);
    return place && place->row > 0 && place->column > 0 ? place : std::nullopt;
}

std::optional<Area> ParseArea(std::string_view text) noexcept {
    const std::size_t colon = text.find(':');
    const auto first = ParseCorner(text.substr(0, colon));
    const auto last = colon == std::string_view::npos ? first : ParseCorner(text.substr(colon + 1));
    if (!first || !last || (first->row == 0) != (last->row == 0) || (first->column == 0) != (last->column == 0) ||
        (colon == std::string_view::npos && (first->row == 0 || first->column == 0))) {
        return std::nullopt;
    }
    Area area;
    if (first->row != 0) {
        area.firstRow = std::min(first->row, last->row);
        area.lastRow = std::max(first->row, last->row);
    }
    if (first->column != 0) {
        area.firstColumn = std::min(first->column, last->column);
        area.lastColumn = std::max(first->column, last->column);
    }
    return area;
}

std::string ColumnName(std::int32_t column) {
    std::string name;
    for (; column > 0; column = (column - 1) / LetterCount) {
        name.insert(name.begin(), static_cast<char>('A' + (column - 1) % LetterCount));
    }
    return name;
}

std::string CellName(std::int32_t row, std::int32_t column) {
    return ColumnName(column) + std::to_string(row);
}

}  // namespace planview::xlsx
