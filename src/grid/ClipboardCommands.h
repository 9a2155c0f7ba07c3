#pragma once

#include <string>

#include <planview/Platform.h>

#include "components/GridControl.h"
#include "grid/CurrentKeys.h"
#include "grid/ValueEntry.h"

namespace planview {

/// Copying, cutting, pasting, filling and deleting of what is selected, as a spreadsheet does it. Everything that
/// changes values does so as one bulk change through value entry; what is refused is counted and told to the user once.
class ClipboardCommands {
public:
    struct Parts {
        GridControl& grid;
        CurrentKeys& keys;
        ValueEntry& valueEntry;
        Clipboard& clipboard;
        MessageBoxes& messageBoxes;
    };

    explicit ClipboardCommands(const Parts& parts) : parts_(parts) {}

    /// The selected block, the current cell when there is none; hidden cells are left out.
    void Copy();
    void Cut();
    /// From the first selected cell on, to the edge of the planning cells. One value, or one row or column, fills a
    /// selection of several.
    void Paste();
    /// Gives every selected cell the value of the first one.
    void Fill();
    /// Empties what is selected. The current cell alone is emptied only if it is a planning cell that can be edited.
    void DeleteCellContents();

private:
    void CopyToClipboard(std::string_view method);
    void DeleteSelected();
    void Report(const BulkResult& result, std::string_view verb);

    Parts parts_;
};

}  // namespace planview
