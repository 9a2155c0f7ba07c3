// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QProgressDialog>
#include <QWidget>

#include <planview/Platform.h>

namespace planview {

/// A window with a bar and a Cancel button, which appears when an operation takes more than a moment.
class QtProgress final : public Progress {
public:
    explicit QtProgress(QWidget& control) : control_(&control) {}
    ~QtProgress() override;
    QtProgress(const QtProgress&) = delete;
    QtProgress& operator=(const QtProgress&) = delete;

    void Begin(std::string_view title, int steps) override;
    bool Advance(int done) override;
    void End() noexcept override;

private:
    QPointer<QWidget> control_;
    QPointer<QProgressDialog> dialog_;
};

}  // namespace planview
