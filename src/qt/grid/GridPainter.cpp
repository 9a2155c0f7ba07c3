// SPDX-License-Identifier: MIT
#include "qt/grid/GridPainter.h"

#include <QPainter>
#include <algorithm>

namespace planview {

namespace {

using Area = AxisLayout::Area;

constexpr int MarkWidth = 2;
constexpr int PendingCornerSize = 7;
constexpr int DotSize = 7;
constexpr int LetteredDotSize = 14;
constexpr int LetterPixels = 10;
constexpr int HintLength = 14;
constexpr int HintInset = 3;
/// How far to the left to look for a text that runs on into the first visible cell.
constexpr int LongestLookBack = 32;

std::vector<PlacedTrack> placedIn(const GridAxis& axis, const std::vector<TrackLook>& looks, Area area, int start,
                                  int end) {
    std::vector<PlacedTrack> result;
    const std::span<const GridTrack> tracks = axis.tracks();
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        if (tracks[i].area == area && tracks[i].end > start && tracks[i].start < end) {
            result.push_back({tracks[i], looks[i]});
        }
    }
    return result;
}

QRect regionRect(const GridGeometry& geometry, Area horizontal, Area vertical) {
    const GridBand h = geometry.horizontal.band(horizontal);
    const GridBand v = geometry.vertical.band(vertical);
    return {h.start, v.start, h.size(), v.size()};
}

PlacedCell placedCell(const GridGeometry& geometry, const PlacedTrack& horizontal, const PlacedTrack& vertical) {
    const bool columnsAcross = geometry.horizontal.showsColumns();
    return {geometry.cell(horizontal.track.id, vertical.track.id), horizontal.look, vertical.look,
            columnsAcross ? horizontal.look : vertical.look, columnsAcross ? vertical.look : horizontal.look};
}

}  // namespace

GridPainter::GridPainter(const GridScene& scene)
    : scene_(scene),
      colors_(scene.grid, scene.theme),
      looks_(scene.grid, colors_, scene.geometry),
      styler_(scene.grid, scene.theme, colors_, scene.grid.CurrentCell()),
      contents_(scene),
      line_(scene.geometry.hairline()) {}

void GridPainter::paint(QPainter& painter, const QRect& clip) {
    const GridGeometry& geometry = scene_.geometry;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QRect content(0, 0, geometry.horizontal.contentEnd(), geometry.vertical.contentEnd());
    const QColor ground = QColor::fromRgb(scene_.theme.panel);
    painter.fillRect(
        QRect(content.right() + 1, 0, geometry.horizontal.extent() - content.width(), content.height()) & clip, ground);
    painter.fillRect(
        QRect(0, content.bottom() + 1, geometry.horizontal.extent(), geometry.vertical.extent() - content.height()) &
            clip,
        ground);
    for (const Area vertical : {Area::Center, Area::Leading, Area::Trailing}) {
        for (const Area horizontal : {Area::Center, Area::Leading, Area::Trailing}) {
            paintRegion(painter, horizontal, vertical, clip);
        }
    }
    painter.setClipRect(clip);
    paintEdges(painter);
    paintCurrentCell(painter);
    painter.restore();
}

void GridPainter::paintRegion(QPainter& painter, Area horizontal, Area vertical, const QRect& clip) {
    const QRect region = regionRect(scene_.geometry, horizontal, vertical) & clip;
    if (region.isEmpty()) {
        return;
    }
    const std::vector<PlacedTrack> columns =
        placedIn(scene_.geometry.horizontal, looks_.horizontal, horizontal, region.left(), region.right() + 1);
    const std::vector<PlacedTrack> rows =
        placedIn(scene_.geometry.vertical, looks_.vertical, vertical, region.top(), region.bottom() + 1);

    painter.setClipRect(region);
    painter.fillRect(region, QColor::fromRgb(columns.empty() || rows.empty() ? scene_.theme.panel : colors_.base()));
    for (const PlacedTrack& row : rows) {
        paintRow(painter, columns, row);
    }
    paintLines(painter, columns, rows);
    contents_.paint(painter);
    for (const Fill& mark : marks_) {
        painter.fillRect(mark.rect, QColor::fromRgba(mark.color));
    }
    marks_.clear();
    paintDots(painter);
}

