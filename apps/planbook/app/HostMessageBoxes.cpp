// SPDX-License-Identifier: MIT
#include "app/HostMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <array>

namespace planbook {

using planview::MessageAnswer;
using planview::MessageButtons;
using planview::MessageIcon;

namespace {

struct AnswerButton {
    MessageAnswer answer;
    QMessageBox::StandardButton button;
};

constexpr std::array<AnswerButton, 4> Answers = {{
    {MessageAnswer::Ok, QMessageBox::Ok},
    {MessageAnswer::Cancel, QMessageBox::Cancel},
    {MessageAnswer::Yes, QMessageBox::Yes},
    {MessageAnswer::No, QMessageBox::No},
}};

QMessageBox::StandardButtons buttonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
            return QMessageBox::Ok;
        case MessageButtons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case MessageButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case MessageButtons::YesNoCancel:
            break;
    }
    return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
}

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Error:
            return QMessageBox::Critical;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton buttonOf(MessageAnswer answer) {
    for (const AnswerButton& pair : Answers) {
        if (pair.answer == answer) {
            return pair.button;
        }
    }
    return QMessageBox::NoButton;
}

}  // namespace

MessageAnswer HostMessageBoxes::Show(const planview::MessageBoxRequest& request) {
    if (parent_ == nullptr) {
        return request.defaultAnswer;
    }
    QWidget* modal = QApplication::activeModalWidget();  // the box stands above it, not behind
    // What the box stands above may go while it waits, and takes the box along.
    const QPointer<QMessageBox> box(new QMessageBox(iconOf(request.icon), QString::fromStdString(request.title),
                                                    QString::fromStdString(request.text), buttonsOf(request.buttons),
                                                    modal != nullptr ? modal : parent_));
    box->setDefaultButton(buttonOf(request.defaultAnswer));
    const int chosen = box->exec();
    delete box;
    for (const AnswerButton& pair : Answers) {
        if (pair.button == chosen) {
            return pair.answer;
        }
    }
    return request.defaultAnswer;
}

}  // namespace planbook
