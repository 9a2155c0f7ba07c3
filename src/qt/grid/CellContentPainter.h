// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qt/grid/GridCellStyle.h"
#include "qt/grid/GridScene.h"
#include "qt/grid/GridTextBatch.h"
#include "qt/grid/TrackLooks.h"

class QPainter;

namespace planview {

/// The padding beside the text of a cell, in logical pixels.
inline constexpr int CellPadding = 7;
/// Room at the start of a label, so that the marks and labels of all lines line up, in logical pixels.
inline constexpr int LabelIndent = 13;

/// The dot beside the label of a planning row, be that at the left or, in a switched grid, at the top; null where the
/// cell is no such label or its row has none.
[[nodiscard]] const RowDot* dotAt(const GridScene& scene, const PlacedTrack& horizontal, const PlacedTrack& vertical);
/// Between a bitmap and the text beside it, in logical pixels.
inline constexpr int BitmapGap = 4;
/// Shown instead of a number that its cell is too narrow for.
inline constexpr std::string_view TooNarrow = "###";

/// Places texts and bitmaps in cells, collects them and paints them together.
///
/// A left-aligned text that its cell is too narrow for runs on over empty planning cells beside it; any other one is
/// cut with an ellipsis. Of a text with line breaks the lines are shown that fit, the last of them with an ellipsis
/// where more follow. Nothing reaches into the cells above and below.
class CellContentPainter {
public:
    explicit CellContentPainter(const GridScene& scene) : scene_(scene), texts_(scene.fonts) {}

    /// `text` is what the cell shows, cut as a number is where `isNumber`.
    void add(const PlacedTrack& horizontal, const PlacedTrack& vertical, const CellLook& look,
             const GridCellStyle& style, const std::string& text, bool isNumber);
    void paint(QPainter& painter);

    [[nodiscard]] bool isCut(const PlacedTrack& horizontal, const PlacedTrack& vertical, const CellLook& look,
                             const GridCellStyle& style, std::optional<double> number);

private:
    struct Picture {
        QPoint place;
        const QPixmap* pixmap;
        QRect cell;
    };
    /// Texts that are higher than their cells, of cells with the same top and bottom.
    struct CutTexts {
        int top;
        int height;
        GridTextBatch texts;
    };
    struct Patch {
        QRect rect;
        QRgb color;
    };
    /// Where the text of a cell may go.
    struct Room {
        int left = 0;
        int width = 0;
        int baseLine = 0;
        int top = 0;
        int height = 0;
        bool tooLow = false;  ///< the cell is too low for any text
        TextShaper* shaper = nullptr;
        GridAlignment alignment = GridAlignment::Left;
    };

    [[nodiscard]] Room textRoom(const PlacedTrack& horizontal, const PlacedTrack& vertical, const CellLook& look,
                                const GridCellStyle& style);
    const QPixmap* placeBitmap(const CellLook& look, const PlacedTrack& vertical, bool hasText, Room& room, QPoint& at);
    /// Where a text of a room is collected.
    GridTextBatch& textsFor(const Room& room);
    void addNumber(std::string_view text, const Room& room, QRgb color);
    void addText(const std::string& text, const PlacedTrack& horizontal, const PlacedTrack& vertical, const Room& room,
                 const GridCellStyle& style);
    void addLines(const std::string& text, const PlacedTrack& horizontal, const PlacedTrack& vertical, const Room& room,
                  const GridCellStyle& style);
    void addLine(const std::string& line, int width, const Room& room, QRgb color);
    /// The width available to a text that needs `wanted`. In a fixed row, a text that runs on is a note to be read and
    /// ends with an ellipsis at the edge of the visible columns; in planning cells it is cut there.
    int widthFor(int wanted, const PlacedTrack& horizontal, const PlacedTrack& vertical, const Room& room,
                 const QRgb* ground);
    /// The pixels that a text may take from empty neighbours, at most a little more than `wanted`; optionally covers
    /// the lines in between.
    int runOn(const PlacedTrack& horizontal, const PlacedTrack& vertical, int wanted, const QRgb* ground);

    GridScene scene_;
    GridTextBatch texts_;
    std::vector<CutTexts> cutTexts_;
    std::vector<Picture> pictures_;
    std::vector<Patch> patches_;
};

/// The rectangle where two tracks cross, whether or not all of it is visible.
[[nodiscard]] inline QRect trackRect(const GridTrack& horizontal, const GridTrack& vertical) {
    return {horizontal.start, vertical.start, horizontal.size(), vertical.size()};
}

}  // namespace planview
