// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <compare>
#include <string>
#include <vector>

#include "book/Book.h"

namespace planbook {

/// Something that was found, and the planning cell that leads the user to it.
struct FoundPlace {
    /// Rows of LINE_INDEX and COLS_INDEX, from 1; 0 stands for a period's heading and a line's caption. Their order is
    /// the order in which places follow each other.
    std::int32_t line = 0;
    std::int32_t period = 0;
    friend auto operator<=>(const FoundPlace&, const FoundPlace&) = default;
};

struct CellKeys {
    QString column;
    QString row;
    friend bool operator==(const CellKeys&, const CellKeys&) = default;
};

/// The captions, periods and values that hold the text, in whatever case; hidden lines and periods are left out. A
/// number is found as it is kept and as it is shown, with the decimal mark "," or "." and with groups or without.
[[nodiscard]] std::vector<FoundPlace> FindInBook(const Book& book, const QString& text);

/// The keys of the cell that stands for the place: for a caption or a heading the first one that is not hidden. The
/// view must have built the book.
[[nodiscard]] CellKeys KeysOf(const Book& book, FoundPlace place);

/// Where a cell stands; 0 for what is no line or period.
[[nodiscard]] FoundPlace PlaceOf(const Book& book, const CellKeys& keys);

}  // namespace planbook
