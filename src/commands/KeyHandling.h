// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "commands/CommandRunner.h"
#include "components/GridControl.h"
#include "grid/CurrentKeys.h"
#include "grid/HostUpdate.h"

namespace planview {

/// The grid's keys that are commands. Nothing happens while the control itself changes the grid.
class KeyHandling {
public:
    struct Parts {
        const GridControl& grid;
        CurrentKeys& keys;
        CommandRunner& runner;
        HostUpdate& hostUpdate;
        const bool& busy;
        std::function<void()> chartStep;
    };

    explicit KeyHandling(Parts parts) : parts_(std::move(parts)) {}

    /// As GridEvents::KeyDown(). Returns whether the key was a command.
    bool GridKeyDown(std::int16_t shift, std::int16_t keyCode);
    /// `character` is the code of the typed character; 13 is Return.
    void GridKeyPress(std::int16_t character);
    /// The user stayed in a cell after an entry.
    void GridStayCell();

private:
    void KeepCurrentKeys();
    void TraceKey(KeyStroke key) const;

    Parts parts_;
    /// Ctrl+D shows the trace window only after Ctrl+Alt+D was pressed once in this control.
    bool traceArmed_ = false;
};

}  // namespace planview
