// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "automation/CheckedInt.h"
#include "grid/Loaders.h"
#include "grid/modGrid.h"
#include "trace/ErrorTrap.h"

namespace planview {

/// The loaders never redraw; the grid is drawn once when all of them have run.
inline constexpr bool NoRedraw = false;

/// Counts what a loader has created in one area, so that the next one stands behind it. A refused one takes no place.
class AreaPlaces {
public:
    /// Calls create(position), which answers the status, with the 1-based position behind the last one created.
    template <class Create>
    void Append(const Create& create) {
        const std::int16_t position = CheckedAdd<std::int16_t>(created_, 1);
        if (create(position) == GridStatus::Ok) {
            created_ = position;
        }
    }

private:
    std::int16_t created_ = 0;
};

/// The frame of every loader: the opening entry, then the body under an error trap.
template <class Body>
void RunLoader(std::string_view name, std::string_view tableMarker, Body&& body) noexcept {
    modPlan::TraceWrite("GRIDCTL", "", "BEGIN", tableMarker);
    ErrorTrap("GRIDCTL", name, body);
}

/// Calls body(i) for each row of the table; `rowCount` is read once.
template <class Body>
void ForEachRow(const HostTable& table, Body&& body) {
    const int count = table.RowCount();
    for (int i = 1; i <= count; ++i) {
        body(static_cast<HostTable::Row>(i));
    }
}

}  // namespace planview
