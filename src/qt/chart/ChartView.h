// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QImage>
#include <QPixmap>
#include <functional>
#include <memory>
#include <optional>

#include "components/chart/ChartControl.h"
#include "qt/GuardedWidget.h"
#include "qt/chart/ChartLayout.h"
#include "qt/chart/ChartPainter.h"
#include "qt/chart/ChartPicture.h"
#include "qt/chart/MovedPoint.h"
#include "qt/grid/GridTheme.h"
#include "qt/grid/GridWheel.h"

class QDrag;

namespace planview {

/// Shows a ChartControl and hands it what the user does.
///
/// The chart keeps the selection and the scroll position. The host may delete the view from inside an event that an
/// input raised; so every handler checks that the view still exists after telling the chart.
class ChartView final : public GuardedView<QAbstractScrollArea>, private ChartWatcher {
    Q_OBJECT

public:
    /// `owner` keeps the chart alive while the view handles an input; it may be null if the chart outlives the view.
    explicit ChartView(ChartControl& chart, std::shared_ptr<void> owner = nullptr, QWidget* parent = nullptr);
    ~ChartView() override;

    [[nodiscard]] ChartControl& chart() const { return chart_; }

    [[nodiscard]] const GridTheme& theme() const { return theme_; }
    void setTheme(const GridTheme& theme);
    /// 0.5 .. 3.0; scales texts, lines and marks on the screen.
    void setTextScale(double scale);
    [[nodiscard]] double textScale() const { return textScale_; }

    /// Where everything stands now, in the viewport's coordinates.
    [[nodiscard]] const ChartLayout& layout();
    /// Where a point can be seen and grabbed; numbers from 1. Empty when it is out of sight.
    [[nodiscard]] QRectF pointRect(int series, int category);
    [[nodiscard]] ChartHit hitTest(QPointF point);
    /// The point that is being dragged.
    [[nodiscard]] const MovedPoint* moved() const { return moved_ ? &*moved_ : nullptr; }
    /// The point that the keyboard is at, numbers from 1; none where it is at none.
    [[nodiscard]] ChartHit currentPoint() const;
    /// What stands in the bubble beside a point, its lines joined by "\n"; empty without one.
    [[nodiscard]] QString bubbleText() const;

    /// The chart for others to see, in logical pixels and in the view's own look.
    [[nodiscard]] ChartPicture picture() const;
    /// The chart as it is now in another size, with its marks and without a scroll bar.
    [[nodiscard]] QImage renderToImage(QSize size, qreal scale) const;

    /// Runs a drag of the chart itself; replaceable, because a test has nobody to drop it.
    void setDragRunner(std::function<void(QDrag&)> runner) { runDrag_ = std::move(runner); }

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void chartChanged();
    /// The user asks for another scale of all texts.
    void textScaleWanted(double scale);

protected:
    bool handleViewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// Scene, layout and painter for one state of the chart in one size.
    struct Drawn;
    struct Bubble {
        QRectF place;
        QString name;
        QString value;
        friend bool operator==(const Bubble&, const Bubble&) = default;
    };
    struct Press {
        QPoint at;
        ChartHit hit;
        bool ofChart = false;  ///< Alt is held: the chart itself is to be dragged
        double grip = 0;       ///< from the mouse down to the point's height
    };
    struct Place {
        int series = 0;
        int category = 0;
        friend bool operator==(const Place&, const Place&) = default;
    };

    void ChartChanged() override;
    void CopyPicture() override;

    [[nodiscard]] Drawn& drawn();
    [[nodiscard]] QRectF area() const;
    void forgetDrawn();
    void updateScrollBar();
    void makePicture(Drawn& drawn);
    void paintOverlay(QPainter& painter, Drawn& drawn);
    [[nodiscard]] double reach() const;

    void setBubble(std::optional<Bubble> bubble);
    void showPointBubble(const Place& place);
    void showRefusal(const Place& place);
    void hover(QPoint point);
    [[nodiscard]] bool mayChange(const Place& place);
    void press(QMouseEvent& event);
    void startMoving();
    void moveTo(QPoint point, bool freely);
    void endMoving();
    void cancelMoving();
    void dragChart();

    [[nodiscard]] bool isPoint(const Place& place) const;
    [[nodiscard]] std::optional<Place> current() const;
    bool walk(const QKeyEvent& event);
    bool changeByKey(const QKeyEvent& event);
    void goTo(const Place& place);
    void changeBy(const Place& place, int steps);
    /// Tells assistive tools what has changed since it told them last; `again` where the focus is, too.
    void announce(bool again = false);
    [[nodiscard]] QString describe(const Place& place) const;

    ChartControl& chart_;
    GridTheme theme_ = GridTheme::light();
    double textScale_ = 1.0;
    std::unique_ptr<Drawn> drawn_;
    QPixmap picture_;  // the chart, or the background of a moved point
    bool updatingBar_ = false;

    std::optional<Bubble> bubble_;
    std::optional<Press> press_;
    bool refused_ = false;  ///< the drag in progress began at a point that may not change
    std::optional<MovedPoint> moved_;
    std::optional<Place> cursor_;  // of the keyboard
    std::optional<Place> told_;    // where assistive tools were told the focus is
    std::pair<int, int> shape_;    // the numbers of series and categories that they know
    std::optional<Place> asked_;   // whether this point may change has been asked
    bool mayChange_ = false;
    GridWheel wheel_;
    std::function<void(QDrag&)> runDrag_;
};

}  // namespace planview
