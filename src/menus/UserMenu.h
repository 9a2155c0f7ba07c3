// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "automation/HostTable.h"

namespace planview {

/// The entries that the host puts into the popups: one table of slots, filled anew from one of the host's menu tables
/// each time a popup of the grid opens.
class UserMenu {
public:
    static constexpr int MaxSlots = 100;

    struct Slot {
        std::int16_t PFID = 0;  ///< the host's number for the entry
        std::string TEXT;
        std::string ENABLED;  ///< "X" when it can be chosen
        std::string MARK;     ///< no field of the host's tables fills it; emptied with ENABLED
    };

    // Each disables all slots, then fills slot i from row i; without a table that is all. A table with more rows than
    // slots, or a field that cannot be read, ends the load with an error in the trace; slots filled by then stay.
    void UserGrid(HostTable gridMenu) { Load("UserGrid", std::move(gridMenu)); }
    void UserCols(HostTable colMenu) { Load("UserCols", std::move(colMenu)); }
    void UserRows(HostTable rowMenu) { Load("UserRows", std::move(rowMenu)); }
    void UserCell(HostTable cellMenu) { Load("UserCell", std::move(cellMenu)); }

    /// `number` from 1; throws SubscriptOutOfRange beyond MaxSlots.
    [[nodiscard]] const Slot& At(int number) const;
    /// How many slots the last load filled. Those behind keep number and caption of earlier loads, disabled.
    [[nodiscard]] int Loaded() const noexcept { return loaded_; }

private:
    /// Holds the table: reading it may lead the host to set another one.
    void Load(std::string_view method, HostTable table);
    [[nodiscard]] static std::size_t IndexOf(int number);

    std::array<Slot, MaxSlots> slots_;
    int loaded_ = 0;
    int used_ = 0;  // the highest slot that was ever filled
};

}  // namespace planview
