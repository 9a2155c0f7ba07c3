// SPDX-License-Identifier: MIT
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include <gtest/gtest.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

// What ends while it is in use. Most of what could go wrong here is found by the address sanitizer.

namespace planview {

using test::Tables;

namespace {

void Fill(const Tables& tables) {
    for (int i = 1; i <= 3; ++i) {
        tables.AddColumn(i, ("Month " + std::to_string(i)).c_str(), {{"SHOW_CHART", "X"}});
        tables.AddLine(i, ("Line " + std::to_string(i)).c_str(), {{"SHOW_CHART", "X"}});
    }
    for (int line = 1; line <= 3; ++line) {
        for (int column = 1; column <= 3; ++column) {
            tables.AddValue(line, column, line * 10 + column);
        }
    }
    tables.gridAttr->SetValue(1, "CHART", "X");
}

Cell CellAt(PlanView& control, const char* column, const char* row) {
    return ControlParts(control).Grid().FindCell({column, row}).value();
}

/// Enters a text as a view does, which keeps the control until the grid has returned.
void Enter(const std::shared_ptr<PlanView>& control, const char* text) {
    const std::shared_ptr<PlanView> kept = control;
    ControlParts(*kept).Grid().EnterText(CellAt(*kept, "COL2", "ROW2"), text);
}

/// The host's table, which takes itself away from the control in the middle of the count-th access to it.
class LeavingTable final : public AutomationObject {
public:
    LeavingTable(std::shared_ptr<MemoryTable> table, int count, std::function<void()> leave)
        : table_(std::move(table)), count_(count), leave_(std::move(leave)) {}

    DispatchId IdOf(std::string_view name) const override { return table_->IdOf(name); }
    Variant Get(DispatchId member, Arguments arguments) override {
        Count();
        return table_->Get(member, arguments);
    }
    void Put(DispatchId member, Arguments arguments, const Variant& value) override {
        Count();
        table_->Put(member, arguments, value);
    }
    Variant Call(DispatchId member, Arguments arguments) override {
        Count();
        return table_->Call(member, arguments);
    }

private:
    void Count() {
        if (--count_ == 0) {
            leave_();
        }
    }

    std::shared_ptr<MemoryTable> table_;
    int count_;
    std::function<void()> leave_;
};

/// Does something at every event.
class ActingSink final : public EventSink {
public:
    explicit ActingSink(std::function<void()> act) : act_(std::move(act)) {}
    void OnEvent(EventId event, std::span<const Variant>) override {
        heard.push_back(event);
        act_();
    }
    std::vector<EventId> heard;

private:
    std::function<void()> act_;
};

struct UserAction {
    const char* name;
    std::function<void(const std::shared_ptr<PlanView>&)> run;
};

/// One action for each way in which the control reads and writes tables and raises events.
const std::vector<UserAction>& UserActions() {
    static const std::vector<UserAction> actions = {
        {"build", [](const auto& control) { control->DP_Import_Create(); }},
        {"enter", [](const auto& control) { Enter(control, "7"); }},
        {"delete", [](const auto& control) { control->Editing().DeleteContents(); }},
        {"hide",
         [](const auto& control) {
             ControlParts(*control).Grid().SelectRow(CellAt(*control, "COL2", "ROW2").row, SelectionMode::Replace);
             control->View().HideRows();
         }},
        {"chart", [](const auto& control) { control->View().SwitchChart(); }},
        {"double click",
         [](const auto& control) {
             const std::shared_ptr<PlanView> kept = control;
             ControlParts(*kept).Grid().ReportDoubleClick(CellAt(*kept, "COL2", "ROW2"));
         }},
    };
    return actions;
}

class LifetimeTest : public test::TracedTest {
protected:
    LifetimeTest() {
        // Every question, such as the one about the trace log, has its default answer.
        ExpectErrors();
    }

