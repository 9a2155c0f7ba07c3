// SPDX-License-Identifier: MIT
#include "spreadsheet/SpreadsheetUpload.h"

#include <algorithm>
#include <vector>

#include "automation/BusyScope.h"
#include "automation/Texts.h"
#include "spreadsheet/ProgressScope.h"
#include "spreadsheet/SheetReader.h"
#include "spreadsheet/SpreadsheetSession.h"
#include "spreadsheet/SpreadsheetTexts.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::size_t NotesInMessage = 8;

}  // namespace

void SpreadsheetUpload::Run() {
    if (running_) {
        return;
    }
    const BusyScope running(running_);
    TraceWrite(SpreadsheetLabel, "{}", "#EXCEL UPLOAD#", "BEGIN");
    FileDialogRequest request = WorkbookRequest(parts_.options);
    request.extensions.emplace_back("xlsm");  // with macros, which are left alone
    request.title = "Upload from Excel sheet";
    UploadPreview preview;
    preview.file = parts_.fileDialogs.Open(request);
    if (preview.file.empty()) {
        return;
    }
    const Outcome outcome = Read(preview);
    if (outcome == Outcome::NoApplication) {
        TellNoApplication(parts_.messageBoxes);
    } else if (outcome == Outcome::Failed) {
        Tell(preview.error, MessageIcon::Exclamation);
    } else if (outcome == Outcome::Read && preview.changes.empty()) {
        TellSame(preview);
    } else if (outcome == Outcome::Read && parts_.confirm && parts_.confirm(preview) && MayEmpty(preview)) {
        TellResult(Apply(preview));
    }
}

UploadPreview SpreadsheetUpload::Preview(const std::string& fileName) {
    UploadPreview preview;
    preview.file = fileName;
    if (running_) {
        preview.error = "An upload is running already. Wait for its end.";
        return preview;
    }
    const BusyScope running(running_);
    TraceWrite(SpreadsheetLabel, "{}", "#EXCEL UPLOAD#", "BEGIN");
    if (Read(preview) == Outcome::Cancelled) {
        preview.error = "Reading the workbook was cancelled.";
    }
    return preview;
}

SpreadsheetUpload::Outcome SpreadsheetUpload::Read(UploadPreview& preview) {
    SpreadsheetSession session(parts_.objects);
    if (!session.Connect()) {
        preview.error = NoApplicationText;
        return Outcome::NoApplication;
    }
    Outcome outcome = Outcome::Failed;
    {
        const modGrid::WaitingState waiting(parts_.driver);
        const BusyScope busy(parts_.busy);
        if (session.GetActiveSheet(preview.file)) {
            preview.sheet = session.SheetName();
            outcome = ReadSheet(session, preview);
        }
        if (outcome == Outcome::Failed) {
            preview.error = session.Error();
        }
        if (outcome != Outcome::Read) {
            preview.changes.clear();
            preview.notes.clear();
            preview.remarks.clear();
        }
        session.Quit();
    }
    session.Terminate();
    return outcome;
}

SpreadsheetUpload::Outcome SpreadsheetUpload::ReadSheet(SpreadsheetSession& session, UploadPreview& preview) {
    std::optional<SheetReader> reader;
    if (!session.Run("UploadLabels", [&] {
            reader.emplace(parts_.driver, parts_.tables, session.Worksheet().Value(), ReadRecord(session.Workbook()));
            reader->ReadLabels(preview);
        })) {
        return Outcome::Failed;
    }
    ProgressScope progress(parts_.progress, "Reading the workbook", reader->LineCount());
    if (!session.Run("UploadData", [&] { reader->ReadData(preview, progress); })) {
        return Outcome::Failed;
    }
    return progress.IsCancelled() ? Outcome::Cancelled : Outcome::Read;
}

/// None where the cell is gone or another one than it was.
std::optional<Cell> SpreadsheetUpload::CellOf(const UploadChange& change) const {
    const GridControl& grid = parts_.driver.Grid();
    const std::optional<Cell> cell = grid.FindCell({change.column, change.row});
    const bool same = cell && grid.Contents(*cell) == change.before &&
                      parts_.driver.CellText({LabelColumnKey, change.row}) == change.line &&
                      parts_.driver.CellText({change.column, HeadingRowKey}) == change.period;
    return same ? cell : std::nullopt;
}

UploadResult SpreadsheetUpload::Apply(const UploadPreview& preview) {
    UploadResult result;
    std::vector<NewValue> values;
    for (const UploadChange& change : preview.changes) {
        if (!change.taken || change.IsRefused()) {
            continue;
        }
        if (const std::optional<Cell> cell = CellOf(change)) {
            values.push_back({*cell, change.value});
        } else {
            ++result.outdated;
        }
    }
    const BulkResult changed = parts_.valueEntry.ChangeCells(values);
    result.changed = changed.changed;
    result.refused = changed.Refused() + changed.failed;
    if (TraceEnabled) {
        TraceWrite(SpreadsheetLabel, "", "Upload",
                   TraceText("{changed: ", result.changed, " - refused: ", result.refused,
                             " - outdated: ", result.outdated, "}"));
    }
    return result;
}

bool SpreadsheetUpload::MayEmpty(const UploadPreview& preview) const {
    if (!preview.EmptiesMuch()) {
        return true;
    }
    const std::string text = "This empties " + std::to_string(preview.Emptied()) + " of " +
                             Counted(preview.values, "value") +
                             ". The workbook may come from a table that was not complete. Empty them?";
    return parts_.messageBoxes.Show({text, "Upload", MessageButtons::YesNo, MessageIcon::Exclamation,
                                     MessageAnswer::No}) == MessageAnswer::Yes;
}

void SpreadsheetUpload::Tell(const std::string& text, MessageIcon icon) const {
    parts_.messageBoxes.Show({text, "Upload", MessageButtons::Ok, icon, MessageAnswer::Ok});
}

void SpreadsheetUpload::TellSame(const UploadPreview& preview) const {
    std::string text = "The workbook holds the same values as the table. There is nothing to upload.";
    for (std::size_t i = 0; i < std::min(preview.notes.size(), NotesInMessage); ++i) {
        text += "\n" + preview.notes[i];
    }
    if (preview.notes.size() > NotesInMessage) {
        text += "\n... and " + std::to_string(preview.notes.size() - NotesInMessage) + " more.";
    }
    Tell(text, MessageIcon::Information);
}

/// Only what is not as the user expects it; failures have been told already.
void SpreadsheetUpload::TellResult(const UploadResult& result) const {
    if (result.outdated == 0 && result.refused == 0) {
        return;
    }
    std::string text = Counted(result.changed, "cell") + " changed.";
    if (result.outdated > 0) {
        text +=
            "\n" + Counted(result.outdated, "cell") + " left alone: the table was changed since the workbook was read.";
    }
    if (result.refused > 0) {
        text += "\n" + Counted(result.refused, "cell") + " could not be changed.";
    }
    Tell(text, MessageIcon::Information);
}

}  // namespace planview
