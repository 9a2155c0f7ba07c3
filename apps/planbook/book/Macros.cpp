// SPDX-License-Identifier: MIT
#include "book/Macros.h"

#include <algorithm>
#include <set>

#include "book/LineCaption.h"

namespace planbook {

using planview::MemoryTable;

namespace {

constexpr const char* MacroType = "M_MAKRO";
constexpr const char* LineType = "M_TABLINE";
constexpr const char* RecordingType = "M_RECORD";

}  // namespace

std::vector<MacroEntry> MacrosOf(const Book& book) {
    const MemoryTable& tree = book[BookTable::MacroTree];
    std::vector<MacroEntry> macros;
    for (std::int32_t row = 1; row <= tree.RowCount(); ++row) {
        const std::string type = tree.Value(row, "NODETYPE").AsText();
        if (type == MacroType || type == RecordingType) {
            macros.push_back(
                {tree.Value(row, "NODEKEY").AsText(), tree.Value(row, "NODETEXT").AsText(), type == RecordingType});
        }
    }
    return macros;
}

std::optional<MacroEntry> FindMacro(const Book& book, const std::string& name) {
    std::optional<MacroEntry> found;
    for (MacroEntry& macro : MacrosOf(book)) {
        if (macro.name == name) {
            if (found) {
                return std::nullopt;
            }
            found = std::move(macro);
        }
    }
    return found;
}

bool IsFolder(const Book& book, const std::string& key) {
    const MemoryTable& tree = book[BookTable::MacroTree];
    for (std::int32_t row = 1; row <= tree.RowCount(); ++row) {
        if (tree.Value(row, "NODEKEY").AsText() == key) {
            return tree.Value(row, "NODETYPE").AsText().empty();
        }
    }
    return true;
}

bool IsForSelectedLine(const Book& book, const MacroEntry& macro) {
    constexpr std::int32_t Child = 4;
    const MemoryTable& tree = book[BookTable::MacroTree];
    std::set<std::string> inside{macro.key};
    // Parents come before their children, but for roots.
    for (std::int32_t row = 1; row <= tree.RowCount(); ++row) {
        const std::string reference = tree.Value(row, "NODEREF").AsText();
        // Beside the macro is not in it.
        const bool isIn =
            reference == macro.key ? tree.Value(row, "RELATION").AsInt32() == Child : inside.contains(reference);
        if (!isIn) {
            continue;
        }
        inside.insert(tree.Value(row, "NODEKEY").AsText());
        if (tree.Value(row, "NODETYPE").AsText() == LineType && tree.Value(row, "NODEVALUE").AsText() == "SELECTED") {
            return true;
        }
    }
    return false;
}

std::string FreeRecordingName(const Book& book) {
    const std::vector<MacroEntry> macros = MacrosOf(book);
    for (int number = 1;; ++number) {
        const std::string name = "Recording " + std::to_string(number);
        if (std::none_of(macros.begin(), macros.end(), [&](const MacroEntry& macro) { return macro.name == name; })) {
            return name;
        }
    }
}

std::string RecordingsNode(const Book& book) {
    const MemoryTable& tree = book[BookTable::MacroTree];
    for (std::int32_t row = 1; row <= tree.RowCount(); ++row) {
        if (tree.Value(row, "NODEKEY").AsText() == RecordingsKey) {
            return RecordingsKey;
        }
    }
    return {};
}

std::string LineKeyOf(const Book& book, const std::string& caption) {
    const MemoryTable& lines = book[BookTable::LineIndex];
    std::string key;
    for (std::int32_t row = 1; row <= lines.RowCount(); ++row) {
        if (LineCaption(lines, row) == caption) {
            if (!key.empty()) {
                return {};
            }
            key = lines.Value(row, "GRID_ID").AsText();
        }
    }
    return key;
}

std::vector<std::string> LineCaptions(const Book& book) {
    const MemoryTable& lines = book[BookTable::LineIndex];
    std::vector<std::string> captions;
    for (std::int32_t row = 1; row <= lines.RowCount(); ++row) {
        captions.push_back(LineCaption(lines, row));
    }
    return captions;
}

}  // namespace planbook
