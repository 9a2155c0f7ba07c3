// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "automation/HostTable.h"
#include "components/TreeControl.h"
#include "macro/tree/MacroHistory.h"
#include "macro/tree/MacroNodes.h"
#include "macro/tree/MacroOutline.h"

namespace planview {

/// Where a new node goes relative to another one.
enum class MacroSpot { Before, After, Inside };

struct NewMacroNode {
    MacroNodeType type = MacroNodeType::Folder;
    std::string value;
    std::string name;
    std::string text;
};

/// Changes the nodes of macros in MACRO_TREE. The tree is not updated: rebuild it after each call except the setters.
///
/// Rows do not move. A host's table has no way to remove a row, so the rows of deleted nodes stay with empty fields: a
/// row without `NODEKEY` is no node. New nodes reuse such rows. Reordering rewrites `NODEREF` and `RELATION` of the
/// siblings. Every method passes on what the table throws.
class MacroTable {
public:
    /// The changes get what is put, and must outlive the object.
    MacroTable(TreeControl& tree, HostTable table, MacroChanges& changes)
        : tree_(tree), table_(std::move(table)), changes_(changes), rows_(table_) {}

    /// Adds a node and returns its key. Without `beside` it becomes the last root.
    std::string Add(const NewMacroNode& node, std::string_view beside, MacroSpot spot);
    /// Deletes the node and its descendants.
    void Delete(std::string_view key);
    /// Swaps the node with its previous (next) sibling; false if there is none.
    bool Move(std::string_view key, bool up);
    /// Moves the node and its descendants beside or below the target; false if the target is one of them. Nodes whose
    /// rows would be read before that of their new parent get new rows; the host's own fields are not copied.
    bool MoveTo(std::string_view key, std::string_view target, TreeDrop drop);

    void SetText(std::string_view key, std::string_view text) { Put(key, "NODETEXT", text); }
    void SetValue(std::string_view key, std::string_view value) { Put(key, "NODEVALUE", value); }
    void SetName(std::string_view key, std::string_view name) { Put(key, "NODENAME", name); }
    void SetInactive(std::string_view key, bool inactive) { Put(key, "INACTIVE", inactive ? "X" : ""); }

private:
    using Keys = std::vector<std::string>;

    void Put(std::string_view key, std::string_view field, std::string_view value);
    void Write(HostTable::Row row, std::string_view field, const Variant& value);
    [[nodiscard]] HostTable::Row RowFor(std::string_view parent);
    void Relate(HostTable::Row row, std::string_view reference, TreeRelationship relation);
    /// Puts the children of `parent` into this order.
    void Arrange(const std::string& parent, const Keys& order);
    void ReleaseRoots(std::string_view key);
    void Empty(HostTable::Row row);
    void PutBehind(HostTable::Row row, const MacroOutline& moved);
    [[nodiscard]] static Keys ChildrenOf(const TreeNode& parent);
    [[nodiscard]] int BuildOrder(HostTable::Row row) const;

    TreeControl& tree_;
    HostTable table_;
    MacroChanges& changes_;
    MacroRows rows_;
};

/// The name of the tree picture for nodes of this type.
[[nodiscard]] PLANVIEW_EXPORT std::string_view MacroImageOf(MacroNodeType type) noexcept;

}  // namespace planview
