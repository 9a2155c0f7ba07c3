// SPDX-License-Identifier: MIT
#include "app/StatusLine.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStringList>
#include <QTimer>
#include <QToolButton>
#include <chrono>

#include <planview/qt/PlanViewWidget.h>

#include "app/Questions.h"

namespace planbook {

using planview::PlanViewWidget;

namespace {

constexpr std::chrono::seconds NewsInterval{8};

QToolButton* linkButton(const QString& text, const QString& toolTip, const QString& name) {
    auto* button = new QToolButton;
    button->setText(text);
    button->setToolTip(toolTip);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    // Or the line would grow with the first pending change, and the view above it shrink.
    QSizePolicy policy = button->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button->setSizePolicy(policy);
    return button;
}

}  // namespace

StatusLine::StatusLine(PlanViewWidget& view, QWidget* parent)
    : QStatusBar(parent),
      view_(view),
      pending_(new QLabel),
      accept_(linkButton("Accept", "Keep the new values and forget the old ones", "accept")),
      revert_(linkButton("Revert", "Bring the old values back", "revert")),
      recording_(new QLabel),
      stop_(linkButton("Stop", "End the recording and keep it", "stopRecording")),
      news_(new QLabel),
      newsTimer_(new QTimer(this)),
      selection_(new QLabel) {
    setSizeGripEnabled(false);
    pending_->setObjectName("pending");
    recording_->setObjectName("recording");
    selection_->setObjectName("selection");
    // One widget: a status bar would draw a frame around each.
    auto* left = new QWidget;
    auto* layout = new QHBoxLayout(left);
    layout->setContentsMargins(6, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(pending_);
    layout->addWidget(accept_);
    layout->addWidget(revert_);
    layout->addWidget(recording_);
    layout->addWidget(stop_);
    layout->addWidget(news_);
    addWidget(left);
    addPermanentWidget(selection_);
    connect(accept_, &QToolButton::clicked, this, &StatusLine::acceptPressed);
    connect(revert_, &QToolButton::clicked, this, &StatusLine::revertPressed);
    connect(&view_, &PlanViewWidget::selectionSummaryChanged, this, &StatusLine::showSelection);
    news_->setObjectName("news");
    news_->setMinimumWidth(1);  // or a long text would widen the window
    newsTimer_->setSingleShot(true);
    newsTimer_->setInterval(NewsInterval);
    connect(newsTimer_, &QTimer::timeout, news_, &QLabel::clear);
    connect(stop_, &QToolButton::clicked, &view_, &PlanViewWidget::stopRecording);
    connect(&view_, &PlanViewWidget::recordingChanged, this, &StatusLine::showRecording);
    showPendingChanges(0);
    showRecording();
}

void StatusLine::showRecording() {
    const bool on = view_.isRecording();
    if (on) {
        const bool paused = view_.isRecordingPaused();
        recording_->setText(QString("<span style='color:#d32f2f'>%1</span> %2, %3")
                                .arg(paused ? "❚❚" : "●", paused ? "Recording interrupted" : "Recording",
                                     counted(view_.recordedSteps(), "step")));
    }
    recording_->setVisible(on);
    stop_->setVisible(on);
}

void StatusLine::showNews(const QString& text) {
    news_->setText(text);
    view_.announce(text);
    newsTimer_->start();
}

void StatusLine::showPendingChanges(int count) {
    const QString text = count == 0 ? QString("No pending changes") : counted(count, "pending change");
    pending_->setText(readOnly_ ? "Read-only book" + (count == 0 ? QString() : ", " + text) : text);
    accept_->setVisible(count > 0 && !readOnly_);
    revert_->setVisible(count > 0 && !readOnly_);
}

void StatusLine::setReadOnly(bool readOnly) {
    readOnly_ = readOnly;
}

void StatusLine::showSelection() {
    QStringList parts{view_.currentCellName()};
    if (const QString formula = view_.cellFormula(view_.currentColumn(), view_.currentRow()); !formula.isEmpty()) {
        parts << "= " + formula;
    }
    if (view_.selectedCells() > 1) {
        if (!view_.selectionSum().isEmpty()) {
            parts << "Sum " + view_.selectionSum() << "Mean " + view_.selectionMean();
        }
        parts << QString("Count %1").arg(view_.selectedCells());
    }
    selection_->setText(parts.join("    "));
}

}  // namespace planbook
