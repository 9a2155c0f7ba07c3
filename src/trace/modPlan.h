// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

#include "components/ListView.h"
#include "platform/Desktop.h"

namespace planview::modPlan {

/// The trace log: one switch, one counter and one list for all controls of the process, whatever threads they are on.
/// While the trace is off nobody waits for another thread, and nobody is ever called while the list is locked. A window
/// of the trace belongs to the thread that opened it and is ended there.
///
/// Every procedure here goes on after a failure of its own: tracing never breaks what is being traced.

/// The most entries that are kept; each further one drops the oldest.
inline constexpr std::size_t MaxTraceEntries = 5000;

/// Tested at the head of every traced procedure, before any text is built.
inline std::atomic<bool> TraceEnabled = false;
/// The number of the newest entry since the trace was switched on.
inline std::atomic<std::int32_t> TraceCounter = 0;
/// How numbers are written in entries; from the user's regional settings, set for all controls
/// whenever one is created.
inline std::atomic<char> TraceDecimalMark = '.';

/// Appends an entry; does nothing while the trace is off.
void TraceWrite(std::string_view control, std::string_view message, std::string_view method,
                std::string_view parameter) noexcept;

/// Switches the trace on with an empty list and writes what the log needs to know of the machine; nothing while it is
/// on.
void Trace_Enable(const Desktop& platform);
/// Switches the trace off, offers to save the list, empties it and ends its windows, on whatever platform they are;
/// those that other threads have opened hear of the end. Does nothing while the trace is off. The entry about the
/// switch itself is written after the switch and so never recorded: the log ends with the last entry before it. Who
/// switches the trace on again while the question is open gets a list of his own.
void Trace_Disable(const Desktop& platform);
/// Ends the windows of the trace on this platform. A control that ends calls it, for its platform may end after it.
void Trace_Leave(const Desktop& platform) noexcept;
/// Shows the trace window and waits for its end; does nothing while the trace is off.
void Trace_Show(const Desktop& platform);
/// Asks and then writes this list to "MORVIDA.LOG" in the platform's log folder, replacing an earlier one. A file that
/// cannot be written is given up without a message.
void TraceSave(const Desktop& platform, const ListView& list);
/// The list in the form of the log file; see planview::WriteTraceLog().
void WriteTraceLines(std::ostream& out);

/// Three entries on the memory. The figures are 32-bit byte counts: more than 2,147,483,647 bytes count as that.
void MemoryCheck(const SystemInformation& system);
/// One entry on the operating system, none when it does not tell.
void OsCheck(const SystemInformation& system);

/// The text with every "." replaced by ",".
[[nodiscard]] std::string ReplacePoint(std::string text);

}  // namespace planview::modPlan
