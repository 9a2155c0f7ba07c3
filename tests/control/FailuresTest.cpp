// SPDX-License-Identifier: MIT
#include <functional>
#include <memory>
#include <thread>

#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/StubbornTable.h"
#include "support/TraceOracle.h"

namespace planview {

using test::AddRow;
using test::Lines;

namespace {

std::string TextOf(const Failure& failure) {
    return failure.table + " " + failure.field + " " + std::to_string(failure.row) + ": " + failure.reason;
}

class FailuresTest : public test::TracedTest {
protected:
    FailuresTest() : control(std::make_unique<PlanView>(platform.Interfaces())) {
        for (int i = 1; i <= 3; ++i) {
            tables.AddColumn(i, "P");
            tables.AddLine(i, "Line");
            tables.AddValue(i, 1, i);
        }
        tables.GiveTo(*control);
        control->Diagnostics().AddFailureListener([this](const Failure& failure) { heard.push_back(TextOf(failure)); });
        ForgetEntries();
    }

    [[nodiscard]] Cell At(const char* column, const char* row) {
        return ControlParts(*control).Grid().FindCell({column, row}).value();
    }
    void Type(const char* text) { ControlParts(*control).Grid().EnterText(At("COL1", "ROW2"), text); }
    [[nodiscard]] TableReport Of(std::string_view table) {
        for (TableReport& report : control->Diagnostics().LastBuild()) {
            if (report.table == table) {
                return report;
            }
        }
        return {};
    }

