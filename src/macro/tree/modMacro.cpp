// SPDX-License-Identifier: MIT
#include "macro/tree/modMacro.h"

#include <algorithm>
#include <string>
#include <vector>

#include <planview/AutomationObject.h>

#include "automation/BusyScope.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview::modMacro {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

/// Holds back the repaints.
class RedrawOff {
public:
    explicit RedrawOff(TreeControl& control) : control_(control) { control.SetRedraw(false); }
    ~RedrawOff() { control_.SetRedraw(true); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;

private:
    TreeControl& control_;
};

Tree& NotRunning(Tree& tree) {
    if (tree.running) {
        throw AutomationError(AutomationErrorCode::Failed, "The macro tree is being worked on already");
    }
    return tree;
}

/// Refuses to run one procedure inside another. The view is updated after the end.
class Run {
public:
    explicit Run(Tree& tree) : redrawOff_(NotRunning(tree).control), running_(tree.running) {}

private:
    RedrawOff redrawOff_;
    BusyScope running_;
};

TreeRelationship RelationIn(const HostTable& table, HostTable::Row row, const std::string& reference) {
    const Variant value = table.Value(row, "RELATION");
    const std::string* text = value.TextIf();
    if (reference.empty() && text && text->empty()) {
        return TreeRelationship::Last;  // a root has no sibling to refer to
    }
    const bool isNumber = value.GetKind() == Variant::Kind::Int16 || value.GetKind() == Variant::Kind::Empty;
    return static_cast<TreeRelationship>(isNumber ? value.AsInt16() : table.Int16(row, "RELATION"));
}

/// The field is optional.
bool HasInactive(const HostTable& table) {
    return table.RowCount() > 0 && !ErrorTextOf([&] { static_cast<void>(table.Value(1, "INACTIVE")); });
}

void AddNode(TreeControl& control, const HostTable& table, HostTable::Row row, const std::string& key,
             const std::string& reference, bool hasInactive) {
    const TreeRelationship relation = RelationIn(table, row, reference);
    const std::string text = table.Text(row, "NODETEXT");
    const std::string image = table.Text(row, "IMAGE");
    const TreeNode node = control.Nodes().Add(reference, relation, key, text, image, table.Text(row, "IMAGE_SEL"));
    node.SetExpanded(table.Flag(row, "EXPANDED"));
    node.SetLeftOut(hasInactive && table.Flag(row, "INACTIVE"));
    if (TraceEnabled) {
        TraceWrite(Label, "", "Update", TraceText("{node: ", key, " - text: ", text, "}"));
    }
}

/// First the roots, then the others. `NODEREF` is read only once: late-bound calls take most of the time here.
void AddNodes(TreeControl& control, const HostTable& table) {
    const bool hasInactive = HasInactive(table);
    const int count = table.RowCount();
    std::vector<std::string> references(static_cast<std::size_t>(std::max(count, 0)));
    for (const bool roots : {true, false}) {
        for (int i = 1; i <= count; ++i) {
            const auto row = static_cast<HostTable::Row>(i);
            std::string& reference = references[static_cast<std::size_t>(i) - 1];
            if (roots) {
                reference = table.Text(row, "NODEREF");
            }
            if (reference.empty() != roots) {
                continue;
            }
            const std::string key = table.Text(row, "NODEKEY");
            if (!key.empty()) {
                AddNode(control, table, row, key, reference, hasInactive);
            }
        }
    }
}

void SetAll(Tree& tree, bool expanded) {
    const HostTable table = tree.tables.MACRO_TREE;
    TreeNodes& nodes = tree.control.Nodes();
    for (int i = 1; i <= nodes.Count(); ++i) {
        nodes.Item(i).SetExpanded(expanded);
        table.PutFlag(static_cast<HostTable::Row>(i), "EXPANDED", expanded);
    }
}

}  // namespace

void Build(Tree& tree) {
    const Run run(tree);
    const HostTable table = tree.tables.MACRO_TREE;
    const TreeNode selectedBefore = tree.control.SelectedItem();
    const std::string selected = selectedBefore ? selectedBefore.Key() : std::string();
    tree.control.Nodes().Clear();
    struct SelectAgain {
        TreeControl& control;
        const std::string& key;
        ~SelectAgain() {
            if (const TreeNode node = control.Nodes().Find(key)) {
                node.SetSelected(true);
            }
        }
    } const selectAgain{tree.control, selected};
    AddNodes(tree.control, table);
}

bool NotRoot(const Tree& tree, std::string_view key) {
    const HostTable table = tree.tables.MACRO_TREE;
    const HostTable::Row row = table.FindRow("NODEKEY", key);
    const bool notRoot = row > 0 && !table.Text(row, "NODEREF").empty();
    if (TraceEnabled) {
        // Without its closing bracket: the text of this entry is fixed.
        TraceWrite(Label, "", "NotRoot", TraceText("{value: ", notRoot));
    }
    return notRoot;
}

void ExpandAll(Tree& tree) {
    {
        const Run run(tree);
        SetAll(tree, true);
        if (tree.control.Nodes().Count() > 0) {
            const TreeNode first = tree.control.Nodes().Item(1);
            first.SetSelected(true);
            first.EnsureVisible();
        }
    }
    tree.events.Raise(EventId::MacroTreeExpand);
}

void CollapseAll(Tree& tree) {
    {
        const Run run(tree);
        SetAll(tree, false);
    }
    tree.events.Raise(EventId::MacroTreeCollapse);
}

void ChangeLabels(Tree& tree, const std::function<void()>& change) {
    const Run run(tree);
    change();
}

void PutExpanded(Tree& tree, std::string_view key, bool expanded) {
    const Run run(tree);
    const HostTable table = tree.tables.MACRO_TREE;
    if (const HostTable::Row row = table.FindRow("NODEKEY", key); row > 0) {
        table.PutFlag(row, "EXPANDED", expanded);
    }
}

HostTable::Row RowOf(const Tree& tree, std::string_view key) {
    const HostTable table = tree.tables.MACRO_TREE;
    const HostTable::Row row = table.FindRow("NODEKEY", key);
    if (row == 0) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "MACRO_TREE has no row with the NODEKEY \"" + std::string(key) + "\"");
    }
    return row;
}

}  // namespace planview::modMacro
