// SPDX-License-Identifier: MIT
#include "spreadsheet/SheetReader.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "automation/Numbers.h"
#include "grid/CellEntry.h"
#include "grid/CellRules.h"
#include "grid/LineCaption.h"
#include "spreadsheet/SpreadsheetSession.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

/// So many cells without a caption end the captions.
constexpr std::size_t EmptyCaptionsAtEnd = 64;
constexpr std::size_t LastPlace = std::numeric_limits<std::int16_t>::max();

/// Captions of lines may be indented.
std::string Quoted(const std::string& caption) {
    const std::size_t start = std::min(caption.find_first_not_of(' '), caption.size());
    return "\"" + caption.substr(start) + "\"";
}

[[noreturn]] void Refuse(const std::string& sentence) {
    throw AutomationError(AutomationErrorCode::Failed, sentence);
}

std::string CaptionOf(const Variant& value) {
    const Variant::Kind kind = value.GetKind();
    return kind == Variant::Kind::Object || kind == Variant::Kind::Nothing ? std::string() : value.AsText();
}

/// Whether a text begins as the date "2026-11-21" or the time "18:00" does.
bool IsDateOrTime(std::string_view text) {
    const auto hasForm = [&](std::string_view form) {
        return text.size() >= form.size() &&
               std::equal(form.begin(), form.end(), text.begin(),
                          [](char wanted, char c) { return wanted == '0' ? c >= '0' && c <= '9' : c == wanted; });
    };
    return hasForm("0000-00-00") || hasForm("00:00");
}

/// How the two axes are called.
struct AxisWords {
    const char* one;  ///< in the table
    const char* many;
    const char* onSheet;
};

constexpr AxisWords PeriodWords{"period", "periods", "Column"};
constexpr AxisWords LineWords{"line", "lines", "Row"};

/// "C" for the third column, "3" for the third row, as spreadsheet applications call them.
std::string PlaceName(bool isColumn, int place) {
    if (!isColumn) {
        return std::to_string(place);
    }
    constexpr int Letters = 26;
    std::string name;
    for (int rest = place; rest > 0; rest = (rest - 1) / Letters) {
        name.insert(name.begin(), static_cast<char>('A' + (rest - 1) % Letters));
    }
    return name;
}

void AddNotes(const CaptionMatch& match, const std::vector<std::string>& table, const std::vector<std::string>& sheet,
              bool columns, UploadPreview& preview) {
    const AxisWords& words = columns ? PeriodWords : LineWords;
    const std::string one = words.one;
    const auto tableCaption = [&](int place) { return Quoted(table[static_cast<std::size_t>(place)]); };
    const auto sheetCaption = [&](int place) { return Quoted(sheet[static_cast<std::size_t>(place)]); };
    const auto sheetPlace = [&](int place) { return std::string(words.onSheet) + " " + PlaceName(columns, place + 2); };
    for (const auto& [inTable, onSheet] : match.renamed) {
        preview.notes.push_back(sheetPlace(onSheet) + " is called " + sheetCaption(onSheet) +
                                " where the table has the " + one + " " + tableCaption(inTable) +
                                "; its values are left alone. Give it its old name to have them read.");
    }
    for (const int place : match.missing) {
        preview.notes.push_back("The " + one + " " + tableCaption(place) +
                                " is not in the workbook and stays as it is.");
    }
    for (const int place : match.extra) {
        preview.notes.push_back(sheetPlace(place) + ", " + sheetCaption(place) + ", belongs to no " + one +
                                " of the table and is not read.");
    }
    std::string last;
    for (const int place : match.ambiguous) {
        if (const std::string caption = tableCaption(place); caption != last) {
            preview.notes.push_back("Several " + std::string(words.many) + " are called " + caption +
                                    ", and which is which cannot be told; their values are left alone.");
            last = caption;
        }
    }
}

}  // namespace

std::vector<std::string> SheetReader::ReadCaptions(Axis axis, std::size_t expected) {
    std::vector<std::string> captions;
    std::size_t used = 0;
    for (std::size_t i = 0; i + 2 <= LastPlace && (i < expected || i < used + EmptyCaptionsAtEnd); ++i) {
        const auto place = static_cast<std::int16_t>(i + 2);
        const bool columns = axis == Axis::Periods;
        cells_.GoTo(columns ? std::int16_t{1} : place, columns ? place : std::int16_t{1});
        captions.push_back(CaptionOf(cells_.Value()));
        used = captions.back().empty() ? used : captions.size();
        if (TraceEnabled && !captions.back().empty()) {
            TraceWrite(SpreadsheetLabel, "", "UploadLabels",
                       TraceText("{", columns ? "column" : "row", " label: ", captions.back(), "}"));
        }
    }
    return captions;
}