void GridPainter::paintRow(QPainter& painter, const std::vector<PlacedTrack>& columns, const PlacedTrack& row) {
    Fill run;
    const auto flush = [&] {
        if (!run.rect.isEmpty() && run.color != colors_.base()) {
            painter.fillRect(run.rect, QColor::fromRgb(run.color));
        }
    };
    for (const PlacedTrack& column : columns) {
        const PlacedCell cell = placedCell(scene_.geometry, column, row);
        const CellLook look = scene_.grid.Look(cell.cell);
        const std::string& contents = scene_.grid.Contents(cell.cell);
        const std::optional<double> number = contents.empty() ? std::nullopt : scene_.grid.Number(cell.cell, look);
        const GridCellStyle style = styler_.style(cell, look, number);

        const QRect rect = trackRect(column.track, row.track);
        if (!run.rect.isEmpty() && run.color == style.ground) {
            run.rect.setRight(rect.right());
        } else {
            flush();
            run = {rect, style.ground};
        }
        if (!contents.empty() || look.bitmap) {
            contents_.add(column, row, look, style, scene_.grid.DisplayText(cell.cell, look, number),
                          number && !cell.top() && !cell.left());
        } else if (&column == &columns.front()) {
            addSpillFromLeft(column, row);
        }
        addMarks(column, row, style, look.relief);
    }
    flush();
}

void GridPainter::addSpillFromLeft(const PlacedTrack& first, const PlacedTrack& row) {
    if (first.track.area != Area::Center || row.look.heading) {
        return;
    }
    const GridAxis& axis = scene_.geometry.horizontal;
    const std::span<const AxisItem> items = axis.layout().Items(Area::Center);
    for (int i = first.track.index - 1; i >= std::max(0, first.track.index - LongestLookBack); --i) {
        const std::int32_t id = items[static_cast<std::size_t>(i)].track;
        const Cell cell = scene_.geometry.cell(id, row.track.id);
        const std::string& contents = scene_.grid.Contents(cell);
        if (contents.empty()) {
            continue;
        }
        const CellLook look = scene_.grid.Look(cell);
        if (!scene_.grid.Number(cell, look)) {
            const GridBand band = axis.centerBand(i);
            PlacedTrack from = first;
            from.track = {id, Area::Center, i, band.start, band.end};
            from.look.order = trackOrder(scene_.grid, axis.showsColumns(), id);
            contents_.add(from, row, look, styler_.style(placedCell(scene_.geometry, from, row), look, std::nullopt),
                          contents, false);
        }
        return;
    }
}

void GridPainter::addMarks(const PlacedTrack& horizontal, const PlacedTrack& vertical, const GridCellStyle& style,
                           bool relief) {
    const QRect rect = trackRect(horizontal.track, vertical.track);
    const int width = scene_.geometry.pixels(MarkWidth);
    const bool top = vertical.look.heading;
    const bool left = horizontal.look.heading;
    if (style.marked) {
        const QColor accent = QColor::fromRgb(scene_.theme.accent);
        const GridAxis& axis = top ? scene_.geometry.vertical : scene_.geometry.horizontal;
        const GridTrack& heading = top ? vertical.track : horizontal.track;
        const bool atEdge = heading.end >= axis.band(Area::Leading).end;
        const int end = heading.end - (atEdge ? scene_.geometry.edge() : line_);
        marks_.push_back({top ? QRect(rect.left(), end - width, rect.width() - line_, width)
                              : QRect(end - width, rect.top(), width, rect.height() - line_),
                          accent.rgba()});
    }
    if (top) {
        addHiddenHint(horizontal, rect, true);
    }
    if (left) {
        addHiddenHint(vertical, rect, false);
    }
    if (top || left) {
        addDot(horizontal, vertical);
    }
    const bool planning = horizontal.track.area == Area::Center && vertical.track.area == Area::Center;
    if (planning && scene_.pending.contains(scene_.geometry.cell(horizontal.track.id, vertical.track.id))) {
        addPendingCorner(rect.adjusted(0, 0, -line_, -line_));
    }
    if (relief && planning) {
        const QRect inner = rect.adjusted(0, 0, -line_, -line_);
        marks_.push_back({QRect(inner.left(), inner.top(), inner.width(), line_), scene_.theme.reliefLight});
        marks_.push_back({QRect(inner.left(), inner.top(), line_, inner.height()), scene_.theme.reliefLight});
        marks_.push_back(
            {QRect(inner.left(), inner.bottom() - line_ + 1, inner.width(), line_), scene_.theme.reliefShade});
        marks_.push_back(
            {QRect(inner.right() - line_ + 1, inner.top(), line_, inner.height()), scene_.theme.reliefShade});
    }
}

