// SPDX-License-Identifier: MIT
#include "spreadsheet/SpreadsheetUpload.h"

#include <algorithm>

#include "automation/BusyScope.h"
#include "automation/Texts.h"
#include "grid/ProposedChanges.h"
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

UploadResult SpreadsheetUpload::Apply(const UploadPreview& preview) {
    const UploadResult result = ApplyTicked(parts_.driver.Grid(), parts_.valueEntry, preview.changes);
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
    Tell(TextOf(result, "the workbook was read"), MessageIcon::Information);
}

}  // namespace planview
