// SPDX-License-Identifier: MIT
#include <fstream>
#include <sstream>

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
        const ListView& list = frmTrace::Instance().TraceView;
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
    EXPECT_EQ(frmTrace::Instance().TraceView.Item(0).key, "TRACE{1}");
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
    EXPECT_FALSE(frmTrace::Exists());
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
    EXPECT_FALSE(frmTrace::Exists());
}

}  // namespace planview
