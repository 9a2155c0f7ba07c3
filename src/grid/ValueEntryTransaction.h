// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "automation/ErrorText.h"
#include "grid/ValueEntry.h"

// For the files of ValueEntry only.
namespace planview {

/// What went wrong within an action.
struct ValueEntry::Failures {
    int notStored = 0;
    int withoutOldValue = 0;  ///< stored, but TAB_OLD failed
    CaughtError error;        ///< the first one

    void Add(int& count, const CaughtError& caught, int cells = 1) {
        if (error.text.empty()) {
            error = caught;
        }
        count += cells;
    }
};

/// What one user action needs of the tables, held for its length.
class ValueEntry::Transaction {
public:
    /// From this many cells on an index over TAB is built faster than the table is walked for each.
    static constexpr std::size_t IndexedFrom = 4;

    Transaction(const ValueEntryParts& parts, std::size_t cells, Announce how, bool isHeard)
        : announce(how),
          heard(isHeard),
          tab(parts.tables.TAB, LookupFor(cells, isHeard)),
          tabOld(parts.tables.TAB_OLD, LookupFor(cells, isHeard)),
          lookup(parts.tables),
          history(parts.history.Generation()) {
        step.reserve(cells);
    }

    Announce announce;
    bool heard;  ///< the host hears of values before the action ends
    CellTable tab;
    CellTable tabOld;
    KeyLookup lookup;
    UndoStep step;
    std::size_t followed = 0;  ///< as many changes of the step are in the computed cells
    bool changed = false;
    Failures failures;
    std::uint64_t history;  ///< the generation of the history that the step belongs to

private:
    static CellTable::Lookup LookupFor(std::size_t cells, bool heard) noexcept {
        using Lookup = CellTable::Lookup;
        return cells < IndexedFrom ? Lookup::Walk : heard ? Lookup::IndexedWatched : Lookup::Indexed;
    }
};

}  // namespace planview
