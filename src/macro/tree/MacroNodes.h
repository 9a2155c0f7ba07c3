// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace planview {

/// What a row of MACRO_TREE is, by its `NODETYPE`. What `NODEVALUE` holds and which children a node has:
///
/// | NODETYPE | Is | NODEVALUE | Children |
/// |---|---|---|---|
/// | (empty) | a folder of the host's | | any |
/// | M_MAKRO | a macro | | attributes, then statements |
/// | M_ATTRIBUTE | holds for the whole macro | PERIODS=ALL, PERIODS=SELECTED, PERIODS=COL4:COL9, DECIMALS=2 | |
/// | M_CONDITION | decides for each period | IF, or ELSE for the sibling directly after an IF | IF: an M_CONDSTRING,
/// then statements; ELSE: statements | | M_CONDSTRING | what an IF tests | | operands and operators | | M_TABLINE | a
/// line of the grid | ROW3, or SELECTED for the selected line | an operand: none; a target: what it gets | |
/// M_TABELEMENT | one cell | ROW3/COL5 | as above | | M_TABAREA | lines, in all or some periods | ROW2:ROW5,
/// ROW2:ROW5/COL3:COL8 | as above | | M_MAKLINE | the macro's own line, a value for each period | its name | as above |
/// | M_MAKELEMENT | the macro's own single value | its name | as above |
/// | M_MAKAREA | the macro's own area | its name | as above |
/// | M_OPERATOR | an operator | + - * / ( ) = <> < <= > >= AND OR ; | |
/// | M_FUNCTION | a function | SUM MIN MAX AVERAGE COPY SHIFT IF ABS ROUND | its arguments, M_OPERATOR ";" between them
/// | | M_CONSTANT | a number | as the user writes it: 1,05 | | | M_RECORD | a recorded macro | | its steps | | M_STEP |
/// one recorded step | the fields of its MACROREC row from COMMAND on, with tabulators between them | |
///
/// A node of a table, own line, element or area kind that stands directly under a macro or a condition is a target: a
/// statement that gives it the value of the expression below it. Anywhere else it is an operand.
///
/// `NODENAME` is the caption of the line or period that `NODEVALUE` names, as it was when the node was made: it finds
/// the line again in a book whose keys have moved. `INACTIVE` "X" leaves the node, and all below it, out of a run.
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

/// A type that is none of these is a folder: the host may keep nodes of its own in the tree.
[[nodiscard]] constexpr MacroNodeType MacroNodeTypeOf(std::string_view name) noexcept {
    for (const MacroNodeName& entry : MacroNodeNames) {
        if (entry.name == name) {
            return entry.type;
        }
    }
    return MacroNodeType::Folder;
}

[[nodiscard]] constexpr std::string_view NameOf(MacroNodeType type) noexcept {
    return MacroNodeNames[static_cast<std::size_t>(type)].name;
}

}  // namespace planview
