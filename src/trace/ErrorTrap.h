// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <planview/Export.h>

#include "automation/ErrorText.h"
#include "trace/modPlan.h"

namespace planview {

/// @{
/// Writes the entry by which a failure can be seen in the trace, and notes it for the listeners of the control that is
/// at work.
PLANVIEW_EXPORT void TraceError(std::string_view control, std::string_view method, const CaughtError& error) noexcept;
PLANVIEW_EXPORT void TraceError(std::string_view control, std::string_view method, std::string_view error) noexcept;
/// @}

/// @{
/// The entry alone and the note alone.
void TraceErrorEntry(std::string_view control, std::string_view method, std::string_view error) noexcept;
void NoteFailure(std::string_view method, const CaughtError& error) noexcept;
/// @}

/// Wraps a public method or an event handler: a failure ends the body quietly and leaves an entry with the message
/// "ERROR". Returns true if the body did not throw.
template <class Body>
bool ErrorTrap(std::string_view control, std::string_view method, Body&& body) noexcept {
    const std::optional<CaughtError> error = CaughtErrorOf(body);
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
