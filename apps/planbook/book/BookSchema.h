// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace planbook {

/// The tables of a book, in the order of BookSchema().
enum class BookTable : std::uint8_t {
    GridAttr,
    ColsIndex,
    LineIndex,
    Tab,
    TabOld,
    FixedCols,
    FixedLines,
    FixedTab,
    CellAttr,
    GridTree,
    MacroTree,
    Texts,
    ColMenu,
    RowMenu,
    GridMenu,
    CellMenu,
    MacroRec,
    Formulas
};

inline constexpr std::size_t BookTableCount = 18;

/// How a field is kept in the file. Text, Integer and Real are what the field normally holds; Any is kept exactly as
/// it was put, because the user may enter numbers and texts there.
enum class FieldType : std::uint8_t { Text, Integer, Real, Any };

struct FieldDescription {
    std::string_view name;
    FieldType type;
    std::int32_t since = 1;  ///< the book version that it came with
};

struct TableDescription {
    BookTable table;
    std::string_view name;
    std::span<const FieldDescription> fields;
    std::int32_t since = 1;  ///< the book version that it came with
};

/// Every table has this field beside its own: the row's number, from 1. It orders the rows and is the primary key.
inline constexpr std::string_view RowNumberField = "ROW_NO";

/// The control counts the rows of a table with a 16-bit number.
inline constexpr std::int32_t MaxTableRows = 32767;

/// "PlBk" in the file's header tells a book from other SQLite files.
inline constexpr std::int32_t BookApplicationId = 0x506C426B;
/// Goes up with every change of the schema. 2: the fields of macros and of their recording; 3: the order of moved
/// columns and rows; 4: FORMULAS.
inline constexpr std::int32_t BookVersion = 4;

[[nodiscard]] std::span<const TableDescription, BookTableCount> BookSchema() noexcept;
[[nodiscard]] const TableDescription& Describe(BookTable table) noexcept;

/// All tables, for what is done with each of them.
[[nodiscard]] std::span<const BookTable, BookTableCount> AllBookTables() noexcept;

}  // namespace planbook
