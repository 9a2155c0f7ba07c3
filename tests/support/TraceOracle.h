// SPDX-License-Identifier: MIT
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
/// Entries are looked at as they are written: a control that ends takes the list with it.
class TracedTest : public testing::Test, private ListViewWatcher {
protected:
    TracedTest() {
        platform.whenLoaded = [this](Form& form) { Watch(form); };
        modPlan::Trace_Enable(platform.Interfaces());
        ForgetEntries();
    }
    /// After the members of a derived fixture, so that what a control writes at its end counts too.
    ~TracedTest() override {
        if (modPlan::TraceEnabled) {
            platform.answer = MessageAnswer::No;
            platform.whileAsking = nullptr;
            modPlan::Trace_Disable(platform.Interfaces());
        }
        if (frmTrace::Exists()) {
            frmTrace::Instance().TraceView.RemoveWatcher(*this);
        }
        for (const std::string& entry : errorsExpected_ ? std::vector<std::string>() : errors_) {
            ADD_FAILURE() << "unasked error in the trace: " << entry;
        }
    }

    void ExpectErrors() { errorsExpected_ = true; }
    static void ForgetEntries() { frmTrace::Instance().TraceView.Clear(); }

    /// A trap says so in the message, a grid operation in the method, a walk over an index table in the parameter.
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

    /// Called for each entry as it is written.
    virtual void EntryAdded(const ListItem& /*entry*/) {}

    ScriptedPlatform platform;

private:
    void Watch(Form& form) {
        if (auto* trace = dynamic_cast<frmTrace*>(&form)) {
            trace->TraceView.RemoveWatcher(*this);
            trace->TraceView.AddWatcher(*this);
        }
    }
    void ItemAdded() override {
        const ListView& list = frmTrace::Instance().TraceView;
        const ListItem& newest = list.Item(list.Count() - 1);
        if (IsError(newest)) {
            errors_.push_back(EntryText(newest));
        }
        EntryAdded(newest);
    }
    void FirstItemRemoved() override {}
    void Cleared() override {}
    void Ended() override {}

    bool errorsExpected_ = false;
    std::vector<std::string> errors_;
};

using Lines = std::vector<std::string>;

}  // namespace planview::test
