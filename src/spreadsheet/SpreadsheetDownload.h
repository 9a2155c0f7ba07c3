// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <planview/Platform.h>
#include <planview/Spreadsheet.h>

#include "automation/TableSlots.h"
#include "grid/modGrid.h"

namespace planview {

class ProgressScope;
class SheetCells;
struct DownloadRecord;
class SpreadsheetSession;

/// Writes the grid into a new workbook: every row of both index tables, in table order, hidden ones included. What the
/// grid does not let the user edit is grey and locked, and the sheet is protected.
///
/// Numbers are written as numbers, with the line's format. A worksheet that knows no formats, no frozen captions or no
/// page set-up gets the rest all the same. Keys and values are kept on a hidden sheet, for the upload.
class SpreadsheetDownload {
public:
    struct Parts {
        modGrid& driver;
        const TableSlots& tables;
        const SpreadsheetOptions& options;
        bool& busy;
        ObjectFactory& objects;
        FileDialogs& fileDialogs;
        MessageBoxes& messageBoxes;
        Progress& progress;
    };

    explicit SpreadsheetDownload(const Parts& parts) : parts_(parts) {}

    /// Asks for a file name and writes the workbook; tells the user what went wrong. Does nothing while it runs.
    void Run();
    /// Without asking and telling: a sentence about what went wrong, empty when the file is written or the user
    /// cancelled. A failure, and cancelling, leave no file and no older file changed.
    [[nodiscard]] std::string SaveTo(const std::string& fileName);

private:
    enum class Outcome { Saved, Cancelled, NoApplication, Failed };
    struct Line;

    [[nodiscard]] std::string AskFileName() const;
    [[nodiscard]] Outcome Save(const std::string& fileName, std::string& error);
    [[nodiscard]] Outcome Write(SpreadsheetSession& session, const std::string& fileName);
    void FormatSheet(SpreadsheetSession& session) const;
    void FormatExtras(SpreadsheetSession& session) const;
    [[nodiscard]] bool DownloadLabels(SpreadsheetSession& session, int& columnCount) const;
    [[nodiscard]] bool DownloadData(SpreadsheetSession& session, ProgressScope& progress, DownloadRecord& record) const;
    [[nodiscard]] std::vector<Line> ReadLines() const;
    /// Answers the length of the longest text.
    [[nodiscard]] std::size_t WriteColumn(SheetCells& cells, HostTable::Row column, const std::vector<Line>& lines,
                                          DownloadRecord& record) const;

    Parts parts_;
    bool running_ = false;
};

}  // namespace planview
