// SPDX-License-Identifier: MIT
#include "qt/grid/GridFonts.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace planview {

namespace {

/// The characters of a plain number.
constexpr std::string_view NumberCharacters = "0123456789.,-+%";
/// No cell is wide enough for more; avoids shaping a megabyte of text.
constexpr std::size_t LongestShownText = 1000;
/// Remembered texts per shaper; enough for many screens.
constexpr std::size_t MostShaped = 20000;
constexpr double PixelsPerPoint = 96.0 / 72.0;
constexpr int SmallestTextPixels = 5;

/// The first line, cut where no cell shows more.
QString shownText(std::string_view text) {
    const std::size_t length = std::min({text.size(), text.find_first_of("\r\n"), LongestShownText});
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(length));
}

}  // namespace

TextShaper::TextShaper(const QFont& font, std::vector<QRawFont>& rawFonts) : font_(font), rawFonts_(rawFonts) {
    const QFontMetricsF metrics(font_);
    ascent_ = static_cast<int>(std::lround(metrics.ascent()));
    height_ = static_cast<int>(std::lround(metrics.ascent() + metrics.descent()));
    prepareDigits();
}

int TextShaper::rawFontIndex(const QRawFont& rawFont) const {
    const auto found = std::find(rawFonts_.begin(), rawFonts_.end(), rawFont);
    const auto index = found - rawFonts_.begin();
    if (found == rawFonts_.end()) {
        rawFonts_.push_back(rawFont);
    }
    return static_cast<int>(index);
}

void TextShaper::prepareDigits() {
    qreal widest = 0;
    for (const char character : NumberCharacters) {
        const ShapedText shaped = shapeNow(QString(QLatin1Char(character)));
        const bool simple = shaped.runs.size() == 1 && shaped.runs.front().glyphs.size() == 1;
        const int rawFont = simple ? shaped.runs.front().rawFont : -1;
        if (!simple || (numberRawFont_ >= 0 && rawFont != numberRawFont_)) {
            numberRawFont_ = -1;  // digits from several fonts: numbers are shaped like any text
            return;
        }
        numberRawFont_ = rawFont;
        digits_[static_cast<unsigned char>(character)] = {shaped.runs.front().glyphs.front(), shaped.width, 0};
        if (character >= '0' && character <= '9') {
            widest = std::max(widest, shaped.width);
        }
    }
    for (unsigned char character = '0'; character <= '9'; ++character) {
        Digit& digit = digits_[character];
        digit.lead = (widest - digit.advance) / 2;
        digit.advance = widest;
    }
}

bool TextShaper::isPlainNumber(std::string_view text) const {
    return numberRawFont_ >= 0 && std::all_of(text.begin(), text.end(), [this](char character) {
               return digits_[static_cast<unsigned char>(character)].advance > 0;
           });
}

qreal TextShaper::numberWidth(std::string_view text) const {
    qreal width = 0;
    for (const char character : text) {
        width += digits_[static_cast<unsigned char>(character)].advance;
    }
    return width;
}

const ShapedText& TextShaper::shape(const std::string& text) {
    const auto known = shaped_.find(text);
    if (known != shaped_.end()) {
        return known->second;
    }
    if (shaped_.size() >= MostShaped) {
        shaped_.clear();
    }
    return shaped_.emplace(text, shapeNow(shownText(text))).first->second;
}

const ShapedText& TextShaper::shapeElided(const std::string& text, int width) {
    const ShapedText& whole = shape(text);
    if (whole.width <= width) {
        return whole;
    }
    const std::string key = std::to_string(width) + '\n' + text.substr(0, LongestShownText);
    const auto known = elided_.find(key);
    if (known != elided_.end()) {
        return known->second;
    }
    if (elided_.size() >= MostShaped) {
        elided_.clear();
    }
    const QString elided = QFontMetricsF(font_).elidedText(shownText(text), Qt::ElideRight, width);
    return elided_.emplace(key, shapeNow(elided)).first->second;
}

ShapedText TextShaper::shapeNow(const QString& text) const {
    QTextLayout layout(text, font_);
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();

    ShapedText result;
    if (!line.isValid()) {
        return result;
    }
    result.width = line.naturalTextWidth();
    const QPointF baseLine(line.x(), line.y() + line.ascent());
    for (const QGlyphRun& run : layout.glyphRuns()) {
        ShapedText::Run shaped{rawFontIndex(run.rawFont()), run.glyphIndexes(), run.positions()};
        for (QPointF& position : shaped.positions) {
            position -= baseLine;
        }
        result.runs.push_back(std::move(shaped));
    }
    return result;
}

GridFonts::GridFonts(const QFont& family, double unit) : family_(family), unit_(unit) {}

TextShaper& GridFonts::shaper(const GridFont* font, bool bold, bool italic) {
    if (!font) {
        std::unique_ptr<TextShaper>& own = own_[(bold ? 1U : 0U) + (italic ? 2U : 0U)];
        if (!own) {
            own = makeShaper({{}, 0, bold, italic});
        }
        return *own;
    }
    const bool wantBold = bold || font->bold;
    const bool wantItalic = italic || font->italic;
    if (font->name.empty() && font->size == 0) {
        return shaper(nullptr, wantBold, wantItalic);
    }
    for (const NamedShaper& known : named_) {
        if (known.font.size == font->size && known.font.bold == wantBold && known.font.italic == wantItalic &&
            known.font.name == font->name) {
            return *known.shaper;
        }
    }
    const GridFont wanted{font->name, font->size, wantBold, wantItalic};
    return *named_.emplace_back(NamedShaper{wanted, makeShaper(wanted)}).shaper;
}

std::unique_ptr<TextShaper> GridFonts::makeShaper(const GridFont& font) {
    QFont made(family_);
    if (!font.name.empty()) {
        made.setFamilies({QString::fromStdString(font.name), family_.family()});
    }
    const double pixels = font.size > 0 ? font.size * PixelsPerPoint : BaseTextPixels;
    made.setPixelSize(std::max(SmallestTextPixels, static_cast<int>(std::lround(pixels * unit_))));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    return std::make_unique<TextShaper>(made, rawFonts_);
}

}  // namespace planview
