// SPDX-License-Identifier: MIT
#include "spreadsheet/SpreadsheetDownload.h"

#include <algorithm>
#include <utility>

#include "automation/BusyScope.h"
#include "automation/CheckedInt.h"
#include "automation/NumberFormat.h"
#include "automation/Numbers.h"
#include "grid/LineCaption.h"
#include "spreadsheet/DownloadRecord.h"
#include "spreadsheet/ProgressScope.h"
#include "spreadsheet/SheetCells.h"
#include "spreadsheet/SpreadsheetSession.h"
#include "spreadsheet/SpreadsheetTexts.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

// Numbers as spreadsheet applications take them.
constexpr std::int16_t AlignLeft = 2;
constexpr std::int16_t AlignRight = 4;
constexpr std::int16_t ThinLine = 1;
constexpr std::int16_t DoubleLine = 9;
constexpr std::int16_t Black = 1;
constexpr std::int16_t White = 2;
constexpr std::int16_t Grey = 15;
constexpr std::int16_t FontSize = 10;
constexpr std::int16_t LabelWidth = 20;
constexpr std::int16_t Landscape = 2;
constexpr const char* TextFormat = "@";

constexpr std::size_t UsualColumnWidth = 8;  // in digits
constexpr std::size_t WidestColumn = 60;

void FormatCaptions(const Late& range, bool withWidth) {
    range.Get("Font").Put("Bold", true);
    range.Get("Font").Put("Size", FontSize);
    if (withWidth) {
        range.Put("ColumnWidth", LabelWidth);
    }
    range.Get("Interior").Put("ColorIndex", Grey);
    range.Get("Borders").Put("LineStyle", DoubleLine);
    range.Get("Borders").Put("ColorIndex", Black);
    range.Put("HorizontalAlignment", AlignLeft);
}

/// The worksheet's row or column of a row of an index table; behind the captions.
std::int16_t BehindCaptions(HostTable::Row row) {
    return CheckedAdd<std::int16_t>(row, 1);
}

/// A cell's text as the workbook gets it: a number as a number, so that it can be calculated with.
Variant ForWorkbook(const std::string& text) {
    const std::optional<double> number = TryParseNumber(text);
    return number ? Variant(*number) : Variant(text);
}

/// What not every application has. Its absence is no failure.
template <class Body>
void TryExtra(std::string_view what, const Body& body) {
    const std::optional<std::string> error = ErrorTextOf(body);
    if (error && TraceEnabled) {
        TraceWrite(SpreadsheetLabel, "", what, TraceText("{not available: ", *error, "}"));
    }
}

}  // namespace

/// What the data cells of one line have in common.
struct SpreadsheetDownload::Line {
    std::string key;
    std::string caption;
    bool locked;
    bool textLine;
};

void SpreadsheetDownload::Run() {
    if (running_) {
        return;
    }
    const BusyScope running(running_);
    TraceWrite(SpreadsheetLabel, "{}", "#EXCEL DOWNLOAD#", "BEGIN");
    const std::string fileName = AskFileName();
    if (fileName.empty()) {
        return;
    }
    std::string error;
    const Outcome outcome = Save(fileName, error);
    if (outcome == Outcome::NoApplication) {
        TellNoApplication(parts_.messageBoxes);
    } else if (outcome == Outcome::Failed) {
        parts_.messageBoxes.Show({error, "Download", MessageButtons::Ok, MessageIcon::Exclamation, MessageAnswer::Ok});
    }
}

std::string SpreadsheetDownload::SaveTo(const std::string& fileName) {
    if (running_) {
        return "A download is running already. Wait for its end.";
    }
    const BusyScope running(running_);
    TraceWrite(SpreadsheetLabel, "{}", "#EXCEL DOWNLOAD#", "BEGIN");
    std::string error;
    (void)Save(fileName, error);
    return error;
}

std::string SpreadsheetDownload::AskFileName() const {
    FileDialogRequest request = WorkbookRequest(parts_.options);
    request.title = SaveDialogTitle(parts_.tables.TEXTS);
    request.fileName = parts_.options.fileName.empty() ? std::string(ProposedFileName) : parts_.options.fileName;
    std::string chosen = parts_.fileDialogs.Save(request);
    return chosen == request.fileName ? std::string() : chosen;
}

