// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "commands/CommandCall.h"
#include "commands/CommandParts.h"
#include "commands/CommandSituation.h"

/// What the mouse does to headings, for those who work with the keyboard: always as the screen shows it, so that in the
/// switched table left and right are about rows.
namespace planview::commands {

enum class ScreenSide : std::uint8_t { Left, Right, Up, Down };

/// Moves the selected columns or rows, or those of the current cell, by one place that can be seen.
void MoveTracks(CommandParts& on, CommandCall& call, ScreenSide side);
/// Makes them wider (Right), narrower (Left), higher (Down) or lower (Up) by a few pixels.
void ResizeTracks(CommandParts& on, CommandCall& call, ScreenSide side);

template <ScreenSide Side>
void Move(CommandParts& on, CommandCall& call) {
    MoveTracks(on, call, Side);
}
template <ScreenSide Side>
void Resize(CommandParts& on, CommandCall& call) {
    ResizeTracks(on, call, Side);
}

/// From now on, or no longer, keys go about without taking the selection away.
void AddToSelection(CommandParts& on, CommandCall& call);
/// As a click on the label of the current row does in the forecast view.
void ChooseLine(CommandParts& on, CommandCall& call);
/// Shows the whole text of the current cell, and its tooltip.
void TellAboutCell(CommandParts& on, CommandCall& call);

[[nodiscard]] std::string CannotMove(const CommandSituation& now, ScreenSide side);
template <ScreenSide Side>
[[nodiscard]] std::string NothingToMove(const CommandSituation& now) {
    return CannotMove(now, Side);
}
[[nodiscard]] std::string NothingToResize(const CommandSituation& now);
[[nodiscard]] std::string NoLineToChoose(const CommandSituation& now);

}  // namespace planview::commands
