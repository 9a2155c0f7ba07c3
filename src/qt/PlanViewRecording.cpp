// SPDX-License-Identifier: MIT
#include <QPointer>

#include "qt/PlanViewState.h"

// Recording and replaying, and the command that raises. An entry that is open is ended first: it belongs to the step
// before.

namespace planview {

void PlanViewWidget::raiseSelected(double percent) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    const QPointer<PlanViewWidget> self(this);
    if (finishEditing() && self) {
        core->view.RaiseSelected(percent);
    }
    if (self) {
        state_->status->gridChanged();
    }
}

void PlanViewWidget::startRecording() {
    state_->runCommand(&PlanView::StartRecording, nullptr);
}

void PlanViewWidget::pauseRecording() {
    state_->runCommand(&PlanView::PauseRecording, nullptr);
}

void PlanViewWidget::stopRecording() {
    state_->runCommand(&PlanView::StopRecording, nullptr);
}

void PlanViewWidget::undoRecordedStep() {
    state_->runCommand(&PlanView::UndoRecordedStep, nullptr);
}

bool PlanViewWidget::isRecording() const {
    return state_->core->view.IsRecording();
}

bool PlanViewWidget::isRecordingPaused() const {
    return state_->core->view.IsRecordingPaused();
}

int PlanViewWidget::recordedSteps() const {
    return state_->core->view.RecordedSteps();
}

QString PlanViewWidget::keepRecording(const QString& name, const QString& parentNode) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    return QString::fromStdString(core->view.KeepRecording(name.toStdString(), parentNode.toStdString()));
}

void PlanViewWidget::switchMacroTree() {
    state_->runCommand(&PlanView::SwitchMacroTree, nullptr);
}

bool PlanViewWidget::macroTreeShown() const {
    return state_->core->view.MacroTreeShown();
}

template <class Action>
MacroResult PlanViewWidget::State::withMacro(Action&& action) {
    return guard.run("Macro", [&]() -> MacroResult {
        PlanView& view = core->view;
        const QPointer<PlanViewWidget> self(&widget);
        if (!widget.finishEditing() || !self) {
            return {};
        }
        MacroResult result = action(view);
        if (self) {
            status->gridChanged();
        }
        return result;
    });
}

MacroResult PlanViewWidget::replayMacro(const QString& nodeKey, bool onSelectedLine) {
    return state_->withMacro([&](PlanView& view) { return view.ReplayMacro(nodeKey.toStdString(), onSelectedLine); });
}

MacroResult PlanViewWidget::runMacro(const QString& nodeKey, bool onSelectedLine) {
    return state_->withMacro([&](PlanView& view) { return view.RunMacro(nodeKey.toStdString(), onSelectedLine); });
}

MacroResult PlanViewWidget::checkMacro(const QString& nodeKey) {
    return state_->withMacro([&](PlanView& view) { return view.CheckMacro(nodeKey.toStdString()); });
}

void PlanViewWidget::moveMacroNode(const QString& nodeKey, const QString& target, short action) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    core->view.MoveMacroNode(nodeKey.toStdString(), target.toStdString(), action);
}

}  // namespace planview
