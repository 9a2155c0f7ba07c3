// SPDX-License-Identifier: MIT
#include "qt/grid/GridView.h"

#include <QApplication>
#include <QDrag>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/grid/GridAccessible.h"
#include "qt/grid/GridLabelWidth.h"
#include "qt/grid/GridPainter.h"

namespace planview {

namespace {

using Area = AxisLayout::Area;

constexpr double SmallestScale = 0.5;
constexpr double LargestScale = 3.0;
/// More separate areas than this are repainted as one.
constexpr int MostPaintRects = 8;

QRect toDevicePixels(const QRect& rect, qreal ratio) {
    const int left = static_cast<int>(std::floor(rect.left() * ratio));
    const int top = static_cast<int>(std::floor(rect.top() * ratio));
    const int right = static_cast<int>(std::ceil((rect.right() + 1) * ratio));
    const int bottom = static_cast<int>(std::ceil((rect.bottom() + 1) * ratio));
    return {left, top, right - left, bottom - top};
}

QRect toLogicalPixels(const QRect& rect, qreal ratio) {
    return QRectF(rect.x() / ratio, rect.y() / ratio, rect.width() / ratio, rect.height() / ratio).toAlignedRect();
}

QSize deviceSize(QSize logical, qreal ratio) {
    return {static_cast<int>(logical.width() * ratio), static_cast<int>(logical.height() * ratio)};
}

}  // namespace

GridView::GridView(GridControl& grid, std::shared_ptr<void> owner, QWidget* parent)
    : GuardedView(EntryGuard("GRIDCTL", std::move(owner)), parent),
      grid_(grid),
      mouse_(*this),
      runDrag_([](QDrag& drag) { drag.exec(Qt::CopyAction); }),
      teller_(std::make_unique<GridTeller>(*this)),
      editor_(*this) {
    installGridAccessibility();
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Planning table"));
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    viewport()->setAcceptDrops(true);
    setAttribute(Qt::WA_InputMethodEnabled);
    setLayoutDirection(Qt::LeftToRight);  // its columns run so, and the scroll bars run with them
    setTheme(GridTheme::forPalette(QApplication::palette()));
    grid_.SetWatcher(this);
}

GridView::~GridView() {
    grid_.SetWatcher(nullptr);
}

// --- Look

void GridView::setTheme(const GridTheme& theme) {
    theme_ = theme;
    setPalette(theme.widgetPalette(QApplication::palette()));
    editor_.follow();
    viewport()->update();
}

void GridView::setTextScale(double scale) {
    constexpr double Percent = 100.0;  // many small steps must lead back to 1
    const double clamped = std::clamp(std::round(scale * Percent) / Percent, SmallestScale, LargestScale);
    if (clamped == textScale_) {
        return;
    }
    textScale_ = clamped;
    relayout();
    editor_.follow();
    viewport()->update();
    Q_EMIT textScaleChanged(textScale_);
}

void GridView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fonts_.reset();
        layoutKnown_ = false;
        editor_.follow();
        viewport()->update();
    }
}

void GridView::setPending(PendingMarks marks) {
    if (!(marks == pending_)) {
        pending_ = std::move(marks);
        viewport()->update();
        teller_->cellsChanged();
    }
}

void GridView::setRowDots(RowDots dots) {
    if (dots != dots_) {
        dots_ = std::move(dots);
        viewport()->update();
        teller_->cellsChanged();
    }
}

GridFonts& GridView::fonts() {
    if (!fonts_ || fonts_->unit() != geometry_.unit) {
        fonts_ = std::make_unique<GridFonts>(font(), geometry_.unit);
    }
    return *fonts_;
}

// --- Layout

int GridView::labelWidth() const {
    const GridSettingsState& settings = grid_.Settings();
    if (!settings.labelAutoFit) {
        return settings.labelColumnWidth;
    }
    return widestLabel(grid_, font());
}