/// A triangle in the upper right corner, line by line as every other mark.
void GridPainter::addPendingCorner(const QRect& inner) {
    const int size = std::min({scene_.geometry.pixels(PendingCornerSize), inner.width(), inner.height()});
    const QRgb color = QColor::fromRgb(scene_.theme.accent).rgba();
    for (int i = 0; i < size; ++i) {
        marks_.push_back({QRect(inner.right() + 1 - (size - i), inner.top() + i, size - i, 1), color});
    }
}

/// In the space to the left of the labels.
void GridPainter::addDot(const PlacedTrack& horizontal, const PlacedTrack& vertical) {
    const RowDot* dot = dotAt(scene_, horizontal, vertical);
    if (!dot) {
        return;
    }
    const GridGeometry& geometry = scene_.geometry;
    const QRect rect = trackRect(horizontal.track, vertical.track);
    const bool lettered = !dot->letter.isNull();
    const int size = std::min(geometry.pixels(lettered ? LetteredDotSize : DotSize), rect.height());
    // A dot with a letter takes all of that space.
    const int left = lettered ? (geometry.pixels(CellPadding + LabelIndent) - size) / 2 : geometry.pixels(CellPadding);
    dots_.push_back({QRect(rect.left() + left, rect.top() + (rect.height() - line_ - size) / 2, size, size), *dot});
}

void GridPainter::paintDots(QPainter& painter) {
    if (dots_.empty()) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing, true);
    QFont font(scene_.fonts.shaper(nullptr, true, false).font());
    font.setPixelSize(scene_.geometry.pixels(LetterPixels));
    painter.setFont(font);
    for (const Dot& dot : dots_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromRgb(dot.look.color));
        painter.drawEllipse(dot.rect);
        if (!dot.look.letter.isNull()) {
            const double onBase = contrastRatio(dot.look.color, scene_.theme.base);
            const double onText = contrastRatio(dot.look.color, scene_.theme.text);
            painter.setPen(QColor::fromRgb(onBase > onText ? scene_.theme.base : scene_.theme.text));
            painter.drawText(dot.rect, Qt::AlignCenter, dot.look.letter);
        }
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    dots_.clear();
}

void GridPainter::addHiddenHint(const PlacedTrack& track, const QRect& heading, bool alongTop) {
    const QRgb color = QColor::fromRgb(scene_.theme.muted).rgba();
    const int gap = 2 * line_;
    // Along the left side only at the start of the labels, where no text is.
    const int length = alongTop ? heading.height() / 2 : std::min(scene_.geometry.pixels(HintLength), heading.width());
    const int inset = alongTop ? heading.height() / 4 : scene_.geometry.pixels(HintInset);
    const auto addDoubleLine = [&](int border) {
        for (const int start : {border - gap - line_, border + gap - line_}) {
            marks_.push_back({alongTop ? QRect(start, heading.top() + inset, line_, length)
                                       : QRect(heading.left() + inset, start, length, line_),
                              color});
        }
    };
    if (track.look.hidden.before) {
        addDoubleLine(track.track.start);
    }
    if (track.look.hidden.behind) {
        addDoubleLine(track.track.end);
    }
}

