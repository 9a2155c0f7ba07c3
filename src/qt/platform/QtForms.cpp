#include "qt/platform/QtForms.h"

#include "qt/platform/TraceDialog.h"
#include "trace/frmTrace.h"

namespace planview {

namespace {

QDialog* makeWindow(Form& form, QWidget* parent) {
    if (auto* trace = dynamic_cast<frmTrace*>(&form)) {
        return new TraceDialog(trace->TraceView, parent);
    }
    return nullptr;
}

}  // namespace

QtForms::~QtForms() {
    for (const auto& [form, dialog] : windows_) {
        delete dialog.data();
    }
}

QDialog* QtForms::window(Form& form) const {
    const auto found = windows_.find(&form);
    return found == windows_.end() ? nullptr : found->second.data();
}

void QtForms::Load(Form& form) {
    if (window(form)) {
        return;
    }
    QDialog* dialog = makeWindow(form, control_ ? control_->window() : nullptr);
    if (dialog) {
        const std::string_view caption = form.Caption();
        dialog->setWindowTitle(QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size())));
        windows_[&form] = dialog;
    }
}

void QtForms::ShowModal(Form& form) {
    Load(form);
    if (QDialog* dialog = window(form)) {
        dialog->exec();
    }
}

void QtForms::Hide(Form& form) {
    if (QDialog* dialog = window(form)) {
        dialog->hide();
    }
}

void QtForms::Unload(Form& form) {
    delete window(form);
    windows_.erase(&form);
}

}  // namespace planview
