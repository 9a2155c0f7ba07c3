// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>
#include <system_error>

#include <planview/AutomationObject.h>
#include <planview/SaveBeside.h>

#include "platform/System.h"

namespace planview {

namespace {

namespace fs = std::filesystem;

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

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

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

[[noreturn]] void RefuseExisting(const fs::path& target) {
    Refuse(target, "there is such a file. Choose another name.");
}

/// A file that may not be written may not be replaced either, although its folder would allow it.
void ExpectReplaceable(const fs::path& target, IfThere ifThere) {
    std::error_code error;
    const fs::file_status file = fs::status(target, error);
    if (!fs::exists(file)) {
        return;
    }
    if (ifThere == IfThere::Refuse) {
        RefuseExisting(target);
    }
    if (!fs::is_regular_file(file)) {
        Refuse(target, "there is something else of that name, a folder or a device. Choose another name.");
    }
    if (!std::fstream(target, std::ios::in | std::ios::out | std::ios::binary)) {
        Refuse(target, "the file is there already and may not be changed (" + std::generic_category().message(errno) +
                           "). Choose another name.");
    }
}

/// Cut, because the whole name may not be longer than the file system allows; not within a character.
std::string StemBeside(const fs::path& target) {
    constexpr std::size_t LongestStem = 40;
    std::string stem = target.filename().string();
    std::size_t end = std::min(stem.size(), LongestStem);
    while (end > 0 && end < stem.size() && (static_cast<unsigned char>(stem[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    return stem.substr(0, end);
}

fs::path NameBeside(const fs::path& target) {
    std::random_device random;
    std::array<char, 16> number;
    std::snprintf(number.data(), number.size(), ".%08x", static_cast<unsigned>(random()));
    return target.parent_path() / fs::path("." + StemBeside(target) + number.data() + ".tmp");
}

/// The file gets those of the one in whose place it comes, or those that it was made with.
void SetPermissions(const fs::path& file, const fs::path& old, fs::perms made) {
    std::error_code error;
    const fs::file_status status = fs::status(old, error);
    fs::perms permissions = fs::exists(status) ? status.permissions() : made;
    if (fs::exists(status) && !TakeGroup(file, old)) {
        // What a group of users could do, another one must not.
        const fs::perms others = permissions & fs::perms::others_all;
        constexpr int BitsPerClass = 3;
        permissions = (permissions & ~fs::perms::group_all) |
                      static_cast<fs::perms>(static_cast<unsigned>(others) << BitsPerClass);
    }
    fs::permissions(file, permissions, error);
}

/// Gives the file its name unless there is another one of that name by now.
void GiveFreeName(const fs::path& file, const fs::path& target) {
    std::error_code error;
    fs::create_hard_link(file, target, error);
    if (!error) {
        return;  // the other name goes with the half-done file
    }
    if (error == std::errc::file_exists) {
        RefuseExisting(target);
    }
    // A file system without links.
    if (fs::exists(fs::symlink_status(target, error))) {
        RefuseExisting(target);
    }
    fs::rename(file, target, error);
    if (error) {
        ThrowCannotSave(target, error.value());
    }
}

}  // namespace

void ThrowCannotSave(const fs::path& target, int systemError) {
    switch (systemError) {
        case ENOSPC:
#ifdef EDQUOT
        case EDQUOT:
#endif
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

void SaveBeside(const fs::path& named, const std::function<void(const fs::path&)>& write, IfThere ifThere) {
    std::error_code error;
    fs::path target = named;
    if (fs::is_symlink(target, error)) {
        const fs::path real = fs::weakly_canonical(target, error);
        target = error ? target : real;
    }
    ExpectFolder(target);
    ExpectReplaceable(target, ifThere);

    const fs::path beside = NameBeside(target);
    if (!std::ofstream(beside, std::ios::binary)) {
        ThrowCannotSave(target, errno);
    }
    const HalfDoneFile removed(beside);
    const fs::perms made = fs::status(beside, error).permissions();
    fs::permissions(beside, fs::perms::owner_read | fs::perms::owner_write, error);
    write(beside);
    SetPermissions(beside, target, made);
    if (ifThere == IfThere::Refuse) {
        GiveFreeName(beside, target);
        return;
    }
    fs::rename(beside, target, error);
    if (error) {
        ThrowCannotSave(target, error.value());
    }
}

void SaveStream(const fs::path& target, const std::function<void(std::ostream&)>& write) {
    const auto writeTo = [&](const fs::path& file) {
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        errno = 0;
        write(stream);
        stream.close();
        if (!stream) {
            ThrowCannotSave(target, errno != 0 ? errno : ENOSPC);
        }
    };
    std::error_code error;
    const fs::file_status there = fs::status(target, error);
    if (fs::is_character_file(there) || fs::is_fifo(there)) {
        writeTo(target);  // there is nothing in it that could be lost
    } else {
        SaveBeside(target, writeTo);
    }
}

}  // namespace planview
