// SPDX-License-Identifier: MIT
#include <QPointer>

#include "qt/PlanViewState.h"

namespace planview {

QString PlanViewWidget::downloadTo(const QString& path) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    if (!finishEditing()) {
        return tr("The cell that is being edited holds no valid value. Mend it, then try again.");
    }
    return QString::fromStdString(core->view.Exchange().DownloadTo(path.toStdString()));
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
    return core->view.Exchange().PreviewUpload(path.toStdString());
}

UploadResult PlanViewWidget::applyUpload(const UploadPreview& preview) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    const QPointer<PlanViewWidget> self(this);
    const UploadResult result = core->view.Exchange().ApplyUpload(preview);
    if (self) {
        state_->status->gridChanged();
    }
    return result;
}

const SpreadsheetOptions& PlanViewWidget::spreadsheetOptions() const {
    return state_->core->view.Exchange().Options();
}

void PlanViewWidget::setSpreadsheetOptions(const SpreadsheetOptions& options) {
    state_->core->view.Exchange().SetOptions(options);
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
