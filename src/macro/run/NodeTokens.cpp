// SPDX-License-Identifier: MIT
#include "macro/run/NodeTokens.h"

namespace planview {

namespace {

FormulaToken::Kind KindOf(MacroNodeType type) noexcept {
    using Kind = FormulaToken::Kind;
    switch (type) {
        case MacroNodeType::TableLine:
            return Kind::Line;
        case MacroNodeType::TableElement:
            return Kind::Element;
        case MacroNodeType::TableArea:
            return Kind::Area;
        case MacroNodeType::OwnLine:
            return Kind::OwnLine;
        case MacroNodeType::OwnElement:
            return Kind::OwnElement;
        case MacroNodeType::OwnArea:
            return Kind::OwnArea;
        case MacroNodeType::Operator:
            return Kind::Operator;
        case MacroNodeType::Function:
            return Kind::Function;
        case MacroNodeType::Constant:
            return Kind::Constant;
        default:
            return Kind::Other;
    }
}

}  // namespace

FormulaToken NodeTokens::At(int token) const {
    const MacroNode& node = outline_.At(token);
    return {KindOf(node.type), node.value, node.name};
}

}  // namespace planview
