#pragma once

#include <QPointer>
#include <QWidget>

#include <planview/Platform.h>

class QMenu;

namespace planview {

class GridView;

/// Popup menus of the desktop, in the colours of the grid they belong to.
class QtPopups final : public Popups {
public:
    explicit QtPopups(QWidget& control);
    ~QtPopups() override;
    QtPopups(const QtPopups&) = delete;
    QtPopups& operator=(const QtPopups&) = delete;

    /// The grid whose current cell and colours the popups follow; until then they open at the control.
    void setGrid(GridView* grid);

    std::string Choose(const PopupMenu& menu, PopupPlace place) override;

private:
    [[nodiscard]] QPoint positionOf(PopupPlace place) const;
    void applyLook(QMenu& menu) const;

    QPointer<QWidget> control_;
    QPointer<GridView> grid_;
};

}  // namespace planview
