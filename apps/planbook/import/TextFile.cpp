// SPDX-License-Identifier: MIT
#include "import/TextFile.h"

#include <QByteArrayView>
#include <QStringDecoder>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fstream>

#include "book/BookError.h"

namespace planbook {

namespace {

/// Far above what 32,767 numbers take.
constexpr std::uintmax_t MaxFileSize = 32U * 1024U * 1024U;

bool IsCleanUtf8(std::string_view line) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(QByteArrayView(line.data(), static_cast<qsizetype>(line.size())));
    return !decoder.hasError() && !decoded.contains(QChar(u'\0'));
}

}  // namespace

std::string ReadTextFile(const std::filesystem::path& file, std::string_view what) {
    const auto refuse = [&](const std::string& why) {
        throw BookError("Cannot read the " + std::string(what) + " \"" + file.string() + "\": " + why);
    };
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        refuse("there is no such file. Check the name.");
    }
    if (status.type() == std::filesystem::file_type::directory) {
        refuse("it is a folder. Name a file in it.");
    }
    if (status.type() == std::filesystem::file_type::regular && std::filesystem::file_size(file, error) > MaxFileSize) {
        refuse("it is larger than " + std::to_string(MaxFileSize >> 20U) + " MiB, which no book can hold. Divide it.");
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        refuse(std::string(std::strerror(errno)) + ". Check your access to it.");
    }
    std::string text;
    constexpr std::size_t BlockSize = 64U * 1024U;
    std::string block(BlockSize, '\0');
    while (stream && text.size() <= MaxFileSize) {  // a pipe does not tell its size before
        stream.read(block.data(), static_cast<std::streamsize>(block.size()));
        text.append(block, 0, static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad()) {
        refuse("reading it failed. Check the medium it is on.");
    }
    if (text.size() > MaxFileSize) {
        refuse("it is too large. Divide it.");
    }
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        refuse("it is UTF-16 text. Save it as UTF-8.");
    }
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.erase(0, 3);
    }
    return text;
}

void CheckEncoding(std::string_view text, Faults& faults) {
    int number = 1;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (!IsCleanUtf8(text.substr(0, end))) {
            faults.Add(number, 0, "no UTF-8 text; save the file as UTF-8");
        }
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
    }
}

std::string_view Trimmed(std::string_view text) noexcept {
    constexpr std::string_view Blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string Shown(std::string_view text) {
    constexpr std::size_t ShownLength = 40;
    if (text.size() <= ShownLength) {
        return '"' + std::string(text) + '"';
    }
    std::size_t end = ShownLength;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {  // not inside a character
        --end;
    }
    return '"' + std::string(text.substr(0, end)) + "...\"";
}

}  // namespace planbook
