// SPDX-License-Identifier: MIT
#include "qt/tree/TreeModel.h"

#include <algorithm>

namespace planview {

TreeModel::TreeModel(TreeControl& tree, QObject* parent) : QAbstractItemModel(parent), tree_(tree) {
    placeNodes();
    tree_.AddWatcher(*this);
}

TreeModel::~TreeModel() {
    tree_.RemoveWatcher(*this);
}

// --- Where the nodes stand

/// Walks all nodes in the order in which they are shown, without recursion.
void TreeModel::placeNodes() {
    const auto count = static_cast<std::size_t>(tree_.Nodes().Count());
    places_.assign(count + 1, {});
    children_.assign(count, 0);
    deepest_ = 0;
    std::vector<int> order;
    order.reserve(count);
    std::vector<int> above{0};  // by level: the place that holds it
    for (TreeNode node = tree_.Nodes().FirstRoot(); node;) {
        const int number = node.Index();
        const int level = levelOf(node);
        deepest_ = std::max(deepest_, level);
        Place& place = places_[static_cast<std::size_t>(number)];
        place.node = node;
        place.parent = above[static_cast<std::size_t>(level)];
        place.row = places_[static_cast<std::size_t>(place.parent)].childCount++;
        order.push_back(number);
        above.resize(static_cast<std::size_t>(level) + 1);
        above.push_back(number);
        TreeNode next = node.FirstChild();
        while (!next && node) {
            next = node.NextSibling();
            node = node.Parent();
        }
        node = next;
    }
    int first = 0;
    for (Place& place : places_) {
        place.firstChild = first;
        first += place.childCount;
    }
    for (const int number : order) {
        const Place& place = places_[static_cast<std::size_t>(number)];
        children_[static_cast<std::size_t>(places_[static_cast<std::size_t>(place.parent)].firstChild + place.row)] =
            number;
    }
}

int TreeModel::levelOf(TreeNode node) {
    return std::min(node.Level(), DeepestLevel);
}

const TreeModel::Place& TreeModel::placeOf(const QModelIndex& index) const {
    return places_[index.isValid() ? static_cast<std::size_t>(index.internalId()) : 0];
}

QModelIndex TreeModel::indexOfPlace(int number) const {
    return number == 0 ? QModelIndex()
                       : createIndex(places_[static_cast<std::size_t>(number)].row, 0, static_cast<quintptr>(number));
}

TreeNode TreeModel::nodeAt(const QModelIndex& index) const {
    return index.isValid() && placeOf(index).node ? placeOf(index).node : TreeNode();
}

QModelIndex TreeModel::indexOf(TreeNode node) const {
    const bool known = node && static_cast<std::size_t>(node.Index()) < places_.size();
    return known ? indexOfPlace(node.Index()) : QModelIndex();
}

QModelIndexList TreeModel::expandedNodes() const {
    QModelIndexList open;
    for (const Place& place : places_) {
        if (place.childCount > 0 && place.node && place.node.Expanded()) {
            open.append(indexOfPlace(place.node.Index()));
        }
    }
    return open;
}

// --- For the views

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
    const Place& place = placeOf(parent);
    if (row < 0 || row >= place.childCount || column != 0) {
        return {};
    }
    return indexOfPlace(children_[static_cast<std::size_t>(place.firstChild + row)]);
}

QModelIndex TreeModel::parent(const QModelIndex& index) const {
    return index.isValid() ? indexOfPlace(placeOf(index).parent) : QModelIndex();
}

int TreeModel::rowCount(const QModelIndex& parent) const {
    return placeOf(parent).childCount;
}

int TreeModel::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

bool TreeModel::hasChildren(const QModelIndex& parent) const {
    return placeOf(parent).childCount > 0;
}

QVariant TreeModel::data(const QModelIndex& index, int role) const {
    const TreeNode node = nodeAt(index);
    if (!node || (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::AccessibleTextRole)) {
        return {};
    }
    const QString text = QString::fromStdString(node.Text());
    return role == Qt::AccessibleTextRole && node.LeftOut() ? tr("%1, left out").arg(text) : text;
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
    if (!nodeAt(index)) {
        return Qt::NoItemFlags;
    }
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled |
           Qt::ItemIsDropEnabled;
}

// --- What the tree tells

void TreeModel::NodesReset() {
    beginResetModel();
    placeNodes();
    endResetModel();
}

void TreeModel::TextChanged(TreeNode node) {
    const QModelIndex index = indexOf(node);
    Q_EMIT dataChanged(index, index);
}

void TreeModel::ExpandedChanged(TreeNode node) {
    Q_EMIT expandedChanged(indexOf(node));
}

void TreeModel::SelectionChanged() {
    Q_EMIT selectionChanged();
}

void TreeModel::ShowNode(TreeNode node) {
    Q_EMIT showWanted(indexOf(node));
}

void TreeModel::EditLabel(TreeNode node) {
    Q_EMIT editWanted(indexOf(node));
}

}  // namespace planview
