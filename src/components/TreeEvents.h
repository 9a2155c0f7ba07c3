// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "components/InputTypes.h"

namespace planview {

class TreeNode;

/// Where a dragged node was dropped, relative to the node it was dropped on.
enum class TreeDrop : std::uint8_t { Before, After, Below };

/// Hears what changed on screen. Not called while redraw is off; what happened meanwhile is reported once when it is on
/// again. A watcher reads the tree and does not change it.
class TreeWatcher {
public:
    virtual ~TreeWatcher() = default;
    /// Nodes were added or removed: the whole tree must be read again.
    virtual void NodesReset() = 0;
    virtual void TextChanged(TreeNode node) = 0;
    /// A null node means many nodes.
    virtual void ExpandedChanged(TreeNode node) = 0;
    virtual void SelectionChanged() = 0;
    /// Scroll to the node; its ancestors are already open.
    virtual void ShowNode(TreeNode node) = 0;
    /// Let the user edit this node's text.
    virtual void EditLabel(TreeNode node) = 0;
};

/// Hears what the user did. Nodes are named by key, because the listener may rebuild the tree.
class TreeEvents {
public:
    virtual ~TreeEvents() = default;
    /// Answers whether the user may edit the text.
    virtual bool BeforeLabelEdit(const std::string& key) = 0;
    /// The node already has the new text instead of `before`.
    virtual void AfterLabelEdit(const std::string& key, const std::string& text, const std::string& before) = 0;
    virtual void Collapse(const std::string& key) = 0;
    virtual void Expand(const std::string& key) = 0;
    virtual void DblClick(const std::string& key) = 0;
    /// `key` is empty beside the nodes.
    virtual void MouseDown(const std::string& key, MouseButton button, ShiftState shift) = 0;
    /// The user asked by key for the menu of the selected node, which may be none.
    virtual void MenuKey(const std::string& key) = 0;
    /// `again`: the node was already selected when it was clicked.
    virtual void NodeClick(const std::string& key, bool again) = 0;
    /// The user dragged a node to another one. The tree has not moved it.
    virtual void NodeDropped(const std::string& key, const std::string& target, TreeDrop place) = 0;
    virtual void GotFocus() = 0;
    virtual void LostFocus() = 0;
};

}  // namespace planview
