// SPDX-License-Identifier: MIT
#include "menus/modPopup.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;

namespace {

/// A popup as text: one line per entry, submenus indented; "-" a separator, "(x)" a disabled entry, "x *" a checked
/// one.
std::string PopupText(const std::vector<PopupEntry>& entries, const std::string& indent = "") {
    std::string text;
    for (const PopupEntry& entry : entries) {
        const std::string caption = entry.separator ? "-" : entry.enabled ? entry.caption : "(" + entry.caption + ")";
        text += indent + caption + (entry.checked ? " *" : "") + (entry.shortcut.empty() ? "" : "  " + entry.shortcut) +
                "\n" + PopupText(entry.entries, indent + "  ");
    }
    return text;
}

class MenusTest : public test::TracedTest {
protected:
    [[nodiscard]] std::string Text(MainMenu which) const { return PopupText(menu.PopupOf(which).entries); }
    [[nodiscard]] static Lines Updates() {
        Lines parameters;
        for (const std::string& entry : EntriesOf("Update")) {
            parameters.push_back(entry.substr(entry.find('{')));
        }
        return parameters;
    }

    frmMenu menu;
    UserMenu user;
};

}  // namespace

TEST_F(MenusTest, EachPopupHoldsItsEntriesInTheirOrder) {
    const struct {
        MainMenu which;
        const char* text;
    } cases[] = {
        {MainMenu::Grid,
         "Macrotree\nChart\n-\nSwitch grid\nZoom grid\n-\nMacro\n  Start recording\n  Interrupt recording\n  -\n"
         "  Stop recording\n  -\n  Undo\n-\nMicrosoft Excel\n  Download\n  Upload\n-\nOptions\n  Properties\n  -\n"
         "  Fill with test data\n  -\n  Trace\n  Show trace windows\n"},
        {MainMenu::Column,
         "Select all\nSelect block\nDeselect\n-\nHide selected columns\nShow selected columns\n-\nProperties\n  Width\n"
         "    Reset\n    Reset all\n"},
        {MainMenu::Row,
         "Select all\nSelect block\nDeselect\n-\nHide selected rows\nShow selected rows\n-\nProperties\n"
         "  Background color\n  Foreground color\n  Height\n    Reset\n    Reset all\n  -\n  Attributes\n"},
        {MainMenu::Cell, "Cut  Ctrl+X\nCopy  Ctrl+C\nPaste  Ctrl+V\n"},
        {MainMenu::Chart,
         "Arrange/Redraw\n-\nChart view\n  Standard\n  Forecast (Compare)\n-\nCopy to clipboard\n-\nProperties\n"
         "  Attributes\n"},
        {MainMenu::Series,
         "Chart series\n  Line\n  Column\n  -\n  Line stacked\n  Line stacked 100%\n-\nTrendline\n  Linear\n"
         "  Logarithmic\n  Potential\n  Expotential\n  Average\n"},
        {MainMenu::Trendline, "Color\n-\nDelete\n"},
        {MainMenu::Macro, "Expand all\nCollapse all\n-\nStart recording\n-\nRename/Edit\n"},
        {MainMenu::MacroFunction, "Insert\nAdd\n-\nCreate on next level\n"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Text(row.which), row.text) << static_cast<int>(row.which);
    }
}

TEST_F(MenusTest, EveryEntryWithoutASubmenuAsksForACommandOfItsOwn) {
    std::vector<std::string_view> commands;
    for (std::size_t i = 0; i < MenuTree().size(); ++i) {
        const MenuLine& line = MenuTree()[i];
        const bool parent = i + 1 < MenuTree().size() && MenuTree()[i + 1].depth > line.depth;
        EXPECT_EQ(line.command.empty(), parent || line.IsSeparator()) << line.name;
        EXPECT_EQ(FindMenuLine(line.name, line.index), i) << line.name << " stands there twice";
        if (!line.command.empty() && line.name != "mnuRecord") {
            EXPECT_EQ(std::count(commands.begin(), commands.end(), line.command), 0) << line.command;
            commands.push_back(line.command);
        }
    }
}

