// SPDX-License-Identifier: MIT
#include "import/CsvReader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace planbook {

namespace {

constexpr char Quote = '"';

char FindSeparator(std::string_view text) {
    constexpr std::array<char, 3> Candidates = {',', ';', '\t'};
    std::array<int, Candidates.size()> counts{};
    bool quoted = false;
    for (const char c : text) {
        if (c == Quote) {
            quoted = !quoted;
        } else if (!quoted && (c == '\n' || c == '\r')) {
            break;
        } else if (!quoted) {
            for (std::size_t i = 0; i < Candidates.size(); ++i) {
                counts[i] += c == Candidates[i] ? 1 : 0;
            }
        }
    }
    return Candidates[static_cast<std::size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

class Reader {
public:
    Reader(std::string_view text, Faults& faults) : text_(text), faults_(faults), separator_(FindSeparator(text)) {}

    std::vector<CsvRecord> Read() {
        std::vector<CsvRecord> records;
        while (!AtEnd()) {
            CsvRecord record = ReadRecord();
            if (record.fields.size() > 1 || !record.fields.front().empty()) {
                records.push_back(std::move(record));
            }
        }
        return records;
    }

private:
    CsvRecord ReadRecord() {
        CsvRecord record;
        record.line = line_;
        while (true) {
            column_ = static_cast<int>(record.fields.size()) + 1;
            record.fields.push_back(!AtEnd() && Peek() == Quote ? ReadQuoted() : ReadPlain());
            if (AtEnd() || Peek() != separator_) {
                break;
            }
            ++position_;
        }
        SkipLineEnd();
        return record;
    }

    std::string ReadPlain() {
        const std::size_t start = position_;
        while (!AtEnd() && Peek() != separator_ && !AtLineEnd()) {
            ++position_;
        }
        std::string field(text_.substr(start, position_ - start));
        if (field.find(Quote) != std::string::npos) {
            faults_.Add(line_, column_,
                        "a quotation mark in the middle of a field; put the whole field in quotation "
                        "marks and double those inside it");
        }
        return field;
    }

    std::string ReadQuoted() {
        const int startLine = line_;
        std::string field;
        ++position_;
        while (!AtEnd()) {
            if (Peek() == Quote) {
                ++position_;
                if (AtEnd() || Peek() != Quote) {
                    SkipBehindQuote();
                    return field;
                }
            } else if (AtLineEnd()) {
                field += '\n';
                SkipLineEnd();
                continue;
            }
            field += text_[position_++];
        }
        faults_.Add(startLine, column_, "the quotation mark that opens this field is never closed");
        return field;
    }

    void SkipBehindQuote() {
        const std::size_t start = position_;
        while (!AtEnd() && Peek() != separator_ && !AtLineEnd()) {
            ++position_;
        }
        if (position_ != start) {
            faults_.Add(line_, column_, "text behind the closing quotation mark");
        }
    }

    void SkipLineEnd() {
        if (AtEnd()) {
            return;
        }
        position_ += text_.substr(position_).starts_with("\r\n") ? 2 : 1;
        ++line_;
    }

    [[nodiscard]] bool AtEnd() const noexcept { return position_ >= text_.size(); }
    [[nodiscard]] char Peek() const noexcept { return text_[position_]; }
    [[nodiscard]] bool AtLineEnd() const noexcept { return Peek() == '\n' || Peek() == '\r'; }

    std::string_view text_;
    Faults& faults_;
    char separator_;
    std::size_t position_ = 0;
    int line_ = 1;
    int column_ = 1;
};

}  // namespace

std::vector<CsvRecord> ReadCsv(std::string_view text, Faults& faults) {
    return Reader(text, faults).Read();
}

}  // namespace planbook