GridGeometry GridView::geometryFor(QSize devicePixels, double unit) const {
    const auto firstOf = [this](const AxisLayout& layout) {
        const auto track = layout.ShowsColumns() ? grid_.FirstColumn().value_or(ColumnId{}).value
                                                 : grid_.FirstRow().value_or(RowId{}).value;
        return std::max(0, layout.IndexOf(Area::Center, track));
    };
    return {GridAxis(horizontalLayout_, firstOf(horizontalLayout_), unit, devicePixels.width()),
            GridAxis(verticalLayout_, firstOf(verticalLayout_), unit, devicePixels.height()), unit};
}

void GridView::relayout() {
    if (!layoutKnown_ || layoutVersion_ != grid_.LayoutVersion()) {
        layoutVersion_ = grid_.LayoutVersion();
        layoutKnown_ = true;
        horizontalLayout_.Update(grid_, AxisLayout::Axis::Horizontal, labelWidth());
        verticalLayout_.Update(grid_, AxisLayout::Axis::Vertical, labelWidth());
    }
    const qreal ratio = devicePixelRatioF();
    geometry_ = geometryFor(deviceSize(viewport()->size(), ratio), textScale_ * ratio);
    updateScrollBars();
}

const GridGeometry& GridView::geometry() {
    if (!layoutKnown_ || layoutVersion_ != grid_.LayoutVersion() ||
        geometry_.unit != textScale_ * devicePixelRatioF()) {
        relayout();
    }
    return geometry_;
}

void GridView::updateScrollBars() {
    // Without either bar everything may fit, although each bar alone would make the other one necessary.
    const qreal ratio = devicePixelRatioF();
    const GridGeometry bare = geometryFor(deviceSize(maximumViewportSize(), ratio), geometry_.unit);
    const bool fits = bare.horizontal.maxFirst() == 0 && bare.vertical.maxFirst() == 0;
    const auto update = [fits](QScrollBar* bar, const GridAxis& axis) {
        bar->setRange(0, fits ? 0 : axis.maxFirst());
        bar->setPageStep(axis.page());
        bar->setValue(axis.first());
    };
    const QScopedValueRollback updating(updatingBars_, true);
    // Showing or hiding a bar resizes the viewport and lays out again; the second bar then gets what is true by then.
    update(horizontalScrollBar(), geometry_.horizontal);
    update(verticalScrollBar(), geometry_.vertical);
}

void GridView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    relayout();
    editor_.follow();
    viewport()->update();
}

QPoint GridView::toDevice(QPoint point) const {
    const qreal ratio = devicePixelRatioF();
    return {static_cast<int>(std::floor(point.x() * ratio)), static_cast<int>(std::floor(point.y() * ratio))};
}

QRect GridView::cellRect(Cell cell) {
    const QRect rect = geometry().cellRect(cell);
    return rect.isEmpty() ? QRect() : toLogicalPixels(rect, devicePixelRatioF());
}

QFont GridView::cellFont(Cell cell) {
    static_cast<void>(geometry());
    const CellLook look = grid_.Look(cell);
    QFont font = fonts().shaper(look.font, false, look.helpLine).font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() / devicePixelRatioF()))));
    return font;
}

/// Keys mean nothing to a user: what has no heading is called by its place.
QString GridView::cellName(Cell cell) const {
    const auto nameOf = [this](CellKeyView heading, const QString& other) {
        const std::optional<Cell> place = grid_.FindCell(heading);
        const QString text = place ? QString::fromStdString(grid_.DisplayText(*place)).simplified() : QString();
        return text.isEmpty() ? other : text;
    };
    const CellKey key = grid_.KeyOf(cell);
    const QString row = nameOf({LabelColumnKey, key.row}, tr("Row %1").arg(grid_.OrderOf(cell.row) + 1));
    const QString column = nameOf({key.column, HeadingRowKey}, tr("Column %1").arg(grid_.OrderOf(cell.column) + 1));
    return row + QStringLiteral(" \u00B7 ") + column;
}

QString GridView::rowMark(Cell label) const {
    const auto dot = dots_.find(grid_.Row(label.row).key);
    if (dot == dots_.end() || grid_.Column(label.column).key != LabelColumnKey) {
        return {};
    }
    return dot->second.letter == QLatin1Char('S')   ? tr("sales line")
           : dot->second.letter == QLatin1Char('F') ? tr("forecast line")
                                                    : tr("in the chart");
}

int GridView::frameWidth() const {
    return std::max(1, static_cast<int>(std::lround(CurrentFrameWidth * textScale_)));
}

