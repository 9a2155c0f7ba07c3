// SPDX-License-Identifier: MIT
#include "components/GridStyles.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "automation/Texts.h"
#include "automation/Utf8.h"
#include "components/BuiltInBitmaps.h"

namespace planview {

namespace {

constexpr int MinFontSize = 4;
constexpr int MaxFontSize = 96;

/// Cuts off and returns the text before the divider; the whole text if there is none.
std::string_view TakePiece(std::string_view& text, char divider) noexcept {
    const std::size_t end = text.find(divider);
    const std::string_view piece = Trimmed(text.substr(0, end));
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    return piece;
}

/// The status for a text that names nothing known.
GridStatus Unknown(std::string_view text, GridStatus status) noexcept {
    return IsValidUtf8(text) ? status : GridStatus::InvalidText;
}

}  // namespace

void AttributeSet::LayOver(const AttributeSet& above) noexcept {
    if (above.set == 0) {
        return;
    }
    const auto take = [&above](GridAttribute attribute, auto& below, auto value) {
        below = above.Has(attribute) ? value : below;
    };
    take(GridAttribute::BackgroundColor, background, above.background);
    take(GridAttribute::ForegroundColor, foreground, above.foreground);
    take(GridAttribute::Font, font, above.font);
    take(GridAttribute::Format, format, above.format);
    take(GridAttribute::Bitmap, bitmap, above.bitmap);
    take(GridAttribute::Alignment, alignment, above.alignment);
    take(GridAttribute::BitmapAlignment, bitmapAlignment, above.bitmapAlignment);
    flags = static_cast<std::uint16_t>((flags & ~above.set) | above.flags);
    set = static_cast<std::uint16_t>(set | above.set);
}

std::size_t AttributeSetHash::operator()(const AttributeSet& set) const noexcept {
    constexpr std::uint64_t Multiplier = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = 0;
    const auto mix = [&hash](std::int64_t value) {
        hash = (hash ^ static_cast<std::uint64_t>(value)) * Multiplier;
        hash ^= hash >> 29U;
    };
    mix(set.set | (std::int64_t{set.flags} << 16U));
    mix((std::int64_t{set.background} << 16U) ^ set.foreground);
    mix((std::int64_t{set.font} << 32U) ^ set.format);
    mix((std::int64_t{set.bitmap} << 32U) ^ (set.alignment * 4 + set.bitmapAlignment));
    return static_cast<std::size_t>(hash);
}

GridStyles::GridStyles() : bitmaps_(BuiltInBitmaps.begin(), BuiltInBitmaps.end()) {
    for (std::size_t i = 0; i < bitmaps_.size(); ++i) {
        bitmapsByName_.Add(bitmaps_[i], static_cast<int>(i));
    }
    Clear();
}

void GridStyles::Clear() {
    colors_.clear();
    colorsByName_.Clear();
    fonts_.clear();
    fontsByText_.Clear();
    formats_.clear();
    formatsByCode_.Clear();
    sets_.assign(1, AttributeSet());
    steps_.fill(Step());
    stylesBySet_.Clear();
    stylesBySet_.Add(AttributeSet(), PlainStyle);
}

GridStatus GridStyles::CreateColor(std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    if (name.empty()) {
        return GridStatus::InvalidName;
    }
    if (!IsValidUtf8(name)) {
        return GridStatus::InvalidText;
    }
    if (colorsByName_.Find(name)) {
        return GridStatus::ColorDefined;
    }
    if (colors_.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
        return GridStatus::TooManyElements;
    }
    colors_.push_back({std::string(name), red, green, blue});
    colorsByName_.Add(std::string(name), static_cast<int>(colors_.size()) - 1);
    return GridStatus::Ok;
}

void GridStyles::RegisterBitmap(std::string_view name) {
    if (!name.empty() && bitmapsByName_.Add(std::string(name), static_cast<int>(bitmaps_.size()))) {
        bitmaps_.emplace_back(name);
    }
}

void GridStyles::RegisterFonts(std::vector<std::string> names) {
    fontNames_ = std::move(names);
    // Texts accepted so far may name fonts that are no longer registered.
    fontsByText_.Clear();
}

GridStatus GridStyles::Read(GridAttribute attribute, const Variant& value, std::optional<std::int32_t>& meaning) {
    switch (attribute) {
        case GridAttribute::BackgroundColor:
        case GridAttribute::ForegroundColor:
            return ReadColor(value, meaning);
        case GridAttribute::Format:
        case GridAttribute::Font:
        case GridAttribute::Bitmap:
            return ReadText(attribute, value, meaning);
        case GridAttribute::Alignment:
        case GridAttribute::BitmapAlignment:
            meaning =
                ReadNumber(value, static_cast<int>(GridAlignment::Right), static_cast<int>(GridAlignment::Center));
            break;
        default:
            if (const std::optional<bool> flag = ReadFlag(value)) {
                meaning = *flag ? 1 : 0;
            }
            break;
    }
    return meaning ? GridStatus::Ok : GridStatus::InvalidAttribute;
}

GridStatus GridStyles::ReadColor(const Variant& value, std::optional<std::int32_t>& index) const {
    const std::string* name = value.TextIf();
    if (!name) {
        return GridStatus::InvalidAttribute;
    }
    const int* const found = colorsByName_.Find(*name);
    if (!found) {
        return Unknown(*name, GridStatus::UnknownColor);
    }
    index = *found;
    return GridStatus::Ok;
}

GridStatus GridStyles::ReadText(GridAttribute attribute, const Variant& value, std::optional<std::int32_t>& meaning) {
    const std::string* text = value.TextIf();
    if (!text) {
        return GridStatus::InvalidAttribute;
    }
    if (text->empty()) {
        return GridStatus::Ok;
    }
    if (attribute == GridAttribute::Font) {
        return ReadFont(*text, meaning);
    }
    return attribute == GridAttribute::Format ? ReadFormat(*text, meaning) : ReadBitmap(*text, meaning);
}

GridStatus GridStyles::ReadFont(const std::string& text, std::optional<std::int32_t>& index) {
    if (const int* const known = fontsByText_.Find(text)) {
        index = *known;
        return GridStatus::Ok;
    }
    std::optional<GridFont> font = ParseFont(text);
    if (!font || !IsValidUtf8(text)) {
        return Unknown(text, GridStatus::UnknownFont);
    }
    index = static_cast<std::int32_t>(fonts_.size());
    fonts_.push_back(std::move(*font));
    fontsByText_.Add(text, *index);
    return GridStatus::Ok;
}

GridStatus GridStyles::ReadFormat(const std::string& code, std::optional<std::int32_t>& index) {
    if (const int* const known = formatsByCode_.Find(code)) {
        index = *known;
        return GridStatus::Ok;
    }
    std::optional<NumberFormat> format = NumberFormat::Parse(code);
    if (!format || !IsValidUtf8(code)) {
        return Unknown(code, GridStatus::InvalidAttribute);
    }
    index = static_cast<std::int32_t>(formats_.size());
    formats_.push_back(std::move(*format));
    formatsByCode_.Add(code, *index);
    return GridStatus::Ok;
}

GridStatus GridStyles::ReadBitmap(const std::string& name, std::optional<std::int32_t>& index) const {
    const int* const found = bitmapsByName_.Find(name);
    if (!found) {
        return Unknown(name, GridStatus::UnknownBitmap);
    }
    index = *found;
    return GridStatus::Ok;
}

std::optional<GridFont> GridStyles::ParseFont(std::string_view text) const {
    GridFont font;
    font.name = TakePiece(text, ';');
    if (!font.name.empty() && !FontIsRegistered(font.name)) {
        return std::nullopt;
    }
    const std::string_view size = TakePiece(text, ';');
    if (!size.empty()) {
        const auto [end, error] = std::from_chars(size.data(), size.data() + size.size(), font.size);
        if (error != std::errc() || end != size.data() + size.size() || font.size < MinFontSize ||
            font.size > MaxFontSize) {
            return std::nullopt;
        }
    }
    std::string_view styles = TakePiece(text, ';');
    while (!styles.empty()) {
        const std::string_view style = TakePiece(styles, ' ');
        if (style == "Bold") {
            font.bold = true;
        } else if (style == "Cursiv") {
            font.italic = true;
        } else if (!style.empty() && style != "Normal") {
            return std::nullopt;
        }
    }
    return text.empty() ? std::optional(std::move(font)) : std::nullopt;
}

bool GridStyles::FontIsRegistered(std::string_view name) const noexcept {
    return fontNames_.empty() || std::any_of(fontNames_.begin(), fontNames_.end(), [name](const std::string& known) {
               return EqualIgnoringCase(known, name);
           });
}

StyleId GridStyles::With(StyleId style, GridAttribute attribute, std::optional<std::int32_t> meaning) {
    if (!meaning && !sets_[style].Has(attribute)) {
        return style;
    }
    const auto number = static_cast<std::uint32_t>(meaning.value_or(0));
    Step& step = steps_[(style * 31U + static_cast<std::uint32_t>(attribute) * 17U + number) % steps_.size()];
    if (step.from != style || step.attribute != attribute || step.meaning != meaning) {
        step = {style, attribute, meaning, Intern(Changed(sets_[style], attribute, meaning))};
    }
    return step.to;
}

AttributeSet GridStyles::Changed(AttributeSet set, GridAttribute attribute, std::optional<std::int32_t> meaning) {
    const std::uint16_t bit = AttributeSet::BitOf(attribute);
    const AttributeSet none;
    set.set = static_cast<std::uint16_t>(meaning ? set.set | bit : set.set & ~bit);
    switch (attribute) {
        case GridAttribute::BackgroundColor:
            set.background = static_cast<std::int16_t>(meaning.value_or(none.background));
            break;
        case GridAttribute::ForegroundColor:
            set.foreground = static_cast<std::int16_t>(meaning.value_or(none.foreground));
            break;
        case GridAttribute::Format:
            set.format = meaning.value_or(none.format);
            break;
        case GridAttribute::Font:
            set.font = meaning.value_or(none.font);
            break;
        case GridAttribute::Bitmap:
            set.bitmap = meaning.value_or(none.bitmap);
            break;
        case GridAttribute::Alignment:
            set.alignment = static_cast<std::int16_t>(meaning.value_or(none.alignment));
            break;
        case GridAttribute::BitmapAlignment:
            set.bitmapAlignment = static_cast<std::int16_t>(meaning.value_or(none.bitmapAlignment));
            break;
        default:
            set.flags = static_cast<std::uint16_t>(meaning.value_or(0) != 0 ? set.flags | bit : set.flags & ~bit);
            break;
    }
    return set;
}

StyleId GridStyles::Intern(const AttributeSet& set) {
    if (const StyleId* const known = stylesBySet_.Find(set)) {
        return *known;
    }
    const auto style = static_cast<StyleId>(sets_.size());
    sets_.push_back(set);
    stylesBySet_.Add(set, style);
    return style;
}

CellLook GridStyles::LookOf(const AttributeSet& merged) const noexcept {
    CellLook look;
    look.background = merged.background;
    look.foreground = merged.foreground;
    look.font = merged.font >= 0 ? &fonts_[static_cast<std::size_t>(merged.font)] : nullptr;
    look.format = merged.format >= 0 ? &formats_[static_cast<std::size_t>(merged.format)] : nullptr;
    look.bitmap = merged.bitmap >= 0 ? &bitmaps_[static_cast<std::size_t>(merged.bitmap)] : nullptr;
    look.bitmapAlignment = static_cast<GridAlignment>(merged.bitmapAlignment);
    look.hasAlignment = merged.Has(GridAttribute::Alignment);
    look.alignment = static_cast<GridAlignment>(merged.alignment);
    look.relief = merged.Flag(GridAttribute::Relief);
    look.readOnly = merged.Flag(GridAttribute::ReadOnly);
    look.textLine = merged.Flag(GridAttribute::TextLine);
    look.helpLine = merged.Flag(GridAttribute::HelpLine);
    look.computed = merged.Flag(GridAttribute::Computed);
    return look;
}

}  // namespace planview
