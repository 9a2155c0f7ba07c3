// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/Exchange.h>

#include "control/Guarded.h"
#include "spreadsheet/SpreadsheetSession.h"

namespace planview {

namespace {

constexpr const char* HasEnded = "The control has ended.";
constexpr const char* Failed = "This could not be done; the trace says why.";

}  // namespace

void Exchange::SetOptions(SpreadsheetOptions options) {
    State()->context.spreadsheetOptions = std::move(options);
}

const SpreadsheetOptions& Exchange::Options() const noexcept {
    return State()->context.spreadsheetOptions;
}

void Exchange::Download() {
    RunCommand(State(), Command::Download);
}

void Exchange::Upload() {
    RunCommand(State(), Command::Upload);
}

std::string Exchange::DownloadTo(const std::string& path) {
    std::string error = HasEnded;
    Guarded(State(), SpreadsheetLabel, "ExcelDn", [&](ControlContext& context) {
        error = Failed;
        error = context.download.SaveTo(path);
    });
    return error;
}

UploadPreview Exchange::PreviewUpload(const std::string& path) {
    UploadPreview preview;
    preview.file = path;
    preview.error = HasEnded;
    Guarded(State(), SpreadsheetLabel, "ExcelUp", [&](ControlContext& context) {
        preview.error = Failed;
        preview = context.upload.Preview(path);
    });
    return preview;
}

UploadResult Exchange::ApplyUpload(const UploadPreview& preview) {
    UploadResult result;
    Guarded(State(), SpreadsheetLabel, "ExcelUp",
            [&](ControlContext& context) { result = context.upload.Apply(preview); });
    return result;
}

}  // namespace planview
