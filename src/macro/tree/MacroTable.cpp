// SPDX-License-Identifier: MIT
#include "macro/tree/MacroTable.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace planview {

namespace {

constexpr std::array<std::string_view, 8> TextFields{"NODETEXT", "NODETYPE", "NODEVALUE", "NODENAME",
                                                     "INACTIVE", "IMAGE",    "IMAGE_SEL", "EXPANDED"};

}  // namespace

void MacroTable::Write(HostTable::Row row, std::string_view field, const Variant& value) {
    changes_.Put(table_, row, field, value);
}

void MacroTable::Put(std::string_view key, std::string_view field, std::string_view value) {
    const HostTable::Row row = rows_.Find(key);
    if (row == 0) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "MACRO_TREE has no node \"" + std::string(key) + "\"");
    }
    Write(row, field, value);
}

/// Roots are built first.
int MacroTable::BuildOrder(HostTable::Row row) const {
    return table_.Text(row, "NODEREF").empty() ? 0 : row;
}

/// An empty row after the parent's, or else a new one.
HostTable::Row MacroTable::RowFor(std::string_view parent) {
    const int count = table_.RowCount();
    const HostTable::Row parentRow = parent.empty() ? HostTable::Row(0) : rows_.Find(parent);
    for (int row = 1 + (parentRow == 0 ? 0 : BuildOrder(parentRow)); row <= count; ++row) {
        if (table_.Text(static_cast<HostTable::Row>(row), "NODEKEY").empty()) {
            return static_cast<HostTable::Row>(row);
        }
    }
    return table_.AddRow();
}

void MacroTable::Relate(HostTable::Row row, std::string_view reference, TreeRelationship relation) {
    if (table_.Text(row, "NODEREF") != reference) {
        Write(row, "NODEREF", reference);
    }
    Write(row, "RELATION", static_cast<std::int16_t>(relation));
}

MacroTable::Keys MacroTable::ChildrenOf(const TreeNode& parent) {
    Keys keys;
    for (TreeNode child = parent.FirstChild(); child; child = child.NextSibling()) {
        keys.push_back(child.Key());
    }
    return keys;
}

std::string MacroTable::Add(const NewMacroNode& node, std::string_view beside, MacroSpot spot) {
    const TreeNode relative = beside.empty() ? TreeNode() : tree_.Nodes().Item(beside);
    const TreeNode parent = spot == MacroSpot::Inside || !relative ? relative : relative.Parent();
    const std::string parentKey = parent ? parent.Key() : std::string();
    const HostTable::Row row = RowFor(parentKey);
    Write(row, "NODETYPE", NameOf(node.type));  // first, because a table may lack it
    for (const std::string_view field : {"INACTIVE", "EXPANDED", "NODEREF"}) {
        Write(row, field, "");
    }
    Write(row, "NODEVALUE", node.value);
    Write(row, "NODENAME", node.name);
    Write(row, "NODETEXT", node.text);
    Write(row, "IMAGE", MacroImageOf(node.type));
    Write(row, "IMAGE_SEL", MacroImageOf(node.type));
    Relate(row, "", TreeRelationship::Child);
    const std::string key = rows_.NewKey();
    Write(row, "NODEKEY", key);
    rows_ = MacroRows(table_);
    if (!parent) {
        return key;
    }
    Keys order = ChildrenOf(parent);
    auto at = order.end();
    if (spot != MacroSpot::Inside) {
        at = std::find(order.begin(), order.end(), beside) + (spot == MacroSpot::After ? 1 : 0);
    }
    order.insert(at, key);
    Arrange(parentKey, order);
    Write(rows_.Find(parentKey), "EXPANDED", "X");
    return key;
}

void MacroTable::Arrange(const std::string& parent, const Keys& order) {
    std::map<HostTable::Row, std::size_t> byRow;  // in build order
    for (std::size_t i = 0; i < order.size(); ++i) {
        byRow.emplace(rows_.Find(order[i]), i);
    }
    std::set<std::size_t> placed;
    for (const auto& [row, index] : byRow) {
        const auto next = placed.upper_bound(index);
        if (next != placed.begin()) {
            Relate(row, order[*std::prev(next)], TreeRelationship::Next);
        } else if (next != placed.end()) {
            Relate(row, order[*next], TreeRelationship::Previous);
        } else {
            Relate(row, parent, TreeRelationship::Child);
        }
        placed.insert(index);
    }
}

void MacroTable::Delete(std::string_view key) {
    const TreeNode node = tree_.Nodes().Item(key);
    const MacroOutline below = MacroOutline::Read(tree_, table_, key);
    if (const TreeNode parent = node.Parent()) {
        Keys order = ChildrenOf(parent);
        std::erase(order, key);
        Arrange(parent.Key(), order);
    } else {
        ReleaseRoots(key);
    }
    for (int i = 0; i < below.Count(); ++i) {
        if (const HostTable::Row row = below.At(i).row; row != 0) {
            Empty(row);
        }
    }
    rows_ = MacroRows(table_);
}

