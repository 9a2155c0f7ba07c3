// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <planview/Platform.h>

#include "menus/MenuState.h"
#include "menus/UserMenu.h"
#include "menus/frmMenu.h"

/// Enabling and checking of groups of menu entries, and the display of a popup. Each entry that a setter touches leaves
/// a trace entry with its new state. A disabled entry cannot be chosen.
namespace planview::modPopup {

// --- Entries of the grid as a whole

void MacroTree(frmMenu& menu, bool enabled, bool shown);
void Chart(frmMenu& menu, bool enabled, bool shown);
/// `flag` becomes the check mark: -1 checked, 0 not.
void Switch(frmMenu& menu, bool enabled, std::int16_t flag);
void Zoom(frmMenu& menu, bool enabled, bool zoomed);
void FillTestData(frmMenu& menu, bool enabled);
/// The entries of macro recording as a group. `possible` is false where macros cannot be recorded at all.
void MacroRecord(frmMenu& menu, bool possible, RecordState record, bool canUndo);
void Excel(frmMenu& menu, bool download, bool upload);
void Trace(frmMenu& menu, bool enabled, bool on);
void ShowTrace(frmMenu& menu, bool enabled);

// --- Entries of columns, rows and cells

struct ColumnEntries {
    bool hide = false;
    bool show = false;
    bool width = false;
};
void Columns(frmMenu& menu, const ColumnEntries& enabled);

struct RowEntries {
    bool hide = false;
    bool show = false;
    bool height = false;
    bool background = false;
    bool foreground = false;
};
void Rows(frmMenu& menu, const RowEntries& enabled);

struct CellEntries {
    bool cut = false;
    bool copy = false;
    bool paste = false;
};
void CellEdit(frmMenu& menu, const CellEntries& enabled);

// --- Entries of the chart

void ChartViews(frmMenu& menu, bool enabled, bool forecast);
/// `type` is the series' chart type code, which is checked.
void Series(frmMenu& menu, bool enabled, std::optional<std::int16_t> type);

// --- Entries of the macro tree

void Rename(frmMenu& menu, bool enabled);

struct MacroFunctionEntries {
    bool insert = false;
    bool add = false;
    bool nextLevel = false;
};
void MacroFunction(frmMenu& menu, const MacroFunctionEntries& enabled);

// --- Display

/// Shows the popup and waits. The menu's pending command is afterwards that of the chosen entry, empty when none was
/// chosen. The popups of the grid get the host's entries under a separator; without `user` there are none.
void Show(Popups& popups, frmMenu& menu, MainMenu which, const UserMenu* user, PopupPlace place);

}  // namespace planview::modPopup
