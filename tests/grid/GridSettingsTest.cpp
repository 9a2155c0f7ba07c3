// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "grid/GridSettings.h"
#include "support/SampleTables.h"

namespace planview {

namespace {

using Lines = std::vector<std::string>;

/// Every member with its value, in the order of the fields.
Lines Members(const GridSettings& s) {
    const auto line = [](const char* name, auto value) { return name + std::string(" ") + Variant(value).AsText(); };
    return {line("chartShown", s.chartShown),
            line("treeShown", s.treeShown),
            line("moveAllowed", s.moveAllowed),
            line("resizeAllowed", s.resizeAllowed),
            line("singleValue", s.singleValue),
            line("switched", s.switched),
            line("zoomed", s.zoomed),
            line("backgroundColor", s.backgroundColor),
            line("gridLineColor", s.gridLineColor),
            line("firstColumn", s.firstColumn),
            line("firstRow", s.firstRow),
            line("chartType", s.chartType),
            line("autoMinimum", s.autoMinimum),
            line("autoMaximum", s.autoMaximum),
            line("minimum", s.minimum),
            line("maximum", s.maximum),
            line("rangeMinimum", s.rangeMinimum),
            line("rangeMaximum", s.rangeMaximum),
            line("optimum", s.optimum),
            line("labelColumnWidth", s.labelColumnWidth),
            line("titleText", s.titleText.c_str())};
}

/// What the table with this one field set gives differently from an empty table.
std::string Difference(const char* field, const Variant& value, bool layoutMode) {
    const test::Tables tables;
    GridSettings empty;
    empty.layoutMode = layoutMode;
    GridSettings set = empty;
    ReadGridAttributes(HostTable(tables.gridAttr), empty);
    tables.gridAttr->SetValue(1, field, value);
    ReadGridAttributes(HostTable(tables.gridAttr), set);
    std::string difference;
    for (std::size_t i = 0; i < Members(set).size(); ++i) {
        if (Members(set)[i] != Members(empty)[i]) {
            difference += Members(set)[i] + ";";
        }
    }
    return difference;
}

/// Writes down in which order the fields of its row are read.
class ReadLog final : public AutomationObject {
public:
    explicit ReadLog(test::TableRef inner) : inner_(std::move(inner)) {}
    DispatchId IdOf(std::string_view name) const override { return inner_->IdOf(name); }
    Variant Get(DispatchId member, Arguments a) override {
        if (a.size() == 2) {
            fields.push_back(a[0].AsText() + " " + a[1].AsText());
        }
        return inner_->Get(member, a);
    }
    void Put(DispatchId member, Arguments a, const Variant& value) override { inner_->Put(member, a, value); }
    Variant Call(DispatchId member, Arguments a) override { return inner_->Call(member, a); }

    Lines fields;

private:
    test::TableRef inner_;
};

}  // namespace

TEST(GridSettings, EachFieldLandsInItsOwnMember) {
    const struct {
        const char* field;
        Variant value;
        const char* difference;
    } cases[] = {
        {"CHART", "X", "chartShown True;"},
        {"HIDDEN_LIST", "X", "treeShown True;"},
        {"NOMOVE_ALLOWED", "X", "moveAllowed 0;"},
        {"NORESIZE_ALLOWED", "X", "resizeAllowed 0;"},
        {"SINGLEVALUE", "X", "singleValue 1;"},
        {"SWITCHED", "X", "switched True;"},
        {"ZOOMED", "X", "zoomed True;"},
        {"BGCOLOR", 7, "backgroundColor 7;"},
        {"GRIDLINE_COLOR", 9, "gridLineColor 9;"},
        {"FIRST_COL", 11, "firstColumn 11;"},
        {"FIRST_ROW", 12, "firstRow 12;"},
        {"CHART_TYPE", 21, "chartType 21;"},
        {"NO_AUTOMIN", "X", "autoMinimum False;"},
        {"NO_AUTOMAX", "X", "autoMaximum False;"},
        {"MINVALUE", -2.5, "minimum -2.5;"},
        {"MAXVALUE", 99.5, "maximum 99.5;"},
        {"MINRANGE", 3.25, "rangeMinimum 3.25;"},
        {"MAXRANGE", 4.75, "rangeMaximum 4.75;"},
        {"OPTIMUM", 6.5, "optimum 6.5;"},
        {"LABELCOL_WIDTH", 210, "labelColumnWidth 210;"},
        {"TITELTEXT", "Plan", "titleText Plan;"},
        {"CHART", "x", ""},
        {"SWITCHED", "TRUE", ""},
        {"NOMOVE_ALLOWED", 1, ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Difference(row.field, row.value, true), row.difference) << row.field;
    }
    EXPECT_EQ(Difference("HIDDEN_LIST", "X", false), "") << "the tree needs layout mode";
}

TEST(GridSettings, AnEmptyTablePermitsAndScalesByItself) {
    const test::Tables tables;
    GridSettings settings;
    settings.moveAllowed = settings.resizeAllowed = 0;
    settings.autoMinimum = settings.autoMaximum = false;
    ReadGridAttributes(HostTable(tables.gridAttr), settings);
    EXPECT_EQ(settings.moveAllowed, 1);
    EXPECT_EQ(settings.resizeAllowed, 1);
    EXPECT_TRUE(settings.autoMinimum);
    EXPECT_TRUE(settings.autoMaximum);
    EXPECT_EQ(settings.singleValue, 0);
    EXPECT_EQ(settings.gridLineColor, ThemeLineColor) << "white lines would stand out in the dark";
    tables.gridAttr->SetValue(1, "GRIDLINE_COLOR", 0);
    ReadGridAttributes(HostTable(tables.gridAttr), settings);
    EXPECT_EQ(settings.gridLineColor, 0) << "a host that says white gets white";
}

TEST(GridSettings, FieldsAreReadFromTheFirstRowInTheirOrder) {
    const test::Tables tables;
    const auto log = std::make_shared<ReadLog>(tables.gridAttr);
    GridSettings settings;
    settings.layoutMode = true;
    ReadGridAttributes(HostTable(log), settings);
    EXPECT_EQ(log->fields,
              (Lines{"1 CHART",     "1 HIDDEN_LIST", "1 NOMOVE_ALLOWED", "1 NORESIZE_ALLOWED", "1 SINGLEVALUE",
                     "1 SWITCHED",  "1 ZOOMED",      "1 BGCOLOR",        "1 GRIDLINE_COLOR",   "1 FIRST_COL",
                     "1 FIRST_ROW", "1 CHART_TYPE",  "1 NO_AUTOMIN",     "1 NO_AUTOMAX",       "1 MINVALUE",
                     "1 MAXVALUE",  "1 MINRANGE",    "1 MAXRANGE",       "1 OPTIMUM",          "1 LABELCOL_WIDTH",
                     "1 TITELTEXT"}));
    log->fields.clear();
    settings.layoutMode = false;
    ReadGridAttributes(HostTable(log), settings);
    EXPECT_EQ(log->fields.size(), 21U) << "what layout mode overrules is read all the same";
}

}  // namespace planview
