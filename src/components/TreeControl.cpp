// SPDX-License-Identifier: MIT
#include "components/TreeControl.h"

#include <utility>

namespace planview {

namespace {

/// A copy for what calls listeners: one of them may end the node, and its texts with it.
std::string Kept(const std::string& text) {
    return text;
}

}  // namespace

void TreeControl::NoteReset() {
    noted_.reset = true;
    if (redraw_) {
        SetRedraw(true);
    }
}

void TreeControl::SetRedraw(bool on) {
    redraw_ = on;
    if (!on) {
        return;
    }
    const Noted noted = std::exchange(noted_, Noted());
    if (noted.reset) {
        Tell([](TreeWatcher& watcher) { watcher.NodesReset(); });
    } else {
        if (noted.expanded) {
            Tell([](TreeWatcher& watcher) { watcher.ExpandedChanged(TreeNode()); });
        }
        if (noted.selection) {
            Tell([](TreeWatcher& watcher) { watcher.SelectionChanged(); });
        }
    }
    if (noted.show != None) {
        Tell([node = HandleOf(noted.show)](TreeWatcher& watcher) { watcher.ShowNode(node); });
    }
    if (noted.edit != None) {
        Tell([node = HandleOf(noted.edit)](TreeWatcher& watcher) { watcher.EditLabel(node); });
    }
}

// --- Structure

std::int32_t TreeControl::Find(std::string_view key) const {
    const int* const found = index_.Find(key);
    return found ? *found : None;
}

bool TreeControl::IsBelow(std::int32_t node, std::int32_t ancestor) const noexcept {
    while (node != None && node != ancestor) {
        node = At(node).parent;
    }
    return node != None;
}

void TreeControl::Link(std::int32_t id, std::int32_t parent, std::int32_t previous) noexcept {
    std::int32_t& first = parent == None ? firstRoot_ : At(parent).firstChild;
    std::int32_t& last = parent == None ? lastRoot_ : At(parent).lastChild;
    const std::int32_t next = previous == None ? first : At(previous).next;
    Record& record = At(id);
    record.parent = parent;
    record.level = parent == None ? 0 : At(parent).level + 1;
    record.previous = previous;
    record.next = next;
    (previous == None ? first : At(previous).next) = id;
    (next == None ? last : At(next).previous) = id;
}

// --- State

void TreeControl::SetExpanded(std::int32_t id, bool expanded) {
    if (At(id).expanded == expanded) {
        return;
    }
    At(id).expanded = expanded;
    if (redraw_) {
        Tell([node = HandleOf(id)](TreeWatcher& watcher) { watcher.ExpandedChanged(node); });
    } else {
        noted_.expanded = true;
    }
}

void TreeControl::Select(std::int32_t id) {
    if (selected_ == id) {
        return;
    }
    selected_ = id;
    if (redraw_) {
        Tell([](TreeWatcher& watcher) { watcher.SelectionChanged(); });
    } else {
        noted_.selection = true;
    }
}

void TreeControl::ClearSelection() {
    Select(None);
}

void TreeControl::EnsureVisible(std::int32_t id) {
    for (std::int32_t above = At(id).parent; above != None; above = At(above).parent) {
        SetExpanded(above, true);
    }
    if (redraw_) {
        Tell([node = HandleOf(id)](TreeWatcher& watcher) { watcher.ShowNode(node); });
    } else {
        noted_.show = id;
    }
}

// --- What the user does. The keys that the listener gets are copies: it may rebuild the tree while it holds them.

void TreeControl::UserExpand(TreeNode node, bool expanded) {
    if (!node || node.Expanded() == expanded) {
        return;
    }
    const std::string key = Kept(node.Key());
    node.SetExpanded(expanded);
    if (!expanded && IsBelow(selected_, node.id_)) {
        node.SetSelected(true);  // what is selected stays on screen
    }
    if (events_) {
        expanded ? events_->Expand(key) : events_->Collapse(key);
    }
}

void TreeControl::UserSelect(TreeNode node) {
    if (node) {
        node.SetSelected(true);
    }
}

void TreeControl::UserClick(TreeNode node, bool again) {
    if (!node) {
        return;
    }
    const std::string key = Kept(node.Key());
    node.SetSelected(true);
    if (events_) {
        events_->NodeClick(key, again);
    }
}

void TreeControl::UserDoubleClick(TreeNode node) {
    if (node && events_) {
        const std::string key = Kept(node.Key());
        events_->DblClick(key);
    }
}

void TreeControl::UserMouseDown(TreeNode node, MouseButton button, ShiftState shift) {
    if (events_) {
        const std::string key = node ? node.Key() : std::string();
        events_->MouseDown(key, button, shift);
    }
}

void TreeControl::UserMenuKey() {
    if (events_) {
        const TreeNode selected = SelectedItem();
        const std::string key = selected ? selected.Key() : std::string();
        events_->MenuKey(key);
    }
}

bool TreeControl::UserBeginLabelEdit(TreeNode node) {
    if (!node) {
        return false;
    }
    const std::string key = Kept(node.Key());
    if (events_ && !events_->BeforeLabelEdit(key)) {
        return false;
    }
    if (!node) {
        return false;  // the listener rebuilt the tree
    }
    edited_ = node;
    return true;
}

void TreeControl::UserEndLabelEdit(std::string_view text) {
    const TreeNode node = std::exchange(edited_, TreeNode());
    if (!node || text.empty() || node.Text() == text) {
        return;
    }
    const std::string key = Kept(node.Key());
    const std::string before = Kept(node.Text());
    const std::string entered(text);
    node.SetText(entered);
    if (events_) {
        events_->AfterLabelEdit(key, entered, before);
    }
}

void TreeControl::UserDrop(TreeNode dragged, TreeNode target, TreeDrop place) {
    if (!dragged || !target || !events_ || IsBelow(target.id_, dragged.id_)) {
        return;
    }
    const std::string key = Kept(dragged.Key());
    const std::string targetKey = target.Key();
    events_->NodeDropped(key, targetKey, place);
}

void TreeControl::UserFocus(bool in) {
    if (events_) {
        in ? events_->GotFocus() : events_->LostFocus();
    }
}

}  // namespace planview
