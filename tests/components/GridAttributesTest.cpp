// SPDX-License-Identifier: MIT
#include "components/BuiltInBitmaps.h"
#include "support/GridText.h"

namespace planview {
namespace {

class GridAttributesTest : public GridTest {
protected:
    void SetUp() override {
        CreateSmallGrid();
        ASSERT_EQ(grid_.CreateColor("green", 0, 255, 0), GridStatus::Ok);
    }

    /// The name of a cell's background, empty where nothing sets one.
    std::string Background(CellKeyView keys) {
        const std::int16_t index = grid_.Look(At(keys)).background;
        return index < 0 ? std::string() : grid_.Colors()[static_cast<std::size_t>(index)].name;
    }
    GridStatus SetCenter(GridElement element, std::string_view key, GridAttribute attribute, const Variant& value) {
        const CellKeyView keys = element == GridElement::Row ? CellKeyView{{}, key} : CellKeyView{key, {}};
        return grid_.SetCenterAttribute(element, keys, attribute, value, false);
    }
    std::string Shown(const char* contents, const char* format) {
        EXPECT_EQ(SetCell({"COL1", "ROW1"}, GridAttribute::Contents, contents), GridStatus::Ok);
        EXPECT_EQ(SetCell({"COL1", "ROW1"}, GridAttribute::Format, format), GridStatus::Ok);
        return grid_.DisplayText(At({"COL1", "ROW1"}));
    }
};

TEST_F(GridAttributesTest, LayersLieOverEachOther) {
    constexpr auto Color = GridAttribute::BackgroundColor;
    EXPECT_EQ(Background({"COL1", "ROW1"}), "");
    SetGrid(Color, "red");
    EXPECT_EQ(Background({"FLC0", "FTR0"}), "red");
    EXPECT_EQ(grid_.Settings().backgroundColor, 0);
    SetColumn("COL1", Color, "blue");
    EXPECT_EQ(Background({"COL1", "FTR0"}), "blue") << "fixed cells of the column too";
    EXPECT_EQ(Background({"COL2", "ROW1"}), "red");
    SetRow("ROW1", Color, "green");
    EXPECT_EQ(Background({"COL1", "ROW1"}), "green") << "row over column";
    EXPECT_EQ(Background({"FLC0", "ROW1"}), "green");
    SetCell({"COL1", "ROW1"}, Color, "red");
    EXPECT_EQ(Background({"COL1", "ROW1"}), "red") << "cell over row";
}

TEST_F(GridAttributesTest, CenterAttributesStayInTheCenter) {
    constexpr auto Color = GridAttribute::BackgroundColor;
    SetRow("ROW1", Color, "red");
    SetCenter(GridElement::Row, "ROW1", Color, "blue");
    EXPECT_EQ(Background({"COL1", "ROW1"}), "blue");
    EXPECT_EQ(Background({"FRC1", "ROW1"}), "red");
    EXPECT_EQ(Background({"FLC0", "ROW1"}), "red");
    SetRow("ROW1", Color, "green");
    EXPECT_EQ(Background({"COL1", "ROW1"}), "green") << "the whole row takes the place of its centre";

    SetCenter(GridElement::Column, "FRC1", Color, "blue");
    EXPECT_EQ(Background({"FRC1", "ROW2"}), "blue");
    EXPECT_EQ(Background({"FRC1", "FBR1"}), "");
    SetCenter(GridElement::Row, "FBR1", Color, "red");
    EXPECT_EQ(Background({"COL2", "FBR1"}), "red");
    EXPECT_EQ(Background({"FRC1", "FBR1"}), "");
}

TEST_F(GridAttributesTest, EachAttributeComesThroughAlone) {
    const Cell cell = At({"COL1", "ROW1"});
    SetRow("ROW1", GridAttribute::ReadOnly, true);
    SetColumn("COL1", GridAttribute::Relief, "X");
    SetGrid(GridAttribute::HelpLine, 1);
    SetRow("ROW1", GridAttribute::Alignment, 2.0);
    SetCell({"COL1", "ROW1"}, GridAttribute::Bitmap, "lock");
    SetCell({"COL1", "ROW1"}, GridAttribute::BitmapAlignment, std::int16_t{1});
    SetCell({"COL1", "ROW1"}, GridAttribute::ForegroundColor, "blue");
    CellLook look = grid_.Look(cell);
    EXPECT_TRUE(look.readOnly && look.relief && look.helpLine && !look.textLine);
    EXPECT_TRUE(look.hasAlignment);
    EXPECT_EQ(look.alignment, GridAlignment::Center);
    ASSERT_TRUE(look.bitmap);
    EXPECT_EQ(*look.bitmap, "lock");
    EXPECT_EQ(look.bitmapAlignment, GridAlignment::Left);
    EXPECT_EQ(look.foreground, 1);
    EXPECT_EQ(look.background, -1);
    EXPECT_FALSE(look.font);

    SetCell({"COL1", "ROW1"}, GridAttribute::ReadOnly, "");
    SetCell({"COL1", "ROW1"}, GridAttribute::Bitmap, "");
    look = grid_.Look(cell);
    EXPECT_FALSE(look.readOnly) << "a cell may be written to in a row that may not";
    EXPECT_FALSE(look.bitmap);
    EXPECT_TRUE(grid_.Look(At({"COL2", "ROW1"})).readOnly);
}

TEST_F(GridAttributesTest, ReadsFonts) {
    struct Row {
        const char* text;
        GridFont font;
    };
    grid_.RegisterFonts({"Arial", "Courier New"});
    for (const Row& row : {
             Row{"Arial;12;Bold", {"Arial", 12, true, false}},
             {"courier new;4;Normal", {"courier new", 4, false, false}},
             {"Arial", {"Arial", 0, false, false}},
             {";96", {"", 96, false, false}},
             {";;Cursiv", {"", 0, false, true}},
             {" Arial ; 8 ; Bold  Cursiv ", {"Arial", 8, true, true}},
         }) {
        EXPECT_EQ(SetRow("ROW1", GridAttribute::Font, row.text), GridStatus::Ok) << row.text;
        const GridFont* font = grid_.Look(At({"COL1", "ROW1"})).font;
        ASSERT_TRUE(font) << row.text;
        EXPECT_EQ(*font, row.font) << row.text;
    }
    EXPECT_EQ(SetRow("ROW1", GridAttribute::Font, ""), GridStatus::Ok);
    EXPECT_FALSE(grid_.Look(At({"COL1", "ROW1"})).font);
    grid_.RegisterFonts({"Lucida"});
    EXPECT_EQ(SetRow("ROW1", GridAttribute::Font, "Arial;12;Bold"), GridStatus::UnknownFont) << "was known before";
    grid_.RegisterFonts({});
    EXPECT_EQ(SetRow("ROW1", GridAttribute::Font, "Whatever"), GridStatus::Ok);
}

TEST_F(GridAttributesTest, ShowsContentsByFormat) {
    struct Row {
        const char* contents;
        const char* format;
        const char* shown;
    };
    for (const Row& row : {
             Row{"1234,5", "#,##0.0", "1.234,5"},
             {"1234.5", "#,##0.0", "1.234,5"},
             {"1234,5", "", "1234,5"},
             {"12 t", "0.0", "12 t"},
             {"", "0.0", ""},
             {"-3", "0;(0)", "(3)"},
         }) {
        EXPECT_EQ(Shown(row.contents, row.format), row.shown) << row.contents << " by " << row.format;
    }
    SetRow("ROW1", GridAttribute::TextLine, true);
    EXPECT_EQ(Shown("1990", "0.00"), "1990") << "a text line carries texts";
    const Cell cell = At({"COL1", "ROW1"});
    EXPECT_EQ(grid_.Alignment(cell, grid_.Look(cell)), GridAlignment::Left);
    SetRow("ROW1", GridAttribute::TextLine, false);
    EXPECT_EQ(grid_.Alignment(cell, grid_.Look(cell)), GridAlignment::Right);
    EXPECT_EQ(grid_.Number(cell, grid_.Look(cell)), 1990);
    SetGrid(GridAttribute::Alignment, 2);
    EXPECT_EQ(grid_.Alignment(cell, grid_.Look(cell)), GridAlignment::Center);
}

TEST_F(GridAttributesTest, KnowsBitmapsAndKeepsRegisteredOnes) {
    for (const std::string_view name : BuiltInBitmaps) {
        EXPECT_EQ(SetCell({"COL1", "ROW1"}, GridAttribute::Bitmap, name), GridStatus::Ok) << name;
    }
    grid_.RegisterBitmap("logo");
    grid_.RegisterBitmap("logo");
    EXPECT_EQ(grid_.Destroy(false), GridStatus::Ok);
    CreateSmallGrid();
    EXPECT_EQ(SetCell({"COL1", "ROW1"}, GridAttribute::Bitmap, "logo"), GridStatus::Ok);
    EXPECT_EQ(*grid_.Look(At({"COL1", "ROW1"})).bitmap, "logo");
}

TEST_F(GridAttributesTest, KeepsSettingsAndSizes) {
    SetGrid(GridAttribute::GridLineColor, "blue");
    SetGrid(GridAttribute::MovePermission, 1);
    SetGrid(GridAttribute::ResizePermission, false);
    SetGrid(GridAttribute::DragDrop, 1.0);
    SetGrid(GridAttribute::DoubleBuffering, true);
    SetGrid(GridAttribute::LabelColumnWidth, 200);
    SetGrid(GridAttribute::LabelAutoFit, "X");
    SetGrid(GridAttribute::Switched, "X");
    const GridSettingsState& settings = grid_.Settings();
    EXPECT_EQ(settings.gridLineColor, 1);
    EXPECT_TRUE(settings.moveAllowed && !settings.resizeAllowed && settings.dragDrop && settings.doubleBuffering);
    EXPECT_TRUE(settings.labelAutoFit && settings.switched);
    EXPECT_EQ(settings.labelColumnWidth, 200);
    EXPECT_EQ(SetColumn("FLC0", GridAttribute::Width, 0), GridStatus::Ok);
    EXPECT_EQ(settings.labelColumnWidth, DefaultLabelColumnWidth);

    SetColumn("COL1", GridAttribute::Width, MaxTrackSize);
    SetRow("ROW1", GridAttribute::Height, 1);
    EXPECT_EQ(grid_.Column(ColumnAt("COL1")).width, MaxTrackSize);
    EXPECT_EQ(grid_.Row(RowAt("ROW1")).height, 1);
    SetColumn("COL1", GridAttribute::Width, 0);
    SetRow("ROW1", GridAttribute::Height, 0);
    EXPECT_EQ(grid_.Column(ColumnAt("COL1")).width, DefaultColumnWidth);
    EXPECT_EQ(grid_.Row(RowAt("ROW1")).height, DefaultRowHeight);

    EXPECT_EQ(grid_.Destroy(false), GridStatus::Ok);
    EXPECT_FALSE(grid_.Settings().created || grid_.Settings().switched || grid_.Settings().moveAllowed);
    EXPECT_TRUE(grid_.Colors().empty());
}

TEST_F(GridAttributesTest, KeepsTooltipsAndLongTexts) {
    const std::string megabyte(1 << 20, 'x');
    const Cell cell = At({"FLC0", "ROW2"});
    SetCell({"FLC0", "ROW2"}, GridAttribute::Contents, megabyte);
    SetCell({"FLC0", "ROW2"}, GridAttribute::Tooltip, "Grüße");
    EXPECT_EQ(grid_.Contents(cell), megabyte);
    EXPECT_EQ(grid_.Tooltip(cell), "Grüße");
    EXPECT_EQ(grid_.Tooltip(At({"COL1", "ROW2"})), "");
    SetCell({"FLC0", "ROW2"}, GridAttribute::Contents, "");
    SetCell({"FLC0", "ROW2"}, GridAttribute::Tooltip, "");
    EXPECT_EQ(grid_.Contents(cell) + grid_.Tooltip(cell), "");
}

}  // namespace
}  // namespace planview
