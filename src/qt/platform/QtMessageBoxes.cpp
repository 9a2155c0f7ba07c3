// SPDX-License-Identifier: MIT
#include "qt/platform/QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

namespace planview {

namespace {

QMessageBox::StandardButtons buttonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
            return QMessageBox::Ok;
        case MessageButtons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case MessageButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case MessageButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return QMessageBox::NoIcon;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Error:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton buttonOf(MessageAnswer answer) {
    switch (answer) {
        case MessageAnswer::Ok:
            return QMessageBox::Ok;
        case MessageAnswer::Cancel:
            return QMessageBox::Cancel;
        case MessageAnswer::Yes:
            return QMessageBox::Yes;
        case MessageAnswer::No:
            return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

/// A box without a Cancel button that is closed by its frame answers with the least consequential button.
MessageAnswer answerOf(int button, MessageButtons buttons) {
    switch (button) {
        case QMessageBox::Ok:
            return MessageAnswer::Ok;
        case QMessageBox::Yes:
            return MessageAnswer::Yes;
        case QMessageBox::No:
            return MessageAnswer::No;
        default:
            return buttons == MessageButtons::Ok      ? MessageAnswer::Ok
                   : buttons == MessageButtons::YesNo ? MessageAnswer::No
                                                      : MessageAnswer::Cancel;
    }
}

}  // namespace

MessageAnswer QtMessageBoxes::Show(const MessageBoxRequest& request) {
    // Above the window that is already waiting for the user, such as a form; otherwise above the control's.
    QWidget* above = QApplication::activeModalWidget();
    // The parent window may be destroyed while this one waits, and takes it along.
    const QPointer<QMessageBox> box(new QMessageBox(above || !control_ ? above : control_->window()));
    box->setIcon(iconOf(request.icon));
    box->setWindowTitle(request.title.empty() ? QCoreApplication::applicationName()
                                              : QString::fromStdString(request.title));
    box->setTextFormat(Qt::PlainText);
    box->setText(QString::fromStdString(request.text));
    box->setStandardButtons(buttonsOf(request.buttons));
    box->setDefaultButton(buttonOf(request.defaultAnswer));
    const int button = box->exec();
    const MessageAnswer answer = answerOf(box ? button : QMessageBox::NoButton, request.buttons);
    delete box;
    return answer;
}

}  // namespace planview
