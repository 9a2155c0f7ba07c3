// SPDX-License-Identifier: MIT
#pragma once

#include "qt/dialogs/ThemedDialog.h"
#include "qt/dialogs/UploadModel.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace planview {

class RowList;

/// The window of an upload's preview: a list of the changes with their ticks, what does not match, and a filter.
class UploadDialog final : public ThemedDialog {
    Q_OBJECT

public:
    UploadDialog(frmUpload& form, QWidget* parent);

    void setTheme(const GridTheme& theme) override;
    /// The controls are made when the window is first shown: the form has its texts by then.
    void setVisible(bool visible) override;
    void accept() override;
    void reject() override;
    void endForm() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    void buildHead(QVBoxLayout& layout);
    void buildFilterLine(QVBoxLayout& layout);
    void buildList(QVBoxLayout& layout);
    void buildButtons(QVBoxLayout& layout);
    void filter();
    void tick(const QModelIndexList& rows, bool on);
    /// All that the filter shows.
    void tickShown(bool on);
    void tickSelected();
    void showState();

    frmUpload* form_;
    UploadModel* model_;
    UploadFilter* filter_;
    QLineEdit* words_ = nullptr;
    QComboBox* show_ = nullptr;
    QLabel* count_ = nullptr;
    RowList* list_ = nullptr;
    GridTheme theme_ = GridTheme::light();
    QPushButton* apply_ = nullptr;
};

}  // namespace planview
