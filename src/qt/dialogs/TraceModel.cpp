// SPDX-License-Identifier: MIT
#include "qt/dialogs/TraceModel.h"

#include <QBrush>
#include <algorithm>
#include <utility>

namespace planview {

namespace {

bool isError(const ListItem& item) {
    return item.text == "==>" || item.subItems[0] == "ERROR" || item.subItems[1] == "ERROR";
}

bool isBookmark(const ListItem& item) {
    return item.subItems[0] == "# BOOKMARK #";
}

}  // namespace

TraceModel::TraceModel(ListView& list, QObject* parent)
    : QAbstractTableModel(parent), list_(&list), rows_(static_cast<int>(list.Count())) {
    list_->AddWatcher(*this);
}

TraceModel::~TraceModel() {
    if (list_) {
        list_->RemoveWatcher(*this);
    }
}

void TraceModel::setTheme(const GridTheme& theme) {
    theme_ = theme;
    if (rows_ > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1), {Qt::ForegroundRole, Qt::BackgroundRole});
    }
}

int TraceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int TraceModel::columnCount(const QModelIndex& parent) const {
    constexpr int Columns = 5;
    return parent.isValid() ? 0 : Columns;
}

const ListItem* TraceModel::item(int row) const {
    const int place = row - removed_;
    return list_ && place >= 0 && static_cast<std::size_t>(place) < list_->Count()
               ? &list_->Item(static_cast<std::size_t>(place))
               : nullptr;
}

QVariant TraceModel::data(const QModelIndex& index, int role) const {
    const ListItem* entry = index.isValid() ? item(index.row()) : nullptr;
    if (!entry) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return QString::fromStdString(
                index.column() == 0 ? entry->text : entry->subItems[static_cast<std::size_t>(index.column()) - 1]);
        case Qt::ForegroundRole:
            return isError(*entry)      ? QBrush(QColor(theme_.negative))
                   : isBookmark(*entry) ? QBrush(QColor(theme_.accent))
                                        : QVariant();
        default:
            return {};
    }
}

QVariant TraceModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!list_ || orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        static_cast<std::size_t>(section) >= list_->Columns().size()) {
        return {};
    }
    return QString::fromStdString(list_->Columns()[static_cast<std::size_t>(section)].caption);
}

void TraceModel::FirstItemRemoved() {
    removed_ = std::min(removed_ + 1, rows_);
    reportSoon();
}

void TraceModel::Cleared() {
    removed_ = rows_;
    reportSoon();
}

void TraceModel::Ended() {
    beginResetModel();
    list_ = nullptr;
    rows_ = 0;
    removed_ = 0;
    endResetModel();
    Q_EMIT ended();
}

void TraceModel::reportSoon() {
    if (!std::exchange(reportComing_, true)) {
        QMetaObject::invokeMethod(this, &TraceModel::report, Qt::QueuedConnection);
    }
}

void TraceModel::report() {
    reportComing_ = false;
    const int count = list_ ? static_cast<int>(list_->Count()) : 0;
    if (removed_ == rows_ && rows_ > 0) {
        beginResetModel();
        rows_ = count;
        removed_ = 0;
        endResetModel();
    }
    if (removed_ > 0) {
        beginRemoveRows({}, 0, removed_ - 1);
        rows_ -= std::exchange(removed_, 0);
        endRemoveRows();
    }
    if (count > rows_) {
        beginInsertRows({}, rows_, count - 1);
        rows_ = count;
        endInsertRows();
    }
    Q_EMIT reported();
}

}  // namespace planview
