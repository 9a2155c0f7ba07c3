// SPDX-License-Identifier: MIT
#include "xlsx/SaveBeside.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <system_error>

#include <planview/AutomationObject.h>

namespace planview::xlsx {

namespace {

namespace fs = std::filesystem;

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Removes the file unless it was moved away.
class HalfDoneFile {
public:
    explicit HalfDoneFile(fs::path path) : path_(std::move(path)) {}
    ~HalfDoneFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }
    HalfDoneFile(const HalfDoneFile&) = delete;
    HalfDoneFile& operator=(const HalfDoneFile&) = delete;

private:
    fs::path path_;
};

[[noreturn]] void Refuse(const fs::path& target, const std::string& why) {
    throw AutomationError(AutomationErrorCode::Failed, "Cannot save '" + TextOf(target) + "': " + why);
}

std::string QuotedFolder(const fs::path& target) {
    return "the folder '" + TextOf(target.has_parent_path() ? target.parent_path() : fs::path(".")) + "'";
}

void ExpectFolder(const fs::path& target) {
    std::error_code error;
    const fs::file_status folder = fs::status(target.has_parent_path() ? target.parent_path() : fs::path("."), error);
    if (!fs::exists(folder)) {
        Refuse(target, QuotedFolder(target) + " does not exist. Create it or choose another one.");
    }
    if (!fs::is_directory(folder)) {
        Refuse(target, "'" + TextOf(target.parent_path()) + "' is no folder. Choose another one.");
    }
}

/// A file that may not be written may not be replaced either, although its folder would allow it.
void ExpectReplaceable(const fs::path& target) {
    std::error_code error;
    const fs::file_status file = fs::status(target, error);
    if (!fs::exists(file)) {
        return;
    }
    if (!fs::is_regular_file(file)) {
        Refuse(target, "there is something else of that name, a folder or a device. Choose another name.");
    }
    if (!File(std::fopen(target.c_str(), "r+b"))) {
        Refuse(target, "the file is there already and may not be changed (" + std::generic_category().message(errno) +
                           "). Choose another name.");
    }
}

fs::path NameBeside(const fs::path& target) {
    std::random_device random;
    std::array<char, 16> number;
    std::snprintf(number.data(), number.size(), ".%08x", static_cast<unsigned>(random()));
    // Cut, because the whole name may not be longer than the file system allows.
    constexpr std::size_t LongestStem = 40;
    const std::string stem = target.filename().string().substr(0, LongestStem);
    return target.parent_path() / fs::path("." + stem + number.data() + ".tmp");
}

}  // namespace

fs::path PathOf(std::string_view utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

void ThrowCannotSave(const fs::path& target, int systemError) {
    switch (systemError) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            Refuse(target, "the disk is full (" + std::generic_category().message(systemError) +
                               "). Make room or choose another folder.");
        case EACCES:
        case EPERM:
        case EROFS:
            Refuse(target, "no permission to write into " + QuotedFolder(target) + ". Choose another one.");
        case ENAMETOOLONG:
            Refuse(target, "the name is too long. Choose a shorter one.");
        default:
            Refuse(target, std::generic_category().message(systemError != 0 ? systemError : EIO) +
                               ". Try again or choose another folder.");
    }
}

void SaveBeside(const fs::path& named, const std::function<void(const fs::path&)>& write) {
    std::error_code error;
    fs::path target = named;
    if (fs::is_symlink(target, error)) {
        const fs::path real = fs::weakly_canonical(target, error);
        target = error ? target : real;
    }
    ExpectFolder(target);
    ExpectReplaceable(target);

    const fs::path beside = NameBeside(target);
    if (!File(std::fopen(beside.c_str(), "wb"))) {
        ThrowCannotSave(target, errno);
    }
    const HalfDoneFile removed(beside);
    write(beside);
    const fs::file_status old = fs::status(target, error);
    if (fs::exists(old)) {
        fs::permissions(beside, old.permissions(), error);
    }
    fs::rename(beside, target, error);
    if (error) {
        ThrowCannotSave(target, error.value());
    }
}

}  // namespace planview::xlsx
