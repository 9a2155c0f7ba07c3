// SPDX-License-Identifier: MIT
#include <QScrollBar>

#include "qt/GridOnScreen.h"
#include "qt/grid/GridColors.h"
#include "qt/grid/GridPainter.h"

namespace planview {

namespace {

using Screen = GridOnScreen;

/// The most frequent colour of a part of a picture: its ground.
QRgb ground(const QImage& image, const QRect& part) {
    std::map<QRgb, int> counts;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

QString name(QRgb color) {
    return QColor::fromRgb(color).name();
}

QRect inner(Screen& screen, Cell cell) {
    return screen.view().cellRect(cell).adjusted(3, 3, -4, -4);
}

/// The first and the last column of a part that are written on; -1 where none is.
std::pair<int, int> writtenColumns(const QImage& image, const QRect& part, QRgb under) {
    std::pair<int, int> found(-1, -1);
    for (int x = part.left(); x <= part.right(); ++x) {
        if (countInk(image, QRect(x, part.top(), 1, part.height()), under) > 0) {
            found = {found.first < 0 ? x - part.left() : found.first, x - part.left()};
        }
    }
    return found;
}

}  // namespace

/// What is seen where: colours at places, never whole pictures.
class GridPaintTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void tones_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void tones() {
        QFETCH(bool, dark);
        Screen screen;
        const GridTheme& theme = dark ? GridTheme::darkTheme() : GridTheme::light();
        screen.view().setTheme(theme);
        screen.grid().SetCenterAttribute(GridElement::Row, {{}, "ROW4"}, GridAttribute::HelpLine, true, true);
        screen.set({{}, "ROW5"}, GridAttribute::ReadOnly, true);
        screen.set({{}, "ROW5"}, GridAttribute::BackgroundColor, "tovGray");
        screen.set({{}, "ROW5"}, GridAttribute::ForegroundColor, "tovBlack");
        for (const CellKeyView fixed : {CellKeyView{"FLC1", {}}, {"FRC1", {}}, {{}, "FTR1"}, {{}, "FBR1"}}) {
            screen.set(fixed, GridAttribute::ReadOnly, true);
        }
        screen.set({"COL1", "ROW6"}, GridAttribute::Contents, "-5");
        screen.set({"FRC1", "ROW6"}, GridAttribute::Contents, "8");
        screen.set({"COL2", "ROW6"}, GridAttribute::Format, "0.00");
        screen.set({"COL2", "ROW6"}, GridAttribute::Contents, "-0,001");
        screen.set({"COL3", "ROW6"}, GridAttribute::Format, "[Red]0.00;0.00");
        screen.set({"COL3", "ROW6"}, GridAttribute::Contents, "1,5");
        screen.view().selectCurrent(screen.cell(3, 7), SelectionMode::Replace);
        screen.view().selectCurrent(screen.cell(2, 8), SelectionMode::Extend);
        const QImage image = screen.picture();
        struct Place {
            const char* column;
            const char* row;
            QRgb tone;
            QRgb text;
        };
        const Place places[] = {
            {"COL1", "ROW1", theme.base, theme.text},         {"COL1", "FTR0", theme.heading, theme.muted},
            {"COL2", "FTR0", theme.accentTint, theme.accent}, {"FLC0", "ROW1", theme.heading, theme.text},
            {"FLC0", "ROW7", theme.accentTint, theme.accent}, {"FLC1", "ROW1", theme.panel, theme.muted},
            {"FLC0", "ROW5", theme.heading, theme.muted},     {"FRC1", "ROW6", theme.total, theme.text},
            {"COL1", "ROW4", theme.helpLine, theme.text},     {"FLC0", "ROW4", theme.helpLine, theme.text},
            {"COL1", "ROW5", theme.readOnly, theme.muted},    {"COL1", "ROW6", theme.base, theme.negative},
            {"COL2", "ROW6", theme.base, theme.text},         {"COL3", "ROW6", theme.base, theme.negative},
            {"COL3", "ROW8", theme.accentTint, theme.text},   {"COL3", "ROW7", theme.base, theme.text},
            {"COL1", "FBR1", theme.panel, theme.muted},       {"COL1", "FTR1", theme.heading, theme.text},
        };
        screen.set({"FLC1", "ROW1"}, GridAttribute::Contents, "unit");
        screen.set({"COL1", "FBR1"}, GridAttribute::Contents, "note");
        screen.set({"COL1", "FTR1"}, GridAttribute::Contents, "top");
        const QImage written = screen.picture();
        for (const Place& place : places) {
            const QRect part = inner(screen, screen.cell(place.column, place.row));
            const std::string where = std::string(place.column) + "/" + place.row;
            QVERIFY2(name(ground(image, part)) == name(place.tone),
                     qPrintable(QStringLiteral("%1 is %2").arg(where.c_str(), name(ground(image, part)))));
            QVERIFY2(countColor(written, part, place.text) > 3, where.c_str());
        }
    }

