// SPDX-License-Identifier: MIT
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "automation/Numbers.h"
#include "calculation/CompensatedSum.h"
#include "calculation/Spreading.h"

namespace planview {
namespace {

using Values = std::vector<std::optional<double>>;
constexpr std::nullopt_t None = std::nullopt;

std::vector<SpreadLeaf> Leaves(const Values& values, int decimals = 0) {
    std::vector<SpreadLeaf> leaves;
    for (const std::optional<double>& value : values) {
        leaves.push_back({.value = value, .decimals = decimals});
    }
    return leaves;
}

std::string Shown(const Values& values) {
    std::string text;
    for (const std::optional<double>& value : values) {
        text += (text.empty() ? "" : " ") + (value ? NumberText(*value) : "-");
    }
    return text;
}

TEST(SpreadingTest, LaysAnAmountOnLeavesAsThePlannerExpects) {
    struct Case {
        const char* name;
        Values values;
        double amount;
        SpreadMethod method;
        int decimals;
        const char* expected;
    };
    const Case cases[] = {
        {"in proportion", {100, 200, 300}, 1200, SpreadMethod::Proportional, 0, "200 400 600"},
        {"the largest remainders round up", {1, 1, 1}, 100, SpreadMethod::Proportional, 0, "34 33 33"},
        {"cents", {1, 1, 1}, 100, SpreadMethod::Proportional, 2, "33.34 33.33 33.33"},
        {"a total below 0 turns the leaves", {100, 300}, -40, SpreadMethod::Proportional, 0, "-10 -30"},
        {"mixed signs rise together", {50, -30}, 28, SpreadMethod::Proportional, 0, "55 -27"},
        {"a sum of 0 with contents", {50, -50}, 10, SpreadMethod::Proportional, 0, "55 -45"},
        {"nothing is left of a total of 0", {3, 5, 9}, 0, SpreadMethod::Proportional, 0, "0 0 0"},
        {"zeros and gaps stay", {10, 0, None, 30}, 80, SpreadMethod::Proportional, 0, "20 0 - 60"},
        {"all empty: evenly", {None, None, None, None}, 10, SpreadMethod::Proportional, 1, "2.5 2.5 2.5 2.5"},
        {"all 0: evenly", {0, 0, 0}, 10, SpreadMethod::Proportional, 0, "4 3 3"},
        {"finer than the leaves: the largest holds it", {20, 10}, 30.5, SpreadMethod::Proportional, 0, "20.5 10"},
        {"equal", {10, 20, 30}, 90, SpreadMethod::Equal, 0, "30 30 30"},
        {"equal below 0", {1, 1, 1}, -100, SpreadMethod::Equal, 0, "-33 -33 -34"},
        {"repeat", {1, None, 3}, 7, SpreadMethod::Repeat, 0, "7 7 7"},
        {"percent", {100, None, 50}, 5, SpreadMethod::Percent, 1, "105 - 52.5"},
        {"straight", {10, 0, 0, 0}, 100, SpreadMethod::StraightLine, 0, "10 20 30 40"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const SpreadResult result = Spread(Leaves(c.values, c.decimals), c.amount, c.method);
        EXPECT_EQ(result.refusal, SpreadRefusal::None);
        EXPECT_EQ(Shown(result.values), c.expected);
    }
}

TEST(SpreadingTest, LeavesWhatIsHeldAndSaysWhatStandsInTheWay) {
    std::vector<SpreadLeaf> leaves = Leaves({100, 200, 300});
    leaves[1].fixed = true;
    EXPECT_EQ(Shown(Spread(leaves, 1000, SpreadMethod::Proportional).values), "200 200 600");
    for (SpreadLeaf& leaf : leaves) {
        leaf.fixed = true;
    }
    EXPECT_EQ(Spread(leaves, 1000, SpreadMethod::Proportional).refusal, SpreadRefusal::AllFixed);
    EXPECT_EQ(Spread({}, 1, SpreadMethod::Equal).refusal, SpreadRefusal::NoLeaves);
    EXPECT_EQ(Spread(Leaves({1, 2}), 5, SpreadMethod::Profile, std::vector<double>{0, 0}).refusal,
              SpreadRefusal::NoProfile);
    EXPECT_EQ(Shown(Spread(Leaves({1, 2}), 8, SpreadMethod::Profile, std::vector<double>{1, 3}).values), "2 6");
    EXPECT_EQ(Spread(Leaves({1e308, 1e308}), 1e308, SpreadMethod::Percent).refusal, SpreadRefusal::TooLarge);
}

TEST(SpreadingTest, WeightsCountWhatIsTakenAwayAndWhatIsAveraged) {
    std::vector<SpreadLeaf> difference = Leaves({100, 40});
    difference[1].weight = -1;  // sales less costs
    const SpreadResult margin = Spread(difference, 74, SpreadMethod::Proportional);
    EXPECT_EQ(Shown(margin.values), "110 36");
    std::vector<SpreadLeaf> mean = Leaves({10, 20, 30});
    for (SpreadLeaf& leaf : mean) {
        leaf.weight = 1.0 / 3;
    }
    EXPECT_EQ(Shown(Spread(mean, 40, SpreadMethod::Proportional).values), "20 40 60");
}

TEST(SpreadingTest, MeetsEveryTotalExactly) {
    std::mt19937 random(20);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    for (int round = 0; round < 2000; ++round) {
        const int decimals = upTo(4);
        const double scale = std::pow(10, decimals);
        std::vector<SpreadLeaf> leaves;
        const int count = 1 + upTo(40);
        for (int i = 0; i < count; ++i) {
            SpreadLeaf leaf{.value = std::nullopt, .decimals = decimals, .fixed = upTo(5) == 0};
            if (upTo(6) != 0) {
                leaf.value = (upTo(2'000'000) - 500'000) / scale;
            }
            leaves.push_back(leaf);
        }
        leaves.front().fixed = false;
        const double total = (upTo(20'000'000) - 5'000'000) / scale;
        const auto method = upTo(2) == 0 ? SpreadMethod::Proportional : SpreadMethod::Equal;
        const SpreadResult result = Spread(leaves, total, method);
        ASSERT_EQ(result.refusal, SpreadRefusal::None);
        for (std::size_t i = 0; i < leaves.size(); ++i) {
            if (leaves[i].fixed) {
                ASSERT_EQ(result.values[i], leaves[i].value);
            } else if (result.values[i]) {
                const double steps = *result.values[i] * scale;
                ASSERT_NEAR(steps, std::nearbyint(steps), 1e-6) << "finer than the leaf: " << *result.values[i];
            }
            leaves[i].value = result.values[i];
        }
        ASSERT_EQ(NumberText(TotalOf(leaves)), NumberText(total)) << "round " << round;
    }
}

TEST(CompensatedSumTest, TenThousandCentsAddUp) {
    CompensatedSum sum;
    double plain = 0;
    for (int i = 0; i < 10'000; ++i) {
        sum.Add(0.01);
        plain += 0.01;
    }
    EXPECT_EQ(sum.Value(), 100);
    EXPECT_NE(plain, 100);
    CompensatedSum large;
    for (const double term : {1e17, 1.0, 1.0, -1e17}) {
        large.Add(term);
    }
    EXPECT_EQ(large.Value(), 2);
}

}  // namespace
}  // namespace planview
