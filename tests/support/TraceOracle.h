#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/ScriptedPlatform.h"
#include "trace/frmTrace.h"
#include "trace/modPlan.h"

namespace planview::test {

/// One trace entry, comparable and printable: "GRIDCTL | message | method | parameter".
inline std::string EntryText(const ListItem& item) {
    return item.text + " | " + item.subItems[0] + " | " + item.subItems[1] + " | " + item.subItems[2];
}

/// A fixture with the trace switched on. An entry that reports an error fails the test unless the test asked for it.
class TracedTest : public testing::Test {
protected:
    TracedTest() {
        modPlan::Trace_Enable(platform.Interfaces());
        ForgetEntries();
    }
    /// Before the members of a derived fixture end: a control that ends takes the trace with it.
    void TearDown() override {
        if (!errorsExpected_ && modPlan::TraceEnabled) {
            for (const std::string& entry : Entries(IsError)) {
                ADD_FAILURE() << "unasked error in the trace: " << entry;
            }
        }
    }
    ~TracedTest() override {
        if (modPlan::TraceEnabled) {
            platform.answer = MessageAnswer::No;
            modPlan::Trace_Disable(platform.Interfaces());
        }
    }

    void ExpectErrors() { errorsExpected_ = true; }
    static void ForgetEntries() { frmTrace::Instance().TraceView.Clear(); }

    static bool IsError(const ListItem& item) {
        return item.subItems[0] == "ERROR" || item.subItems[1] == "ERROR" || item.subItems[2] == "ERROR";
    }

    [[nodiscard]] static std::vector<std::string> Entries(const std::function<bool(const ListItem&)>& wanted = {}) {
        std::vector<std::string> entries;
        const ListView& list = frmTrace::Instance().TraceView;
        for (std::size_t i = 0; i < list.Count(); ++i) {
            if (!wanted || wanted(list.Item(i))) {
                entries.push_back(EntryText(list.Item(i)));
            }
        }
        return entries;
    }
    [[nodiscard]] static std::vector<std::string> EntriesOf(std::string_view method) {
        return Entries([&](const ListItem& item) { return item.subItems[1] == method; });
    }

    ScriptedPlatform platform;

private:
    bool errorsExpected_ = false;
};

using Lines = std::vector<std::string>;

}  // namespace planview::test
