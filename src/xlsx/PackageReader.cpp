// SPDX-License-Identifier: MIT
#include "xlsx/PackageReader.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "xlsx/TextEscapes.h"
#include "xlsx/XmlEvents.h"

namespace planview::xlsx {

namespace {

/// Where a part refers to, seen from the folder of the one that refers.
std::string Resolved(std::string_view from, std::string_view target) {
    std::string path;
    if (!target.starts_with('/')) {
        const std::size_t slash = from.rfind('/');
        path = slash == std::string_view::npos ? "" : std::string(from.substr(0, slash + 1));
    }
    path += target.starts_with('/') ? target.substr(1) : target;
    std::vector<std::string_view> folders;
    const std::string_view whole = path;
    for (std::size_t start = 0; start <= whole.size();) {
        const std::size_t end = std::min(whole.find('/', start), whole.size());
        const std::string_view folder = whole.substr(start, end - start);
        if (folder == ".." && !folders.empty()) {
            folders.pop_back();
        } else if (!folder.empty() && folder != "." && folder != "..") {
            folders.push_back(folder);
        }
        start = end + 1;
    }
    std::string result;
    for (const std::string_view folder : folders) {
        result += (result.empty() ? "" : "/");
        result += folder;
    }
    return result;
}

class RelationshipEvents final : public XmlEvents {
public:
    explicit RelationshipEvents(std::string part) : part_(std::move(part)) {}

    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name != "Relationship" || attributes["TargetMode"] == "External") {
            return;
        }
        const std::string_view type = attributes["Type"];
        const std::size_t slash = type.rfind('/');
        found.emplace(std::string(attributes["Id"]),
                      Relationship{std::string(slash == std::string_view::npos ? type : type.substr(slash + 1)),
                                   Resolved(part_, attributes["Target"])});
    }
    void End(std::string_view) override {}
    void Text(std::string_view) override {}

    Relationships found;

private:
    std::string part_;
};

SheetVisibility VisibilityOf(std::string_view state) {
    return state == "hidden"       ? SheetVisibility::Hidden
           : state == "veryHidden" ? SheetVisibility::VeryHidden
                                   : SheetVisibility::Visible;
}

/// The sheets as they stand in the workbook's part, with identifiers still to be looked up.
class OutlineEvents final : public XmlEvents {
public:
    explicit OutlineEvents(std::size_t mostSheets) : mostSheets_(mostSheets) {}

    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "sheet") {
            if (sheets.size() == mostSheets_) {
                throw BrokenFile("it has more than " + std::to_string(mostSheets_) + " sheets");
            }
            sheets.push_back({std::string(attributes["name"]), std::string(attributes.Prefixed("id")),
                              VisibilityOf(attributes["state"])});
        } else if (name == "workbookPr") {
            startsIn1904 = attributes["date1904"] == "1" || attributes["date1904"] == "true";
        } else if (name == "workbookView" && !hasView_) {
            hasView_ = true;
            const std::string_view tab = attributes["activeTab"];
            static_cast<void>(std::from_chars(tab.data(), tab.data() + tab.size(), activeTab));
        }
    }
    void End(std::string_view) override {}
    void Text(std::string_view) override {}

    std::vector<SheetEntry> sheets;  // `part` holds the identifier
    std::size_t activeTab = 0;
    bool startsIn1904 = false;

private:
    std::size_t mostSheets_;
    bool hasView_ = false;
};

/// The texts of <si>, whose runs count together; what tells how to read them aloud does not belong to them.
class TextEvents final : public XmlEvents {
public:
    TextEvents(TextPool& texts, const ReadLimits& limits) : texts_(&texts), limits_(&limits) {}

    void Start(std::string_view name, const XmlAttributes&) override {
        if (name == "si") {
            text_.clear();
        } else if (name == "rPh") {
            ++phonetic_;
        }
        inText_ = name == "t" && phonetic_ == 0;
    }

    void End(std::string_view name) override {
        inText_ = false;
        if (name == "rPh") {
            --phonetic_;
        } else if (name == "si") {
            if (texts_->Size() == limits_->texts) {
                throw BrokenFile("it has more than " + std::to_string(limits_->texts) + " texts");
            }
            static_cast<void>(texts_->Append(WithoutEscapes(text_)));
        }
    }

    void Text(std::string_view piece) override {
        if (inText_) {
            bytes_ += piece.size();
            if (bytes_ > limits_->textBytes) {
                throw BrokenFile("its texts are longer than " + std::to_string(limits_->textBytes >> 20) + " MB");
            }
            text_ += piece;
        }
    }

private:
    TextPool* texts_;
    const ReadLimits* limits_;
    std::string text_;
    std::size_t bytes_ = 0;
    int phonetic_ = 0;
    bool inText_ = false;
};

