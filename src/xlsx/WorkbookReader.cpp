// SPDX-License-Identifier: MIT
#include "xlsx/WorkbookReader.h"

#include <string>
#include <utility>

#include <planview/AutomationObject.h>

#include "xlsx/PackageReader.h"
#include "xlsx/Paths.h"
#include "xlsx/SheetPartReader.h"
#include "xlsx/Workbook.h"
#include "xlsx/ZipParts.h"

namespace planview::xlsx {

namespace {

[[noreturn]] void Refuse(const std::string& file, const BrokenFile& error) {
    throw AutomationError(AutomationErrorCode::Failed,
                          "Cannot open '" + file + "': " + error.what() + ". Nothing was read from it.");
}

class FileSource final : public SheetSource {
public:
    FileSource(ZipParts parts, WorkbookOutline outline, DateFormats dates)
        : parts_(std::move(parts)),
          outline_(std::move(outline)),
          dates_(std::move(dates)),
          budget_(parts_.Limits().cells) {}

    void Load(Workbook& workbook, std::size_t index) override {
        Worksheet& worksheet = *workbook.worksheets[index];
        try {
            ReadSheet(parts_, outline_.sheets[index].part, dates_, workbook, worksheet, budget_);
        } catch (const BrokenFile& error) {
            worksheet.sheet = Sheet(workbook.styles);
            if (file_.empty()) {
                throw;
            }
            Refuse(file_, error);
        }
        worksheet.loaded = true;
    }

    /// From now on, failures name the file.
    void SetName(std::string file) { file_ = std::move(file); }

private:
    ZipParts parts_;
    WorkbookOutline outline_;
    DateFormats dates_;
    std::string file_;
    std::size_t budget_;
};

std::shared_ptr<Workbook> Read(ZipParts parts) {
    WorkbookOutline outline = ReadOutline(parts);
    auto workbook = std::make_shared<Workbook>();
    for (const SheetEntry& sheet : outline.sheets) {
        workbook->worksheets.push_back(std::make_unique<Worksheet>(sheet.name, workbook->styles));
        workbook->worksheets.back()->visibility = sheet.visibility;
        workbook->worksheets.back()->loaded = false;
    }
    workbook->activeSheet = outline.activeSheet;
    if (!outline.textsPart.empty()) {
        ReadTexts(parts, outline.textsPart, workbook->texts);
    }
    if (!outline.propertiesPart.empty() && parts.Has(outline.propertiesPart)) {
        ReadProperties(parts, outline.propertiesPart, *workbook);
    }
    DateFormats dates;
    dates.startsIn1904 = outline.startsIn1904;
    if (!outline.stylesPart.empty() && parts.Has(outline.stylesPart)) {
        ReadDateFormats(parts, outline.stylesPart, dates);
    }
    workbook->source = std::make_unique<FileSource>(std::move(parts), std::move(outline), std::move(dates));
    EnsureLoaded(*workbook, workbook->activeSheet);
    return workbook;
}

}  // namespace

std::shared_ptr<Workbook> OpenWorkbook(const std::filesystem::path& path, const ReadLimits& limits) {
    try {
        std::shared_ptr<Workbook> workbook = Read(ZipParts::OfFile(path, limits));
        static_cast<FileSource&>(*workbook->source).SetName(TextOf(path));
        return workbook;
    } catch (const BrokenFile& error) {
        Refuse(TextOf(path), error);
    }
}

std::shared_ptr<Workbook> ReadWorkbook(std::vector<char> bytes, const ReadLimits& limits) {
    return Read(ZipParts::OfBytes(std::move(bytes), limits));
}

void EnsureLoaded(Workbook& workbook, std::size_t index) {
    if (!workbook.worksheets[index]->loaded && workbook.source) {
        workbook.source->Load(workbook, index);
    }
}

}  // namespace planview::xlsx
