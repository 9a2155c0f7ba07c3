// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "automation/HostTable.h"
#include "components/TreeControl.h"
#include "macro/tree/MacroNodes.h"
#include "macro/tree/MacroOutline.h"

namespace planview {

/// Where a new node goes, seen from another one.
enum class MacroSpot { Before, After, Inside };

struct NewMacroNode {
    MacroNodeType type = MacroNodeType::Folder;
    std::string value;
    std::string name;
    std::string text;
};

/// Changes the nodes of macros in MACRO_TREE. The tree still shows what the table held before: it is to be built anew
/// after each call but the setters.
///
/// Rows keep their places. A tree control's table offers no way to remove a row, so the rows of deleted nodes stay,
/// with all fields of theirs empty: a row without `NODEKEY` is no node. New nodes take such rows again. Where nodes
/// change their order, `NODEREF` and `RELATION` of their siblings are written anew. Every method throws as the table
/// does.
class MacroTable {
public:
    MacroTable(TreeControl& tree, HostTable table) : tree_(tree), table_(std::move(table)), rows_(table_) {}

    /// Adds a node and answers its key. Without `beside` it becomes the last root.
    std::string Add(const NewMacroNode& node, std::string_view beside, MacroSpot spot);
    /// With all below it.
    void Delete(std::string_view key);
    /// Exchanges the node with the sibling before (behind) it; false where there is none.
    bool Move(std::string_view key, bool up);
    /// Moves the node with all below it beside or below the target; false where the target is one of these. Where its
    /// rows would be read before those of its new place, it gets new ones: fields of the host's own stay behind then.
    bool MoveTo(std::string_view key, std::string_view target, TreeDrop place);

    void SetText(std::string_view key, std::string_view text) { Put(key, "NODETEXT", text); }
    void SetValue(std::string_view key, std::string_view value) { Put(key, "NODEVALUE", value); }
    void SetName(std::string_view key, std::string_view name) { Put(key, "NODENAME", name); }
    void SetInactive(std::string_view key, bool inactive) { Put(key, "INACTIVE", inactive ? "X" : ""); }

private:
    using Keys = std::vector<std::string>;

    void Put(std::string_view key, std::string_view field, std::string_view value);
    [[nodiscard]] HostTable::Row RowFor(std::string_view parent);
    void Place(HostTable::Row row, std::string_view reference, TreeRelationship relation);
    /// Gives the siblings below `parent` this order.
    void Arrange(const std::string& parent, const Keys& order);
    void ReleaseRoots(std::string_view key);
    void Empty(HostTable::Row row);
    void PutBehind(HostTable::Row row, const MacroOutline& moved);
    [[nodiscard]] static Keys ChildrenOf(const TreeNode& parent);
    [[nodiscard]] int BuildOrder(HostTable::Row row) const;

    TreeControl& tree_;
    HostTable table_;
    MacroRows rows_;
};

/// The name of the picture that a node of this type has in the tree.
[[nodiscard]] PLANVIEW_EXPORT std::string_view MacroImageOf(MacroNodeType type) noexcept;

}  // namespace planview
