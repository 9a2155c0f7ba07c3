// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "macro/recording/MacroStep.h"

namespace planview {

namespace {

TEST(MacroStep, ValuesComeBackAsTheyWere) {
    struct Row {
        const char* name;
        StepValues values;
        const char* text;
    };
    const std::vector<Row> rows = {
        {"one value", {{"7,5"}}, "7,5"},
        {"all alike are written once", {{"5", "5"}, {"5", "5"}}, "5"},
        {"nothing at all", {{"", ""}}, ""},
        {"a cell left as it is", {{"1", std::nullopt}, {"", "2"}}, "1;~|;2"},
        {"marks within a value", {{"a;b|c", "~\\", "x\ty\nz"}}, "a\\;b\\|c;\\~\\\\;x\\ty\\nz"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string text = StepValueText(row.values);
        EXPECT_EQ(text, row.text);
        EXPECT_EQ(ReadStepValues(text, row.values.size(), row.values.front().size()), row.values);
    }
    EXPECT_FALSE(ReadStepValues("1;2;3", 1, 2)) << "one value too many";
    EXPECT_FALSE(ReadStepValues("1;2|3", 2, 2)) << "a line that is too short";
}

TEST(MacroStep, FieldsComeBackAsTheyWere) {
    const MacroStep step{"PASTE", {"COL1:COL2", "Jan|Feb"}, {"ROW3", "Retail"}, "1;2"};
    EXPECT_EQ(ReadStepFields(StepFields(step)), step);
    EXPECT_TRUE(ReadStepFields("RowsHide\t\tROW3\t")) << "captions may be left out";
    for (const char* bad : {"", "VALUE", "VALUE\tCOL1\tROW1", "\tCOL1\tROW1\t5", "a\tb\tc\td\te\tf\tg"}) {
        EXPECT_FALSE(ReadStepFields(bad)) << bad;
    }
}

}  // namespace

}  // namespace planview
