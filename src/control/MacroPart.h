// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <planview/Macros.h>
#include <planview/Spreadsheet.h>

#include "commands/CommandRunner.h"
#include "components/TreeControl.h"
#include "control/GridPart.h"
#include "macro/editor/MacroEditor.h"
#include "macro/recording/MacroRecording.h"
#include "macro/recording/MacroReplay.h"
#include "macro/run/MacroRun.h"
#include "macro/tree/MacroOutcome.h"
#include "macro/tree/MacroToolbar.h"
#include "macro/tree/modMacro.h"

namespace planview {

/// The macro tree of a control with its editor, the running of its macros, and recordings.
struct MacroPart {
    MacroPart(ControlShared& shared, GridPart& grid, CommandRunner& runner);

    /// Runs what the MACRO_TREE node with this key is: a macro is run, a recording is replayed. The one place that
    /// tells them apart.
    MacroOutcome Run(const std::string& nodeKey, bool onSelectedLine);
    /// Checks a macro or recording as it would run now.
    [[nodiscard]] MacroProblems Check(const std::string& nodeKey);
    MacroOutcome Replay(const std::string& nodeKey, bool onSelectedLine);
    /// What running the macro would change. A recording has no preview.
    MacroOutcome Preview(const std::string& nodeKey, bool onSelectedLine, UploadPreview& preview);
    /// Shows that to the user and changes what he leaves ticked, as one action.
    MacroOutcome RunPreviewed(const std::string& nodeKey, bool onSelectedLine);
    /// Builds the tree from MACRO_TREE anew.
    void Import();

    TreeControl tree;
    MacroToolbar toolbar;
    modMacro::Tree nodes;
    MacroRecording recording;
    MacroEditor editor;
    /// "TRE" while a popup of the macro tree is open, else empty. While it is not empty the host cannot choose another
    /// node, and opening, closing and double clicks raise nothing.
    std::string popupState;

private:
    [[nodiscard]] MacroRunParts RunParts();
    [[nodiscard]] MacroReplay ReplayParts();
    [[nodiscard]] bool IsRecordingNode(const std::string& nodeKey) const;
    MacroOutcome ReplaySteps(std::vector<MacroStep> steps, bool onSelectedLine);
    /// What would keep the recording from being replayed, for the user; empty where nothing would.
    [[nodiscard]] std::string RecordingFault(const std::string& nodeKey);

    ControlShared& shared_;
    GridPart& grid_;
    const TableSlots& tables_;
    CommandRunner& runner_;
};

/// As the host gets it.
[[nodiscard]] MacroResult ResultOf(const MacroOutcome& outcome);

}  // namespace planview
