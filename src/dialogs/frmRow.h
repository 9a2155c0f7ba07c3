// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include <planview/Export.h>

#include "dialogs/PropertyForm.h"

namespace planview {

/// What a preview of the row needs beside the form's own controls.
struct RowSample {
    std::vector<std::string> headings;  ///< of its first planning cells
    std::vector<std::string> contents;  ///< of the same cells
    std::string format;
    bool readOnly = false;
    bool textLine = false;
    bool helpLine = false;
    std::int16_t background = 0;  ///< palette index: the grid's own
    std::int16_t gridLines = 0;   ///< palette index: between its cells
};

/// The look of one grid row.
class PLANVIEW_EXPORT frmRow final : public PropertyForm {
public:
    static constexpr std::string_view FormName = "frmRow";
    /// Heights that the user may enter; also 0, which takes the grid's usual height, and the height the row came with.
    static constexpr int LeastHeight = 8;
    static constexpr int MostHeight = 400;
    static constexpr std::string_view HeightMessage =
        "The height must be a whole number from 8 to 400, or 0 for the usual height.";

    frmRow(Forms& forms, MessageBoxes& messageBoxes, ColorChooser chooseColor)
        : PropertyForm(forms, std::move(chooseColor)), messageBoxes_(messageBoxes) {}

    [[nodiscard]] std::string_view Name() const noexcept override { return FormName; }
    [[nodiscard]] std::string_view Caption() const noexcept override { return "Row properties"; }

    std::string lblRowLabel;
    CheckBox chkChart;
    CheckBox chkRelief;
    std::string fraAlign;
    std::array<OptionButton, 3> optAlign;  ///< by `ROW_ALIGN`
    std::string lblHeight;
    std::string cmdResetCaption;
    std::string txtHeight;
    std::string lblFont;
    ListBox ListFont;
    std::string lblSize;
    ListBox ListSize;
    std::array<OptionButton, 3> optType;  ///< Cursiv, Bold, Normal; none while the font is bold and cursive at once
    ColorBox picBgColor{ViewColor::Background};
    ColorBox picFgColor{ViewColor::Text};
    /// `ROW_FONT` and the size in it as they were when the OK button was pressed.
    std::string FontRC;
    std::string SizeRC;
    RowSample Sample;

    void Set_Text();
    /// A row looks the same in layout mode: nothing of the form depends on it.
    void Set_Layoutmode(bool /*layoutMode*/) noexcept {}
    void Set_BgColor(int index) noexcept { picBgColor.Set(index); }
    [[nodiscard]] std::int16_t Get_BgColor() const noexcept { return picBgColor.Get(); }
    void Set_FgColor(int index) noexcept { picFgColor.Set(index); }
    [[nodiscard]] std::int16_t Get_FgColor() const noexcept { return picFgColor.Get(); }
    /// Chooses what a `ROW_FONT` text names; names and sizes that the lists do not have are added to them.
    void Set_Font(std::string_view font);
    void Set_Alignment(int alignment);
    void Set_Height(int height);

    /// Fonts that the desktop has, to choose from beside the form's own.
    void OfferFonts(std::span<const std::string> names);
    /// The font as `ROW_FONT` keeps it. The text that Set_Font() was given, as long as the user chooses nothing else.
    [[nodiscard]] std::string FontText() const;
    [[nodiscard]] std::int16_t Alignment() const;
    /// The height that was entered; none where it is no height that can be taken.
    [[nodiscard]] std::optional<std::int16_t> Height() const;

    void picBgColor_Click() { Click(picBgColor); }
    void picFgColor_Click() { Click(picFgColor); }
    void cmdReset_Click();

protected:
    [[nodiscard]] std::string_view TraceLabel() const noexcept override { return "FRMROW"; }
    void OnLoad() override;
    [[nodiscard]] bool Accept() override;

private:
    struct FontChoice {
        std::string name;
        std::string size;
        std::size_t type = 0;
        friend bool operator==(const FontChoice&, const FontChoice&) = default;
    };
    [[nodiscard]] FontChoice ChosenFont() const;

    MessageBoxes& messageBoxes_;
    std::string givenFont_;
    bool isBoldCursiv_ = false;  // until an option is chosen
    FontChoice givenChoice_;
    std::int16_t givenHeight_ = 0;
};

}  // namespace planview