GridHit GridView::hitTest(QPoint point) {
    return GridHit::test(geometry(), toDevice(point));
}

// --- Changes of the grid

void GridView::GridChanged(const GridChange& change) {
    if (change.pointer) {
        viewport()->setCursor(grid_.Settings().waiting ? Qt::WaitCursor : Qt::ArrowCursor);
        return;
    }
    showChange(change);
    if (!editor_.isOpen() && (change.layout || change.everything)) {
        editor_.followMessage();
    }
    editor_.follow();
    Q_EMIT gridChanged();
}

void GridView::showChange(const GridChange& change) {
    const bool labelsMayGrow = grid_.Settings().labelAutoFit && !change.layout;
    if (labelsMayGrow) {
        layoutKnown_ = false;
    }
    const bool sameLayout = layoutKnown_ && layoutVersion_ == grid_.LayoutVersion();
    if (change.layout && sameLayout && !change.everything && !change.oneCell) {
        const GridGeometry before = geometry_;
        relayout();
        showScrolled(before);
        return;
    }
    if (!sameLayout || change.layout) {
        relayout();
        viewport()->update();
        teller_->layoutChanged();
    } else if (change.everything) {
        viewport()->update();
        teller_->cellsChanged();
    } else if (change.oneCell) {
        updateCell(change.cell);
        teller_->cellsChanged();
    }
}

/// Repaints the cell's whole line: its text may run on over neighbours, and theirs over it.
void GridView::updateCell(Cell cell) {
    const GridTrack* line = geometry_.vertical.find(geometry_.verticalId(cell));
    if (line) {
        const QRect strip(0, line->start, geometry_.horizontal.extent(), line->size());
        viewport()->update(toLogicalPixels(strip, devicePixelRatioF()));
    }
}

/// Moves what is already painted where that is exact to the pixel, and repaints the rest.
void GridView::showScrolled(const GridGeometry& before) {
    const int dx = before.horizontal.offset() - geometry_.horizontal.offset();
    const int dy = before.vertical.offset() - geometry_.vertical.offset();
    if (dx == 0 && dy == 0) {
        return;
    }
    const bool across = dx != 0;
    const GridAxis& axis = across ? geometry_.horizontal : geometry_.vertical;
    GridBand band = axis.band(Area::Center);
    if (!axis.layout().Items(Area::Trailing).empty()) {
        band.end -= geometry_.edge();  // stands still with the area behind it
    }
    const double ratio = devicePixelRatioF();
    const auto whole = [ratio](int pixels) { return std::fmod(pixels, ratio) == 0.0; };
    const auto logical = [ratio](int pixels) { return static_cast<int>(pixels / ratio); };
    const int distance = across ? dx : dy;
    const bool movable = (dx == 0 || dy == 0) && std::abs(distance) < band.size() && whole(distance) &&
                         whole(band.start) && whole(band.size());
    if (!movable) {
        viewport()->update();
    } else if (across) {
        viewport()->scroll(logical(dx), 0, QRect(logical(band.start), 0, logical(band.size()), viewport()->height()));
        updateFixedLines();
    } else {
        viewport()->scroll(0, logical(dy), QRect(0, logical(band.start), viewport()->width(), logical(band.size())));
    }
}

/// Text that runs on in a fixed row ends elsewhere once the columns have scrolled.
void GridView::updateFixedLines() {
    for (const Area area : {Area::Leading, Area::Trailing}) {
        const GridBand band = geometry_.vertical.band(area);
        const QRect strip(0, band.start, geometry_.horizontal.extent(), band.size());
        viewport()->update(toLogicalPixels(strip, devicePixelRatioF()));
    }
}

// --- Scrolling

void GridView::scrollTo(bool horizontal, int index) {
    const GridAxis& axis = horizontal ? geometry().horizontal : geometry().vertical;
    const std::span<const AxisItem> items = axis.layout().Items(Area::Center);
    if (items.empty()) {
        return;
    }
    const std::int32_t track = items[static_cast<std::size_t>(std::clamp(index, 0, axis.maxFirst()))].track;
    if (axis.showsColumns()) {
        grid_.ScrollToColumn(ColumnId{track});
    } else {
        grid_.ScrollToRow(RowId{track});
    }
}

