// SPDX-License-Identifier: MIT
// Adding elements to a macro from the grid, from a text, by buttons and popups.

#include <algorithm>

#include "automation/Texts.h"
#include "formula/FormulaExpression.h"
#include "macro/editor/ElementSpots.h"
#include "macro/editor/MacroEditor.h"
#include "macro/editor/OperandNodes.h"
#include "trace/ErrorTrap.h"

namespace planview {

namespace {

constexpr std::string_view NewName = "NEW";
constexpr int MostDecimalsOffered = 3;

PopupEntry Choice(std::string_view name, std::string_view caption) {
    PopupEntry choice;
    choice.name = name;
    choice.caption = caption;
    return choice;
}

}  // namespace

// --- From the grid

void MacroEditor::TakeOperand() {
    Change("TakeOperand", [&] {
        if (Trimmed(operandText_).empty() ? AddSelection() : TakeText()) {
            Announce();
        }
    });
}

bool MacroEditor::AddSelection() {
    std::string refusal;
    const std::optional<NewMacroNode> node = NodeFromSelection(parts_.grid, refusal);
    if (!node) {
        Say(refusal);
        return false;
    }
    return node->type == MacroNodeType::Attribute ? AddPeriods(*node) : Add(*node);
}

/// A macro has at most one element for its periods.
bool MacroEditor::AddPeriods(const NewMacroNode& node) {
    for (int i = 1; i < outline_.Count(); ++i) {
        const MacroNode& each = outline_.At(i);
        if (each.type == MacroNodeType::Attribute && each.value.starts_with("PERIODS=")) {
            return Edit([&](MacroTable& table) {
                table.SetValue(each.key, node.value);
                table.SetName(each.key, node.name);
                table.SetText(each.key, node.text);
                return each.key;
            });
        }
    }
    if (outline_.IsEmpty() || IsRecording() || outline_.At(0).children.empty()) {
        return Add(node);
    }
    // Before the statements, because it applies to all of them.
    const MacroNode& first = outline_.At(outline_.At(0).children.front());
    return Edit([&](MacroTable& table) { return table.Add(node, first.key, MacroSpot::Before); });
}

// --- From a text

std::vector<std::string> MacroEditor::Completions() const {
    std::vector<std::string> texts;
    ErrorTrap(Label, "Completions", [&] { texts = OperandTexts(parts_.grid, outline_); });
    return texts;
}

/// Returns true and clears the text if it became an element.
bool MacroEditor::TakeText() {
    const std::string text(Trimmed(operandText_));
    const std::optional<EnteredNumber> constant = ReadConstant(parts_.grid, outline_, Current(), text);
    const std::optional<NewMacroNode> node =
        NodeFromText(parts_.grid, outline_, constant ? TableText(text, constant->number) : text);
    if (node ? !Add(*node) : !TakeFormula(text)) {
        return false;
    }
    operandText_.clear();
    if (constant && constant->IsGuess()) {
        Say(GuessText(*constant), false);
    }
    return true;
}

bool MacroEditor::TakeFormula(const std::string& text) {
    int around = Current();
    while (around > 0 && outline_.At(around).type != MacroNodeType::ConditionString) {
        around = outline_.At(around).parent;
    }
    const TypedFormula formula = ReadFormula(parts_.grid, outline_, text, around <= 0);
    if (!formula.fault.empty()) {
        Say(formula.fault);
        return false;
    }
    if (formula.periods && !TakesPeriods(*formula.periods)) {
        return false;
    }
    if (!(formula.isStatement ? AddStatement(formula) : AddExpression(formula))) {
        return false;
    }
    if (formula.periods) {
        const std::string current = currentKey_;
        AddPeriods(*formula.periods);
        Build(current);
        spot_ = MacroSpot::After;
    }
    return true;
}

/// The periods are those of the whole macro.
bool MacroEditor::TakesPeriods(const NewMacroNode& periods) {
    bool hasStatements = false;
    for (int i = 1; i < outline_.Count(); ++i) {
        const MacroNode& each = outline_.At(i);
        if (each.type == MacroNodeType::Attribute && each.value == periods.value) {
            return true;
        }
        hasStatements = hasStatements || (each.parent == 0 && each.type != MacroNodeType::Attribute);
    }
    if (hasStatements) {
        Say("The periods are those of the whole macro, which has other statements. Make a macro of its own for them.");
    }
    return !hasStatements;
}

/// After the statement that the current element is in.
ElementSpot MacroEditor::StatementSpot() const {
    int at = Current();
    if (at > 0 && outline_.At(at).type == MacroNodeType::Condition && spot_ == MacroSpot::Inside) {
        return {at, MacroSpot::Inside};
    }
    while (at > 0 && !HoldsStatements(outline_.At(outline_.At(at).parent).type)) {
        at = outline_.At(at).parent;
    }
    return {at, at <= 0 ? MacroSpot::Inside : MacroSpot::After};
}

bool MacroEditor::AddStatement(const TypedFormula& formula) {
    std::string refusal;
    const std::optional<ElementSpot> at = SpotFor(outline_, StatementSpot(), formula.parts[0].node.type, refusal);
    if (!at) {
        Say(refusal);
        return false;
    }
    std::vector<std::string> keys(formula.parts.size());
    if (!Edit([&](MacroTable& table) {
            return keys[0] = table.Add(formula.parts[0].node, outline_.At(at->node).key, at->spot);
        })) {
        return false;
    }
    AddInside(formula, keys, 1);
    Build(keys[0]);
    spot_ = MacroSpot::After;
    return true;
}

bool MacroEditor::AddExpression(const TypedFormula& formula) {
    std::vector<std::string> keys(formula.parts.size());
    std::string last;
    for (std::size_t i = 0; i < formula.parts.size(); ++i) {
        if (formula.parts[i].parent != TypedFormula::TopLevel) {
            continue;
        }
        if (!last.empty()) {
            currentKey_ = last;
            spot_ = MacroSpot::After;
        }
        if (!Add(formula.parts[i].node)) {
            return false;
        }
        keys[i] = last = currentKey_;
    }
    AddInside(formula, keys, 0);
    Build(last);
    spot_ = MacroSpot::After;
    return true;
}

void MacroEditor::AddInside(const TypedFormula& formula, std::vector<std::string>& keys, std::size_t from) {
    for (std::size_t i = from; i < formula.parts.size(); ++i) {
        if (const int parent = formula.parts[i].parent; parent != TypedFormula::TopLevel) {
            Edit([&](MacroTable& table) {
                return keys[i] =
                           table.Add(formula.parts[i].node, keys[static_cast<std::size_t>(parent)], MacroSpot::Inside);
            });
        }
    }
}

// --- Operators and functions

void MacroEditor::AddOperator(const std::string& value) {
    Change("AddOperator", [&] {
        if (!Trimmed(operandText_).empty() && !TakeText()) {
            return;
        }
        const int current = Current();
        if (value == "=" && current > 0 && outline_.IsTarget(current) && outline_.At(current).children.empty()) {
            spot_ = MacroSpot::Inside;  // the list shows the sign already
            return;
        }
        const int function = value == ")" ? FunctionAround(outline_, {Current(), spot_}) : MacroNode::None;
        if (function != MacroNode::None) {
            CloseFunction(function);
            return;
        }
        NewMacroNode node;
        node.type = MacroNodeType::Operator;
        node.value = node.text = value;
        if (Add(node)) {
            Announce();
        }
    });
}

/// The next element goes after the function.
void MacroEditor::CloseFunction(int function) {
    if (const TreeNode node = parts_.tree.Nodes().Find(outline_.At(function).key)) {
        node.SetSelected(true);
    }
    spot_ = MacroSpot::After;
}

void MacroEditor::AddFunction(const std::string& value) {
    Change("AddFunction", [&] {
        NewMacroNode node;
        node.type = MacroNodeType::Function;
        node.value = value;
        const FormulaFunctionName* name = FindFormulaFunction(value);
        node.text = name ? std::string(name->caption) : value;
        if (Add(node)) {
            Announce();
            if (name) {
                Say(std::string(name->caption) + ": " + std::string(name->takes), false);
            }
        }
    });
}

// --- The toolbar

void MacroEditor::AddElement(ToolbarButton button) {
    switch (button) {
        case ToolbarButton::CondString:
            Change("AddConditionString", [&] {
                AddConditionString();
                Announce();
            });
            break;
        case ToolbarButton::Condition:
            AddCondition(false);
            break;
        case ToolbarButton::TabLine:
            AddSelectionAs(MacroNodeType::TableLine);
            break;
        case ToolbarButton::TabElement:
            AddSelectionAs(MacroNodeType::TableElement);
            break;
        case ToolbarButton::TabArea:
            AddSelectionAs(MacroNodeType::TableArea);
            break;
        case ToolbarButton::Operator:
            AskOperator();
            break;
        case ToolbarButton::Function:
            AskFunction();
            break;
        case ToolbarButton::MakLine:
            AskOwn(MacroNodeType::OwnLine);
            break;
        case ToolbarButton::MakElement:
            AskOwn(MacroNodeType::OwnElement);
            break;
        case ToolbarButton::MakArea:
            AskOwn(MacroNodeType::OwnArea);
            break;
        case ToolbarButton::Attribute:
            AskAttribute();
            break;
        case ToolbarButton::Generate:
            Check();
            break;
        case ToolbarButton::Inactive:
            ToggleActive();
            break;
    }
}

void MacroEditor::AddSelectionAs(MacroNodeType type) {
    Change("AddPlace", [&] {
        std::string refusal;
        const std::optional<NewMacroNode> node = NodeFromSelectionAs(parts_.grid, type, refusal);
        if (!node) {
            Say(refusal);
        } else if (Add(*node)) {
            Announce();
        }
    });
}

std::string MacroEditor::Ask(const std::string& caption, std::vector<PopupEntry> choices) {
    PopupMenu menu;
    menu.caption = caption;
    menu.entries = std::move(choices);
    return parts_.popups.Choose(menu, PopupPlace::Mouse);
}

void MacroEditor::AskOperator() {
    std::vector<PopupEntry> choices;
    for (const std::string_view value :
         {"+", "-", "*", "/", "(", ")", "=", "<>", "<", "<=", ">", ">=", "AND", "OR", ";"}) {
        choices.push_back(Choice(value, value));
    }
    const std::string chosen = Ask("Operators", std::move(choices));
    if (!chosen.empty()) {
        AddOperator(chosen);
    }
}

void MacroEditor::AskFunction() {
    std::vector<PopupEntry> choices;
    for (const FormulaFunctionName& function : FormulaFunctions()) {
        choices.push_back(Choice(function.value, function.caption));
    }
    const std::string chosen = Ask("Functions", std::move(choices));
    if (!chosen.empty()) {
        AddFunction(chosen);
    }
}

void MacroEditor::AskAttribute() {
    std::vector<PopupEntry> choices{Choice("ALL", "For all periods"),
                                    Choice(SelectedPlace, "For the selected periods")};
    for (int decimals = 0; decimals <= MostDecimalsOffered; ++decimals) {
        const std::string number = std::to_string(decimals);
        choices.push_back(Choice(number, "Results rounded to " + Counted(decimals, "decimal")));
    }
    const std::string chosen = Ask("Attributes", std::move(choices));
    if (chosen.empty()) {
        return;
    }
    Change("AddAttribute", [&] {
        NewMacroNode node;
        node.type = MacroNodeType::Attribute;
        node.value = "DECIMALS=" + chosen;
        node.text =
            chosen.size() == 1 ? "Results rounded to " + chosen + (chosen == "1" ? " decimal" : " decimals") : "";
        const bool isPeriods = chosen == "ALL" || chosen == SelectedPlace;
        if (isPeriods ? AddPeriods(PeriodsNode(chosen, {})) : Add(node)) {
            Announce();
        }
    });
}

void MacroEditor::AskOwn(MacroNodeType type) {
    const std::string kind = type == MacroNodeType::OwnLine      ? "Own line"
                             : type == MacroNodeType::OwnElement ? "Own value"
                                                                 : "Own area";
    const std::vector<std::string> names = OwnNames(outline_, type);
    std::string chosen(NewName);
    if (!names.empty()) {
        std::vector<PopupEntry> choices;
        for (const std::string& name : names) {
            choices.push_back(Choice(name, name));
        }
        PopupEntry separator;
        separator.separator = true;
        choices.push_back(separator);
        choices.push_back(Choice(NewName, "New"));
        chosen = Ask(kind, std::move(choices));
    }
    if (chosen.empty()) {
        return;
    }
    Change("AddOwn", [&] {
        NewMacroNode node;
        node.type = type;
        node.value = chosen;
        for (int number = 1; chosen == NewName; ++number) {
            node.value = kind + " " + std::to_string(number);
            if (std::find(names.begin(), names.end(), node.value) == names.end()) {
                break;
            }
        }
        node.text = node.value;
        if (Add(node)) {
            Announce();
        }
    });
}

}  // namespace planview