void GridPainter::paintLines(QPainter& painter, const std::vector<PlacedTrack>& columns,
                             const std::vector<PlacedTrack>& rows) const {
    if (columns.empty() || rows.empty()) {
        return;
    }
    const QColor color = QColor::fromRgb(colors_.line());
    const int left = columns.front().track.start;
    const int width = columns.back().track.end - left;
    const int top = rows.front().track.start;
    const int height = rows.back().track.end - top;
    for (const PlacedTrack& column : columns) {
        painter.fillRect(QRect(column.track.end - line_, top, line_, height), color);
    }
    for (const PlacedTrack& row : rows) {
        painter.fillRect(QRect(left, row.track.end - line_, width, line_), color);
    }
}

void GridPainter::paintEdges(QPainter& painter) const {
    const GridGeometry& geometry = scene_.geometry;
    const QColor color = QColor::fromRgb(colors_.line());
    const int width = geometry.horizontal.contentEnd();
    const int height = geometry.vertical.contentEnd();
    for (const Area area : {Area::Leading, Area::Center}) {
        const Area next = area == Area::Leading ? Area::Center : Area::Trailing;
        const bool across = !geometry.horizontal.layout().Items(area).empty();
        const bool down = !geometry.vertical.layout().Items(area).empty();
        const int x = geometry.horizontal.band(next).start;
        const int y = geometry.vertical.band(next).start;
        if (across && (area == Area::Leading || !geometry.horizontal.layout().Items(next).empty())) {
            painter.fillRect(QRect(x - geometry.edge(), 0, geometry.edge(), height), color);
        }
        if (down && (area == Area::Leading || !geometry.vertical.layout().Items(next).empty())) {
            painter.fillRect(QRect(0, y - geometry.edge(), width, geometry.edge()), color);
        }
    }
}

void GridPainter::paintCurrentCell(QPainter& painter) const {
    const std::optional<Cell> current = scene_.grid.CurrentCell();
    if (!current || !scene_.framed) {
        return;
    }
    const GridGeometry& geometry = scene_.geometry;
    const GridTrack* h = geometry.horizontal.find(geometry.horizontalId(*current));
    const GridTrack* v = geometry.vertical.find(geometry.verticalId(*current));
    if (!h || !v) {
        return;
    }
    painter.save();
    painter.setClipRect(regionRect(geometry, h->area, v->area), Qt::IntersectClip);
    const QRect frame = trackRect(*h, *v).adjusted(-line_, -line_, 0, 0);
    const int width = geometry.pixels(CurrentFrameWidth);
    const QColor color = QColor::fromRgb(scene_.focused ? scene_.theme.accent : scene_.theme.muted);
    painter.fillRect(QRect(frame.left(), frame.top(), frame.width(), width), color);
    painter.fillRect(QRect(frame.left(), frame.bottom() + 1 - width, frame.width(), width), color);
    painter.fillRect(QRect(frame.left(), frame.top(), width, frame.height()), color);
    painter.fillRect(QRect(frame.right() + 1 - width, frame.top(), width, frame.height()), color);
    painter.restore();
}

bool GridPainter::isCut(Cell cell) {
    const GridGeometry& geometry = scene_.geometry;
    const GridTrack* h = geometry.horizontal.find(geometry.horizontalId(cell));
    const GridTrack* v = geometry.vertical.find(geometry.verticalId(cell));
    if (!h || !v) {
        return false;
    }
    const PlacedTrack horizontal{*h,
                                 looks_.horizontal[static_cast<std::size_t>(h - geometry.horizontal.tracks().data())]};
    const PlacedTrack vertical{*v, looks_.vertical[static_cast<std::size_t>(v - geometry.vertical.tracks().data())]};
    const CellLook look = scene_.grid.Look(cell);
    const bool heading = horizontal.look.heading || vertical.look.heading;
    const std::optional<double> number = heading ? std::nullopt : scene_.grid.Number(cell, look);
    return contents_.isCut(horizontal, vertical, look,
                           styler_.style(placedCell(geometry, horizontal, vertical), look, number), number);
}

}  // namespace planview
