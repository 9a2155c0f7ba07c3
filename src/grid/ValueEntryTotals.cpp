// SPDX-License-Identifier: MIT
// What value entry does with computed cells.
#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "automation/Numbers.h"
#include "grid/ValueEntryTransaction.h"
#include "trace/ErrorTrap.h"

namespace planview {

void ValueEntry::SpreadTotal(Transaction& transaction, const NewValue& total, const EnteredCells& entered,
                             BulkResult& result) {
    const GridControl& grid = parts_.driver.Grid();
    const CellKey key = grid.KeyOf(total.cell);
    const Variant& value = total.value;
    const std::string* text = value.TextIf();
    std::optional<double> amount;
    if (text) {
        amount = TryParseNumber(*text);
    } else if (!value.IsEmpty()) {
        amount = value.AsDouble();
    }
    SpreadValues spread;
    if (const Refusal refusal = RefusalOf(grid, total.cell); refusal != Refusal::None) {
        spread.refusal = RefusalText(refusal);
    } else if (!amount) {
        spread.refusal = "A total takes a number, which is spread over its cells.";
    } else {
        spread = parts_.computation->Spread(total.cell, amount.value_or(0));
    }
    // A block that has both a total and what it is made of means the latter.
    const bool hasLeaf = std::any_of(spread.leaves.begin(), spread.leaves.end(), [&](const auto& leaf) {
        return entered.contains({leaf.first.column.value, leaf.first.row.value});
    });
    if (hasLeaf) {
        return;
    }
    if (!spread.refusal.empty()) {
        ++result.readOnly;
        if (!result.firstRefused) {
            result.firstRefused = key;
            result.reason = spread.refusal;
        }
        return;
    }
    for (const auto& [cell, leaf] : spread.leaves) {
        const CellKey leafKey = grid.KeyOf(cell);
        const bool changed = ChangeOne(transaction, leafKey, grid.Contents(cell), leaf);
        ++(changed ? result.changed : result.failed);
    }
    FollowChanges(transaction);
}

void ValueEntry::FollowChanges(Transaction& transaction) {
    if (!parts_.computation || transaction.followed == transaction.step.size()) {
        return;
    }
    std::vector<CellKey> changed;
    for (std::size_t i = transaction.followed; i < transaction.step.size(); ++i) {
        changed.push_back(transaction.step[i].cell);
    }
    transaction.followed = transaction.step.size();
    const std::vector<ComputedValue> values = parts_.computation->Follow(changed);
    if (values.size() >= Transaction::IndexedFrom) {
        transaction.tab.UseIndex(transaction.heard);
    }
    for (const ComputedValue& computed : values) {
        StoreComputed(transaction, computed);
    }
}

void ValueEntry::StoreComputed(Transaction& transaction, const ComputedValue& computed) {
    const std::optional<CaughtError> error = CaughtErrorOf([&] {
        const KeyPositions at = transaction.lookup.PositionsOf(computed.cell);
        if (transaction.announce == Announce::EachValue) {
            const std::array<Variant, 5> arguments{at.column, computed.cell.column, at.row, computed.cell.row,
                                                   computed.value};
            parts_.events.Raise(EventId::GridValueChanged, arguments);
        }
        StoreInTab(transaction.tab, at, computed.value);
        parts_.driver.Contents(computed.cell, computed.shown, true);
    });
    if (error) {
        transaction.failures.Add(transaction.failures.notStored, *error);
    }
}

}  // namespace planview
