// SPDX-License-Identifier: MIT
#include "qt/PlanViewState.h"

// Recording and replaying. An entry that is open is ended first: it belongs to the step before.

namespace planview {

bool PlanViewWidget::isRecording() const {
    return state_->core->view.Recording().IsOn();
}

bool PlanViewWidget::isRecordingPaused() const {
    return state_->core->view.Recording().IsPaused();
}

int PlanViewWidget::recordedSteps() const {
    return state_->core->view.Recording().Steps();
}

QString PlanViewWidget::keepRecording(const QString& name, const QString& parentNode) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    return QString::fromStdString(core->view.Recording().Keep(name.toStdString(), parentNode.toStdString()));
}

bool PlanViewWidget::macroTreeShown() const {
    return state_->core->view.View().MacroTreeShown();
}

template <class Action>
MacroResult PlanViewWidget::State::withMacro(Action&& action) {
    MacroResult result;
    runOnControl([&](PlanView& view) { result = action(view); });
    return result;
}

MacroResult PlanViewWidget::replayMacro(const QString& nodeKey, bool onSelectedLine) {
    return state_->withMacro(
        [&](PlanView& view) { return view.Macros().Replay(nodeKey.toStdString(), onSelectedLine); });
}

MacroResult PlanViewWidget::runMacro(const QString& nodeKey, bool onSelectedLine) {
    return state_->withMacro([&](PlanView& view) { return view.Macros().Run(nodeKey.toStdString(), onSelectedLine); });
}

MacroResult PlanViewWidget::runMacroPreviewed(const QString& nodeKey, bool onSelectedLine) {
    return state_->withMacro(
        [&](PlanView& view) { return view.Macros().RunPreviewed(nodeKey.toStdString(), onSelectedLine); });
}

void PlanViewWidget::editMacro(const QString& nodeKey) {
    plv_ActiveNode(nodeKey);
    run(Command::EditMacro);
}

MacroResult PlanViewWidget::checkMacro(const QString& nodeKey) {
    return state_->withMacro([&](PlanView& view) { return view.Macros().Check(nodeKey.toStdString()); });
}

void PlanViewWidget::moveMacroNode(const QString& nodeKey, const QString& target, DropAction action) {
    const std::shared_ptr<DesktopControl> core = state_->core;
    core->view.Macros().MoveNode(nodeKey.toStdString(), target.toStdString(), action);
}

}  // namespace planview
