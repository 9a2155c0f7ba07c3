// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "automation/FlatMap.h"
#include "components/TreeEvents.h"

namespace planview {

/// Where a new node is placed, relative to another one.
enum class TreeRelationship : std::int16_t {
    First = 0,     ///< the first of the relative's siblings
    Last = 1,      ///< the last of the relative's siblings
    Next = 2,      ///< right behind the relative
    Previous = 3,  ///< right before the relative
    Child = 4      ///< the last child of the relative
};

class TreeControl;

/// Names one node of a tree, or none. A small value, to be copied. It names its node until the tree is cleared; using
/// one that names no node, or no longer does, throws AutomationError (ObjectNotSet). It must not outlive the tree.
class PLANVIEW_EXPORT TreeNode {
public:
    TreeNode() noexcept = default;

    /// Whether it names a node.
    explicit operator bool() const noexcept;
    friend bool operator==(const TreeNode&, const TreeNode&) = default;

    /// The 1-based number in the order of addition.
    [[nodiscard]] int Index() const;
    [[nodiscard]] const std::string& Key() const;
    [[nodiscard]] const std::string& Text() const;
    void SetText(std::string_view text) const;
    [[nodiscard]] const std::string& Image() const;
    [[nodiscard]] const std::string& SelectedImage() const;

    /// Whether the node is left out: it is shown faint and struck through, with everything below it.
    [[nodiscard]] bool LeftOut() const;
    /// Part of making the node: views that already show it are not notified.
    void SetLeftOut(bool leftOut) const;

    /// A node without children keeps this state.
    [[nodiscard]] bool Expanded() const;
    void SetExpanded(bool expanded) const;
    [[nodiscard]] bool Selected() const;
    /// At most one node is selected: selecting another deselects it. Deselecting a node that is not selected does
    /// nothing.
    void SetSelected(bool selected) const;
    /// Opens what stands above the node and scrolls to it.
    void EnsureVisible() const;
    /// Asks the view to let the user edit the text.
    void StartLabelEdit() const;

    /// The neighbours; a null node where there is none.
    [[nodiscard]] TreeNode Parent() const;
    [[nodiscard]] TreeNode FirstChild() const;
    [[nodiscard]] TreeNode NextSibling() const;
    [[nodiscard]] TreeNode PreviousSibling() const;
    /// How many nodes stand above it.
    [[nodiscard]] int Level() const;

private:
    friend class TreeControl;
    friend class TreeNodes;
    TreeNode(TreeControl* tree, std::int32_t id, std::uint32_t generation) noexcept
        : tree_(tree), id_(id), generation_(generation) {}
    [[nodiscard]] TreeControl& Tree() const;

    TreeControl* tree_ = nullptr;
    std::int32_t id_ = -1;  // 0-based
    std::uint32_t generation_ = 0;
};

/// The nodes of a tree.
class PLANVIEW_EXPORT TreeNodes {
public:
    explicit TreeNodes(TreeControl& tree) noexcept : tree_(tree) {}

    void Clear();
    /// Adds a node beside or below the one with the key `relative`. Without a relative it becomes the last of the top
    /// level, whatever the relationship. Throws AutomationError: SubscriptOutOfRange for a relative that is not there,
    /// WrongArguments for an empty key, one that is there already, or an unknown relationship.
    TreeNode Add(std::string_view relative, TreeRelationship relationship, std::string_view key, std::string_view text,
                 std::string_view image = {}, std::string_view selectedImage = {});

    [[nodiscard]] int Count() const noexcept;
    /// The 1-based number in the order of addition. Throws SubscriptOutOfRange.
    [[nodiscard]] TreeNode Item(int index) const;
    /// Throws SubscriptOutOfRange.
    [[nodiscard]] TreeNode Item(std::string_view key) const;
    /// A null node where there is none of that key.
    [[nodiscard]] TreeNode Find(std::string_view key) const;
    /// The first of the top level.
    [[nodiscard]] TreeNode FirstRoot() const;

private:
    TreeControl& tree_;
};

/// A tree view as a model without a screen: nodes with a unique key, a text and two image names, open or closed, one of
/// them selected. Keys are found in constant time; nothing here is recursive, so a tree may have any depth.
///
/// The control changes it through Nodes(); views learn of that as watchers. A view reports what the user does through
/// the User... methods; the control learns of that through one TreeEvents listener.
class PLANVIEW_EXPORT TreeControl {
public:
    TreeControl() noexcept : nodes_(*this) {}
    TreeControl(const TreeControl&) = delete;
    TreeControl& operator=(const TreeControl&) = delete;