TEST_F(MenusTest, ColorsAreChosenByPosition) {
    const std::vector<PopupEntry> colors = menu.PopupOf(MainMenu::Colors).entries;
    ASSERT_EQ(colors.size(), 16U);
    EXPECT_EQ(colors[0].caption, "<black>");
    EXPECT_EQ(colors[0].swatch, (Rgb{0, 0, 0}));
    EXPECT_EQ(colors[9].caption, "<lightblue>");
    EXPECT_EQ(colors[9].swatch, (Rgb{0, 0, 255}));
    EXPECT_EQ(colors[15].caption, "<white>");
    EXPECT_EQ(colors[15].swatch, (Rgb{255, 255, 255}));
    for (int i = 0; i < 16; ++i) {
        menu.Click(colors[static_cast<std::size_t>(i)].name);
        EXPECT_EQ(menu.PendingCommand().command, "Color " + std::to_string(i));
    }
    EXPECT_EQ(EntriesOf("Selected").front(), "POPUP | {menu: Color 0} | Selected | ");
}

TEST_F(MenusTest, SettersTraceWhatTheyTouch) {
    const struct {
        const char* name;
        std::function<void()> set;
        Lines updates;
    } cases[] = {
        {"macro tree",
         [&] { modPopup::MacroTree(menu, true, true); },
         {"{menu: MACROTREE - checked: True - enabled: True}"}},
        {"switch, on", [&] { modPopup::Switch(menu, true, -1); }, {"{menu: SWITCH - checked: True - enabled: True}"}},
        {"switch, off",
         [&] { modPopup::Switch(menu, false, 0); },
         {"{menu: SWITCH - checked: False - enabled: False}"}},
        {"zoom", [&] { modPopup::Zoom(menu, true, false); }, {"{menu: ZOOM - checked: False - enabled: True}"}},
        {"test data",
         [&] { modPopup::FillTestData(menu, false); },
         {"{menu: FILL TEST DATA - checked: False - enabled: False}"}},
        {"recording",
         [&] { modPopup::MacroRecord(menu, true, RecordState::Running, false); },
         {"{menu: MACRO-RECORD}"}},
        {"spreadsheet",
         [&] { modPopup::Excel(menu, true, false); },
         {"{menu: EXCEL - checked: False - enabled: True}", "{menu: EXCEL - checked: False - enabled: False}"}},
        {"chart", [&] { modPopup::Chart(menu, true, true); }, {"{menu: CHART - checked: True - enabled: True}"}},
        {"chart views",
         [&] { modPopup::ChartViews(menu, false, false); },
         {"{menu: CHART VIEWS - checked: False - enabled: False}"}},
        {"trace", [&] { modPopup::Trace(menu, true, true); }, {"{menu: TRACE - checked: True - enabled: True}"}},
        {"show trace",
         [&] { modPopup::ShowTrace(menu, true); },
         {"{menu: SHOW TRACE - checked: False - enabled: True}"}},
        {"rename", [&] { modPopup::Rename(menu, true); }, {"{menu: RENAME - checked: False - enabled: True}"}},
        {"columns",
         [&] {
             modPopup::Columns(menu, {true, false, true});
         },
         {"{menu: HIDE - checked: False - enabled: True}", "{menu: SHOW - checked: False - enabled: False}",
          "{menu: WIDTH - checked: False - enabled: True}"}},
        {"rows",
         [&] {
             modPopup::Rows(menu, {false, true, true, false, true});
         },
         {"{menu: HIDE - checked: False - enabled: False}", "{menu: SHOW - checked: False - enabled: True}",
          "{menu: HEIGHT - checked: False - enabled: True}",
          "{menu: BACKGROUND COLOR - checked: False - enabled: False}",
          "{menu: FOREGROUND COLOR - checked: False - enabled: True}"}},
        {"cells",
         [&] {
             modPopup::CellEdit(menu, {false, true, false});
         },
         {"{menu: CELL EDIT - checked: False - enabled: False}", "{menu: CELL EDIT - checked: False - enabled: True}",
          "{menu: CELL EDIT - checked: False - enabled: False}"}},
        {"macro functions",
         [&] {
             modPopup::MacroFunction(menu, {true, true, false});
         },
         {"{menu: MACRO FUNCTION INSERT - checked: False - enabled: True}",
          "{menu: MACRO FUNCTION ADD - checked: False - enabled: True}",
          "{menu: MACRO FUNCTION NEXT LEVEL - checked: False - enabled: False}"}},
        {"series",
         [&] { modPopup::Series(menu, true, 21); },
         {"{menu: SERIES}", "{menu: SERIES LINE - checked: False - enabled: True}",
          "{menu: SERIES COLUMN - checked: False - enabled: True}",
          "{menu: SERIES LINE STACKED- checked: True - enabled: True}",
          "{menu: SERIES LINE STACKED 100% - checked: False - enabled: True}"}},
    };
    for (const auto& row : cases) {
        ForgetEntries();
        row.set();
        EXPECT_EQ(Updates(), row.updates) << row.name;
    }
    EXPECT_EQ(EntriesOf("Update").front(), "POPUP |  | Update | {menu: SERIES}");
}

