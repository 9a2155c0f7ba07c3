// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include <planview/Commands.h>

#include "components/GridEvents.h"

namespace planview {

struct CommandCall;
class CommandRunner;
class KeyHandling;
class MenuDispatch;
struct ChartPart;
struct ControlShared;
struct GridPart;

/// Hears what the user does in the grid and hands each event to the job that it belongs to, under an error trap.
class GridHandlers final : public GridEvents {
public:
    /// What it hands events to.
    struct Parts {
        ControlShared& shared;
        GridPart& grid;
        ChartPart& chart;
        CommandRunner& runner;
        KeyHandling& keyHandling;
        MenuDispatch& menus;
    };

    explicit GridHandlers(const Parts& parts) : parts_(parts) {}

    void ColumnResized(const std::string& column, int width) override;
    void RowResized(const std::string& row, int height) override;
    void HeadingHeightResized(const std::string& column, int height) override;
    void HeadingWidthResized(const std::string& row, int width) override;
    void HideColumn(const std::string& column) override;
    void HideRow(const std::string& row) override;
    void Moved(MovedTracks moved, const std::vector<std::string>& before) override;
    void SelectionChanged(const CellKey& cell, bool selected) override;
    void TextEntered(const CellKey& cell, const std::string& text) override;
    void StayCell() override;
    void DoubleClick(const CellKey& cell) override;
    void SimpleClick(const CellKey& cell) override;
    void MouseDown(const CellKey& cell, MouseButton button, ShiftState shift) override;
    void MenuKey(const CellKey& cell) override;
    bool KeyDown(std::int16_t shift, std::int16_t keyCode) override;
    void KeyPress(std::int16_t character) override;
    void ShowHiddenColumns(const std::vector<std::string>& columns) override;
    void ShowHiddenRows(const std::vector<std::string>& rows) override;
    void Dropped(const CellKey& cell, const std::string& text, const std::string& html) override;
    void FocusIn() override;
    void FocusOut() override;

private:
    void KeepKeys(const CellKey& cell);
    void SelectOwner(const CellKey& key);
    /// Lets the size be taken over, as one action that can be undone.
    template <class Resize>
    void Sized(std::string_view method, Command command, int size, const Resize& resize);
    void Record(Command command, const CommandCall& call);

    Parts parts_;
};

}  // namespace planview
