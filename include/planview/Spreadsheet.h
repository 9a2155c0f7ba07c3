// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <planview/Variant.h>

namespace planview {

/// How the grid is written into a workbook, and what the file dialogs start with. Texts are UTF-8.
struct SpreadsheetOptions {
    /// Prints landscape, with the captions of periods and lines on every page.
    bool printSetup = false;
    std::string folder;    ///< where the dialogs open; empty: where the user last was, or the home folder
    std::string fileName;  ///< the proposed name of a download; empty: the control's own proposal
    /// What a reader of the workbook must know, such as that it is incomplete: stands in its corner. Empty for nothing.
    std::string mark;
    /// Asked before a workbook is written to this file: a sentence why it must not be, which the user is told. The
    /// empty text, or none to ask: it may.
    std::function<std::string(const std::string& file)> refusal;
};

/// Since the download, as far as the workbook tells what was downloaded.
enum class UploadOrigin {
    Workbook,  ///< the value was changed in the workbook
    Book,      ///< it was changed in the table, and the workbook still holds the old one
    Both,      ///< it was changed in both, to different values
};

/// A cell to which a workbook gives another value than the grid has.
struct UploadChange {
    std::string column;   ///< the key of the cell's column in the grid
    std::string row;      ///< the key of its row
    std::string line;     ///< the caption of its line, as the grid shows it
    std::string period;   ///< the caption of its period
    std::string before;   ///< the contents as the grid keeps them ("12,5"), empty for none
    std::string after;    ///< what the workbook holds, in the same form where it is a number
    Variant value;        ///< what the cell is to get: a number, or the empty text
    std::string refusal;  ///< a sentence why the cell does not take it; empty when it does
    /// Where the value was changed; Workbook as well where the workbook does not tell what was downloaded.
    UploadOrigin origin = UploadOrigin::Workbook;
    std::string downloaded;  ///< what the download wrote, in the form of `before`; empty where that is not known
    /// Ticked; one that is refused is not applied, ticked or not. Until the user decides, what was changed in the
    /// workbook alone is ticked.
    bool taken = true;
    std::string format;  ///< the number code of the cell ("#,##0.0"), empty for none

    /// Whether the cell does not take the value.
    [[nodiscard]] bool IsRefused() const noexcept { return !refusal.empty(); }
};

/// What an upload would do.
struct UploadPreview {
    std::string file;   ///< the workbook
    std::string sheet;  ///< the name of the worksheet that was read
    /// A sentence why nothing can be taken from the workbook; then there are no changes.
    std::string error;
    std::vector<UploadChange> changes;  ///< line by line
    /// What in the workbook and in the table does not belong together, a sentence each; those values are left alone.
    std::vector<std::string> notes;
    /// What was assumed when the workbook was read, a sentence each; no value is left alone because of it.
    std::vector<std::string> remarks;
    int values = 0;  ///< cells of the table that hold one and stand in the workbook, too

    /// How many of them the ticked changes empty.
    [[nodiscard]] int Emptied() const noexcept {
        int emptied = 0;
        for (const UploadChange& change : changes) {
            emptied += change.taken && !change.IsRefused() && !change.before.empty() && change.after.empty() ? 1 : 0;
        }
        return emptied;
    }
    /// Whether these are more than a tenth: a workbook that lacks so much was most likely made of something incomplete,
    /// and a host asks before it applies the changes.
    [[nodiscard]] bool EmptiesMuch() const noexcept {
        constexpr int Part = 10;
        return Emptied() * Part > values;
    }
};

/// What an upload has done.
struct UploadResult {
    int changed = 0;   ///< cells that have their new value
    int refused = 0;   ///< by the cell itself, or because a table failed
    int outdated = 0;  ///< left alone because the cell was changed or went away after the preview was made
};

}  // namespace planview
