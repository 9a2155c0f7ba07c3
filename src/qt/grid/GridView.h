// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QImage>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "components/AxisLayout.h"
#include "components/GridControl.h"
#include "qt/GuardedWidget.h"
#include "qt/grid/GridBitmaps.h"
#include "qt/grid/GridEditor.h"
#include "qt/grid/GridFonts.h"
#include "qt/grid/GridGeometry.h"
#include "qt/grid/GridHit.h"
#include "qt/grid/GridMouse.h"
#include "qt/grid/GridNavigation.h"
#include "qt/grid/GridScene.h"
#include "qt/grid/GridTheme.h"
#include "qt/grid/GridWheel.h"
#include "qt/grid/PendingMarks.h"

class QDrag;
class QHelpEvent;

namespace planview {

class GridTeller;

/// Shows a GridControl and hands it what the user does.
///
/// The grid keeps the scroll position, the selection and the sizes; the view keeps only what belongs to the screen: the
/// theme, the scale and where everything stands. The host may delete the view from inside an event that an input
/// raised; so every handler checks that the view still exists after telling the grid.
class GridView final : public GuardedView<QAbstractScrollArea>, private GridWatcher {
    Q_OBJECT

public:
    /// `owner` keeps the grid alive while the view handles an input; it may be null if the grid outlives the view.
    explicit GridView(GridControl& grid, std::shared_ptr<void> owner = nullptr, QWidget* parent = nullptr);
    ~GridView() override;

    [[nodiscard]] GridControl& grid() const { return grid_; }
    [[nodiscard]] GridBitmaps& bitmaps() { return bitmaps_; }

    [[nodiscard]] const GridTheme& theme() const { return theme_; }
    void setTheme(const GridTheme& theme);

    /// Whether the current cell has its frame; a view that only shows cells has none.
    void setFramesCurrent(bool frames) { framesCurrent_ = frames; }

    /// 0.5 .. 3.0; scales text, columns and rows on the screen and nothing in the grid.
    [[nodiscard]] double textScale() const { return textScale_; }
    void setTextScale(double scale);

    /// The cells to be marked as changed.
    void setPending(PendingMarks marks);
    /// Gives the tooltip of a cell a line of its own behind the cell's text: what it is computed from. May be asked for
    /// any cell.
    void setExplanation(std::function<QString(Cell)> explain) { explain_ = std::move(explain); }
    /// The rows to be marked as being in the chart.
    void setRowDots(RowDots dots);
    [[nodiscard]] const RowDots& rowDots() const { return dots_; }
    /// Whether the cell is marked as changed.
    [[nodiscard]] bool isPending(Cell cell) const { return pending_.contains(cell); }
    /// What the mark beside a row's label says: "in the chart", "sales line"; empty without one.
    [[nodiscard]] QString rowMark(Cell label) const;

    /// Where everything stands now, in pixels of the device.
    [[nodiscard]] const GridGeometry& geometry();
    /// The visible part of a cell in the viewport's coordinates; empty when it is out of sight.
    [[nodiscard]] QRect cellRect(Cell cell);
    /// The font of the cell's text, in logical pixels.
    [[nodiscard]] QFont cellFont(Cell cell);
    /// The cell's line and period, as people call it.
    [[nodiscard]] QString cellName(Cell cell) const;
    /// The width of the current cell's frame, in logical pixels.
    [[nodiscard]] int frameWidth() const;
    /// What lies under a point of the viewport.
    [[nodiscard]] GridHit hitTest(QPoint point);
    /// A point of the viewport in pixels of the device.
    [[nodiscard]] QPoint toDevice(QPoint point) const;

    /// Scrolls as little as needed.
    void ensureVisible(Cell cell);
    void scrollBy(int columns, int rows);
    void extendHeadings(Cell from, Cell to);
    void selectCurrent(Cell cell, SelectionMode mode);

    [[nodiscard]] GridEditor& editor() { return editor_; }
    void edit(Cell cell);
    /// Ends the entry that is open, if any; false when its text is refused.
    bool finishEditing();
    /// Ends the entry and, when it was taken, moves on.
    void finishAndMove(GridMove direction, bool byReturn);
    /// Reports if the grid, including its editor, has gained or lost the focus.
    void reportFocus();

    /// Shows a line across the grid where dragged columns or rows would go, at a device pixel of an axis; none hides
    /// it.
    void setDropMark(bool across, std::optional<int> position);
    /// Lets the user drag the selected block to another program, and waits for the drop. The view may be gone then.
    void dragSelection();
    /// Runs such a drag; replaceable, because a test has nobody to drop it.
    void setDragRunner(std::function<void(QDrag&)> runner) { runDrag_ = std::move(runner); }
    /// Calls timerEvent() regularly while the mouse drags beyond the cells.
    void setAutoScroll(bool on);

    /// The grid as it is now in another size, with the focus.
    [[nodiscard]] QImage renderToImage(QSize size, qreal scale);

Q_SIGNALS:
    void textScaleChanged(double scale);
    /// What is on screen may have changed.
    void gridChanged();

protected:
    bool handleViewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void GridChanged(const GridChange& change) override;

    void showChange(const GridChange& change);
    void relayout();
    void updateScrollBars();
    void showScrolled(const GridGeometry& before);
    void updateCell(Cell cell);
    void updateFixedLines();
    void scrollTo(bool horizontal, int index);
    [[nodiscard]] GridGeometry geometryFor(QSize devicePixels, double unit) const;
    [[nodiscard]] int labelWidth() const;
    [[nodiscard]] GridFonts& fonts();
    [[nodiscard]] bool showsFocus() const;
    void paintGrid(QPainter& painter, const QRect& clip);
    void paintDropMark(QPainter& painter) const;
    bool handleMenuKey(const QKeyEvent& event);
    bool handleCommand(const QKeyEvent& event);
    bool handleGridKey(const QKeyEvent& event);
    bool handleTyping(QKeyEvent& event);
    void handleKey(const GridKey& key);
    void move(GridMove move, SelectionMode mode);
    [[nodiscard]] bool hasGridFocus() const;
    [[nodiscard]] bool takes(const QDropEvent& event) const;
    void setDropCell(std::optional<Cell> cell);
    void showToolTip(const QHelpEvent& event);

    GridControl& grid_;
    GridBitmaps bitmaps_;
    GridTheme theme_ = GridTheme::light();
    double textScale_ = 1.0;
    std::unique_ptr<GridFonts> fonts_;

    AxisLayout horizontalLayout_;
    AxisLayout verticalLayout_;
    std::uint64_t layoutVersion_ = 0;
    bool layoutKnown_ = false;
    GridGeometry geometry_;
    bool updatingBars_ = false;
    bool framesCurrent_ = true;

    GridMouse mouse_;
    GridWheel wheel_;
    PendingMarks pending_;
    RowDots dots_;
    struct DropMark {
        bool across = false;
        std::optional<int> position;
        friend bool operator==(const DropMark&, const DropMark&) = default;
    };
    DropMark dropMark_;
    std::optional<Cell> dropCell_;  ///< under what is dragged over the grid
    std::function<void(QDrag&)> runDrag_;
    std::function<QString(Cell)> explain_;
    bool focusReported_ = false;
    QBasicTimer autoScroll_;
    std::unique_ptr<GridTeller> teller_;
    GridEditor editor_;
};

}  // namespace planview
