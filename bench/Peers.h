// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QBrush>
#include <QString>
#include <QStringList>
#include <QTableWidget>
#include <string>
#include <vector>

#include "BenchTables.h"

namespace planview::bench {

/// A plan as a host would keep it that fills Qt's own tables: finished texts, nothing late-bound.
struct PeerSource {
    explicit PeerSource(const Plan& plan);

    struct Cell {
        std::string text;
        int background;
        int foreground;
    };
    int side;
    std::vector<std::string> columnTitles;
    std::vector<std::string> rowTitles;
    std::vector<Cell> cells;  // row by row
};

/// The brushes of the control's palette.
[[nodiscard]] const QBrush& PaletteBrush(int index);

void FillPeer(QTableWidget& table, const PeerSource& source);

/// The quickest model there is for a QTableView: everything ready in a vector.
class VectorModel final : public QAbstractTableModel {
public:
    explicit VectorModel(const PeerSource& source);

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Cell {
        QVariant text;
        QVariant background;
        QVariant foreground;
    };
    int side_;
    std::vector<Cell> cells_;
    std::vector<QVariant> columnTitles_;
    std::vector<QVariant> rowTitles_;
};

}  // namespace planview::bench
