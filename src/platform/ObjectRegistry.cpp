// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>
#include <vector>

#include <planview/ObjectRegistry.h>

#include "automation/MemberNames.h"

namespace planview {

struct ObjectRegistry::State {
    struct Entry {
        std::string identifier;
        Maker make;
    };

    [[nodiscard]] auto Find(std::string_view identifier) {
        return std::find_if(entries.begin(), entries.end(),
                            [&](const Entry& entry) { return SameMemberName(entry.identifier, identifier); });
    }

    std::vector<Entry> entries;
};

ObjectRegistry::ObjectRegistry() : state_(std::make_unique<State>()) {}

ObjectRegistry::~ObjectRegistry() = default;

void ObjectRegistry::Register(std::string identifier, Maker make) {
    Unregister(identifier);
    state_->entries.push_back({std::move(identifier), std::move(make)});
}

void ObjectRegistry::Unregister(std::string_view identifier) noexcept {
    const auto found = state_->Find(identifier);
    if (found != state_->entries.end()) {
        state_->entries.erase(found);
    }
}

ObjectRef ObjectRegistry::Create(std::string_view programmaticIdentifier) {
    const auto found = state_->Find(programmaticIdentifier);
    if (found == state_->entries.end() || !found->make) {
        return nullptr;
    }
    const Maker make = found->make;  // it may register another one
    return make();
}

}  // namespace planview
