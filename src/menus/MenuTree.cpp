// SPDX-License-Identifier: MIT
#include "menus/MenuTree.h"

#include <planview/AutomationObject.h>

#include "commands/CommandTable.h"
#include "menus/MenuItems.h"

namespace planview {

using MenuItems::ColorName;
using MenuItems::Tree;

std::string MenuItem::Choice() const {
    return command             ? std::string(RowOf(*command).name)
           : name == ColorName ? std::string(ColorChoice) + std::to_string(index)
                               : std::string();
}

std::span<const MenuItem> MenuTree() noexcept {
    return Tree;
}

std::size_t FindMenuItem(std::string_view name, int index) {
    for (std::size_t i = 0; i < Tree.size(); ++i) {
        if (Tree[i].name == name && Tree[i].index == index) {
            return i;
        }
    }
    throw AutomationError(AutomationErrorCode::WrongArguments, "There is no menu entry " + std::string(name));
}

}  // namespace planview