/// The user has moved a bar.
void GridView::scrollContentsBy(int dx, int dy) {
    if (updatingBars_) {
        return;
    }
    guard().run("Scroll", [&] {
        if (dx != 0) {
            scrollTo(true, horizontalScrollBar()->value());
        }
        if (dy != 0) {
            scrollTo(false, verticalScrollBar()->value());
        }
    });
}

void GridView::scrollBy(int columns, int rows) {
    if (columns != 0) {
        scrollTo(true, geometry().horizontal.first() + columns);
    }
    if (rows != 0) {
        scrollTo(false, geometry().vertical.first() + rows);
    }
}

void GridView::ensureVisible(Cell cell) {
    for (const bool across : {true, false}) {
        const GridGeometry& now = geometry();
        const GridAxis& axis = across ? now.horizontal : now.vertical;
        const int index = axis.layout().IndexOf(Area::Center, across ? now.horizontalId(cell) : now.verticalId(cell));
        const int first = axis.firstToShow(index);
        if (first != axis.first()) {
            scrollTo(across, first);
        }
    }
}

// --- Painting

void GridView::paintEvent(QPaintEvent* event) {
    static_cast<void>(geometry());
    const qreal ratio = devicePixelRatioF();
    QPainter painter(viewport());
    painter.scale(1 / ratio, 1 / ratio);
    const QRegion& region = event->region();
    if (region.rectCount() > MostPaintRects) {
        paintGrid(painter, toDevicePixels(region.boundingRect(), ratio));
        return;
    }
    for (const QRect& rect : region) {
        paintGrid(painter, toDevicePixels(rect, ratio));
    }
}

void GridView::paintGrid(QPainter& painter, const QRect& clip) {
    GridPainter({grid_, geometry_, theme_, fonts(), bitmaps_, pending_, dots_, framesCurrent_, showsFocus()})
        .paint(painter, clip);
    paintDropMark(painter);
    if (hasGridFocus() && !grid_.CurrentCell()) {
        // Nothing else would show where the focus is.
        painter.setPen(QColor::fromRgb(theme_.accent));
        painter.drawRect(0, 0, geometry_.horizontal.extent() - 1, geometry_.vertical.extent() - 1);
    }
}

void GridView::setDropMark(bool across, std::optional<int> position) {
    const DropMark mark{across, position};
    if (!(mark == dropMark_)) {
        dropMark_ = mark;
        viewport()->update();
    }
}

void GridView::paintDropMark(QPainter& painter) const {
    if (dropCell_) {
        const int width = geometry_.pixels(CurrentFrameWidth);
        painter.setPen(QPen(QColor::fromRgb(theme_.accent), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.drawRect(geometry_.cellRect(*dropCell_).adjusted(width / 2, width / 2, -width, -width));
    }
    if (!dropMark_.position) {
        return;
    }
    const int width = geometry_.pixels(CurrentFrameWidth);
    const int start = *dropMark_.position - width;
    const int length = (dropMark_.across ? geometry_.vertical : geometry_.horizontal).contentEnd();
    painter.fillRect(dropMark_.across ? QRect(start, 0, width, length) : QRect(0, start, length, width),
                     QColor::fromRgb(theme_.accent));
}

/// The grid looks unfocused only when another widget of its window has the focus: a window in the background, or one
/// that is only painted, shows what would have it.
bool GridView::showsFocus() const {
    return hasGridFocus() || (!isActiveWindow() && window()->focusWidget() == this);
}

QImage GridView::renderToImage(QSize size, qreal scale) {
    static_cast<void>(geometry());
    const double unit = textScale_ * scale;
    const QSize pixels = deviceSize(size, scale);
    const GridGeometry picture = geometryFor(pixels, unit);
    GridFonts pictureFonts(font(), unit);
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor::fromRgb(theme_.panel));
    {
        QPainter painter(&image);
        GridPainter({grid_, picture, theme_, pictureFonts, bitmaps_, pending_, dots_, true})
            .paint(painter, image.rect());
    }
    image.setDevicePixelRatio(scale);
    return image;
}

}  // namespace planview
