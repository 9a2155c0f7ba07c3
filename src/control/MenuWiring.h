// SPDX-License-Identifier: MIT
#pragma once

#include "menus/MenuState.h"

namespace planview {

struct ControlContext;

/// Gives each command of the menus that a part of this control can carry out its operation. The entries of all others
/// stay disabled.
void BindMenuCommands(ControlContext& context);

/// What is true of the control now, for the menu that opens at the clicked place.
[[nodiscard]] MenuState MenuStateOf(const ControlContext& context, const CellKey& clicked);

}  // namespace planview
