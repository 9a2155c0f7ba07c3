// SPDX-License-Identifier: MIT
#include "menus/modPopup.h"
#include "support/ContextOnTables.h"

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

class MenusTest : public test::ContextTest {
protected:
    MenusTest() {
        for (int i = 1; i <= 3; ++i) {
            tables.AddColumn(i, "Month");
            tables.AddLine(i, "Line");
        }
        Build();
        ForgetEntries();
    }

    [[nodiscard]] std::string Text(MainMenu which) const { return PopupText(menu.PopupOf(which).entries); }
    void Update(MainMenu which, CommandPlace place = {}) {
        modPopup::Update(menu, which, context.runner.Situation(std::move(place)));
    }
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
    Lines commands;
    for (std::size_t i = 0; i < MenuTree().size(); ++i) {
        const MenuItem& line = MenuTree()[i];
        const bool parent = i + 1 < MenuTree().size() && MenuTree()[i + 1].depth > line.depth;
        EXPECT_EQ(line.Choice().empty(), parent || line.IsSeparator()) << line.name;
        EXPECT_EQ(FindMenuItem(line.name, line.index), i) << line.name << " stands there twice";
        if (!line.Choice().empty() && line.name != "mnuRecord") {
            EXPECT_EQ(std::count(commands.begin(), commands.end(), line.Choice()), 0) << line.Choice();
            commands.push_back(line.Choice());
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

TEST_F(MenusTest, TheViewsOwnColourIsAnEntryAndThePresentOneIsMarked) {
    const struct {
        const char* name;
        ColorQuestion question;
        const char* choice;
        const char* checked;
        const char* command;
    } cases[] = {
        {"own background", {0, ViewColor::Background}, "mnuColorOwn", "As the view", "Color 15"},
        {"own text", {5, ViewColor::Text}, "mnuColorOwn", "<red>", "Color 0"},
        {"own lines", {8, ViewColor::GridLines}, "mnuColor(3)", "As the view", "Color 3"},
        {"no own colour", {1, {}}, "mnuColorOwn", "<black>", ""},
        {"not known", {{}, ViewColor::Base}, "", "", ""},
    };
    for (const auto& row : cases) {
        platform.popups.clear();
        platform.choices = {row.choice};
        modPopup::ShowColors(platform, menu, row.question, PopupPlace::Mouse);
        EXPECT_EQ(menu.PendingCommand().command, row.command) << row.name;
        std::string checked;
        for (const PopupEntry& entry : platform.popups.front().entries) {
            checked += entry.checked ? entry.caption : "";
            EXPECT_EQ(entry.viewColor.has_value(), entry.caption == "As the view") << row.name;
        }
        EXPECT_EQ(checked, row.checked) << row.name;
        EXPECT_EQ(platform.popups.front().entries.size(), row.question.own ? 18U : 16U) << row.name;
    }
}

TEST_F(MenusTest, APopupTracesTheStateOfItsEntries) {
    const auto grid = [](const char* tree, const char* chart, const char* viewed, const char* cells,
                         const char* trace) {
        const std::string off = " - checked: False - enabled: ";
        return Lines{std::string("{menu: MACROTREE - checked: ") + tree + "}",
                     std::string("{menu: CHART - checked: ") + chart + " - enabled: True}",
                     std::string("{menu: SWITCH - checked: ") + viewed + " - enabled: True}",
                     std::string("{menu: ZOOM - checked: ") + viewed + " - enabled: True}",
                     "{menu: MACRO-RECORD}",
                     "{menu: EXCEL" + off + cells + "}",
                     "{menu: EXCEL" + off + cells + "}",
                     "{menu: FILL TEST DATA" + off + cells + "}",
                     std::string("{menu: TRACE - checked: ") + trace + " - enabled: True}",
                     std::string("{menu: SHOW TRACE - checked: False - enabled: ") + trace + "}"};
    };
    const std::string nodes = "macro";
    const auto none = [] {};
    const struct {
        const char* name;
        MainMenu which;
        CommandPlace place;
        std::function<void()> prepare;
        Lines updates;
    } cases[] = {
        {"grid", MainMenu::Grid, {}, none, grid("False - enabled: False", "False", "False", "True", "True")},
        {"grid, everything on",
         MainMenu::Grid,
         {},
         [&] {
             context.shared.settings.layoutMode = true;
             context.shared.settings.treeShown = context.shared.settings.chartShown = true;
             context.shared.settings.switched = context.shared.settings.zoomed = true;
         },
         grid("True - enabled: True", "True", "True", "True", "True")},
        {"grid without lines",
         MainMenu::Grid,
         {},
         [&] {
             tables.lineIndex->Clear();
             context.grid.construction.CreateFromTables();
         },
         grid("True - enabled: True", "True", "True", "False", "True")},
        {"columns, nothing selected",
         MainMenu::Column,
         {},
         none,
         {"{menu: HIDE - checked: False - enabled: False}", "{menu: SHOW - checked: False - enabled: False}",
          "{menu: WIDTH - checked: False - enabled: True}"}},
        {"columns, one selected",
         MainMenu::Column,
         {},
         [&] { context.grid.control.SelectColumn(*context.grid.control.FindColumn("COL2"), SelectionMode::Replace); },
         {"{menu: HIDE - checked: False - enabled: True}", "{menu: SHOW - checked: False - enabled: False}",
          "{menu: WIDTH - checked: False - enabled: True}"}},
        {"rows, there are none",
         MainMenu::Row,
         {},
         none,
         {"{menu: HIDE - checked: False - enabled: False}", "{menu: SHOW - checked: False - enabled: False}",
          "{menu: HEIGHT - checked: False - enabled: False}",
          "{menu: BACKGROUND COLOR - checked: False - enabled: False}",
          "{menu: FOREGROUND COLOR - checked: False - enabled: False}"}},
        {"a cell that is not there",
         MainMenu::Cell,
         {{"COL1", "ROW9"}},
         none,
         {"{menu: CELL EDIT - checked: False - enabled: False}", "{menu: CELL EDIT - checked: False - enabled: False}",
          "{menu: CELL EDIT - checked: False - enabled: False}"}},
        {"a heading",
         MainMenu::Cell,
         {{"COL1", "FTR0"}},
         none,
         {"{menu: CELL EDIT - checked: False - enabled: False}", "{menu: CELL EDIT - checked: False - enabled: True}",
          "{menu: CELL EDIT - checked: False - enabled: False}"}},
        {"chart", MainMenu::Chart, {}, none, {"{menu: CHART VIEWS - checked: False - enabled: True}"}},
        {"chart that is hidden",
         MainMenu::Chart,
         {},
         [&] { context.shared.settings.chartShown = false; },
         {"{menu: CHART VIEWS - checked: False - enabled: False}"}},
        {"series",
         MainMenu::Series,
         {},
         none,
         {"{menu: SERIES}", "{menu: SERIES LINE - checked: False - enabled: False}",
          "{menu: SERIES COLUMN - checked: False - enabled: False}",
          "{menu: SERIES LINE STACKED- checked: False - enabled: False}",
          "{menu: SERIES LINE STACKED 100% - checked: False - enabled: False}"}},
        {"macro tree, a root",
         MainMenu::Macro,
         {{}, nodes},
         [&] {
             test::AddRow(*tables.macroTree, {{"NODEKEY", nodes.c_str()}, {"NODETEXT", "Macro"}, {"RELATION", 1}});
             modMacro::Build(context.macros.nodes);
         },
         {"{menu: MACRO-RECORD}", "{menu: RENAME - checked: False - enabled: False}"}},
        {"macro tree, below a root",
         MainMenu::Macro,
         {{}, "step"},
         [&] {
             test::AddRow(*tables.macroTree,
                          {{"NODEKEY", "step"}, {"NODEREF", nodes.c_str()}, {"NODETEXT", "Step"}, {"RELATION", 4}});
             modMacro::Build(context.macros.nodes);
         },
         {"{menu: MACRO-RECORD}", "{menu: RENAME - checked: False - enabled: True}"}},
        {"a macro's element",
         MainMenu::MacroFunction,
         {{}, "step"},
         none,
         {"{menu: MACRO FUNCTION INSERT - checked: False - enabled: True}",
          "{menu: MACRO FUNCTION ADD - checked: False - enabled: True}",
          "{menu: MACRO FUNCTION NEXT LEVEL - checked: False - enabled: True}"}},
    };
    for (const auto& row : cases) {
        row.prepare();
        ForgetEntries();
        Update(row.which, row.place);
        EXPECT_EQ(Updates(), row.updates) << row.name;
    }
    EXPECT_EQ(EntriesOf("Update").front(),
              "POPUP |  | Update | {menu: MACRO FUNCTION INSERT - checked: False - enabled: True}");
}

TEST_F(MenusTest, RecordingSwitchesItsEntriesAsAGroup) {
    const struct {
        const char* name;
        std::function<void()> prepare;
        const char* text;
    } cases[] = {
        {"off", [] {}, "Start (Interrupt) (Stop) (Undo)"},
        {"runs", [&] { context.macros.recording.StartRecord(); }, "(Start) Interrupt Stop (Undo)"},
        {"with a step", [&] { context.runner.Run(Command::ZoomGrid); }, "(Start) Interrupt Stop Undo"},
        {"interrupted", [&] { context.macros.recording.InterruptRecord(); }, "Start (Interrupt) Stop Undo"},
        {"stopped", [&] { context.macros.recording.StopRecord(); }, "Start (Interrupt) (Stop) (Undo)"},
    };
    for (const auto& row : cases) {
        row.prepare();
        Update(MainMenu::Grid);
        Update(MainMenu::Macro);
        const auto shown = [&](const char* entry, const std::string& word) {
            return menu.IsEnabled(entry) ? word : "(" + word + ")";
        };
        EXPECT_EQ(shown("mnuMacroRecStart", "Start") + " " + shown("mnuMacroRecInterrupt", "Interrupt") + " " +
                      shown("mnuMacroRecStop", "Stop") + " " + shown("mnuMacroRecUndo", "Undo"),
                  row.text)
            << row.name;
        EXPECT_EQ(menu.IsEnabled("mnuRecord"), menu.IsEnabled("mnuMacroRecStart"));
    }
}

TEST_F(MenusTest, ASubmenuIsDisabledWithAllItsEntries) {
    Update(MainMenu::Column);
    EXPECT_NE(Text(MainMenu::Column).find("\nProperties\n  Width\n"), std::string::npos);
    tables.colsIndex->Clear();
    context.grid.construction.CreateFromTables();
    Update(MainMenu::Column);
    EXPECT_NE(Text(MainMenu::Column).find("\n(Properties)\n  (Width)\n    (Reset)\n"), std::string::npos)
        << Text(MainMenu::Column);
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
