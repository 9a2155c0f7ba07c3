#pragma once

#include <filesystem>

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

}  // namespace planview::test
