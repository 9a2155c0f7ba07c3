// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/CheckedInt.h"
#include "grid/Loaders.h"
#include "grid/modGrid.h"
#include "trace/ErrorTrap.h"
#include "trace/Failures.h"

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

/// What a loader reads: the table, and the fields that the grid's refusals are about.
struct LoaderSource {
    std::string_view name;  ///< of the loader
    const HostTable& table;
    std::string_view column;  ///< the field that names the column
    std::string_view row;     ///< the field that names the row
    std::string_view alignment{};
    std::string_view format{};
    bool optional = false;  ///< a host may do without the table
};

/// One run of a loader, which keeps the account of its table.
class LoaderRun {
public:
    LoaderRun(const LoaderContext& context, const LoaderSource& source);

    /// Calls body(i) for each row of the table; `rowCount` is read once.
    template <class Body>
    void ForEachRow(Body&& body) {
        Begin(source_.table.RowCount());
        for (row_ = 1; row_ <= report_.rows; ++row_) {
            const std::uint64_t refusals = driver_.Refusals();
            body(static_cast<HostTable::Row>(row_));
            EndRow(driver_.Refusals() != refusals);
        }
        row_ = 0;
    }
    /// The row that is being read is not taken over.
    void Refuse(std::string_view field, std::string reason);
    /// The run ends with this.
    void Fail(const CaughtError& error);
    /// Hands the account on. Of many refused rows those who hear of failures hear of the first one.
    void End() noexcept;

private:
    void Begin(int rows);
    void EndRow(bool refusedByGrid);
    void KeepFirst(std::string_view field, int row, std::string reason);
    [[nodiscard]] std::string_view FieldOf(const modGrid::Refusal& refusal) const noexcept;

    modGrid& driver_;
    const LoaderSource& source_;
    std::vector<TableReport>* reports_;
    TableReport report_;
    std::vector<bool> refused_;  // by row from 1 on; a loader may walk its table twice
    int row_ = 0;
    bool again_ = false;
    bool firstTold_ = false;
};

/// The frame of every loader: the opening entry, then the body under an error trap.
template <class Body>
void RunLoader(const LoaderContext& context, const LoaderSource& source, std::string_view tableMarker,
               Body&& body) noexcept {
    modPlan::TraceWrite("GRIDCTL", "", "BEGIN", tableMarker);
    LoaderRun run(context, source);
    if (const std::optional<CaughtError> error = CaughtErrorOf([&] { body(run); })) {
        TraceErrorEntry("GRIDCTL", source.name, error->text);
        ResumeNext([&] { run.Fail(*error); });
    }
    run.End();
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
