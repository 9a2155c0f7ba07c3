// SPDX-License-Identifier: MIT
#include <planview/Macros.h>

#include "control/Guarded.h"

namespace planview {

namespace {

constexpr std::string_view MacroLabel = "MACRO";

}  // namespace

void ImportMacroTree(const std::shared_ptr<detail::ControlState>& state) noexcept {
    constexpr std::string_view Method = "DP_Import_MacroTree";
    Guarded(state, "USERCONTROL", Method, [&](ControlContext& context) {
        modPlan::TraceWrite("USERCONTROL", "", Method, "{}");
        context.macros.Import();
    });
}

MacroResult Macros::Run(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(State(), MacroLabel, "Run",
            [&](ControlContext& context) { result = ResultOf(context.macros.Run(nodeKey, onSelectedLine)); });
    return result;
}

UploadPreview Macros::Preview(const std::string& nodeKey, bool onSelectedLine) {
    UploadPreview preview;
    Guarded(State(), MacroLabel, "Preview", [&](ControlContext& context) {
        preview.error = ResultOf(context.macros.Preview(nodeKey, onSelectedLine, preview)).message;
    });
    return preview;
}

MacroResult Macros::RunPreviewed(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(State(), MacroLabel, "RunPreviewed",
            [&](ControlContext& context) { result = ResultOf(context.macros.RunPreviewed(nodeKey, onSelectedLine)); });
    return result;
}

MacroResult Macros::Check(const std::string& nodeKey) {
    MacroResult result;
    Guarded(State(), MacroLabel, "Generate", [&](ControlContext& context) {
        result = ResultOf({context.macros.Check(nodeKey), 0, "no problem was found."});
    });
    return result;
}

MacroResult Macros::Replay(const std::string& nodeKey, bool onSelectedLine) {
    MacroResult result;
    Guarded(State(), MacroLabel, "Replay",
            [&](ControlContext& context) { result = ResultOf(context.macros.Replay(nodeKey, onSelectedLine)); });
    return result;
}

void Macros::MoveNode(const std::string& nodeKey, const std::string& target, DropAction action) {
    Guarded(State(), MacroLabel, "MoveMacroNode", [&](ControlContext& context) {
        switch (action) {
            case DropAction::MovedBefore:
                context.macros.editor.MoveTo(nodeKey, target, TreeDrop::Before);
                break;
            case DropAction::MovedAfter:
                context.macros.editor.MoveTo(nodeKey, target, TreeDrop::After);
                break;
            case DropAction::MovedBelow:
                context.macros.editor.MoveTo(nodeKey, target, TreeDrop::Below);
                break;
            default:
                break;  // a new node: the host's own
        }
    });
}

}  // namespace planview
