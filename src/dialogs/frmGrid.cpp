// SPDX-License-Identifier: MIT
#include "dialogs/frmGrid.h"

#include "trace/TraceText.h"

namespace planview {

void frmGrid::Set_Text() {
    chkMove.Caption = "Allow move of columns and rows";
    chkResize.Caption = "Allow resize of columns and rows";
    chkSingleValue.Caption = "Fire single value changes";
    optDrag[0].Caption = "No drag and drop";
    optDrag[1].Caption = "Drag and drop allowed";
    optDrag[2].Caption = "Drag and drop only inside grid";
    picBgColor.Caption = "Background color";
    picGridlines.Caption = "Gridlines color";
    SetButtonTexts();
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(TraceLabel(), "", "Set_Text", TraceText("{value: ", Caption(), "}"));
    }
}

void frmGrid::Set_DragMode(int mode) {
    for (std::size_t i = 0; i < optDrag.size(); ++i) {
        optDrag[i].Value = static_cast<int>(i) == mode;
    }
}

}  // namespace planview
