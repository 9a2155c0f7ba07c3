// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>

#include <windows.h>

#include "platform/System.h"

namespace planview {

std::optional<MemoryStatus> SystemMemory() {
    MEMORYSTATUSEX status{};
    status.dwLength = sizeof status;
    if (!GlobalMemoryStatusEx(&status)) {
        return std::nullopt;
    }
    return MemoryStatus{static_cast<std::int64_t>(status.ullTotalPhys),
                        static_cast<std::int64_t>(status.ullTotalPageFile),
                        static_cast<std::int64_t>(status.ullAvailPageFile)};
}

std::optional<int> SystemPlatformId() {
    return VER_PLATFORM_WIN32_NT;  // of every Windows with 64 bits
}

std::string SystemLogFolder() {
    const wchar_t* const local = _wgetenv(L"LOCALAPPDATA");
    const std::filesystem::path folder(local ? local : L"");
    if (!folder.is_absolute()) {
        return {};
    }
    const std::u8string text = (folder / "planview").u8string();
    return {text.begin(), text.end()};
}

bool TakeGroup(const std::filesystem::path& /*file*/, const std::filesystem::path& /*from*/) {
    return true;  // a file takes its rights from its folder
}

}  // namespace planview
