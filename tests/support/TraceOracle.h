// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
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
class TracedTest : public testing::Test {
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
        if (const auto form = frmTrace::Find()) {
            form->TraceView.RemoveWatcher(*watcher_);
        }
        for (const std::string& entry : errorsExpected_ ? std::vector<std::string>() : errors_) {
            ADD_FAILURE() << "unasked error in the trace: " << entry;
        }
    }

    void ExpectErrors() { errorsExpected_ = true; }
    static void ForgetEntries() { frmTrace::Share()->TraceView.Clear(); }

    /// A trap says so in the message, a grid operation in the method, a walk over an index table in the parameter.
    static bool IsError(const ListItem& item) {
        return item.subItems[0] == "ERROR" || item.subItems[1] == "ERROR" || item.subItems[2] == "ERROR";
    }

    [[nodiscard]] static std::vector<std::string> Entries(const std::function<bool(const ListItem&)>& wanted = {}) {
        std::vector<std::string> entries;
        for (const ListItem& item : frmTrace::Share()->TraceView.AllItems()) {
            if (!wanted || wanted(item)) {
                entries.push_back(EntryText(item));
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
    struct Watcher final : ListViewWatcher {
        explicit Watcher(TracedTest& test) : test_(test) {}
        void ItemAdded(std::uint64_t number) override {
            ListItem entry;
            const auto form = frmTrace::Find();
            if (form && form->TraceView.Read(number, entry)) {
                test_.Hear(entry);
            }
        }
        void Cleared() override {}
        void Ended() override {}
        TracedTest& test_;
    };

    void Watch(Form& form) {
        if (auto* trace = dynamic_cast<frmTrace*>(&form)) {
            trace->TraceView.RemoveWatcher(*watcher_);
            trace->TraceView.AddWatcher(watcher_);
        }
    }
    void Hear(const ListItem& entry) {
        if (IsError(entry)) {
            errors_.push_back(EntryText(entry));
        }
        EntryAdded(entry);
    }

    bool errorsExpected_ = false;
    std::vector<std::string> errors_;
    std::shared_ptr<Watcher> watcher_ = std::make_shared<Watcher>(*this);
};

using Lines = std::vector<std::string>;

}  // namespace planview::test
