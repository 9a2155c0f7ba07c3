// SPDX-License-Identifier: MIT
#include <QPointer>

#include "qt/PlanViewState.h"

namespace planview {

void PlanViewWidget::download() {
    run(Command::Download);
}

void PlanViewWidget::upload() {
    run(Command::Upload);
}

QString PlanViewWidget::downloadTo(const QString& path) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    if (!finishEditing()) {
        return tr("The cell that is being edited holds no valid value. Mend it, then try again.");
    }
    return QString::fromStdString(core->view.DownloadTo(path.toStdString()));
}

UploadPreview PlanViewWidget::previewUpload(const QString& path) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    if (!finishEditing()) {
        UploadPreview preview;
        preview.file = path.toStdString();
        preview.error =
            tr("The cell that is being edited holds no valid value. Mend it, then try again.").toStdString();
        return preview;
    }
    return core->view.PreviewUpload(path.toStdString());
}

UploadResult PlanViewWidget::applyUpload(const UploadPreview& preview) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    const QPointer<PlanViewWidget> self(this);
    const UploadResult result = core->view.ApplyUpload(preview);
    if (self) {
        state_->status->gridChanged();
    }
    return result;
}

const SpreadsheetOptions& PlanViewWidget::spreadsheetOptions() const {
    return state_->core->view.GetSpreadsheetOptions();
}

void PlanViewWidget::setSpreadsheetOptions(const SpreadsheetOptions& options) {
    state_->core->view.SetSpreadsheetOptions(options);
}

bool PlanViewWidget::spreadsheetPrintSetup() const {
    return spreadsheetOptions().printSetup;
}

void PlanViewWidget::setSpreadsheetPrintSetup(bool on) {
    SpreadsheetOptions options = spreadsheetOptions();
    options.printSetup = on;
    setSpreadsheetOptions(options);
}

}  // namespace planview
