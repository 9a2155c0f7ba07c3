// SPDX-License-Identifier: MIT
#include "SalesModel.h"

SalesModel::SalesModel()
    : sales_{412, 655.5, 701, 388, 120, 164, 171.5, 102, 88, 97, 103, 91, 54.5, 40, 66, 93, 31, 38, 42, 29} {}

int SalesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(products_.size());
}

int SalesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(quarters_.size());
}

double& SalesModel::at(const QModelIndex& index) {
    return sales_[static_cast<std::size_t>(index.row() * columnCount() + index.column())];
}

QVariant SalesModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::EditRole) {
        return {};
    }
    return const_cast<SalesModel*>(this)->at(index);
}

bool SalesModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (role != Qt::EditRole || !isNumber) {
        return false;
    }
    at(index) = number;
    Q_EMIT dataChanged(index, index);
    return true;
}

Qt::ItemFlags SalesModel::flags(const QModelIndex& index) const {
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

QVariant SalesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    return orientation == Qt::Horizontal ? quarters_.value(section) : products_.value(section);
}
