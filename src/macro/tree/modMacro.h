// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/TreeControl.h"

/// The macro tree: the nodes of a TreeControl, built from the host's MACRO_TREE and kept in step with it.
///
/// No copy of MACRO_TREE is kept. `NODEKEY` links a node to its row; ExpandAll() and CollapseAll() pair node i with row
/// i.
///
/// Every procedure throws AutomationError if the table or the tree fails, or if it is called while another one runs (by
/// a table that calls the control while it is being read).
namespace planview::modMacro {

inline constexpr std::string_view Label = "MACROTREE";

/// What the procedures work on.
struct Tree {
    TreeControl& control;
    const TableSlots& tables;
    EventSource& events;
    bool running = false;  ///< a procedure is running
};

/// Rebuilds all nodes from MACRO_TREE: first the rows without `NODEREF` as roots, then the others relative to the node
/// that `NODEREF` names. A row that cannot be added ends the build; the nodes added before it stay. The selected node
/// is selected again if it still exists.
void Build(Tree& tree);

/// Whether the row with that key has a `NODEREF`.
[[nodiscard]] bool NotRoot(const Tree& tree, std::string_view key);

/// Opens all nodes, writes "X" into `EXPANDED`, selects and shows the first node, and raises `MacroTreeExpand`.
void ExpandAll(Tree& tree);
/// Closes all nodes, clears `EXPANDED`, and raises `MacroTreeCollapse`. The selection stays.
void CollapseAll(Tree& tree);

/// Runs a change of labels as one of the procedures.
void ChangeLabels(Tree& tree, const std::function<void()>& change);
/// Writes the open state into the row with that key, if there is one.
void PutExpanded(Tree& tree, std::string_view key, bool expanded);

/// The row with that key. Throws SubscriptOutOfRange if there is none.
[[nodiscard]] HostTable::Row RowOf(const Tree& tree, std::string_view key);

}  // namespace planview::modMacro
