// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <zip.h>

#include <planview/AutomationObject.h>

#include "xlsx/Workbook.h"
#include "xlsx/WorkbookReader.h"

namespace {

using planview::xlsx::BrokenFile;
using planview::xlsx::ReadLimits;

/// Small, so that going beyond one is a find within a short run.
constexpr ReadLimits Limits{.fileBytes = 1 << 20,
                            .inflatedBytes = 4 << 20,
                            .ratio = 250,
                            .ratioFreeBytes = 1 << 20,
                            .parts = 100,
                            .cells = 10'000,
                            .textBytes = 1 << 20,
                            .texts = 1'000,
                            .mergedAreas = 100,
                            .sheets = 10,
                            .tokenBytes = 1 << 16};

/// A workbook whose parts are pieces of the input: a fuzzer that had to keep the sums of a zip right would never get
/// past them. A line "@" divides the pieces: sheet, texts, workbook, relationships, properties,
/// styles.
std::vector<char> PackageOf(std::string_view data) {
    constexpr const char* Names[] = {"xl/worksheets/sheet1.xml",   "xl/sharedStrings.xml", "xl/workbook.xml",
                                     "xl/_rels/workbook.xml.rels", "docProps/core.xml",    "xl/styles.xml"};
    static const std::string Relations =
        "<R><Relationship Id='s1' Type='/worksheet' Target='worksheets/sheet1.xml'/>"
        "<Relationship Id='t' Type='/sharedStrings' Target='sharedStrings.xml'/>"
        "<Relationship Id='y' Type='/styles' Target='styles.xml'/></R>";
    static const std::string Workbook = "<w xmlns:r='r'><sheets><sheet name='S' r:id='s1'/></sheets></w>";
    static const std::string File =
        "<R><Relationship Id='a' Type='/officeDocument' Target='xl/workbook.xml'/>"
        "<Relationship Id='c' Type='/core-properties' Target='docProps/core.xml'/></R>";
    std::string parts[6] = {"", "<sst/>", Workbook, Relations, "<p/>", "<s/>"};
    for (std::string& part : parts) {
        const std::size_t end = data.find("\n@\n");
        if (!data.substr(0, end).empty()) {
            part = data.substr(0, end);
        }
        data = end == std::string_view::npos ? std::string_view() : data.substr(end + 3);
    }

    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(target);
    zip_t* const archive = zip_open_from_source(target, ZIP_TRUNCATE, &error);
    const auto add = [&](const char* name, const std::string& text) {
        const zip_int64_t index =
            zip_file_add(archive, name, zip_source_buffer(archive, text.data(), text.size(), 0), 0);
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0);  // packing takes time
    };
    add("_rels/.rels", File);
    for (std::size_t i = 0; i < 6; ++i) {
        add(Names[i], parts[i]);
    }
    zip_close(archive);
    zip_source_open(target);
    zip_source_seek(target, 0, SEEK_END);
    std::vector<char> bytes(static_cast<std::size_t>(zip_source_tell(target)));
    zip_source_seek(target, 0, SEEK_SET);
    zip_source_read(target, bytes.data(), bytes.size());
    zip_source_close(target);
    zip_source_free(target);
    zip_error_fini(&error);
    return bytes;
}

/// Whatever was read keeps its own rules.
void Check(planview::xlsx::Workbook& workbook) {
    for (std::size_t index = 0; index < workbook.worksheets.size(); ++index) {
        EnsureLoaded(workbook, index);
        std::size_t count = 0;
        workbook.worksheets[index]->sheet.ForEachRow([&](std::int32_t row, const planview::xlsx::SheetRow& cells) {
            std::int32_t before = 0;
            for (const planview::xlsx::Cell& cell : cells.cells) {
                const bool badText = cell.kind == planview::xlsx::CellKind::Text &&
                                     !(cell.number >= 0 && cell.number < workbook.texts.Size());
                if (cell.column <= before || cell.column > planview::xlsx::MostColumns || badText ||
                    row > planview::xlsx::MostRows || ++count > Limits.cells) {
                    std::abort();
                }
                before = cell.column;
            }
        });
    }
}

void Read(std::vector<char> bytes) {
    try {
        Check(*planview::xlsx::ReadWorkbook(std::move(bytes), Limits));
    } catch (const BrokenFile& error) {
        if (std::strlen(error.what()) == 0) {
            std::abort();
        }
    }
}

}  // namespace

/// A file that starts as a zip does is read as it is, any other as the parts of a workbook.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Read(text.starts_with("PK") ? std::vector<char>(text.begin(), text.end()) : PackageOf(text));
    return 0;
}
