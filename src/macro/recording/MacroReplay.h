// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "components/GridControl.h"
#include "grid/ValueEntry.h"
#include "macro/recording/MacroStep.h"
#include "macro/tree/MacroOutcome.h"

namespace planview {

/// Replays recorded steps on the grid as it is now.
///
/// First all steps are checked and all values computed; if a step does not fit any more, nothing is changed. Then all
/// values are entered as one change, which is one undo step, followed by the changes of the view in order. FindPlaces()
/// says how lines and periods are found.
class MacroReplay {
public:
    struct Parts {
        const GridControl& grid;
        ValueEntry& valueEntry;
        /// Why a step that gives no values does not fit any more, as the end of a sentence; no value if it fits.
        std::function<std::optional<std::string>(const ViewStep& step)> misfit;
        /// Does such a step; returns false if it was not done.
        std::function<bool(const ViewStep& step)> perform;
        StepSentence sentenceOf;
    };

    explicit MacroReplay(Parts parts) : parts_(std::move(parts)) {}

    /// `changed` counts the cells that got another value, even if others did not.
    [[nodiscard]] MacroOutcome Run(const std::vector<MacroStep>& steps) const;
    /// What Run() would say of the first step that does not fit; empty if all fit.
    [[nodiscard]] std::string Check(const std::vector<MacroStep>& steps) const;

    /// The steps with the only line that they are about replaced by another one. No value if they are about no line or
    /// several.
    [[nodiscard]] static std::optional<std::vector<MacroStep>> OnLine(const GridControl& grid,
                                                                      std::vector<MacroStep> steps,
                                                                      const std::string& line);

private:
    class Plan;
    /// Adds the steps; returns a sentence for the user if one does not fit, else nothing.
    std::string AddAll(Plan& plan, const std::vector<MacroStep>& steps) const;
    /// "Step 2 (Hide Retail)".
    [[nodiscard]] std::string NameOf(const std::vector<MacroStep>& steps, std::size_t index) const;

    Parts parts_;
};

/// The key of the planning line that is selected or contains all selected cells. Empty if there is not exactly one.
[[nodiscard]] std::string SelectedLine(const GridControl& grid);

}  // namespace planview
