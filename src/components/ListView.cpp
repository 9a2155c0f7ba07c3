// SPDX-License-Identifier: MIT
#include "components/ListView.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>

namespace planview {

ListView::~ListView() {
    Tell(&ListViewWatcher::Ended);
}

void ListView::Tell(void (ListViewWatcher::*what)()) const {
    if (watchers_.size() == 1) {
        (watchers_.front()->*what)();
        return;
    }
    const std::vector<ListViewWatcher*> told = watchers_;
    for (ListViewWatcher* watcher : told) {
        if (std::find(watchers_.begin(), watchers_.end(), watcher) != watchers_.end()) {
            (watcher->*what)();
        }
    }
}

const ListItem& ListView::Item(std::size_t index) const {
    if (index >= count_) {
        throw std::out_of_range("ListView::Item");
    }
    return slots_[SlotOf(index)];
}

void ListView::Add(std::string_view key, std::string_view text, const std::array<std::string_view, 4>& subItems) {
    if (count_ == slots_.size()) {
        std::rotate(slots_.begin(), slots_.begin() + static_cast<std::ptrdiff_t>(first_), slots_.end());
        first_ = 0;
        slots_.emplace_back();
    }
    ListItem& item = slots_[SlotOf(count_)];
    item.key = key;
    item.text = text;
    for (std::size_t i = 0; i < subItems.size(); ++i) {
        item.subItems[i] = subItems[i];
    }
    current_ = count_++;
    Tell(&ListViewWatcher::ItemAdded);
}

void ListView::RemoveFirst() {
    if (count_ == 0) {
        return;
    }
    first_ = SlotOf(1);
    --count_;
    current_ = current_ > 0 ? current_ - 1 : count_;
    Tell(&ListViewWatcher::FirstItemRemoved);
}

void ListView::Clear() {
    slots_.clear();
    first_ = 0;
    count_ = 0;
    current_ = 0;
    Tell(&ListViewWatcher::Cleared);
}

}  // namespace planview
