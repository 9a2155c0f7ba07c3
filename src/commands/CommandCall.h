// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <planview/Platform.h>
#include <planview/Variant.h>

#include "components/GridTypes.h"

namespace planview {

/// What was clicked for a command; nothing where it was not chosen from a popup.
struct CommandPlace {
    CellKey cell{};
    std::optional<std::string> node{};  ///< of the macro tree; empty: beside all of them
};

/// One run of a command: what it is told, and what it has come to.
struct CommandCall {
    std::vector<std::string> columns{};  ///< keys; without any, those of the selected headings are meant
    std::vector<std::string> rows{};
    Variant value{};
    CommandPlace place{};
    /// A command sets it to false that has nothing to do, or that has failed and has named the failure in the trace.
    bool done = true;
    std::optional<ClipboardContents> contents{};  ///< to be pasted; without any, those of the clipboard
};

}  // namespace planview
