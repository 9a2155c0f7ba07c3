// SPDX-License-Identifier: MIT
#include "macro/tree/MacroOutline.h"

#include <algorithm>
#include <charconv>

#include "automation/ErrorText.h"

namespace planview {

namespace {

/// The fields that only the macro editor uses; a host's table may lack them.
class EditorFields {
public:
    explicit EditorFields(const HostTable& table) : table_(table) {}

    [[nodiscard]] std::string Text(HostTable::Row row, std::string_view field) {
        if (!known_) {
            known_ = true;
            there_ = !ErrorTextOf([&] { static_cast<void>(table_.Value(row, "NODETYPE")); });
        }
        return there_ ? table_.Text(row, field) : std::string();
    }

private:
    const HostTable& table_;
    bool known_ = false;
    bool there_ = false;
};

MacroNode ReadNode(const TreeNode& node, EditorFields& fields, HostTable::Row row) {
    MacroNode read;
    read.key = node.Key();
    read.text = node.Text();
    read.row = row;
    if (row != 0) {
        read.type = MacroNodeTypeOf(fields.Text(row, "NODETYPE"));
        read.value = fields.Text(row, "NODEVALUE");
        read.name = fields.Text(row, "NODENAME");
        read.inactive = fields.Text(row, "INACTIVE") == "X";
    }
    return read;
}

/// The next node in tree order below `top`; a null node at the end.
TreeNode NextInOrder(TreeNode node, const TreeNode& top) {
    if (const TreeNode child = node.FirstChild()) {
        return child;
    }
    while (node && node != top) {
        if (const TreeNode next = node.NextSibling()) {
            return next;
        }
        node = node.Parent();
    }
    return {};
}

}  // namespace

MacroRows::MacroRows(const HostTable& table) {
    const int count = table.RowCount();
    rows_.reserve(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        const std::string key = table.Text(row, "NODEKEY");
        if (key.empty()) {
            continue;
        }
        rows_.emplace(key, row);
        int number = 0;
        const char* const end = key.data() + key.size();
        if (key.front() == 'M' && std::from_chars(key.data() + 1, end, number).ptr == end) {
            lastNumber_ = std::max(lastNumber_, number);
        }
    }
}

HostTable::Row MacroRows::Find(std::string_view key) const {
    const auto found = rows_.find(std::string(key));
    return found == rows_.end() ? HostTable::Row(0) : found->second;
}

std::string MacroRows::NewKey() {
    return "M" + std::to_string(++lastNumber_);
}

MacroOutline MacroOutline::Read(TreeControl& tree, const HostTable& table, std::string_view key) {
    MacroOutline outline;
    const TreeNode top = tree.Nodes().Find(key);
    if (!top) {
        return outline;
    }
    const MacroRows rows(table);
    EditorFields fields(table);
    const int level = top.Level();
    std::vector<int> open;  // the last node read on each level
    for (TreeNode node = top; node; node = NextInOrder(node, top)) {
        const int index = outline.Count();
        MacroNode& read = outline.nodes_.emplace_back(ReadNode(node, fields, rows.Find(node.Key())));
        read.depth = node.Level() - level;
        open.resize(static_cast<std::size_t>(read.depth));
        if (!open.empty()) {
            read.parent = open.back();
            outline.nodes_[static_cast<std::size_t>(read.parent)].children.push_back(index);
        }
        open.push_back(index);
    }
    return outline;
}

int MacroOutline::Find(std::string_view key) const noexcept {
    const auto found =
        std::find_if(nodes_.begin(), nodes_.end(), [&](const MacroNode& node) { return node.key == key; });
    return found == nodes_.end() ? MacroNode::None : static_cast<int>(found - nodes_.begin());
}

std::vector<int> MacroOutline::ActiveChildren(int index) const {
    std::vector<int> active;
    for (const int child : At(index).children) {
        if (!At(child).inactive) {
            active.push_back(child);
        }
    }
    return active;
}

bool MacroOutline::IsTarget(int index) const {
    const MacroNode& node = At(index);
    if (!IsOperandType(node.type) || node.parent == MacroNode::None) {
        return false;
    }
    const MacroNodeType parent = At(node.parent).type;
    return parent == MacroNodeType::Macro || parent == MacroNodeType::Condition;
}

bool MacroOutline::PutOnSelectedLine() {
    constexpr std::string_view Selected = "SELECTED";
    std::string only;
    for (const MacroNode& node : nodes_) {
        const bool isGrid = node.type >= MacroNodeType::TableLine && node.type <= MacroNodeType::TableArea;
        if (node.type == MacroNodeType::TableLine && node.value == Selected) {
            return true;
        }
        if (isGrid && (node.type != MacroNodeType::TableLine || (!only.empty() && only != node.value))) {
            return false;
        }
        only = isGrid ? node.value : only;
    }
    for (MacroNode& node : nodes_) {
        if (node.type == MacroNodeType::TableLine) {
            node.value = Selected;
            node.name.clear();
        }
    }
    return !only.empty();
}

bool IsOperandType(MacroNodeType type) noexcept {
    return type >= MacroNodeType::TableLine && type <= MacroNodeType::OwnArea;
}

std::string MacroKeyOf(TreeControl& tree, const HostTable& table, std::string_view nodeKey) {
    TreeNode node = tree.Nodes().Find(nodeKey);
    if (!node) {
        return {};
    }
    const MacroRows rows(table);
    EditorFields fields(table);
    for (; node; node = node.Parent()) {
        const HostTable::Row row = rows.Find(node.Key());
        const MacroNodeType type = row == 0 ? MacroNodeType::Folder : MacroNodeTypeOf(fields.Text(row, "NODETYPE"));
        if (type == MacroNodeType::Macro || type == MacroNodeType::Recording) {
            return node.Key();
        }
    }
    return {};
}

}  // namespace planview