TEST_F(MenusTest, RecordingSwitchesItsEntriesAsAGroup) {
    const struct {
        bool possible;
        RecordState state;
        bool canUndo;
        const char* text;
    } cases[] = {
        {false, RecordState::Off, false, "(Start) (Interrupt) (Stop) (Undo)"},
        {true, RecordState::Off, true, "Start (Interrupt) (Stop) (Undo)"},
        {true, RecordState::Running, false, "(Start) Interrupt Stop (Undo)"},
        {true, RecordState::Running, true, "(Start) Interrupt Stop Undo"},
        {true, RecordState::Interrupted, true, "Start (Interrupt) Stop Undo"},
    };
    for (const auto& row : cases) {
        modPopup::MacroRecord(menu, row.possible, row.state, row.canUndo);
        const auto shown = [&](const char* name, const std::string& word) {
            return menu.IsEnabled(name) ? word : "(" + word + ")";
        };
        EXPECT_EQ(shown("mnuMacroRecStart", "Start") + " " + shown("mnuMacroRecInterrupt", "Interrupt") + " " +
                      shown("mnuMacroRecStop", "Stop") + " " + shown("mnuMacroRecUndo", "Undo"),
                  row.text);
        EXPECT_EQ(menu.IsEnabled("mnuRecord"), menu.IsEnabled("mnuMacroRecStart"));
    }
    modPopup::MacroRecord(menu, false, RecordState::Off, false);
    EXPECT_NE(Text(MainMenu::Grid).find("(Macro)\n"), std::string::npos) << "nothing in the submenu can be chosen";
}

TEST_F(MenusTest, HostEntriesOfALaterLoadTakeThePlaceOfEarlierOnes) {
    const auto table = MemoryTable::WithFieldsOf("ROWMENU");
    test::AddRow(*table, {{"PFID", 11}, {"TEXT", "One"}, {"ENABLED", "X"}});
    test::AddRow(*table, {{"PFID", 12}, {"TEXT", "Two"}, {"ENABLED", "X"}});
    test::AddRow(*table, {{"PFID", 13}, {"TEXT", "Three"}, {"ENABLED", "x"}});
    user.UserRows(HostTable(table));
    EXPECT_EQ(user.Loaded(), 3);
    EXPECT_EQ(user.At(2).ENABLED, "X");
    EXPECT_EQ(user.At(3).ENABLED, "") << "only X enables";

    const auto shorter = MemoryTable::WithFieldsOf("CELLMENU");
    test::AddRow(*shorter, {{"PFID", 21}, {"TEXT", "Other"}, {"ENABLED", ""}});
    user.UserCell(HostTable(shorter));
    EXPECT_EQ(user.Loaded(), 1);
    EXPECT_EQ(user.At(1).PFID, 21);
    EXPECT_EQ(user.At(1).ENABLED, "");
    EXPECT_EQ(user.At(2).PFID, 12) << "number and caption stay";
    EXPECT_EQ(user.At(2).TEXT, "Two");
    EXPECT_EQ(user.At(2).ENABLED, "");

    user.UserGrid(HostTable());
    EXPECT_EQ(user.Loaded(), 0);
    EXPECT_EQ(user.At(1).TEXT, "Other");
    EXPECT_EQ(Entries(), (Lines{"POPUP |  | UserRows | {}", "POPUP |  | UserCell | {}", "POPUP |  | UserGrid | {}"}));
}

TEST_F(MenusTest, TheHundredAndFirstRowEndsTheLoad) {
    ExpectErrors();
    const auto table = MemoryTable::WithFieldsOf("COLMENU");
    for (int i = 1; i <= 101; ++i) {
        test::AddRow(*table, {{"PFID", i}, {"TEXT", std::to_string(i)}, {"ENABLED", "X"}});
    }
    user.UserCols(HostTable(table));
    EXPECT_EQ(user.Loaded(), 100);
    EXPECT_EQ(user.At(100).PFID, 100);
    EXPECT_EQ(user.At(100).ENABLED, "X");
    EXPECT_EQ(Entries(IsError).size(), 1U);
    EXPECT_THROW(static_cast<void>(user.At(101)), AutomationError);
}

}  // namespace planview
