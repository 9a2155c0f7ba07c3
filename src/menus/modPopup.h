// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Platform.h>

#include "commands/CommandSituation.h"
#include "grid/ColorQuestion.h"
#include "menus/UserMenu.h"
#include "menus/frmMenu.h"

/// Enabling and checking of menu entries, and the display of a popup. A disabled entry cannot be chosen.
namespace planview::modPopup {

/// Gives each entry of the popup the state that its command has now. Those that readers of the trace look for leave a
/// trace entry with it.
void Update(frmMenu& menu, MainMenu which, const CommandSituation& now);

/// Shows the popup and waits. The menu's pending command is afterwards that of the chosen entry, empty when none was
/// chosen. The popups of the grid get the host's entries under a separator; without `user` there are none.
void Show(Popups& popups, frmMenu& menu, MainMenu which, const UserMenu* user, PopupPlace place);

/// The same for the colours. The present one is marked; the view's own colour stands before them as an entry of its
/// own, which stands for the colour of the palette that means it.
void ShowColors(Popups& popups, frmMenu& menu, const ColorQuestion& question, PopupPlace place);

}  // namespace planview::modPopup
