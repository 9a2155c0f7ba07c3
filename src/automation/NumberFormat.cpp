// SPDX-License-Identifier: MIT
#include "automation/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <utility>

#include "automation/Numbers.h"
#include "automation/Texts.h"

namespace planview {

namespace {

constexpr int SignificantDigits = 15;
/// From here on a number has more digits before the mark than are known of it.
constexpr double TooLarge = 1e15;
/// More digits than this on either side of the mark are a slip, not a wish; the bound keeps every result short.
constexpr std::size_t MaxPlaceholders = 30;
constexpr std::size_t MaxCodeLength = 255;
constexpr int GroupLength = 3;
/// Numbers from here on never round to zero.
constexpr double AlwaysShown = 1;
constexpr char ShownDecimalMark = GridDecimalMark;
constexpr char ShownGroupMark = '.';

bool IsPlaceholder(char c) noexcept {
    return c == '0' || c == '#' || c == '?';
}

bool IsDigitsPart(char c) noexcept {
    return IsPlaceholder(c) || c == '.' || c == ',';
}

/// The bytes of the first character.
std::size_t CharacterLength(std::string_view text) noexcept {
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
        ++length;
    }
    return std::min(length, text.size());
}

bool IsAscii(char c) noexcept {
    return static_cast<signed char>(c) >= 0;
}

bool StartsWithWord(std::string_view text, std::string_view word) noexcept {
    return EqualIgnoringCase(text.substr(0, word.size()), word);
}

/// Whether "[name]" is a colour: one of eight, or "Color3".
bool IsColorName(std::string_view name) noexcept {
    constexpr std::string_view Known[] = {"black", "blue", "cyan", "green", "magenta", "red", "white", "yellow"};
    constexpr std::string_view Numbered = "color";
    const bool known = std::any_of(std::begin(Known), std::end(Known),
                                   [&](std::string_view each) { return EqualIgnoringCase(name, each); });
    return known ||
           (StartsWithWord(name, Numbered) && name.size() > Numbered.size() &&
            std::all_of(name.begin() + Numbered.size(), name.end(), [](char c) { return c >= '0' && c <= '9'; }));
}

}  // namespace

/// The decimal digits of a rounded number: `whole` of them stand before the mark, the rest behind it.
struct NumberFormat::Digits {
    // As many as a percentage of a number below TooLarge has before the mark, and the decimals.
    std::array<char, 24 + MaxPlaceholders> text{};
    int count = 0;
    int whole = 0;
    bool isZero = true;
};

/// Reads what may stand before and behind the digits until something else comes. False for what can stand nowhere.
bool NumberFormat::TakeLiterals(std::string_view& code, std::string& literals, Section& section) {
    constexpr std::string_view Signs = "+-() $";
    while (!code.empty()) {
        const char c = code.front();
        if (c == '"') {
            const std::size_t end = code.find('"', 1);
            if (end == std::string_view::npos) {
                return false;
            }
            literals += code.substr(1, end - 1);
            code.remove_prefix(end + 1);
        } else if (c == '[') {
            if (!TakeBracket(code, literals, section)) {
                return false;
            }
        } else if (c == '\\' || c == '_' || c == '*') {
            code.remove_prefix(1);
            if (code.empty()) {
                return false;
            }
            const std::size_t length = CharacterLength(code);
            literals += c == '\\' ? code.substr(0, length) : c == '_' ? std::string_view(" ") : std::string_view();
            code.remove_prefix(length);
        } else if (c == '%' && section.percent) {
            return false;
        } else if (c == '%' || Signs.find(c) != std::string_view::npos || !IsAscii(c)) {
            section.percent = section.percent || c == '%';
            literals += c;
            code.remove_prefix(1);
        } else {
            return true;
        }
    }
    return true;
}

