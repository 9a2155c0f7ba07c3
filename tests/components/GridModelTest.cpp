// SPDX-License-Identifier: MIT
#include <array>
#include <map>
#include <random>

#include "support/GridText.h"

namespace planview {
namespace {

/// The plainest grid that could be: keys in order and texts by pairs of keys.
struct PlainGrid {
    struct Track {
        std::string key;
        bool hidden = false;
    };
    std::array<std::vector<Track>, 3> columns;
    std::array<std::vector<Track>, 3> rows;
    std::map<std::pair<std::string, std::string>, std::string> texts;
};

constexpr std::array<const char*, 3> ColumnPrefixes{"FLC", "COL", "FRC"};
constexpr std::array<const char*, 3> RowPrefixes{"FTR", "ROW", "FBR"};

class GridModelTest : public GridTest {
protected:
    int Random(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

    PlainGrid::Track* Any(std::array<std::vector<PlainGrid::Track>, 3>& areas) {
        std::vector<PlainGrid::Track>& area = areas[static_cast<std::size_t>(Random(3))];
        return area.empty() ? nullptr : &area[static_cast<std::size_t>(Random(static_cast<int>(area.size())))];
    }

    /// The label column stands before the others of its area, the heading row behind them.
    static int FirstPlace(const std::vector<PlainGrid::Track>& tracks) {
        return !tracks.empty() && tracks.front().key == LabelColumnKey ? 1 : 0;
    }
    static int Others(const std::vector<PlainGrid::Track>& tracks, std::size_t area) {
        return static_cast<int>(tracks.size()) - (area == 0 ? 1 : 0);
    }

    template <class Create>
    void CreateAny(std::array<std::vector<PlainGrid::Track>, 3>& areas, const std::array<const char*, 3>& prefixes,
                   Create create) {
        const auto area = static_cast<std::size_t>(Random(3));
        std::vector<PlainGrid::Track>& tracks = areas[area];
        const int others = Others(tracks, area);
        const int position = Random(others + 2);
        const std::string key = prefixes[area] + std::to_string(++lastNumber_);
        ASSERT_EQ(create(key, static_cast<std::int16_t>(position)), GridStatus::Ok) << key << " at " << position;
        tracks.insert(tracks.begin() + FirstPlace(tracks) + (position == 0 ? others : position - 1), {key});
    }

    template <class Move>
    void MoveAny(std::array<std::vector<PlainGrid::Track>, 3>& areas, Move move) {
        const auto area = static_cast<std::size_t>(Random(3));
        std::vector<PlainGrid::Track>& tracks = areas[area];
        const int first = FirstPlace(tracks);
        const int count = Others(tracks, area);
        if (count == 0) {
            return;
        }
        const int from = Random(count);
        const int position = 1 + Random(count);
        const PlainGrid::Track track = tracks[static_cast<std::size_t>(first + from)];
        ASSERT_EQ(move(track.key, static_cast<std::int16_t>(position)), GridStatus::Ok);
        tracks.erase(tracks.begin() + first + from);
        tracks.insert(tracks.begin() + first + position - 1, track);
    }

    void Step() {
        switch (Random(8)) {
            case 0:
                CreateAny(plain_.columns, ColumnPrefixes,
                          [this](const auto& key, auto position) { return grid_.CreateColumn(key, position, false); });
                break;
            case 1:
                CreateAny(plain_.rows, RowPrefixes,
                          [this](const auto& key, auto position) { return grid_.CreateRow(key, position, false); });
                break;
            case 2:
                MoveAny(plain_.columns,
                        [this](const auto& key, auto position) { return grid_.MoveColumn(key, position, false); });
                break;
            case 3:
                MoveAny(plain_.rows,
                        [this](const auto& key, auto position) { return grid_.MoveRow(key, position, false); });
                break;
            case 4:
                if (PlainGrid::Track* column = Any(plain_.columns); column && column->key != LabelColumnKey) {
                    column->hidden = Random(3) > 0;
                    ASSERT_EQ(SetColumn(column->key, GridAttribute::Hidden, column->hidden), GridStatus::Ok);
                }
                break;
            case 5:
                if (PlainGrid::Track* row = Any(plain_.rows); row && row->key != HeadingRowKey) {
                    row->hidden = Random(3) > 0;
                    ASSERT_EQ(SetRow(row->key, GridAttribute::Hidden, row->hidden), GridStatus::Ok);
                }
                break;
            default: {
                PlainGrid::Track* column = Any(plain_.columns);
                PlainGrid::Track* row = Any(plain_.rows);
                if (column && row) {
                    const std::string text = "t" + std::to_string(Random(1000));
                    ASSERT_EQ(SetCell({column->key, row->key}, GridAttribute::Contents, text), GridStatus::Ok);
                    plain_.texts[{column->key, row->key}] = text;
                }
                break;
            }
        }
    }

    template <class Ids, class TrackOf>
    static std::string Keys(const std::vector<PlainGrid::Track>& expected, Ids ids, TrackOf trackOf, int& order,
                            const GridControl& grid) {
        std::string found;
        for (const auto id : ids) {
            found += trackOf(id).key + (trackOf(id).hidden ? "- " : " ");
            EXPECT_EQ(grid.OrderOf(id), order++);
        }
        std::string wanted;
        for (const PlainGrid::Track& track : expected) {
            wanted += track.key + (track.hidden ? "- " : " ");
        }
        EXPECT_EQ(found, wanted);
        return found;
    }

    void Compare() {
        int columnOrder = 0;
        int rowOrder = 0;
        const auto column = [this](ColumnId id) { return grid_.Column(id); };
        const auto row = [this](RowId id) { return grid_.Row(id); };
        for (std::size_t area = 0; area < 3; ++area) {
            Keys(plain_.columns[area], grid_.Columns(static_cast<ColumnArea>(area)), column, columnOrder, grid_);
            Keys(plain_.rows[area], grid_.Rows(static_cast<RowArea>(area)), row, rowOrder, grid_);
        }
        for (const auto& [keys, text] : plain_.texts) {
            EXPECT_EQ(grid_.Contents(At({keys.first, keys.second})), text);
        }
        const std::optional<Cell> current = grid_.CurrentCell();
        EXPECT_EQ(current.has_value(), grid_.FirstColumn().has_value() && grid_.FirstRow().has_value());
        if (current) {
            EXPECT_FALSE(grid_.Column(current->column).hidden || grid_.Row(current->row).hidden);
            EXPECT_FALSE(grid_.Column(*grid_.FirstColumn()).hidden || grid_.Row(*grid_.FirstRow()).hidden);
        }
    }

    PlainGrid plain_;
    std::mt19937 random_{20261121};
    int lastNumber_ = 0;
};

TEST_F(GridModelTest, AgreesWithThePlainestGrid) {
    constexpr int Steps = 3000;
    constexpr int ComparedEvery = 50;
    ASSERT_EQ(grid_.CreateLabelled(false), GridStatus::Ok);
    plain_.columns[0].push_back({std::string(LabelColumnKey)});
    plain_.rows[0].push_back({std::string(HeadingRowKey)});
    for (int i = 1; i <= Steps; ++i) {
        Step();
        if (i % ComparedEvery == 0) {
            Compare();
        }
        ASSERT_FALSE(HasFailure()) << "step " << i;
    }
}

}  // namespace
}  // namespace planview
