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

/// One node of MACRO_TREE with its macro editor fields.
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

/// Finds rows by node key. Reads every `NODEKEY` once, so it must not outlive an action: the host may change its table
/// afterwards.
class MacroRows {
public:
    explicit MacroRows(const HostTable& table);

    /// The first row with this key, 0 if there is none.
    [[nodiscard]] HostTable::Row Find(std::string_view key) const;
    /// An unused key: "M" and a number.
    [[nodiscard]] std::string NewKey();

private:
    std::unordered_map<std::string, HostTable::Row> rows_;
    int lastNumber_ = 0;
};

/// A copy of a node and its descendants. The node has index 0; the others follow in tree order, parents before
/// children.
class MacroOutline {
public:
    /// Empty if the tree has no such node. Passes on what the table throws. If the table lacks the macro editor's
    /// fields, every node is a folder.
    [[nodiscard]] static MacroOutline Read(TreeControl& tree, const HostTable& table, std::string_view key);

    [[nodiscard]] bool IsEmpty() const noexcept { return nodes_.empty(); }
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(nodes_.size()); }
    [[nodiscard]] const MacroNode& At(int index) const { return nodes_.at(static_cast<std::size_t>(index)); }
    /// MacroNode::None if there is no such node.
    [[nodiscard]] int Find(std::string_view key) const noexcept;
    /// The children that are not inactive.
    [[nodiscard]] std::vector<int> ActiveChildren(int index) const;
    /// Whether the node is assigned a value: a line, element or area directly under a macro or a condition.
    [[nodiscard]] bool IsTarget(int index) const;
    /// Replaces the only grid line that the macro is about by the selected line. Returns false and changes nothing if
    /// it is about no line or several; a macro that uses "SELECTED" already stays as it is.
    bool PutOnSelectedLine();

private:
    std::vector<MacroNode> nodes_;
};

/// A line, element or area of the grid or of the macro itself.
[[nodiscard]] bool IsOperandType(MacroNodeType type) noexcept;

/// The key of the macro or recording that the node is or belongs to; empty if there is none.
[[nodiscard]] std::string MacroKeyOf(TreeControl& tree, const HostTable& table, std::string_view nodeKey);

}  // namespace planview
