// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "automation/HostTable.h"
#include "components/TreeControl.h"
#include "macro/tree/MacroNodes.h"

namespace planview {

/// One node of MACRO_TREE with what the macro editor's fields say of it.
struct MacroNode {
    static constexpr int None = -1;

    std::string key;
    std::string text;
    MacroNodeType type = MacroNodeType::Folder;
    std::string value;
    std::string name;
    bool inactive = false;
    HostTable::Row row = 0;  ///< in MACRO_TREE
    int parent = None;
    int depth = 0;
    std::vector<int> children;
};

/// Finds the row of a node key. Reads every `NODEKEY` once; lives no longer than one action, because the host may
/// change its table between two.
class MacroRows {
public:
    explicit MacroRows(const HostTable& table);

    /// The first row with this key, 0 when there is none.
    [[nodiscard]] HostTable::Row Find(std::string_view key) const;
    /// A key "M" with a number behind it that no row has.
    [[nodiscard]] std::string NewKey();

private:
    std::unordered_map<std::string, HostTable::Row> rows_;
    int lastNumber_ = 0;
};

/// A node and all that is below it, as a copy: the node itself is number 0, the others follow in the order of the tree,
/// each parent before its children.
class MacroOutline {
public:
    /// Empty where the tree has no node of that key. Throws as the table does; a table without the fields of the macro
    /// editor gives nodes that are all folders.
    [[nodiscard]] static MacroOutline Read(TreeControl& tree, const HostTable& table, std::string_view key);

    [[nodiscard]] bool IsEmpty() const noexcept { return nodes_.empty(); }
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(nodes_.size()); }
    [[nodiscard]] const MacroNode& At(int index) const { return nodes_.at(static_cast<std::size_t>(index)); }
    /// MacroNode::None where there is none.
    [[nodiscard]] int Find(std::string_view key) const noexcept;
    /// The children that take part in a run.
    [[nodiscard]] std::vector<int> ActiveChildren(int index) const;
    /// Whether the node gives something its value, not only names it: a table or own kind directly under a macro or a
    /// condition.
    [[nodiscard]] bool IsTarget(int index) const;
    /// Puts the selected line in the place of the line of the grid that the macro is about. False, and nothing done,
    /// where it is about none or several; one that says "SELECTED" already stays as it is.
    bool PutOnSelectedLine();

private:
    std::vector<MacroNode> nodes_;
};

/// A line, an element or an area, of the grid or the macro's own.
[[nodiscard]] bool IsPlaceType(MacroNodeType type) noexcept;

/// The key of the macro or recording that the node is or stands in; empty where there is none.
[[nodiscard]] std::string MacroKeyOf(TreeControl& tree, const HostTable& table, std::string_view nodeKey);

}  // namespace planview
