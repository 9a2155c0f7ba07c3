// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Variant.h>

#include "automation/FlatMap.h"
#include "components/GridAttributes.h"
#include "components/GridStyle.h"
#include "components/GridTypes.h"

namespace planview {

/// Names a set of layered attributes; equal sets have the same number.
using StyleId = std::uint32_t;

/// The set that sets nothing.
inline constexpr StyleId PlainStyle = 0;

/// The layered attributes that one element has of its own. Attributes that are not set keep their default here, so that
/// equal sets compare equal.
struct AttributeSet {
    std::uint16_t set = 0;    ///< a bit per layered attribute
    std::uint16_t flags = 0;  ///< the values of the boolean ones, by the same bits
    std::int16_t background = -1;
    std::int16_t foreground = -1;
    // Indices into the lists of GridStyles.
    std::int32_t font = -1;
    std::int32_t format = -1;
    std::int32_t bitmap = -1;
    std::int16_t alignment = 0;
    std::int16_t bitmapAlignment = 0;
    friend bool operator==(const AttributeSet&, const AttributeSet&) = default;

    [[nodiscard]] static constexpr std::uint16_t BitOf(GridAttribute attribute) noexcept {
        return static_cast<std::uint16_t>(1U << static_cast<unsigned>(attribute));
    }
    [[nodiscard]] bool Has(GridAttribute attribute) const noexcept { return (set & BitOf(attribute)) != 0; }
    [[nodiscard]] bool Flag(GridAttribute attribute) const noexcept { return (flags & BitOf(attribute)) != 0; }
    /// Takes over everything that the layer above sets.
    void LayOver(const AttributeSet& above) noexcept;
};

struct AttributeSetHash {
    std::size_t operator()(const AttributeSet& set) const noexcept;
};

/// The looks of a grid: named colours, bitmaps and fonts, number formats, and the attribute sets that its elements
/// share. A set is never dropped before Clear(): there are few of them, however many cells use them.
class GridStyles {
public:
    GridStyles();

    GridStatus CreateColor(std::string_view name, std::uint8_t red, std::uint8_t green, std::uint8_t blue);
    [[nodiscard]] std::span<const GridColor> Colors() const noexcept { return colors_; }
    void RegisterBitmap(std::string_view name);
    void RegisterFonts(std::vector<std::string> names);
    /// Drops colours and attribute sets; registered bitmaps and fonts stay.
    void Clear();

    /// What a value means for a layered attribute. `meaning` gets the number to pass to With(), or no value if an empty
    /// text removes the attribute.
    GridStatus Read(GridAttribute attribute, const Variant& value, std::optional<std::int32_t>& meaning);
    /// The colour's index, or why there is none.
    GridStatus ReadColor(const Variant& value, std::optional<std::int32_t>& index) const;

    /// The set that differs from `style` in this attribute.
    [[nodiscard]] StyleId With(StyleId style, GridAttribute attribute, std::optional<std::int32_t> meaning);
    [[nodiscard]] const AttributeSet& Set(StyleId style) const noexcept { return sets_[style]; }
    [[nodiscard]] CellLook LookOf(const AttributeSet& merged) const noexcept;

private:
    /// A change that has been made before: cells repeat a few of these thousands of times.
    struct Step {
        StyleId from = UINT32_MAX;
        GridAttribute attribute = GridAttribute::BackgroundColor;
        std::optional<std::int32_t> meaning;
        StyleId to = PlainStyle;
    };

    [[nodiscard]] static AttributeSet Changed(AttributeSet set, GridAttribute attribute,
                                              std::optional<std::int32_t> meaning);
    GridStatus ReadText(GridAttribute attribute, const Variant& value, std::optional<std::int32_t>& meaning);
    GridStatus ReadFont(const std::string& text, std::optional<std::int32_t>& index);
    GridStatus ReadFormat(const std::string& code, std::optional<std::int32_t>& index);
    GridStatus ReadBitmap(const std::string& name, std::optional<std::int32_t>& index) const;
    [[nodiscard]] std::optional<GridFont> ParseFont(std::string_view text) const;
    [[nodiscard]] bool FontIsRegistered(std::string_view name) const noexcept;
    [[nodiscard]] StyleId Intern(const AttributeSet& set);

    std::vector<GridColor> colors_;
    NameMap colorsByName_;
    std::deque<std::string> bitmaps_;
    NameMap bitmapsByName_;
    std::vector<std::string> fontNames_;
    std::deque<GridFont> fonts_;
    NameMap fontsByText_;
    std::deque<NumberFormat> formats_;
    NameMap formatsByCode_;
    std::vector<AttributeSet> sets_;
    std::array<Step, 256> steps_;
    FlatMap<AttributeSet, StyleId, AttributeSetHash> stylesBySet_;
};

}  // namespace planview