    [[nodiscard]] TreeNodes& Nodes() noexcept { return nodes_; }
    /// The selected node, null when there is none.
    [[nodiscard]] TreeNode SelectedItem() noexcept { return HandleOf(selected_); }
    void ClearSelection();

    void SetEvents(TreeEvents* events) noexcept { events_ = events; }
    /// Several views may show one tree. A watcher may add and remove watchers while it is being notified.
    void AddWatcher(TreeWatcher& watcher) { watchers_.push_back(&watcher); }
    void RemoveWatcher(TreeWatcher& watcher) noexcept { std::erase(watchers_, &watcher); }

    /// Switching it on reports what has not been reported yet.
    void SetRedraw(bool on);
    [[nodiscard]] bool RedrawOn() const noexcept { return redraw_; }

    // --- What the user does (called by a view). A node that no longer exists is ignored.

    void UserExpand(TreeNode node, bool expanded);
    /// Selects the node without a click, as arrow keys do.
    void UserSelect(TreeNode node);
    /// Selects the node and reports the click. `again`: it was already selected when the button went down.
    void UserClick(TreeNode node, bool again);
    void UserDoubleClick(TreeNode node);
    void UserMouseDown(TreeNode node, MouseButton button, ShiftState shift);
    void UserMenuKey();
    /// Whether the user may edit the node's text now; the label is being edited from then on.
    [[nodiscard]] bool UserBeginLabelEdit(TreeNode node);
    /// Gives the label being edited its new text; an empty one, or the same as before, counts as a cancelled edit.
    void UserEndLabelEdit(std::string_view text);
    void UserCancelLabelEdit() noexcept { edited_ = TreeNode(); }
    /// The node whose label is being edited; null: none.
    [[nodiscard]] TreeNode EditedNode() const noexcept { return edited_; }
    /// Ignored when a node is dropped on itself or on one below it.
    void UserDrop(TreeNode dragged, TreeNode target, TreeDrop place);
    void UserFocus(bool in);

private:
    friend class TreeNode;
    friend class TreeNodes;

    static constexpr std::int32_t None = -1;

    struct Record {
        std::string key;
        std::string text;
        std::string image;
        std::string selectedImage;
        std::int32_t parent = None;
        std::int32_t firstChild = None;
        std::int32_t lastChild = None;
        std::int32_t previous = None;
        std::int32_t next = None;
        std::int32_t level = 0;
        bool expanded = false;
        bool leftOut = false;
    };

    [[nodiscard]] const Record& At(std::int32_t id) const noexcept { return records_[static_cast<std::size_t>(id)]; }
    [[nodiscard]] Record& At(std::int32_t id) noexcept { return records_[static_cast<std::size_t>(id)]; }
    [[nodiscard]] TreeNode HandleOf(std::int32_t id) noexcept {
        return id == None ? TreeNode() : TreeNode(this, id, generation_);
    }
    [[nodiscard]] std::int32_t Find(std::string_view key) const;
    [[nodiscard]] bool IsBelow(std::int32_t node, std::int32_t ancestor) const noexcept;
    /// Places the record between its new neighbours (`previous` None: at the front).
    void Link(std::int32_t id, std::int32_t parent, std::int32_t previous) noexcept;

    void SetExpanded(std::int32_t id, bool expanded);
    void Select(std::int32_t id);
    void EnsureVisible(std::int32_t id);

    void NoteReset();
    /// Notifies each current watcher that is still registered when its turn comes.
    template <class What>
    void Tell(What what) {
        const std::vector<TreeWatcher*> told = watchers_;
        for (TreeWatcher* watcher : told) {
            if (std::find(watchers_.begin(), watchers_.end(), watcher) != watchers_.end()) {
                what(*watcher);
            }
        }
    }

    TreeNodes nodes_;
    std::vector<Record> records_;
    NameMap index_;
    std::int32_t firstRoot_ = None;
    std::int32_t lastRoot_ = None;
    std::int32_t selected_ = None;
    std::uint32_t generation_ = 1;
    TreeNode edited_;

    TreeEvents* events_ = nullptr;
    std::vector<TreeWatcher*> watchers_;
    bool redraw_ = true;
    // What happened while redraw was off.
    struct Noted {
        bool reset = false;
        bool expanded = false;
        bool selection = false;
        std::int32_t show = None;
        std::int32_t edit = None;
    } noted_;
};

}  // namespace planview
