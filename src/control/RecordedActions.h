// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "grid/UserActions.h"

namespace planview {

struct ControlContext;

/// Tells the recording of a menu command that has run, where it is one that can be replayed. Commands that change
/// values are told by value entry, those on whole columns and rows by what carries them out.
void RecordMenuCommand(ControlContext& context, std::string_view command);

/// Why the recorded action cannot be done now, as the end of a sentence; none when it can.
[[nodiscard]] std::optional<std::string> ActionRefusal(const ControlContext& context, const ViewAction& action);

/// Does it as the user did: with its columns or rows selected.
void PerformAction(ControlContext& context, const ViewAction& action);

}  // namespace planview
