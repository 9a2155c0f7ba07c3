// SPDX-License-Identifier: MIT
#include "spreadsheet/DownloadRecord.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string_view>

#include "automation/CheckedInt.h"
#include "automation/ErrorText.h"
#include "spreadsheet/CaptionMatch.h"
#include "spreadsheet/SheetCells.h"

namespace planview {

namespace {

constexpr const char* RecordSheet = "PlanView download";
constexpr const char* RecordMark = "PlanView download 1";
constexpr std::int16_t PeriodKeysRow = 2;
constexpr std::int16_t PeriodCaptionsRow = 3;
constexpr std::int16_t FirstLineRow = 4;
constexpr std::int16_t Hidden = 0;
constexpr std::size_t LongestCell = 30'000;  // in bytes; applications take 32,767 characters
constexpr char FieldMark = '|';
constexpr char EscapeMark = '\\';

using Fields = std::vector<std::string>;

void AddField(std::string& packed, std::string_view field) {
    packed += FieldMark;
    for (const char c : field) {
        switch (c) {
            case FieldMark:
            case EscapeMark:
                packed += EscapeMark;
                packed += c;
                break;
            case '\n':
                packed += "\\n";
                break;
            case '\r':
                packed += "\\r";
                break;
            case '\t':
                packed += "\\t";
                break;
            default:
                packed += c;
        }
    }
}

char Unescaped(char c) noexcept {
    return c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c;
}

/// Adds the fields of one cell; false where it holds something else.
bool Unpack(std::string_view packed, Fields& fields) {
    if (packed.empty() || packed.front() != FieldMark) {
        return false;
    }
    for (std::size_t i = 0; i < packed.size(); ++i) {
        if (packed[i] == FieldMark) {
            fields.emplace_back();
        } else if (packed[i] != EscapeMark) {
            fields.back() += packed[i];
        } else if (++i < packed.size()) {
            fields.back() += Unescaped(packed[i]);
        }
    }
    return true;
}

class RowWriter {
public:
    RowWriter(SheetCells& cells, std::int16_t row) : cells_(cells), row_(row) {}

