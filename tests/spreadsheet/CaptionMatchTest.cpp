// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "spreadsheet/CaptionMatch.h"

namespace planview {

namespace {

using Captions = std::vector<std::string>;

struct Case {
    const char* name;
    Captions table;
    Captions sheet;
    const char* expected;
};

/// "0 2 - | missing 1 | extra 3 | ambiguous 4 | renamed 5>6 | other".
std::string Text(const CaptionMatch& match) {
    std::string text;
    for (const int place : match.sheetPlaces) {
        text += (text.empty() ? "" : " ") + (place == CaptionMatch::None ? std::string("-") : std::to_string(place));
    }
    const auto add = [&](const char* what, const std::vector<int>& places) {
        for (std::size_t i = 0; i < places.size(); ++i) {
            text += (i == 0 ? std::string(" | ") + what + " " : ",") + std::to_string(places[i]);
        }
    };
    add("missing", match.missing);
    add("extra", match.extra);
    add("ambiguous", match.ambiguous);
    for (const auto& [inTable, onSheet] : match.renamed) {
        text += " | renamed " + std::to_string(inTable) + ">" + std::to_string(onSheet);
    }
    return text + (match.ofOtherTable ? " | other" : "");
}

const Case Cases[] = {
    {"as downloaded", {"A", "B", "C"}, {"A", "B", "C"}, "0 1 2"},
    {"empty cells behind", {"A", "B"}, {"A", "B", "", ""}, "0 1"},
    {"blanks around captions",
     {"  A", "B "},
     {"A",
      "\xC2\xA0"
      "B"},
     "0 1"},
    {"sorted by the user", {"A", "B", "C"}, {"C", "A", "B"}, "1 2 0"},
    {"one deleted", {"A", "B", "C"}, {"A", "C"}, "0 - 1 | missing 1"},
    {"one inserted", {"A", "B"}, {"A", "new", "B"}, "0 2 | extra 1"},
    {"an empty one inserted", {"A", "B"}, {"A", "", "B"}, "0 2"},
    {"one renamed", {"A", "B", "C"}, {"A", "b", "C"}, "0 - 2 | renamed 1>1"},
    {"two renamed at the end", {"A", "B", "C"}, {"A", "b", "c"}, "0 - - | renamed 1>1 | renamed 2>2 | other"},
    {"renamed and another one deleted", {"A", "B", "C", "D"}, {"A", "b", "D"}, "0 - - 2 | missing 1,2 | extra 1"},
    {"repeated, as downloaded", {"A", "Sum", "B", "Sum"}, {"A", "Sum", "B", "Sum"}, "0 1 2 3"},
    {"repeated, a line inserted above", {"A", "Sum", "B", "Sum"}, {"new", "A", "Sum", "B", "Sum"}, "1 2 3 4 | extra 0"},
    {"repeated, one of them deleted", {"A", "Sum", "B", "Sum"}, {"A", "B", "Sum"}, "0 - 1 2 | missing 1"},
    {"repeated side by side, one deleted", {"A", "Sum", "Sum"}, {"A", "Sum"}, "0 - - | ambiguous 1,2"},
    {"repeated, its neighbours sorted", {"A", "Sum", "B", "Sum"}, {"B", "Sum", "A", "Sum"}, "2 - 0 - | ambiguous 1,3"},
    {"repeated on the sheet only", {"A", "B"}, {"A", "A", "B"}, "- 2 | ambiguous 0"},
    {"another book", {"A", "B", "C"}, {"X", "Y", "Z"}, "- - - | renamed 0>0 | renamed 1>1 | renamed 2>2 | other"},
    {"another book with one line in common",
     {"A", "B", "Sum"},
     {"X", "Y", "Z", "Sum"},
     "- - 3 | missing 0,1 | extra 0,1,2 | other"},
    {"a part of the table", {"A", "B", "C", "D", "E"}, {"D"}, "- - - 0 - | missing 0,1,2,4"},
    {"an empty sheet", {"A", "B"}, {"", ""}, "- - | missing 0,1 | other"},
    {"nothing has a caption", {"", ""}, {"", ""}, "0 1 | other"},
    {"one line has no caption", {"A", "", "C"}, {"A", "", "C"}, "0 1 2"},
    {"no table", {}, {"A"}, " | extra 0 | other"},
};

}  // namespace

TEST(CaptionMatchTest, BelongsTogetherWhatProvablyDoes) {
    for (const Case& row : Cases) {
        EXPECT_EQ(Text(MatchCaptions(row.table, row.sheet)), row.expected) << row.name;
    }
}

}  // namespace planview