class PropertyEvents final : public XmlEvents {
public:
    explicit PropertyEvents(Workbook& workbook) : workbook_(&workbook) {}

    void Start(std::string_view name, const XmlAttributes&) override {
        text_ = name == "title" ? &workbook_->title : name == "subject" ? &workbook_->subject : nullptr;
    }
    void End(std::string_view) override { text_ = nullptr; }
    void Text(std::string_view piece) override {
        constexpr std::size_t Longest = 1000;
        if (text_ && text_->size() + piece.size() <= Longest) {
            *text_ += piece;
        }
    }

private:
    Workbook* workbook_;
    std::string* text_ = nullptr;
};

std::string FirstOfKind(const Relationships& relationships, std::string_view kind) {
    const auto found = std::find_if(relationships.begin(), relationships.end(),
                                    [&](const auto& entry) { return entry.second.kind == kind; });
    return found == relationships.end() ? std::string() : found->second.target;
}

std::string WorkbookPart(const ZipParts& parts, const Relationships& ofFile) {
    const std::string part = FirstOfKind(ofFile, "officeDocument");
    if (!part.empty() && part.ends_with(".bin")) {
        throw BrokenFile("it has the .xlsb format; open it in a spreadsheet program and save it as .xlsx");
    }
    if (!part.empty() && parts.Has(part)) {
        return part;
    }
    if (parts.Has("xl/workbook.xml")) {
        return "xl/workbook.xml";
    }
    if (parts.Has("content.xml") && parts.Has("mimetype")) {
        throw BrokenFile("it is an OpenDocument file; open it in a spreadsheet program and save it as .xlsx");
    }
    throw BrokenFile("it is no .xlsx workbook (it has no part for the workbook)");
}

/// The sheet that is in front, else the first that can be seen, else the first.
std::size_t ActiveOf(const std::vector<SheetEntry>& sheets, const std::string& inFront) {
    const auto visible = [](const SheetEntry& sheet) { return sheet.visibility == SheetVisibility::Visible; };
    auto found = std::find_if(sheets.begin(), sheets.end(),
                              [&](const SheetEntry& sheet) { return visible(sheet) && sheet.part == inFront; });
    if (found == sheets.end()) {
        found = std::find_if(sheets.begin(), sheets.end(), visible);
    }
    return found == sheets.end() ? 0 : static_cast<std::size_t>(found - sheets.begin());
}

}  // namespace

Relationships ReadRelationships(ZipParts& parts, const std::string& part) {
    const std::size_t slash = part.rfind('/');
    const std::size_t name = slash == std::string::npos ? 0 : slash + 1;
    const std::string list = part.substr(0, name) + "_rels/" + part.substr(name) + ".rels";
    RelationshipEvents events(part);
    if (parts.Has(list)) {
        ReadXml(parts, list, events);
    }
    return std::move(events.found);
}

WorkbookOutline ReadOutline(ZipParts& parts) {
    const Relationships ofFile = ReadRelationships(parts, "");
    const std::string part = WorkbookPart(parts, ofFile);
    const Relationships ofWorkbook = ReadRelationships(parts, part);
    OutlineEvents events(parts.Limits().sheets);
    ReadXml(parts, part, events);

    WorkbookOutline outline;
    std::string inFront;
    for (std::size_t i = 0; i < events.sheets.size(); ++i) {
        SheetEntry& sheet = events.sheets[i];
        const auto found = ofWorkbook.find(sheet.part);
        if (found != ofWorkbook.end() && found->second.kind == "worksheet") {
            sheet.part = found->second.target;
            inFront = i == events.activeTab ? sheet.part : inFront;
            outline.sheets.push_back(std::move(sheet));
        }
    }
    if (outline.sheets.empty()) {
        throw BrokenFile("it has no sheet with cells");
    }
    outline.activeSheet = ActiveOf(outline.sheets, inFront);
    outline.textsPart = FirstOfKind(ofWorkbook, "sharedStrings");
    outline.stylesPart = FirstOfKind(ofWorkbook, "styles");
    outline.startsIn1904 = events.startsIn1904;
    outline.propertiesPart = FirstOfKind(ofFile, "core-properties");
    return outline;
}

void ReadTexts(ZipParts& parts, const std::string& part, TextPool& texts) {
    TextEvents events(texts, parts.Limits());
    ReadXml(parts, part, events);
}

void ReadProperties(ZipParts& parts, const std::string& part, Workbook& workbook) {
    PropertyEvents events(workbook);
    ReadXml(parts, part, events);
}

}  // namespace planview::xlsx
