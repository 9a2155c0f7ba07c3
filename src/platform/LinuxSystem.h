// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include <planview/Export.h>
#include <planview/Platform.h>

namespace planview {

/// The system figures of Linux, shared by every platform that runs on it.

/// The page-file figures are memory and swap together. No value where "/proc/meminfo" cannot be read.
[[nodiscard]] PLANVIEW_EXPORT std::optional<MemoryStatus> LinuxMemoryStatus();
/// 3, a platform that the trace does not know by name; no value when the system does not tell its name.
[[nodiscard]] PLANVIEW_EXPORT std::optional<int> LinuxPlatformId();
/// "planview" in `XDG_STATE_HOME`, else in "~/.local/state"; empty where neither is known.
[[nodiscard]] PLANVIEW_EXPORT std::string LinuxLogFolder();

}  // namespace planview
