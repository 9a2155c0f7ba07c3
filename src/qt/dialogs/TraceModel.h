// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <cstdint>
#include <memory>

#include "components/ListView.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// The trace's list as a model: reads the list's own items, keeps none. Behind the list's columns stands one with the
/// time of each entry.
///
/// The list may change many times between two turns of the event loop, on any thread. What happened is reported to the
/// views at once, in the next turn; a row that the list has dropped meanwhile reads as empty.
class TraceModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    TraceModel(std::shared_ptr<ListView> list, QObject* parent);
    ~TraceModel() override;

    void setTheme(const GridTheme& theme);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    [[nodiscard]] int timeColumn() const { return columnCount() - 1; }

    /// Reports what is still unreported.
    void report();

Q_SIGNALS:
    /// The views are about to be told of changes.
    void aboutToReport();
    /// The views have been told of all changes.
    void reported();
    /// Nothing more comes.
    void ended();

private:
    class Watcher;

    std::shared_ptr<ListView> list_;
    std::shared_ptr<Watcher> watcher_;
    GridTheme theme_ = GridTheme::light();
    std::uint64_t first_ = 0;  ///< the item of the first row that the views know of
    int rows_ = 0;             ///< that the views know of
};

}  // namespace planview