    void theCurrentCellHasAFrame() {
        Screen screen;
        screen.view().selectCurrent(screen.cell(3, 7), SelectionMode::Replace);
        const QRect cell = screen.view().cellRect(screen.cell(3, 7));
        const QRgb accent = GridTheme::light().accent;
        const auto framed = [&](QRgb color) {
            const QImage image = screen.picture();
            return countColor(image, QRect(cell.left(), cell.top(), cell.width(), 1), color) == cell.width() &&
                   countColor(image, QRect(cell.right() - 1, cell.top(), 2, cell.height()), color) == 2 * cell.height();
        };
        QVERIFY(framed(accent));
        screen.view().clearFocus();
        QVERIFY2(!framed(accent) && framed(GridTheme::light().muted), "without the focus the frame steps back");
    }

    void linesAndEdges() {
        Screen screen;
        const QImage image = screen.picture();
        const QRgb line = GridTheme::light().line;
        const QRect cell = screen.view().cellRect(screen.cell(2, 3));
        QCOMPARE(name(image.pixel(cell.right(), cell.top() + 4)), name(line));
        QVERIFY(image.pixel(cell.right() - 1, cell.top() + 4) != line);
        const QRect lastFixed = screen.view().cellRect(screen.cell("FLC1", "ROW3"));
        QCOMPARE(name(image.pixel(lastFixed.right() - 1, lastFixed.top() + 4)), name(line));
        screen.set({}, GridAttribute::GridLineColor, "tovBlue");
        QCOMPARE(name(screen.picture().pixel(cell.right(), cell.top() + 4)), QStringLiteral("#000080"));
    }

    void ownBackgroundOfTheGrid() {
        Screen screen;
        screen.set({}, GridAttribute::BackgroundColor, "tovBlue");
        const QRect part = inner(screen, screen.cell(4, 6));
        const QImage image = screen.picture();
        QCOMPARE(name(ground(image, part)), QStringLiteral("#000080"));
        QVERIFY2(countColor(image, part, 0xffffffff) > 3, "text on a dark ground is white");
        screen.set({{}, "ROW5"}, GridAttribute::BackgroundColor, "tovWhite");
        const QRect cell = inner(screen, screen.cell("COL2", "ROW5"));
        QCOMPARE(name(ground(screen.picture(), cell)), QStringLiteral("#000080"));
        QVERIFY2(countColor(screen.picture(), cell, 0xffffffff) > 3, "also in a row whose own colour is the grid's");
        screen.set({}, GridAttribute::BackgroundColor, "tovWhite");
        QCOMPARE(name(ground(screen.picture(), part)), name(GridTheme::light().base));
    }

