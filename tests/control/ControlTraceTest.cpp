// SPDX-License-Identifier: MIT
#include <fstream>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "support/TempFolder.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;
using test::ScriptedPlatform;

namespace {

/// Two controls, each on a desktop of its own, that share the one trace.
class ControlTraceTest : public testing::Test {
protected:
    ControlTraceTest()
        : firstDesktop(std::make_unique<ScriptedPlatform>()),
          first(std::make_unique<PlanView>(firstDesktop->Interfaces())),
          second(std::make_unique<PlanView>(secondDesktop.Interfaces())) {}

    static Lines Methods() {
        Lines methods;
        const ListView& list = frmTrace::Share()->TraceView;
        for (std::size_t i = 0; i < list.Count(); ++i) {
            methods.push_back(list.Item(i).subItems[1]);
        }
        return methods;
    }

    std::unique_ptr<ScriptedPlatform> firstDesktop;
    ScriptedPlatform secondDesktop;
    std::unique_ptr<PlanView> first;
    std::unique_ptr<PlanView> second;
};

}  // namespace

TEST_F(ControlTraceTest, OneSwitchServesBoth) {
    first->plv_EnableTrace();
    const std::int32_t counter = modPlan::TraceCounter;
    second->plv_EnableTrace();
    EXPECT_EQ(modPlan::TraceCounter, counter) << "enabling twice starts nothing anew";
    second->DP_Import_PopupMenu();
    EXPECT_EQ(modPlan::TraceCounter, counter + 1);
    second->plv_DisableTrace();
    EXPECT_FALSE(modPlan::TraceEnabled);
    first->plv_DisableTrace();
    EXPECT_TRUE(firstDesktop->messages.empty()) << "already off";
    first->plv_EnableTrace();
    EXPECT_EQ(Methods().size(), 6U) << "starts empty again";
    EXPECT_EQ(frmTrace::Share()->TraceView.Item(0).key, "TRACE{1}");
    first.reset();
    EXPECT_FALSE(modPlan::TraceEnabled) << "the end of a control ends the trace";
}

TEST_F(ControlTraceTest, TheEndUnloadsTheWindowOfEachDesktop) {
    const Form* loaded = nullptr;
    const Form* shown = nullptr;
    firstDesktop->whenLoaded = [&](Form& form) { loaded = &form; };
    secondDesktop.whileShown = [&](Form& form) { shown = &form; };
    first->plv_EnableTrace();
    modPlan::Trace_Show(secondDesktop.Interfaces());
    modPlan::Trace_Show(secondDesktop.Interfaces());
    EXPECT_EQ(loaded, shown) << "one list for all";
    second->plv_DisableTrace();
    EXPECT_EQ(firstDesktop->formCalls, (Lines{"load frmTrace", "unload frmTrace"}));
    EXPECT_EQ(secondDesktop.formCalls, (Lines{"show frmTrace", "show frmTrace", "unload frmTrace"}));
    EXPECT_FALSE(frmTrace::Find());
}

TEST_F(ControlTraceTest, ATraceThatBeginsWhileTheOldOneIsSavedKeepsItsEntries) {
    const test::TempFolder folder;
    secondDesktop.logFolder = folder.Name();
    secondDesktop.answer = MessageAnswer::Yes;
    first->plv_EnableTrace();
    first->DP_Import_PopupMenu();
    secondDesktop.whileAsking = [this] {
        first->plv_EnableTrace();
        first->plv_LayoutHide();
    };
    second->plv_DisableTrace();

    EXPECT_TRUE(modPlan::TraceEnabled);
    EXPECT_EQ(Methods(), (Lines{"Trace_Enable", "Morvida", "", "", "", "", "plv_LayoutHide"}));
    std::ifstream file(folder.Path() / "MORVIDA.LOG", std::ios::binary);
    std::stringstream log;
    log << file.rdbuf();
    EXPECT_NE(log.str().find("DP_Import_PopupMenu"), std::string::npos) << "the list that was asked about is saved";
    EXPECT_EQ(log.str().find("plv_LayoutHide"), std::string::npos);
    EXPECT_EQ(firstDesktop->formCalls, (Lines{"load frmTrace", "load frmTrace", "unload frmTrace"}))
        << "the new list has its window still";
    first->plv_DisableTrace();
    EXPECT_EQ(firstDesktop->formCalls.back(), "unload frmTrace");
    EXPECT_EQ(firstDesktop->formCalls.size(), 4U);
}

TEST_F(ControlTraceTest, ATraceThatBeginsAndEndsWhileTheOldOneIsSavedIsGone) {
    first->plv_EnableTrace();
    secondDesktop.whileAsking = [this] {
        first->plv_EnableTrace();
        first->plv_DisableTrace();
        first->plv_EnableTrace();
    };
    second->plv_DisableTrace();
    EXPECT_TRUE(modPlan::TraceEnabled);
    EXPECT_EQ(Methods().size(), 6U);
    EXPECT_EQ(firstDesktop->formCalls,
              (Lines{"load frmTrace", "load frmTrace", "unload frmTrace", "load frmTrace", "unload frmTrace"}));
}

TEST_F(ControlTraceTest, ADesktopMayEndWhileAnotherOneAsks) {
    first->plv_EnableTrace();
    Lines calls;
    secondDesktop.whileAsking = [&] {
        first.reset();
        calls = firstDesktop->formCalls;
        firstDesktop.reset();
    };
    second->plv_DisableTrace();
    EXPECT_EQ(calls, (Lines{"load frmTrace", "unload frmTrace"}));
    EXPECT_FALSE(frmTrace::Find());
}

/// A desktop is only ever called on its control's thread, also where the trace is ended on another one.
TEST_F(ControlTraceTest, AnotherThreadLeavesTheWindowsToTheirOwn) {
    struct Window final : ListViewWatcher {
        void ItemAdded(std::uint64_t) override {}
        void Cleared() override {}
        void Ended() override { ended = true; }
        bool ended = false;
    };
    const auto window = std::make_shared<Window>();
    firstDesktop->whenLoaded = [&](Form& form) { dynamic_cast<frmTrace&>(form).TraceView.AddWatcher(window); };
    first->plv_EnableTrace();
    std::thread([] {
        ScriptedPlatform desktop;
        PlanView control(desktop.Interfaces());
        control.plv_DisableTrace();
        EXPECT_EQ(desktop.messages.size(), 1U);
    }).join();
    EXPECT_FALSE(frmTrace::Find());
    EXPECT_TRUE(window->ended) << "by this it can end itself";
    EXPECT_EQ(firstDesktop->formCalls, Lines{"load frmTrace"});
    first->plv_EnableTrace();
    EXPECT_EQ(firstDesktop->formCalls, (Lines{"load frmTrace", "unload frmTrace", "load frmTrace"}));
    first.reset();
    EXPECT_EQ(firstDesktop->formCalls.size(), 4U);
}

}  // namespace planview
