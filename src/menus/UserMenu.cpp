// SPDX-License-Identifier: MIT
#include "menus/UserMenu.h"

#include <algorithm>
#include <utility>

#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

std::size_t UserMenu::IndexOf(int number) {
    if (number < 1 || number > MaxSlots) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "Menu entry " + std::to_string(number) + " of " + std::to_string(MaxSlots));
    }
    return static_cast<std::size_t>(number) - 1;
}

const UserMenu::Slot& UserMenu::At(int number) const {
    return slots_[IndexOf(number)];
}

void UserMenu::Load(std::string_view method, HostTable table) {
    ErrorTrap("POPUP", method, [this, method, table = std::move(table)] {
        modPlan::TraceWrite("POPUP", "", method, "{}");
        for (int i = 1; i <= used_; ++i) {
            Slot& slot = slots_[IndexOf(i)];
            slot.ENABLED.clear();
            slot.MARK.clear();
        }
        loaded_ = 0;
        if (!table.IsSet()) {
            return;
        }
        const int count = table.RowCount();
        for (int i = 1; i <= count; ++i) {
            Slot& slot = slots_[IndexOf(i)];
            const auto row = static_cast<HostTable::Row>(i);
            Slot filled{table.Int16(row, "PFID"), table.Text(row, "TEXT"), table.Flag(row, "ENABLED") ? "X" : "", {}};
            slot = std::move(filled);
            loaded_ = i;
            used_ = std::max(used_, i);
        }
    });
}

}  // namespace planview
