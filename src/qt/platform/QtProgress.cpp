// SPDX-License-Identifier: MIT
#include "qt/platform/QtProgress.h"

#include <QApplication>

namespace planview {

QtProgress::~QtProgress() {
    delete dialog_;
}

void QtProgress::Begin(std::string_view title, int steps) {
    End();
    QWidget* above = QApplication::activeModalWidget();
    dialog_ = new QProgressDialog(above || !control_ ? above : control_->window());
    dialog_->setWindowModality(Qt::WindowModal);
    dialog_->setLabelText(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
    dialog_->setWindowTitle(QCoreApplication::applicationName());
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setRange(0, steps);
    dialog_->setValue(0);  // starts the time after which it shows itself
}

bool QtProgress::Advance(int done) {
    if (dialog_) {
        // Lets the user press Cancel; the window, and the control in it, may be destroyed meanwhile.
        dialog_->setValue(done);
    }
    return dialog_ && !dialog_->wasCanceled();
}

void QtProgress::End() noexcept {
    delete dialog_;
    dialog_ = nullptr;
}

}  // namespace planview
