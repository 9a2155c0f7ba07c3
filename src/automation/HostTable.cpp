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

/// The arguments (row, field) of an access, kept for the next one to the same field of the table: making them anew
/// costs up to a tenth of a reading, and more for a long name.
struct KeptArguments {
    AccessArguments arguments;
    bool inUse = false;
};

}  // namespace

class HostTable::Access {
public:
    explicit Access(ObjectRef object) noexcept : object_(std::move(object)) {}

    /// Owned by the HostTables; where the last of them goes during an access, its end comes with that of the access.
    static std::shared_ptr<Access> To(ObjectRef object) { return {new Access(std::move(object)), &Access::End}; }

    [[nodiscard]] const ObjectRef& Object() const noexcept { return object_; }

    /// Calls use(object, arguments). Where the table, while it answers, leads to another access to the same field, that
    /// one gets arguments of its own.
    template <class Use>
    auto With(Row row, std::string_view field, const Use& use) {
        KeptArguments& kept = KeptFor(field);
        if (kept.inUse) {
            const AccessArguments own{Variant(row), Variant(field)};
            return use(*object_, own);
        }
        const InUse inUse(*this, kept);
        const std::string* known = kept.arguments[1].TextIf();
        if (!known || !SameShortText(*known, field)) {
            kept.arguments[1] = Variant(field);
        }
        kept.arguments[0] = Variant(row);
        return use(*object_, kept.arguments);
    }

private:
    class InUse {
    public:
        InUse(Access& access, KeptArguments& kept) noexcept : access_(access), kept_(kept) {
            ++access_.uses_;
            kept_.inUse = true;
        }
        ~InUse() {
            kept_.inUse = false;
            --access_.uses_;
            if (access_.abandoned_) {
                End(&access_);
            }
        }
        InUse(const InUse&) = delete;
        InUse& operator=(const InUse&) = delete;

    private:
        Access& access_;
        KeptArguments& kept_;
    };

    static void End(Access* access) noexcept {
        if (access->uses_ == 0) {
            delete access;
        } else {
            access->abandoned_ = true;
        }
    }

    KeptArguments& KeptFor(std::string_view field) noexcept {
        if (field.empty()) {
            return kept_[0];
        }
        // Tells nearly all fields of a table apart; those that it does not only take each other's place.
        const auto at = [field](std::size_t i) { return std::size_t{static_cast<unsigned char>(field[i])}; };
        const std::size_t size = field.size();
        return kept_[(size * 19 + at(0) * 9 + at(size / 2) * 21 + at(size - 1)) % kept_.size()];
    }

    ObjectRef object_;
    int uses_ = 0;
    bool abandoned_ = false;
    std::array<KeptArguments, 64> kept_;
};

HostTable::HostTable(ObjectRef object, std::string_view name)
    : access_(object ? Access::To(std::move(object)) : nullptr), name_(name) {}

ObjectRef HostTable::Object() const noexcept {
    return access_ ? access_->Object() : nullptr;
}

HostTable::Access& HostTable::Table() const {
    if (!access_) {
        throw TableError(AutomationErrorCode::ObjectNotSet, "The table is not set", {std::string(name_), {}, 0});
    }
    return *access_;
}

HostTable::Row HostTable::RowCount() const {
    const ObjectRef table = Table().Object();
    return At(0, {}, [&] {
        const Row count = table->Get(table->IdOf("rowCount"), {}).AsInt16();
        if (count < 0) {
            throw AutomationError(AutomationErrorCode::SubscriptOutOfRange,
                                  "The table says that it has " + std::to_string(count) + " rows");
        }
        return count;
    });
}

Variant HostTable::Value(Row row, std::string_view field) const {
    return At(row, field, [&] {
        return Table().With(row, field, [](AutomationObject& table, AutomationObject::Arguments arguments) {
            return table.Get(DefaultMember, arguments);
        });
    });
}

std::string HostTable::Text(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    const std::string* own = value.TextIf();
    return At(row, field, [&] {
        std::string text = own ? *own : Converted(row, field, [&] { return value.AsText(); });
        CheckText(text, row, field);
        return text;
    });
}

bool HostTable::Flag(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    const std::string* text = value.TextIf();
    return text && *text == "X";
}

std::int16_t HostTable::Int16(Row row, std::string_view field, std::int16_t ofNothing) const {
    const Variant value = Value(row, field);
    const std::string* own = value.TextIf();
    const bool nothing = value.IsEmpty() || (own && own->empty());
    return nothing ? ofNothing : At(row, field, [&] { return Converted(row, field, [&] { return value.AsInt16(); }); });
}

std::int16_t HostTable::Int16(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    return At(row, field, [&] { return Converted(row, field, [&] { return value.AsInt16(); }); });
}

double HostTable::Double(Row row, std::string_view field) const {
    const Variant value = Value(row, field);
    return At(row, field, [&] { return Converted(row, field, [&] { return value.AsDouble(); }); });
}

void HostTable::Put(Row row, std::string_view field, const Variant& value) const {
    At(row, field, [&] {
        Table().With(row, field, [&](AutomationObject& table, AutomationObject::Arguments arguments) {
            table.Put(DefaultMember, arguments, value);
        });
    });
}

HostTable::Row HostTable::FindRow(std::string_view field, std::string_view text) const {
    const Row count = RowCount();
    for (int row = 1; row <= count; ++row) {
        const Variant value = Value(static_cast<Row>(row), field);
        const std::string* own = value.TextIf();
        if (At(static_cast<Row>(row), field, [&] { return own ? *own == text : value.AsText() == text; })) {
            return static_cast<Row>(row);
        }
    }
    return 0;
}

HostTable::Row HostTable::AddRow() const {
    return AddRow(Rows());
}

ObjectRef HostTable::Rows() const {
    return At(0, {}, [&] { return Late(Object()).Get("Rows").Value().AsObject(); });
}

HostTable::Row HostTable::AddRow(const ObjectRef& rows) const {
    At(0, {}, [&] {
        if (RowCount() == std::numeric_limits<Row>::max()) {
            // A row beyond would make the table unreadable as a whole.
            throw AutomationError(AutomationErrorCode::Overflow, "Overflow: the table holds 32,767 rows, no more fit");
        }
        Late(rows).Call("Add");
    });
    return RowCount();
}

}  // namespace planview
