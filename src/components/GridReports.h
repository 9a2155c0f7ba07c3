// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "components/GridEvents.h"
#include "components/GridTypes.h"

namespace planview {

/// Gathers what changed on screen and tells the watcher when a change is to be reported and redraw is on.
class GridReports {
public:
    void SetWatcher(GridWatcher* watcher) noexcept { watcher_ = watcher; }

    void NoteLayout() noexcept;
    void NoteEverything() noexcept;
    void NoteCell(Cell cell) noexcept;

    /// Reports what was noted if `now` is set and redraw is on; otherwise it stays noted. Changes made by the watcher
    /// itself are reported after it returns.
    void Report(bool now);
    /// Reports a changed pointer at once, because nothing is painted for it.
    void ReportPointer();
    void SetRedraw(bool on) noexcept { redrawOn_ = on; }
    [[nodiscard]] bool RedrawOn() const noexcept { return redrawOn_; }
    /// How many changes of cells, selection and look were noted; not those of the layout.
    [[nodiscard]] std::uint64_t Changes() const noexcept { return changes_; }
    /// Whether the watcher is being called.
    [[nodiscard]] bool IsReporting() const noexcept { return reporting_; }

private:
    GridWatcher* watcher_ = nullptr;
    GridChange noted_;
    std::uint64_t changes_ = 0;
    bool anyNoted_ = false;
    bool reportAgain_ = false;
    bool redrawOn_ = true;
    bool reporting_ = false;
};

}  // namespace planview
