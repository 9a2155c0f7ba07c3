// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

#include <planview/Export.h>

namespace planview {

/// Whether the process-wide trace is on; any control switches it with `plv_EnableTrace` and `plv_DisableTrace`. These
/// functions may be called on any thread.
[[nodiscard]] PLANVIEW_EXPORT bool TraceIsOn() noexcept;

/// Writes the entries that the trace holds now, oldest first, in the form of the log file: control from column 1,
/// message from column 15, method or event from column 35, parameter from column 65, lines ended by CR LF. A field that
/// does not fit before the next one's column moves that one to a line of its own. Writes nothing while the trace is
/// off.
PLANVIEW_EXPORT void WriteTraceLog(std::ostream& out);

}  // namespace planview
