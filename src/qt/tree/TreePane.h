// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include "qt/panes/PaneHeading.h"
#include "qt/tree/TreeView.h"

namespace planview {

/// The pane with the macro tree under its heading.
class TreePane final : public QWidget {
    Q_OBJECT

public:
    TreePane(TreeControl& tree, GridBitmaps& bitmaps, std::shared_ptr<void> owner = nullptr, QWidget* parent = nullptr);

    [[nodiscard]] TreeView& view() const { return *view_; }

    void setTheme(const GridTheme& theme);
    void setTextScale(double scale);
    /// Paints the pane elsewhere.
    void paintOn(QPainter& painter, const QRect& rect) const;

    [[nodiscard]] QSize minimumSizeHint() const override { return heading_->minimumSizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeParts();

    PaneHeading* heading_;  // both are children
    TreeView* view_;
};

}  // namespace planview
