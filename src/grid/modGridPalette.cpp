// SPDX-License-Identifier: MIT
#include "grid/modGrid.h"

namespace planview {

namespace {

struct PaletteColor {
    std::string_view name;
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

constexpr std::array<PaletteColor, modGrid::PaletteSize> Palette{{
    {"tovWhite", 255, 255, 255},
    {"tovBlack", 0, 0, 0},
    {"tovBlue", 0, 0, 128},
    {"tovGreen", 0, 128, 0},
    {"tovCyan", 0, 128, 128},
    {"tovRed", 128, 0, 0},
    {"tovMagenta", 128, 0, 128},
    {"tovYellow", 128, 128, 0},
    {"tovGray", 192, 192, 192},
    {"tovDarkGray", 128, 128, 128},
    {"tovLightBlue", 0, 0, 255},
    {"tovLightGreen", 0, 255, 0},
    {"tovLightCyan", 0, 255, 255},
    {"tovLightRed", 255, 0, 0},
    {"tovLightMagenta", 255, 0, 255},
    {"tovLightYellow", 255, 255, 0},
}};

}  // namespace

void modGrid::CreatePalette() {
    for (std::size_t i = 0; i < Palette.size(); ++i) {
        const PaletteColor& color = Palette[i];
        colorNames_[i] = color.name;
        CreateColor(color.name, color.red, color.green, color.blue);
    }
}

Rgb modGrid::PaletteColorOf(std::int16_t index) noexcept {
    const bool known = index >= 0 && index < PaletteSize;
    const PaletteColor& color = Palette[known ? static_cast<std::size_t>(index) : 0];
    return {color.red, color.green, color.blue};
}

std::string_view modGrid::PaletteName(std::int16_t index) noexcept {
    const bool known = index >= 0 && index < PaletteSize;
    return Palette[known ? static_cast<std::size_t>(index) : 0].name;
}

}  // namespace planview