    test::Tables tables;
    std::unique_ptr<PlanView> control;
    Lines heard;
};

}  // namespace

TEST_F(FailuresTest, ABuildGivesAnAccountOfEachTable) {
    EXPECT_TRUE(control->Diagnostics().LastBuild().empty());
    control->DP_Import_Create();
    Lines names;
    for (const TableReport& report : control->Diagnostics().LastBuild()) {
        names.push_back(report.table + " " + std::to_string(report.read) + "/" + std::to_string(report.rows));
        EXPECT_TRUE(report.IsComplete()) << report.table;
    }
    EXPECT_EQ(names, (Lines{"COLS_INDEX 3/3", "LINE_INDEX 3/3", "FIXED_COLS 0/0", "FIXED_LINES 0/0", "TAB 3/3",
                            "FIXED_TAB 0/0", "CELL_ATTR 0/0"}));
    EXPECT_EQ(heard, Lines());
}

TEST_F(FailuresTest, WhatATableHasWrongIsNamedWithRowAndField) {
    ExpectErrors();
    const struct {
        const char* name;
        std::function<void()> spoil;
        const char* table;
        int read;
        int refused;
        const char* first;
    } cases[] = {
        {"a value that is no number ends its table", [&] { tables.tab->SetValue(2, "V", "n/a"); }, "TAB", 1, 1,
         "TAB V 2: Type mismatch: 'n/a' is no number"},
        {"and is mended", [&] { tables.tab->SetValue(2, "V", 2); }, "TAB", 3, 0, "  0: "},
        {"a width that is none", [&] { tables.colsIndex->SetValue(3, "COL_WIDTH", "wide"); }, "COLS_INDEX", 2, 1,
         "COLS_INDEX COL_WIDTH 3: Type mismatch: 'wide' is no number in field COL_WIDTH of row 3"},
        {"one that is too large is refused alone", [&] { tables.colsIndex->SetValue(3, "COL_WIDTH", 9999); },
         "COLS_INDEX", 2, 1, "COLS_INDEX COL_WIDTH 3: Invalid attribute (COL3)"},
        {"mended, too", [&] { tables.colsIndex->SetValue(3, "COL_WIDTH", 0); }, "COLS_INDEX", 3, 0, "  0: "},
        {"values of a line that is not there", [&] { tables.AddValue(9, 1, 7); }, "TAB", 3, 1,
         "TAB Z 4: Unknown row (COL1, ROW9)"},
        {"the first of several", [&] { tables.AddValue(1, 8, 7); }, "TAB", 3, 2, "TAB Z 4: Unknown row (COL1, ROW9)"},
        {"a line twice", [&] { tables.AddLine(2, "Again"); }, "LINE_INDEX", 3, 1,
         "LINE_INDEX LINE 4: Row is already defined (ROW2)"},
        {"a side that is none",
         [&] {
             AddRow(*tables.fixedCols, {{"COLUMN_FIX", 1}, {"FLG_POSITION", "Q"}});
         },
         "FIXED_COLS", 0, 1, "FIXED_COLS FLG_POSITION 1: 'Q' is no side; it is L or R"},
        {"a colour that is none",
         [&] {
             AddRow(*tables.cellAttr, {{"COLUMN", 1}, {"LINE", 1}, {"BGCOLOR", 99}});
         },
         "CELL_ATTR", 0, 1, "CELL_ATTR BGCOLOR 1: Unknown color (COL1, ROW1)"},
        {"no table of the values", [&] { control->PROP_Set_TAB(nullptr); }, "TAB", 0, 0,
         "TAB  0: The table is not set"},
        {"a table that a host may do without", [&] { control->PROP_Set_FIXED_TAB(nullptr); }, "FIXED_TAB", 0, 0,
         "  0: "},
    };
    for (const auto& row : cases) {
        row.spoil();
        heard.clear();
        control->DP_Import_Create();
        const TableReport report = Of(row.table);
        EXPECT_EQ(report.read, row.read) << row.name;
        EXPECT_EQ(report.refused, row.refused) << row.name;
        EXPECT_EQ(TextOf(report.first), row.first) << row.name;
        const auto told = std::count(heard.begin(), heard.end(), row.first);
        EXPECT_EQ(told, report.IsComplete() ? 0 : 1) << row.name << ": the first one of a table is told, once";
    }
}

TEST_F(FailuresTest, AValueThatTheTableRefusesIsTold) {
    ExpectErrors();
    const auto tab = std::make_shared<test::StubbornTable>(tables.tab);
    control->PROP_Set_TAB(tab);
    control->DP_Import_Create();
    tab->row = 2;
    Type("7");
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_TRUE(heard[0].starts_with("TAB V 2: ")) << heard[0];
}

TEST_F(FailuresTest, ASettingsTableWithoutARowIsAFaultAndTheEventComesAllTheSame) {
    ExpectErrors();
    struct Host final : EventSink {
        int updates = 0;
        void OnEvent(EventId event, std::span<const Variant>) override {
            updates += event == EventId::GridStartUpdate ? 1 : 0;
        }
    } host;
    control->DP_Import_Create();
    control->AddSink(host);
    control->PROP_Set_GRID_ATTR(MemoryTable::WithFieldsOf("GRID_ATTR"));
    ControlParts(*control).Grid().SetSelection({"COL2", {}}, true);
    control->View().HideColumns();
    control->RemoveSink(host);
    EXPECT_EQ(host.updates, 1);
    ASSERT_FALSE(heard.empty());
    EXPECT_TRUE(heard[0].starts_with("GRID_ATTR FIRST_COL 1: ")) << heard[0];
}

TEST_F(FailuresTest, LookingForAnOptionalFieldIsNone) {
    control->DP_Import_Create();  // asks for the fields of the order
    ControlParts(*control).Grid().MoveColumn("COL1", 3, true);
    ControlParts(*control).Grid().ReportMoved(MovedTracks::Columns, {"COL1", "COL2", "COL3"});
    ControlParts(*control).Grid().SetSelection({"COL2", {}}, true);
    control->View().HideColumns();
    control->Editing().Undo();
    EXPECT_EQ(heard, Lines());
}

TEST_F(FailuresTest, ListenersThatDoWhatTheyShouldNotHarmNothing) {
    ExpectErrors();
    tables.tab->SetValue(2, "V", "n/a");
    Diagnostics diagnostics = control->Diagnostics();
    int calls = 0;
    diagnostics.AddFailureListener([](const Failure&) { throw std::runtime_error("listener"); });
    ListenerId own{};
    own = diagnostics.AddFailureListener([&](const Failure&) {
        ++calls;
        diagnostics.RemoveFailureListener(own);
    });
    diagnostics.AddFailureListener([&](const Failure&) { control->DP_Import_Create(); });  // which fails again
    diagnostics.AddFailureListener([&](const Failure&) { calls += 10; });
    control->DP_Import_Create();
    EXPECT_EQ(calls, 11);
    EXPECT_EQ(heard.size(), 1U) << "what fails while it is told is not told";
    control->DP_Import_Create();
    EXPECT_EQ(calls, 21) << "the one that took itself away";
    diagnostics.AddFailureListener([&](const Failure&) { control.reset(); });
    diagnostics.AddFailureListener([&](const Failure&) { calls = 0; });
    control->DP_Import_Create();
    EXPECT_FALSE(control);
    EXPECT_EQ(calls, 31) << "none hears of a control that has ended";
    EXPECT_TRUE(diagnostics.LastBuild().empty());
}

TEST_F(FailuresTest, ASinkThatThrowsIsTold) {
    ExpectErrors();
    struct Host final : EventSink {
        void OnEvent(EventId, std::span<const Variant>) override { throw std::runtime_error("sink"); }
    } host;
    control->DP_Import_Create();
    control->AddSink(host);
    Type("7");
    control->RemoveSink(host);
    EXPECT_EQ(heard, (Lines{"  0: sink"}));
}

TEST_F(FailuresTest, TwoControlsHearOfTheirOwn) {
    ExpectErrors();
    PlanView other(platform.Interfaces());
    Lines others;
    other.Diagnostics().AddFailureListener([&](const Failure& failure) { others.push_back(TextOf(failure)); });
    tables.tab->SetValue(2, "V", "n/a");
    control->DP_Import_Create();
    EXPECT_EQ(heard.size(), 1U);
    EXPECT_EQ(others, Lines());
}

#if !defined(NDEBUG) && defined(GTEST_HAS_DEATH_TEST) && !defined(_WIN32)
TEST(WrongThreadDeathTest, ACallFromAnotherThreadEndsTheProgramInADebugBuild) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    PlanView control;
    const struct {
        const char* name;
        std::function<void()> call;
    } cases[] = {
        {"a member", [&] { control.DP_Import_Create(); }},
        {"a table", [&] { control.PROP_Set_TAB(nullptr); }},
        {"a part of the interface", [&] { control.Editing().Undo(); }},
        {"a question", [&] { static_cast<void>(control.View().ChartShown()); }},
        {"the end", [&] { control.Terminate(); }},
    };
    for (const auto& row : cases) {
        EXPECT_DEATH(std::thread(row.call).join(), "the thread that created it") << row.name;
    }
}
#endif

}  // namespace planview