template <class Id, class Find>
std::vector<SheetReader::Track<Id>> SheetReader::TracksOf(Axis axis, const std::vector<std::string>& keys,
                                                          const std::vector<std::string>& captions,
                                                          UploadPreview& preview, const Find& find) {
    const bool columns = axis == Axis::Periods;
    const AxisWords& words = columns ? PeriodWords : LineWords;
    const std::vector<std::string> sheet = ReadCaptions(axis, captions.size());
    const CaptionMatch match = MatchCaptions(captions, sheet);
    if (match.ofOtherTable) {
        Refuse("This is no download of this table: most " + std::string(words.many) + " on its sheet " +
               Quoted(preview.sheet) +
               " are none of the table's. Choose the workbook that was downloaded from it, or save it with "
               "the right sheet in front.");
    }
    AddNotes(match, captions, sheet, columns, preview);
    std::vector<Track<Id>> tracks;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        if (match.sheetPlaces[i] == CaptionMatch::None) {
            continue;
        }
        if (const std::optional<Id> id = find(keys[i])) {
            const CellKeyView label =
                columns ? CellKeyView{keys[i], HeadingRowKey} : CellKeyView{LabelColumnKey, keys[i]};
            tracks.push_back(
                {*id, keys[i], driver_.CellText(label), static_cast<std::int16_t>(match.sheetPlaces[i] + 2)});
        } else {
            preview.notes.push_back("The " + std::string(words.one) + " " + Quoted(captions[i]) +
                                    " is not in the grid and is not read.");
        }
    }
    return tracks;
}

void SheetReader::ReadLabels(UploadPreview& preview) {
    built_ = grid_.BuildVersion();
    std::vector<std::string> keys;
    std::vector<std::string> captions;
    const int columnCount = columns_.RowCount();
    for (int i = 1; i <= columnCount; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        keys.push_back(columns_.Text(row, "GRID_ID"));
        captions.push_back(columns_.Text(row, "PERDY"));
    }
    sheetColumns_ = TracksOf<ColumnId>(Axis::Periods, keys, captions, preview,
                                       [this](const std::string& key) { return grid_.FindColumn(key); });
    keys.clear();
    captions.clear();
    const int lineCount = lines_.RowCount();
    for (int i = 1; i <= lineCount; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        keys.push_back(lines_.Text(row, "GRID_ID"));
        captions.push_back(LineCaption(lines_, row));
    }
    sheetRows_ = TracksOf<RowId>(Axis::Lines, keys, captions, preview,
                                 [this](const std::string& key) { return grid_.FindRow(key); });
}

void SheetReader::ReadData(UploadPreview& preview, ProgressScope& progress) {
    int done = 0;
    for (const Track<RowId>& line : sheetRows_) {
        for (const Track<ColumnId>& column : sheetColumns_) {
            ReadCell(column, line, preview);
        }
        if (!progress.Advance(++done)) {
            return;
        }
        if (grid_.BuildVersion() != built_) {
            Refuse("The table was built anew while the workbook was being read. Try again.");
        }
    }
    ReadOpenEntries(preview);
}

SheetReader::Entry SheetReader::EntryOf(const Variant& value) {
    switch (value.GetKind()) {
        case Variant::Kind::Int16:
        case Variant::Kind::Int32:
        case Variant::Kind::Double:
            return std::isfinite(value.AsDouble()) ? Entry{value.AsDouble(), {}} : Entry{{}, "no finite number"};
        case Variant::Kind::Boolean:
            return {{}, value.AsBoolean() ? "TRUE" : "FALSE"};
        case Variant::Kind::Text: {
            const std::string& text = *value.TextIf();
            return {{}, text.find_first_not_of(" \t\r\n") == std::string::npos ? std::string() : text};
        }
        default:
            return {};
    }
}

