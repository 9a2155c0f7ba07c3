// SPDX-License-Identifier: MIT
#include <functional>

#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

namespace {

using test::Lines;

/// A value on its way from the user to the host; docs/flows/value-entry.md tells the same story. One line of two
/// periods stands in the chart, and what is shown meanwhile is written down.
class ValueFlow : public test::TracedTest, public PlanViewEvents, public GridWatcher {
protected:
    ValueFlow() : control(platform.Interfaces()) {
        tables.gridAttr->SetValue(1, "CHART", "X");
        tables.AddColumn(1, "Jan");
        tables.AddColumn(2, "Feb");
        tables.AddLine(1, "Wages", {{"SHOW_CHART", "X"}});
        tables.AddValue(1, 1, 10);
        tables.AddValue(1, 2, 20);
        tables.GiveTo(control);
        control.DP_Import_Attribute();
        control.DP_Import_Create();
        control.AddSink(*this);
        Grid().SetWatcher(this);
        Grid().SelectCell(February(), SelectionMode::Replace);
        seen.clear();
        ForgetEntries();
    }
    ~ValueFlow() override {
        Grid().SetWatcher(nullptr);
        control.RemoveSink(*this);
    }

    void GridValueChanged(std::int16_t, const std::string&, std::int16_t, const std::string&,
                          const Variant& value) override {
        seen.push_back("event " + value.AsText() + " grid " + Shown() + " TAB " + tables.tab->Value(2, "V").AsText());
    }
    void GridChanged(const GridChange& change) override {
        seen.push_back(std::string(change.oneCell ? "screen " : "all of the screen ") + Shown() + " TAB " +
                       tables.tab->Value(2, "V").AsText());
    }

    [[nodiscard]] GridControl& Grid() { return ControlParts(control).Grid(); }
    [[nodiscard]] Cell February() { return Grid().FindCell({"COL2", "ROW1"}).value(); }
    [[nodiscard]] std::string Shown() { return Grid().Contents(February()); }
    [[nodiscard]] double Charted() { return ControlParts(control).Chart().State().series.at(0).values.at(1); }

    test::Tables tables;
    PlanView control;
    Lines seen;
};

}  // namespace

TEST_F(ValueFlow, ATypedValueIsShownOnceWhenTheTablesHaveIt) {
    Grid().EnterText(February(), "12.5");
    EXPECT_EQ(seen, (Lines{"event 12.5 grid 20 TAB 20", "screen 12,5 TAB 12.5"}));
    EXPECT_EQ(Charted(), 12.5);
    Lines entries = Entries();
    ASSERT_GE(entries.size(), 7U);
    entries.resize(7);
    EXPECT_EQ(entries, (Lines{"GRIDCTL |  | ContentsChanged | {cid: COL2 - rid: ROW1 - value: 12.5}",
                              "GRIDCTL |  | ValueChanged fired | {cid: COL2 - rid: ROW1 - value: 12.5}",
                              "GRIDCTL |  | ContentsChanged | {TAB: entry found - oldvalue:20}",
                              "GRIDCTL |  | ContentsChanged | {TAB_OLD: no entry found}",
                              "GRIDCTL |  | ReplacePoint | {before: 12.5 - after: 12,5}",
                              "GRIDCTL |  | Contents | {cid: COL2 - rid: ROW1 - contents:12,5 - redraw:True}",
                              "CHART | {} | #UPDATE# | BEGIN"}));
}

TEST_F(ValueFlow, EveryWayStoresTheTextOnce) {
    platform.onClipboard.text = "30";
    const struct {
        const char* way;
        std::function<void()> change;
        const char* shown;
    } ways[] = {
        {"typed", [&] { Grid().EnterText(February(), "12,50"); }, "12,5"},
        {"dragged", [&] { ControlParts(control).Chart().UserChangedPoint(1, 2, 8.25); }, "8,25"},
        {"pasted", [&] { control.Editing().Paste(); }, "30"},
        {"deleted", [&] { control.Editing().DeleteContents(); }, ""},
        {"undone", [&] { control.Editing().Undo(); }, "30"},
    };
    for (const auto& row : ways) {
        const std::uint64_t version = Grid().ChangeVersion();
        row.change();
        EXPECT_EQ(Shown(), row.shown) << row.way;
        EXPECT_EQ(Charted(), row.shown == std::string() ? 0 : tables.tab->Value(2, "V").AsDouble()) << row.way;
        EXPECT_EQ(Grid().ChangeVersion() - version, 1U) << row.way;
    }
}

TEST_F(ValueFlow, WhatTheTablesDoNotTakeDoesNotStay) {
    ExpectErrors();
    control.PROP_Set_TAB(nullptr);
    Grid().EnterText(February(), "13");
    EXPECT_EQ(seen, Lines{"event 13 grid 20 TAB 20"}) << "it is never on the screen";
    ControlParts(control).Chart().UserChangedPoint(1, 2, 13);
    EXPECT_EQ(Shown(), "20");
    EXPECT_EQ(Charted(), 20);
    EXPECT_EQ(platform.messages.size(), 2U);
    EXPECT_FALSE(control.Editing().CanUndo());
}

}  // namespace planview
