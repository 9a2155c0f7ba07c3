// SPDX-License-Identifier: MIT
#include "grid/KeyHandling.h"

#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::int16_t NoShift = 0;
constexpr std::int16_t KeyDelete = 46;
constexpr std::int16_t KeyC = 'C';
constexpr std::int16_t KeyD = 'D';
constexpr std::int16_t KeyV = 'V';
constexpr std::int16_t KeyX = 'X';
constexpr std::int16_t CharacterReturn = 13;

}  // namespace

void KeyHandling::KeepCurrentKeys() {
    if (const std::optional<Cell> cell = parts_.grid.CurrentCell()) {
        const CellKey key = parts_.grid.KeyOf(*cell);
        parts_.keys.column = key.column;
        parts_.keys.row = key.row;
    }
}

void KeyHandling::TraceKey(std::int16_t shift, std::int16_t keyCode) const {
    if (TraceEnabled) {
        TraceWrite("GRIDCTL", "", "GridKeyDown",
                   TraceText("{cid: ", parts_.keys.column, " - rid: ", parts_.keys.row, " - modifier:", shift,
                             " - key:", keyCode, "}"));
    }
}

bool KeyHandling::GridKeyDown(std::int16_t shift, std::int16_t keyCode) {
    if (parts_.busy) {
        return false;
    }
    KeepCurrentKeys();
    if (shift == NoShift && keyCode == KeyDelete) {
        parts_.clipboard.DeleteCellContents();
    } else if (shift == Control && keyCode == KeyC) {
        parts_.clipboard.Copy();
    } else if (shift == Control && keyCode == KeyV) {
        parts_.clipboard.Paste();
    } else if (shift == Control && keyCode == KeyX) {
        parts_.clipboard.Cut();
    } else if (shift == Control && keyCode == KeyD) {
        TraceKey(shift, keyCode);
        if (traceArmed_) {
            parts_.showTrace();
        }
    } else if (shift == Control + Alt && keyCode == KeyD) {
        TraceKey(shift, keyCode);
        traceArmed_ = true;
    } else {
        return false;
    }
    return true;
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
