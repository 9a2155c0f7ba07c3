// SPDX-License-Identifier: MIT
#include "automation/HostTable.h"

#include <array>
#include <limits>
#include <utility>

#include "automation/CheckedInt.h"
#include "automation/Late.h"
#include "automation/ShortText.h"
#include "automation/Utf8.h"

namespace planview {

namespace {

std::string Place(HostTable::Row row, std::string_view field) {
    return "field " + std::string(field) + " of row " + std::to_string(row);
}

void CheckText(const std::string& text, HostTable::Row row, std::string_view field) {
    if (text.size() > MaxFieldBytes) {
        throw AutomationError(AutomationErrorCode::TypeMismatch,
                              "Text of " + std::to_string(text.size()) + " bytes is too long in " + Place(row, field));
    }
    if (!IsValidUtf8(text)) {
        throw AutomationError(AutomationErrorCode::TypeMismatch, "Text is no valid UTF-8 in " + Place(row, field));
    }
}

/// Makes the place part of a conversion error.
template <class Convert>
auto Converted(HostTable::Row row, std::string_view field, Convert convert) {
    try {
        return convert();
    } catch (const AutomationError& error) {
        throw AutomationError(error.Code(), error.what() + (" in " + Place(row, field)));
    }
}

using AccessArguments = std::array<Variant, 2>;

/// The arguments (row, field) of an access, kept for the next one to the same field: of all that reading a field takes,
/// making them anew would be the dearest part. As all of the control, for one thread.
struct KeptArguments {
    AccessArguments arguments;
    bool inUse = false;
};

std::array<KeptArguments, 64> keptArguments;

KeptArguments& KeptArgumentsOf(std::string_view field) noexcept {
    if (field.empty()) {
        return keptArguments[0];
    }
    // Tells nearly all fields of a table apart; those that it does not only take each other's place.
    const auto at = [field](std::size_t i) { return std::size_t{static_cast<unsigned char>(field[i])}; };
    const std::size_t size = field.size();
    return keptArguments[(size * 19 + at(0) * 9 + at(size / 2) * 21 + at(size - 1)) % keptArguments.size()];
}

/// Calls use(arguments). Where the table, while it answers, leads to another access to the same field, that one gets
/// arguments of its own.
template <class Use>
auto WithArguments(HostTable::Row row, std::string_view field, const Use& use) {
    KeptArguments& kept = KeptArgumentsOf(field);
    if (kept.inUse) {
        const AccessArguments own{Variant(row), Variant(field)};
        return use(own);
    }
    struct InUse {
        bool& flag;
        explicit InUse(bool& f) noexcept : flag(f) { flag = true; }
        ~InUse() { flag = false; }
        InUse(const InUse&) = delete;
        InUse& operator=(const InUse&) = delete;
    } const inUse(kept.inUse);
    const std::string* known = kept.arguments[1].TextIf();
    if (!known || !SameShortText(*known, field)) {
        kept.arguments[1] = Variant(field);
    }
    kept.arguments[0] = Variant(row);
    return use(kept.arguments);
}

}  // namespace

AutomationObject& HostTable::Table() const {
    if (!object_) {
        throw AutomationError(AutomationErrorCode::ObjectNotSet, "The table is not set");
    }
    return *object_;
}

HostTable::Row HostTable::RowCount() const {
    AutomationObject& table = Table();
    const Row count = table.Get(table.IdOf("rowCount"), {}).AsInt16();
    if (count < 0) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                              "The table says that it has " + std::to_string(count) + " rows");
    }
    return count;
}

Variant HostTable::Value(Row row, std::string_view field) const {
    return WithArguments(row, field,
                         [&](AutomationObject::Arguments arguments) { return Table().Get(DefaultMember, arguments); });
}

std::string HostTable::Text(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    const std::string* own = value.TextIf();
    std::string text = own ? *own : Converted(row, field, [&] { return value.AsText(); });
    CheckText(text, row, field);
    return text;
}

bool HostTable::Flag(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    const std::string* text = value.TextIf();
    return text && *text == "X";
}

std::int16_t HostTable::Int16(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    return Converted(row, field, [&] { return value.AsInt16(); });
}

double HostTable::Double(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    return Converted(row, field, [&] { return value.AsDouble(); });
}

void HostTable::Put(Row row, std::string_view field, const Variant& value) const {
    WithArguments(row, field,
                  [&](AutomationObject::Arguments arguments) { Table().Put(DefaultMember, arguments, value); });
}

HostTable::Row HostTable::FindRow(std::string_view field, std::string_view text) const {
    const Row count = RowCount();
    for (int row = 1; row <= count; ++row) {
        const Variant value = Value(static_cast<Row>(row), field);
        const std::string* own = value.TextIf();
        if (own ? *own == text : value.AsText() == text) {
            return static_cast<Row>(row);
        }
    }
    return 0;
}

HostTable::Row HostTable::AddRow() const {
    return AddRow(Rows());
}

ObjectRef HostTable::Rows() const {
    return Late(object_).Get("Rows").Value().AsObject();
}

HostTable::Row HostTable::AddRow(const ObjectRef& rows) const {
    if (RowCount() == std::numeric_limits<Row>::max()) {
        // A row beyond would make the table unreadable as a whole.
        throw AutomationError(AutomationErrorCode::Overflow, "Overflow: the table holds 32,767 rows, no more fit");
    }
    Late(rows).Call("Add");
    return RowCount();
}

}  // namespace planview
