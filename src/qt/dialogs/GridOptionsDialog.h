// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/frmGrid.h"
#include "qt/dialogs/FormDialog.h"

namespace planview {

/// The window of frmGrid.
class GridOptionsDialog final : public FormDialog {
    Q_OBJECT

public:
    GridOptionsDialog(frmGrid& form, QWidget* parent) : FormDialog(form, parent), form_(form) {}

protected:
    void build() override;

private:
    frmGrid& form_;
};

}  // namespace planview
