// SPDX-License-Identifier: MIT
#include "dialogs/frmChart.h"

#include <cmath>

#include "automation/EnteredNumber.h"
#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

constexpr const char* OwnFont = "(as the grid)";

bool HasFixedNumber(const CheckBox& automatic) {
    return automatic.Value != 1;
}

}  // namespace

void NumberBox::Set(double value) {
    Text = NumberText(value, GridDecimalMark);
}

void NumberBox::SetOrEmpty(double value) {
    Text = value == 0 ? std::string() : NumberText(value, GridDecimalMark);
}

std::optional<double> NumberBox::Value() const {
    const std::optional<EnteredNumber> read = ReadEntered(Text, Format);
    return Trimmed(Text).empty() ? std::optional(0.0) : read ? std::optional(read->number) : std::nullopt;
}

void NumberBox::Settle() {
    if (const std::optional<EnteredNumber> read = ReadEntered(Text, Format); read && read->other) {
        Set(read->number);
    }
}

void frmChart::OnLoad() {
    ListOrientation = {};
    for (const char* item : {"Automatic", "Horizontal", "Slanted", "Vertical"}) {
        ListOrientation.Items.emplace_back(item);
    }
    ListPosition = {};
    for (const char* item : {"Right", "Left", "Top", "Bottom"}) {
        ListPosition.Items.emplace_back(item);
    }
    ListFont = {};
    for (const char* item : {OwnFont, "Arial", "Courier New", "Times New Roman"}) {
        ListFont.Items.emplace_back(item);
    }
}

void frmChart::Set_Text() {
    fraType = "Chart type";
    constexpr std::array<const char*, Types.size()> TypeNames{"Columns", "Stacked columns", "Stacked columns 100%",
                                                              "Lines",   "Stacked lines",   "Stacked lines 100%"};
    for (std::size_t i = 0; i < optType.size(); ++i) {
        optType[i].Caption = TypeNames[i];
    }
    fraTitle = "Title";
    lblTitle = "Text";
    lblFont = "Font";
    fraAxis = "Value axis";
    chkMinAuto.Caption = "Automatic minimum";
    txtMin.Caption = "Minimum";
    chkMaxAuto.Caption = "Automatic maximum";
    txtMax.Caption = "Maximum";
    chkLabelY.Caption = "Show values";
    fraRange = "Value range";
    txtMinRange.Caption = "From";
    txtMaxRange.Caption = "To";
    txtOptimum.Caption = "Optimum";
    fraCategories = "Periods";
    chkLabelX.Caption = "Show periods";
    lblOrientation = "Direction";
    chkScrollBar.Caption = "Scroll bar";
    txtCategories.Caption = "Visible periods";
    fraLegend = "Legend";
    chkLegend.Caption = "Show legend";
    lblPosition = "Place";
    fraColors = "Colors";
    picArea.Caption = "Chart";
    picPlot.Caption = "Plot area";
    picLegend.Caption = "Legend";
    fraPermissions = "Permissions";
    chkSelection.Caption = "Select in the chart";
    chkChange.Caption = "Change values by dragging";
    SetButtonTexts();
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(TraceLabel(), "", "Set_Text", TraceText("{value: ", Caption(), "}"));
    }
}

void frmChart::Set_Format(std::string_view code) {
    format_ = NumberFormat::Parse(code);
    if (!format_) {
        format_ = NumberFormat::Parse("#,##0.##########");  // as the axis writes them without a code
    }
    for (NumberBox* box : {&txtMin, &txtMax, &txtMinRange, &txtMaxRange, &txtOptimum, &txtCategories}) {
        box->Format = &*format_;
    }
}

void frmChart::Set_Type(std::optional<ChartType> type) {
    for (std::size_t i = 0; i < Types.size(); ++i) {
        optType[i].Value = Types[i] == type;
    }
}

std::optional<ChartType> frmChart::Get_Type() const {
    std::optional<ChartType> type;
    for (std::size_t i = 0; i < Types.size(); ++i) {
        type = optType[i].Value ? std::optional(Types[i]) : type;
    }
    return type;
}

void frmChart::Set_Font(std::string_view name) {
    ListFont.Choose(name.empty() ? OwnFont : name);
}

std::string frmChart::Get_Font() const {
    return ListFont.ListIndex <= 0 ? std::string() : ListFont.Text();
}

std::int16_t frmChart::Get_Categories() const {
    return RoundToInt16(txtCategories.Value().value_or(1));
}

std::string frmChart::Fault() const {
    for (const NumberBox* box : {&txtMin, &txtMax, &txtMinRange, &txtMaxRange, &txtOptimum, &txtCategories}) {
        if (!box->Value()) {
            return box->Caption + ": \"" + box->Text +
                   "\" is not a number. Enter digits with a point or a comma, or nothing.";
        }
    }
    const double categories = *txtCategories.Value();
    if (categories < 1 || categories > MostCategories || categories != std::floor(categories)) {
        return txtCategories.Caption + ": enter a whole number from 1 to " + std::to_string(MostCategories) + ".";
    }
    if (HasFixedNumber(chkMinAuto) && HasFixedNumber(chkMaxAuto) && *txtMin.Value() >= *txtMax.Value()) {
        return "The minimum of the value axis must be below its maximum.";
    }
    if (*txtMaxRange.Value() > 0 && *txtMinRange.Value() > *txtMaxRange.Value()) {
        return "The value range must end above the value it starts from.";
    }
    return {};
}

bool frmChart::Accept() {
    const std::string fault = Fault();
    if (fault.empty()) {
        return true;
    }
    messageBoxes_.Show(
        {fault, std::string(Caption()), MessageButtons::Ok, MessageIcon::Exclamation, MessageAnswer::Ok});
    return false;
}

}  // namespace planview
