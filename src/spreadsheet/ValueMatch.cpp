// SPDX-License-Identifier: MIT
#include "spreadsheet/ValueMatch.h"

#include <algorithm>
#include <cstddef>
#include <map>

namespace planview {

namespace {

using Row = std::vector<std::string>;

struct Same {
    std::vector<int> recorded;
    std::vector<int> found;
};

/// More changed rows of one caption are not compared with each other; it takes the square of their number.
constexpr std::size_t MostCompared = 200;

int Agreement(const Row& left, const Row& right) {
    int agreement = 0;
    for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
        agreement += left[i] == right[i] ? 1 : 0;
    }
    return agreement;
}

/// The place of the highest of so many numbers; -1 where it stands at several.
template <class NumberAt>
int Highest(int count, const NumberAt& numberAt) {
    int best = 0;
    bool twice = false;
    for (int i = 1; i < count; ++i) {
        twice = numberAt(i) == numberAt(best) || (twice && numberAt(i) < numberAt(best));
        best = numberAt(i) > numberAt(best) ? i : best;
    }
    return count == 0 || twice ? -1 : best;
}

}  // namespace

std::vector<std::pair<int, int>> MatchByValues(const std::vector<Row>& recorded, const std::vector<Row>& found) {
    if (recorded.empty() || recorded.front().empty()) {
        return {};  // there is nothing to compare
    }
    std::map<Row, Same> same;
    for (std::size_t i = 0; i < recorded.size(); ++i) {
        same[recorded[i]].recorded.push_back(static_cast<int>(i));
    }
    for (std::size_t i = 0; i < found.size(); ++i) {
        same[found[i]].found.push_back(static_cast<int>(i));
    }
    std::vector<std::pair<int, int>> pairs;
    Same rest;
    for (const auto& [values, places] : same) {
        if (places.recorded.size() == places.found.size()) {
            // Which of them is which makes no difference.
            for (std::size_t i = 0; i < places.recorded.size(); ++i) {
                pairs.emplace_back(places.recorded[i], places.found[i]);
            }
        } else {
            rest.recorded.insert(rest.recorded.end(), places.recorded.begin(), places.recorded.end());
            rest.found.insert(rest.found.end(), places.found.begin(), places.found.end());
        }
    }
    const std::size_t count = rest.recorded.size();
    if (count == 0 || count != rest.found.size() || count > MostCompared) {
        return pairs;
    }
    std::vector<int> agreements;
    for (const int row : rest.recorded) {
        for (const int place : rest.found) {
            agreements.push_back(
                Agreement(recorded[static_cast<std::size_t>(row)], found[static_cast<std::size_t>(place)]));
        }
    }
    const int size = static_cast<int>(count);
    const auto at = [&](int row, int place) { return agreements[static_cast<std::size_t>(row * size + place)]; };
    Same unknown;
    std::vector<bool> isKnown(count, false);
    for (int row = 0; row < size; ++row) {
        const int place = Highest(size, [&](int i) { return at(row, i); });
        if (place >= 0 && at(row, place) > 0 && Highest(size, [&](int i) { return at(i, place); }) == row) {
            pairs.emplace_back(rest.recorded[static_cast<std::size_t>(row)],
                               rest.found[static_cast<std::size_t>(place)]);
            isKnown[static_cast<std::size_t>(place)] = true;
        } else {
            unknown.recorded.push_back(row);
        }
    }
    for (int place = 0; place < size; ++place) {
        if (!isKnown[static_cast<std::size_t>(place)]) {
            unknown.found.push_back(place);
        }
    }
    if (unknown.recorded.size() == 1 && at(unknown.recorded.front(), unknown.found.front()) > 0) {
        pairs.emplace_back(rest.recorded[static_cast<std::size_t>(unknown.recorded.front())],
                           rest.found[static_cast<std::size_t>(unknown.found.front())]);
    }
    return pairs;
}

}  // namespace planview
