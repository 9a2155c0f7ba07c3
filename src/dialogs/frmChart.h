// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>

#include <planview/Export.h>

#include "automation/NumberFormat.h"
#include "components/chart/ChartTypes.h"
#include "dialogs/PropertyForm.h"

namespace planview {

/// A number as the user enters it. It is shown in the control's own form, without groups.
struct PLANVIEW_EXPORT NumberBox {
    std::string Caption;
    std::string Text;
    /// What the number belongs to shows its numbers by this code, and so a text is read; null for any number.
    const NumberFormat* Format = nullptr;

    void Set(double value);
    /// As Set(); 0 leaves the box empty.
    void SetOrEmpty(double value);
    /// The number; 0 for an empty box, none for what is no number.
    [[nodiscard]] std::optional<double> Value() const;
    /// Shows the number as it was read where the text could have meant another one.
    void Settle();
};

/// The options of the chart.
class PLANVIEW_EXPORT frmChart final : public PropertyForm {
public:
    static constexpr std::string_view FormName = "frmChart";
    /// The chart types in the order of the options.
    static constexpr std::array<ChartType, 6> Types{ChartType::Column,           ChartType::StackedColumn,
                                                    ChartType::StackedColumn100, ChartType::Line,
                                                    ChartType::StackedLine,      ChartType::StackedLine100};
    static constexpr int MostCategories = 32766;

    frmChart(Forms& forms, MessageBoxes& messageBoxes, ColorChooser chooseColor)
        : PropertyForm(forms, std::move(chooseColor)), messageBoxes_(messageBoxes) {}

    [[nodiscard]] std::string_view Name() const noexcept override { return FormName; }
    [[nodiscard]] std::string_view Caption() const noexcept override { return "Chart options"; }

    std::string fraType;
    std::array<OptionButton, Types.size()> optType;
    std::string fraTitle;
    std::string lblTitle;
    std::string txtTitle;
    std::string lblFont;
    ListBox ListFont;  ///< the first item is the view's own font
    std::string fraAxis;
    CheckBox chkMinAuto;
    NumberBox txtMin;
    CheckBox chkMaxAuto;
    NumberBox txtMax;
    CheckBox chkLabelY;
    std::string fraRange;
    NumberBox txtMinRange;
    NumberBox txtMaxRange;
    NumberBox txtOptimum;
    std::string fraCategories;
    CheckBox chkLabelX;
    std::string lblOrientation;
    ListBox ListOrientation;  ///< by LabelOrientation
    CheckBox chkScrollBar;
    NumberBox txtCategories;
    std::string fraLegend;
    CheckBox chkLegend;
    std::string lblPosition;
    ListBox ListPosition;  ///< by LegendPosition
    std::string fraColors;
    ColorBox picArea{ViewColor::Base};
    ColorBox picPlot{ViewColor::Base};
    ColorBox picLegend{ViewColor::Base};
    std::string fraPermissions;
    CheckBox chkSelection;
    CheckBox chkChange;

    void Set_Text();
    /// How the value axis writes its numbers; whole and grouped where the code is none.
    void Set_Format(std::string_view code);
    /// None where the chart mixes several.
    void Set_Type(std::optional<ChartType> type);
    [[nodiscard]] std::optional<ChartType> Get_Type() const;
    /// An empty name chooses the view's own font.
    void Set_Font(std::string_view name);
    [[nodiscard]] std::string Get_Font() const;
    [[nodiscard]] std::int16_t Get_Categories() const;

    void picArea_Click() { Click(picArea); }
    void picPlot_Click() { Click(picPlot); }
    void picLegend_Click() { Click(picLegend); }

protected:
    [[nodiscard]] std::string_view TraceLabel() const noexcept override { return "FRMCHART"; }
    [[nodiscard]] std::string_view ButtonLabel() const noexcept override { return TraceLabel(); }
    void OnLoad() override;
    [[nodiscard]] bool Accept() override;

private:
    /// What is wrong with the entries, as a sentence for the user; empty when nothing is.
    [[nodiscard]] std::string Fault() const;

    MessageBoxes& messageBoxes_;
    std::optional<NumberFormat> format_;
};

}  // namespace planview
