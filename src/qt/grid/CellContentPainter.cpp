// SPDX-License-Identifier: MIT
#include "qt/grid/CellContentPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/grid/TextLines.h"

namespace planview {

namespace {

using Area = AxisLayout::Area;

/// A text may run on over this many empty cells.
constexpr int LongestRun = 64;

constexpr const char* Ellipsis = "\xE2\x80\xA6";

/// At least one.
std::size_t linesThatFit(int height, const TextShaper& shaper) {
    return static_cast<std::size_t>(std::max(height / std::max(shaper.height(), 1), 1));
}

bool isLabel(const PlacedTrack& horizontal, const PlacedTrack& vertical) {
    return horizontal.look.heading && vertical.look.area == Area::Center;
}

}  // namespace

const RowDot* dotAt(const GridScene& scene, const PlacedTrack& horizontal, const PlacedTrack& vertical) {
    const bool switched = !scene.geometry.horizontal.showsColumns();
    const PlacedTrack& heading = switched ? vertical : horizontal;
    const PlacedTrack& row = switched ? horizontal : vertical;
    if (scene.dots.empty() || !heading.look.heading || row.look.area != Area::Center) {
        return nullptr;
    }
    const RowId id = scene.geometry.cell(horizontal.track.id, vertical.track.id).row;
    const auto found = scene.dots.find(scene.grid.Row(id).key);
    return found == scene.dots.end() ? nullptr : &found->second;
}

CellContentPainter::Room CellContentPainter::textRoom(const PlacedTrack& horizontal, const PlacedTrack& vertical,
                                                      const CellLook& look, const GridCellStyle& style) {
    const GridGeometry& geometry = scene_.geometry;
    const QRect rect = trackRect(horizontal.track, vertical.track);
    const int padding = geometry.pixels(CellPadding);
    const bool indented = isLabel(horizontal, vertical) || dotAt(scene_, horizontal, vertical);
    const int indent = indented ? geometry.pixels(LabelIndent) : 0;
    const int height = rect.height() - geometry.hairline();

    Room room;
    room.shaper = &scene_.fonts.shaper(look.font, style.bold, style.italic);
    room.left = rect.left() + padding + indent;
    room.width = rect.width() - geometry.hairline() - 2 * padding - indent;
    room.baseLine = rect.top() + (height - room.shaper->height() + 1) / 2 + room.shaper->ascent();
    room.top = rect.top();
    room.height = height;
    room.tooLow = 2 * height < room.shaper->height();
    room.alignment = style.alignment;
    return room;
}

const QPixmap* CellContentPainter::placeBitmap(const CellLook& look, const PlacedTrack& vertical, bool hasText,
                                               Room& room, QPoint& at) {
    const GridGeometry& geometry = scene_.geometry;
    const int height = vertical.track.size() - geometry.hairline();
    const int side = std::min(geometry.pixels(BitmapPixels), height);
    if (side <= 0) {
        return nullptr;
    }
    const QPixmap& pixmap = scene_.bitmaps.pixmap(*look.bitmap, side, scene_.theme);
    const int free = room.width - side;
    int x = room.left;
    const int taken = side + geometry.pixels(BitmapGap);
    if (look.bitmapAlignment == GridAlignment::Right) {
        x += free;
        room.width -= taken;
    } else if (look.bitmapAlignment == GridAlignment::Center && !hasText) {
        x += free / 2;
    } else {
        room.left += taken;
        room.width -= taken;
    }
    at = {std::max(x, room.left - taken), vertical.track.start + (height - side) / 2};
    return &pixmap;
}

void CellContentPainter::add(const PlacedTrack& horizontal, const PlacedTrack& vertical, const CellLook& look,
                             const GridCellStyle& style, const std::string& text, bool isNumber) {
    if (text.empty() && !look.bitmap) {
        return;
    }
    Room room = textRoom(horizontal, vertical, look, style);
    if (look.bitmap) {
        QPoint at;
        if (const QPixmap* pixmap = placeBitmap(look, vertical, !text.empty(), room, at)) {
            const int line = scene_.geometry.hairline();
            pictures_.push_back({at, pixmap, trackRect(horizontal.track, vertical.track).adjusted(0, 0, -line, -line)});
        }
    }
    if (text.empty() || room.tooLow) {
        return;
    }
    if (isNumber && room.shaper->isPlainNumber(text)) {
        addNumber(text, room, style.text);
    } else if (isNumber && room.shaper->shape(text).width > room.width) {
        addNumber(TooNarrow, room, style.text);
    } else if (hasLineBreak(text)) {
        addLines(text, horizontal, vertical, room, style);
    } else {
        addText(text, horizontal, vertical, room, style);
    }
}

GridTextBatch& CellContentPainter::textsFor(const Room& room) {
    if (room.shaper->height() <= room.height) {
        return texts_;
    }
    const auto known = std::find_if(cutTexts_.begin(), cutTexts_.end(), [&](const CutTexts& each) {
        return each.top == room.top && each.height == room.height;
    });
    return known != cutTexts_.end()
               ? known->texts
               : cutTexts_.emplace_back(CutTexts{room.top, room.height, GridTextBatch(scene_.fonts)}).texts;
}

void CellContentPainter::addNumber(std::string_view text, const Room& room, QRgb color) {
    qreal width = room.shaper->numberWidth(text);
    if (width > room.width || !room.shaper->isPlainNumber(text)) {
        text = TooNarrow;
        while (!text.empty() && room.shaper->shape(std::string(text)).width > room.width) {
            text.remove_suffix(1);
        }
        const ShapedText& mark = room.shaper->shape(std::string(text));
        textsFor(room).addText(mark, QPointF(std::round(room.left + room.width - mark.width), room.baseLine), color);
        return;
    }
    const qreal free = room.width - width;
    const qreal shift = room.alignment == GridAlignment::Right    ? free
                        : room.alignment == GridAlignment::Center ? free / 2
                                                                  : 0;
    textsFor(room).addNumber(*room.shaper, text, QPointF(std::round(room.left + shift), room.baseLine), color);
}

void CellContentPainter::addText(const std::string& text, const PlacedTrack& horizontal, const PlacedTrack& vertical,
                                 const Room& room, const GridCellStyle& style) {
    const auto wanted = static_cast<int>(std::ceil(room.shaper->shape(text).width));
    addLine(text, widthFor(wanted, horizontal, vertical, room, &style.ground), room, style.text);
}

void CellContentPainter::addLines(const std::string& text, const PlacedTrack& horizontal, const PlacedTrack& vertical,
                                  const Room& room, const GridCellStyle& style) {
    std::vector<std::string> lines = textLines(text);
    const std::size_t count = std::min(lines.size(), linesThatFit(room.height, *room.shaper));
    if (count < lines.size()) {
        lines[count - 1] += Ellipsis;
    }
    if (count == 1) {
        addText(lines.front(), horizontal, vertical, room, style);
        return;
    }
    Room line = room;
    const int height = room.shaper->height();
    line.baseLine = room.top + (room.height - static_cast<int>(count) * height + 1) / 2 + room.shaper->ascent();
    for (std::size_t i = 0; i < count; ++i) {
        addLine(lines[i], room.width, line, style.text);
        line.baseLine += height;
    }
}

void CellContentPainter::addLine(const std::string& line, int width, const Room& room, QRgb color) {
    if (width <= 0) {
        return;
    }
    const ShapedText& shaped = room.shaper->shapeElided(line, width);
    const qreal free = std::max<qreal>(room.width - shaped.width, 0);
    const qreal shift = room.alignment == GridAlignment::Right    ? free
                        : room.alignment == GridAlignment::Center ? free / 2
                                                                  : 0;
    textsFor(room).addText(shaped, QPointF(std::round(room.left + shift), room.baseLine), color);
}

int CellContentPainter::widthFor(int wanted, const PlacedTrack& horizontal, const PlacedTrack& vertical,
                                 const Room& room, const QRgb* ground) {
    if (wanted <= room.width || room.alignment != GridAlignment::Left) {
        return room.width;
    }
    const int width = room.width + runOn(horizontal, vertical, wanted - room.width, ground);
    const bool standsStill = vertical.track.area != Area::Center && !vertical.look.heading;
    if (!standsStill || horizontal.track.area != Area::Center) {
        return width;
    }
    const GridGeometry& geometry = scene_.geometry;
    return std::min(width, geometry.horizontal.band(Area::Center).end - geometry.pixels(CellPadding) - room.left);
}

int CellContentPainter::runOn(const PlacedTrack& horizontal, const PlacedTrack& vertical, int wanted,
                              const QRgb* ground) {
    if (horizontal.track.area != Area::Center || vertical.look.heading) {
        return 0;
    }
    const GridAxis& axis = scene_.geometry.horizontal;
    const int count = static_cast<int>(axis.layout().Items(Area::Center).size());
    const int line = scene_.geometry.hairline();
    int room = 0;
    int end = horizontal.track.end;
    for (int i = horizontal.track.index + 1; i < std::min(count, horizontal.track.index + LongestRun); ++i) {
        const std::int32_t id = axis.layout().Items(Area::Center)[static_cast<std::size_t>(i)].track;
        const Cell cell = scene_.geometry.cell(id, vertical.track.id);
        if (room >= wanted || !scene_.grid.Contents(cell).empty() || scene_.grid.Look(cell).bitmap) {
            break;
        }
        if (ground) {
            patches_.push_back({QRect(end - line, vertical.track.start, line, vertical.track.size() - line), *ground});
        }
        const GridBand band = axis.centerBand(i);
        end = band.end;
        room += band.size();
    }
    return room;
}

bool CellContentPainter::isCut(const PlacedTrack& horizontal, const PlacedTrack& vertical, const CellLook& look,
                               const GridCellStyle& style, std::optional<double> number) {
    const std::string text =
        scene_.grid.DisplayText(scene_.geometry.cell(horizontal.track.id, vertical.track.id), look);
    if (text.empty()) {
        return false;
    }
    Room room = textRoom(horizontal, vertical, look, style);
    QPoint at;
    if (look.bitmap) {
        placeBitmap(look, vertical, true, room, at);
    }
    if (!number && hasLineBreak(text)) {
        const std::vector<std::string> lines = textLines(text);
        return room.tooLow || lines.size() > linesThatFit(room.height, *room.shaper) ||
               std::any_of(lines.begin(), lines.end(),
                           [&](const std::string& line) { return room.shaper->shape(line).width > room.width; });
    }
    const qreal width =
        number && room.shaper->isPlainNumber(text) ? room.shaper->numberWidth(text) : room.shaper->shape(text).width;
    if (width <= room.width) {
        return room.tooLow;
    }
    const auto wanted = static_cast<int>(std::ceil(width));
    return number || widthFor(wanted, horizontal, vertical, room, nullptr) < wanted;
}

void CellContentPainter::paint(QPainter& painter) {
    for (const Patch& patch : patches_) {
        painter.fillRect(patch.rect, QColor::fromRgb(patch.color));
    }
    patches_.clear();
    for (const Picture& picture : pictures_) {
        const QRect seen = QRect(picture.place, picture.pixmap->size()) & picture.cell;
        painter.drawPixmap(seen.topLeft(), *picture.pixmap, seen.translated(-picture.place));
    }
    pictures_.clear();
    texts_.paint(painter);
    for (CutTexts& cut : cutTexts_) {
        painter.save();
        constexpr int Wide = 1 << 20;
        painter.setClipRect(QRect(-Wide, cut.top, 2 * Wide, cut.height), Qt::IntersectClip);
        cut.texts.paint(painter);
        painter.restore();
    }
    cutTexts_.clear();
}

}  // namespace planview
