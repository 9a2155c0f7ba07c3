// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <vector>

/// Sales by product (rows) and quarter (columns): the model that the application has had all along.
class SalesModel : public QAbstractTableModel {
public:
    SalesModel();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    double& at(const QModelIndex& index);

    QStringList products_{"Bicycles", "Helmets", "Locks", "Lamps", "Pumps"};
    QStringList quarters_{"Q1", "Q2", "Q3", "Q4"};
    std::vector<double> sales_;  // row by row
};
