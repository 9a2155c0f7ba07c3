#pragma once

#include <QDialog>
#include <QPointer>
#include <map>

#include <planview/Platform.h>

namespace planview {

/// The windows of the control's forms, each made when its form is loaded. A form that the desktop has no window for
/// stays unseen.
class QtForms final : public Forms {
public:
    explicit QtForms(QWidget& control) : control_(&control) {}
    ~QtForms() override;
    QtForms(const QtForms&) = delete;
    QtForms& operator=(const QtForms&) = delete;

    void Load(Form& form) override;
    void ShowModal(Form& form) override;
    void Hide(Form& form) override;
    void Unload(Form& form) override;

private:
    [[nodiscard]] QDialog* window(Form& form) const;

    QPointer<QWidget> control_;
    std::map<const Form*, QPointer<QDialog>> windows_;
};

}  // namespace planview
