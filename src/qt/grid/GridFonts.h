// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QList>
#include <QPointF>
#include <QRawFont>
#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "components/GridStyle.h"

namespace planview {

/// The logical pixels of a text without a size of its own.
inline constexpr int BaseTextPixels = 12;

/// A text ready to be painted at any place: its glyphs, each from one of the raw fonts of GridFonts.
struct ShapedText {
    struct Run {
        int rawFont = 0;
        QList<quint32> glyphs;
        QList<QPointF> positions;  ///< from the start of the base line
    };
    qreal width = 0;
    std::vector<Run> runs;
};

/// Shapes texts in one font at one size.
///
/// Composes numbers from prepared digits of equal width; shapes every other text once and remembers it.
class TextShaper {
public:
    TextShaper(const QFont& font, std::vector<QRawFont>& rawFonts);

    [[nodiscard]] int ascent() const { return ascent_; }
    [[nodiscard]] int height() const { return height_; }
    [[nodiscard]] const QFont& font() const { return font_; }

    /// Whether `text` holds nothing but what numbers are written with.
    [[nodiscard]] bool isPlainNumber(std::string_view text) const;
    [[nodiscard]] qreal numberWidth(std::string_view text) const;
    /// Calls `put(glyph, x)` for every glyph of a plain number.
    template <class Put>
    void placeNumber(std::string_view text, Put&& put) const {
        qreal x = 0;
        for (const char character : text) {
            const Digit& digit = digits_[static_cast<unsigned char>(character)];
            put(digit.glyph, x + digit.lead);
            x += digit.advance;
        }
    }
    [[nodiscard]] int numberRawFont() const { return numberRawFont_; }

    /// The text on one line. The reference stays valid until the next call.
    const ShapedText& shape(const std::string& text);
    /// The text, cut with an ellipsis where it is wider than `width`.
    const ShapedText& shapeElided(const std::string& text, int width);

private:
    struct Digit {
        quint32 glyph = 0;
        qreal advance = 0;
        qreal lead = 0;  ///< centres a narrow digit in the common width
    };
    [[nodiscard]] ShapedText shapeNow(const QString& text) const;
    [[nodiscard]] int rawFontIndex(const QRawFont& rawFont) const;
    void prepareDigits();

    QFont font_;
    std::vector<QRawFont>& rawFonts_;
    int ascent_ = 0;
    int height_ = 0;
    int numberRawFont_ = -1;
    std::array<Digit, 256> digits_{};
    std::unordered_map<std::string, ShapedText> shaped_;
    std::unordered_map<std::string, ShapedText> elided_;  // by text and width
};

/// The fonts of a view at one scale.
class GridFonts {
public:
    /// `family` as the surrounding widgets use it; `unit` is the size of a logical pixel in paint pixels.
    GridFonts(const QFont& family, double unit);

    [[nodiscard]] double unit() const { return unit_; }
    /// The shaper for a table's font (null: the view's own), made bold or italic where the cell's role asks for it.
    [[nodiscard]] TextShaper& shaper(const GridFont* font, bool bold, bool italic);
    [[nodiscard]] const std::vector<QRawFont>& rawFonts() const { return rawFonts_; }

private:
    struct NamedShaper {
        GridFont font;
        std::unique_ptr<TextShaper> shaper;
    };
    [[nodiscard]] std::unique_ptr<TextShaper> makeShaper(const GridFont& font);

    QFont family_;
    double unit_;
    std::vector<QRawFont> rawFonts_;
    std::array<std::unique_ptr<TextShaper>, 4> own_;  // by bold and italic
    std::vector<NamedShaper> named_;
};

}  // namespace planview
