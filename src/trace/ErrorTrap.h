// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <planview/Export.h>

#include "automation/ErrorText.h"
#include "trace/modPlan.h"

namespace planview {

/// Writes the entry by which a failure can be seen in the trace.
PLANVIEW_EXPORT void TraceError(std::string_view control, std::string_view method, std::string_view error) noexcept;

/// Wraps a public method or an event handler: a failure ends the body quietly and leaves an entry with the message
/// "ERROR". Returns true if the body did not throw.
template <class Body>
bool ErrorTrap(std::string_view control, std::string_view method, Body&& body) noexcept {
    const std::optional<std::string> error = ErrorTextOf(body);
    if (error) {
        TraceError(control, method, *error);
    }
    return !error;
}

/// Runs each statement although the one before may have failed; failures are dropped. For what must go on whatever
/// happens: the trace itself, the table properties and the end of the control.
template <class... Statements>
void ResumeNext(Statements&&... statements) noexcept {
    (static_cast<void>(ErrorTextOf(statements)), ...);
}

}  // namespace planview
