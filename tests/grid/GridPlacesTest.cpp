// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "grid/GridPlaces.h"
#include "support/GridText.h"

namespace planview {

namespace {

using Kind = PlaceFault::Kind;

class GridPlacesTest : public GridTest {
protected:
    void SetUp() override {
        CreateSmallGrid();
        SetCell({LabelColumnKey, "ROW1"}, GridAttribute::Contents, "  Retail");
        SetCell({LabelColumnKey, "ROW2"}, GridAttribute::Contents, "Twice");
        SetCell({LabelColumnKey, "ROW3"}, GridAttribute::Contents, "Twice");
        SetCell({LabelColumnKey, "FTR1"}, GridAttribute::Contents, "Head|count");
    }

    /// The keys of the ends, or what is wrong: "? Twice".
    std::string Found(const char* reference, const char* captions, Kind* kind = nullptr) {
        const GridPlaces lines(grid_, PlaceAxis::Lines);
        KeyCaptions names(reference, captions);
        PlaceFault fault;
        const std::optional<PlaceRange> range = lines.FindRange(reference, names, fault);
        if (kind) {
            *kind = fault.kind;
        }
        return range ? lines.Key(range->first) + " " + lines.Key(range->last) : "? " + fault.missing;
    }
};

}  // namespace

TEST_F(GridPlacesTest, AreFoundByKeyThenByCaption) {
    const struct {
        const char* why;
        const char* reference;
        const char* captions;
        const char* found;
    } cases[] = {
        {"key and caption", "ROW1", "Retail", "ROW1 ROW1"},
        {"the key of another line", "ROW2", "Retail", "ROW1 ROW1"},
        {"a key that is gone", "ROW9", "Retail", "ROW1 ROW1"},
        {"one of two with the caption, by its key", "ROW3", "Twice", "ROW3 ROW3"},
        {"without a caption", "ROW3", "", "ROW3 ROW3"},
        {"a range", "ROW1:ROW3", "Retail|Twice", "ROW1 ROW3"},
        {"a range in the other order", "ROW3:ROW1", "Twice|Retail", "ROW3 ROW1"},
        {"captions that are not one for each key", "ROW2:ROW3", "Retail", "ROW2 ROW3"},
        {"a fixed line by its key", "FTR1", "Head count", "FTR1 FTR1"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(Found(row.reference, row.captions), row.found) << row.why;
    }
}

TEST_F(GridPlacesTest, SayWhatIsMissing) {
    const struct {
        const char* reference;
        const char* captions;
        Kind kind;
        const char* missing;
    } cases[] = {
        {"ROW9", "", Kind::NotThere, "? ROW9"},
        {"ROW1", "Sold out", Kind::NotThere, "? Sold out"},
        {"ROW9", "Twice", Kind::Ambiguous, "? Twice"},
        {"ROW9", "Head count", Kind::NotThere, "? Head count"},  // a fixed line is not found by its caption
        {"ROW1:FTR1", "", Kind::Apart, "? Head count"},
        {"ROW1:ROW2:ROW3", "", Kind::Malformed, "? ROW1:ROW2:ROW3"},
        {"", "", Kind::Malformed, "? "},
    };
    for (const auto& row : cases) {
        Kind kind{};
        EXPECT_EQ(Found(row.reference, row.captions, &kind), row.missing);
        EXPECT_EQ(kind, row.kind) << row.reference << " " << row.captions;
    }
}

}  // namespace planview
