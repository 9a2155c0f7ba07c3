// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include <planview/Commands.h>
#include <planview/Events.h>

namespace planview {

/// The popups, by the index of their top entry. Hosts know the first four by PopupOwner.
enum class MainMenu : std::int16_t {
    Grid = static_cast<std::int16_t>(PopupOwner::Grid),
    Column = static_cast<std::int16_t>(PopupOwner::Column),
    Row = static_cast<std::int16_t>(PopupOwner::Row),
    Cell = static_cast<std::int16_t>(PopupOwner::Cell),
    Chart = 50,
    Series = 60,
    Trendline = 70,
    Colors = 100,
    Macro = 110,
    MacroFunction = 120
};

/// Before the position of a colour in what is chosen.
inline constexpr std::string_view ColorChoice = "Color ";

/// One line of the menu tree. Lines follow each other as they are shown; those deeper than a line and directly behind
/// it stand below it.
struct MenuItem {
    int depth;                 ///< 0 for the top entries, of which each holds one popup
    std::string_view name;     ///< unique but for the entries of a control array
    std::string_view caption;  ///< "-" makes a separator; empty: that of the command
    std::optional<Command> command = {};
    int index = -1;  ///< within its control array; -1 outside of one

    [[nodiscard]] bool IsSeparator() const noexcept { return caption == "-"; }
    /// What choosing the entry asks for: a command's name, or "Color 0" to "Color 15"; empty where it opens a submenu.
    [[nodiscard]] std::string Choice() const;
};

[[nodiscard]] std::span<const MenuItem> MenuTree() noexcept;

/// The position of the item in the tree; throws WrongArguments for a name that it does not have.
[[nodiscard]] std::size_t FindMenuItem(std::string_view name, int index = -1);

}  // namespace planview
