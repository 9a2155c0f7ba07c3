// SPDX-License-Identifier: MIT
#include "spreadsheet/SheetReader.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "automation/Numbers.h"
#include "grid/CellEntry.h"
#include "grid/CellRules.h"
#include "grid/LineCaption.h"
#include "spreadsheet/SpreadsheetSession.h"
#include "spreadsheet/ValueMatch.h"
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

/// A sentence for each caption once.
template <class Say>
void ForEachCaption(const std::vector<int>& places, const std::vector<std::string>& captions, const Say& say) {
    std::set<std::string> said;
    for (const int place : places) {
        if (const std::string caption = Quoted(captions[static_cast<std::size_t>(place)]);
            said.insert(caption).second) {
            say(caption);
        }
    }
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
    ForEachCaption(match.ambiguous, table, [&](const std::string& caption) {
        preview.notes.push_back("Several " + std::string(words.many) + " are called " + caption +
                                ", and which is which cannot be told; their values are left alone.");
    });
    ForEachCaption(match.byOrder, table, [&](const std::string& caption) {
        preview.remarks.push_back("Several " + std::string(words.many) + " are called " + caption +
                                  "; they were taken in the order in which they stand. Look at their values if the "
                                  "workbook was sorted.");
    });
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

SheetReader::Sides SheetReader::ReadSides(Axis axis) {
    const bool columns = axis == Axis::Periods;
    const HostTable& index = columns ? columns_ : lines_;
    Sides sides{axis, {}, {}, {}, {}, {}};
    const int count = index.RowCount();
    for (int i = 1; i <= count; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        sides.table.keys.push_back(index.Text(row, "GRID_ID"));
        sides.table.captions.push_back(columns ? index.Text(row, "PERDY") : LineCaption(index, row));
    }
    sides.captions = sides.table.captions;
    sides.recorded.assign(sides.captions.size(), CaptionMatch::None);
    if (record_) {
        const DownloadRecord::Axis& record = columns ? record_->periods : record_->lines;
        sides.recorded = PlacesInRecord(sides.table, record);
        for (std::size_t i = 0; i < sides.captions.size(); ++i) {
            if (sides.recorded[i] != CaptionMatch::None) {
                sides.captions[i] = record.captions[static_cast<std::size_t>(sides.recorded[i])];
            }
        }
    }
    sides.onSheet = ReadCaptions(axis, sides.captions.size());
    return sides;
}

const std::string* SheetReader::Downloaded(int period, int line) const {
    if (!record_ || period == CaptionMatch::None || line == CaptionMatch::None) {
        return nullptr;
    }
    return &record_->values[static_cast<std::size_t>(line)][static_cast<std::size_t>(period)];
}

std::vector<std::string> SheetReader::ValuesAt(Axis axis, int place, const Places& others) {
    std::vector<std::string> values;
    for (const auto& [recorded, onSheet] : others) {
        const auto one = static_cast<std::int16_t>(place + 2);
        const auto other = static_cast<std::int16_t>(onSheet + 2);
        cells_.GoTo(axis == Axis::Lines ? one : other, axis == Axis::Lines ? other : one);
        values.push_back(Comparable(EntryOf(cells_.Value())));
    }
    return values;
}

std::vector<std::string> SheetReader::RecordedAt(Axis axis, int place, const Places& others) const {
    std::vector<std::string> values;
    for (const auto& [recorded, onSheet] : others) {
        const bool isLine = axis == Axis::Lines;
        values.push_back(Comparable(*Downloaded(isLine ? recorded : place, isLine ? place : recorded)));
    }
    return values;
}

SheetReader::Places SheetReader::ToldApart(const Sides& sides, const Places& others, const std::vector<int>& inTable,
                                           const std::vector<int>& onSheet) {
    std::vector<std::vector<std::string>> recorded;
    std::vector<std::vector<std::string>> found;
    for (std::size_t i = 0; i < inTable.size(); ++i) {
        const int place = sides.recorded[static_cast<std::size_t>(inTable[i])];
        if (place == CaptionMatch::None) {
            return {};
        }
        recorded.push_back(RecordedAt(sides.axis, place, others));
        found.push_back(ValuesAt(sides.axis, onSheet[i], others));
    }
    Places pairs = MatchByValues(recorded, found);
    for (auto& [row, place] : pairs) {
        row = inTable[static_cast<std::size_t>(row)];
        place = onSheet[static_cast<std::size_t>(place)];
    }
    return pairs;
}

void SheetReader::Match(Sides& sides, const Places& others) {
    TellApart tellApart;
    if (record_) {
        tellApart = [&](const std::vector<int>& inTable, const std::vector<int>& onSheet) {
            return ToldApart(sides, others, inTable, onSheet);
        };
    }
    sides.match = MatchCaptions(sides.captions, sides.onSheet, tellApart);
}

template <class Id, class Find>
std::vector<SheetReader::Track<Id>> SheetReader::TracksOf(const Sides& sides, UploadPreview& preview,
                                                          const Find& find) const {
    const bool columns = sides.axis == Axis::Periods;
    const AxisWords& words = columns ? PeriodWords : LineWords;
    if (sides.match.ofOtherTable) {
        Refuse("This is no download of this table: most " + std::string(words.many) + " on its sheet " +
               Quoted(preview.sheet) +
               " are none of the table's. Choose the workbook that was downloaded from it, or save it with "
               "the right sheet in front.");
    }
    AddNotes(sides.match, sides.captions, sides.onSheet, columns, preview);
    std::vector<Track<Id>> tracks;
    for (std::size_t i = 0; i < sides.captions.size(); ++i) {
        if (sides.match.sheetPlaces[i] == CaptionMatch::None) {
            continue;
        }
        const std::string& key = sides.table.keys[i];
        if (const std::optional<Id> id = find(key)) {
            const CellKeyView label = columns ? CellKeyView{key, HeadingRowKey} : CellKeyView{LabelColumnKey, key};
            tracks.push_back({*id, key, driver_.CellText(label),
                              static_cast<std::int16_t>(sides.match.sheetPlaces[i] + 2), sides.recorded[i]});
        } else {
            preview.notes.push_back("The " + std::string(words.one) + " " + Quoted(sides.table.captions[i]) +
                                    " is not in the grid and is not read.");
        }
    }
    return tracks;
}

void SheetReader::ReadLabels(UploadPreview& preview) {
    built_ = grid_.BuildVersion();
    Sides periods = ReadSides(Axis::Periods);
    Sides lines = ReadSides(Axis::Lines);
    const auto known = [](const Sides& sides) {
        Places places;
        for (std::size_t i = 0; i < sides.recorded.size(); ++i) {
            if (sides.recorded[i] != CaptionMatch::None && sides.match.sheetPlaces[i] != CaptionMatch::None) {
                places.emplace_back(sides.recorded[i], sides.match.sheetPlaces[i]);
            }
        }
        return places;
    };
    // The lines that their captions alone tell from others help to tell periods apart, and these the lines.
    lines.match = MatchCaptions(lines.captions, lines.onSheet, [](const auto&, const auto&) { return Places(); });
    Places certain = known(lines);
    std::erase_if(certain, [&](const auto& place) {
        return std::any_of(lines.match.byOrder.begin(), lines.match.byOrder.end(),
                           [&](int row) { return lines.recorded[static_cast<std::size_t>(row)] == place.first; });
    });
    Match(periods, certain);
    Match(lines, known(periods));
    sheetColumns_ =
        TracksOf<ColumnId>(periods, preview, [this](const std::string& key) { return grid_.FindColumn(key); });
    sheetRows_ = TracksOf<RowId>(lines, preview, [this](const std::string& key) { return grid_.FindRow(key); });
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

std::string SheetReader::Comparable(const Entry& entry) {
    return entry.number ? NumberText(*entry.number) : Comparable(entry.text);
}

std::string SheetReader::Comparable(const std::string& contents) {
    const std::optional<double> number = TryParseNumber(contents);
    return number ? NumberText(*number) : contents;
}

void SheetReader::ReadCell(const Track<ColumnId>& column, const Track<RowId>& line, UploadPreview& preview) {
    preview.values += grid_.Contents({column.id, line.id}).empty() ? 0 : 1;
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

/// Each by what the others say and by its cell's number code; a remark tells of those that were guessed.
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
        preview.remarks.push_back(std::move(guessed));
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
    // A total follows from its leaves in the workbook, too; only these are taken.
    Refusal refusal = grid_.Look(cell).computed ? Refusal::Computed : RefusalOf(grid_, cell);
    if (refusal == Refusal::TextLine && entry.IsEmpty()) {
        return std::nullopt;  // the download leaves the cells of text lines empty
    }
    const std::string* const downloaded = Downloaded(column.recorded, line.recorded);
    const bool bookChanged = downloaded && Comparable(*downloaded) != Comparable(contents);
    const bool sheetChanged = !downloaded || !IsSame(entry, *downloaded);
    if (refusal != Refusal::None && !sheetChanged) {
        return std::nullopt;  // the workbook says nothing new, and the cell would not take it
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
    if (const NumberFormat* const format = grid_.Look(cell).format) {
        change.format = format->Code();
    }
    change.after = entry.number ? modPlan::ReplacePoint(NumberText(*entry.number)) : entry.text;
    change.value = entry.number ? Variant(*entry.number) : Variant("");
    change.origin = !sheetChanged ? UploadOrigin::Book : bookChanged ? UploadOrigin::Both : UploadOrigin::Workbook;
    change.downloaded = downloaded ? *downloaded : std::string();
    change.taken = change.origin == UploadOrigin::Workbook;
    change.refusal = RefusalText(refusal);
    if (refusal == Refusal::NoNumber && entry.text.starts_with('#')) {
        change.refusal = "This is the error " + entry.text + (entry.text == "#DIV/0!" ? ", a division by zero" : "") +
                         ". Mend the formula in the workbook.";
    } else if (refusal == Refusal::NoNumber && entry.text.starts_with('=')) {
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
