// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
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
};

/// Hears what happens to a ListView. Indices are 0-based.
class ListViewWatcher {
public:
    virtual ~ListViewWatcher() = default;
    virtual void ItemAdded() = 0;
    virtual void FirstItemRemoved() = 0;
    virtual void Cleared() = 0;
    /// The list is gone after this call.
    virtual void Ended() = 0;
};

/// A list in report view without a screen. Items are appended at the end and dropped at the front in constant time; the
/// storage of a dropped item is reused for the next one. The caller keeps keys unique.
class PLANVIEW_EXPORT ListView {
public:
    ListView() = default;
    ~ListView();
    ListView(const ListView&) = delete;
    ListView& operator=(const ListView&) = delete;

    /// Several windows may show one list. A watcher may add and remove watchers while it is being notified.
    void AddWatcher(ListViewWatcher& watcher) { watchers_.push_back(&watcher); }
    void RemoveWatcher(ListViewWatcher& watcher) noexcept { std::erase(watchers_, &watcher); }

    void AddColumn(ListColumn column) { columns_.push_back(std::move(column)); }
    [[nodiscard]] const std::vector<ListColumn>& Columns() const noexcept { return columns_; }

    [[nodiscard]] std::size_t Count() const noexcept { return count_; }
    /// Throws std::out_of_range for an index outside 0 .. Count() - 1.
    [[nodiscard]] const ListItem& Item(std::size_t index) const;

    /// Appends an item and makes it the current one.
    void Add(std::string_view key, std::string_view text, const std::array<std::string_view, 4>& subItems);
    void RemoveFirst();
    void Clear();
    /// The index of the current item; Count() when there is none.
    [[nodiscard]] std::size_t Current() const noexcept { return current_; }

private:
    /// Notifies each current watcher that is still registered when its turn comes.
    void Tell(void (ListViewWatcher::*what)()) const;
    [[nodiscard]] std::size_t SlotOf(std::size_t index) const noexcept { return (first_ + index) % slots_.size(); }

    std::vector<ListColumn> columns_;
    // A ring: the items are the count_ slots from first_ on; the slots behind them keep the storage of dropped items.
    std::vector<ListItem> slots_;
    std::size_t first_ = 0;
    std::size_t count_ = 0;
    std::size_t current_ = 0;
    std::vector<ListViewWatcher*> watchers_;
};

}  // namespace planview
