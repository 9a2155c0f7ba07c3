// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "clipboard/BlockText.h"

namespace planview {

TEST(BlockText, ReadsWhatSpreadsheetsWrite) {
    const struct {
        const char* why;
        const char* text;
        TextBlock block;
    } cases[] = {
        {"one value", "5", {{"5"}}},
        {"the end of the last line makes no row", "1\t2\n3\t4\n", {{"1", "2"}, {"3", "4"}}},
        {"any line end", "1\r\n2\r3", {{"1"}, {"2"}, {"3"}}},
        {"an empty line in the middle", "1\n\n2", {{"1"}, {""}, {"2"}}},
        {"empty cells", "\t\n", {{"", ""}}},
        {"quotes around tabs, quotes and line ends", "\"a\tb\"\t\"c\"\"d\"\n\"e\nf\"", {{"a\tb", "c\"d"}, {"e\nf"}}},
        {"a quote inside is a character", "5\" pipe", {{"5\" pipe"}}},
        {"an open quote takes the rest", "\"a\tb", {{"a\tb"}}},
        {"lines of different lengths", "1\t2\t3\n4", {{"1", "2", "3"}, {"4"}}},
        {"nothing", "", {}},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(ParseBlock(row.text), row.block) << row.why;
    }
}

TEST(BlockText, WhatIsWrittenIsReadBack) {
    const TextBlock block{{"a\tb", "", "c\"d"}, {"\"", "e\r\nf", " x "}, {"", "", ""}};
    EXPECT_EQ(ParseBlock(FormatBlock(block)), block);
}

}  // namespace planview