/// A currency or a colour; a condition is none.
bool NumberFormat::TakeBracket(std::string_view& code, std::string& literals, Section& section) {
    const std::size_t end = code.find(']');
    if (end == std::string_view::npos) {
        return false;
    }
    const std::string_view inner = code.substr(1, end - 1);
    code.remove_prefix(end + 1);
    if (inner.starts_with('$')) {
        const std::string_view currency = inner.substr(1);
        literals += currency.substr(0, currency.rfind('-'));
        return true;
    }
    if (!IsColorName(inner)) {
        return false;
    }
    section.color = EqualIgnoringCase(inner, "red") || EqualIgnoringCase(inner, "color3") ? Color::Red : Color::Other;
    return true;
}

/// What stands between the ";", which are none in texts.
std::vector<std::string_view> NumberFormat::SectionsOf(std::string_view code) {
    std::vector<std::string_view> sections;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < code.size(); ++i) {
        if (code[i] == '"') {
            quoted = !quoted;
        } else if (!quoted && (code[i] == '\\' || code[i] == '_' || code[i] == '*')) {
            ++i;
        } else if (!quoted && code[i] == ';') {
            sections.push_back(code.substr(start, i - start));
            start = i + 1;
        }
    }
    sections.push_back(code.substr(start));
    return sections;
}

std::optional<NumberFormat> NumberFormat::Parse(std::string_view code) {
    constexpr std::size_t MostSections = 4;
    if (code.empty() || code.size() > MaxCodeLength) {
        return std::nullopt;
    }
    const std::vector<std::string_view> codes = SectionsOf(code);
    std::vector<Section> sections;
    for (const std::string_view each : codes) {
        // Of two sections an empty one would hide numbers by a slip.
        std::optional<Section> section = each.empty() && codes.size() <= 2 ? std::nullopt : ParseSection(each);
        if (!section) {
            return std::nullopt;
        }
        sections.push_back(std::move(*section));
    }
    NumberFormat format;
    using Kind = Section::Kind;
    if (sections.back().kind == Kind::Text || sections.size() == MostSections) {
        format.text_ = sections.back();
        if (sections.size() > 1) {
            sections.pop_back();
        } else {
            sections.back().kind = Kind::General;
        }
        if (format.text_->kind != Kind::Text && format.text_->kind != Kind::Literal) {
            return std::nullopt;
        }
    }
    const bool textsForNumbers =
        std::any_of(sections.begin(), sections.end(), [](const Section& each) { return each.kind == Kind::Text; });
    if (textsForNumbers || sections.size() >= MostSections ||
        (codes.size() == 1 && sections[0].kind == Kind::Literal)) {
        return std::nullopt;
    }
    format.positive_ = sections[0];
    if (sections.size() > 1) {
        format.negative_ = sections[1];
    }
    if (sections.size() > 2) {
        format.zero_ = sections[2];
    }
    format.code_ = code;
    return format;
}

std::optional<NumberFormat::Section> NumberFormat::ParseSection(std::string_view code) {
    constexpr std::string_view General = "General";
    Section section;
    if (!TakeLiterals(code, section.prefix, section)) {
        return std::nullopt;
    }
    std::size_t length = 0;
    if (code.empty()) {
        section.kind = Section::Kind::Literal;
        return section;
    }
    if (StartsWithWord(code, General)) {
        section.kind = Section::Kind::General;
        length = General.size();
    } else if (code.front() == '@') {
        section.kind = Section::Kind::Text;
        length = 1;
    } else {
        length = static_cast<std::size_t>(std::find_if_not(code.begin(), code.end(), IsDigitsPart) - code.begin());
        if (!ParseDigits(code.substr(0, length), section)) {
            return std::nullopt;
        }
    }
    code.remove_prefix(length);
    if (!TakeLiterals(code, section.suffix, section) || !code.empty()) {
        return std::nullopt;
    }
    return section;
}

