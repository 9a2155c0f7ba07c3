// SPDX-License-Identifier: MIT
#include "clipboard/HtmlBlock.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automation/Numbers.h"
#include "automation/Texts.h"

namespace planview {

namespace {

struct HtmlCell {
    std::string text;
    std::optional<double> number;
};
using HtmlRows = std::vector<std::vector<HtmlCell>>;

/// More columns or rows than these are not joined by anybody; the bound keeps a foreign text from making cells.
constexpr int MaxSpan = 1000;

bool IsBlank(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

bool IsLetter(char c) noexcept {
    return LowerCase(c) >= 'a' && LowerCase(c) <= 'z';
}

void AppendHtml(std::string& out, std::string_view text) {
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            case '\n':
                out += "<br>";
                break;
            default:
                out += c;
        }
    }
}

void AppendUtf8(std::string& out, std::uint32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0U | code >> 6U);
        out += static_cast<char>(0x80U | (code & 0x3FU));
    } else if (code < 0x10000 && (code < 0xD800 || code > 0xDFFF)) {
        out += static_cast<char>(0xE0U | code >> 12U);
        out += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    }
}

/// The character that stands between "&" and ";"; false for a name that is not known here.
bool AppendEntity(std::string& out, std::string_view name) {
    if (name.size() > 1 && name.front() == '#') {
        const bool hex = LowerCase(name[1]) == 'x';
        name.remove_prefix(hex ? 2 : 1);
        std::uint32_t code = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code, hex ? 16 : 10);
        if (error != std::errc() || end != name.data() + name.size()) {
            return false;
        }
        AppendUtf8(out, code);
        return true;
    }
    constexpr std::pair<std::string_view, std::string_view> Known[] = {{"amp", "&"},   {"lt", "<"},   {"gt", ">"},
                                                                       {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}};
    for (const auto& [entity, text] : Known) {
        if (name == entity) {
            out += text;
            return true;
        }
    }
    return false;
}

/// Whether a number format shows a number as one: date and time letters and the names of truth values do not. `sdnum`
/// is a language, a second one and the format's code, of which nothing may stand there.
bool ShowsNumber(std::string_view sdnum) {
    for (int part = 0; part < 2; ++part) {
        const std::size_t mark = sdnum.find(';');
        if (mark == std::string_view::npos) {
            return true;
        }
        sdnum.remove_prefix(mark + 1);
    }
    if (EqualIgnoringCase(sdnum, "General") || EqualIgnoringCase(sdnum, "Standard")) {
        return true;
    }
    for (std::size_t i = 0; i < sdnum.size(); ++i) {
        const char c = sdnum[i];
        if (c == '"' || c == '[') {  // a text, a currency, a colour
            i = std::min(sdnum.find(c == '"' ? '"' : ']', i + 1), sdnum.size());
        } else if (c == '\\' || c == '_' || c == '*') {
            ++i;
        } else if (IsLetter(c) && c != 'E' && c != 'e') {
            return false;
        }
    }
    return true;
}

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// Whether a text shows its number as a date or a time ("01/08/08", "8. Jan 2008", "18:00").
bool LooksLikeDate(std::string_view text) {
    constexpr std::string_view Months[] = {"jan", "feb", "mar", "mär", "apr", "may", "mai", "jun",
                                           "jul", "aug", "sep", "oct", "okt", "nov", "dec", "dez"};
    int points = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool betweenDigits =
            i > 0 && i + 1 < text.size() && IsDigit(text[i - 1]) && (IsDigit(text[i + 1]) || text[i + 1] == ' ');
        const char c = text[i];
        if (betweenDigits && (c == '/' || c == ':' || c == '-')) {
            return true;
        }
        points += betweenDigits && c == '.' ? 1 : 0;
        const bool wordStarts = i == 0 || (!IsLetter(text[i - 1]) && IsLetter(c));
        if (wordStarts && std::any_of(std::begin(Months), std::end(Months), [&](std::string_view month) {
                return EqualIgnoringCase(text.substr(i, month.size()), month);
            })) {
            return true;
        }
    }
    return points > 1 && !TryParseNumber(text);
}

/// The number in {"1":3,"3":1234.5}: 3 is the kind "number", and behind "3" it stands.
std::optional<double> SheetsNumber(std::string_view value) {
    constexpr std::string_view Kind = "\"1\":3,";
    constexpr std::string_view Number = "\"3\":";
    const std::size_t at = value.find(Number);
    if (at == std::string_view::npos || value.find(Kind) > at) {
        return std::nullopt;
    }
    value.remove_prefix(at + Number.size());
    return TryParseNumber(value.substr(0, value.find_first_of(",}")));
}

