// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemModel>
#include <vector>

#include "components/TreeControl.h"

namespace planview {

/// A TreeControl as a model for item views. Read-only: user actions go to the TreeControl and come back from it.
///
/// Nodes deeper than DeepestLevel are shown as children of the one at that level, in their order: item views need time
/// and stack space for every level.
class TreeModel final : public QAbstractItemModel, private TreeWatcher {
    Q_OBJECT

public:
    static constexpr int DeepestLevel = 64;

    explicit TreeModel(TreeControl& tree, QObject* parent = nullptr);
    ~TreeModel() override;

    /// A null node if the index names none of the current nodes.
    [[nodiscard]] TreeNode nodeAt(const QModelIndex& index) const;
    /// An invalid index for a null node.
    [[nodiscard]] QModelIndex indexOf(TreeNode node) const;
    /// The node's indentation level, 0 .. DeepestLevel.
    [[nodiscard]] static int levelOf(TreeNode node);
    [[nodiscard]] int deepest() const { return deepest_; }
    /// All nodes that are open.
    [[nodiscard]] QModelIndexList expandedNodes() const;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int /*section*/, Qt::Orientation /*orientation*/, int /*role*/) const override {
        return {};  // there is no heading
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

Q_SIGNALS:
    /// An invalid index means many nodes.
    void expandedChanged(const QModelIndex& index);
    void selectionChanged();
    void showWanted(const QModelIndex& index);
    void editWanted(const QModelIndex& index);

private:
    // Where each node stands, as the views know it.
    struct Place {
        TreeNode node;
        int parent = 0;  // the number of a place
        int row = 0;
        int firstChild = 0;  // within children_
        int childCount = 0;
    };

    void NodesReset() override;
    void TextChanged(TreeNode node) override;
    void ExpandedChanged(TreeNode node) override;
    void SelectionChanged() override;
    void ShowNode(TreeNode node) override;
    void EditLabel(TreeNode node) override;

    void placeNodes();
    [[nodiscard]] const Place& placeOf(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex indexOfPlace(int number) const;

    TreeControl& tree_;
    std::vector<Place> places_;  // [0] holds the top level, [i] the node with that index
    std::vector<int> children_;  // grouped by place
    int deepest_ = 0;
};

}  // namespace planview
