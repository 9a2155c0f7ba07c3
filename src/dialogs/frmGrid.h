// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include <planview/Export.h>

#include "dialogs/PropertyForm.h"

namespace planview {

/// The general options of the grid.
class PLANVIEW_EXPORT frmGrid final : public PropertyForm {
public:
    static constexpr std::string_view FormName = "frmGrid";

    using PropertyForm::PropertyForm;

    [[nodiscard]] std::string_view Name() const noexcept override { return FormName; }
    [[nodiscard]] std::string_view Caption() const noexcept override { return "Grid general options"; }

    CheckBox chkMove;
    CheckBox chkResize;
    CheckBox chkSingleValue;
    std::array<OptionButton, 3> optDrag;
    ColorBox picBgColor{ViewColor::Base};
    ColorBox picGridlines{ViewColor::GridLines};

    void Set_Text();
    /// Every drag mode can be chosen in every layout, else the user could not return to the one he had.
    void Set_Layoutmode(bool /*layoutMode*/) noexcept {}
    void Set_BgColor(int index) noexcept { picBgColor.Set(index); }
    [[nodiscard]] std::int16_t Get_BgColor() const noexcept { return picBgColor.Get(); }
    void Set_GridLinesColor(int index) noexcept { picGridlines.Set(index); }
    [[nodiscard]] std::int16_t Get_GridLinesColor() const noexcept { return picGridlines.Get(); }
    /// Chooses the option of this drag mode.
    void Set_DragMode(int mode);

    void picBgColor_Click() { Click(picBgColor); }
    void picGridlines_Click() { Click(picGridlines); }

protected:
    [[nodiscard]] std::string_view TraceLabel() const noexcept override { return "FRMGRID"; }
};

}  // namespace planview
