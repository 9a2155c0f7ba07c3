// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "commands/CommandSituation.h"

/// Why a command cannot be run now: a sentence for the user, empty where it can.
namespace planview::commands {

[[nodiscard]] std::string NothingToUndo(const CommandSituation& now);
[[nodiscard]] std::string NothingToRedo(const CommandSituation& now);

[[nodiscard]] std::string NoCell(const CommandSituation& now);
/// No planning cell at all.
[[nodiscard]] std::string NoCells(const CommandSituation& now);
/// What was clicked does not take values; where nothing was clicked, the one selected cell, or none at all.
[[nodiscard]] std::string CannotEdit(const CommandSituation& now);
/// No number was entered that could have meant another one.
[[nodiscard]] std::string NoOtherReading(const CommandSituation& now);
[[nodiscard]] std::string NothingToFill(const CommandSituation& now);

[[nodiscard]] std::string NoColumns(const CommandSituation& now);
[[nodiscard]] std::string NoColumnSelected(const CommandSituation& now);
[[nodiscard]] std::string NoColumnToHide(const CommandSituation& now);
[[nodiscard]] std::string NoColumnToShow(const CommandSituation& now);
[[nodiscard]] std::string NoRows(const CommandSituation& now);
[[nodiscard]] std::string NoRowSelected(const CommandSituation& now);
[[nodiscard]] std::string NoRowToHide(const CommandSituation& now);
[[nodiscard]] std::string NoRowToShow(const CommandSituation& now);

[[nodiscard]] std::string NoChart(const CommandSituation& now);
/// The whole chart is stacked, so that no series can be a line of its own,
[[nodiscard]] std::string NoPlainLine(const CommandSituation& now);
/// nor columns of its own. A stacked line can come back to the stack.
[[nodiscard]] std::string NoPlainColumns(const CommandSituation& now);
[[nodiscard]] std::string NoTrendLine(const CommandSituation& now);

[[nodiscard]] std::string NoLayoutMode(const CommandSituation& now);
[[nodiscard]] std::string NoTrace(const CommandSituation& now);

[[nodiscard]] std::string IsRecording(const CommandSituation& now);
[[nodiscard]] std::string IsNotRecording(const CommandSituation& now);
/// Neither running nor interrupted.
[[nodiscard]] std::string NoRecording(const CommandSituation& now);
[[nodiscard]] std::string NoRecordedStep(const CommandSituation& now);

[[nodiscard]] std::string NoNodes(const CommandSituation& now);
[[nodiscard]] std::string NoNode(const CommandSituation& now);
/// The macro editor shows none, or a recording.
[[nodiscard]] std::string NoMacroToPreview(const CommandSituation& now);
[[nodiscard]] std::string NoNodeToRename(const CommandSituation& now);

/// For a recorded step, as the end of a sentence.
[[nodiscard]] std::optional<std::string> NoMacroTree(const CommandParts& on, const CommandCall& call);

}  // namespace planview::commands
