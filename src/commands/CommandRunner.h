// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <utility>

#include <planview/AutomationObject.h>
#include <planview/Commands.h>

#include "automation/ListenerList.h"
#include "commands/CommandCall.h"
#include "commands/CommandParts.h"
#include "commands/CommandSituation.h"
#include "commands/CommandTable.h"
#include "macro/recording/MacroStep.h"

namespace planview {

/// Runs the commands of the table, and records them: the only way for a command into a recording.
class CommandRunner {
public:
    explicit CommandRunner(CommandParts parts) : parts_(std::move(parts)) {}

    /// Runs the command; recorded when it was done. Throws what the command throws. Answers whether it was done.
    bool Run(Command command, CommandCall call = {});
    /// The same with the arguments of a late-bound call; throws WrongArguments for another number of them.
    bool RunWith(Command command, AutomationObject::Arguments arguments);
    /// Records what the user did by hand as the command that does the same.
    void Record(Command command, const CommandCall& call);

    // --- What can be run

    /// For several questions at one moment.
    [[nodiscard]] CommandSituation Situation(CommandPlace place = {}) const {
        return CommandSituation(parts_, std::move(place));
    }
    [[nodiscard]] static CommandState StateOf(Command command, const CommandSituation& now);

    /// Called when commands may be enabled or checked otherwise than before.
    [[nodiscard]] ListenerList<void()>& Listeners() noexcept { return listeners_; }
    /// Something that is no command has changed what can be run.
    void Changed() const noexcept;

    // --- Recorded steps

    /// Why the step cannot be done now, as the end of a sentence; none when it can.
    [[nodiscard]] std::optional<std::string> MisfitOf(const ViewStep& step) const;
    /// Does it as the user did, under an error trap. Answers whether it was done.
    bool Replay(const ViewStep& step);

private:
    [[nodiscard]] bool IsPossible(const CommandRow& row, const CommandCall& call) const;
    void SelectHeadingsOf(const CommandRow& row, CommandCall& call);

    CommandParts parts_;
    ListenerList<void()> listeners_;
};

}  // namespace planview
