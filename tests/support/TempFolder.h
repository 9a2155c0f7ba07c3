// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace planview::test {

/// An empty folder that nobody else has; it goes with everything in it.
class TempFolder {
public:
    TempFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("planview-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TempFolder() { std::filesystem::remove_all(path_); }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const noexcept { return path_; }
    /// In the way that texts name paths, UTF-8.
    [[nodiscard]] std::string Name() const {
        const std::u8string name = path_.u8string();
        return {name.begin(), name.end()};
    }

private:
    std::filesystem::path path_;
};

}  // namespace planview::test
