// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <planview/AutomationObject.h>

#include "automation/TableError.h"

namespace planview {

/// The longest text that is taken from a host's field, in bytes of UTF-8.
inline constexpr std::size_t MaxFieldBytes = 65535;

/// Reads and writes a host's table. The one place where the control touches a table; nothing is cached.
///
/// The table is any object that answers `rowCount`, the default member (row, field) to get and put, and `Rows` with
/// `Add`. Rows are numbered from 1. Whoever reads more than one field holds a HostTable of its own, so that the object
/// lives on when the host takes it back meanwhile. Every method throws AutomationError: ObjectNotSet when there is no
/// table, Overflow when a row count or number does not fit 16 bits, TypeMismatch when a value is of the wrong kind, a
/// text is longer than MaxFieldBytes or no valid UTF-8, and what the table itself throws with its code and text; each
/// is a TableError, which knows the place.
class HostTable {
public:
    using Row = std::int16_t;

    HostTable() noexcept = default;
    /// `name` is one of the seventeen, for messages; a literal.
    explicit HostTable(ObjectRef object, std::string_view name = {});

    [[nodiscard]] bool IsSet() const noexcept { return access_ != nullptr; }
    [[nodiscard]] std::string_view Name() const noexcept { return name_; }
    /// The table itself, a null reference where there is none.
    [[nodiscard]] ObjectRef Object() const noexcept;

    [[nodiscard]] Row RowCount() const;

    [[nodiscard]] Variant Value(Row row, std::string_view field) const;
    [[nodiscard]] std::string Text(Row row, std::string_view field) const;
    /// True for the text "X" alone.
    [[nodiscard]] bool Flag(Row row, std::string_view field) const;
    [[nodiscard]] std::int16_t Int16(Row row, std::string_view field) const;
    /// The same with the number of a field that holds nothing.
    [[nodiscard]] std::int16_t Int16(Row row, std::string_view field, std::int16_t ofNothing) const;
    [[nodiscard]] double Double(Row row, std::string_view field) const;

    void Put(Row row, std::string_view field, const Variant& value) const;
    void PutFlag(Row row, std::string_view field, bool set) const { Put(row, field, set ? "X" : ""); }

    /// Runs what is made of a field; what it throws gets this place and keeps its code and text.
    template <class Body>
    auto At(Row row, std::string_view field, const Body& body) const {
        // The table may end the control, and this slot with it, while it answers.
        const auto place = [name = name_, row, field] {
            return TablePlace{std::string(name), std::string(field), row};
        };
        try {
            return body();
        } catch (const TableError&) {
            throw;
        } catch (const AutomationError& error) {
            throw TableError(error.Code(), error.what(), place());
        } catch (const std::exception& error) {
            const char* const text = error.what();
            throw TableError(AutomationErrorCode::Failed, text ? text : "unknown exception", place());
        } catch (...) {
            throw TableError(AutomationErrorCode::Failed, "unknown exception", place());
        }
    }

    /// The first row whose field holds this text, 0 when there is none.
    [[nodiscard]] Row FindRow(std::string_view field, std::string_view text) const;
    /// Appends a row through `Rows` and `Add` and returns its number.
    Row AddRow() const;
    /// The collection behind AddRow(), for whoever appends many rows at once.
    [[nodiscard]] ObjectRef Rows() const;
    Row AddRow(const ObjectRef& rows) const;

private:
    /// The table and what speeds its accesses up; shared by the copies of a HostTable, which stay on one thread.
    class Access;
    [[nodiscard]] Access& Table() const;

    std::shared_ptr<Access> access_;
    std::string_view name_;
};

}  // namespace planview
