// SPDX-License-Identifier: MIT
#include <algorithm>
#include <iterator>
#include <utility>

#include <planview/MemoryTable.h>

#include "automation/CheckedInt.h"
#include "automation/MemberNames.h"
#include "automation/ShortText.h"
#include "automation/TableSlots.h"
#include "automation/Texts.h"

namespace planview {

namespace {

constexpr DispatchId RowCountMember = 1;
constexpr DispatchId RowsMember = 2;
constexpr DispatchId AddMember = 3;

}  // namespace

struct MemoryTable::State {
    std::vector<std::string> fields;

    explicit State(std::vector<std::string> names) : fields(std::move(names)), following_(fields.size()) {}

    [[nodiscard]] std::int32_t RowCount() const noexcept { return rowCount_; }

    void Reserve(std::int32_t rows) { values_.reserve(static_cast<std::size_t>(rows) * fields.size()); }

    void CheckRow(std::int32_t row) const {
        if (row < 1 || row > rowCount_) {
            ThrowNoRow(row);
        }
    }

    [[nodiscard]] Variant& At(std::int32_t row, std::string_view field) {
        CheckRow(row);
        return values_[FirstOf(row) + FieldIndex(field)];
    }

    /// As above with the name as it comes in a call; a text is not copied.
    [[nodiscard]] Variant& At(std::int32_t row, const Variant& field) {
        const std::string* name = field.TextIf();
        return name ? At(row, std::string_view(*name)) : At(row, std::string_view(field.AsText()));
    }

    std::int32_t AddRowWith(std::initializer_list<std::pair<std::string_view, Variant>> named) {
        std::vector<Variant> values(fields.size());
        for (const auto& [field, value] : named) {
            values[FieldIndex(field)] = value;
        }
        return AddRow(std::move(values));
    }

    std::int32_t AddRow(std::vector<Variant> values) {
        if (values.size() > fields.size()) {
            throw AutomationError(AutomationErrorCode::WrongArguments, "A row of " + std::to_string(fields.size()) +
                                                                           " fields cannot take " +
                                                                           std::to_string(values.size()) + " values");
        }
        const std::int32_t added = CheckedAdd(rowCount_, 1);
        values_.insert(values_.end(), std::make_move_iterator(values.begin()), std::make_move_iterator(values.end()));
        values_.resize(FirstOf(added) + fields.size());
        return rowCount_ = added;
    }

    void RemoveRow(std::int32_t row) {
        CheckRow(row);
        const auto first = values_.begin() + static_cast<std::ptrdiff_t>(FirstOf(row));
        values_.erase(first, first + static_cast<std::ptrdiff_t>(fields.size()));
        --rowCount_;
    }

    void Clear() noexcept {
        values_.clear();
        rowCount_ = 0;
    }

private:
    [[nodiscard]] std::size_t FirstOf(std::int32_t row) const noexcept {
        return static_cast<std::size_t>(row - 1) * following_.size();
    }

    [[nodiscard]] std::size_t FieldIndex(std::string_view name) {
        // Whoever walks a table asks for the same fields in the same order in each row.
        const bool asExpected = expected_ < following_.size() && SameShortText(fields[expected_], name);
        last_ = asExpected ? expected_ : FindField(name);
        expected_ = following_[last_];
        return last_;
    }

    // The rare cases stand apart, so that the common one stays short.
    [[gnu::noinline]] std::size_t FindField(std::string_view name) {
        const auto found = std::find(fields.begin(), fields.end(), name);
        if (found == fields.end()) {
            throw AutomationError(AutomationErrorCode::UnknownMember, "The table has no member '" + std::string(name) +
                                                                          "'; its fields are " + Joined(fields, ", "));
        }
        return following_[last_] = static_cast<std::size_t>(found - fields.begin());
    }
    [[noreturn, gnu::noinline]] static void ThrowNoRow(std::int32_t row) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange, "The table has no row " + std::to_string(row));
    }

    std::vector<Variant> values_;  // row by row
    std::int32_t rowCount_ = 0;
    std::size_t last_ = 0;                // the field asked for last
    std::size_t expected_ = 0;            // the one that will be asked for next, as it seems
    std::vector<std::size_t> following_;  // by field: the one that was asked for after it
};

namespace {

/// `Rows(i)`: one row, whose default member is a field by name.
template <class State>
class RowObject final : public AutomationObject {
public:
    RowObject(std::shared_ptr<State> state, std::int32_t row) : state_(std::move(state)), row_(row) {}

