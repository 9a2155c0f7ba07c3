#include <planview/HeadlessPlatform.h>

#include "contract/PlatformContract.h"
#include "dialogs/frmGrid.h"
#include "dialogs/frmRow.h"
#include "support/ScriptedPlatform.h"
#include "trace/frmTrace.h"

namespace planview {

namespace {

void NobodyThere() {}

void CheckPlatform(const Platform& platform) {
    test::CheckSystemInformation(platform.system);
    test::CheckClipboard(platform.clipboard);
    test::CheckMessageBoxes(platform.messageBoxes, NobodyThere);
    test::CheckForms(platform.forms, frmTrace::Instance(), NobodyThere);
    frmTrace::End();
    frmGrid options(platform.forms, nullptr);
    test::CheckForms(platform.forms, options, NobodyThere);
    frmRow row(platform.forms, platform.messageBoxes, nullptr);
    test::CheckForms(platform.forms, row, NobodyThere);
}

}  // namespace

TEST(PlatformContract, Headless) {
    HeadlessPlatform platform;
    CheckPlatform(platform.Interfaces());
    test::CheckPopups(platform.Interfaces().popups, false, [](const std::string&) {});
}

TEST(PlatformContract, Scripted) {
    test::ScriptedPlatform platform;
    CheckPlatform(platform.Interfaces());
    test::CheckPopups(platform, true, [&](const std::string& name) { platform.choices = {name}; });
}

TEST(HeadlessPlatform, TellsOfThisMachine) {
    HeadlessPlatform platform;
    const std::optional<MemoryStatus> memory = platform.Interfaces().system.Memory();
    ASSERT_TRUE(memory);
    EXPECT_GT(memory->totalPhysical, 64 * 1024 * 1024);
    EXPECT_EQ(platform.Interfaces().system.PlatformId(), 3);
    ASSERT_EQ(setenv("XDG_STATE_HOME", "/tmp/state", 1), 0);
    EXPECT_EQ(platform.Interfaces().system.LogFolder(), "/tmp/state/planview");
    ASSERT_EQ(setenv("XDG_STATE_HOME", "relative", 1), 0);
    ASSERT_EQ(setenv("HOME", "/home/planner", 1), 0);
    EXPECT_EQ(platform.Interfaces().system.LogFolder(), "/home/planner/.local/state/planview");
}

}  // namespace planview
