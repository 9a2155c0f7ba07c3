#include "automation/HostTable.h"

#include <array>
#include <utility>

#include "automation/CheckedInt.h"
#include "automation/Late.h"
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
    const std::array<Variant, 2> arguments{Variant(row), Variant(field)};
    return Table().Get(DefaultMember, arguments);
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

void HostTable::Put(Row row, std::string_view field, Variant value) const {
    const std::array<Variant, 2> arguments{Variant(row), Variant(field)};
    Table().Put(DefaultMember, arguments, value);
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
    Late(object_).Get("Rows").Call("Add");
    return RowCount();
}

}  // namespace planview
