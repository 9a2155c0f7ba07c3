// SPDX-License-Identifier: MIT
#include "macro/editor/ElementSpots.h"

namespace planview {

namespace {

bool IsContainer(const MacroOutline& outline, int node) {
    const MacroNodeType type = outline.At(node).type;
    return HoldsStatements(type) || type == MacroNodeType::ConditionString || type == MacroNodeType::Function ||
           outline.IsTarget(node);
}

int ParentAt(const MacroOutline& outline, const ElementSpot& at) {
    return at.spot == MacroSpot::Inside ? at.node : outline.At(at.node).parent;
}

bool IsAmongStatements(const MacroOutline& outline, const ElementSpot& at) {
    return HoldsStatements(outline.At(ParentAt(outline, at)).type);
}

}  // namespace

bool HoldsStatements(MacroNodeType type) noexcept {
    return type == MacroNodeType::Macro || type == MacroNodeType::Condition;
}

MacroSpot UsualSpot(const MacroOutline& outline, int node) {
    return node != MacroNode::None && IsContainer(outline, node) ? MacroSpot::Inside : MacroSpot::After;
}

std::optional<ElementSpot> SpotFor(const MacroOutline& outline, ElementSpot wanted, MacroNodeType type,
                                   std::string& refusal) {
    if (wanted.node == MacroNode::None || outline.At(0).type == MacroNodeType::Recording) {
        refusal = "There is no macro to add it to. Make a new one, or select one in the tree.";
        return std::nullopt;
    }
    if (type == MacroNodeType::Attribute) {
        return ElementSpot{0, MacroSpot::Inside};
    }
    ElementSpot at = wanted;
    if (at.node == 0) {
        at.spot = MacroSpot::Inside;
    } else if (at.spot == MacroSpot::Inside && !IsContainer(outline, at.node)) {
        at.spot = MacroSpot::After;
    }
    if (type == MacroNodeType::Condition) {
        while (!IsAmongStatements(outline, at)) {
            at = {ParentAt(outline, at), MacroSpot::After};
        }
        return at;
    }
    if (IsOperandType(type) || !IsAmongStatements(outline, at)) {
        return at;
    }
    // A part of an expression goes into the current statement.
    if (outline.IsTarget(at.node)) {
        return ElementSpot{at.node, MacroSpot::Inside};
    }
    const bool isCondition = outline.At(at.node).type == MacroNodeType::Condition;
    const int comparison = isCondition ? ComparisonOf(outline, at.node) : MacroNode::None;
    if (comparison != MacroNode::None) {
        return ElementSpot{comparison, MacroSpot::Inside};
    }
    refusal = "Choose first what gets the value: point at a line, a cell or an area of the grid and take it over.";
    return std::nullopt;
}

int ConditionAround(const MacroOutline& outline, int node) {
    while (node > 0 && (outline.At(node).type != MacroNodeType::Condition || outline.At(node).value != "IF")) {
        node = outline.At(node).parent;
    }
    return node > 0 ? node : MacroNode::None;
}

int ComparisonOf(const MacroOutline& outline, int condition) {
    const std::vector<int>& children = outline.At(condition).children;
    const bool hasOne = !children.empty() && outline.At(children.front()).type == MacroNodeType::ConditionString;
    return hasOne ? children.front() : MacroNode::None;
}

int FunctionAround(const MacroOutline& outline, ElementSpot at) {
    if (at.node == MacroNode::None || at.node == 0) {
        return MacroNode::None;
    }
    const bool inside = outline.At(at.node).type == MacroNodeType::Function && at.spot == MacroSpot::Inside;
    const int function = inside ? at.node : outline.At(at.node).parent;
    if (function == MacroNode::None || outline.At(function).type != MacroNodeType::Function) {
        return MacroNode::None;
    }
    int open = 0;
    for (const int child : outline.At(function).children) {
        open += outline.At(child).value == "(" ? 1 : outline.At(child).value == ")" ? -1 : 0;
        if (child == at.node) {
            break;
        }
    }
    return open > 0 ? MacroNode::None : function;
}

}  // namespace planview
