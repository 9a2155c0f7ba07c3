// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>
#include <planview/Platform.h>

#include "components/GridControl.h"
#include "grid/CurrentKeys.h"
#include "grid/OtherReading.h"
#include "grid/ValueEntry.h"

namespace planview {

/// The selected cells as Copy() gives them to other programs; none where they do not form one block.
[[nodiscard]] PLANVIEW_EXPORT std::optional<ClipboardContents> ContentsOfSelection(const GridControl& grid);

/// Copying, cutting, pasting, filling, deleting and raising of what is selected, as a spreadsheet does it. Everything
/// that changes values does so as one bulk change through value entry; what is refused, and what is changed although it
/// is hidden, is counted and told to the user once.
class ClipboardCommands {
public:
    struct Parts {
        GridControl& grid;
        CurrentKeys& keys;
        ValueEntry& valueEntry;
        OtherReading& otherReading;
        Clipboard& clipboard;
        MessageBoxes& messageBoxes;
        /// Shows why a single cell does not take a value beside it; false, or none, where that is not possible.
        std::function<bool(Cell cell, std::string_view reason)> tellBeside;
    };

    explicit ClipboardCommands(Parts parts) : parts_(std::move(parts)) {}

    /// The selected block with the hidden cells in it, as the screen shows it; the current cell when there is none.
    /// Cells that do not form one block are refused with a message, by Cut() too.
    void Copy();
    void Cut();
    /// From the first selected cell on, to the edge of the planning cells, into hidden ones too and in the switched
    /// view as the screen shows it; what would go beyond the edge is counted to the user. One row or column fills a
    /// selected block of several, one value fills whatever is selected. Without `offered` the clipboard's contents.
    void Paste(const std::optional<ClipboardContents>& offered = {});
    /// Gives every selected cell the value of the first one.
    void Fill();
    /// Empties the planning cells that are selected.
    void DeleteCellContents();
    /// Multiplies the numbers of the selected planning cells by 1 + percent / 100; empty cells stay empty. A message
    /// and nothing else for a percentage that is no finite number or beyond MaxPercent either way.
    void Raise(double percent);
    static constexpr double MaxPercent = 1e6;

private:
    [[nodiscard]] bool SelectionIsBlock(std::string_view verb);
    bool CopyToClipboard(std::string_view method);
    void DeleteSelected();
    void Change(const std::vector<NewValue>& values, std::string_view verb, const EditNote& note, int beyondEdge = 0);
    bool TellBeside(Cell cell, Refusal refusal);
    void Report(const BulkResult& result, std::string_view verb, int beyondEdge);

    Parts parts_;
};

}  // namespace planview
