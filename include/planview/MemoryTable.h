// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <planview/AutomationObject.h>
#include <planview/Export.h>

namespace planview {

/// A ready-made host table that keeps its rows in memory.
///
/// Offers what the control asks of every table: `rowCount`, the default member (row, field) to get and to put, and
/// `Rows` with `Rows(i)` and `Add`. Rows are numbered from 1. A field that was not listed at construction is an
/// UnknownMember error, a row outside 1 .. RowCount() a SubscriptOutOfRange error. Field names are compared exactly.
/// Used on one thread; it may be changed at any time, also from inside an event.
class PLANVIEW_EXPORT MemoryTable final : public AutomationObject {
public:
    /// An empty table with these fields, in this order.
    explicit MemoryTable(std::vector<std::string> fields);
    /// An empty table with all the fields that the control knows of the host's table of this name ("COLS_INDEX", "TAB"
    /// ...). Throws UnknownMember for a name that is none of the seventeen.
    [[nodiscard]] static std::shared_ptr<MemoryTable> WithFieldsOf(std::string_view tableName);
    ~MemoryTable() override;
    MemoryTable(const MemoryTable&) = delete;
    MemoryTable& operator=(const MemoryTable&) = delete;

    /// What `rowCount` answers. The control counts rows with 16 bits: beyond 32,767 it cannot read the table.
    [[nodiscard]] std::int32_t RowCount() const noexcept;
    /// The names in the order of the constructor.
    [[nodiscard]] const std::vector<std::string>& Fields() const noexcept;

    /// Appends a row whose fields are all Empty and returns its number.
    std::int32_t AddRow();
    /// Appends a row with these values in the order of Fields(); missing ones at the end stay Empty.
    std::int32_t AddRow(std::vector<Variant> values);
    /// Appends a row with these fields; those not named stay Empty. Appends nothing where the table lacks a field.
    std::int32_t AddRowWith(std::initializer_list<std::pair<std::string_view, Variant>> fields);
    /// The rows behind it move up by one.
    void RemoveRow(std::int32_t row);
    /// Removes all rows; the fields stay.
    void Clear() noexcept;
    /// Makes room for this many rows in all, so that adding them does not move the others.
    void Reserve(std::int32_t rows);

    /// A field as it was put; valid until the table changes.
    [[nodiscard]] const Variant& Value(std::int32_t row, std::string_view field) const;
    /// Puts the value as it is, of whatever kind.
    void SetValue(std::int32_t row, std::string_view field, Variant value);

    /// @{
    /// The table as the control sees it.
    [[nodiscard]] DispatchId IdOf(std::string_view name) const override;
    [[nodiscard]] Variant Get(DispatchId member, Arguments arguments) override;
    void Put(DispatchId member, Arguments arguments, const Variant& value) override;
    Variant Call(DispatchId member, Arguments arguments) override;
    /// @}

private:
    struct State;  // shared with the row collections handed out, so that these may outlive the table
    std::shared_ptr<State> state_;
};

}  // namespace planview
