// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include <planview/Export.h>
#include <planview/Platform.h>

namespace planview {

/// What every platform asks the operating system for: LinuxSystem.cpp or WindowsSystem.cpp, whichever the build is for.

/// Figures of the whole machine; the page-file figures are memory and swap together. No value where the system gives
/// none.
[[nodiscard]] PLANVIEW_EXPORT std::optional<MemoryStatus> SystemMemory();
/// 2 for Windows and 3 for Linux, which the trace does not know by name; no value where the system gives none.
[[nodiscard]] PLANVIEW_EXPORT std::optional<int> SystemPlatformId();
/// "planview" in the folder that the system gives a user's programs for what they note down: on Linux `XDG_STATE_HOME`,
/// else "~/.local/state"; on Windows `LOCALAPPDATA`. UTF-8; empty where none is known.
[[nodiscard]] PLANVIEW_EXPORT std::string SystemLogFolder();
/// Gives a file the group of another one; false where the user may not.
[[nodiscard]] bool TakeGroup(const std::filesystem::path& file, const std::filesystem::path& from);

}  // namespace planview
