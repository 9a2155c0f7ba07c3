// SPDX-License-Identifier: MIT
#include "components/GridReports.h"

#include <utility>

#include "automation/BusyScope.h"

namespace planview {

void GridReports::NoteLayout() noexcept {
    noted_.layout = true;
    anyNoted_ = true;
}

void GridReports::NoteEverything() noexcept {
    ++changes_;
    noted_.everything = true;
    noted_.oneCell = false;
    anyNoted_ = true;
}

void GridReports::NoteCell(Cell cell) noexcept {
    ++changes_;
    if (noted_.everything || (noted_.oneCell && noted_.cell == cell)) {
        return;
    }
    if (noted_.oneCell) {
        NoteEverything();
        return;
    }
    noted_.oneCell = true;
    noted_.cell = cell;
    anyNoted_ = true;
}

void GridReports::ReportPointer() {
    if (watcher_) {
        GridChange change;
        change.pointer = true;
        watcher_->GridChanged(change);
    }
}

void GridReports::Report(bool now) {
    if (!now || !redrawOn_ || !anyNoted_) {
        return;
    }
    if (reporting_) {
        reportAgain_ = true;
        return;
    }
    const BusyScope reporting(reporting_);
    do {
        reportAgain_ = false;
        const GridChange change = std::exchange(noted_, GridChange());
        anyNoted_ = false;
        if (watcher_) {
            watcher_->GridChanged(change);
        }
    } while (reportAgain_ && redrawOn_);
}

}  // namespace planview