/// Reads the first table of a text, tag by tag. What is no well-formed HTML gives some cells or none.
class TableReader {
public:
    explicit TableReader(std::string_view html) : html_(html) {}

    HtmlRows Read() {
        while (at_ < html_.size() && !ended_ && cells_ < MaxBlockCells) {
            if (html_[at_] == '<') {
                ReadTag();
            } else {
                ReadText();
            }
        }
        EndCell();
        return std::move(rows_);
    }

private:
    struct Attributes {
        std::string sdval;
        std::string sdnum;
        std::string xnum;
        std::string sheetsValue;
        int columns = 1;
        int rows = 1;
    };

    void ReadText() {
        const char c = html_[at_++];
        if (depth_ != 1 || !open_) {
            return;
        }
        if (c == '&' && ReadEntity(text_)) {
            return;
        }
        if (!IsBlank(c)) {
            text_ += c;
        } else if (!text_.empty() && text_.back() != ' ' && text_.back() != '\n') {
            text_ += ' ';
        }
    }

    /// Behind a "&"; false when it is no more than that.
    bool ReadEntity(std::string& out) {
        constexpr std::size_t LongestName = 10;
        const std::string_view near = html_.substr(at_, LongestName);
        const std::size_t end = near.find(';');
        if (end == std::string_view::npos || !AppendEntity(out, near.substr(0, end))) {
            return false;
        }
        at_ += end + 1;
        return true;
    }

    void ReadTag() {
        if (html_.substr(at_).starts_with("<!--")) {
            const std::size_t end = html_.find("-->", at_);
            at_ = end == std::string_view::npos ? html_.size() : end + 3;
            return;
        }
        ++at_;
        const bool closing = at_ < html_.size() && html_[at_] == '/';
        at_ += closing ? 1 : 0;
        const std::string_view name = ReadName();
        const Attributes attributes = ReadAttributes();
        if (EqualIgnoringCase(name, "table")) {
            depth_ += closing ? -1 : 1;
            ended_ = closing && depth_ <= 0;
        } else if (depth_ == 1) {
            HandleTag(name, closing, attributes);
        }
    }

    void HandleTag(std::string_view name, bool closing, const Attributes& attributes) {
        if (EqualIgnoringCase(name, "tr")) {
            EndCell();
            if (!closing) {
                rows_.emplace_back();
                column_ = 0;
            }
        } else if (EqualIgnoringCase(name, "td") || EqualIgnoringCase(name, "th")) {
            EndCell();
            if (!closing && !rows_.empty()) {
                open_ = attributes;
            }
        } else if (EqualIgnoringCase(name, "br") && !text_.empty()) {
            text_ += '\n';
        }
    }

    std::string_view ReadName() {
        const std::size_t start = at_;
        while (at_ < html_.size() && !IsBlank(html_[at_]) && html_[at_] != '>' && html_[at_] != '/' &&
               html_[at_] != '=') {
            ++at_;
        }
        return html_.substr(start, at_ - start);
    }

    /// To behind the ">".
    Attributes ReadAttributes() {
        Attributes attributes;
        while (at_ < html_.size() && html_[at_] != '>') {
            const std::string_view name = ReadName();
            if (at_ < html_.size() && html_[at_] == '=') {
                ++at_;
                Take(attributes, name, ReadValue());
            } else if (name.empty()) {
                ++at_;
            }
        }
        at_ += at_ < html_.size() ? 1 : 0;
        return attributes;
    }

    std::string ReadValue() {
        const char quote = at_ < html_.size() ? html_[at_] : '\0';
        const bool quoted = quote == '"' || quote == '\'';
        at_ += quoted ? 1 : 0;
        std::string value;
        while (at_ < html_.size() && (quoted ? html_[at_] != quote : !IsBlank(html_[at_]) && html_[at_] != '>')) {
            const char c = html_[at_++];
            if (c != '&' || !ReadEntity(value)) {
                value += c;
            }
        }
        at_ += quoted && at_ < html_.size() ? 1 : 0;
        return value;
    }

