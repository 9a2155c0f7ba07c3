// SPDX-License-Identifier: MIT
#include "qt/dialogs/GridOptionsDialog.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QVBoxLayout>

namespace planview {

void GridOptionsDialog::build() {
    QGridLayout* headings = addSection(*content(), tr("Columns and rows"));
    addCheckBox(*headings, form_.chkMove, 'm');
    addCheckBox(*headings, form_.chkResize, 'r');

    QGridLayout* drag = addSection(*content(), tr("Drag and drop"));
    addOptions(*drag, form_.optDrag, "ndi", Qt::Vertical);

    QGridLayout* values = addSection(*content(), tr("Values"));
    addCheckBox(*values, form_.chkSingleValue, 'f')
        ->setToolTip(tr("Pasting, filling and deleting announce every cell by itself"));

    QGridLayout* colors = addSection(*content(), tr("Colors"));
    addColor(*colors, form_.picBgColor, 'b', [this] { form_.picBgColor_Click(); });
    addColor(*colors, form_.picGridlines, 'g', [this] { form_.picGridlines_Click(); });
}

}  // namespace planview
