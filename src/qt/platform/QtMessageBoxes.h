// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

#include <planview/Platform.h>

namespace planview {

/// The desktop's own message boxes, in front of the window that holds the control.
class QtMessageBoxes final : public MessageBoxes {
public:
    explicit QtMessageBoxes(QWidget& control) : control_(&control) {}

    MessageAnswer Show(const MessageBoxRequest& request) override;

private:
    QPointer<QWidget> control_;
};

}  // namespace planview
