// SPDX-License-Identifier: MIT
#include "macro/editor/MacroEditor.h"

#include <algorithm>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "macro/run/MacroGrid.h"
#include "macro/run/MacroSentences.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

MacroEditor::MacroEditor(MacroEditorParts parts) : parts_(std::move(parts)) {
    parts_.tree.AddWatcher(*this);
}

MacroEditor::~MacroEditor() {
    parts_.tree.RemoveWatcher(*this);
}

void MacroEditor::Operate(std::string_view method, const std::function<void()>& body) {
    message_.clear();
    if (TraceEnabled) {
        TraceWrite(Label, "", method, TraceText("{node: ", currentKey_, "}"));
    }
    const std::optional<std::string> error = ErrorTextOf(body);
    isWorking_ = false;
    if (error) {
        TraceError(Label, method, *error);
        Say("This could not be done: " + *error + ".");
        Reload();
    }
    Changed();
}

void MacroEditor::Say(std::string text, bool isProblem) {
    message_ = std::move(text);
    messageIsProblem_ = isProblem;
}

void MacroEditor::Changed() const {
    if (watcher_ && !isWorking_) {
        watcher_->EditorChanged();
    }
}

// --- What it shows

/// Follows the tree: its selected node, where that is in a macro, else the macro that was shown before.
void MacroEditor::Reload() {
    if (isWorking_) {
        return;
    }
    ErrorTrap(Label, "Reload", [&] {
        const TreeNode selected = parts_.tree.SelectedItem();
        const HostTable table = parts_.tables.MACRO_TREE;
        std::string macro = selected && table.IsSet() ? MacroKeyOf(parts_.tree, table, selected.Key()) : std::string();
        const bool follows = !macro.empty();
        macro = follows ? macro : macroKey_;
        if (macro != macroKey_) {
            marksProblems_ = false;
            message_.clear();
        }
        const std::string before = currentKey_;
        macroKey_ = macro;
        currentKey_ = follows ? selected.Key() : currentKey_;
        ReadLines();
        if (currentKey_ != before) {
            spot_ = UsualSpot();
        }
        ShowInToolbar();
    });
    Changed();
}

void MacroEditor::ReadLines() {
    lines_.clear();
    const HostTable table = parts_.tables.MACRO_TREE;
    outline_ = macroKey_.empty() || !table.IsSet() ? MacroOutline() : MacroOutline::Read(parts_.tree, table, macroKey_);
    if (outline_.IsEmpty()) {
        macroKey_.clear();
        currentKey_.clear();
        return;
    }
    const MacroGrid places(parts_.grid);
    const MacroSentences sentences(outline_, places);
    for (int i = 0; i < outline_.Count(); ++i) {
        const MacroNode& node = outline_.At(i);
        MacroLine& line = lines_.emplace_back();
        line.key = node.key;
        line.text = sentences.Of(i);
        line.type = node.type;
        line.depth = node.depth;
        line.isPart = node.type >= MacroNodeType::ConditionString && node.type <= MacroNodeType::Constant &&
                      !outline_.IsTarget(i);
        line.inactive = node.inactive || (node.parent >= 0 && lines_[static_cast<std::size_t>(node.parent)].inactive);
        if (node.text != sentences.ShortOf(i) && node.text != node.value) {
            line.note = node.text;
        }
    }
    if (outline_.Find(currentKey_) == MacroNode::None) {
        currentKey_ = macroKey_;
    }
    if (marksProblems_ && !IsRecording()) {
        Mark(parts_.check(macroKey_));
    }
}

int MacroEditor::Current() const noexcept {
    return outline_.Find(currentKey_);
}

void MacroEditor::SetCurrent(int line) {
    if (line < 0 || line >= outline_.Count() || line == Current()) {
        return;
    }
    message_.clear();
    if (const TreeNode node = parts_.tree.Nodes().Find(outline_.At(line).key)) {
        node.SetSelected(true);  // comes back through Reload()
        node.EnsureVisible();
    }
}

bool MacroEditor::IsRecording() const noexcept {
    return !outline_.IsEmpty() && outline_.At(0).type == MacroNodeType::Recording;
}

void MacroEditor::SetSpot(MacroSpot spot) {
    spot_ = spot;
    Changed();
}

void MacroEditor::Mark(const MacroProblems& problems) {
    for (MacroLine& line : lines_) {
        line.problem.clear();
    }
    for (const MacroProblem& problem : problems) {
        const auto found = std::find_if(lines_.begin(), lines_.end(),
                                        [&](const MacroLine& line) { return line.key == problem.nodeKey; });
        if (found != lines_.end() && found->problem.empty()) {
            found->problem = problem.what + (problem.now.empty() ? "" : " " + problem.now);
        }
    }
    if (problems.empty()) {
        marksProblems_ = false;
    }
}

