// SPDX-License-Identifier: MIT
#include "qt/platform/QtFileDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace planview {

namespace {

/// "Excel workbook (*.xlsx *.xlsm)".
QString filterOf(const FileDialogRequest& request) {
    QStringList patterns;
    for (const std::string& extension : request.extensions) {
        patterns.append("*." + QString::fromStdString(extension));
    }
    return QString("%1 (%2)").arg(QString::fromStdString(request.filterName),
                                  patterns.isEmpty() ? QString("*") : patterns.join(' '));
}

}  // namespace

std::string QtFileDialogs::ask(Kind kind, const FileDialogRequest& request) {
    QWidget* above = QApplication::activeModalWidget();
    // The parent window may be destroyed while this one waits, and takes it along.
    const QPointer<QFileDialog> dialog(new QFileDialog(above || !control_ ? above : control_->window()));
    const bool saving = kind == Kind::Save;
    dialog->setWindowTitle(QString::fromStdString(request.title));
    dialog->setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog->setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setNameFilters({filterOf(request), QObject::tr("All files (*)")});
    if (!request.extensions.empty()) {
        dialog->setDefaultSuffix(QString::fromStdString(request.extensions.front()));
    }
    const QString folder = request.folder.empty() ? lastFolder_ : QString::fromStdString(request.folder);
    dialog->setDirectory(folder.isEmpty() ? QDir::homePath() : folder);
    if (!request.fileName.empty()) {
        dialog->selectFile(QString::fromStdString(request.fileName));
    }
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog) {
        return {};
    }
    const QStringList files = dialog->selectedFiles();
    delete dialog;
    if (!accepted || files.isEmpty()) {
        return {};
    }
    lastFolder_ = QFileInfo(files.first()).absolutePath();
    return files.first().toStdString();
}

std::string QtFileDialogs::Save(const FileDialogRequest& request) {
    return ask(Kind::Save, request);
}

std::string QtFileDialogs::Open(const FileDialogRequest& request) {
    return ask(Kind::Open, request);
}

}  // namespace planview
