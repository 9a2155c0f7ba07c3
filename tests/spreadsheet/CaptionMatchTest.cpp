// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "automation/Texts.h"
#include "spreadsheet/CaptionMatch.h"
#include "spreadsheet/DownloadRecord.h"
#include "spreadsheet/ValueMatch.h"

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
    add("by order", match.byOrder);
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
    {"repeated, as downloaded", {"A", "Sum", "B", "Sum"}, {"A", "Sum", "B", "Sum"}, "0 1 2 3 | by order 1,3"},
    {"repeated, a line inserted above",
     {"A", "Sum", "B", "Sum"},
     {"new", "A", "Sum", "B", "Sum"},
     "1 - 3 - | extra 0 | ambiguous 1,3"},
    {"repeated, one of them deleted", {"A", "Sum", "B", "Sum"}, {"A", "B", "Sum"}, "0 - 1 - | ambiguous 1,3"},
    {"repeated, one deleted and another one added",
     {"A", "Sum", "B", "Sum"},
     {"A", "B", "Sum", "Sum"},
     "0 - 1 - | ambiguous 1,3"},
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
    {"nothing has a caption", {"", ""}, {"", ""}, "0 1 | by order 0,1 | other"},
    {"one line has no caption", {"A", "", "C"}, {"A", "", "C"}, "0 1 2"},
    {"no table", {}, {"A"}, " | extra 0 | other"},
};

}  // namespace

TEST(CaptionMatchTest, OrderDecidesOnlyWhereNothingElseShowsThatItChanged) {
    const Captions captions{"A", "Sum", "Sum", "Sum", "Sum"};
    const auto match = [&](std::vector<std::pair<int, int>> pairs) {
        return Text(MatchCaptions(captions, captions, [&](const auto&, const auto&) { return pairs; }));
    };
    EXPECT_EQ(match({}), "0 1 2 3 4 | by order 1,2,3,4");
    EXPECT_EQ(match({{1, 1}, {3, 3}}), "0 1 2 3 4 | by order 2,4");
    EXPECT_EQ(match({{1, 3}, {3, 1}}), "0 3 - 1 - | ambiguous 2,4") << "sorted";
}

TEST(ValueMatchTest, TellsRowsApart) {
    using Rows = std::vector<std::vector<std::string>>;
    const struct {
        const char* name;
        Rows recorded;
        Rows found;
        const char* expected;  ///< the found row of each recorded one
    } cases[] = {
        {"unchanged", {{"1", "2"}, {"3", "4"}}, {{"1", "2"}, {"3", "4"}}, "0 1"},
        {"sorted", {{"1", "2"}, {"3", "4"}, {"5", "6"}}, {{"5", "6"}, {"3", "4"}, {"1", "2"}}, "2 1 0"},
        {"sorted and changed", {{"1", "2"}, {"3", "4"}}, {{"3", "9"}, {"1", "2"}}, "1 0"},
        {"both changed", {{"1", "2", "3"}, {"4", "5", "6"}}, {{"4", "5", "9"}, {"1", "9", "3"}}, "1 0"},
        {"all alike", {{"", ""}, {"", ""}}, {{"", ""}, {"", ""}}, "0 1"},
        {"alike, and one changed", {{"", ""}, {"", ""}}, {{"7", ""}, {"", ""}}, "- -"},
        {"alike, one changed, another caption sure",
         {{"", ""}, {"", ""}, {"1", "2"}},
         {{"7", ""}, {"1", "2"}, {"", ""}},
         "- - 1"},
        {"the one takes the values of the other, which are new ones",
         {{"1", "2"}, {"3", "4"}},
         {{"3", "4"}, {"5", "6"}},
         "- 0"},
        {"nothing in common", {{"1"}, {"2"}}, {{"3"}, {"4"}}, "- -"},
        {"as near to one as to the other", {{"1", "2"}, {"1", "3"}}, {{"1", "9"}, {"1", "8"}}, "- -"},
        {"nothing to compare", {{}, {}}, {{}, {}}, "- -"},
    };
    for (const auto& row : cases) {
        std::vector<std::string> places(row.recorded.size(), "-");
        for (const auto& [recorded, found] : MatchByValues(row.recorded, row.found)) {
            places[static_cast<std::size_t>(recorded)] = std::to_string(found);
        }
        EXPECT_EQ(Joined(places, " "), row.expected) << row.name;
    }
}

TEST(DownloadRecordTest, FindsRowsByKeyFirst) {
    using Axis = DownloadRecord::Axis;
    const struct {
        const char* name;
        Axis table;
        Axis record;
        const char* expected;
    } cases[] = {
        {"as downloaded", {{"R1", "R2"}, {"A", "B"}}, {{"R1", "R2"}, {"A", "B"}}, "0 1"},
        {"sorted in the table", {{"R2", "R1"}, {"B", "A"}}, {{"R1", "R2"}, {"A", "B"}}, "1 0"},
        {"renamed in the table", {{"R1", "R2", "R3"}, {"A", "b", "C"}}, {{"R1", "R2", "R3"}, {"A", "B", "C"}}, "0 1 2"},
        {"repeated", {{"R3", "R1", "R2"}, {"S", "A", "S"}}, {{"R1", "R2", "R3"}, {"A", "S", "S"}}, "2 0 1"},
        {"a repeated one gone", {{"R1", "R3"}, {"A", "S"}}, {{"R1", "R2", "R3"}, {"A", "S", "S"}}, "0 2"},
        {"keys given anew", {{"R1", "R2", "R3"}, {"new", "A", "B"}}, {{"R1", "R2"}, {"A", "B"}}, "- 0 1"},
        {"keys given anew, repeated captions",
         {{"R1", "R2", "R3", "R4", "R5"}, {"A", "B", "new", "C", "S"}},
         {{"R1", "R2", "R3", "R4", "R5"}, {"A", "B", "C", "S", "S"}},
         "0 1 - 2 -"},
        {"another caption that the table has elsewhere",
         {{"R1", "R2", "R3", "R4"}, {"A", "C", "C", "D"}},
         {{"R1", "R2", "R3", "R4"}, {"A", "B", "C", "D"}},
         "0 1 2 3"},
        {"another table", {{"R1", "R2", "R3"}, {"A", "B", "C"}}, {{"R1", "R2", "R3"}, {"X", "Y", "C"}}, "- - -"},
    };
    for (const auto& row : cases) {
        std::string text;
        for (const int place : PlacesInRecord(row.table, row.record)) {
            text +=
                (text.empty() ? "" : " ") + (place == CaptionMatch::None ? std::string("-") : std::to_string(place));
        }
        EXPECT_EQ(text, row.expected) << row.name;
    }
}

TEST(CaptionMatchTest, BelongsTogetherWhatProvablyDoes) {
    for (const Case& row : Cases) {
        EXPECT_EQ(Text(MatchCaptions(row.table, row.sheet)), row.expected) << row.name;
    }
}

}  // namespace planview
