// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "components/GridControl.h"
#include "grid/ValueEntry.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// What became of a replay.
struct ReplayResult {
    bool done = false;
    int cells = 0;      ///< that have been given a value
    int steps = 0;      ///< that were replayed
    std::string error;  ///< for the user: the step's number, what is wrong and what now; empty when done
};

/// Replays recorded steps on the grid as it is now.
///
/// First every step is checked and every value computed; a step that does not fit any more ends the replay there, and
/// nothing is changed. Then all values go through value entry as one change, which is undone as one, and the changes of
/// the view follow in their order. Places are found as FindPlaces() says.
class MacroReplay {
public:
    struct Parts {
        const GridControl& grid;
        ValueEntry& valueEntry;
        /// Why a step that gives no values does not fit any more, as the end of a sentence; none when it does.
        std::function<std::optional<std::string>(const ViewStep& step)> misfit;
        /// Does such a step; false when it was not done.
        std::function<bool(const ViewStep& step)> perform;
        StepSentence sentenceOf;
    };

    explicit MacroReplay(Parts parts) : parts_(std::move(parts)) {}

    [[nodiscard]] ReplayResult Run(const std::vector<MacroStep>& steps) const;
    /// What Run() would say of a step that does not fit; empty when all do.
    [[nodiscard]] std::string Check(const std::vector<MacroStep>& steps) const;

    /// The same steps with another line in the place of the only one that they are about. No value when they are about
    /// none or several.
    [[nodiscard]] static std::optional<std::vector<MacroStep>> OnLine(const GridControl& grid,
                                                                      std::vector<MacroStep> steps,
                                                                      const std::string& line);

private:
    class Plan;
    /// Adds the steps; a sentence for the user where one does not fit, else nothing.
    std::string AddAll(Plan& plan, const std::vector<MacroStep>& steps) const;
    /// "Step 2 (Hide Retail)".
    [[nodiscard]] std::string NameOf(const std::vector<MacroStep>& steps, std::size_t place) const;

    Parts parts_;
};

/// The planning line that the user means: the one that is selected, or that his selected cells are in. Empty when it is
/// not a single one.
[[nodiscard]] std::string SelectedLine(const GridControl& grid);

}  // namespace planview