    void textIsReadableOnEveryColour_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    /// Black and white are the view's own; every other text must contrast with every ground in the dark theme, and the
    /// view's own text with every ground in both.
    void textIsReadableOnEveryColour() {
        QFETCH(bool, dark);
        const GridTheme& theme = dark ? GridTheme::darkTheme() : GridTheme::light();
        GridControl grid;
        Screen::require(grid.CreateLabelled(false));
        const std::pair<const char*, QRgb> palette[] = {
            {"tovWhite", 0xffffff},  {"tovBlack", 0x000000}, {"tovBlue", 0x000080},      {"tovRed", 0x800000},
            {"tovYellow", 0x808000}, {"tovGray", 0xc0c0c0},  {"tovLightBlue", 0x0000ff}, {"tovLightYellow", 0xffff00}};
        for (const auto& [colorName, rgb] : palette) {
            Screen::require(grid.CreateColor(colorName, static_cast<std::uint8_t>(qRed(rgb)),
                                             static_cast<std::uint8_t>(qGreen(rgb)),
                                             static_cast<std::uint8_t>(qBlue(rgb))));
        }
        GridColors colors(grid, theme);
        for (std::int16_t back = -1; back < static_cast<std::int16_t>(std::size(palette)); ++back) {
            for (std::int16_t fore = -1; fore < static_cast<std::int16_t>(std::size(palette)); ++fore) {
                const bool own = colors.isOwnBackground(back);
                const QRgb under = own ? theme.base : colors.background(back);
                const QRgb text = colors.text(fore, theme.text, under, own);
                const QString which = QStringLiteral("foreground %1 on background %2 is %3 on %4")
                                          .arg(fore)
                                          .arg(back)
                                          .arg(name(text), name(under));
                if (dark || colors.isOwnForeground(fore)) {
                    QVERIFY2(contrastRatio(text, under) >= 4.5, qPrintable(which));
                } else {
                    QVERIFY2(contrastRatio(text, under) >= 1.5, qPrintable(which));
                }
            }
        }
        QCOMPARE(name(colors.text(-1, theme.text, theme.base, true)), name(theme.text));
        QCOMPARE(name(colors.background(5)), QStringLiteral("#c0c0c0"));
    }

    /// Whatever was asked for before: with a new object for each question as with one for all.
    void aTextsColourIsItsOwn_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void aTextsColourIsItsOwn() {
        QFETCH(bool, dark);
        const GridTheme& theme = dark ? GridTheme::darkTheme() : GridTheme::light();
        Screen screen;
        Screen::require(screen.grid().CreateColor("tovNegative", static_cast<std::uint8_t>(qRed(theme.negative)),
                                                  static_cast<std::uint8_t>(qGreen(theme.negative)),
                                                  static_cast<std::uint8_t>(qBlue(theme.negative))));
        const auto count = static_cast<std::int16_t>(screen.grid().Colors().size());
        GridColors shared(screen.grid(), theme);
        for (const QRgb ground : {theme.base, theme.accentTint, theme.helpLine, QRgb{0xff000080}, QRgb{0xffc0c0c0}}) {
            for (const bool ownGround : {true, false}) {
                for (std::int16_t fore = -1; fore < count; ++fore) {
                    for (const QRgb ownText : {theme.negative, theme.text, theme.muted, theme.accent}) {
                        const QRgb alone = GridColors(screen.grid(), theme).text(fore, ownText, ground, ownGround);
                        const QRgb among = shared.text(fore, ownText, ground, ownGround);
                        QVERIFY2(alone == among,
                                 qPrintable(QStringLiteral("foreground %1, own text %2 on %3: %4, %5")
                                                .arg(fore)
                                                .arg(name(ownText), name(ground), name(alone), name(among))));
                    }
                }
            }
        }
    }

    void aPositiveNumberBelowANegativeOneIsNotRed() {
        Screen screen;
        screen.set({"COL2", "ROW2"}, GridAttribute::Contents, "-5");
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, "8888");
        for (const char* row : {"ROW2", "ROW3"}) {
            screen.set({"COL2", row}, GridAttribute::ForegroundColor, "tovWhite");
        }
        const QImage image = screen.picture();
        const GridTheme& theme = GridTheme::light();
        QVERIFY(countColor(image, inner(screen, screen.cell(2, 2)), theme.negative) > 0);
        QCOMPARE(countColor(image, inner(screen, screen.cell(2, 3)), theme.negative), 0);
        QVERIFY(countColor(image, inner(screen, screen.cell(2, 3)), theme.text) > 0);
    }

