// SPDX-License-Identifier: MIT
#include "qt/platform/QtForms.h"

#include "qt/dialogs/FormWindows.h"

namespace planview {

QtForms::~QtForms() {
    for (const auto& [form, dialog] : windows_) {
        delete dialog.data();
    }
}

void QtForms::setTheme(const GridTheme& theme) {
    theme_ = theme;
    for (const auto& [form, dialog] : windows_) {
        if (dialog) {
            dialog->setTheme(theme);
        }
    }
}

ThemedDialog* QtForms::window(Form& form) const {
    const auto found = windows_.find(&form);
    ThemedDialog* dialog = found == windows_.end() ? nullptr : found->second.data();
    return dialog && !dialog->hasEnded() ? dialog : nullptr;
}

void QtForms::Load(Form& form) {
    if (window(form)) {
        return;
    }
    ThemedDialog* dialog = makeFormWindow(form, control_ ? control_->window() : nullptr);
    if (!dialog) {
        return;
    }
    const std::string_view caption = form.Caption();
    dialog->setWindowTitle(QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size())));
    dialog->setTheme(theme_);
    if (control_) {
        QObject::connect(control_.data(), &QObject::destroyed, dialog, &QDialog::reject);
    }
    windows_[&form] = dialog;
}

void QtForms::ShowModal(Form& form) {
    Load(form);
    ThemedDialog* dialog = window(form);
    if (!dialog) {
        return;
    }
    if (dialog->isVisible()) {
        dialog->raise();  // it is already being waited for
        return;
    }
    dialog->exec();
}

void QtForms::Hide(Form& form) {
    if (QDialog* dialog = window(form)) {
        dialog->hide();
    }
}

void QtForms::Unload(Form& form) {
    // The call may come from inside one of the window's own handlers.
    if (ThemedDialog* dialog = window(form)) {
        dialog->endForm();
    }
    windows_.erase(&form);
}

}  // namespace planview
