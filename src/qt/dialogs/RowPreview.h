// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "components/GridControl.h"
#include "dialogs/frmRow.h"
#include "qt/GuardedWidget.h"
#include "qt/grid/GridTheme.h"

namespace planview {

class GridView;

/// Shows the row of a form as the grid would, with its label and its first cells.
class RowPreview final : public GuardedWidget<QWidget> {
    Q_OBJECT

public:
    RowPreview(const frmRow& form, const EntryGuard& dialog, QWidget* parent);
    ~RowPreview() override;

    void setTheme(const GridTheme& theme);
    /// Shows what the form holds now.
    void follow();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void createGrid();
    void setCenter(GridAttribute attribute, const Variant& value);

    const frmRow& form_;
    GridControl grid_;
    GridView* view_;
    GridTheme theme_ = GridTheme::light();
};

}  // namespace planview
