// SPDX-License-Identifier: MIT
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include "platform/System.h"

namespace planview {

std::optional<MemoryStatus> SystemMemory() {
    std::ifstream file("/proc/meminfo");
    std::string name;
    std::int64_t kibibytes = 0;
    std::int64_t total = -1;
    std::int64_t available = 0;
    std::int64_t swapTotal = 0;
    std::int64_t swapFree = 0;
    for (std::string line; file >> name >> kibibytes && std::getline(file, line);) {
        if (name == "MemTotal:") {
            total = kibibytes;
        } else if (name == "MemAvailable:") {
            available = kibibytes;
        } else if (name == "SwapTotal:") {
            swapTotal = kibibytes;
        } else if (name == "SwapFree:") {
            swapFree = kibibytes;
        }
    }
    if (total < 0) {
        return std::nullopt;
    }
    constexpr std::int64_t BytesPerKibibyte = 1024;
    return MemoryStatus{total * BytesPerKibibyte, (total + swapTotal) * BytesPerKibibyte,
                        (available + swapFree) * BytesPerKibibyte};
}

std::optional<int> SystemPlatformId() {
    constexpr int Linux = 3;
    utsname name{};
    if (uname(&name) != 0) {
        return std::nullopt;
    }
    return Linux;
}

std::string SystemLogFolder() {
    const auto variable = [](const char* name) {
        const char* value = std::getenv(name);
        return std::filesystem::path(value ? value : "");
    };
    std::filesystem::path state = variable("XDG_STATE_HOME");
    if (!state.is_absolute()) {
        const std::filesystem::path home = variable("HOME");
        if (!home.is_absolute()) {
            return {};
        }
        state = home / ".local" / "state";
    }
    return (state / "planview").string();
}

bool TakeGroup(const std::filesystem::path& file, const std::filesystem::path& from) {
    struct stat wanted {};
    struct stat present {};
    if (stat(from.c_str(), &wanted) != 0 || stat(file.c_str(), &present) != 0) {
        return false;
    }
    constexpr uid_t SameOwner = static_cast<uid_t>(-1);
    return wanted.st_gid == present.st_gid || chown(file.c_str(), SameOwner, wanted.st_gid) == 0;
}

}  // namespace planview
