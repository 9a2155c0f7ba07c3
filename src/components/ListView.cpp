// SPDX-License-Identifier: MIT
#include "components/ListView.h"

#include <algorithm>
#include <stdexcept>

namespace planview {

void ListView::AddWatcher(std::shared_ptr<ListViewWatcher> watcher) {
    const std::lock_guard lock(mutex_);
    auto watchers = watchers_ ? std::make_shared<Watchers>(*watchers_) : std::make_shared<Watchers>();
    watchers->push_back(std::move(watcher));
    watchers_ = std::move(watchers);
}

void ListView::RemoveWatcher(const ListViewWatcher& watcher) {
    std::shared_ptr<const Watchers> before;  // ends, and the watcher maybe with it, when the lock is open
    const std::lock_guard lock(mutex_);
    if (watchers_) {
        auto watchers = std::make_shared<Watchers>(*watchers_);
        std::erase_if(*watchers, [&](const auto& each) { return each.get() == &watcher; });
        before = std::exchange(watchers_, watchers->empty() ? nullptr : std::move(watchers));
    }
}

bool ListView::IsWatching(const ListViewWatcher& watcher) const {
    const std::lock_guard lock(mutex_);
    return watchers_ &&
           std::any_of(watchers_->begin(), watchers_->end(), [&](const auto& each) { return each.get() == &watcher; });
}

ListView::Range ListView::Items() const {
    const std::lock_guard lock(mutex_);
    return {first_, count_};
}

bool ListView::Read(std::uint64_t number, ListItem& item) const {
    const std::lock_guard lock(mutex_);
    if (number < first_ || number - first_ >= count_) {
        return false;
    }
    item = slots_[SlotOf(static_cast<std::size_t>(number - first_))];
    return true;
}

ListItem ListView::Item(std::size_t index) const {
    const std::lock_guard lock(mutex_);
    if (index >= count_) {
        throw std::out_of_range("ListView::Item");
    }
    return slots_[SlotOf(index)];
}

std::vector<ListItem> ListView::AllItems() const {
    const std::lock_guard lock(mutex_);
    std::vector<ListItem> items;
    items.reserve(count_);
    for (std::size_t i = 0; i < count_; ++i) {
        items.push_back(slots_[SlotOf(i)]);
    }
    return items;
}

ListItem& ListView::FreeItem(std::size_t most) {
    if (count_ > 0 && count_ >= most) {
        head_ = SlotOf(1);
        --count_;
        ++first_;
    } else if (count_ == slots_.size()) {
        std::rotate(slots_.begin(), slots_.begin() + static_cast<std::ptrdiff_t>(head_), slots_.end());
        head_ = 0;
        slots_.emplace_back();
    }
    return slots_[SlotOf(count_)];
}

void ListView::Clear() {
    std::shared_ptr<const Watchers> told;
    {
        const std::lock_guard lock(mutex_);
        slots_.clear();
        head_ = 0;
        first_ += std::exchange(count_, 0);
        told = watchers_;
    }
    Tell(told, [](ListViewWatcher& watcher) { watcher.Cleared(); });
}

void ListView::End() {
    std::shared_ptr<const Watchers> told;
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
        told = watchers_;
    }
    Tell(told, [](ListViewWatcher& watcher) { watcher.Ended(); });
}

bool ListView::HasEnded() const {
    const std::lock_guard lock(mutex_);
    return ended_;
}

}  // namespace planview
