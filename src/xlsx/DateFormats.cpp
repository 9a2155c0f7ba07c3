// SPDX-License-Identifier: MIT
#include "xlsx/DateFormats.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <unordered_map>

#include "xlsx/XmlEvents.h"

namespace planview::xlsx {

namespace {

constexpr std::uint32_t NoFormat = 0xFFFFFFFF;

/// The formats that every workbook has without naming them; 27 to 36 and 50 to 58 are the dates of East Asia.
bool IsBuiltInDate(std::uint32_t id) noexcept {
    return (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) || (id >= 50 && id <= 58);
}

std::uint32_t NumberOf(std::string_view text) noexcept {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : NoFormat;
}

class StyleEvents final : public XmlEvents {
public:
    StyleEvents(std::vector<bool>& ofStyles, std::size_t most) : ofStyles_(&ofStyles), most_(most) {}

    void Start(std::string_view name, const XmlAttributes& attributes) override {
        if (name == "cellXfs") {
            inStyles_ = true;
        } else if (name == "numFmt" && own_.size() < most_) {
            own_.insert_or_assign(NumberOf(attributes["numFmtId"]), IsDateFormat(attributes["formatCode"]));
        } else if (name == "xf" && inStyles_ && ofStyles_->size() < most_) {
            const std::uint32_t id = NumberOf(attributes["numFmtId"]);
            const auto own = own_.find(id);
            ofStyles_->push_back(own != own_.end() ? own->second : IsBuiltInDate(id));
        }
    }
    void End(std::string_view name) override { inStyles_ = inStyles_ && name != "cellXfs"; }
    void Text(std::string_view) override {}

private:
    std::vector<bool>* ofStyles_;
    std::unordered_map<std::uint32_t, bool> own_;
    std::size_t most_;
    bool inStyles_ = false;
};

struct Day {
    int year;
    int month;
    int day;
};

/// Days since 30 December 1899. Years are counted from March, so that the leap day is their last.
Day DayOf(int days) noexcept {
    constexpr int UpToDayZero = 693'899;
    constexpr int FourHundredYears = 146'097;
    const int all = days + UpToDayZero;
    const int inEra = all % FourHundredYears;
    const int yearInEra = (inEra - inEra / 1460 + inEra / 36'524 - inEra / 146'096) / 365;
    const int inYear = inEra - (365 * yearInEra + yearInEra / 4 - yearInEra / 100);
    const int fromMarch = (5 * inYear + 2) / 153;
    const int month = fromMarch < 10 ? fromMarch + 3 : fromMarch - 9;
    const int year = yearInEra + all / FourHundredYears * 400 + (month <= 2 ? 1 : 0);
    return {year, month, inYear - (153 * fromMarch + 2) / 5 + 1};
}

}  // namespace

bool IsDateFormat(std::string_view code) noexcept {
    for (std::size_t i = 0; i < code.size(); ++i) {
        switch (code[i]) {
            case '"':
                i = code.find('"', i + 1);
                break;
            case '\\':
            case '_':
            case '*':
                ++i;  // the next one stands for itself
                break;
            case '[': {
                // "[Red]", "[$€-407]" and "[>5]" mean something else; "[h]" counts hours beyond a day.
                const std::size_t end = code.find(']', i);
                const std::string_view inside = code.substr(i + 1, end == std::string_view::npos ? end : end - i - 1);
                if (!inside.empty() && inside.find_first_not_of("hHmMsS") == std::string_view::npos) {
                    return true;
                }
                i = end;
                break;
            }
            case 'y':
            case 'Y':
            case 'm':
            case 'M':
            case 'd':
            case 'D':
            case 'h':
            case 'H':
            case 's':
            case 'S':
                return true;
            default:
                // "General" stands for itself and has none of them.
                break;
        }
        if (i == std::string_view::npos) {
            return false;
        }
    }
    return false;
}

std::string DateFormats::TextOf(double days) const {
    constexpr double LastDay = 2'958'466;  // 1 January of the year 10000
    constexpr int SecondsOfDay = 86'400;
    constexpr int From1904 = 1462;
    const double shifted = days + (startsIn1904 ? From1904 : 0);
    if (!(days >= 0 && shifted < LastDay)) {
        return {};
    }
    const auto all = static_cast<std::int64_t>(std::llround(shifted * SecondsOfDay));
    const auto whole = static_cast<int>(all / SecondsOfDay);
    const auto seconds = static_cast<int>(all % SecondsOfDay);
    char text[64];
    std::string result;
    if (days >= 1) {
        // The file's calendar has a 29 February 1900, day 60; the days before it are one less than they should be.
        const Day day = DayOf(startsIn1904 || whole >= 60 ? whole : whole + 1);
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", day.year, day.month, day.day);
        result = text;
    }
    if (seconds != 0 || result.empty()) {
        std::snprintf(text, sizeof text, seconds % 60 == 0 ? "%s%02d:%02d" : "%s%02d:%02d:%02d",
                      result.empty() ? "" : " ", seconds / 3600, seconds / 60 % 60, seconds % 60);
        result += text;
    }
    return result;
}

void ReadDateFormats(ZipParts& parts, const std::string& part, DateFormats& formats) {
    StyleEvents events(formats.ofStyles, parts.Limits().texts);
    ReadXml(parts, part, events);
}

}  // namespace planview::xlsx
