// SPDX-License-Identifier: MIT
#include <string>

#include <planview/AutomationObject.h>

#include "components/TreeControl.h"

namespace planview {

namespace {

[[noreturn]] void ThrowMissing(const std::string& which) {
    throw AutomationError(AutomationErrorCode::SubscriptOutOfRange, "The tree has no node " + which);
}

std::string Quoted(std::string_view key) {
    return "\"" + std::string(key) + "\"";
}

}  // namespace

// --- TreeNode

TreeNode::operator bool() const noexcept {
    return tree_ && generation_ == tree_->generation_;
}

TreeControl& TreeNode::Tree() const {
    if (!*this) {
        throw AutomationError(AutomationErrorCode::ObjectNotSet, "The node is no node of the tree");
    }
    return *tree_;
}

int TreeNode::Index() const {
    static_cast<void>(Tree());
    return id_ + 1;
}

const std::string& TreeNode::Key() const {
    return Tree().At(id_).key;
}

const std::string& TreeNode::Text() const {
    return Tree().At(id_).text;
}

void TreeNode::SetText(std::string_view text) const {
    TreeControl& tree = Tree();
    if (tree.At(id_).text == text) {
        return;
    }
    tree.At(id_).text = text;
    if (tree.redraw_) {
        tree.Tell([this](TreeWatcher& watcher) { watcher.TextChanged(*this); });
    } else {
        tree.noted_.reset = true;
    }
}

const std::string& TreeNode::Image() const {
    return Tree().At(id_).image;
}

const std::string& TreeNode::SelectedImage() const {
    return Tree().At(id_).selectedImage;
}

bool TreeNode::LeftOut() const {
    return Tree().At(id_).leftOut;
}

void TreeNode::SetLeftOut(bool leftOut) const {
    Tree().At(id_).leftOut = leftOut;
}

bool TreeNode::Expanded() const {
    return Tree().At(id_).expanded;
}

void TreeNode::SetExpanded(bool expanded) const {
    Tree().SetExpanded(id_, expanded);
}

bool TreeNode::Selected() const {
    return Tree().selected_ == id_;
}

void TreeNode::SetSelected(bool selected) const {
    TreeControl& tree = Tree();
    if (selected) {
        tree.Select(id_);
    } else if (tree.selected_ == id_) {
        tree.ClearSelection();
    }
}

void TreeNode::EnsureVisible() const {
    Tree().EnsureVisible(id_);
}

void TreeNode::StartLabelEdit() const {
    TreeControl& tree = Tree();
    if (tree.redraw_) {
        tree.Tell([this](TreeWatcher& watcher) { watcher.EditLabel(*this); });
    } else {
        tree.noted_.edit = id_;
    }
}

TreeNode TreeNode::Parent() const {
    return Tree().HandleOf(Tree().At(id_).parent);
}

TreeNode TreeNode::FirstChild() const {
    return Tree().HandleOf(Tree().At(id_).firstChild);
}

TreeNode TreeNode::NextSibling() const {
    return Tree().HandleOf(Tree().At(id_).next);
}

TreeNode TreeNode::PreviousSibling() const {
    return Tree().HandleOf(Tree().At(id_).previous);
}

int TreeNode::Level() const {
    return Tree().At(id_).level;
}

// --- TreeNodes

void TreeNodes::Clear() {
    tree_.records_.clear();
    tree_.index_.Clear();
    tree_.firstRoot_ = TreeControl::None;
    tree_.lastRoot_ = TreeControl::None;
    tree_.selected_ = TreeControl::None;
    ++tree_.generation_;
    tree_.noted_ = {};
    tree_.NoteReset();
}

TreeNode TreeNodes::Add(std::string_view relative, TreeRelationship relationship, std::string_view key,
                        std::string_view text, std::string_view image, std::string_view selectedImage) {
    using Code = AutomationErrorCode;
    if (key.empty()) {
        throw AutomationError(Code::WrongArguments, "A node needs a key");
    }
    if (relationship < TreeRelationship::First || relationship > TreeRelationship::Child) {
        throw AutomationError(Code::WrongArguments, "The node " + Quoted(key) + " has the unknown relationship " +
                                                        std::to_string(static_cast<int>(relationship)));
    }
    if (tree_.Find(key) != TreeControl::None) {
        throw AutomationError(Code::WrongArguments, "The tree has a node " + Quoted(key) + " already");
    }
    std::int32_t parent = TreeControl::None;
    std::int32_t previous = tree_.lastRoot_;
    if (!relative.empty()) {
        const std::int32_t beside = tree_.Find(relative);
        if (beside == TreeControl::None) {
            ThrowMissing(Quoted(relative) + ", beside which " + Quoted(key) + " is to stand");
        }
        const TreeControl::Record& record = tree_.At(beside);
        parent = relationship == TreeRelationship::Child ? beside : record.parent;
        switch (relationship) {
            case TreeRelationship::First:
                previous = TreeControl::None;
                break;
            case TreeRelationship::Last:
                previous = parent == TreeControl::None ? tree_.lastRoot_ : tree_.At(parent).lastChild;
                break;
            case TreeRelationship::Next:
                previous = beside;
                break;
            case TreeRelationship::Previous:
                previous = record.previous;
                break;
            case TreeRelationship::Child:
                previous = record.lastChild;
                break;
        }
    }
    const auto id = static_cast<std::int32_t>(tree_.records_.size());
    TreeControl::Record& added = tree_.records_.emplace_back();
    added.key = key;
    added.text = text;
    added.image = image;
    added.selectedImage = selectedImage;
    tree_.index_.Add(id, [this](std::int32_t other) -> std::string_view { return tree_.At(other).key; });
    tree_.Link(id, parent, previous);
    tree_.NoteReset();
    return tree_.HandleOf(id);
}

int TreeNodes::Count() const noexcept {
    return static_cast<int>(tree_.records_.size());
}

TreeNode TreeNodes::Item(int index) const {
    if (index < 1 || index > Count()) {
        ThrowMissing(std::to_string(index) + " of " + std::to_string(Count()));
    }
    return tree_.HandleOf(index - 1);
}

TreeNode TreeNodes::Item(std::string_view key) const {
    const TreeNode found = Find(key);
    if (!found) {
        ThrowMissing(Quoted(key));
    }
    return found;
}

TreeNode TreeNodes::Find(std::string_view key) const {
    return tree_.HandleOf(tree_.Find(key));
}

TreeNode TreeNodes::FirstRoot() const {
    return tree_.HandleOf(tree_.firstRoot_);
}

}  // namespace planview
