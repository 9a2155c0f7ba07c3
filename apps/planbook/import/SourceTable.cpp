// SPDX-License-Identifier: MIT
#include "import/SourceTable.h"

#include <map>
#include <utility>

#include "book/BookSchema.h"
#include "import/CsvReader.h"
#include "import/TextFile.h"

namespace planbook {

namespace {

std::string MarkName(DecimalMark mark) {
    return mark == DecimalMark::Point ? "decimal point" : "decimal comma";
}

/// Turns records into a table, one check per function. The first field of every record is its period.
class TableReader {
public:
    TableReader(std::vector<CsvRecord> records, DecimalMark mark, Faults& faults)
        : records_(std::move(records)), mark_(mark), faults_(faults) {}

    SourceTable Read() {
        if (records_.empty()) {
            faults_.Add(0, 0, "the file is empty; it needs a header row and a row per period");
            return {};
        }
        ReadHeader();
        DropMisshapenRecords();
        if (records_.empty()) {
            faults_.Add(0, 0, "there is no row of numbers below the header row");
        }
        CountCells();
        FindMark();
        for (const CsvRecord& record : records_) {
            ReadPeriod(record);
            ReadNumbers(record);
        }
        return std::move(table_);
    }

private:
    void ReadHeader() {
        const CsvRecord header = std::move(records_.front());
        records_.erase(records_.begin());
        if (header.fields.size() < 2) {
            faults_.Add(header.line, 0,
                        "the header row names no line; the first column holds the periods, every "
                        "further column a line of numbers");
        }
        std::map<std::string_view, int> columns;
        for (std::size_t i = 1; i < header.fields.size(); ++i) {
            const int column = static_cast<int>(i) + 1;
            const std::string_view name = Trimmed(header.fields[i]);
            if (name.empty()) {
                faults_.Add(header.line, column, "the header row has no name here");
            } else if (const auto [first, isNew] = columns.emplace(name, column); !isNew) {
                faults_.Add(
                    header.line, column,
                    "the name " + Shown(name) + " stands in column " + std::to_string(first->second) + " already");
            }
            table_.lines.push_back({std::string(name), {}});
        }
    }

    void DropMisshapenRecords() {
        const std::size_t expected = table_.lines.size() + 1;
        std::erase_if(records_, [&](const CsvRecord& record) {
            const std::size_t count = record.fields.size();
            if (count == expected) {
                return false;
            }
            faults_.Add(record.line, 0,
                        "too " + std::string(count < expected ? "few" : "many") + " fields: " + std::to_string(count) +
                            " instead of " + std::to_string(expected));
            return true;
        });
    }

    void CountCells() {
        std::size_t cells = 0;
        for (const CsvRecord& record : records_) {
            for (std::size_t i = 1; i < record.fields.size(); ++i) {
                cells += Trimmed(record.fields[i]).empty() ? 0 : 1;
            }
        }
        if (cells > static_cast<std::size_t>(MaxTableRows)) {
            faults_.Add(0, 0,
                        "it has " + std::to_string(cells) + " numbers, a book holds at most " +
                            std::to_string(MaxTableRows) + "; divide the file");
        }
    }

    /// The first number that can be read in one way only decides for the file.
    void FindMark() {
        if (mark_ != DecimalMark::Automatic) {
            return;
        }
        for (const CsvRecord& record : records_) {
            for (std::size_t i = 1; i < record.fields.size(); ++i) {
                const std::string_view text = Trimmed(record.fields[i]);
                const MarkEvidence evidence = JudgeMark(text);
                if (evidence == MarkEvidence::Point || evidence == MarkEvidence::Comma) {
                    const DecimalMark found = evidence == MarkEvidence::Point ? DecimalMark::Point : DecimalMark::Comma;
                    if (ReadNumber(text, found)) {
                        mark_ = found;
                        evidence_ = Shown(text) + " in line " + std::to_string(record.line);
                        return;
                    }
                }
            }
        }
    }

    void ReadPeriod(const CsvRecord& record) {
        const std::string_view period = Trimmed(record.fields.front());
        if (period.empty()) {
            faults_.Add(record.line, 1, "the period is missing");
        } else if (const auto [first, isNew] = periodLines_.emplace(period, record.line); !isNew) {
            faults_.Add(
                record.line, 1,
                "the period " + Shown(period) + " stands in line " + std::to_string(first->second) + " already");
        }
        table_.periods.emplace_back(period);
    }

    void ReadNumbers(const CsvRecord& record) {
        for (std::size_t i = 1; i < record.fields.size(); ++i) {
            const std::string_view text = Trimmed(record.fields[i]);
            std::optional<double> value;
            if (!text.empty()) {
                value = ReadCell(text, record.line, static_cast<int>(i) + 1);
            }
            table_.lines[i - 1].values.push_back(value);
        }
    }

    std::optional<double> ReadCell(std::string_view text, int line, int column) {
        const std::string place = " (" + table_.lines[static_cast<std::size_t>(column) - 2].name + ")";
        const MarkEvidence evidence = JudgeMark(text);
        if (mark_ == DecimalMark::Automatic && evidence == MarkEvidence::EitherByComma) {
            faults_.Add(line, column,
                        Shown(text) + place +
                            " can mean a fraction or thousands; add --decimal point or "
                            "--decimal comma to the command");
            return std::nullopt;
        }
        const DecimalMark mark = mark_ == DecimalMark::Comma ? DecimalMark::Comma : DecimalMark::Point;
        const DecimalMark other = mark == DecimalMark::Comma ? DecimalMark::Point : DecimalMark::Comma;
        const bool contradicts = evidence == (mark == DecimalMark::Comma ? MarkEvidence::Point : MarkEvidence::Comma);
        if (contradicts && ReadNumber(text, other)) {
            faults_.Add(line, column,
                        Shown(text) + place + " uses the " + MarkName(other) + ", but " +
                            (evidence_.empty() ? "--decimal asks for" : evidence_ + " uses") + " the " +
                            MarkName(mark));
            return std::nullopt;
        }
        const std::optional<double> value = contradicts ? std::nullopt : ReadNumber(text, mark);
        if (!value) {
            faults_.Add(line, column, Shown(text) + place + " is no number");
        }
        return value;
    }

    std::vector<CsvRecord> records_;
    DecimalMark mark_;
    Faults& faults_;
    SourceTable table_;
    std::map<std::string_view, int> periodLines_;
    /// The number that decided the mark, for messages; empty when the user did.
    std::string evidence_;
};

}  // namespace

SourceTable ReadSourceTable(std::string_view text, DecimalMark mark, Faults& faults) {
    CheckEncoding(text, faults);
    std::vector<CsvRecord> records = ReadCsv(text, faults);
    return TableReader(std::move(records), mark, faults).Read();
}

}  // namespace planbook