    void Add(std::string_view field) {
        if (packed_.size() + 2 * field.size() >= LongestCell && !packed_.empty()) {
            Flush();
        }
        AddField(packed_, field);
    }
    void Flush() {
        if (!packed_.empty()) {
            cells_.GoTo(row_, ++column_);
            cells_.SetValue(packed_);
            packed_.clear();
        }
    }

private:
    SheetCells& cells_;
    std::string packed_;
    std::int16_t row_;
    std::int16_t column_ = 0;
};

void WriteRow(SheetCells& cells, std::int16_t row, const Fields& fields) {
    RowWriter writer(cells, row);
    for (const std::string& field : fields) {
        writer.Add(field);
    }
    writer.Flush();
}

Fields ReadRow(SheetCells& cells, std::int16_t row) {
    Fields fields;
    for (std::int16_t column = 1; column < std::numeric_limits<std::int16_t>::max(); ++column) {
        cells.GoTo(row, column);
        const Variant value = cells.Value();
        const std::string* const text = value.TextIf();
        if (!text || !Unpack(*text, fields)) {
            break;
        }
    }
    return fields;
}

/// Throws what the sheet throws.
std::optional<DownloadRecord> Read(const Late& sheet) {
    SheetCells cells(sheet.Value());
    cells.GoTo(1, 1);
    const Variant mark = cells.Value();
    if (!mark.TextIf() || *mark.TextIf() != RecordMark) {
        return std::nullopt;
    }
    DownloadRecord record;
    record.periods = {ReadRow(cells, PeriodKeysRow), ReadRow(cells, PeriodCaptionsRow)};
    const std::size_t periods = record.periods.keys.size();
    if (record.periods.captions.size() != periods) {
        return std::nullopt;
    }
    constexpr std::size_t BeforeValues = 2;
    for (std::int16_t row = FirstLineRow; row < std::numeric_limits<std::int16_t>::max(); ++row) {
        Fields fields = ReadRow(cells, row);
        if (fields.empty()) {
            break;
        }
        if (fields.size() != BeforeValues + periods) {
            return std::nullopt;
        }
        record.lines.keys.push_back(std::move(fields[0]));
        record.lines.captions.push_back(std::move(fields[1]));
        fields.erase(fields.begin(), fields.begin() + BeforeValues);
        record.values.push_back(std::move(fields));
    }
    return record;
}

/// Where each caption stands; several times where the place is Several.
constexpr int Several = -2;
std::map<std::string, int> Index(const Fields& captions) {
    std::map<std::string, int> index;
    for (std::size_t i = 0; i < captions.size(); ++i) {
        const auto [found, isNew] = index.emplace(TrimmedCaption(captions[i]), static_cast<int>(i));
        found->second = isNew ? found->second : Several;
    }
    return index;
}

}  // namespace

void WriteRecord(const Late& workbook, const Late& worksheet, const DownloadRecord& record) {
    const Late sheet = workbook.Get("Worksheets").Call("Add");
    sheet.Put("Name", RecordSheet);
    worksheet.Call("Move", sheet.Value());  // the table stays the first sheet
    sheet.Put("Visible", Hidden);
    SheetCells cells(sheet.Value());
    WriteRow(cells, PeriodKeysRow, record.periods.keys);
    WriteRow(cells, PeriodCaptionsRow, record.periods.captions);
    std::int16_t row = FirstLineRow;
    for (std::size_t line = 0; line < record.lines.keys.size(); ++line) {
        RowWriter writer(cells, row);
        writer.Add(record.lines.keys[line]);
        writer.Add(record.lines.captions[line]);
        for (const std::string& value : record.values[line]) {
            writer.Add(value);
        }
        writer.Flush();
        row = CheckedAdd<std::int16_t>(row, 1);
    }
    cells.GoTo(1, 1);
    cells.SetValue(RecordMark);
    sheet.Call("Protect");
}

std::optional<DownloadRecord> ReadRecord(const Late& workbook) {
    std::optional<DownloadRecord> record;
    (void)ErrorTextOf([&] { record = Read(workbook.Get("Worksheets", RecordSheet)); });
    return record;
}

std::vector<int> PlacesInRecord(const DownloadRecord::Axis& table, const DownloadRecord::Axis& record) {
    const std::map<std::string, int> inTable = Index(table.captions);
    const std::map<std::string, int> inRecord = Index(record.captions);
    std::map<std::string_view, int> byKey;
    for (std::size_t i = 0; i < record.keys.size(); ++i) {
        byKey.emplace(record.keys[i], static_cast<int>(i));
    }
    std::vector<int> places(table.keys.size(), CaptionMatch::None);
    std::vector<std::size_t> byKeyOnly;
    std::size_t found = 0;
    bool keysHold = true;
    for (std::size_t i = 0; i < table.keys.size(); ++i) {
        const std::string caption = TrimmedCaption(table.captions[i]);
        const auto sameKey = byKey.find(table.keys[i]);
        const auto sameCaption = inRecord.find(caption);
        if (sameCaption != inRecord.end() && sameCaption->second != Several && inTable.at(caption) != Several) {
            places[i] = sameCaption->second;
            keysHold = keysHold && (sameKey == byKey.end() || sameKey->second == places[i]);
            ++found;
        } else if (sameKey != byKey.end()) {
            const std::string old = TrimmedCaption(record.captions[static_cast<std::size_t>(sameKey->second)]);
            if (old == caption || inTable.find(old) == inTable.end()) {
                byKeyOnly.push_back(i);
                found += old == caption ? 1 : 0;
            }
        }
    }
    for (const std::size_t i : byKeyOnly) {
        places[i] = keysHold ? byKey.at(table.keys[i]) : CaptionMatch::None;
    }
    if (found * 2 < table.keys.size()) {
        std::fill(places.begin(), places.end(), CaptionMatch::None);
    }
    return places;
}

}  // namespace planview
