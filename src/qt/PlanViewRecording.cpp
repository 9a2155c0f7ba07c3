// SPDX-License-Identifier: MIT
#include "qt/PlanViewState.h"

// Recording and replaying, and the command that raises. An entry that is open is ended first: it belongs to the step
// before.

namespace planview {

void PlanViewWidget::raiseSelected(double percent) {
    state_->runOnControl([percent](PlanView& view) { view.RaiseSelected(percent); });
}

void PlanViewWidget::startRecording() {
    run(Command::StartRecording);
}

void PlanViewWidget::pauseRecording() {
    run(Command::PauseRecording);
}

void PlanViewWidget::stopRecording() {
    run(Command::StopRecording);
}

void PlanViewWidget::undoRecordedStep() {
    run(Command::UndoRecordedStep);
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
    run(Command::SwitchMacroTree);
}

bool PlanViewWidget::macroTreeShown() const {
    return state_->core->view.MacroTreeShown();
}

template <class Action>
MacroResult PlanViewWidget::State::withMacro(Action&& action) {
    MacroResult result;
    runOnControl([&](PlanView& view) { result = action(view); });
    return result;
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