/// Numbers are equal that are shown with the same digits: a workbook may keep fewer of them than memory does.
bool SheetReader::IsSame(const Entry& entry, const std::string& contents) {
    if (!entry.number) {
        return entry.text == contents;
    }
    const std::optional<double> held = TryParseNumber(contents);
    return held && (*held == *entry.number || NumberText(*held) == NumberText(*entry.number));
}

void SheetReader::ReadCell(const Track<ColumnId>& column, const Track<RowId>& line, UploadPreview& preview) {
    cells_.GoTo(line.place, column.place);
    Entry entry = EntryOf(cells_.Value());
    if (!entry.text.empty()) {
        if (const std::optional<EnteredNumber> read = ReadEntry(grid_, {column.id, line.id}, entry.text)) {
            entry.number = read->number;
            if (read->other) {
                open_.push_back({&column, &line, std::move(entry), *read, preview.changes.size()});
                return;
            }
            evidence_.Add(*read);
        }
    }
    if (std::optional<UploadChange> change = ChangeBy(entry, column, line)) {
        preview.changes.push_back(std::move(*change));
    }
}

/// Each by what the others say and by its cell's number code; a note tells of those that were guessed.
void SheetReader::ReadOpenEntries(UploadPreview& preview) {
    std::vector<UploadChange> changes;
    std::size_t taken = 0;
    const auto takeTo = [&](std::size_t end) {
        std::move(preview.changes.begin() + static_cast<std::ptrdiff_t>(taken),
                  preview.changes.begin() + static_cast<std::ptrdiff_t>(end), std::back_inserter(changes));
        taken = end;
    };
    std::string guessed;
    for (OpenEntry& open : open_) {
        takeTo(open.place);
        evidence_.Decide(open.read);
        open.entry.number = open.read.number;
        if (std::optional<UploadChange> change = ChangeBy(open.entry, *open.column, *open.line)) {
            if (guessed.empty() && open.read.IsGuess()) {
                guessed = "\"" + open.entry.text + "\" in " + Quoted(change->line) + ", " + Quoted(change->period) +
                          " is a text that can mean " + SpokenNumber(open.read.number) + " or " +
                          SpokenNumber(*open.read.other) + " and is taken as the first, as are others like it. Make " +
                          "the texts numbers in the workbook where that is wrong.";
            }
            changes.push_back(std::move(*change));
        }
    }
    takeTo(preview.changes.size());
    preview.changes = std::move(changes);
    if (!guessed.empty()) {
        preview.notes.push_back(std::move(guessed));
    }
    open_.clear();
}

std::optional<UploadChange> SheetReader::ChangeBy(const Entry& entry, const Track<ColumnId>& column,
                                                  const Track<RowId>& line) {
    const Cell cell{column.id, line.id};
    const std::string& contents = grid_.Contents(cell);
    if (IsSame(entry, contents)) {
        return std::nullopt;
    }
    Refusal refusal = RefusalOf(grid_, cell);
    if (refusal == Refusal::TextLine && entry.IsEmpty()) {
        return std::nullopt;  // the download leaves the cells of text lines empty
    }
    if (refusal == Refusal::None && !entry.number && !entry.IsEmpty()) {
        refusal = Refusal::NoNumber;
    }
    UploadChange change;
    change.column = column.key;
    change.row = line.key;
    change.line = line.caption;
    change.period = column.caption;
    change.before = contents;
    change.after = entry.number ? modPlan::ReplacePoint(NumberText(*entry.number)) : entry.text;
    change.value = entry.number ? Variant(*entry.number) : Variant("");
    change.refusal = RefusalText(refusal);
    if (refusal == Refusal::NoNumber && entry.text.starts_with('=')) {
        change.refusal =
            "This formula was never calculated. Open the workbook in a spreadsheet application and save it.";
    } else if (refusal == Refusal::NoNumber && IsDateOrTime(entry.text)) {
        change.refusal = "This is a date or a time. Give the cell a number format in the workbook and enter a number.";
    } else if (refusal == Refusal::None && entry.IsEmpty() && cells_.IsMerged()) {
        change.refusal = "The cell is merged with others in the workbook. Unmerge them there.";
    }
    if (TraceEnabled) {
        TraceWrite(SpreadsheetLabel, "", "UploadData",
                   TraceText("{cid: ", change.column, " - rid: ", change.row, " - before: ", change.before,
                             " - after: ", change.after, "}"));
    }
    return change;
}

}  // namespace planview