SpreadsheetDownload::Outcome SpreadsheetDownload::Save(const std::string& fileName, std::string& error) {
    if (const auto refusal = parts_.options.refusal) {
        error = refusal(fileName);
        if (!error.empty()) {
            return Outcome::Failed;
        }
    }
    SpreadsheetSession session(parts_.objects);
    if (!session.Connect()) {
        error = NoApplicationText;
        return Outcome::NoApplication;
    }
    Outcome outcome = Outcome::Failed;
    {
        const modGrid::WaitingState waiting(parts_.driver);
        const BusyScope busy(parts_.busy);
        if (session.NewSheet()) {
            outcome = Write(session, fileName);
        }
        if (outcome == Outcome::Failed) {
            error = "The table was not saved as a workbook. " + session.Error();
        }
        session.Quit();
    }
    session.Terminate();
    return outcome;
}

/// What is only seen may fail; a workbook that lacks captions or values would look as if it were whole.
SpreadsheetDownload::Outcome SpreadsheetDownload::Write(SpreadsheetSession& session, const std::string& fileName) {
    FormatSheet(session);
    FormatExtras(session);
    int columns = 0;
    if (!DownloadLabels(session, columns)) {
        return Outcome::Failed;
    }
    ProgressScope progress(parts_.progress, "Saving the table as a workbook", columns + 1);
    DownloadRecord record;
    if (!DownloadData(session, progress, record)) {
        return Outcome::Failed;
    }
    if (progress.IsCancelled()) {
        return Outcome::Cancelled;
    }
    TryExtra("DownloadRecord", [&] { WriteRecord(session.Workbook(), session.Worksheet(), record); });
    return session.Saveas(fileName) ? Outcome::Saved : Outcome::Failed;
}

void SpreadsheetDownload::FormatSheet(SpreadsheetSession& session) const {
    TraceWrite(SpreadsheetLabel, "", "FormatSheet", "{}");
    const Late& sheet = session.Worksheet();
    session.Run("FormatSheet", [&] {
        sheet.Call("Unprotect");
        const Late cells = sheet.Get("Cells");
        cells.Put("HorizontalAlignment", AlignRight);
        cells.Get("Borders").Put("LineStyle", ThinLine);
        cells.Get("Borders").Put("ColorIndex", Black);
        cells.Get("Font").Put("Size", FontSize);
        FormatCaptions(sheet.Get("Columns", std::int16_t{1}), true);
        FormatCaptions(sheet.Get("Rows", std::int16_t{1}), false);
    });
}

/// Number formats of the lines, captions that stay texts and stay in sight, and the print set-up.
void SpreadsheetDownload::FormatExtras(SpreadsheetSession& session) const {
    const Late& sheet = session.Worksheet();
    TryExtra("NumberFormat", [&] {
        const HostTable lines = parts_.tables.LINE_INDEX;
        const int count = lines.RowCount();
        for (int i = 1; i <= count; ++i) {
            const auto row = static_cast<HostTable::Row>(i);
            const std::string code = lines.Text(row, "ROW_FORMAT");
            if (NumberFormat::Parse(code)) {
                sheet.Get("Rows", BehindCaptions(row)).Put("NumberFormat", code);
            }
        }
        // An application would take "01/08" for a date and "=A" for a formula.
        sheet.Get("Columns", std::int16_t{1}).Put("NumberFormat", TextFormat);
        sheet.Get("Rows", std::int16_t{1}).Put("NumberFormat", TextFormat);
    });
    TryExtra("FreezePanes", [&] {
        const Late window = session.Application().Get("ActiveWindow");
        window.Put("SplitRow", std::int16_t{1});
        window.Put("SplitColumn", std::int16_t{1});
        window.Put("FreezePanes", true);
    });
    if (parts_.options.printSetup) {
        TryExtra("PageSetup", [&] {
            const Late page = sheet.Get("PageSetup");
            page.Put("Orientation", Landscape);
            page.Put("PrintTitleRows", "$1:$1");
            page.Put("PrintTitleColumns", "$A:$A");
        });
    }
}

