// SPDX-License-Identifier: MIT
#include "qt/StatusInfo.h"

#include <QPointer>
#include <QTimer>
#include <utility>
#include <vector>

#include <planview/qt/PlanViewWidget.h>

#include "control/ControlParts.h"
#include "qt/grid/GridView.h"

namespace planview {

StatusInfo::StatusInfo(PlanViewWidget& widget, PlanView& view, GridView& grid, const EntryGuard& guard)
    : QObject(&widget), guard_(guard), widget_(widget), view_(view), grid_(grid), soon_(new QTimer(this)) {
    soon_->setSingleShot(true);
    soon_->setInterval(0);
    guard_.connect(soon_, &QTimer::timeout, this, "UpdateStatus", [this] { update(); });
    connect(&grid_, &GridView::gridChanged, this, &StatusInfo::gridChanged);
}

void StatusInfo::valuesChanged() {
    pendingKnown_ = false;
    soon_->start();
}

void StatusInfo::gridChanged() {
    soon_->start();
}

void StatusInfo::update() {
    soon_->stop();
    refresh();
    const QPointer<StatusInfo> self(this);  // a slot may delete the widget
    if (std::exchange(toldPending_, pending_) != pending_) {
        Q_EMIT widget_.pendingChangesChanged(pending_);
    }
    if (self && (toldSummary_ != summary_ || toldName_ != cellName_)) {
        const bool severalAnew = summary_.cells > 1 && (toldSummary_.cells != summary_.cells || toldName_ != cellName_);
        toldSummary_ = summary_;
        toldName_ = cellName_;
        if (severalAnew && grid_.hasFocus()) {
            const QString cells = tr("%1 cells").arg(summary_.cells);
            widget_.announce(summary_.numbers > 0 ? tr("%1, sum %2").arg(cells, widget_.selectionSum()) : cells);
        }
        Q_EMIT widget_.selectionSummaryChanged();
    }
    if (self) {
        updateHistory();
    }
}

void StatusInfo::refresh() {
    refreshPending();
    refreshSummary();
}

void StatusInfo::refreshPending() {
    // Both only grow, so that any change of either is one of the sum.
    const std::uint64_t built = ControlParts(view_).Grid().BuildVersion() + ControlParts(view_).Updates();
    if (pendingKnown_ && builtFor_ == built) {
        return;
    }
    pendingKnown_ = true;
    builtFor_ = built;
    const std::vector<Cell> cells = ControlParts(view_).PendingCells();
    grid_.setPending(PendingMarks(cells));
    pending_ = static_cast<int>(cells.size());
}

void StatusInfo::refreshSummary() {
    const GridControl& grid = ControlParts(view_).Grid();
    const std::optional<Cell> current = grid.CurrentCell();
    const std::uint64_t version = grid.ChangeVersion();
    if (version == summedUpFor_ && current == summedUpAt_) {
        return;  // only scrolled
    }
    summedUpFor_ = version;
    summedUpAt_ = current;
    summary_ = SummaryOfSelection(grid);
    cellName_ = current ? grid_.cellName(*current) : QString();
}

void StatusInfo::updateHistory() {
    const QPointer<StatusInfo> self(this);
    const bool undo = view_.Editing().CanUndo();
    const bool redo = view_.Editing().CanRedo();
    if (std::exchange(canUndo_, undo) != undo) {
        Q_EMIT widget_.undoAvailable(undo);
    }
    if (self && std::exchange(canRedo_, redo) != redo) {
        Q_EMIT widget_.redoAvailable(redo);
    }
}

}  // namespace planview
