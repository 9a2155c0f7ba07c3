#include "components/ListView.h"

#include <utility>

namespace planview {

void ListView::Add(std::string_view key, std::string_view text, const std::array<std::string_view, 4>& subItems) {
    ListItem item = std::move(spare_);
    item.key = key;
    item.text = text;
    for (std::size_t i = 0; i < subItems.size(); ++i) {
        item.subItems[i] = subItems[i];
    }
    items_.push_back(std::move(item));
    current_ = items_.size() - 1;
    if (watcher_) {
        watcher_->ItemAdded();
    }
}

void ListView::RemoveFirst() {
    if (items_.empty()) {
        return;
    }
    spare_ = std::move(items_.front());
    items_.pop_front();
    current_ = current_ > 0 ? current_ - 1 : items_.size();
    if (watcher_) {
        watcher_->FirstItemRemoved();
    }
}

void ListView::Clear() {
    items_.clear();
    current_ = 0;
    if (watcher_) {
        watcher_->Cleared();
    }
}

}  // namespace planview
