// SPDX-License-Identifier: MIT
#include "xlsx/XlsxFixture.h"

#include <atomic>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>

#include <sys/resource.h>
#include <unistd.h>
#include <zip.h>

namespace planview::test {

namespace fs = std::filesystem;

XlsxTest::XlsxTest() {
    static std::atomic<int> count = 0;
    folder_ = fs::temp_directory_path() / ("planview-xlsx-" + std::to_string(getpid()) + "-" + std::to_string(++count));
    fs::create_directories(folder_);
}

XlsxTest::~XlsxTest() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

fs::path XlsxTest::Path(std::string_view name) const {
    return folder_ / name;
}

std::string XlsxTest::ValueAt(const Late& sheet, int row, int column) {
    const Variant value = sheet.Get("Cells", row, column).Get("Value").Value();
    switch (value.GetKind()) {
        case Variant::Kind::Empty:
            return "e:";
        case Variant::Kind::Boolean:
            return "b:" + value.AsText();
        case Variant::Kind::Double:
            return "d:" + value.AsText();
        case Variant::Kind::Text:
            return "t:" + value.AsText();
        default:
            return "?:";
    }
}

std::string XlsxTest::OpenMessage(const fs::path& file) const {
    return AutomationMessage([&] { application_.Get("Workbooks").Call("Open", file.string()); });
}

std::string RunScript(const std::string& nameAndArguments) {
    const std::string command = std::string(XLSX_TEST_SCRIPTS) + "/" + nameAndArguments + " 2>&1 || echo failed";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"), pclose);
    std::string text;
    for (int c = std::fgetc(output.get()); c != EOF; c = std::fgetc(output.get())) {
        text += static_cast<char>(c);
    }
    return text;
}

PackageParts PartsWith(std::string_view rows, std::string_view afterRows) {
    const std::string office = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    const std::string list = "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>";
    const std::string main =
        "xmlns='http://schemas.openxmlformats.org/spreadsheetml/2006/main' xmlns:r='" + office + "'";
    return {
        {"_rels/.rels",
         list + "<Relationship Id='a' Type='" + office + "/officeDocument' Target='xl/workbook.xml'/></Relationships>"},
        {"xl/_rels/workbook.xml.rels", list + "<Relationship Id='s1' Type='" + office +
                                           "/worksheet' Target='worksheets/sheet1.xml'/><Relationship Id='t' Type='" +
                                           office + "/sharedStrings' Target='/xl/sharedStrings.xml'/></Relationships>"},
        {"xl/workbook.xml",
         "<workbook " + main + "><sheets><sheet name='S' sheetId='1' r:id='s1'/></sheets></workbook>"},
        {"xl/sharedStrings.xml", "<sst " + main +
                                     "><si><t>first</t></si><si><r><t>se</t></r><r><t xml:space='preserve'>cond "
                                     "</t></r><rPh><t>aloud</t></rPh></si></sst>"},
        {"xl/worksheets/sheet1.xml", "<worksheet " + main + "><sheetData>" + std::string(rows) + "</sheetData>" +
                                         std::string(afterRows) + "</worksheet>"},
    };
}

void WritePackage(const fs::path& file, const PackageParts& parts) {
    zip_t* const archive = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    ASSERT_NE(archive, nullptr);
    for (const auto& [name, text] : parts) {
        ASSERT_GE(zip_file_add(archive, name.c_str(), zip_source_buffer(archive, text.data(), text.size(), 0), 0), 0);
    }
    ASSERT_EQ(zip_close(archive), 0);
}

std::string ReadAll(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void WriteAll(const fs::path& file, std::string_view contents) {
    std::ofstream(file, std::ios::binary) << contents;
}

std::size_t MostMemory() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

}  // namespace planview::test
