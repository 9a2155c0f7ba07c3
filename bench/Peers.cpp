// SPDX-License-Identifier: MIT
#include "Peers.h"

#include <array>

namespace planview::bench {

PeerSource::PeerSource(const Plan& plan) : side(plan.Side()) {
    cells.reserve(static_cast<std::size_t>(plan.CellCount()));
    for (int row = 1; row <= side; ++row) {
        columnTitles.push_back(Plan::ColumnTitle(row));
        rowTitles.push_back(Plan::RowTitle(row));
        for (int column = 1; column <= side; ++column) {
            cells.push_back(
                {plan.ValueText(row, column), Plan::Background(row, column), Plan::Foreground(row, column)});
        }
    }
}

const QBrush& PaletteBrush(int index) {
    static const std::array<QBrush, 16> brushes{
        QColor(255, 255, 255), QColor(0, 0, 0),       QColor(0, 0, 128),   QColor(0, 128, 0),
        QColor(0, 128, 128),   QColor(128, 0, 0),     QColor(128, 0, 128), QColor(128, 128, 0),
        QColor(192, 192, 192), QColor(128, 128, 128), QColor(0, 0, 255),   QColor(0, 255, 0),
        QColor(0, 255, 255),   QColor(255, 0, 0),     QColor(255, 0, 255), QColor(255, 255, 0)};
    return brushes[static_cast<std::size_t>(index)];
}

void FillPeer(QTableWidget& table, const PeerSource& source) {
    table.setRowCount(source.side);
    table.setColumnCount(source.side);
    auto cell = source.cells.begin();
    for (int row = 0; row < source.side; ++row) {
        table.setVerticalHeaderItem(
            row, new QTableWidgetItem(QString::fromStdString(source.rowTitles[static_cast<std::size_t>(row)])));
        table.setHorizontalHeaderItem(
            row, new QTableWidgetItem(QString::fromStdString(source.columnTitles[static_cast<std::size_t>(row)])));
        for (int column = 0; column < source.side; ++column, ++cell) {
            auto* item = new QTableWidgetItem(QString::fromStdString(cell->text));
            item->setBackground(PaletteBrush(cell->background));
            item->setForeground(PaletteBrush(cell->foreground));
            table.setItem(row, column, item);
        }
    }
}

VectorModel::VectorModel(const PeerSource& source) : side_(source.side) {
    cells_.reserve(source.cells.size());
    for (const PeerSource::Cell& cell : source.cells) {
        cells_.push_back(
            {QString::fromStdString(cell.text), PaletteBrush(cell.background), PaletteBrush(cell.foreground)});
    }
    for (std::size_t i = 0; i < source.columnTitles.size(); ++i) {
        columnTitles_.emplace_back(QString::fromStdString(source.columnTitles[i]));
        rowTitles_.emplace_back(QString::fromStdString(source.rowTitles[i]));
    }
}

int VectorModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : side_;
}

int VectorModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : side_;
}

QVariant VectorModel::data(const QModelIndex& index, int role) const {
    static const QVariant alignment(int(Qt::AlignRight | Qt::AlignVCenter));
    const Cell& cell = cells_[static_cast<std::size_t>(index.row() * side_ + index.column())];
    switch (role) {
        case Qt::DisplayRole:
            return cell.text;
        case Qt::BackgroundRole:
            return cell.background;
        case Qt::ForegroundRole:
            return cell.foreground;
        case Qt::TextAlignmentRole:
            return alignment;
        default:
            return {};
    }
}

QVariant VectorModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    return (orientation == Qt::Horizontal ? columnTitles_ : rowTitles_)[static_cast<std::size_t>(section)];
}

}  // namespace planview::bench