/// A row without a key is no node.
void MacroTable::Empty(HostTable::Row row) {
    Write(row, "NODEKEY", "");
    Write(row, "NODEREF", "");
    for (const std::string_view field : TextFields) {
        Write(row, field, "");
    }
}

/// Makes the roots that refer to this one refer to another one, or to none.
void MacroTable::ReleaseRoots(std::string_view key) {
    std::string other;
    for (TreeNode root = tree_.Nodes().FirstRoot(); root; root = root.NextSibling()) {
        const HostTable::Row row = rows_.Find(root.Key());
        if (other.empty() && root.Key() != key && row != 0 && table_.Text(row, "NODEREF").empty()) {
            other = root.Key();
        }
    }
    for (TreeNode root = tree_.Nodes().FirstRoot(); root; root = root.NextSibling()) {
        const HostTable::Row row = rows_.Find(root.Key());
        if (row != 0 && table_.Text(row, "NODEREF") == key) {
            Relate(row, other, other.empty() ? TreeRelationship::Child : TreeRelationship::Last);
            other = other.empty() ? root.Key() : other;
        }
    }
}

bool MacroTable::Move(std::string_view key, bool up) {
    const TreeNode node = tree_.Nodes().Item(key);
    const TreeNode parent = node.Parent();
    const TreeNode other = up ? node.PreviousSibling() : node.NextSibling();
    if (!parent || !other) {
        return false;
    }
    Keys order = ChildrenOf(parent);
    std::iter_swap(std::find(order.begin(), order.end(), key), std::find(order.begin(), order.end(), other.Key()));
    Arrange(parent.Key(), order);
    return true;
}

/// Moves the nodes into new rows after this one, in build order, unless theirs already come after it.
void MacroTable::PutBehind(HostTable::Row row, const MacroOutline& moved) {
    std::map<int, HostTable::Row> byOrder;
    for (int i = 0; i < moved.Count(); ++i) {
        if (const HostTable::Row old = moved.At(i).row; old != 0) {
            byOrder.emplace(BuildOrder(old), old);
        }
    }
    if (byOrder.empty() || byOrder.begin()->first > row) {
        return;
    }
    for (const auto& [order, old] : byOrder) {
        const HostTable::Row fresh = table_.AddRow();
        for (const std::string_view field : TextFields) {
            Write(fresh, field, table_.Text(old, field));
        }
        Write(fresh, "NODEREF", table_.Text(old, "NODEREF"));
        Write(fresh, "RELATION", table_.Value(old, "RELATION"));
        const std::string key = table_.Text(old, "NODEKEY");
        Empty(old);
        Write(fresh, "NODEKEY", key);
    }
    rows_ = MacroRows(table_);
}

bool MacroTable::MoveTo(std::string_view key, std::string_view target, TreeDrop drop) {
    const TreeNode node = tree_.Nodes().Item(key);
    const TreeNode beside = tree_.Nodes().Item(target);
    for (TreeNode above = beside; above; above = above.Parent()) {
        if (above == node) {
            return false;
        }
    }
    const TreeNode oldParent = node.Parent();
    const TreeNode parent = drop == TreeDrop::Below ? beside : beside.Parent();
    const MacroOutline moved = MacroOutline::Read(tree_, table_, key);
    if (parent != oldParent && oldParent) {
        Keys left = ChildrenOf(oldParent);
        std::erase(left, key);
        Arrange(oldParent.Key(), left);
    } else if (!oldParent) {
        ReleaseRoots(key);
    }
    const HostTable::Row anchor = rows_.Find(parent ? parent.Key() : target);
    PutBehind(static_cast<HostTable::Row>(BuildOrder(anchor)), moved);
    if (!parent) {
        Relate(rows_.Find(key), target, drop == TreeDrop::Before ? TreeRelationship::Previous : TreeRelationship::Next);
        return true;
    }
    Keys order = ChildrenOf(parent);
    std::erase(order, key);
    const auto at = drop == TreeDrop::Below ? order.end() : std::find(order.begin(), order.end(), target);
    order.insert(at + (drop == TreeDrop::After ? 1 : 0), std::string(key));
    Arrange(parent.Key(), order);
    Write(rows_.Find(parent.Key()), "EXPANDED", "X");
    return true;
}

std::string_view MacroImageOf(MacroNodeType type) noexcept {
    constexpr std::array<std::string_view, MacroNodeNames.size()> Images{"macro-folder",     "macro",
                                                                         "macro-attribute",  "macro-condition",
                                                                         "macro-condstring", "macro-tabline",
                                                                         "macro-tabelement", "macro-tabarea",
                                                                         "macro-makline",    "macro-makelement",
                                                                         "macro-makarea",    "macro-operator",
                                                                         "macro-function",   "macro-constant",
                                                                         "macro-recording",  "macro-step"};
    return Images[static_cast<std::size_t>(type)];
}

}  // namespace planview