bool NumberFormat::ParseDigits(std::string_view code, Section& section) {
    const std::size_t mark = code.find('.');
    const std::string_view whole = code.substr(0, mark);
    std::size_t firstZero = std::string_view::npos;
    std::size_t count = 0;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (whole[i] == ',') {
            const bool betweenDigits =
                i > 0 && i + 1 < whole.size() && IsPlaceholder(whole[i - 1]) && IsPlaceholder(whole[i + 1]);
            if (!betweenDigits) {
                return false;
            }
            section.grouped = true;
            continue;
        }
        if (whole[i] == '0' && firstZero == std::string_view::npos) {
            firstZero = count;
        }
        ++count;
    }
    section.minimumDigits = firstZero == std::string_view::npos ? 0 : static_cast<int>(count - firstZero);

    std::string_view decimals;
    if (mark != std::string_view::npos) {
        decimals = code.substr(mark + 1);
        section.decimalMark = true;
    }
    if (!std::all_of(decimals.begin(), decimals.end(), IsPlaceholder)) {
        return false;
    }
    section.decimals = static_cast<int>(decimals.size());
    const std::size_t lastZero = decimals.rfind('0');
    section.minimumDecimals = lastZero == std::string_view::npos ? 0 : static_cast<int>(lastZero) + 1;
    return count + decimals.size() > 0 && count <= MaxPlaceholders && decimals.size() <= MaxPlaceholders;
}

NumberFormat::Digits NumberFormat::RoundedDigits(const Section& section, double magnitude) {
    constexpr int PercentPower = 2;
    // "d.dddde+xx"
    std::array<char, SignificantDigits + 16> buffer{};
    const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                          std::chars_format::scientific, SignificantDigits - 1)
                                .ptr;
    constexpr int ExponentAt = SignificantDigits + 1;
    int exponent = 0;
    const char* const exponentStart = buffer.data() + ExponentAt + 1;
    std::from_chars(*exponentStart == '+' ? exponentStart + 1 : exponentStart, end, exponent);

    std::array<char, SignificantDigits + 1> significant{};
    significant[0] = '0';  // takes the carry of a rounding up
    significant[1] = buffer[0];
    std::copy_n(buffer.data() + 2, SignificantDigits - 1, significant.data() + 2);
    // The digit at index i counts 10 to the power of (top - i).
    const int top = (magnitude != 0 ? exponent : 0) + (section.percent ? PercentPower : 0) + 1;

    const int firstDropped = top + section.decimals + 1;
    if (firstDropped <= SignificantDigits) {
        const bool up = firstDropped > 0 && significant[static_cast<std::size_t>(firstDropped)] >= '5';
        std::fill(significant.begin() + std::max(firstDropped, 0), significant.end(), '0');
        for (int i = firstDropped - 1; up && i >= 0; --i) {
            char& digit = significant[static_cast<std::size_t>(i)];
            digit = digit == '9' ? '0' : static_cast<char>(digit + 1);
            if (digit != '0') {
                break;
            }
        }
    }

    Digits digits;
    const int highest = std::max(top, 0);
    digits.whole = highest + 1;
    digits.count = digits.whole + section.decimals;
    for (int i = 0; i < digits.count; ++i) {
        const int from = i - highest + top;
        const bool known = from >= 0 && from <= SignificantDigits;
        const char digit = known ? significant[static_cast<std::size_t>(from)] : '0';
        digits.text[static_cast<std::size_t>(i)] = digit;
        digits.isZero = digits.isZero && digit == '0';
    }
    return digits;
}

void NumberFormat::Append(std::string& text, const Section& section, const Digits& digits) {
    const char* first = digits.text.data();
    const char* const wholeEnd = first + digits.whole;
    const char* const end = first + digits.count;
    first = std::find_if(first, wholeEnd, [](char c) { return c != '0'; });

    text += section.prefix;
    const int shown = std::max(static_cast<int>(wholeEnd - first), section.minimumDigits);
    for (int left = shown; left > 0; --left) {
        text += left > wholeEnd - first ? '0' : *(wholeEnd - left);
        if (section.grouped && left > 1 && (left - 1) % GroupLength == 0) {
            text += ShownGroupMark;
        }
    }
    const char* decimalsEnd = end;
    while (decimalsEnd - wholeEnd > section.minimumDecimals && decimalsEnd[-1] == '0') {
        --decimalsEnd;
    }
    if (section.decimalMark) {
        text += ShownDecimalMark;
        text.append(wholeEnd, decimalsEnd);
    }
    text += section.suffix;
}

