// SPDX-License-Identifier: MIT
#include <planview/AutomationObject.h>
#include <planview/MemoryTable.h>

#include "contract/PlatformContract.h"
#include "dialogs/frmGrid.h"
#include "dialogs/frmRow.h"
#include "platform/Desktop.h"
#include "platform/HeadlessPlatform.h"
#include "support/ScriptedPlatform.h"
#include "trace/frmTrace.h"

namespace planview {

namespace {

void NobodyThere() {}

void CheckPlatform(const Desktop& platform) {
    test::CheckSystemInformation(platform.system);
    test::CheckClipboard(platform.clipboard);
    test::CheckMessageBoxes(platform.messageBoxes, NobodyThere);
    test::CheckForms(platform.forms, *frmTrace::Share(), NobodyThere);
    frmTrace::End(*frmTrace::Share());
    frmGrid options(platform.forms, nullptr);
    test::CheckForms(platform.forms, options, NobodyThere);
    frmRow row(platform.forms, platform.messageBoxes, nullptr);
    test::CheckForms(platform.forms, row, NobodyThere);
}

}  // namespace

TEST(PlatformContract, Headless) {
    HeadlessPlatform headless;
    const Desktop platform(headless.Interfaces());
    CheckPlatform(platform);
    test::CheckPopups(platform.popups, false, [](const std::string&) {});
    test::CheckProgress(platform.progress, false);
    EXPECT_EQ(platform.fileDialogs.Save({}), "");
    EXPECT_EQ(platform.fileDialogs.Open({}), "");
}

TEST(PlatformContract, Scripted) {
    test::ScriptedPlatform platform;
    CheckPlatform(Desktop(platform.Interfaces()));
    test::CheckPopups(platform, true, [&](const std::string& name) { platform.choices = {name}; });
    platform.progress.cancelAt = 3;
    test::CheckProgress(platform.progress, true);
}

TEST(ObjectRegistry, MakesWhatWasRegistered) {
    ObjectRegistry objects;
    EXPECT_EQ(objects.Create("Excel.Application"), nullptr);
    const ObjectRef first = MemoryTable::WithFieldsOf("TAB");
    const ObjectRef second = MemoryTable::WithFieldsOf("TEXTS");
    objects.Register("Excel.Application", [&] { return first; });
    objects.Register("Other", [&] {
        objects.Register("Other", [&] { return second; });
        return first;
    });
    EXPECT_EQ(objects.Create("EXCEL.application"), first);
    EXPECT_EQ(objects.Create("Other"), first) << "registers another one while it is being made";
    EXPECT_EQ(objects.Create("Other"), second);
    objects.Register("excel.application", [&] { return second; });
    EXPECT_EQ(objects.Create("Excel.Application"), second) << "the later one takes the place";
    objects.Unregister("Excel.Application");
    objects.Unregister("never there");
    EXPECT_EQ(objects.Create("Excel.Application"), nullptr);
    objects.Register("Fails", []() -> ObjectRef { throw AutomationError(AutomationErrorCode::Failed, "no licence"); });
    EXPECT_THROW((void)objects.Create("Fails"), AutomationError);
}

#ifdef _WIN32

TEST(HeadlessPlatform, TellsOfThisMachine) {
    HeadlessPlatform platform;
    const std::optional<MemoryStatus> memory = platform.Interfaces().system->Memory();
    ASSERT_TRUE(memory);
    EXPECT_GT(memory->totalPhysical, 64 * 1024 * 1024);
    EXPECT_EQ(platform.Interfaces().system->PlatformId(), 2);
    ASSERT_EQ(_wputenv_s(L"LOCALAPPDATA", L"C:\\users\\J\u00F6rg \u03B1"), 0);
    EXPECT_EQ(platform.Interfaces().system->LogFolder(), "C:\\users\\J\xC3\xB6rg \xCE\xB1\\planview");
    ASSERT_EQ(_wputenv_s(L"LOCALAPPDATA", L"relative"), 0);
    EXPECT_EQ(platform.Interfaces().system->LogFolder(), "");
}

#else

TEST(HeadlessPlatform, TellsOfThisMachine) {
    HeadlessPlatform platform;
    const std::optional<MemoryStatus> memory = platform.Interfaces().system->Memory();
    ASSERT_TRUE(memory);
    EXPECT_GT(memory->totalPhysical, 64 * 1024 * 1024);
    EXPECT_EQ(platform.Interfaces().system->PlatformId(), 3);
    ASSERT_EQ(setenv("XDG_STATE_HOME", "/tmp/state", 1), 0);
    EXPECT_EQ(platform.Interfaces().system->LogFolder(), "/tmp/state/planview");
    ASSERT_EQ(setenv("XDG_STATE_HOME", "relative", 1), 0);
    ASSERT_EQ(setenv("HOME", "/home/planner", 1), 0);
    EXPECT_EQ(platform.Interfaces().system->LogFolder(), "/home/planner/.local/state/planview");
}

#endif

}  // namespace planview
