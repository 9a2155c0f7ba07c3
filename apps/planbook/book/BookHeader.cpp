// SPDX-License-Identifier: MIT
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>
#include <string_view>

#include "book/BookError.h"
#include "book/BookStore.h"

namespace planbook {

namespace {

// The parts of an SQLite file's header that tell a book; numbers stand in it with the highest byte first.
constexpr std::size_t HeaderSize = 100;
constexpr std::string_view SqliteMagic("SQLite format 3\0", 16);
constexpr std::size_t VersionOffset = 60;
constexpr std::size_t ApplicationIdOffset = 68;

using Header = std::array<char, HeaderSize>;

std::int32_t ReadNumber(const Header& header, std::size_t offset) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i) {
        number = number << 8U | static_cast<unsigned char>(header[offset + i]);
    }
    return static_cast<std::int32_t>(number);
}

[[noreturn]] void Refuse(const std::filesystem::path& file, const std::string& why) {
    throw BookError("Cannot open the book \"" + file.string() + "\": " + why);
}

void CheckIsFile(const std::filesystem::path& file) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        Refuse(file, "there is no such file. Check the name, or make a book with: planbook --import DATA.csv BOOK");
    }
    if (error) {
        Refuse(file, error.message() + ". Check the name and your access to the folder.");
    }
    if (status.type() == std::filesystem::file_type::directory) {
        Refuse(file, "it is a folder. Name a book in it.");
    }
    if (status.type() != std::filesystem::file_type::regular) {
        Refuse(file, "it is no ordinary file. Name a book.");
    }
}

}  // namespace

void CheckBookHeader(const std::filesystem::path& file) {
    CheckIsFile(file);
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        Refuse(file, std::string(std::strerror(errno)) + ". Check your access to the file.");
    }
    Header header{};
    stream.read(header.data(), header.size());
    if (stream.bad()) {
        Refuse(file, "it cannot be read. Check the medium it is on.");
    }
    if (static_cast<std::size_t>(stream.gcount()) < HeaderSize ||
        std::string_view(header.data(), SqliteMagic.size()) != SqliteMagic) {
        Refuse(file, "it is no planning book. To make a book from a table of numbers: planbook --import DATA.csv BOOK");
    }
    if (ReadNumber(header, ApplicationIdOffset) != BookApplicationId) {
        Refuse(file, "it is a database of another program, no planning book. Name a book.");
    }
    const std::int32_t version = ReadNumber(header, VersionOffset);
    if (version > BookVersion) {
        Refuse(file, "it has the book version " + std::to_string(version) + ", this planbook reads versions up to " +
                         std::to_string(BookVersion) + ". Open it with a newer planbook.");
    }
    if (version < 1) {
        Refuse(file, "it has the impossible book version " + std::to_string(version) +
                         ". The file is damaged; take it from a backup.");
    }
}

bool IsBookFile(const std::filesystem::path& file) {
    try {
        CheckBookHeader(file);
        return true;
    } catch (const BookError&) {
        return false;
    }
}

}  // namespace planbook
