// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <planview/Export.h>
#include <planview/Variant.h>

#include "automation/HostTable.h"

namespace planview {

/// The fields of MACRO_TREE that one action of the user has changed. Rows stay where they are, so that a row and a
/// field name a place for as long as the table lives.
class MacroChanges {
public:
    /// Puts the value and remembers what was there before the first put.
    void Put(const HostTable& table, HostTable::Row row, std::string_view field, const Variant& value);
    /// To be called when the action has ended: reads what the table made of the values.
    void End(const HostTable& table);

    [[nodiscard]] bool IsEmpty() const noexcept { return places_.empty(); }
    /// Whether the table still holds what the action left (`done`), or what was there before it.
    [[nodiscard]] bool Fits(const HostTable& table, bool done) const;
    /// Puts what was there before, or once more what the action left.
    void Restore(const HostTable& table, bool done) const;

    std::string currentBefore;  ///< the key of the node that was current
    std::string currentAfter;

private:
    using Place = std::pair<HostTable::Row, std::string>;
    struct Values {
        Variant before;
        Variant after;
    };
    std::map<Place, Values> places_;
};

/// What was done to MACRO_TREE and can be taken back, independent of the history of values.
class MacroHistory {
public:
    void Add(MacroChanges changes);
    [[nodiscard]] bool CanUndo() const noexcept { return !done_.empty(); }
    [[nodiscard]] bool CanRedo() const noexcept { return !undone_.empty(); }
    /// Takes back the last action, or does the last one taken back again, and answers the key of the node that is then
    /// current. Throws Failed and forgets everything where somebody else has changed these rows since.
    std::string Undo(const HostTable& table);
    std::string Redo(const HostTable& table);

private:
    void ExpectFit(const MacroChanges& changes, const HostTable& table, bool done);

    std::vector<MacroChanges> done_;
    std::vector<MacroChanges> undone_;
};

}  // namespace planview