void MacroEditor::ShowInToolbar() {
    const MacroNode* node = CurrentNode();
    parts_.toolbar.SetChecked(ToolbarButton::Inactive, node && node->inactive);
}

const MacroNode* MacroEditor::CurrentNode() const noexcept {
    const int current = Current();
    return current == MacroNode::None ? nullptr : &outline_.At(current);
}

void MacroEditor::SetOperandText(std::string text) {
    if (text != operandText_) {
        operandText_ = std::move(text);
        Changed();
    }
}

// --- Where elements go

bool MacroEditor::HoldsStatements(int node) const {
    const MacroNodeType type = outline_.At(node).type;
    return type == MacroNodeType::Macro || type == MacroNodeType::Condition;
}

bool MacroEditor::IsContainer(int node) const {
    const MacroNodeType type = outline_.At(node).type;
    return HoldsStatements(node) || type == MacroNodeType::ConditionString || type == MacroNodeType::Function ||
           outline_.IsTarget(node);
}

MacroSpot MacroEditor::UsualSpot() const {
    const int current = Current();
    return current != MacroNode::None && IsContainer(current) ? MacroSpot::Inside : MacroSpot::After;
}

/// Seen from a node of the outline.
struct MacroEditor::Spotted {
    int node;
    MacroSpot spot;
};

std::optional<MacroEditor::Spotted> MacroEditor::SpotFor(MacroNodeType type) {
    const bool isPlace = IsPlaceType(type);
    const bool isStatementOnly = type == MacroNodeType::Condition || type == MacroNodeType::Attribute;
    Spotted at{Current(), spot_};
    if (at.node == MacroNode::None || IsRecording()) {
        Say("There is no macro to add it to. Make a new one, or select one in the tree.");
        return std::nullopt;
    }
    if (at.node == 0 || (at.spot == MacroSpot::Inside && !IsContainer(at.node))) {
        at.spot = at.node == 0 ? MacroSpot::Inside : MacroSpot::After;
    }
    const auto parentOf = [&](const Spotted& spotted) {
        return spotted.spot == MacroSpot::Inside ? spotted.node : outline_.At(spotted.node).parent;
    };
    if (isStatementOnly) {
        while (!HoldsStatements(parentOf(at))) {
            at = {at.spot == MacroSpot::Inside ? at.node : outline_.At(at.node).parent, MacroSpot::After};
        }
        if (type == MacroNodeType::Attribute) {
            at = {0, MacroSpot::Inside};
        }
        return at;
    }
    if (isPlace || !HoldsStatements(parentOf(at))) {
        return at;
    }
    // A part of an expression: it goes into the statement at hand.
    const MacroNode& node = outline_.At(at.node);
    if (outline_.IsTarget(at.node)) {
        return Spotted{at.node, MacroSpot::Inside};
    }
    if (node.type == MacroNodeType::Condition && !node.children.empty() &&
        outline_.At(node.children.front()).type == MacroNodeType::ConditionString) {
        return Spotted{node.children.front(), MacroSpot::Inside};
    }
    Say("Choose first what gets the value: point at a line, a cell or an area of the grid and take it over.");
    return std::nullopt;
}

bool MacroEditor::Add(NewMacroNode node) {
    const std::optional<Spotted> at = SpotFor(node.type);
    if (!at) {
        return false;
    }
    std::string key;
    {
        isWorking_ = true;
        MacroTable table(parts_.tree, parts_.tables.MACRO_TREE);
        key = table.Add(node, outline_.At(at->node).key, at->spot);
    }
    Built(key);
    return true;
}

void MacroEditor::Built(const std::string& key) {
    isWorking_ = true;
    parts_.buildTree();
    if (const TreeNode node = parts_.tree.Nodes().Find(key)) {
        node.SetSelected(true);
        node.EnsureVisible();
    }
    isWorking_ = false;
    currentKey_.clear();
    Reload();
}

/// The host hears of every change of the tree by this event.
void MacroEditor::Announce() {
    parts_.events.Raise(EventId::MacroTreeExpand);
}

// --- The elements

void MacroEditor::NewMacro() {
    Operate("NewMacro", [&] {
        int number = 1;
        const auto isTaken = [&](const std::string& name) {
            for (int i = 1; i <= parts_.tree.Nodes().Count(); ++i) {
                if (parts_.tree.Nodes().Item(i).Text() == name) {
                    return true;
                }
            }
            return false;
        };
        while (isTaken("Macro " + std::to_string(number))) {
            ++number;
        }
        std::string key;
        {
            isWorking_ = true;
            MacroTable table(parts_.tree, parts_.tables.MACRO_TREE);
            NewMacroNode node;
            node.type = MacroNodeType::Macro;
            node.text = "Macro " + std::to_string(number);
            key = table.Add(node, macroKey_, macroKey_.empty() ? MacroSpot::Inside : MacroSpot::After);
        }
        Built(key);
        Announce();
        Say("Point at what gets a value, a line for example, and take it over.", false);
    });
}

