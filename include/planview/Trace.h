// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <memory>

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

/// While it lives, each entry that the trace gets is also written into a stream, in the same form and however many
/// there are; the list of 5,000 stays as it is. Entries come from any thread, one after the other. The stream stays the
/// host's, must outlive this, must not lead back to the trace, and is not flushed. Any number may stand at a time.
class PLANVIEW_EXPORT TraceStream {
public:
    /// From the next entry on.
    explicit TraceStream(std::ostream& out);
    /// No further entry is written.
    ~TraceStream();
    TraceStream(const TraceStream&) = delete;
    TraceStream& operator=(const TraceStream&) = delete;

    /// The system's error number (`errno`) when the stream failed, 0 while it has not; what comes after a failure is
    /// not written.
    [[nodiscard]] int Error() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace planview
