// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace planview {

/// Finds the number that was given first to a cell's place in TAB: in constant time and without allocating for each
/// cell, for tables of tens of thousands of cells that are indexed for one action of the user.
class CellIndex {
public:
    static constexpr std::int16_t None = 0;

    /// Makes room for this many cells and forgets all.
    void Reset(std::size_t cells) {
        constexpr std::size_t FirstSize = 16;
        slots_.assign(std::bit_ceil(cells * Room + FirstSize), Slot());
        rowShift_ = std::numeric_limits<std::uint64_t>::digits - std::countr_zero(slots_.size());
        count_ = 0;
    }

    [[nodiscard]] std::int16_t Find(std::int16_t row, std::int16_t column) const noexcept {
        return slots_.empty() ? None : slots_[SlotOf(Key(row, column))].number;
    }

    /// False when the cell has a number already, which it keeps. `number` is not None.
    bool Add(std::int16_t row, std::int16_t column, std::int16_t number) {
        if ((count_ + 1) * Room > slots_.size()) {
            Grow();
        }
        const std::uint32_t key = Key(row, column);
        Slot& slot = slots_[SlotOf(key)];
        if (slot.number != None) {
            return false;
        }
        slot = {key, number};
        ++count_;
        return true;
    }

private:
    /// So many slots for each cell that the rows of a full table do not run into each other.
    static constexpr std::size_t Room = 4;

    struct Slot {
        std::uint32_t key = 0;
        std::int16_t number = None;
    };

    static constexpr unsigned ColumnBits = 16;

    [[nodiscard]] static std::uint32_t Key(std::int16_t row, std::int16_t column) noexcept {
        return static_cast<std::uint32_t>(static_cast<std::uint16_t>(row)) << ColumnBits |
               static_cast<std::uint16_t>(column);
    }
    /// The cell's slot, or the empty one where it belongs.
    [[nodiscard]] std::size_t SlotOf(std::uint32_t key) const noexcept {
        // The golden ratio: rows start far from each other. The cells of a row stand behind each other, because tables
        // list them and actions take them row by row.
        constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15U;
        const std::size_t mask = slots_.size() - 1;
        const std::uint64_t row = key >> ColumnBits;
        const std::uint64_t column = key & ((1U << ColumnBits) - 1U);
        std::size_t slot = static_cast<std::size_t>(((row * Spread) >> rowShift_) + column) & mask;
        while (slots_[slot].number != None && slots_[slot].key != key) {
            slot = (slot + 1) & mask;
        }
        return slot;
    }
    void Grow() {
        std::vector<Slot> old;
        old.swap(slots_);
        Reset(old.size() / 2);
        for (const Slot& slot : old) {
            if (slot.number != None) {
                slots_[SlotOf(slot.key)] = slot;
                ++count_;
            }
        }
    }

    std::vector<Slot> slots_;  // a power of two
    int rowShift_ = 0;
    std::size_t count_ = 0;
};

}  // namespace planview
