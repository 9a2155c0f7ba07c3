// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <planview/PlanView.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"

namespace planview {

using test::Lines;
using test::Tables;

namespace {

/// Four lines, the second and the fourth marked.
class MarkedRowsTest : public test::TracedTest, private GridWatcher {
protected:
    MarkedRowsTest() : control(platform.Interfaces()) {
        tables.AddColumn(1, "Jan");
        for (int line = 1; line <= 4; ++line) {
            tables.AddLine(line, "Line", {{"ROW_MARKED", line % 2 == 0 ? "X" : ""}});
        }
        tables.GiveTo(control);
    }
    ~MarkedRowsTest() override { ControlParts(control).Grid().SetWatcher(nullptr); }

    void Build() {
        control.DP_Import_Create();
        ControlParts(control).Grid().SetWatcher(this);
        ForgetEntries();
    }
    /// The numbers of the lines that the grid hides, and of those that the table says are hidden.
    [[nodiscard]] std::string Hidden() {
        const GridControl& grid = ControlParts(control).Grid();
        std::string hidden;
        for (const RowId row : grid.Rows(RowArea::Center)) {
            hidden += grid.Row(row).hidden ? grid.Row(row).key.substr(3) : "";
        }
        hidden += " ";
        for (std::int32_t i = 1; i <= tables.lineIndex->RowCount(); ++i) {
            hidden += tables.lineIndex->Value(i, "ROW_HIDDEN") == Variant("X") ? std::to_string(i) : "";
        }
        return hidden;
    }

    Tables tables;
    PlanView control;
    int drawn = 0;

private:
    void GridChanged(const GridChange&) override { ++drawn; }
};

}  // namespace

TEST_F(MarkedRowsTest, AreHiddenAndShownAndDrawnOnce) {
    Build();
    control.plv_MarkedRowsHide();
    EXPECT_EQ(Hidden(), "24 24");
    EXPECT_TRUE(tables.lineIndex->Value(3, "ROW_HIDDEN").IsEmpty()) << "unmarked rows are not touched";
    EXPECT_EQ(drawn, 1);
    EXPECT_EQ(Entries().front(), "USERCONTROL |  | plv_MarkedRowsHide | {}");
    EXPECT_EQ(EntriesOf("MarkedRowsHide"), (Lines{"GRIDCTL |  | MarkedRowsHide | {cid:  - rid: ROW2}",
                                                  "GRIDCTL |  | MarkedRowsHide | {cid:  - rid: ROW4}"}));
    EXPECT_EQ(EntriesOf("CenterHidden")[1],
              "GRIDCTL |  | CenterHidden | {cid:  - rid: ROW4 - hidden:True - redraw:False}");
    ForgetEntries();
    control.plv_MarkedRowsShow();
    EXPECT_EQ(Hidden(), " ");
    EXPECT_EQ(tables.lineIndex->Value(4, "ROW_HIDDEN"), Variant(""));
    EXPECT_EQ(drawn, 2);
    EXPECT_EQ(Entries().front(), "USERCONTROL |  | plv_MarkedRowsShow | {}");
    EXPECT_EQ(EntriesOf("MarkedRowsShow").size(), 2U);
}

TEST_F(MarkedRowsTest, WithoutAMarkNothingIsWrittenButTheGridIsDrawn) {
    tables.lineIndex->SetValue(2, "ROW_MARKED", "x");
    tables.lineIndex->SetValue(4, "ROW_MARKED", "");
    Build();
    ControlParts(control).Grid().SetAttribute(GridElement::Row, {{}, "ROW1"}, GridAttribute::Height, 40, false);
    control.plv_MarkedRowsShow();
    EXPECT_EQ(drawn, 1) << "what was changed without redraw before";
    EXPECT_TRUE(tables.lineIndex->Value(4, "ROW_HIDDEN").IsEmpty());
    EXPECT_EQ(EntriesOf("MarkedRowsShow"), Lines{});
}

TEST_F(MarkedRowsTest, BeforeABuildTheTableAloneIsWritten) {
    control.plv_MarkedRowsHide();
    EXPECT_EQ(Hidden(), " 24");
    Build();
    EXPECT_EQ(Hidden(), "24 24");
}

TEST_F(MarkedRowsTest, ATableThatFailsHalfwayLeavesTheRedrawOn) {
    ExpectErrors();
    Build();
    /// Has no third row to read.
    class Broken final : public AutomationObject {
    public:
        explicit Broken(std::shared_ptr<MemoryTable> inner) : inner_(std::move(inner)) {}
        DispatchId IdOf(std::string_view name) const override { return inner_->IdOf(name); }
        Variant Get(DispatchId member, Arguments a) override {
            if (a.size() == 2 && a[0].AsInt16() == 3) {
                throw std::runtime_error("row 3 is away");
            }
            return inner_->Get(member, a);
        }
        void Put(DispatchId member, Arguments a, const Variant& value) override { inner_->Put(member, a, value); }
        Variant Call(DispatchId member, Arguments a) override { return inner_->Call(member, a); }

    private:
        std::shared_ptr<MemoryTable> inner_;
    };
    control.PROP_Set_LINE_INDEX(std::make_shared<Broken>(tables.lineIndex));
    control.plv_MarkedRowsHide();
    EXPECT_EQ(Hidden(), "2 2");
    EXPECT_EQ(drawn, 1) << "what was hidden before the failure is shown so";
    EXPECT_TRUE(ControlParts(control).Grid().RedrawOn());
}

}  // namespace planview