    static void Take(Attributes& attributes, std::string_view name, std::string value) {
        if (EqualIgnoringCase(name, "sdval")) {
            attributes.sdval = std::move(value);
        } else if (EqualIgnoringCase(name, "sdnum")) {
            attributes.sdnum = std::move(value);
        } else if (EqualIgnoringCase(name, "x:num")) {
            attributes.xnum = std::move(value);
        } else if (EqualIgnoringCase(name, "data-sheets-value")) {
            attributes.sheetsValue = std::move(value);
        } else if (EqualIgnoringCase(name, "colspan") || EqualIgnoringCase(name, "rowspan")) {
            int span = 1;
            std::from_chars(value.data(), value.data() + value.size(), span);
            (LowerCase(name.front()) == 'c' ? attributes.columns : attributes.rows) = std::clamp(span, 1, MaxSpan);
        }
    }

    /// Joined cells stand in the first of their places; the others are empty, as they are in a text.
    void EndCell() {
        if (!open_) {
            return;
        }
        const Attributes cell = *std::exchange(open_, std::nullopt);
        SkipTaken();
        while (!text_.empty() && IsBlank(text_.back())) {
            text_.pop_back();
        }
        const std::optional<double> number = NumberBehind(cell);
        Put({std::exchange(text_, {}), number}, cell.rows);
        for (int i = 1; i < cell.columns && cells_ < MaxBlockCells; ++i) {
            Put({}, cell.rows);
        }
    }

    /// The number itself that the program says the cell holds.
    [[nodiscard]] std::optional<double> NumberBehind(const Attributes& cell) const {
        if (!cell.sdval.empty()) {
            return ShowsNumber(cell.sdnum) ? TryParseNumber(cell.sdval) : std::nullopt;
        }
        if (LooksLikeDate(text_)) {
            return std::nullopt;
        }
        return cell.xnum.empty() ? SheetsNumber(cell.sheetsValue) : TryParseNumber(cell.xnum);
    }

    void SkipTaken() {
        while (column_ < takenTo_.size() && takenTo_[column_] >= rows_.size()) {
            Put({}, 1);
        }
    }

    void Put(HtmlCell cell, int rowSpan) {
        if (column_ >= takenTo_.size()) {
            takenTo_.resize(column_ + 1);
        }
        takenTo_[column_] = std::max(takenTo_[column_], rows_.size() + static_cast<std::size_t>(rowSpan) - 1);
        rows_.back().push_back(std::move(cell));
        ++column_;
        ++cells_;
    }

    std::string_view html_;
    HtmlRows rows_;
    std::vector<std::size_t> takenTo_;  // by column: the last row, from 1, that a cell above reaches down to
    std::string text_;
    std::optional<Attributes> open_;  // of the cell that is being read
    std::size_t at_ = 0;
    std::size_t column_ = 0;
    std::size_t cells_ = 0;
    int depth_ = 0;
    bool ended_ = false;
};

bool HasNumbers(const HtmlRows& rows) {
    return std::any_of(rows.begin(), rows.end(), [](const std::vector<HtmlCell>& row) {
        return std::any_of(row.begin(), row.end(), [](const HtmlCell& cell) { return cell.number.has_value(); });
    });
}

bool SameShape(const ValueBlock& block, const HtmlRows& rows) {
    return std::equal(block.begin(), block.end(), rows.begin(), rows.end(),
                      [](const auto& line, const auto& row) { return line.size() == row.size(); });
}

}  // namespace

std::string FormatHtmlBlock(const TextBlock& block) {
    std::string out = "<html><head><meta charset=\"utf-8\"></head><body><table>";
    for (const std::vector<std::string>& row : block) {
        out += "<tr>";
        for (const std::string& cell : row) {
            const std::optional<double> number = TryParseNumber(cell);
            out += "<td";
            if (number) {
                out += " sdval=\"" + NumberText(*number) + "\" sdnum=\"1033;\"";
            }
            out += '>';
            AppendHtml(out, cell);
            out += "</td>";
        }
        out += "</tr>";
    }
    return out + "</table></body></html>";
}

ValueBlock BestBlock(std::string_view text, std::string_view html) {
    ValueBlock block;
    for (std::vector<std::string>& line : ParseBlock(text)) {
        block.emplace_back(std::make_move_iterator(line.begin()), std::make_move_iterator(line.end()));
    }
    HtmlRows rows = TableReader(html).Read();
    if (!HasNumbers(rows)) {
        return block;
    }
    const bool sameShape = SameShape(block, rows);
    if (!sameShape) {
        block.assign(rows.size(), {});
    }
    for (std::size_t r = 0; r < rows.size(); ++r) {
        block[r].resize(rows[r].size());
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            HtmlCell& cell = rows[r][c];
            if (cell.number) {
                block[r][c] = *cell.number;
            } else if (!sameShape) {
                block[r][c] = std::move(cell.text);
            }
        }
    }
    return block;
}

}  // namespace planview
