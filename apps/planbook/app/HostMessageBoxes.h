// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Platform.h>

class QWidget;

namespace planbook {

/// The view's message boxes as windows of planbook, or none at all.
class HostMessageBoxes final : public planview::MessageBoxes {
public:
    /// Whose windows they are; null while there is no window on a screen. Then every question gets its default answer.
    void setParent(QWidget* parent) noexcept { parent_ = parent; }

    planview::MessageAnswer Show(const planview::MessageBoxRequest& request) override;

private:
    QWidget* parent_ = nullptr;
};

}  // namespace planbook
