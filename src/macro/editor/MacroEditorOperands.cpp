// SPDX-License-Identifier: MIT
// What the macro editor takes as elements: from the grid, from a text, from its buttons and popups.

#include <algorithm>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "grid/SelectedCells.h"
#include "macro/editor/MacroEditor.h"
#include "macro/language/MacroExpression.h"
#include "macro/run/MacroGrid.h"
#include "trace/ErrorTrap.h"

namespace planview {

namespace {

constexpr std::string_view SelectedLineText = "Selected line";
constexpr std::string_view NewName = "NEW";
constexpr int MostDecimalsOffered = 3;

/// The places stand together, apart from hidden ones between them, and are no text lines alone.
bool StandTogether(const std::vector<int>& places, const std::function<bool(int)>& isShown) {
    for (std::size_t i = 1; i < places.size(); ++i) {
        for (int between = places[i - 1] + 1; between < places[i]; ++between) {
            if (isShown(between)) {
                return false;
            }
        }
    }
    return true;
}

/// The only line whose caption is this text, whatever the case of its letters.
std::optional<int> LineCalled(const MacroGrid& grid, std::string_view text) {
    if (const std::optional<int> exact = grid.FindLineByCaption(text)) {
        return exact;
    }
    std::optional<int> found;
    for (int line = 0; line < grid.LineCount(); ++line) {
        if (EqualIgnoringCase(grid.LineCaption(line), text)) {
            if (found) {
                return std::nullopt;
            }
            found = line;
        }
    }
    return found;
}

NewMacroNode NodeOf(const MacroGrid& grid, const MacroRange& range, bool asArea = false) {
    NewMacroNode node;
    const bool oneLine = range.firstLine == range.lastLine;
    const bool onePeriod = range.HasPeriods() && range.firstPeriod == range.lastPeriod;
    const bool isArea = asArea || !oneLine || (range.HasPeriods() && !onePeriod);
    node.type = isArea               ? MacroNodeType::TableArea
                : range.HasPeriods() ? MacroNodeType::TableElement
                                     : MacroNodeType::TableLine;
    node.value = grid.ReferenceOf(range, isArea);
    node.name = grid.CaptionsOf(range, isArea);
    node.text = grid.TextOf(range);
    return node;
}

PopupEntry Entry(std::string_view name, std::string_view caption) {
    PopupEntry entry;
    entry.name = name;
    entry.caption = caption;
    return entry;
}

}  // namespace

// --- From the grid

void MacroEditor::TakeOperand() {
    Operate("TakeOperand", [&] {
        if (Trimmed(operandText_).empty() ? AddSelection() : TakeText()) {
            Announce();
        }
    });
}

void MacroEditor::TakeSelection() {
    Operate("TakeSelection", [&] {
        if (AddSelection()) {
            Announce();
        }
    });
}

bool MacroEditor::AddSelection() {
    const GridSelection& selection = parts_.grid.Selection();
    const MacroGrid grid(parts_.grid);
    const std::vector<int> lines = grid.SelectedLines();
    const std::vector<int> periods = grid.SelectedPeriods();
    const bool cells = !selection.Ranges().empty() || selection.IsEmpty();
    const bool onlyLines = selection.HasWholeRows() && !cells && !selection.HasWholeColumns();
    const bool onlyPeriods = selection.HasWholeColumns() && !cells && !selection.HasWholeRows();
    if (lines.empty() || periods.empty()) {
        Say("Select a line, a cell or a block of cells in the grid first.");
        return false;
    }
    const bool linesTogether = StandTogether(
        lines, [&](int line) { return !parts_.grid.Row(grid.Lines()[static_cast<std::size_t>(line)]).hidden; });
    const bool periodsTogether = StandTogether(periods, [&](int period) {
        return !parts_.grid.Column(grid.Periods()[static_cast<std::size_t>(period)]).hidden;
    });
    if ((!onlyPeriods && !linesTogether) || (!onlyLines && !periodsTogether)) {
        Say("The selected lines or periods do not stand together. Select neighbours only.");
        return false;
    }
    if (onlyPeriods) {
        const bool one = periods.front() == periods.back();
        const std::string& first = grid.PeriodKey(periods.front());
        const std::string& last = grid.PeriodKey(periods.back());
        const std::string names =
            one ? grid.PeriodCaption(periods.front())
                : grid.PeriodCaption(periods.front()) + CaptionMark + grid.PeriodCaption(periods.back());
        return AddPeriods(one ? first : first + RangeMark + last, names);
    }
    MacroRange range;
    range.firstLine = lines.front();
    range.lastLine = lines.back();
    if (!onlyLines) {
        range.firstPeriod = periods.front();
        range.lastPeriod = periods.back();
    }
    return Add(NodeOf(grid, range));
}

/// The macro has one element that says its periods.
bool MacroEditor::AddPeriods(const std::string& value, const std::string& name) {
    const std::string text = "PERIODS=" + value;
    for (int i = 1; i < outline_.Count(); ++i) {
        const MacroNode& node = outline_.At(i);
        if (node.type == MacroNodeType::Attribute && node.value.starts_with("PERIODS=")) {
            const std::string key = node.key;
            MacroTable table(parts_.tree, parts_.tables.MACRO_TREE);
            table.SetValue(key, text);
            table.SetName(key, name);
            table.SetText(key, text);
            Built(key);
            return true;
        }
    }
    NewMacroNode node;
    node.type = MacroNodeType::Attribute;
    node.value = text;
    node.name = name;
    node.text = text;
    // In front of the statements, where the user looks for what holds for all of them.
    if (outline_.IsEmpty() || outline_.At(0).children.empty()) {
        return Add(node);
    }
    const std::string first = outline_.At(outline_.At(0).children.front()).key;
    isWorking_ = true;
    const std::string key = MacroTable(parts_.tree, parts_.tables.MACRO_TREE).Add(node, first, MacroSpot::Before);
    Built(key);
    return true;
}

// --- From a text

std::vector<std::string> MacroEditor::OwnNames(MacroNodeType type) const {
    std::vector<std::string> names;
    for (int i = 0; i < outline_.Count(); ++i) {
        const MacroNode& node = outline_.At(i);
        if (node.type == type && !node.value.empty() &&
            std::find(names.begin(), names.end(), node.value) == names.end()) {
            names.push_back(node.value);
        }
    }
    return names;
}

std::vector<std::string> MacroEditor::Completions() const {
    std::vector<std::string> texts{std::string(SelectedLineText)};
    for (const MacroNodeType type : {MacroNodeType::OwnLine, MacroNodeType::OwnElement, MacroNodeType::OwnArea}) {
        const std::vector<std::string> names = OwnNames(type);
        texts.insert(texts.end(), names.begin(), names.end());
    }
    ErrorTrap(Label, "Completions", [&] {
        const MacroGrid grid(parts_.grid);
        for (int line = 0; line < grid.LineCount(); ++line) {
            if (!grid.IsTextLine(line)) {
                texts.push_back(grid.LineCaption(line));
            }
        }
    });
    return texts;
}

std::optional<NewMacroNode> MacroEditor::NodeFromText(const std::string& text) const {
    NewMacroNode node;
    node.value = text;
    node.text = text;
    if (TryParseNumber(text)) {
        node.type = MacroNodeType::Constant;
        return node;
    }
    for (const MacroNodeType type : {MacroNodeType::OwnLine, MacroNodeType::OwnElement, MacroNodeType::OwnArea}) {
        for (const std::string& name : OwnNames(type)) {
            if (EqualIgnoringCase(name, text)) {
                node.type = type;
                node.value = node.text = name;
                return node;
            }
        }
    }
    if (EqualIgnoringCase(text, SelectedLineText) || text == SelectedPlace) {
        node.type = MacroNodeType::TableLine;
        node.value = SelectedPlace;
        node.text = SelectedLineText;
        return node;
    }
    const MacroGrid grid(parts_.grid);
    std::string missing;
    std::optional<MacroRange> range = grid.Resolve(text, {}, missing);
    if (const std::optional<int> line = LineCalled(grid, text); !range && line) {
        range.emplace();
        range->firstLine = range->lastLine = *line;
    }
    // "Retail trade, Jan 06": the last comma divides them.
    const std::size_t comma = text.rfind(',');
    if (!range && comma != std::string::npos) {
        const std::optional<int> line = LineCalled(grid, Trimmed(std::string_view(text).substr(0, comma)));
        const std::optional<int> period = grid.FindPeriod({}, Trimmed(std::string_view(text).substr(comma + 1)));
        if (line && period) {
            range.emplace();
            range->firstLine = range->lastLine = *line;
            range->firstPeriod = range->lastPeriod = *period;
        }
    }
    return range ? std::optional(NodeOf(grid, *range)) : std::nullopt;
}

/// True when the text has become an element; it is empty then.
bool MacroEditor::TakeText() {
    const std::string text(Trimmed(operandText_));
    const std::optional<NewMacroNode> node = NodeFromText(text);
    if (!node) {
        Say("There is no line \"" + text +
            "\". Enter a number, the caption of a line, or one of a line and a period: \"Retail, Jan\".");
        return false;
    }
    if (!Add(*node)) {
        return false;
    }
    operandText_.clear();
    return true;
}

// --- Operators and functions

void MacroEditor::AddOperator(const std::string& value) {
    Operate("AddOperator", [&] {
        if (!Trimmed(operandText_).empty() && !TakeText()) {
            return;
        }
        if (value == ")" && FunctionAround(Current()) != MacroNode::None) {
            CloseFunction();
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

/// The function whose arguments the node is among, where no bracket of theirs is open before it; None for another one.
int MacroEditor::FunctionAround(int node) const {
    if (node == MacroNode::None || node == 0) {
        return MacroNode::None;
    }
    const bool inside = outline_.At(node).type == MacroNodeType::Function && spot_ == MacroSpot::Inside;
    const int function = inside ? node : outline_.At(node).parent;
    if (function == MacroNode::None || outline_.At(function).type != MacroNodeType::Function) {
        return MacroNode::None;
    }
    int open = 0;
    for (const int child : outline_.At(function).children) {
        open += outline_.At(child).value == "(" ? 1 : outline_.At(child).value == ")" ? -1 : 0;
        if (child == node) {
            break;
        }
    }
    return open > 0 ? MacroNode::None : function;
}

/// What comes next stands behind the function.
void MacroEditor::CloseFunction() {
    const std::string key = outline_.At(FunctionAround(Current())).key;
    if (const TreeNode node = parts_.tree.Nodes().Find(key)) {
        node.SetSelected(true);
    }
    spot_ = MacroSpot::After;
}

void MacroEditor::AddFunction(const std::string& value) {
    Operate("AddFunction", [&] {
        NewMacroNode node;
        node.type = MacroNodeType::Function;
        node.value = value;
        const MacroFunctionName* name = FindMacroFunction(value);
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
            Operate("AddConditionString", [&] {
                AddConditionString();
                Announce();
            });
            break;
        case ToolbarButton::Condition:
            AddCondition(false);
            break;
        case ToolbarButton::TabLine:
        case ToolbarButton::TabElement:
        case ToolbarButton::TabArea:
            Operate("AddPlace", [&] {
                if (AddPlaceOf(button)) {
                    Announce();
                }
            });
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

/// What is selected in the grid, as a line, a cell or an area, whatever it was selected as.
bool MacroEditor::AddPlaceOf(ToolbarButton button) {
    const MacroGrid grid(parts_.grid);
    const std::vector<int> lines = grid.SelectedLines();
    const std::vector<int> periods = grid.SelectedPeriods();
    if (lines.empty() || periods.empty()) {
        Say("Select a line, a cell or a block of cells in the grid first.");
        return false;
    }
    MacroRange range;
    range.firstLine = lines.front();
    range.lastLine = button == ToolbarButton::TabArea ? lines.back() : lines.front();
    const GridSelection& selection = parts_.grid.Selection();
    if (button == ToolbarButton::TabElement) {
        const std::optional<Cell> current = parts_.grid.CurrentCell();
        const std::optional<int> line = current ? grid.FindLine(parts_.grid.Row(current->row).key, {}) : std::nullopt;
        const std::optional<int> period =
            current ? grid.FindPeriod(parts_.grid.Column(current->column).key, {}) : std::nullopt;
        range.firstLine = range.lastLine = line.value_or(lines.front());
        range.firstPeriod = range.lastPeriod = period.value_or(periods.front());
    } else if (button == ToolbarButton::TabArea && !selection.HasWholeRows()) {
        range.firstPeriod = periods.front();
        range.lastPeriod = periods.back();
    }
    return Add(NodeOf(grid, range, button == ToolbarButton::TabArea));
}

std::string MacroEditor::Ask(const std::string& caption, std::vector<PopupEntry> entries) {
    PopupMenu menu;
    menu.caption = caption;
    menu.entries = std::move(entries);
    return parts_.popups.Choose(menu, PopupPlace::Mouse);
}

void MacroEditor::AskOperator() {
    std::vector<PopupEntry> entries;
    for (const std::string_view value :
         {"+", "-", "*", "/", "(", ")", "=", "<>", "<", "<=", ">", ">=", "AND", "OR", ";"}) {
        entries.push_back(Entry(value, value));
    }
    const std::string chosen = Ask("Operators", std::move(entries));
    if (!chosen.empty()) {
        AddOperator(chosen);
    }
}

void MacroEditor::AskFunction() {
    std::vector<PopupEntry> entries;
    for (const MacroFunctionName& function : MacroFunctions()) {
        entries.push_back(Entry(function.value, function.caption));
    }
    const std::string chosen = Ask("Functions", std::move(entries));
    if (!chosen.empty()) {
        AddFunction(chosen);
    }
}

void MacroEditor::AskAttribute() {
    std::vector<PopupEntry> entries{Entry("ALL", "For all periods"), Entry(SelectedPlace, "For the selected periods")};
    for (int decimals = 0; decimals <= MostDecimalsOffered; ++decimals) {
        const std::string number = std::to_string(decimals);
        entries.push_back(Entry(number, "Results rounded to " + Counted(decimals, "decimal")));
    }
    const std::string chosen = Ask("Attributes", std::move(entries));
    if (chosen.empty()) {
        return;
    }
    Operate("AddAttribute", [&] {
        const bool isPeriods = chosen == "ALL" || chosen == SelectedPlace;
        NewMacroNode node;
        node.type = MacroNodeType::Attribute;
        node.value = node.text = "DECIMALS=" + chosen;
        if (isPeriods ? AddPeriods(chosen, {}) : Add(node)) {
            Announce();
        }
    });
}

void MacroEditor::AskOwn(MacroNodeType type) {
    const std::string kind = type == MacroNodeType::OwnLine      ? "Own line"
                             : type == MacroNodeType::OwnElement ? "Own value"
                                                                 : "Own area";
    const std::vector<std::string> names = OwnNames(type);
    std::string chosen(NewName);
    if (!names.empty()) {
        std::vector<PopupEntry> entries;
        for (const std::string& name : names) {
            entries.push_back(Entry(name, name));
        }
        PopupEntry separator;
        separator.separator = true;
        entries.push_back(separator);
        entries.push_back(Entry(NewName, "New"));
        chosen = Ask(kind, std::move(entries));
    }
    if (chosen.empty()) {
        return;
    }
    Operate("AddOwn", [&] {
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
