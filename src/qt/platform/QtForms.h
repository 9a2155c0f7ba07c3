// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <map>

#include <planview/Platform.h>

#include "qt/dialogs/ThemedDialog.h"

namespace planview {

/// The windows of the control's forms, each made when its form is loaded. A form that the desktop has no window for
/// stays unseen. A window still open when the control's widget is destroyed closes as if by its frame.
class QtForms final : public Forms {
public:
    explicit QtForms(QWidget& control) : control_(&control) {}
    ~QtForms() override;
    QtForms(const QtForms&) = delete;
    QtForms& operator=(const QtForms&) = delete;

    /// The colours of the control's view, which its windows share.
    void setTheme(const GridTheme& theme);

    void Load(Form& form) override;
    void ShowModal(Form& form) override;
    void Hide(Form& form) override;
    void Unload(Form& form) override;

private:
    [[nodiscard]] ThemedDialog* window(Form& form) const;

    QPointer<QWidget> control_;
    GridTheme theme_ = GridTheme::light();
    std::map<const Form*, QPointer<ThemedDialog>> windows_;
};

}  // namespace planview