    void alignment_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("alignment");
        QTest::addColumn<QString>("side");
        QTest::newRow("number") << "12" << -1 << "right";
        QTest::newRow("text") << "ab" << -1 << "left";
        QTest::newRow("number told to stand left") << "12" << 1 << "left";
        QTest::newRow("text told to stand right") << "ab" << 0 << "right";
        QTest::newRow("text told to be centred") << "ab" << 2 << "centre";
    }
    void alignment() {
        QFETCH(QString, text);
        QFETCH(int, alignment);
        QFETCH(QString, side);
        Screen screen;
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, text.toStdString());
        if (alignment >= 0) {
            screen.set({"COL2", "ROW3"}, GridAttribute::Alignment, static_cast<std::int16_t>(alignment));
        }
        const QRect cell = screen.view().cellRect(screen.cell(2, 3)).adjusted(0, 1, -1, -2);
        const auto [first, last] = writtenColumns(screen.picture(), cell, GridTheme::light().base);
        QVERIFY(first >= 0);
        const int before = first;
        const int behind = cell.width() - 1 - last;
        if (side == QLatin1String("right")) {
            QVERIFY2(behind >= 7 && behind <= 9 && before > 20, qPrintable(QString::number(behind)));
        } else if (side == QLatin1String("left")) {
            QVERIFY2(before >= 7 && before <= 9 && behind > 20, qPrintable(QString::number(before)));
        } else {
            QVERIFY(std::abs(before - behind) <= 3);
        }
    }

    void aNumberThatDoesNotFitIsNotCut() {
        Screen screen;
        const Cell cell = screen.cell(2, 3);
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, "123456789012345");
        GridFonts fonts(screen.view().font(), screen.view().geometry().unit);
        const auto isCut = [&](Cell which) {
            return GridPainter({screen.grid(), screen.view().geometry(), GridTheme::light(), fonts,
                                screen.view().bitmaps(), PendingMarks(), RowDots(), true})
                .isCut(which);
        };
        QVERIFY(isCut(cell));
        QVERIFY(!isCut(screen.cell(2, 4)));
        screen.set({"COL2", {}}, GridAttribute::Width, std::int16_t{160});
        QVERIFY(!isCut(cell));
    }

    void highTextStaysInItsRow_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("column");
        for (const char* column : {"COL2", "FLC0", "FRC1"}) {
            QTest::addRow("text in %s", column) << "Ägyptj" << column;
            QTest::addRow("number in %s", column) << "888" << column;
        }
    }
    void highTextStaysInItsRow() {
        QFETCH(QString, text);
        QFETCH(QString, column);
        Screen screen;
        const std::string key = column.toStdString();
        for (const char* row : {"ROW2", "ROW3", "ROW4"}) {
            screen.set({key, row}, GridAttribute::Contents, "");
        }
        const QImage before = screen.picture();
        screen.set({key, "ROW3"}, GridAttribute::Font, ";24;Normal");
        screen.set({key, "ROW3"}, GridAttribute::Contents, text.toStdString());
        const QImage after = screen.picture();
        const QRect cell = screen.view().cellRect(screen.cell(key, "ROW3"));
        QVERIFY2(before.copy(cell) != after.copy(cell), "the text is there");
        for (const char* row : {"ROW2", "ROW4"}) {
            const QRect neighbour = screen.view().cellRect(screen.cell(key, row)).adjusted(0, 1, 0, 0);
            QVERIFY2(before.copy(neighbour) == after.copy(neighbour), row);
        }
    }

    /// A line shows as it does alone at its place; what does not fit ends in an ellipsis and is in the tip.
    void linesOfATextStandBelowEachOther() {
        Screen screen;
        const auto show = [&](const char* text, int height) {
            screen.set({{}, "ROW3"}, GridAttribute::Height, static_cast<std::int16_t>(height));
            screen.set({"COL2", "ROW3"}, GridAttribute::Contents, text);
            const QRect cell = screen.view().cellRect(screen.cell(2, 3)).adjusted(1, 1, -1, -1);
            return screen.picture().copy(QRect(cell.topLeft() * screen.picture().devicePixelRatio(), cell.size()));
        };
        GridFonts fonts(screen.view().font(), screen.view().geometry().unit);
        const auto isCut = [&] {
            return GridPainter({screen.grid(), screen.view().geometry(), GridTheme::light(), fonts,
                                screen.view().bitmaps(), PendingMarks(), RowDots(), true})
                .isCut(screen.cell(2, 3));
        };
        screen.set({"COL2", "ROW3"}, GridAttribute::Alignment, std::int16_t{1});
        const QImage two = show("north\nsouth", 34);
        QVERIFY(!isCut());
        QVERIFY2(two == show("north\r\nsouth\n", 34), "however lines end");
        const QImage upper = show("north\n ", 34);
        const QImage lower = show(" \nsouth", 34);
        const int half = two.height() / 2;
        QVERIFY(upper != lower && upper != two);
        QCOMPARE(two.copy(0, 0, two.width(), half), upper.copy(0, 0, two.width(), half));
        QCOMPARE(two.copy(0, half, two.width(), half), lower.copy(0, half, two.width(), half));
        const QImage cut = show("north\nsouth\neast", 34);
        QVERIFY(isCut());
        QVERIFY2(cut == show("north\nsouth\xE2\x80\xA6", 34), "more lines follow");
        QVERIFY(show("north\nsouth", 20) == show("north\xE2\x80\xA6", 20));
        show("north\na long line that is wider than its cell", 34);
        QVERIFY(isCut());
    }

    void aBitmapStaysInItsCell() {
        Screen screen;
        screen.set({"COL2", {}}, GridAttribute::Width, std::int16_t{14});
        const QImage before = screen.picture();
        screen.set({"COL2", "ROW3"}, GridAttribute::Bitmap, "flag-red");
        const QImage after = screen.picture();
        for (const int column : {1, 3}) {
            const QRect neighbour = screen.view().cellRect(screen.cell(column, 3));
            QVERIFY2(before.copy(neighbour) == after.copy(neighbour), qPrintable(QString::number(column)));
        }
    }

    void fixedCellsTellWhetherTheyCanBeEdited_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void fixedCellsTellWhetherTheyCanBeEdited() {
        QFETCH(bool, dark);
        const GridTheme& theme = dark ? GridTheme::darkTheme() : GridTheme::light();
        Screen screen;
        screen.view().setTheme(theme);
        const std::pair<const char*, const char*> cells[] = {
            {"FLC1", "ROW3"}, {"FRC1", "ROW3"}, {"COL2", "FTR1"}, {"COL2", "FBR1"}};
        for (const auto& [column, row] : cells) {
            const QRect part = inner(screen, screen.cell(column, row));
            const QRgb editable = ground(screen.picture(), part);
            QVERIFY2(editable == theme.base, row);
            const bool isColumn = std::string_view(column) != "COL2";
            const CellKeyView fixed = isColumn ? CellKeyView{column, {}} : CellKeyView{{}, row};
            screen.set(fixed, GridAttribute::ReadOnly, true);
            screen.set(fixed, GridAttribute::BackgroundColor, "tovGray");
            QVERIFY2(ground(screen.picture(), part) != theme.base, row);
        }
    }

    void textRunsOnOverEmptyCellsOnly() {
        Screen screen;
        const std::string text = "a text for two and a half columns";
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, text);
        const QRect third = screen.view().cellRect(screen.cell(3, 3)).adjusted(0, 2, 0, -3);
        const QRgb line = GridTheme::light().line;
        screen.set({"COL4", "ROW3"}, GridAttribute::Contents, "");
        QCOMPARE(name(screen.picture().pixel(third.left() - 1, third.center().y())), name(line));
        screen.set({"COL3", "ROW3"}, GridAttribute::Contents, "");
        const QImage over = screen.picture();
        QVERIFY2(countInk(over, third, GridTheme::light().base) > 60, "the text runs on");
        QVERIFY2(name(over.pixel(third.left() - 1, third.top())) != name(line), "the line gives way");
        screen.grid().ScrollToColumn(*screen.grid().FindColumn("COL3"));
        QVERIFY2(countInk(screen.picture(), inner(screen, screen.cell(3, 3)), GridTheme::light().base) > 60,
                 "it still does when its own cell is scrolled away");
    }

    void aNoteInAFixedRowEndsInSight() {
        Screen screen;
        const Cell note = screen.cell("COL3", "FBR1");
        const QRect line = screen.view().cellRect(note).adjusted(0, 2, 0, -3);
        const GridGeometry& geometry = screen.view().geometry();
        const int end = geometry.horizontal.band(AxisLayout::Area::Center).end;
        const QRect lastColumn(end - 70, line.top(), 60, line.height());
        const QRect atTheEdge(end - 6, line.top(), 4, line.height());
        GridFonts fonts(screen.view().font(), geometry.unit);
        const PendingMarks pending;
        const RowDots dots;
        const struct {
            const char* text;
            bool cut;
        } cases[] = {{"a short note", false}, {"MMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMM", true}};
        for (const auto& row : cases) {
            screen.set({"COL3", "FBR1"}, GridAttribute::Contents, row.text);
            const QImage image = screen.picture();
            const QRgb under = ground(image, lastColumn);
            QVERIFY2((countInk(image, lastColumn, under) > 60) == row.cut, row.text);
            QVERIFY2(countInk(image, atTheEdge, under) == 0, row.text);
            GridPainter painter(
                {screen.grid(), geometry, GridTheme::light(), fonts, screen.view().bitmaps(), pending, dots, true});
            QVERIFY2(painter.isCut(note) == row.cut, row.text);
        }
    }

    void hiddenOnesLeaveAMark() {
        Screen screen;
        const auto marks = [&] {
            const QRect heading = screen.view().cellRect(screen.cell("COL4", "FTR0"));
            const QRect border(heading.left() - 4, heading.center().y(), 8, 1);
            return countColor(screen.picture(), border, GridTheme::light().muted);
        };
        QCOMPARE(marks(), 0);
        screen.set({"COL3", {}}, GridAttribute::Hidden, true);
        QCOMPARE(marks(), 2);
        QVERIFY(screen.view().cellRect(screen.cell(3, 1)).isEmpty());
    }

    void bitmaps_data() {
        QTest::addColumn<QString>("name");
        for (const char* bitmap : {"arrow-up", "arrow-down", "arrow-left", "arrow-right", "flag-red", "flag-yellow",
                                   "flag-green", "lock", "note", "ok", "warning", "error"}) {
            QTest::newRow(bitmap) << bitmap;
        }
    }
    void bitmaps() {
        QFETCH(QString, name);
        Screen screen;
        const QRect cell = inner(screen, screen.cell(2, 3));
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, "");
        for (const GridTheme* theme : {&GridTheme::light(), &GridTheme::darkTheme()}) {
            screen.view().setTheme(*theme);
            screen.set({"COL2", "ROW3"}, GridAttribute::Bitmap, "");
            QCOMPARE(countColor(screen.picture(), cell, theme->base), cell.width() * cell.height());
            screen.set({"COL2", "ROW3"}, GridAttribute::Bitmap, name.toStdString());
            screen.set({"COL2", "ROW3"}, GridAttribute::BitmapAlignment, std::int16_t{1});
            const QImage image = screen.picture();
            int readable = 0;
            for (int y = cell.top(); y <= cell.bottom(); ++y) {
                for (int x = cell.left(); x < cell.left() + cell.width() / 2; ++x) {
                    readable += contrastRatio(image.pixel(x, y), theme->base) > 2.4 ? 1 : 0;
                }
            }
            QVERIFY2(readable > 12, qPrintable(QString::number(readable)));
        }
    }

    void reliefIsASoftEdge() {
        Screen screen;
        const QRect cell = screen.view().cellRect(screen.cell(2, 3));
        const QPoint edge(cell.center().x(), cell.bottom() - 1);
        QCOMPARE(name(screen.picture().pixel(edge)), name(GridTheme::light().base));
        screen.set({"COL2", "ROW3"}, GridAttribute::Relief, true);
        const QRgb shaded = screen.picture().pixel(edge);
        QVERIFY(shaded != GridTheme::light().base && contrastRatio(shaded, GridTheme::light().base) < 1.5);
    }

    /// Only the changed line may be painted again, and it must be.
    void aChangedCellIsPaintedAtOnce() {
        Screen screen;
        const QRect cell = inner(screen, screen.cell(2, 3));
        static_cast<void>(screen.picture());
        screen.set({"COL2", "ROW3"}, GridAttribute::Contents, "");
        QApplication::processEvents();
        QCOMPARE(countColor(screen.picture(), cell, GridTheme::light().text), 0);
    }

    void largerFontsAndStyles() {
        Screen screen;
        const QRect cell = screen.view().cellRect(screen.cell(2, 3)).adjusted(0, 0, -1, -1);
        const auto ink = [&](const char* font) {
            screen.set({"COL2", "ROW3"}, GridAttribute::Font, font);
            return countColor(screen.picture(), cell, GridTheme::light().text);
        };
        const int plain = ink(";;Normal");
        QVERIFY(ink(";;Bold") > plain);
        QVERIFY(ink(";12;Normal") > plain);
        QVERIFY(ink("DejaVu Serif;;Normal") != plain);
    }
};

}  // namespace planview

QTEST_MAIN(planview::GridPaintTest)
#include "GridPaintTest.moc"