void MacroEditor::AddCondition(bool otherwise) {
    Operate("AddCondition", [&] {
        NewMacroNode node;
        node.type = MacroNodeType::Condition;
        node.value = otherwise ? "ELSE" : "IF";
        node.text = otherwise ? "Otherwise" : "If";
        if (otherwise) {
            // Behind the condition that the current element is, or stands in.
            int at = Current();
            while (at > 0 && (outline_.At(at).type != MacroNodeType::Condition || outline_.At(at).value != "IF")) {
                at = outline_.At(at).parent;
            }
            if (at <= 0) {
                Say("\"Otherwise\" stands behind a condition. Select one first.");
                return;
            }
            currentKey_ = outline_.At(at).key;
            spot_ = MacroSpot::After;
        }
        if (!Add(node)) {
            return;
        }
        if (!otherwise) {
            spot_ = MacroSpot::Inside;
            AddConditionString();
        }
        Announce();
    });
}

void MacroEditor::AddConditionString() {
    int at = Current();
    while (at > 0 && (outline_.At(at).type != MacroNodeType::Condition || outline_.At(at).value != "IF")) {
        at = outline_.At(at).parent;
    }
    if (at <= 0) {
        Say("A comparison belongs to a condition. Add one first.");
        return;
    }
    const MacroNode& condition = outline_.At(at);
    const bool hasOne =
        !condition.children.empty() && outline_.At(condition.children.front()).type == MacroNodeType::ConditionString;
    if (hasOne) {
        Built(outline_.At(condition.children.front()).key);
        return;
    }
    NewMacroNode node;
    node.type = MacroNodeType::ConditionString;
    node.text = "Comparison";
    std::string key;
    {
        isWorking_ = true;
        MacroTable table(parts_.tree, parts_.tables.MACRO_TREE);
        const bool hasChildren = !condition.children.empty();
        key = table.Add(node, hasChildren ? outline_.At(condition.children.front()).key : condition.key,
                        hasChildren ? MacroSpot::Before : MacroSpot::Inside);
    }
    Built(key);
}

void MacroEditor::NextStatement() {
    Operate("NextStatement", [&] {
        if (!operandText_.empty() && !TakeText()) {
            return;
        }
        int at = Current();
        while (at > 0 && !HoldsStatements(outline_.At(at).parent)) {
            at = outline_.At(at).parent;
        }
        if (at <= 0) {
            return;
        }
        const bool isTest = outline_.At(at).type == MacroNodeType::ConditionString;
        if (const TreeNode node = parts_.tree.Nodes().Find(outline_.At(at).key)) {
            node.SetSelected(true);
        }
        spot_ = MacroSpot::After;
        Say(isTest ? "Point at what gets a value where the condition holds, and take it over."
                   : "Point at what gets a value next, and take it over.",
            false);
    });
}

std::string MacroEditor::NameToEdit() const {
    const MacroNode* node = CurrentNode();
    if (!node) {
        return {};
    }
    const bool byValue = node->type == MacroNodeType::Constant ||
                         (node->type >= MacroNodeType::OwnLine && node->type <= MacroNodeType::OwnArea);
    return byValue ? node->value : node->text;
}

void MacroEditor::Rename(const std::string& text) {
    Operate("Rename", [&] {
        const MacroNode* node = CurrentNode();
        if (!node || text == NameToEdit()) {
            return;
        }
        if (Trimmed(text).empty()) {
            Say("A name cannot be empty.");
            return;
        }
        const std::string key = node->key;
        const MacroNodeType type = node->type;
        const std::string before = node->value;
        isWorking_ = true;
        MacroTable table(parts_.tree, parts_.tables.MACRO_TREE);
        if (type == MacroNodeType::Constant) {
            if (!TryParseNumber(text)) {
                Say("\"" + text + "\" is not a number. Enter digits with a point or a comma.");
                return;
            }
            table.SetValue(key, text);
            table.SetText(key, text);
        } else if (type >= MacroNodeType::OwnLine && type <= MacroNodeType::OwnArea) {
            for (int i = 0; i < outline_.Count(); ++i) {
                if (outline_.At(i).type == type && outline_.At(i).value == before) {
                    table.SetValue(outline_.At(i).key, text);
                    table.SetText(outline_.At(i).key, text);
                }
            }
        } else {
            table.SetText(key, text);
        }
        Built(key);
        Announce();
    });
}

