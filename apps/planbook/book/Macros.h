// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "book/Book.h"

namespace planbook {

/// The key of the folder for recordings in books that planbook makes.
inline constexpr const char* RecordingsKey = "RECORDED";

/// A macro or recording of a book.
struct MacroEntry {
    std::string key;   ///< `NODEKEY`
    std::string name;  ///< `NODETEXT`
    bool recorded = false;
};

/// The macros and recordings in the order of their rows.
[[nodiscard]] std::vector<MacroEntry> MacrosOf(const Book& book);

/// The only one of this name. No value when there is none or several.
[[nodiscard]] std::optional<MacroEntry> FindMacro(const Book& book, const std::string& name);

/// Whether the MACRO_TREE node with this key is no macro and stands in none.
[[nodiscard]] bool IsFolder(const Book& book, const std::string& key);

/// Whether it says "the selected line" anywhere.
[[nodiscard]] bool IsForSelectedLine(const Book& book, const MacroEntry& macro);

/// "Recording 1", or the first number that no macro has.
[[nodiscard]] std::string FreeRecordingName(const Book& book);

/// The node that recordings are kept below; empty in a book that has none for them.
[[nodiscard]] std::string RecordingsNode(const Book& book);

/// `GRID_ID` of the only line with this caption; empty when there is none or several.
[[nodiscard]] std::string LineKeyOf(const Book& book, const std::string& caption);
/// The captions of the lines, in their order.
[[nodiscard]] std::vector<std::string> LineCaptions(const Book& book);

}  // namespace planbook
