// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <planview/MemoryTable.h>
#include <planview/PlanView.h>

#include "automation/TableSlots.h"

namespace planview::test {

using TableRef = std::shared_ptr<MemoryTable>;
using FieldValues = std::initializer_list<std::pair<const char*, Variant>>;

/// Appends a row with these fields; those not named stay Empty.
std::int32_t AddRow(MemoryTable& table, FieldValues values);

/// The seventeen tables with all their fields and no rows but one in GRID_ATTR.
struct Tables {
    Tables();
    /// Hands all of them to the control.
    void GiveTo(PlanView& control) const;
    /// The same to the inside of one.
    void GiveTo(TableSlots& slots) const;

    TableRef gridAttr;
    TableRef colsIndex;
    TableRef lineIndex;
    TableRef tab;
    TableRef tabOld;
    TableRef fixedCols;
    TableRef fixedLines;
    TableRef fixedTab;
    TableRef cellAttr;
    TableRef gridTree;
    TableRef macroTree;
    TableRef texts;
    TableRef colMenu;
    TableRef rowMenu;
    TableRef gridMenu;
    TableRef cellMenu;
    TableRef macroRec;

    void AddColumn(int position, const char* period, FieldValues more = {}) const;
    void AddLine(int position, const char* label, FieldValues more = {}) const;
    void AddValue(int line, int column, Variant value) const;
};

}  // namespace planview::test
