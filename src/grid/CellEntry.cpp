// SPDX-License-Identifier: MIT
#include "grid/CellEntry.h"

#include "automation/Numbers.h"

namespace planview {

namespace {

/// What texts that go to no cell say, too: those beyond the edge.
void AddEvidence(const ValueBlock& block, MarkEvidence& evidence) {
    for (const std::vector<Variant>& line : block) {
        for (const Variant& value : line) {
            const std::string* text = value.TextIf();
            if (const std::optional<EnteredNumber> read = text ? ReadEntered(*text, nullptr) : std::nullopt) {
                evidence.Add(*read);
            }
        }
    }
}

}  // namespace

std::optional<EnteredNumber> ReadEntry(const GridControl& grid, Cell cell, std::string_view text) {
    const CellLook look = grid.Look(cell);
    const bool takesNumbers = look.format || IsPlanningCell({grid.Column(cell.column).key, grid.Row(cell.row).key});
    return look.textLine || !takesNumbers ? std::nullopt : ReadEntered(text, look.format);
}

std::string EntryText(const GridControl& grid, Cell cell, const std::string& text) {
    if (const std::optional<EnteredNumber> read = ReadEntry(grid, cell, text)) {
        return TableText(text, read->number);
    }
    return !text.empty() && text == grid.DisplayText(cell) ? grid.Contents(cell) : text;
}

Refusal RefusalOfEntry(const GridControl& grid, Cell cell, const std::string& text) {
    return RefusalOf(grid, cell, EntryText(grid, cell, text));
}

std::vector<GuessedEntry> ReadEntries(const GridControl& grid, const ValueBlock& block, std::span<NewValue> values) {
    struct Open {
        NewValue* value;
        EnteredNumber read;
    };
    std::vector<Open> open;
    MarkEvidence evidence;
    for (NewValue& next : values) {
        const std::string* text = next.value.TextIf();
        if (!text) {
            next.value = next.value.IsEmpty() ? std::string() : NumberText(next.value.AsDouble(), GridDecimalMark);
        } else if (const std::optional<EnteredNumber> read = ReadEntry(grid, next.cell, *text); !read) {
            next.value = EntryText(grid, next.cell, *text);
        } else if (read->other) {
            open.push_back({&next, *read});
        } else {
            evidence.Add(*read);
            next.value = TableText(*text, read->number);
        }
    }
    if (!open.empty()) {
        AddEvidence(block, evidence);
    }
    std::vector<GuessedEntry> guesses;
    for (Open& entry : open) {
        evidence.Decide(entry.read);
        NewValue& next = *entry.value;
        next.value = TableText(*next.value.TextIf(), entry.read.number);
        if (entry.read.IsGuess()) {
            guesses.push_back({grid.KeyOf(next.cell), entry.read.number, *entry.read.other});
        }
    }
    return guesses;
}

}  // namespace planview
