// SPDX-License-Identifier: MIT
#include "xlsx/StyleCodes.h"

#include <algorithm>
#include <array>
#include <string>

#include <planview/AutomationObject.h>

#include "automation/Utf8.h"
#include "xlsx/Palette.h"

namespace planview::xlsx {

namespace {

template <class Meaning>
struct Code {
    int number;
    Meaning meaning;
};

// Of several numbers with one meaning, the first is the one that is answered.
constexpr std::array<Code<Alignment>, 7> Alignments{{{1, Alignment::General},
                                                     {2, Alignment::Left},
                                                     {3, Alignment::Center},
                                                     {4, Alignment::Right},
                                                     {-4131, Alignment::Left},
                                                     {-4108, Alignment::Center},
                                                     {-4152, Alignment::Right}}};

// 9 is the number by which captions ask for the line that sets them off: two lines.
constexpr std::array<Code<LineStyle>, 10> LineStyles{{{-4142, LineStyle::None},
                                                      {0, LineStyle::None},
                                                      {1, LineStyle::Thin},
                                                      {9, LineStyle::Double},
                                                      {-4119, LineStyle::Double},
                                                      {-4115, LineStyle::Dash},
                                                      {-4118, LineStyle::Dot},
                                                      {4, LineStyle::DashDot},
                                                      {5, LineStyle::DashDotDot},
                                                      {13, LineStyle::SlantDashDot}}};

[[noreturn]] void Refuse(const std::string& what) {
    throw AutomationError(AutomationErrorCode::SubscriptOutOfRange, what);
}

template <class Codes>
auto MeaningOf(const Codes& codes, const Variant& value, const char* what) {
    const int number = value.AsInt32();
    const auto found =
        std::find_if(codes.begin(), codes.end(), [&](const auto& code) { return code.number == number; });
    if (found == codes.end()) {
        Refuse(std::string("There is no ") + what + " with the number " + std::to_string(number));
    }
    return found->meaning;
}

template <class Codes, class Meaning>
int NumberOf(const Codes& codes, Meaning meaning) noexcept {
    return std::find_if(codes.begin(), codes.end(), [&](const auto& code) { return code.meaning == meaning; })->number;
}

double Between(const Variant& value, double least, double most, const char* what) {
    const double number = value.AsDouble();
    if (!(number >= least && number <= most)) {
        Refuse(std::string(what) + " " + value.AsText() + " is outside " + Variant(least).AsText() + " to " +
               Variant(most).AsText());
    }
    return number;
}

}  // namespace

Alignment AlignmentOf(const Variant& code) {
    return MeaningOf(Alignments, code, "alignment");
}

int CodeOf(Alignment alignment) noexcept {
    return NumberOf(Alignments, alignment);
}

LineStyle LineStyleOf(const Variant& code) {
    return MeaningOf(LineStyles, code, "line style");
}

int CodeOf(LineStyle style) noexcept {
    return NumberOf(LineStyles, style);
}

std::uint8_t ColorIndexOf(const Variant& code) {
    const int index = code.AsInt32();
    if (index == NoColor || index == AutomaticColor) {
        return 0;
    }
    if (!PaletteColor(index)) {
        Refuse("There is no colour with the index " + std::to_string(index) + ", only 1 to " +
               std::to_string(PaletteSize));
    }
    return static_cast<std::uint8_t>(index);
}

double FontSizeOf(const Variant& size) {
    return Between(size, 1, 409, "The font size");
}

float ColumnWidthOf(const Variant& width) {
    return static_cast<float>(Between(width, 0, 255, "The column width"));
}

std::string NumberFormatOf(const Variant& format) {
    constexpr std::size_t LongestFormat = 127;
    std::string text = format.AsText();
    const bool hasControls =
        std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; });
    if (text.empty() || text.size() > LongestFormat || hasControls || !IsValidUtf8(text) ||
        std::count(text.begin(), text.end(), '"') % 2 != 0 ||
        std::count(text.begin(), text.end(), '[') != std::count(text.begin(), text.end(), ']')) {
        throw AutomationError(AutomationErrorCode::TypeMismatch,
                              "'" + ToValidUtf8(text, LongestFormat) + "' is no number format");
    }
    return text;
}

}  // namespace planview::xlsx
