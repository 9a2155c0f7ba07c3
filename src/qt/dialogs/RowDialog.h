// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/frmRow.h"
#include "qt/dialogs/FormDialog.h"

class QLabel;
class QLineEdit;

namespace planview {

class RowPreview;

/// The window of frmRow, with a preview of the row as it would look.
class RowDialog final : public FormDialog {
    Q_OBJECT

public:
    RowDialog(frmRow& form, QWidget* parent) : FormDialog(form, parent), form_(form) {}

    void setTheme(const GridTheme& theme) override;

protected:
    void build() override;
    void showState() override;
    void stateChanged() override;

private:
    void buildLayoutColumn(QVBoxLayout& column);
    void buildTextColumn(QVBoxLayout& column);
    void addHeight(QGridLayout& section);

    frmRow& form_;
    RowPreview* preview_ = nullptr;
    QLineEdit* height_ = nullptr;
    QLabel* heightMessage_ = nullptr;
    QLabel* fontNote_ = nullptr;
};

}  // namespace planview
