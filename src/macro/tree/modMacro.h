// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "automation/EventSource.h"
#include "automation/TableSlots.h"
#include "components/TreeControl.h"

/// The macro tree: the nodes of a TreeControl made from the host's MACRO_TREE, and the table kept in step with them.
///
/// MACRO_TREE is the truth; no copy of it is kept. A node and its row belong together by `NODEKEY`; expand all and
/// collapse all go by position, node i with row i.
///
/// Every procedure throws AutomationError where the table or the tree fails, or where it is called from inside another
/// one of them (by a table that calls the control while it is being read).
namespace planview::modMacro {

inline constexpr std::string_view Label = "MACROTREE";

/// What the procedures are about.
struct Tree {
    TreeControl& control;
    const TableSlots& tables;
    EventSource& events;
    bool running = false;  ///< one of the procedures is at work
};

/// All nodes anew from MACRO_TREE: first the rows without `NODEREF` as roots, then the others relative to the node that
/// `NODEREF` names. A row that cannot be placed ends the build; what stands by then stays. A node that is there again
/// is selected again.
void Build(Tree& tree);

/// Whether the table has a row of that key with a `NODEREF`.
[[nodiscard]] bool NotRoot(const Tree& tree, std::string_view key);

/// Opens all nodes and writes "X" into `EXPANDED`; then selects the first node, shows it, and raises `MacroTreeExpand`.
void ExpandAll(Tree& tree);
/// Closes all nodes and empties `EXPANDED`; raises `MacroTreeCollapse`. What is selected stays so.
void CollapseAll(Tree& tree);

/// Writes the node's text into every row of that key.
void PutText(Tree& tree, std::string_view key, std::string_view text);
/// Writes the node's open state into the row of that key, where there is one.
void PutExpanded(Tree& tree, std::string_view key, bool expanded);

/// The row of that key. Throws SubscriptOutOfRange where there is none.
[[nodiscard]] HostTable::Row RowOf(const Tree& tree, std::string_view key);

}  // namespace planview::modMacro
