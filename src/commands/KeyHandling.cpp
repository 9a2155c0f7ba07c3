// SPDX-License-Identifier: MIT
#include "commands/KeyHandling.h"

#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

/// The trace's own keys: they stand in no menu, and the second does nothing before the first.
constexpr KeyStroke ArmTrace = ReadKeyStroke("Ctrl+Alt+D");
constexpr KeyStroke ShowTrace = ReadKeyStroke("Ctrl+D");

constexpr std::int16_t CharacterReturn = 13;

}  // namespace

void KeyHandling::KeepCurrentKeys() {
    if (const std::optional<Cell> cell = parts_.grid.CurrentCell()) {
        const CellKey key = parts_.grid.KeyOf(*cell);
        parts_.keys.column = key.column;
        parts_.keys.row = key.row;
    }
}

void KeyHandling::TraceKey(KeyStroke key) const {
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", "GridKeyDown",
                   TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row, " - modifier:", key.shift,
                             " - key:", key.code, "}"));
    }
}

bool KeyHandling::GridKeyDown(std::int16_t shift, std::int16_t keyCode) {
    if (parts_.busy) {
        return false;
    }
    KeepCurrentKeys();
    const KeyStroke key{shift, keyCode};
    if (key == ArmTrace) {
        TraceKey(key);
        traceArmed_ = true;
        return true;
    }
    if (key == ShowTrace) {
        TraceKey(key);
        if (traceArmed_) {
            parts_.runner.Run(Command::ShowTrace);
        }
        return true;
    }
    const CommandRow* row = FindCommand(key, KeyScope::Table);
    if (row) {
        parts_.runner.Run(row->command);
    }
    return row != nullptr;
}

void KeyHandling::GridKeyPress(std::int16_t character) {
    if (parts_.busy) {
        return;
    }
    KeepCurrentKeys();
    if (character == CharacterReturn) {
        parts_.chartStep();
        parts_.hostUpdate.ReturnKeyPressed();
    }
}

void KeyHandling::GridStayCell() {
    KeepCurrentKeys();
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", "GridStayCell",
                   TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row, "}"));
    }
}

}  // namespace planview
