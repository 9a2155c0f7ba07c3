// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/frmChart.h"
#include "qt/dialogs/FormDialog.h"

namespace planview {

/// The window of frmChart.
class ChartDialog final : public FormDialog {
    Q_OBJECT

public:
    ChartDialog(frmChart& form, QWidget* parent) : FormDialog(form, parent), form_(form) {}

protected:
    void build() override;
    void showState() override;
    void stateChanged() override;

private:
    void buildLookColumn(QVBoxLayout& column);
    void buildAxisColumn(QVBoxLayout& column);
    void buildPeriodColumn(QVBoxLayout& column);
    QLineEdit* addNumber(QGridLayout& section, NumberBox& state, char mnemonic);

    frmChart& form_;
    // Fields that count only while something else is chosen.
    QLineEdit* minimum_ = nullptr;
    QLineEdit* maximum_ = nullptr;
    QLineEdit* categories_ = nullptr;
    QComboBox* orientation_ = nullptr;
    QComboBox* position_ = nullptr;
};

}  // namespace planview
