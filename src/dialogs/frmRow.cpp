// SPDX-License-Identifier: MIT
#include "dialogs/frmRow.h"

#include <algorithm>
#include <charconv>

#include "grid/Selection.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

/// The last one has no option: it stays while none is chosen.
enum FontType : std::size_t { Cursiv, Bold, Normal, BoldCursiv };

constexpr std::array<std::string_view, 4> TypeNames{"Cursiv", "Bold", "Normal", "Bold Cursiv"};

std::string_view TakePiece(std::string_view& text) {
    const std::size_t end = std::min(text.find(';'), text.size());
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return piece;
}

std::optional<int> WholeNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

template <std::size_t Count>
void ChooseOption(std::array<OptionButton, Count>& options, std::size_t chosen) {
    for (std::size_t i = 0; i < Count; ++i) {
        options[i].Value = i == chosen;
    }
}

/// The last chosen option wins; `otherwise` where none is.
template <std::size_t Count>
std::size_t ChosenOption(const std::array<OptionButton, Count>& options, std::size_t otherwise) {
    std::size_t chosen = otherwise;
    for (std::size_t i = 0; i < Count; ++i) {
        chosen = options[i].Value ? i : chosen;
    }
    return chosen;
}

}  // namespace

void frmRow::OnLoad() {
    ListFont = {};
    for (const char* name : {"Arial", "Courier", "Courier New", "Lucida", "Times New Roman"}) {
        ListFont.Items.emplace_back(name);
    }
    ListFont.Choose("Lucida");
    ListSize = {};
    for (const char* size : {"8", "10", "12", "14"}) {
        ListSize.Items.emplace_back(size);
    }
    ListSize.Choose("12");
    ChooseOption(optType, Normal);
}

void frmRow::Set_Text() {
    chkChart.Caption = "Show in Chart";
    chkRelief.Caption = "Relief";
    fraAlign = "Text alignment";
    optAlign[0].Caption = "Right";
    optAlign[1].Caption = "Left";
    optAlign[2].Caption = "Center";
    lblHeight = "Height";
    cmdResetCaption = "Reset";
    lblFont = "Font";
    lblSize = "Size";
    for (std::size_t i = 0; i < optType.size(); ++i) {
        optType[i].Caption = TypeNames[i];
    }
    picBgColor.Caption = "Background color";
    picFgColor.Caption = "Foreground color";
    SetButtonTexts();
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(TraceLabel(), "", "Set_Text", TraceText("{value: ", Caption(), "}"));
    }
}

void frmRow::Set_Font(std::string_view font) {
    std::string_view rest = font;
    ListFont.Choose(TakePiece(rest));
    ListSize.Choose(TakePiece(rest));
    const bool bold = rest.find(TypeNames[Bold]) != std::string_view::npos;
    const bool cursiv = rest.find(TypeNames[Cursiv]) != std::string_view::npos;
    ChooseOption(optType, bold && cursiv ? BoldCursiv : bold ? Bold : cursiv ? Cursiv : Normal);
    givenFont_ = font;
    isBoldCursiv_ = bold && cursiv;
    givenChoice_ = ChosenFont();
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(TraceLabel(), "", "Set row font", TraceText(" {font: ", font, "}"));
    }
}

void frmRow::Set_Alignment(int alignment) {
    ChooseOption(optAlign, alignment < 0 ? optAlign.size() : static_cast<std::size_t>(alignment));
}

void frmRow::Set_Height(int height) {
    givenHeight_ = static_cast<std::int16_t>(height);
    txtHeight = std::to_string(height);
}

void frmRow::OfferFonts(std::span<const std::string> names) {
    const int chosen = ListFont.ListIndex;
    for (const std::string& name : names) {
        ListFont.Choose(name);
    }
    ListFont.ListIndex = chosen;
}

frmRow::FontChoice frmRow::ChosenFont() const {
    return {ListFont.Text(), ListSize.Text(), ChosenOption(optType, isBoldCursiv_ ? BoldCursiv : Normal)};
}

std::string frmRow::FontText() const {
    const FontChoice choice = ChosenFont();
    if (choice == givenChoice_) {
        return givenFont_;
    }
    return choice.name + ";" + choice.size + ";" + std::string(TypeNames[choice.type]);
}

std::int16_t frmRow::Alignment() const {
    return static_cast<std::int16_t>(ChosenOption(optAlign, 0));
}

std::optional<std::int16_t> frmRow::Height() const {
    const std::optional<int> height = WholeNumber(txtHeight);
    const bool usable =
        height && (*height == 0 || *height == givenHeight_ || (*height >= LeastHeight && *height <= MostHeight));
    return usable ? std::optional(static_cast<std::int16_t>(*height)) : std::nullopt;
}

void frmRow::cmdReset_Click() {
    txtHeight = std::to_string(ResetRowHeight);
}

bool frmRow::Accept() {
    if (Height()) {
        FontRC = FontText();
        SizeRC = ListSize.Text();
        return true;
    }
    messageBoxes_.Show({std::string(HeightMessage), std::string(Caption()), MessageButtons::Ok,
                        MessageIcon::Exclamation, MessageAnswer::Ok});
    return false;
}

}  // namespace planview
