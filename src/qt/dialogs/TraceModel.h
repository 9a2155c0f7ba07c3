// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>

#include "components/ListView.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// The trace's list as a model: reads the list's own items, copies none.
///
/// The list may change many times between two turns of the event loop. What happened is collected and reported to the
/// views once, in the next turn.
class TraceModel final : public QAbstractTableModel, private ListViewWatcher {
    Q_OBJECT

public:
    TraceModel(ListView& list, QObject* parent);
    ~TraceModel() override;

    void setTheme(const GridTheme& theme);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Reports what is still unreported.
    void report();

Q_SIGNALS:
    /// The views have been told of all changes.
    void reported();
    /// The list is gone; the model is empty from now on.
    void ended();

private:
    void ItemAdded() override { reportSoon(); }
    void FirstItemRemoved() override;
    void Cleared() override;
    void Ended() override;

    void reportSoon();
    [[nodiscard]] const ListItem* item(int row) const;

    ListView* list_;
    GridTheme theme_ = GridTheme::light();
    int rows_ = 0;     ///< the views know of
    int removed_ = 0;  ///< of these, at the front, are gone from the list
    bool reportComing_ = false;
};

}  // namespace planview
