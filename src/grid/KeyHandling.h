// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "components/GridControl.h"
#include "grid/ClipboardCommands.h"
#include "grid/CurrentKeys.h"
#include "grid/HostUpdate.h"

namespace planview {

/// The grid's keys that are commands. Nothing happens while the control itself changes the grid.
class KeyHandling {
public:
    /// Shift states, to be added.
    static constexpr std::int16_t Shift = 1;
    static constexpr std::int16_t Control = 2;
    static constexpr std::int16_t Alt = 4;

    struct Parts {
        const GridControl& grid;
        CurrentKeys& keys;
        ClipboardCommands& clipboard;
        HostUpdate& hostUpdate;
        const bool& busy;
        std::function<void()> chartStep;
        std::function<void()> showTrace;
    };

    explicit KeyHandling(Parts parts) : parts_(std::move(parts)) {}

    /// `keyCode` is the code of the key (the capital letter's for a letter). Returns whether the key was a command.
    bool GridKeyDown(std::int16_t shift, std::int16_t keyCode);
    /// `character` is the code of the typed character; 13 is Return.
    void GridKeyPress(std::int16_t character);
    /// The user stayed in a cell after an entry.
    void GridStayCell();

private:
    void KeepCurrentKeys();
    void TraceKey(std::int16_t shift, std::int16_t keyCode) const;

    Parts parts_;
    /// Ctrl+D shows the trace window only after Ctrl+Alt+D was pressed once in this control.
    bool traceArmed_ = false;
};

}  // namespace planview
