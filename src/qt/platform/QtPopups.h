// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include <planview/Platform.h>

class QMenu;

namespace planview {

class ChartView;
class GridView;
class TreeView;

/// Popup menus of the desktop, in the colours of the grid they belong to.
class QtPopups final : public Popups {
public:
    explicit QtPopups(QWidget& control);
    ~QtPopups() override;
    QtPopups(const QtPopups&) = delete;
    QtPopups& operator=(const QtPopups&) = delete;

    /// The grid whose current cell and colours the popups follow; until then they open at the control.
    void setGrid(GridView* grid);
    /// The chart, whose popups open at the mouse, or at what is selected in it when a key has asked for them.
    void setChart(ChartView* chart);

    /// The macro tree, whose popups open below the selected node while it has the focus.
    void setTree(TreeView* tree);

    std::string Choose(const PopupMenu& menu, PopupPlace place) override;

private:
    class LastAsked;

    [[nodiscard]] QPoint placeInChart() const;
    [[nodiscard]] QPoint positionOf(PopupPlace place) const;
    void applyLook(QMenu& menu) const;

    QPointer<QWidget> control_;
    QPointer<GridView> grid_;
    QPointer<ChartView> chart_;
    QPointer<TreeView> tree_;
    std::unique_ptr<LastAsked> asked_;
};

}  // namespace planview
