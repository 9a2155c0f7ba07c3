// SPDX-License-Identifier: MIT
#include "xlsx/ZipParts.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <system_error>
#include <utility>

#include <zip.h>

#include <planview/AutomationObject.h>

#include "xlsx/Paths.h"

namespace planview::xlsx {

namespace {

struct DiscardArchive {
    void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
};
struct CloseEntry {
    void operator()(zip_file_t* entry) const noexcept { static_cast<void>(zip_fclose(entry)); }
};
struct CloseFile {
    void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};

[[noreturn]] void CannotOpen(const std::filesystem::path& path, int systemError) {
    throw AutomationError(AutomationErrorCode::Failed,
                          "Cannot open '" + TextOf(path) + "': " + std::generic_category().message(systemError) +
                              (systemError == ENOENT   ? ". Check the name or choose another file."
                               : systemError == EACCES ? ". Ask for the right to read it or choose another file."
                                                       : ". Choose another file."));
}

std::vector<char> BytesOf(const std::filesystem::path& path, const ReadLimits& limits) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        CannotOpen(path, EISDIR);
    }
    if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error)) {
        throw BrokenFile("it is no ordinary file");
    }
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (!file) {
        CannotOpen(path, errno);
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        CannotOpen(path, error.value());
    }
    if (size > limits.fileBytes) {
        throw BrokenFile("it is larger than " + std::to_string(limits.fileBytes >> 20) + " MB");
    }
    std::vector<char> bytes(static_cast<std::size_t>(size));
    if (std::fread(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
        CannotOpen(path, EIO);
    }
    return bytes;
}

/// What a file is that is no zip, as far as its first bytes tell.
void ExpectZip(std::string_view bytes) {
    using namespace std::string_view_literals;
    if (bytes.empty()) {
        throw BrokenFile("it is empty");
    }
    if (bytes.starts_with("\xD0\xCF\x11\xE0"sv)) {
        throw BrokenFile(
            "it is protected by a password or has the old .xls format; "
            "save it as .xlsx without a password");
    }
    if (bytes.starts_with("PK"sv)) {
        return;
    }
    const std::string_view start = bytes.substr(0, 1000);
    if (start.find('\0') == std::string_view::npos) {
        throw BrokenFile(
            "it is a text (such as .csv) and no .xlsx workbook; "
            "open it in a spreadsheet program and save it as .xlsx");
    }
    throw BrokenFile("it is no .xlsx workbook");
}

/// An upper bound of the entries, known before anything is allocated for each.
void ExpectFewEntries(std::string_view bytes, std::size_t most) {
    constexpr std::string_view EntrySignature = "PK\x01\x02";
    std::size_t count = 0;
    for (std::size_t at = bytes.find(EntrySignature); at != std::string_view::npos;
         at = bytes.find(EntrySignature, at + EntrySignature.size())) {
        if (++count > most) {
            throw BrokenFile("it has more than " + std::to_string(most) + " parts");
        }
    }
}

}  // namespace

struct ZipParts::State {
    std::vector<char> bytes;  // before the archive, which reads from it
    ReadLimits limits;
    std::unique_ptr<zip_t, DiscardArchive> archive;
    std::uint64_t inflated = 0;

    /// The index of a part, -1 where there is none.
    [[nodiscard]] zip_int64_t IndexOf(const std::string& name) const {
        return zip_name_locate(archive.get(), name.c_str(), ZIP_FL_NOCASE);
    }

    /// Counts what has come out of a part and stops where it is more than the file may demand.
    void Count(std::uint64_t piece, std::uint64_t ofPart, std::uint64_t packed) {
        inflated += piece;
        if (inflated > limits.inflatedBytes) {
            throw BrokenFile("it unpacks to more than " + std::to_string(limits.inflatedBytes >> 20) + " MB");
        }
        if (ofPart > limits.ratioFreeBytes && ofPart / limits.ratio > packed) {
            throw BrokenFile("it unpacks to more than " + std::to_string(limits.ratio) + " times its size");
        }
    }
};