    std::shared_ptr<PlanView> Build(const Tables& tables) {
        auto control = std::make_shared<PlanView>(platform.Interfaces());
        tables.GiveTo(*control);
        control->DP_Import_Attribute();
        control->DP_Import_Create();
        return control;
    }
};

}  // namespace

TEST_F(LifetimeTest, ATableMayLeaveAtAnyAccess) {
    const std::map<std::string, std::shared_ptr<MemoryTable> Tables::*> slots = {{"GRID_ATTR", &Tables::gridAttr},
                                                                                 {"COLS_INDEX", &Tables::colsIndex},
                                                                                 {"LINE_INDEX", &Tables::lineIndex},
                                                                                 {"TAB", &Tables::tab},
                                                                                 {"TAB_OLD", &Tables::tabOld}};
    int left = 0;
    for (const UserAction& action : UserActions()) {
        for (const auto& [name, table] : slots) {
            for (const int access : {1, 2, 3, 5, 8, 13}) {
                Tables tables;
                Fill(tables);
                const std::shared_ptr<PlanView> control = Build(tables);
                const DispatchId put = control->IdOf("PROP_Set_" + name);
                const std::weak_ptr<PlanView> weak = control;
                const auto leave = [&left, weak, put] {
                    ++left;
                    if (const auto alive = weak.lock()) {
                        alive->Call(put, std::vector<Variant>{Variant::Nothing()});
                    }
                };
                control->Call(
                    put, std::vector<Variant>{Variant(std::make_shared<LeavingTable>(tables.*table, access, leave))});
                action.run(control);
                control->DP_Import_Create();  // goes on without the table
            }
        }
    }
    EXPECT_GT(left, 60) << "the tables were hardly read";
}

TEST_F(LifetimeTest, TheControlMayEndInsideAnyOfItsEvents) {
    int ended = 0;
    for (const UserAction& action : UserActions()) {
        Tables tables;
        Fill(tables);
        std::shared_ptr<PlanView> control = Build(tables);
        ActingSink sink([&] { control.reset(); });
        control->AddSink(sink);
        action.run(control);
        ended += control ? 0 : 1;
        EXPECT_EQ(control == nullptr, !sink.heard.empty()) << action.name;
        EXPECT_EQ(tables.tab.use_count(), control ? 2 : 1) << action.name;
    }
    EXPECT_GE(ended, 4);
}

TEST(FacetLife, AHandleMayOutliveItsControlAndItsPlatform) {
    struct Handles {
        explicit Handles(PlanView& control)
            : editing(control), view(control), exchange(control), macros(control), recording(control) {}
        Editing editing;
        View view;
        Exchange exchange;
        Macros macros;
        Recording recording;
    };
    std::optional<Handles> handles;
    const Tables tables;
    Fill(tables);
    {
        test::ScriptedPlatform platform;
        PlanView control(platform.Interfaces());
        tables.GiveTo(control);
        control.DP_Import_Create();
        ControlParts(control).Grid().SelectCell(CellAt(control, "COL1", "ROW1"), SelectionMode::Replace);
        handles.emplace(control);
        handles->editing.DeleteContents();
        EXPECT_TRUE(control.Editing().CanUndo()) << "every handle is about the same control";
    }
    EXPECT_EQ(tables.tab.use_count(), 1) << "a handle keeps no table";
    handles->editing.Paste();
    handles->editing.Undo();
    EXPECT_TRUE(handles->editing.PendingCells().empty());
    handles->view.HideRows();
    handles->view.Resize(10, 10);
    EXPECT_EQ(handles->exchange.DownloadTo("plan.xlsx"), "The control has ended.");
    EXPECT_FALSE(handles->macros.Run("N1").done);
    handles->recording.Start();
    EXPECT_EQ(handles->recording.Keep("Test"), "");
}

TEST_F(LifetimeTest, TwoControlsShareTheirTables) {
    Tables tables;
    Fill(tables);
    const std::shared_ptr<PlanView> first = Build(tables);
    std::shared_ptr<PlanView> second = Build(tables);
    // The value is not in the table yet when it is announced; updating the other window then must do no harm.
    ActingSink sink([&] {
        if (second) {
            second->DP_Import_Update();
        }
    });
    first->AddSink(sink);
    Enter(first, "70");
    second->DP_Import_Update();
    EXPECT_EQ(ControlParts(*second).Grid().Contents(CellAt(*second, "COL2", "ROW2")), "70");
    Enter(second, "71");
    first->DP_Import_Update();
    EXPECT_EQ(ControlParts(*first).Grid().Contents(CellAt(*first, "COL2", "ROW2")), "71");
    EXPECT_EQ(tables.tabOld->RowCount(), 1) << "one cell, one old value";
    second.reset();
    EXPECT_EQ(tables.tab.use_count(), 2);
    Enter(first, "72");
    EXPECT_EQ(tables.tab->Value(5, "V"), Variant("72"));
    first->RemoveSink(sink);
}

TEST_F(LifetimeTest, TheTraceMayBeSwitchedInsideAnyEvent) {
    platform.answer = MessageAnswer::No;
    for (const UserAction& action : UserActions()) {
        Tables tables;
        Fill(tables);
        const std::shared_ptr<PlanView> control = Build(tables);
        const std::shared_ptr<PlanView> other = Build(tables);
        ActingSink sink([&] {
            if (modPlan::TraceEnabled) {
                other->plv_DisableTrace();
            } else {
                control->plv_EnableTrace();
            }
        });
        control->AddSink(sink);
        for (int i = 0; i < 4; ++i) {
            action.run(control);
        }
        EXPECT_EQ(ControlParts(*control).Grid().Columns(ColumnArea::Center).size(), 3U) << action.name;
        control->RemoveSink(sink);
    }
}

/// The bytes that the heap has given out; 0 where the C library does not tell.
std::size_t HeapInUse() {
#ifdef __GLIBC__
    return mallinfo2().uordblks;
#else
    return 0;
#endif
}

TEST_F(LifetimeTest, AThousandControlsLeaveNothingBehind) {
    platform.answer = MessageAnswer::No;
    modPlan::Trace_Disable(platform.Interfaces());
    Tables tables;
    Fill(tables);
    const auto createAndEnd = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const std::shared_ptr<PlanView> control = Build(tables);
            Enter(control, i % 2 == 0 ? "8" : "9");
            control->Editing().Undo();
        }
    };
    createAndEnd(50);  // what is made once is made
    const auto before = HeapInUse();
    createAndEnd(1000);
    EXPECT_EQ(tables.tab.use_count(), 1);
    EXPECT_LT(HeapInUse(), before + 64 * 1024) << "bytes that no control has freed";
}

}  // namespace planview
