// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <planview/Platform.h>

namespace planview {

/// The desktop's own file dialogs, in front of the window that holds the control.
class QtFileDialogs final : public FileDialogs {
public:
    explicit QtFileDialogs(QWidget& control) : control_(&control) {}

    std::string Save(const FileDialogRequest& request) override;
    std::string Open(const FileDialogRequest& request) override;

private:
    enum class Kind { Save, Open };
    std::string ask(Kind kind, const FileDialogRequest& request);

    QPointer<QWidget> control_;
    QString lastFolder_;
};

}  // namespace planview