void MacroEditor::Move(bool up) {
    Operate(up ? "MoveUp" : "MoveDown", [&] {
        const MacroNode* node = CurrentNode();
        if (!node || Current() == 0) {
            return;
        }
        const std::string key = node->key;
        isWorking_ = true;
        MacroTable table(parts_.tree, parts_.tables.MACRO_TREE);
        if (!table.Move(key, up)) {
            Say(up ? "It is the first of its level." : "It is the last of its level.", false);
            return;
        }
        Built(key);
        Announce();
    });
}

void MacroEditor::MoveTo(const std::string& key, const std::string& target, TreeDrop place) {
    Operate("MoveTo", [&] {
        const HostTable hostTable = parts_.tables.MACRO_TREE;
        const TreeNode beside = parts_.tree.Nodes().Item(target);
        const TreeNode parent = place == TreeDrop::Below ? beside : beside.Parent();
        const auto typeOf = [&](std::string_view nodeKey) {
            const HostTable::Row row = hostTable.FindRow("NODEKEY", nodeKey);
            return row == 0 ? MacroNodeType::Folder : MacroNodeTypeOf(hostTable.Text(row, "NODETYPE"));
        };
        const MacroNodeType type = typeOf(key);
        const MacroNodeType holder = parent ? typeOf(parent.Key()) : MacroNodeType::Folder;
        if (type == MacroNodeType::Folder || type == MacroNodeType::Macro || type == MacroNodeType::Recording) {
            if (holder != MacroNodeType::Folder) {
                Say("Folders, macros and recordings stand in a folder, not in another macro.");
                return;
            }
        } else if (type == MacroNodeType::Step) {
            if (holder != MacroNodeType::Recording) {
                Say("A recorded step stands in a recording.");
                return;
            }
        } else if (holder == MacroNodeType::Folder || holder == MacroNodeType::Recording ||
                   holder == MacroNodeType::Step) {
            Say("An element stands in a macro.");
            return;
        }
        isWorking_ = true;
        if (!MacroTable(parts_.tree, hostTable).MoveTo(key, target, place)) {
            Say("A node cannot be moved into itself.");
            return;
        }
        Built(key);
        Announce();
    });
}

void MacroEditor::Delete() {
    Operate("Delete", [&] {
        const int current = Current();
        if (current == MacroNode::None) {
            return;
        }
        // Then the one before it on its level, else the one it was in.
        const MacroNode& node = outline_.At(current);
        std::string next;
        if (node.parent != MacroNode::None) {
            const std::vector<int>& siblings = outline_.At(node.parent).children;
            const auto place = std::find(siblings.begin(), siblings.end(), current);
            next = outline_.At(place == siblings.begin() ? node.parent : *std::prev(place)).key;
        }
        isWorking_ = true;
        MacroTable(parts_.tree, parts_.tables.MACRO_TREE).Delete(node.key);
        if (next.empty()) {
            macroKey_.clear();
        }
        Built(next);
        Announce();
    });
}

void MacroEditor::ToggleActive() {
    Operate("ToggleActive", [&] {
        const MacroNode* node = CurrentNode();
        if (!node || IsRecording()) {
            return;
        }
        const std::string key = node->key;
        isWorking_ = true;
        MacroTable(parts_.tree, parts_.tables.MACRO_TREE).SetInactive(key, !node->inactive);
        Built(key);
        Announce();
    });
}

// --- The macro

void MacroEditor::Check() {
    Operate("Generate", [&] {
        if (macroKey_.empty()) {
            Say("There is no macro to check. Select one in the tree.");
            return;
        }
        const MacroProblems problems = parts_.check(macroKey_);
        marksProblems_ = !problems.empty();
        Mark(problems);
        if (problems.empty()) {
            Say("The macro can run.", false);
        } else {
            Say(problems.front().Text() +
                (problems.size() > 1 ? " (" + std::to_string(problems.size() - 1) + " more)" : std::string()));
        }
    });
}

void MacroEditor::Run() {
    Operate("Run", [&] {
        if (macroKey_.empty()) {
            Say("There is no macro to run. Select one in the tree.");
            return;
        }
        if (!operandText_.empty() && !TakeText()) {
            return;
        }
        std::string done;
        const MacroProblems problems = parts_.run(macroKey_, done);
        marksProblems_ = !problems.empty();
        Mark(problems);
        if (problems.empty()) {
            Say(done, false);
        } else {
            Say(problems.front().Text() +
                (problems.size() > 1 ? " (" + std::to_string(problems.size() - 1) + " more)" : std::string()));
        }
    });
}

}  // namespace planview