    DispatchId IdOf(std::string_view name) const override { ThrowUnknownMember("The row", name); }
    Variant Get(DispatchId member, Arguments arguments) override { return Field(member, arguments); }
    void Put(DispatchId member, Arguments arguments, const Variant& value) override {
        Field(member, arguments) = value;
    }
    Variant Call(DispatchId member, Arguments) override { ThrowUnknownMember("The row", member); }

private:
    Variant& Field(DispatchId member, Arguments arguments) {
        if (member != DefaultMember) {
            ThrowUnknownMember("The row", member);
        }
        ExpectArguments(arguments, 1, "the field of a row");
        return state_->At(row_, arguments[0]);
    }

    std::shared_ptr<State> state_;
    std::int32_t row_;
};

/// `Rows`: the collection that appends.
template <class State>
class RowsObject final : public AutomationObject {
public:
    explicit RowsObject(std::shared_ptr<State> state) : state_(std::move(state)) {}

    DispatchId IdOf(std::string_view name) const override {
        if (SameMemberName(name, "Add")) {
            return AddMember;
        }
        if (SameMemberName(name, "Count")) {
            return RowCountMember;
        }
        ThrowUnknownMember("The row collection", name);
    }
    Variant Get(DispatchId member, Arguments arguments) override {
        if (member == RowCountMember) {
            return state_->RowCount();
        }
        if (member != DefaultMember) {
            ThrowUnknownMember("The row collection", member);
        }
        ExpectArguments(arguments, 1, "Rows");
        const std::int32_t row = arguments[0].AsInt32();
        state_->CheckRow(row);
        return ObjectRef(std::make_shared<RowObject<State>>(state_, row));
    }
    void Put(DispatchId member, Arguments, const Variant&) override {
        ThrowUnknownMember("The row collection", member);
    }
    Variant Call(DispatchId member, Arguments arguments) override {
        if (member != AddMember) {
            ThrowUnknownMember("The row collection", member);
        }
        ExpectArguments(arguments, 0, "Add");
        return ObjectRef(std::make_shared<RowObject<State>>(state_, state_->AddRow({})));
    }

private:
    std::shared_ptr<State> state_;
};

}  // namespace

MemoryTable::MemoryTable(std::vector<std::string> fields) : state_(std::make_shared<State>(std::move(fields))) {}

MemoryTable::~MemoryTable() = default;

std::shared_ptr<MemoryTable> MemoryTable::WithFieldsOf(std::string_view tableName) {
    const std::span<const std::string_view> fields = TableNamed(tableName).fields;
    return std::make_shared<MemoryTable>(std::vector<std::string>(fields.begin(), fields.end()));
}

std::int32_t MemoryTable::RowCount() const noexcept {
    return state_->RowCount();
}

const std::vector<std::string>& MemoryTable::Fields() const noexcept {
    return state_->fields;
}

std::int32_t MemoryTable::AddRow() {
    return state_->AddRow({});
}

std::int32_t MemoryTable::AddRow(std::vector<Variant> values) {
    return state_->AddRow(std::move(values));
}

std::int32_t MemoryTable::AddRowWith(std::initializer_list<std::pair<std::string_view, Variant>> fields) {
    return state_->AddRowWith(fields);
}

void MemoryTable::RemoveRow(std::int32_t row) {
    state_->RemoveRow(row);
}

void MemoryTable::Clear() noexcept {
    state_->Clear();
}

void MemoryTable::Reserve(std::int32_t rows) {
    state_->Reserve(rows);
}

const Variant& MemoryTable::Value(std::int32_t row, std::string_view field) const {
    return state_->At(row, field);
}

void MemoryTable::SetValue(std::int32_t row, std::string_view field, Variant value) {
    state_->At(row, field) = std::move(value);
}

DispatchId MemoryTable::IdOf(std::string_view name) const {
    if (SameMemberName(name, "rowCount")) {
        return RowCountMember;
    }
    if (SameMemberName(name, "Rows")) {
        return RowsMember;
    }
    ThrowUnknownMember("The table", name);
}

Variant MemoryTable::Get(DispatchId member, Arguments arguments) {
    switch (member) {
        case DefaultMember:
            ExpectArguments(arguments, 2, "the field of a table");
            return state_->At(arguments[0].AsInt32(), arguments[1]);
        case RowCountMember:
            return RowCount();
        case RowsMember: {
            const auto rows = std::make_shared<RowsObject<State>>(state_);
            return arguments.empty() ? Variant(ObjectRef(rows)) : rows->Get(DefaultMember, arguments);
        }
        default:
            ThrowUnknownMember("The table", member);
    }
}

void MemoryTable::Put(DispatchId member, Arguments arguments, const Variant& value) {
    if (member != DefaultMember) {
        ThrowUnknownMember("The table", member);
    }
    ExpectArguments(arguments, 2, "the field of a table");
    state_->At(arguments[0].AsInt32(), arguments[1]) = value;
}

Variant MemoryTable::Call(DispatchId member, Arguments arguments) {
    return Get(member, arguments);
}

}  // namespace planview
