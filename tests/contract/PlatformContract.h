// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include <planview/Platform.h>

/// What every implementation of a platform interface must keep, so that fakes and desktops cannot drift apart. Each
/// implementation's tests call these.
namespace planview::test {

inline void CheckSystemInformation(const SystemInformation& system) {
    if (const std::optional<MemoryStatus> memory = system.Memory()) {
        EXPECT_GT(memory->totalPhysical, 0);
        EXPECT_GE(memory->totalPageFile, memory->availablePageFile);
        EXPECT_GE(memory->availablePageFile, 0);
    }
    if (const std::optional<int> platformId = system.PlatformId()) {
        EXPECT_GE(*platformId, 0);
    }
    const std::filesystem::path folder(system.LogFolder());
    EXPECT_TRUE(folder.empty() || folder.is_absolute()) << folder;
    EXPECT_TRUE(folder.empty() || folder.has_filename()) << folder << " ends in a separator";
    EXPECT_TRUE(system.DecimalMark() == '.' || system.DecimalMark() == ',');
}

/// `pressReturn` is run while the box is open, for implementations that wait for a user.
template <class PressReturn>
void CheckMessageBoxes(MessageBoxes& boxes, PressReturn pressReturn) {
    const struct {
        MessageButtons buttons;
        MessageAnswer defaultAnswer;
    } cases[] = {
        {MessageButtons::Ok, MessageAnswer::Ok},
        {MessageButtons::OkCancel, MessageAnswer::Cancel},
        {MessageButtons::YesNo, MessageAnswer::No},
        {MessageButtons::YesNo, MessageAnswer::Yes},
        {MessageButtons::YesNoCancel, MessageAnswer::Cancel},
    };
    for (const auto& row : cases) {
        pressReturn();
        EXPECT_EQ(
            boxes.Show({"Save trace to file ?", "Trace", row.buttons, MessageIcon::Exclamation, row.defaultAnswer}),
            row.defaultAnswer)
            << "Return presses the default button";
    }
    pressReturn();
    EXPECT_EQ(boxes.Show({std::string(10000, 'x') + "\n<b>&amp;</b>", "", MessageButtons::Ok, MessageIcon::None,
                          MessageAnswer::Ok}),
              MessageAnswer::Ok)
        << "a long text with markup in it";
}

inline void CheckClipboard(Clipboard& clipboard) {
    const struct {
        const char* name;
        ClipboardContents contents;
    } cases[] = {
        {"one value", {"12,5", "<table><tr><td>12,5</td></tr></table>"}},
        {"a block", {"1\t2\n3\t\"a\"\"b\"\n", "<table><tr><td>1</td><td>2</td></tr></table>"}},
        {"no table beside the text", {"only text", ""}},
        {"letters of other scripts", {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", ""}},
        {"line ends of other systems", {"1\r\n2\r3", ""}},
        {"nothing", {"", ""}},
    };
    for (const auto& row : cases) {
        clipboard.Set(row.contents);
        EXPECT_EQ(clipboard.Get().text, row.contents.text) << row.name;
        EXPECT_EQ(clipboard.Get().html, row.contents.html) << row.name << ": what was there before is gone";
    }
}

/// `closeForm` is run while the form is shown, for implementations that wait for a user.
template <class CloseForm>
void CheckForms(Forms& forms, Form& form, CloseForm closeForm) {
    forms.Unload(form);
    forms.Hide(form);
    forms.Load(form);
    forms.Load(form);
    closeForm();
    forms.ShowModal(form);
    closeForm();
    forms.ShowModal(form);
    forms.Hide(form);
    forms.Unload(form);
    closeForm();
    forms.ShowModal(form);  // showing loads
    forms.Unload(form);
}

/// `choose` is told a name before each popup and has the user choose the entry of that name, where he can, else close
/// the popup; the empty name closes it. `hasUser` is false for implementations that close every popup.
template <class Choose>
void CheckPopups(Popups& popups, bool hasUser, Choose choose) {
    const auto entry = [](std::string name, std::string caption) {
        PopupEntry made;
        made.name = std::move(name);
        made.caption = std::move(caption);
        return made;
    };
    PopupMenu menu{"Menu",
                   {entry("first", "Profit && loss\tCtrl+Q"), entry("disabled", "Disabled"), entry("", "-"),
                    entry("long", std::string(10000, 'm') + "&x"), entry("", "Submenu")}};
    menu.entries[1].enabled = false;
    menu.entries[2].separator = true;
    menu.entries[3].checked = true;
    menu.entries[4].entries = {entry("below", "Below"), entry("color", "")};
    menu.entries[4].entries[1].swatch = Rgb{255, 0, 0};
    menu.entries[4].entries[1].shortcut = "Ctrl+X";

    for (const PopupPlace place : {PopupPlace::Mouse, PopupPlace::CurrentCell}) {
        for (const std::string name : {"first", "long", "below", "color"}) {
            choose(name);
            EXPECT_EQ(popups.Choose(menu, place), hasUser ? name : "");
        }
        for (const std::string name : {"disabled", ""}) {
            choose(name);
            EXPECT_EQ(popups.Choose(menu, place), "") << name;
        }
    }
    choose("");
    EXPECT_EQ(popups.Choose({}, PopupPlace::Mouse), "") << "without entries";
}

/// `cancels` is whether Advance() lets a user of the implementation cancel from step 3 on.
inline void CheckProgress(Progress& progress, bool cancels) {
    progress.End();
    for (const int steps : {1, 1000}) {
        progress.Begin("Writing the workbook", steps);
        EXPECT_TRUE(progress.Advance(steps >= 2 ? 2 : 1));
        if (steps > 3) {
            EXPECT_EQ(progress.Advance(3), !cancels);
        }
        progress.End();
        progress.End();
    }
}

}  // namespace planview::test
