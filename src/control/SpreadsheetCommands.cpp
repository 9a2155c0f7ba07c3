// SPDX-License-Identifier: MIT
#include <utility>

#include <planview/PlanView.h>

#include "control/Guarded.h"
#include "spreadsheet/SpreadsheetSession.h"

namespace planview {

namespace {

constexpr const char* HasEnded = "The control has ended.";
constexpr const char* Failed = "This could not be done; the trace says why.";

}  // namespace

void PlanView::SetSpreadsheetOptions(SpreadsheetOptions options) {
    state_->context.spreadsheetOptions = std::move(options);
}

const SpreadsheetOptions& PlanView::GetSpreadsheetOptions() const noexcept {
    return state_->context.spreadsheetOptions;
}

std::string PlanView::DownloadTo(const std::string& path) {
    std::string error = HasEnded;
    Guarded(state_, SpreadsheetLabel, "ExcelDn", [&](ControlContext& context) {
        error = Failed;
        error = context.download.SaveTo(path);
    });
    return error;
}

UploadPreview PlanView::PreviewUpload(const std::string& path) {
    UploadPreview preview;
    preview.file = path;
    preview.error = HasEnded;
    Guarded(state_, SpreadsheetLabel, "ExcelUp", [&](ControlContext& context) {
        preview.error = Failed;
        preview = context.upload.Preview(path);
    });
    return preview;
}

UploadResult PlanView::ApplyUpload(const UploadPreview& preview) {
    UploadResult result;
    Guarded(state_, SpreadsheetLabel, "ExcelUp",
            [&](ControlContext& context) { result = context.upload.Apply(preview); });
    return result;
}

}  // namespace planview
