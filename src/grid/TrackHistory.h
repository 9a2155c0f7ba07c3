// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/TableSlots.h"
#include "grid/HostUpdate.h"
#include "grid/IndexAxis.h"
#include "grid/UndoHistory.h"
#include "grid/UserActions.h"
#include "grid/modGrid.h"

namespace planview {

/// What the user does to columns and rows themselves, for undo and redo: hiding, sizes, looks, order. It stands in the
/// history in one line with the changes of values.
class TrackHistory {
public:
    struct Parts {
        const TableSlots& tables;
        modGrid& driver;
        UndoHistory& history;
        HostUpdate& hostUpdate;
        UserActions& actions;
        std::function<void()> chartStep;
    };

    explicit TrackHistory(Parts parts) : parts_(std::move(parts)) {}

    /// Remembers both index tables for as long as it lives; Keep() makes what has changed in them since a step of the
    /// history; none where a build meanwhile has lost columns or rows.
    class Watch {
    public:
        explicit Watch(TrackHistory& owner);
        /// `recorded` when the command is recorded next.
        void Keep(bool recorded);

    private:
        struct Track {
            std::string key;
            std::vector<Variant> values;
        };
        struct Fields {
            const IndexAxis* axis = nullptr;
            std::vector<std::string_view> names;
            std::vector<Track> tracks;
        };
        [[nodiscard]] static Fields Read(const HostTable& table, const IndexAxis& axis);
        static void Compare(const Fields& before, const HostTable& table, TrackStep& step);

        TrackHistory& owner_;
        std::uint64_t history_;
        Fields columns_;
        Fields rows_;
    };

    /// The user has moved planning columns or rows, which stood in this order before. Keeps the new one in the table,
    /// where it has a field for it, and tells the host.
    void Moved(const IndexAxis& axis, const std::vector<std::string>& before);

    /// Takes back or repeats a step in tables and grid, and tells the host.
    void Apply(const TrackStep& step, bool backwards);

private:
    void Record(TrackStep step, bool recorded);
    [[nodiscard]] const HostTable& TableOf(const IndexAxis& axis) const noexcept {
        return axis.columns ? parts_.tables.COLS_INDEX : parts_.tables.LINE_INDEX;
    }
    void ApplyField(const HostTable& table, HostTable::Row row, const TrackChange& change, const Variant& value);
    void ApplyOrder(const IndexAxis& axis, const TrackStep& step, bool backwards);

    Parts parts_;
};

}  // namespace planview
