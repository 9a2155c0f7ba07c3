// SPDX-License-Identifier: MIT
#pragma once

#include <QStatusBar>

class QLabel;
class QTimer;
class QToolButton;

namespace planview {
class PlanViewWidget;
}

namespace planbook {

/// The line at the bottom: the pending changes with what can be done about them, and the cell or the selection.
class StatusLine : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusLine(planview::PlanViewWidget& view, QWidget* parent = nullptr);

    /// From the next showPendingChanges() on.
    void setReadOnly(bool readOnly);
    void showPendingChanges(int count);
    void showSelection();
    /// The sign that the user's steps are being recorded, and how many there are.
    void showRecording();
    /// For a few seconds, beside all else.
    void showNews(const QString& text);

Q_SIGNALS:
    void acceptPressed();
    void revertPressed();

private:
    planview::PlanViewWidget& view_;
    QLabel* pending_;
    QToolButton* accept_;
    QToolButton* revert_;
    QLabel* recording_;
    QToolButton* stop_;
    QLabel* news_;
    QTimer* newsTimer_;
    QLabel* selection_;
    bool readOnly_ = false;
};

}  // namespace planbook
