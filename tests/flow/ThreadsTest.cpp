// SPDX-License-Identifier: MIT
#include <array>
#include <atomic>
#include <barrier>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include <planview/PlanView.h>
#include <planview/Trace.h>

#include "automation/Numbers.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "macro/run/MacroText.h"
#include "platform/HeadlessPlatform.h"
#include "support/GridText.h"
#include "support/SampleTables.h"
#include "support/TreeText.h"
#include "trace/frmTrace.h"
#include "trace/modPlan.h"

namespace planview {

namespace {

constexpr int Threads = 8;

/// Runs work(number) on as many threads, all of which begin at the same moment.
template <class Work>
void OnThreads(const Work& work) {
    std::barrier begin(Threads);
    std::vector<std::thread> threads;
    for (int number = 0; number < Threads; ++number) {
        threads.emplace_back([&, number] {
            begin.arrive_and_wait();
            work(number);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

/// A control without a screen, its own tables and a host that counts what it hears.
class Worker : private PlanViewEvents {
public:
    /// No two numbers have the same sizes, values and macros.
    explicit Worker(int number) : number_(number), control_(platform_.Interfaces()) {
        control_.AddSink(*this);
        for (int column = 1; column <= 6 + number; ++column) {
            tables_.AddColumn(column, "P", {{"COL_WIDTH", 60 + number}, {"SHOW_CHART", "X"}});
        }
        for (int row = 1; row <= 9; ++row) {
            tables_.AddLine(row, "Line", {{"ROW_BG", (number + row) % 16}, {"SHOW_CHART", row < 4 ? "X" : ""}});
            for (int column = 1; column <= 6; ++column) {
                tables_.AddValue(row, column, std::to_string(1000 * number + 10 * row + column) + ".5");
            }
        }
        test::AddRow(*tables_.cellAttr, {{"COLUMN", 99}, {"LINE", 1}, {"BGCOLOR", 1}});  // there is no such cell
        tables_.gridAttr->SetValue(1, "CHART", "X");
        macro_ = test::MacroText(*tables_.macroTree).Add("Raise", "ROW2 = ROW1 * " + std::to_string(number + 2) + "\n");
        tables_.GiveTo(control_);
    }

    /// Everything that a host and a user do, and what comes of it. The trace is switched at the seams.
    std::string Work() {
        control_.plv_LayoutMode();
        control_.DP_Import_Attribute();
        control_.DP_Import_Texts();
        control_.DP_Import_MacroTree();
        for (int round = 0; round < 3; ++round) {
            Switch(round);
            control_.DP_Import_Create();
            Enter("COL1/ROW1", std::to_string(number_) + "," + std::to_string(round));
            Enter("COL2/ROW3", "1.234,5");
            control_.Editing().Undo();
            control_.Macros().Run(macro_);
            Select({"COL3", {}});
            control_.View().HideColumns();
            Select({{}, "ROW4"});
            control_.View().HideRows();
            control_.View().ShowSelectedRowsInChart();
            Select({"COL1", "ROW1"});
            control_.Editing().Copy();
            Select({"COL5", "ROW" + std::to_string(5 + round)});
            control_.Editing().Paste();
            control_.plv_MarkedRowsHide();
            shown_ += Shown();
        }
        return shown_;
    }

private:
    /// Three of them trace; one switches in the midst of the others' work, one reads what they wrote.
    void Switch(int round) {
        if (number_ < 3) {
            control_.plv_EnableTrace();
        } else if (number_ == 3 && round > 0) {
            control_.plv_DisableTrace();
        } else if (number_ == 4) {
            std::ostringstream log;
            WriteTraceLog(log);
        }
    }
    [[nodiscard]] ControlParts Parts() { return ControlParts(control_); }
    void Enter(const std::string& place, const std::string& text) {
        const std::size_t slash = place.find('/');
        const std::optional<Cell> cell = Parts().Grid().FindCell({place.substr(0, slash), place.substr(slash + 1)});
        Parts().Grid().EnterText(cell.value(), text);
    }
    void Select(const CellKey& keys) {
        Parts().Grid().ClearSelection();
        Parts().Grid().SetSelection(keys, true);
    }
    [[nodiscard]] std::string Shown() {
        std::string text = GridText(Parts().Grid()) + test::TreeText(Parts().Tree()) + "\n";
        for (const ChartSeries& series : Parts().Chart().State().series) {
            text += series.caption + ":";
            for (const double value : series.values) {
                text += " " + NumberText(value);
            }
            text += "\n";
        }
        for (const auto& table : {tables_.tab, tables_.tabOld, tables_.colsIndex, tables_.lineIndex}) {
            for (std::int32_t row = 1; row <= table->RowCount(); ++row) {
                for (const std::string& field : table->Fields()) {
                    text += table->Value(row, field).AsText() + ";";
                }
                text += "\n";
            }
        }
        return text + "events " + std::to_string(values_) + " " + std::to_string(updates_) + "\n";
    }
    void GridValueChanged(std::int16_t, const std::string&, std::int16_t, const std::string&, const Variant&) override {
        ++values_;
    }
    void GridStartUpdate() override { ++updates_; }

    int number_;
    int values_ = 0;
    int updates_ = 0;
    std::string macro_;
    std::string shown_;
    test::Tables tables_;
    HeadlessPlatform platform_;
    PlanView control_;
};

std::string Work(int number) {
    return Worker(number).Work();
}

}  // namespace

TEST(Threads, EightControlsOnThreadsOfTheirOwnDoAsEachAlone) {
    std::array<std::string, Threads> alone;
    for (int number = 0; number < Threads; ++number) {
        alone.at(static_cast<std::size_t>(number)) = Work(number);
    }
    ASSERT_NE(alone[0], alone[1]);
    ASSERT_NE(alone[0].find("hidden: COL3 ROW4"), std::string::npos) << alone[0];
    std::array<std::string, Threads> together;
    OnThreads([&](int number) { together.at(static_cast<std::size_t>(number)) = Work(number); });
    for (std::size_t number = 0; number < Threads; ++number) {
        EXPECT_EQ(together.at(number), alone.at(number)) << "control " << number;
    }
    EXPECT_FALSE(TraceIsOn());
}

TEST(Threads, OneTraceTakesTheEntriesOfAllInOneOrder) {
    struct Counter final : ListViewWatcher {
        void ItemAdded(std::uint64_t number) override { heard += number + 1; }
        void Cleared() override {}
        void Ended() override { ended = true; }
        std::atomic<std::uint64_t> heard = 0;
        std::atomic<bool> ended = false;
    };
    constexpr int Each = 500;
    HeadlessPlatform platform;
    modPlan::Trace_Enable(platform.Interfaces());
    const std::shared_ptr<frmTrace> form = frmTrace::Share();
    form->TraceView.Clear();
    modPlan::TraceCounter = 0;
    const std::uint64_t first = form->TraceView.Items().first;
    const auto counter = std::make_shared<Counter>();
    form->TraceView.AddWatcher(counter);
    OnThreads([&](int number) {
        for (int i = 0; i < Each; ++i) {
            modPlan::TraceWrite(std::to_string(number), "", "Step", std::to_string(i));
        }
    });
    std::array<int, Threads> next{};
    std::uint64_t place = 0;
    std::uint64_t told = 0;
    for (const ListItem& item : form->TraceView.AllItems()) {
        told += first + ++place;
        ASSERT_EQ(item.key, "TRACE{" + std::to_string(place) + "}");
        int& step = next.at(std::stoul(item.text));
        ASSERT_EQ(item.subItems[2], std::to_string(step++)) << "the steps of thread " << item.text;
    }
    EXPECT_EQ(place, std::uint64_t{Threads} * Each);
    EXPECT_EQ(counter->heard, told) << "each entry is told once";
    OnThreads([&](int) { modPlan::Trace_Disable(platform.Interfaces()); });
    EXPECT_TRUE(counter->ended);
    EXPECT_FALSE(frmTrace::Find());
}

}  // namespace planview
