// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <planview/Export.h>

namespace planview {

struct ListColumn {
    std::string key;
    std::string caption;
    int width = 0;  ///< in twips, 1/1440 inch
};

/// One row of a report list: the item's own text and four more for the columns behind the first.
struct ListItem {
    std::string key;
    std::string text;
    std::array<std::string, 4> subItems;
    std::chrono::system_clock::time_point time;  ///< when it came; the epoch where nobody has noted it
};

/// Hears what happens to a ListView, on the thread that did it and when nothing is locked: meanwhile other threads may
/// have gone on.
class ListViewWatcher {
public:
    virtual ~ListViewWatcher() = default;
    /// The item with this number has been added, maybe in the place of the first one.
    virtual void ItemAdded(std::uint64_t number) = 0;
    virtual void Cleared() = 0;
    /// Nothing more comes; viewers must release the list.
    virtual void Ended() = 0;
};

/// A list in report view without a screen. Items are appended at the end and dropped at the front in constant time; the
/// storage of a dropped item is reused for the next one.
///
/// Any thread may use it at any time. Items are numbered through from 0 in the order in which they were added; a number
/// is never given again.
class PLANVIEW_EXPORT ListView {
public:
    explicit ListView(std::vector<ListColumn> columns = {}) : columns_(std::move(columns)) {}
    ListView(const ListView&) = delete;
    ListView& operator=(const ListView&) = delete;

    /// Several windows may show one list. A watcher may add and remove watchers while it is told of something; one that
    /// is removed on another thread may still be told of what happens at that moment.
    void AddWatcher(std::shared_ptr<ListViewWatcher> watcher);
    void RemoveWatcher(const ListViewWatcher& watcher);

    [[nodiscard]] const std::vector<ListColumn>& Columns() const noexcept { return columns_; }

    /// The items that there are now.
    struct Range {
        std::uint64_t first = 0;  ///< the number of the first one
        std::size_t count = 0;
    };
    [[nodiscard]] Range Items() const;
    [[nodiscard]] std::size_t Count() const { return Items().count; }
    /// Copies the item with this number; false when it is gone or has not come yet.
    [[nodiscard]] bool Read(std::uint64_t number, ListItem& item) const;
    /// Copies the item at a 0-based place; throws std::out_of_range where there is none.
    [[nodiscard]] ListItem Item(std::size_t index) const;
    /// Copies all items, as they are at one moment.
    [[nodiscard]] std::vector<ListItem> AllItems() const;

    /// Appends an item, in the place of the first one where the list holds `most` items. fill(item) sets all of its
    /// texts while the list is locked, so that what it counts is counted in the order of the items. What it throws
    /// comes through, and nothing is appended.
    template <class Fill>
    void Add(std::size_t most, const Fill& fill) {
        std::shared_ptr<const Watchers> told;
        std::uint64_t number = 0;
        {
            const std::lock_guard lock(mutex_);
            fill(FreeItem(most));
            number = first_ + count_++;
            told = watchers_;
        }
        Tell(told, [number](ListViewWatcher& watcher) { watcher.ItemAdded(number); });
    }
    void Clear();
    /// Tells the watchers that nothing more comes.
    void End();
    [[nodiscard]] bool HasEnded() const;

private:
    using Watchers = std::vector<std::shared_ptr<ListViewWatcher>>;

    /// Tells each of these that still is a watcher when its turn comes.
    template <class What>
    void Tell(const std::shared_ptr<const Watchers>& told, const What& what) const {
        for (std::size_t i = 0; told && i < told->size(); ++i) {
            ListViewWatcher& watcher = *(*told)[i];
            if (i == 0 || IsWatching(watcher)) {
                what(watcher);
            }
        }
    }
    [[nodiscard]] bool IsWatching(const ListViewWatcher& watcher) const;
    /// The slot behind the last item; drops the first item where there are `most`.
    ListItem& FreeItem(std::size_t most);
    [[nodiscard]] std::size_t SlotOf(std::size_t index) const noexcept { return (head_ + index) % slots_.size(); }

    const std::vector<ListColumn> columns_;
    mutable std::mutex mutex_;  // guards all that follows; nobody is called while it is locked
    // A ring: the items are the count_ slots from head_ on; the slots behind them keep the storage of dropped items.
    std::vector<ListItem> slots_;
    std::size_t head_ = 0;
    std::size_t count_ = 0;
    std::uint64_t first_ = 0;
    bool ended_ = false;
    std::shared_ptr<const Watchers> watchers_;
};

}  // namespace planview