ZipParts::ZipParts(std::unique_ptr<State> state) : state_(std::move(state)) {}
ZipParts::ZipParts(ZipParts&&) noexcept = default;
ZipParts& ZipParts::operator=(ZipParts&&) noexcept = default;
ZipParts::~ZipParts() = default;

ZipParts ZipParts::OfFile(const std::filesystem::path& path, const ReadLimits& limits) {
    return OfBytes(BytesOf(path, limits), limits);
}

ZipParts ZipParts::OfBytes(std::vector<char> bytes, const ReadLimits& limits) {
    const std::string_view view(bytes.data(), bytes.size());
    ExpectZip(view);
    ExpectFewEntries(view, limits.parts);

    auto state = std::make_unique<State>();
    state->bytes = std::move(bytes);
    state->limits = limits;
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = zip_source_buffer_create(state->bytes.data(), state->bytes.size(), 0, &error);
    if (source) {
        state->archive.reset(zip_open_from_source(source, ZIP_RDONLY, &error));
        if (!state->archive) {
            zip_source_free(source);
        }
    }
    zip_error_fini(&error);
    if (!state->archive) {
        throw BrokenFile("it is damaged or not complete (its directory cannot be read)");
    }
    return ZipParts(std::move(state));
}

std::vector<std::string> ZipParts::Names() const {
    std::vector<std::string> names;
    const zip_int64_t count = zip_get_num_entries(state_->archive.get(), 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        if (const char* const name = zip_get_name(state_->archive.get(), static_cast<zip_uint64_t>(i), 0)) {
            names.emplace_back(name);
        }
    }
    return names;
}

bool ZipParts::Has(const std::string& name) const {
    return state_->IndexOf(name) >= 0;
}

void ZipParts::Read(const std::string& name, const std::function<void(std::string_view)>& take) {
    const zip_int64_t index = state_->IndexOf(name);
    if (index < 0) {
        throw BrokenFile("its part '" + name + "' is missing");
    }
    zip_stat_t stat;
    zip_stat_init(&stat);
    if (zip_stat_index(state_->archive.get(), static_cast<zip_uint64_t>(index), 0, &stat) != 0 ||
        (stat.valid & ZIP_STAT_COMP_SIZE) == 0 || (stat.valid & ZIP_STAT_COMP_METHOD) == 0) {
        throw BrokenFile("its part '" + name + "' is damaged");
    }
    if ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && stat.encryption_method != ZIP_EM_NONE) {
        throw BrokenFile("it is protected by a password; save it without one");
    }
    // Other methods do not belong into a workbook, and some may ask for any amount of memory.
    if (stat.comp_method != ZIP_CM_STORE && stat.comp_method != ZIP_CM_DEFLATE) {
        throw BrokenFile("its part '" + name + "' is packed in a way that workbooks are not");
    }
    const std::unique_ptr<zip_file_t, CloseEntry> entry(
        zip_fopen_index(state_->archive.get(), static_cast<zip_uint64_t>(index), 0));
    if (!entry) {
        throw BrokenFile("its part '" + name + "' is damaged");
    }
    std::array<char, 32768> buffer;
    std::uint64_t total = 0;
    for (;;) {
        const zip_int64_t size = zip_fread(entry.get(), buffer.data(), buffer.size());
        if (size < 0) {
            throw BrokenFile("its part '" + name + "' is damaged or not complete");
        }
        if (size == 0) {
            return;
        }
        total += static_cast<std::uint64_t>(size);
        state_->Count(static_cast<std::uint64_t>(size), total, stat.comp_size);
        take({buffer.data(), static_cast<std::size_t>(size)});
    }
}

const ReadLimits& ZipParts::Limits() const noexcept {
    return state_->limits;
}

}  // namespace planview::xlsx
