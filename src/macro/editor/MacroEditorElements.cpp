// SPDX-License-Identifier: MIT
// How the macro editor changes the elements of a macro.

#include <algorithm>

#include "automation/BusyScope.h"
#include "automation/EnteredNumber.h"
#include "automation/Texts.h"
#include "grid/CellRules.h"
#include "macro/editor/ElementSpots.h"
#include "macro/editor/MacroEditor.h"
#include "macro/editor/OperandNodes.h"

namespace planview {

bool MacroEditor::Add(const NewMacroNode& node) {
    std::string refusal;
    const std::optional<ElementSpot> at = SpotFor(outline_, {Current(), spot_}, node.type, refusal);
    if (!at) {
        Say(refusal);
        return false;
    }
    return Edit([&](MacroTable& table) { return table.Add(node, outline_.At(at->node).key, at->spot); });
}

void MacroEditor::NewMacro() {
    Change("NewMacro", [&] {
        TreeNodes& nodes = parts_.tree.Nodes();
        const auto isTaken = [&](const std::string& name) {
            for (int i = 1; i <= nodes.Count(); ++i) {
                if (nodes.Item(i).Text() == name) {
                    return true;
                }
            }
            return false;
        };
        NewMacroNode node;
        node.type = MacroNodeType::Macro;
        for (int number = 1; node.text.empty() || isTaken(node.text); ++number) {
            node.text = "Macro " + std::to_string(number);
        }
        Edit([&](MacroTable& table) {
            return table.Add(node, macroKey_, macroKey_.empty() ? MacroSpot::Inside : MacroSpot::After);
        });
        Announce();
        Say("Point at what gets a value, a line for example, and take it over.", false);
    });
}

void MacroEditor::AddCondition(bool otherwise) {
    Change("AddCondition", [&] {
        NewMacroNode node;
        node.type = MacroNodeType::Condition;
        node.value = otherwise ? "ELSE" : "IF";
        node.text = otherwise ? "Otherwise" : "If";
        if (otherwise) {
            const int condition = ConditionAround(outline_, Current());
            if (condition == MacroNode::None) {
                Say("\"Otherwise\" stands behind a condition. Select one first.");
                return;
            }
            currentKey_ = outline_.At(condition).key;
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
    const int at = ConditionAround(outline_, Current());
    if (at == MacroNode::None) {
        Say("A comparison belongs to a condition. Add one first.");
        return;
    }
    if (const int comparison = ComparisonOf(outline_, at); comparison != MacroNode::None) {
        Build(outline_.At(comparison).key);
        return;
    }
    NewMacroNode node;
    node.type = MacroNodeType::ConditionString;
    node.text = "Comparison";
    Edit([&](MacroTable& table) {
        const MacroNode& condition = outline_.At(at);
        return condition.children.empty()
                   ? table.Add(node, condition.key, MacroSpot::Inside)
                   : table.Add(node, outline_.At(condition.children.front()).key, MacroSpot::Before);
    });
}

void MacroEditor::NextStatement() {
    AsOneStep([&] {
        Operate("NextStatement", [&] {
            if (!operandText_.empty() && !TakeText()) {
                return;
            }
            int at = Current();
            while (at > 0 && !HoldsStatements(outline_.At(outline_.At(at).parent).type)) {
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

namespace {

bool IsOwn(const MacroNode& node) noexcept {
    return node.type >= MacroNodeType::OwnLine && node.type <= MacroNodeType::OwnArea;
}

/// The text that the node gets for an entered one, or why it takes none.
struct NewName {
    std::string text;
    std::string fault = {};  ///< empty where it takes the text
    std::string guess = {};  ///< how a number was taken that could have meant another one
};

NewName NameFrom(const GridControl& grid, const MacroOutline& outline, int at, const std::string& entered) {
    if (Trimmed(entered).empty()) {
        return {.text = {}, .fault = "A name cannot be empty."};
    }
    if (outline.At(at).type != MacroNodeType::Constant) {
        return {.text = entered};
    }
    const std::optional<EnteredNumber> constant = ReadConstant(grid, outline, at, entered);
    if (!constant) {
        return {.text = {}, .fault = "\"" + entered + "\" is not a number. Enter digits with a point or a comma."};
    }
    return {.text = TableText(entered, constant->number), .guess = GuessText(*constant)};
}

/// The nodes that get a new text with this one: own lines, elements and areas are renamed everywhere in the macro.
std::vector<const MacroNode*> Renamed(const MacroOutline& outline, const MacroNode& node) {
    std::vector<const MacroNode*> nodes{&node};
    for (int i = 0; IsOwn(node) && i < outline.Count(); ++i) {
        const MacroNode& each = outline.At(i);
        if (&each != &node && each.type == node.type && each.value == node.value) {
            nodes.push_back(&each);
        }
    }
    return nodes;
}

void PutName(MacroTable& table, const std::vector<const MacroNode*>& nodes, const std::string& text) {
    for (const MacroNode* node : nodes) {
        if (IsOwn(*node) || node->type == MacroNodeType::Constant) {
            table.SetValue(node->key, text);
        }
        table.SetText(node->key, text);
    }
}

}  // namespace

void MacroEditor::Rename(const std::string& entered) {
    Change("Rename", [&] {
        const MacroNode* node = CurrentNode();
        if (!node || entered == NameToEdit()) {
            return;
        }
        const NewName name = NameFrom(parts_.grid, outline_, Current(), entered);
        if (!name.fault.empty()) {
            Say(name.fault);
            return;
        }
        Edit([&](MacroTable& table) {
            PutName(table, Renamed(outline_, *node), name.text);
            return node->key;
        });
        Announce();
        if (!name.guess.empty()) {
            Say(name.guess, false);
        }
    });
}

std::string MacroEditor::RenameNode(const std::string& key, const std::string& text) {
    if (!MayChange()) {
        return std::string(RefusalText(Refusal::TableReadOnly));
    }
    const HostTable table = parts_.tables.MACRO_TREE;
    const std::string macro = MacroKeyOf(parts_.tree, table, key);
    const MacroOutline outline = MacroOutline::Read(parts_.tree, table, macro.empty() ? key : macro);
    const int at = outline.Find(key);
    if (at == MacroNode::None) {
        return {};
    }
    const MacroNode& node = outline.At(at);
    const NewName name = NameFrom(parts_.grid, outline, at, text);
    if (!name.fault.empty()) {
        return name.fault;
    }
    const std::vector<const MacroNode*> nodes = Renamed(outline, node);
    AsOneStep([&] { Write([&](MacroTable& rows) { PutName(rows, nodes, name.text); }); });
    {
        const BusyScope working(isWorking_);
        for (const MacroNode* each : nodes) {
            if (const TreeNode shown = parts_.tree.Nodes().Find(each->key)) {
                shown.SetText(name.text);
            }
        }
    }
    Reload();
    return {};
}

void MacroEditor::Move(bool up) {
    Change(up ? "MoveUp" : "MoveDown", [&] {
        const MacroNode* node = CurrentNode();
        if (!node || Current() == 0) {
            return;
        }
        const bool moved = Edit(
            [&](MacroTable& table) { return table.Move(node->key, up) ? std::optional(node->key) : std::nullopt; });
        if (moved) {
            Announce();
        } else {
            Say(up ? "It is the first of its level." : "It is the last of its level.", false);
        }
    });
}

void MacroEditor::MoveTo(const std::string& key, const std::string& target, TreeDrop drop) {
    Change("MoveTo", [&] {
        const HostTable macroTree = parts_.tables.MACRO_TREE;
        const TreeNode beside = parts_.tree.Nodes().Item(target);
        const TreeNode parent = drop == TreeDrop::Below ? beside : beside.Parent();
        const auto typeOf = [&](std::string_view nodeKey) {
            const HostTable::Row row = macroTree.FindRow("NODEKEY", nodeKey);
            return row == 0 ? MacroNodeType::Folder : MacroNodeTypeOf(macroTree.Text(row, "NODETYPE"));
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
        const bool moved = Edit(
            [&](MacroTable& table) { return table.MoveTo(key, target, drop) ? std::optional(key) : std::nullopt; });
        if (moved) {
            Announce();
        } else {
            Say("A node cannot be moved into itself.");
        }
    });
}

bool MacroEditor::AgreesToDelete() {
    const std::string key = macroKey_;
    const int parts = outline_.Count() - 1;
    const MessageAnswer answer = parts_.messageBoxes.Show(
        {"Delete the " + std::string(IsRecording() ? "recording" : "macro") + " \"" + outline_.At(0).text + "\"" +
             (parts == 0 ? "?" : " with " + Counted(parts, IsRecording() ? "step" : "element") + "?"),
         "Macros", MessageButtons::YesNo, MessageIcon::Question, MessageAnswer::No});
    // The host may have chosen another one meanwhile.
    return answer == MessageAnswer::Yes && macroKey_ == key && Current() == 0;
}

void MacroEditor::Delete() {
    Change("Delete", [&] {
        const int current = Current();
        if (current == MacroNode::None) {
            return;
        }
        if (current == 0 && !AgreesToDelete()) {
            return;
        }
        // Afterwards the previous sibling is current, or else the parent.
        const MacroNode& node = outline_.At(current);
        std::string next;
        if (node.parent != MacroNode::None) {
            const std::vector<int>& siblings = outline_.At(node.parent).children;
            const auto found = std::find(siblings.begin(), siblings.end(), current);
            next = outline_.At(found == siblings.begin() ? node.parent : *std::prev(found)).key;
        }
        Edit([&](MacroTable& table) {
            table.Delete(node.key);
            if (next.empty()) {
                macroKey_.clear();
            }
            return next;
        });
        Announce();
    });
}

void MacroEditor::ToggleActive() {
    Change("ToggleActive", [&] {
        const MacroNode* node = CurrentNode();
        if (!node || IsRecording()) {
            return;
        }
        Edit([&](MacroTable& table) {
            table.SetInactive(node->key, !node->inactive);
            return node->key;
        });
        Announce();
    });
}

}  // namespace planview
