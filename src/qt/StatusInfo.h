// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <optional>

#include <planview/PlanView.h>

#include "grid/SelectionSummary.h"
#include "qt/EntryGuard.h"

class QTimer;

namespace planview {

class GridView;
class PlanViewWidget;

/// Keeps what the widget tells its host of the selection, the pending changes and the undo history. Who asks gets the
/// present state; signals tell of changes once per turn of the event loop, however many there were.
class StatusInfo final : public QObject {
    Q_OBJECT

public:
    StatusInfo(PlanViewWidget& widget, PlanView& view, GridView& grid, const EntryGuard& guard);

    [[nodiscard]] const SelectionSummary& summary() {
        refreshSummary();
        return summary_;
    }
    [[nodiscard]] const QString& cellName() {
        refreshSummary();
        return cellName_;
    }
    [[nodiscard]] int pending() {
        refreshPending();
        return pending_;
    }

    /// The control has changed values or announced that tables changed.
    void valuesChanged();
    void gridChanged();
    /// Tells at once what is to be told.
    void update();

private:
    void refresh();
    void refreshPending();
    void refreshSummary();
    void updateHistory();

    EntryGuard guard_;
    PlanViewWidget& widget_;
    PlanView& view_;
    GridView& grid_;
    QTimer* soon_;
    SelectionSummary summary_;
    /// What the summary was made of: the grid's version and its current cell.
    std::uint64_t summedUpFor_ = 0;
    std::optional<Cell> summedUpAt_;
    QString cellName_;
    int pending_ = 0;
    // What the signals have told.
    SelectionSummary toldSummary_;
    QString toldName_;
    int toldPending_ = 0;
    std::uint64_t builtFor_ = 0;
    bool pendingKnown_ = false;
    bool canUndo_ = false;
    bool canRedo_ = false;
};

}  // namespace planview