bool SpreadsheetDownload::DownloadLabels(SpreadsheetSession& session, int& columnCount) const {
    return session.Run("DownloadLabels", [&] {
        const HostTable columns = parts_.tables.COLS_INDEX;
        const HostTable lines = parts_.tables.LINE_INDEX;
        SheetCells cells(session.Worksheet().Value());
        const auto write = [&](std::string_view kind, const std::string& caption) {
            cells.SetValue(caption);
            if (TraceEnabled) {
                TraceWrite(SpreadsheetLabel, "", "DownloadLabels", TraceText("{", kind, " label: ", caption, "}"));
            }
        };
        if (!parts_.options.mark.empty()) {
            cells.GoTo(1, 1);
            write("mark", parts_.options.mark);
        }
        columnCount = columns.RowCount();
        for (int i = 1; i <= columnCount; ++i) {
            const auto row = static_cast<HostTable::Row>(i);
            cells.GoTo(1, BehindCaptions(row));
            write("column", columns.Text(row, "PERDY"));
        }
        const int lineCount = lines.RowCount();
        for (int i = 1; i <= lineCount; ++i) {
            const auto row = static_cast<HostTable::Row>(i);
            cells.GoTo(BehindCaptions(row), 1);
            write("row", LineCaption(lines, row));
        }
    });
}

/// Also true when the user has cancelled.
bool SpreadsheetDownload::DownloadData(SpreadsheetSession& session, ProgressScope& progress,
                                       DownloadRecord& record) const {
    return session.Run("DownloadData", [&] {
        const HostTable columns = parts_.tables.COLS_INDEX;
        const std::vector<Line> lines = ReadLines();
        for (const Line& line : lines) {
            record.lines.keys.push_back(line.key);
            record.lines.captions.push_back(line.caption);
        }
        record.values.resize(lines.size());
        const Late& sheet = session.Worksheet();
        SheetCells cells(sheet.Value());
        bool canWiden = true;
        const int count = columns.RowCount();
        for (int i = 1; i <= count; ++i) {
            const auto column = static_cast<HostTable::Row>(i);
            const std::size_t length = WriteColumn(cells, column, lines, record);
            if (canWiden && length > UsualColumnWidth) {
                canWiden = !ErrorTextOf([&] {
                    sheet.Get("Columns", BehindCaptions(column))
                        .Put("ColumnWidth", static_cast<std::int16_t>(std::min(length + 1, WidestColumn)));
                });
            }
            if (!progress.Advance(i)) {
                return;
            }
        }
        sheet.Call("Protect");
    });
}

std::vector<SpreadsheetDownload::Line> SpreadsheetDownload::ReadLines() const {
    const HostTable table = parts_.tables.LINE_INDEX;
    std::vector<Line> lines;
    const int count = table.RowCount();
    for (int i = 1; i <= count; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        const bool textLine = table.Flag(row, "ROW_TEXT");
        lines.push_back(
            {table.Text(row, "GRID_ID"), LineCaption(table, row), textLine || table.Flag(row, "READONLY"), textLine});
        if (TraceEnabled) {
            TraceWrite(SpreadsheetLabel, "", "DownloadData", TraceText("{label: ", lines.back().caption, "}"));
        }
    }
    return lines;
}

std::size_t SpreadsheetDownload::WriteColumn(SheetCells& cells, HostTable::Row column, const std::vector<Line>& lines,
                                             DownloadRecord& record) const {
    constexpr std::size_t GroupSize = 3;
    const std::string columnKey = parts_.tables.COLS_INDEX.Text(column, "GRID_ID");
    record.periods.keys.push_back(columnKey);
    record.periods.captions.push_back(parts_.tables.COLS_INDEX.Text(column, "PERDY"));
    constexpr std::int16_t FirstDataRow = 2;
    std::size_t longest = 0;
    std::int16_t row = FirstDataRow - 1;
    for (const Line& line : lines) {
        row = CheckedAdd<std::int16_t>(row, 1);
        cells.GoTo(row, BehindCaptions(column));
        const std::optional<Cell> cell = parts_.driver.Grid().FindCell({columnKey, line.key});
        const bool locked = line.locked || (cell && parts_.driver.Grid().Look(*cell).computed);
        cells.SetInterior(locked ? Grey : White);
        cells.SetLocked(locked);
        std::string text;
        if (!line.textLine) {
            text = parts_.driver.CellText({columnKey, line.key});
            cells.SetValue(ForWorkbook(text));
            longest = std::max(longest, text.size() + text.size() / GroupSize);
        }
        record.values[static_cast<std::size_t>(row - FirstDataRow)].push_back(std::move(text));
    }
    return longest;
}

}  // namespace planview
