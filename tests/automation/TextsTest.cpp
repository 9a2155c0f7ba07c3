// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "automation/Texts.h"

namespace planview {

TEST(Texts, AreTrimmedAtBothEndsOnly) {
    EXPECT_EQ(Trimmed("  Durable goods "), "Durable goods");
    EXPECT_EQ(Trimmed("\t1 "), "\t1");
    EXPECT_EQ(Trimmed("\r\n 1 2\t", " \t\r\n"), "1 2");
    EXPECT_EQ(Trimmed("   "), "");
    EXPECT_EQ(Trimmed(""), "");
}

TEST(Texts, CaseIsIgnoredInEnglishLettersOnly) {
    EXPECT_TRUE(EqualIgnoringCase("Retail", "rETAIL"));
    EXPECT_FALSE(EqualIgnoringCase("Retail", "Retai"));
    EXPECT_FALSE(EqualIgnoringCase("@[", "`{"));
    EXPECT_FALSE(EqualIgnoringCase("\u00C4", "\u00E4"));
}

TEST(Texts, SplitKeepsEmptyPieces) {
    using Pieces = std::vector<std::string_view>;
    EXPECT_EQ(SplitAt("ROW2:ROW5", ':'), (Pieces{"ROW2", "ROW5"}));
    EXPECT_EQ(SplitAt("|a||", '|'), (Pieces{"", "a", "", ""}));
    EXPECT_EQ(SplitAt("", '|'), Pieces{""});
}

TEST(Texts, ForPeople) {
    EXPECT_EQ(Counted(1, "cell") + Counted(0, "cell") + Counted(std::size_t{2}, "cell"), "1 cell0 cells2 cells");
    EXPECT_EQ(Joined({"a", "", "b"}, ", "), "a, , b");
    EXPECT_EQ(Joined({"", "b"}, "; "), "; b");
    EXPECT_EQ(Joined({}, ", "), "");
}

}  // namespace planview