std::string NumberFormat::FormatLarge(const Section& section, double value) {
    constexpr double Percent = 100;
    const double shown = section.percent ? value * Percent : value;
    return std::isfinite(shown) ? section.prefix + NumberText(shown, ShownDecimalMark) + section.suffix
                                : NumberText(value, ShownDecimalMark);
}

const NumberFormat::Section& NumberFormat::SectionOf(double value) const noexcept {
    const std::optional<Section>& own = value < 0 ? negative_ : zero_;
    return value <= 0 && own ? *own : positive_;
}

std::string NumberFormat::Format(double value) const {
    std::string text;
    if (!std::isfinite(value)) {
        return text;
    }
    using Kind = Section::Kind;
    const Section& section = SectionOf(value);
    const bool ownSign = value < 0 && negative_;
    if (section.kind == Kind::Literal) {
        return section.prefix;
    }
    if (section.kind == Kind::Digits && std::abs(value) >= TooLarge) {
        return FormatLarge(section, ownSign ? -value : value);
    }
    if (section.kind == Kind::General) {
        text = value < 0 && !ownSign ? "-" : "";
        return text + section.prefix + NumberText(std::abs(value), ShownDecimalMark) + section.suffix;
    }
    const Digits digits = RoundedDigits(section, std::abs(value));
    if (value != 0 && digits.isZero && (value < 0 || zero_)) {
        return Format(0);
    }
    if (value < 0 && !ownSign) {
        text += '-';
    }
    Append(text, section, digits);
    return text;
}

std::string NumberFormat::FormatText(std::string_view text) const {
    if (!text_) {
        return std::string(text);
    }
    return text_->kind == Section::Kind::Literal ? text_->prefix : text_->prefix + std::string(text) + text_->suffix;
}

bool NumberFormat::ShowsNegative(double value) const {
    if (!(value < 0) || !std::isfinite(value)) {
        return false;
    }
    const Section& section = SectionOf(value);
    return value <= -AlwaysShown || section.kind != Section::Kind::Digits || !RoundedDigits(section, -value).isZero;
}

NumberFormat::Color NumberFormat::ColorOf(double value) const {
    const auto isColored = [](const std::optional<Section>& each) { return each && each->color != Color::None; };
    if (positive_.color == Color::None && !isColored(negative_) && !isColored(zero_)) {
        return Color::None;
    }
    const Section& section = SectionOf(value);
    const bool isZero = std::isfinite(value) && section.kind == Section::Kind::Digits &&
                        std::abs(value) < AlwaysShown && RoundedDigits(section, std::abs(value)).isZero;
    return isZero ? SectionOf(0).color : section.color;
}

std::optional<int> NumberFormat::Decimals() const noexcept {
    return positive_.kind == Section::Kind::Digits ? std::optional(positive_.decimals) : std::nullopt;
}

std::vector<NumberFormat::ShownDigits> NumberFormat::DigitsIn(std::string_view text) const {
    std::vector<ShownDigits> found;
    const auto takeFrom = [&](const std::optional<Section>& section, bool negative) {
        if (!section || section->kind == Section::Kind::Literal) {
            return;
        }
        const std::string plainPrefix = KeyboardText(section->prefix);
        const std::string plainSuffix = KeyboardText(section->suffix);
        const std::string_view prefix = Trimmed(plainPrefix);
        const std::string_view suffix = Trimmed(plainSuffix);
        if (prefix.empty() && suffix.empty()) {
            return;
        }
        const auto take = [&](std::string_view from, bool sign) {
            if (from.size() > prefix.size() + suffix.size() && from.starts_with(prefix) && from.ends_with(suffix)) {
                from.remove_prefix(prefix.size());
                from.remove_suffix(suffix.size());
                found.push_back({Trimmed(from), negative != sign, section->percent});
            }
        };
        take(text, false);
        if (text.starts_with('-') && !negative) {
            take(Trimmed(text.substr(1)), true);
        }
    };
    takeFrom(positive_, false);
    takeFrom(negative_, true);
    takeFrom(zero_, false);
    return found;
}

}  // namespace planview
