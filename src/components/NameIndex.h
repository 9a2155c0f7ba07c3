// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace planview {

/// Finds the number that a name has in its owner's list: in constant time, without allocating and without a copy of the
/// name. The list itself stays with the owner, who passes a function that gives the name for a number.
class NameIndex {
public:
    static constexpr std::int32_t None = -1;

    template <class NameAt>
    [[nodiscard]] std::int32_t Find(std::string_view name, NameAt nameAt) const {
        if (slots_.empty()) {
            return None;
        }
        for (std::size_t slot = Hash(name) & Mask();; slot = (slot + 1) & Mask()) {
            const std::int32_t number = slots_[slot];
            if (number == None || nameAt(number) == name) {
                return number;
            }
        }
    }

    /// The name must not be in the index yet.
    template <class NameAt>
    void Add(std::int32_t number, NameAt nameAt) {
        constexpr std::size_t FirstSize = 16;
        if ((count_ + 1) * 2 > slots_.size()) {
            std::vector<std::int32_t> old(slots_.empty() ? FirstSize : slots_.size() * 2, None);
            old.swap(slots_);
            for (const std::int32_t known : old) {
                if (known != None) {
                    Place(known, nameAt(known));
                }
            }
        }
        Place(number, nameAt(number));
        ++count_;
    }

    void Clear() noexcept {
        slots_.clear();
        count_ = 0;
    }

private:
    [[nodiscard]] std::size_t Mask() const noexcept { return slots_.size() - 1; }

    [[nodiscard]] static std::size_t Hash(std::string_view name) noexcept {
        // FNV-1a: the names are a few characters long, so that nothing cleverer pays.
        std::uint64_t hash = 14695981039346656037U;
        for (const char c : name) {
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
        }
        return static_cast<std::size_t>(hash ^ (hash >> 32U));
    }

    void Place(std::int32_t number, std::string_view name) {
        std::size_t slot = Hash(name) & Mask();
        while (slots_[slot] != None) {
            slot = (slot + 1) & Mask();
        }
        slots_[slot] = number;
    }

    std::vector<std::int32_t> slots_;  // a power of two, at most half full
    std::size_t count_ = 0;
};

}  // namespace planview
