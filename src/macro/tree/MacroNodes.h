// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace planview {

/// What a row of MACRO_TREE is, by its `NODETYPE`. `docs/macros.md` lists what `NODEVALUE` holds and which children a
/// node of each type has.
///
/// A line, element or area directly under a macro or a condition is a target: a statement that assigns it the value of
/// the expression below it. Anywhere else it is an operand.
///
/// `NODENAME` holds the captions that the lines and periods of `NODEVALUE` had when the node was made; they find them
/// again in a book with other keys. `INACTIVE` "X" leaves the node and its descendants out of a run.
enum class MacroNodeType : std::uint8_t {
    Folder,
    Macro,
    Attribute,
    Condition,
    ConditionString,
    TableLine,
    TableElement,
    TableArea,
    OwnLine,
    OwnElement,
    OwnArea,
    Operator,
    Function,
    Constant,
    Recording,
    Step
};

struct MacroNodeName {
    MacroNodeType type;
    std::string_view name;  ///< as in `NODETYPE`
};

inline constexpr std::array<MacroNodeName, 16> MacroNodeNames{{{MacroNodeType::Folder, ""},
                                                               {MacroNodeType::Macro, "M_MAKRO"},
                                                               {MacroNodeType::Attribute, "M_ATTRIBUTE"},
                                                               {MacroNodeType::Condition, "M_CONDITION"},
                                                               {MacroNodeType::ConditionString, "M_CONDSTRING"},
                                                               {MacroNodeType::TableLine, "M_TABLINE"},
                                                               {MacroNodeType::TableElement, "M_TABELEMENT"},
                                                               {MacroNodeType::TableArea, "M_TABAREA"},
                                                               {MacroNodeType::OwnLine, "M_MAKLINE"},
                                                               {MacroNodeType::OwnElement, "M_MAKELEMENT"},
                                                               {MacroNodeType::OwnArea, "M_MAKAREA"},
                                                               {MacroNodeType::Operator, "M_OPERATOR"},
                                                               {MacroNodeType::Function, "M_FUNCTION"},
                                                               {MacroNodeType::Constant, "M_CONSTANT"},
                                                               {MacroNodeType::Recording, "M_RECORD"},
                                                               {MacroNodeType::Step, "M_STEP"}}};

/// Any other name is a folder: the host may keep nodes of its own in the tree.
[[nodiscard]] constexpr MacroNodeType MacroNodeTypeOf(std::string_view name) noexcept {
    for (const MacroNodeName& known : MacroNodeNames) {
        if (known.name == name) {
            return known.type;
        }
    }
    return MacroNodeType::Folder;
}

[[nodiscard]] constexpr std::string_view NameOf(MacroNodeType type) noexcept {
    return MacroNodeNames[static_cast<std::size_t>(type)].name;
}

}  // namespace planview
