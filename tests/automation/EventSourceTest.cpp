// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <planview/AutomationObject.h>

#include "automation/EventSource.h"

namespace planview {

namespace {

struct Recorder : PlanViewEvents {
    std::string heard;
    std::function<void()> action;

    void GridValueChanged(std::int16_t column, const std::string& colPos, std::int16_t row, const std::string& rowPos,
                          const Variant& value) override {
        heard += std::to_string(column) + colPos + std::to_string(row) + rowPos + "=" + value.AsText();
    }
    void GridStartUpdate() override {
        heard += "update ";
        if (action) {
            action();
        }
    }
};

struct Fixture : testing::Test {
    std::vector<std::string> failures;
    EventSource source{[this](std::string_view event, std::string_view error) {
        failures.push_back(std::string(event) + ": " + std::string(error));
    }};
};

using EventSourceTest = Fixture;

}  // namespace

TEST_F(EventSourceTest, ArgumentsArriveTypedAtEverySink) {
    Recorder first;
    Recorder second;
    source.AddSink(first);
    source.AddSink(second);
    const std::array<Variant, 5> arguments{Variant(std::int16_t{7}), "COL7", std::int16_t{3}, "ROW3", "12,5"};
    source.Raise(EventId::GridValueChanged, arguments);
    EXPECT_EQ(first.heard, "7COL73ROW3=12,5");
    EXPECT_EQ(second.heard, first.heard);
    source.RemoveSink(first);
    source.Raise(EventId::GridStartUpdate);
    EXPECT_EQ(first.heard, "7COL73ROW3=12,5");
    EXPECT_EQ(second.heard, "7COL73ROW3=12,5update ");
}

TEST_F(EventSourceTest, WrongArgumentsAreRefused) {
    EXPECT_THROW(source.Raise(EventId::GridValueChanged), AutomationError);
    const std::array<Variant, 1> wide{Variant(std::int32_t{1})};
    EXPECT_THROW(source.Raise(EventId::ChartMouseDown, wide), AutomationError);
}

TEST_F(EventSourceTest, AThrowingSinkHarmsNoOther) {
    Recorder first;
    Recorder second;
    Recorder third;
    first.action = [] { throw std::runtime_error("host failed"); };
    second.action = [] { throw 5; };
    for (Recorder* sink : {&first, &second, &third}) {
        source.AddSink(*sink);
    }
    source.Raise(EventId::GridStartUpdate);
    EXPECT_EQ(third.heard, "update ");
    EXPECT_EQ(failures,
              (std::vector<std::string>{"GridStartUpdate: host failed", "GridStartUpdate: unknown exception"}));
}

TEST_F(EventSourceTest, SinksMayComeAndGoDuringAnEvent) {
    Recorder first;
    Recorder second;
    Recorder late;
    first.action = [&] {
        source.RemoveSink(second);
        source.AddSink(late);
        first.action = nullptr;
    };
    source.AddSink(first);
    source.AddSink(second);
    source.Raise(EventId::GridStartUpdate);
    EXPECT_EQ(second.heard, "") << "removed before its turn";
    EXPECT_EQ(late.heard, "") << "added after the event began";
    source.Raise(EventId::GridStartUpdate);
    EXPECT_EQ(late.heard, "update ");
}

TEST_F(EventSourceTest, TheSourceMayEndDuringAnEvent) {
    auto own = std::make_unique<EventSource>([](std::string_view, std::string_view) {});
    Recorder first;
    Recorder second;
    first.action = [&] { own.reset(); };
    own->AddSink(first);
    own->AddSink(second);
    own->Raise(EventId::GridStartUpdate);
    EXPECT_EQ(second.heard, "");
}

TEST(EventTable, NumbersAndNamesAreFixed) {
    const std::span<const EventDescription> events = DescribeEvents();
    ASSERT_EQ(events.size(), 20U);
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(events[i].id), i + 1);
    }
    EXPECT_EQ(events[0].name, "GridValueChanged");
    EXPECT_EQ(events[6].name, "GridStartUpdate");
    EXPECT_EQ(events[13].name, "GridPopupMenuPressed");
    EXPECT_EQ(events[19].name, "MacroRecordSave");
    EXPECT_EQ(events[13].arguments.size(), 6U);
}

}  // namespace planview
