// SPDX-License-Identifier: MIT
#include "macro/recording/MacroPlaces.h"

#include <optional>
#include <set>

#include "automation/Texts.h"

namespace planview {

namespace {

/// A sentence without the full stop.
std::string TextOf(const PlaceFault& fault, PlaceAxis axis) {
    const std::string kind = axis == PlaceAxis::Columns ? "period" : "line";
    const std::string what = "the " + kind + " \"" + fault.missing + "\"";
    switch (fault.kind) {
        case PlaceFault::Kind::Malformed:
            return "\"" + fault.missing + "\" is no " + kind;
        case PlaceFault::Kind::NotThere:
            return what + " is not there";
        case PlaceFault::Kind::Ambiguous:
            return what + " cannot be told: " + std::to_string(fault.count) + " are called so";
        case PlaceFault::Kind::Apart:
            return what + " does not stand behind \"" + fault.other + "\" any more";
    }
    return what;
}

}  // namespace

PlaceTexts DescribePlaces(const GridControl& grid, PlaceAxis axis, const std::vector<std::string>& keys) {
    const GridPlaces places(grid, axis);
    std::set<int> found;
    for (const std::string& key : keys) {
        if (const std::optional<int> place = places.FindKey(key)) {
            found.insert(*place);
        }
    }
    PlaceTexts texts;
    const auto add = [&](int place, char mark) {
        if (!texts.keys.empty()) {
            texts.keys += mark;
            texts.names += CaptionMark;
        }
        texts.keys += places.Key(place);
        texts.names += places.Caption(place);
    };
    for (auto next = found.begin(); next != found.end();) {
        const int first = *next;
        int last = first;
        while (++next != found.end() && *next == last + 1 && places.SameArea(first, *next)) {
            last = *next;
        }
        add(first, ListMark);
        if (last > first) {
            add(last, RangeMark);
        }
    }
    return texts;
}

FoundPlaces FindPlaces(const GridControl& grid, PlaceAxis axis, const PlaceTexts& places) {
    FoundPlaces found;
    if (places.keys.empty()) {
        return found;
    }
    const GridPlaces all(grid, axis);
    KeyCaptions captions(places.keys, places.names);
    for (const std::string_view text : SplitAt(places.keys, ListMark)) {
        PlaceFault fault;
        const std::optional<PlaceRange> range = all.FindRange(text, captions, fault);
        if (!range) {
            return {{}, TextOf(fault, axis)};
        }
        const int step = range->first <= range->last ? 1 : -1;
        for (int place = range->first; place != range->last + step; place += step) {
            found.keys.push_back(all.Key(place));
        }
    }
    return found;
}

std::string ReadablePlaces(const PlaceTexts& places) {
    if (places.keys.empty()) {
        return {};
    }
    const std::vector<std::string_view> names = SplitAt(places.names, CaptionMark);
    std::string text;
    std::size_t next = 0;
    for (const std::string_view range : SplitAt(places.keys, ListMark)) {
        std::string_view between = text.empty() ? "" : ", ";
        for (const std::string_view key : SplitAt(range, RangeMark)) {
            text += between;
            text += next < names.size() && !names[next].empty() ? names[next] : key;
            ++next;
            between = " to ";
        }
    }
    return text;
}

std::string_view SinglePlace(std::string_view keys) {
    return keys.find_first_of(":,") == std::string_view::npos ? keys : std::string_view();
}

}  // namespace planview
