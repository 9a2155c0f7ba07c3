// SPDX-License-Identifier: MIT
#include "macro/tree/MacroHistory.h"

#include <algorithm>
#include <set>
#include <utility>

#include <planview/AutomationObject.h>

namespace planview {

namespace {

constexpr std::size_t MostSteps = 200;
constexpr const char* KeyField = "NODEKEY";

}  // namespace

void MacroChanges::Put(const HostTable& table, HostTable::Row row, std::string_view field, const Variant& value) {
    Place place{row, field};
    if (places_.find(place) == places_.end()) {
        places_.emplace(std::move(place), Values{table.Value(row, field), {}});
    }
    table.Put(row, field, value);
}

void MacroChanges::End(const HostTable& table) {
    std::set<HostTable::Row> rows;
    for (auto& [place, values] : places_) {
        values.after = table.Value(place.first, place.second);
        rows.insert(place.first);
    }
    // The key of a row shows later whether it is still the same node's.
    for (const HostTable::Row row : rows) {
        const Variant key = table.Value(row, KeyField);
        places_.emplace(Place{row, KeyField}, Values{key, key});
    }
}

bool MacroChanges::Fits(const HostTable& table, bool done) const {
    const int count = table.RowCount();
    return std::all_of(places_.begin(), places_.end(), [&](const auto& each) {
        const auto& [place, values] = each;
        return place.first <= count &&
               table.Text(place.first, place.second) == (done ? values.after : values.before).AsText();
    });
}

void MacroChanges::Restore(const HostTable& table, bool done) const {
    for (const auto& [place, values] : places_) {
        const Variant& value = done ? values.after : values.before;
        if (table.Text(place.first, place.second) != value.AsText()) {
            table.Put(place.first, place.second, value);
        }
    }
}

void MacroHistory::Add(MacroChanges changes) {
    if (changes.IsEmpty()) {
        return;
    }
    undone_.clear();
    if (done_.size() == MostSteps) {
        done_.erase(done_.begin());
    }
    done_.push_back(std::move(changes));
}

void MacroHistory::ExpectFit(const MacroChanges& changes, const HostTable& table, bool done) {
    if (!changes.Fits(table, done)) {
        done_.clear();
        undone_.clear();
        throw AutomationError(AutomationErrorCode::Failed,
                              "the macros were changed from elsewhere since, so the steps before cannot be taken back "
                              "any more");
    }
}

std::string MacroHistory::Undo(const HostTable& table) {
    if (!CanUndo()) {
        return {};
    }
    ExpectFit(done_.back(), table, true);
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    undone_.back().Restore(table, false);
    return undone_.back().currentBefore;
}

std::string MacroHistory::Redo(const HostTable& table) {
    if (!CanRedo()) {
        return {};
    }
    ExpectFit(undone_.back(), table, false);
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    done_.back().Restore(table, true);
    return done_.back().currentAfter;
}

}  // namespace planview
