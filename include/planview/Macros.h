// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include <planview/Events.h>
#include <planview/Export.h>
#include <planview/Facet.h>
#include <planview/Spreadsheet.h>

namespace planview {

/// What became of a macro that was run or replayed.
struct MacroResult {
    bool done = false;    ///< false: nothing was changed
    int cells = 0;        ///< that were given a value
    std::string message;  ///< for the user: what was done, or what is wrong, where, and what now
};

/// Running the macros and recordings of MACRO_TREE.
class PLANVIEW_EXPORT Macros final : public Facet {
public:
    /// Those of this control.
    explicit Macros(PlanView& control) noexcept : Facet(control) {}

    /// Runs the MACRO_TREE node with this key: a macro, or a recording as Replay() does. A macro computes everything
    /// first; whatever is wrong then (the check, a division by zero, a cell that may not be changed), nothing is
    /// changed. Its values are one change, undone as one. `onSelectedLine` as for Replay().
    MacroResult Run(const std::string& nodeKey, bool onSelectedLine = false);
    /// What Run() would change, without changing it. Where something is wrong with the macro, `error` says what. A cell
    /// that may not be changed is refused alone. `Exchange::ApplyUpload` applies what is ticked. A recording has none.
    [[nodiscard]] UploadPreview Preview(const std::string& nodeKey, bool onSelectedLine = false);
    /// As Run(), but the user sees the changes first and leaves out what he does not want; the others are one change.
    MacroResult RunPreviewed(const std::string& nodeKey, bool onSelectedLine = false);
    /// Replays the recording that is the MACRO_TREE node with this key. Steps find their lines and periods by the key
    /// while it has still the caption of the recording, else by the caption when it is the only one; a step that does
    /// not find them ends the replay before anything is changed. All values are one change, undone as one.
    /// `onSelectedLine` takes the selected line (that of the selected cells) instead of the one that the recording
    /// is about; it has to be about one alone.
    MacroResult Replay(const std::string& nodeKey, bool onSelectedLine = false);
    /// Says what would keep the macro from running, each problem on a line of its own; `done` where nothing would.
    MacroResult Check(const std::string& nodeKey);
    /// Moves a MACRO_TREE node, with all below it, as `MacroTreeNodeDropped` reports it; nothing for the action of a
    /// new node. What does not go there is not moved; the macro editor says why. The host hears of the change by
    /// `MacroTreeExpand`.
    void MoveNode(const std::string& nodeKey, const std::string& target, DropAction action);
};

}  // namespace planview
