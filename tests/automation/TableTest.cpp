// SPDX-License-Identifier: MIT
#include <functional>
#include <map>
#include <utility>

#include <gtest/gtest.h>

#include <planview/MemoryTable.h>

#include "automation/HostTable.h"
#include "automation/Late.h"
#include "automation/ShortText.h"

namespace planview {

namespace {

/// Answers from the next row, which it reads as the control does: while it is being read itself.
class ChainedTable final : public AutomationObject {
public:
    const HostTable* readBy = nullptr;

    DispatchId IdOf(std::string_view) const override { return 1; }
    Variant Get(DispatchId, Arguments a) override {
        constexpr std::int16_t LastRow = 5;
        const std::int16_t row = a[0].AsInt16();
        if (row == LastRow) {
            return Variant("end");
        }
        const std::string next = readBy->Text(static_cast<std::int16_t>(row + 1), a[1].AsText());
        return Variant(std::to_string(a[0].AsInt16()) + a[1].AsText() + " " + next);
    }
    void Put(DispatchId, Arguments, const Variant&) override {}
    Variant Call(DispatchId, Arguments) override { return {}; }
};

/// A host's own table over its own data: column-wise, with other member numbers, sharing nothing with MemoryTable.
class ForeignTable final : public AutomationObject {
public:
    std::map<std::string, std::vector<Variant>> columns{{"NAME", {"first", "second"}}, {"SIZE", {"1.250,5", 7}}};
    Variant rowCount = std::int32_t{2};
    int throwAtRow = 0;

    DispatchId IdOf(std::string_view name) const override {
        if (name == "rowCount") {
            return 901;
        }
        if (name == "Rows") {
            return 902;
        }
        throw std::out_of_range("no such member");
    }
    Variant Get(DispatchId member, Arguments a) override {
        return member == 901   ? rowCount
               : member == 902 ? Variant(ObjectRef(std::make_shared<Collection>(*this)))
                               : At(a);
    }
    void Put(DispatchId, Arguments a, const Variant& value) override { At(a) = value; }
    Variant Call(DispatchId, Arguments) override { throw std::logic_error("not a method"); }

private:
    struct Collection final : AutomationObject {
        explicit Collection(ForeignTable& t) : table(t) {}
        ForeignTable& table;
        DispatchId IdOf(std::string_view) const override { return 1; }
        Variant Get(DispatchId, Arguments) override { return {}; }
        void Put(DispatchId, Arguments, const Variant&) override {}
        Variant Call(DispatchId, Arguments) override {
            for (auto& [name, values] : table.columns) {
                values.emplace_back();
            }
            table.rowCount = std::int32_t{3};
            return {};
        }
    };

    Variant& At(Arguments a) {
        const int row = a[0].AsInt16();
        if (row == throwAtRow) {
            throw 42;  // not even an exception class
        }
        return columns.at(a[1].AsText()).at(static_cast<std::size_t>(row) - 1);
    }
};

AutomationErrorCode CodeOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const AutomationError& error) {
        return error.Code();
    }
    ADD_FAILURE() << "no error";
    return AutomationErrorCode::Failed;
}

}  // namespace

TEST(HostTable, ReadsAndWritesATableOfTheHostsOwn) {
    const auto foreign = std::make_shared<ForeignTable>();
    const HostTable table(foreign);
    EXPECT_EQ(table.RowCount(), 2);
    EXPECT_EQ(table.Text(2, "NAME"), "second");
    EXPECT_EQ(table.Double(1, "SIZE"), 1250.5);
    EXPECT_EQ(table.FindRow("NAME", "second"), 2);
    EXPECT_EQ(table.FindRow("SIZE", "7"), 2) << "numbers are compared by their text";
    EXPECT_EQ(table.FindRow("NAME", "third"), 0);
    table.Put(1, "NAME", "changed");
    EXPECT_EQ(foreign->columns["NAME"][0], Variant("changed"));
    EXPECT_EQ(table.AddRow(), 3);
    EXPECT_EQ(table.Text(3, "NAME"), "");
}

TEST(HostTable, HostileTablesGiveErrors) {
    const auto foreign = std::make_shared<ForeignTable>();
    const HostTable table(foreign);
    foreign->rowCount = std::int32_t{32768};
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.RowCount()); }), AutomationErrorCode::Overflow);
    foreign->rowCount = std::int32_t{-1};
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.RowCount()); }), AutomationErrorCode::SubscriptOutOfRange);
    foreign->rowCount = "many";
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.RowCount()); }), AutomationErrorCode::TypeMismatch);

    foreign->columns["NAME"][0] = "caf\xE9";
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.Text(1, "NAME")); }), AutomationErrorCode::TypeMismatch);
    foreign->columns["NAME"][0] = std::string(1 << 20, 'x');
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.Text(1, "NAME")); }), AutomationErrorCode::TypeMismatch);
    foreign->columns["NAME"][0] = ObjectRef(foreign);
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.Text(1, "NAME")); }), AutomationErrorCode::TypeMismatch);
    EXPECT_FALSE(table.Flag(1, "NAME"));
    foreign->columns["NAME"].clear();  // breaks the cycle
    EXPECT_ANY_THROW(static_cast<void>(table.Text(1, "MISSING")));
    EXPECT_EQ(CodeOf([] { static_cast<void>(HostTable().RowCount()); }), AutomationErrorCode::ObjectNotSet);
}

TEST(HostTable, ATableMayBeReadWhileItAnswers) {
    const auto chained = std::make_shared<ChainedTable>();
    const HostTable table{ObjectRef(chained)};
    chained->readBy = &table;
    EXPECT_EQ(table.Text(1, "V"), "1V 2V 3V 4V end");
    EXPECT_EQ(table.Text(3, "AN_UNUSUALLY_LONG_NAME"), "3AN_UNUSUALLY_LONG_NAME 4AN_UNUSUALLY_LONG_NAME end");
    EXPECT_EQ(table.Text(4, ""), "4 end");
}

/// The host takes its table back from inside an access: the object ends when that access has, and not before.
TEST(HostTable, ATableThatIsTakenBackWhileItAnswersLivesToItsAnswer) {
    struct Leaving final : AutomationObject {
        explicit Leaving(bool& flag) : ended(flag) {}
        ~Leaving() override { ended = true; }
        DispatchId IdOf(std::string_view) const override { return 1; }
        Variant Get(DispatchId, Arguments arguments) override {
            const std::string field = arguments[1].AsText();
            *slot = HostTable();
            return ended ? "gone" : field == arguments[1].AsText() ? "there" : "mixed up";
        }
        void Put(DispatchId, Arguments, const Variant&) override {}
        Variant Call(DispatchId, Arguments) override { return {}; }
        bool& ended;
        HostTable* slot = nullptr;
    };
    bool ended = false;
    auto object = std::make_shared<Leaving>(ended);
    HostTable slot{ObjectRef(object)};
    std::exchange(object, nullptr)->slot = &slot;
    EXPECT_EQ(slot.Text(1, "FIELD"), "there");
    EXPECT_TRUE(ended);
}

TEST(HostTable, ConversionErrorsNameTheirPlace) {
    const auto memory = std::make_shared<MemoryTable>(std::vector<std::string>{"WIDTH"});
    memory->AddRow({Variant("wide")});
    try {
        static_cast<void>(HostTable(memory).Int16(1, "WIDTH"));
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_STREQ(error.what(), "Type mismatch: 'wide' is no number in field WIDTH of row 1");
    }
}

TEST(HostTable, OnlyACapitalXSetsAFlag) {
    const auto memory = std::make_shared<MemoryTable>(std::vector<std::string>{"F"});
    const HostTable table(memory);
    for (const Variant& unset : {Variant(), Variant(""), Variant("x"), Variant("1"), Variant("TRUE"), Variant(true),
                                 Variant(1), Variant("X ")}) {
        memory->Clear();
        memory->AddRow({unset});
        EXPECT_FALSE(table.Flag(1, "F"));
    }
    table.PutFlag(1, "F", true);
    EXPECT_TRUE(table.Flag(1, "F"));
    table.PutFlag(1, "F", false);
    EXPECT_EQ(memory->Value(1, "F"), Variant(""));
}

TEST(MemoryTable, RowsAppendsAndOutlivesTheTable) {
    auto memory = std::make_shared<MemoryTable>(std::vector<std::string>{"A", "B"});
    const Late table{ObjectRef(memory)};
    const Late added = table.Get("Rows").Call("Add");
    added.Put("", "B", 5);
    EXPECT_EQ(memory->Value(1, "B"), Variant(5));
    EXPECT_EQ(table.Get("rows", 1).Get("", "B").Value(), Variant(5)) << "member names have no case";
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.Get("Rows", 2)); }), AutomationErrorCode::SubscriptOutOfRange);
    EXPECT_EQ(CodeOf([&] { memory->SetValue(0, "A", 1); }), AutomationErrorCode::SubscriptOutOfRange);
    EXPECT_EQ(CodeOf([&] { memory->SetValue(1, "a", 1); }), AutomationErrorCode::UnknownMember);
    EXPECT_EQ(CodeOf([&] { static_cast<void>(table.Get("Columns")); }), AutomationErrorCode::UnknownMember);
    EXPECT_EQ(CodeOf([&] { memory->AddRow({1, 2, 3}); }), AutomationErrorCode::WrongArguments);
}

TEST(MemoryTable, ARowWithAnUnknownFieldIsNotAppended) {
    MemoryTable table({"A", "B"});
    table.AddRowWith({{"B", 1}});
    try {
        table.AddRowWith({{"A", 2}, {"C", 3}});
        FAIL();
    } catch (const AutomationError& error) {
        EXPECT_STREQ(error.what(), "The table has no member 'C'; its fields are A, B");
    }
    EXPECT_EQ(table.RowCount(), 1);
    EXPECT_EQ(table.AddRowWith({{"A", 2}}), 2);
}

TEST(MemoryTable, FieldsAreFoundInWhateverOrderTheyAreAsked) {
    MemoryTable table({"A", "B", "C"});
    for (int row = 1; row <= 4; ++row) {
        table.AddRow({row * 10 + 1, row * 10 + 2});
    }
    for (const char* order : {"ABC", "CBA", "AAB", "BCA", "CCC", "ACB"}) {
        for (const char* field = order; *field; ++field) {
            const Variant expected = *field == 'C' ? Variant() : Variant(30 + *field - 'A' + 1);
            EXPECT_EQ(table.Value(3, std::string_view(field, 1)), expected) << order << ": " << *field;
        }
    }
    table.RemoveRow(2);
    EXPECT_EQ(table.RowCount(), 3);
    EXPECT_EQ(table.Value(2, "B"), Variant(32));
    EXPECT_EQ(table.Value(3, "A"), Variant(41));
    table.Clear();
    EXPECT_EQ(table.AddRow(), 1);
    EXPECT_EQ(table.Value(1, "A"), Variant());

    MemoryTable without({});
    EXPECT_EQ(without.AddRow(), 1);
    EXPECT_EQ(without.AddRow(), 2);
    without.RemoveRow(1);
    EXPECT_EQ(without.RowCount(), 1);
    EXPECT_EQ(CodeOf([&] { static_cast<void>(without.Value(1, "A")); }), AutomationErrorCode::UnknownMember);
}

TEST(ShortText, EveryCharacterCounts) {
    for (std::size_t size = 0; size <= 20; ++size) {
        const std::string text(size, 'a');
        EXPECT_TRUE(SameShortText(text, std::string(size, 'a'))) << size;
        EXPECT_FALSE(SameShortText(text, std::string(size + 1, 'a'))) << size;
        for (std::size_t i = 0; i < size; ++i) {
            std::string other = text;
            other[i] = 'b';
            EXPECT_FALSE(SameShortText(text, other)) << size << " at " << i;
        }
    }
}

TEST(Late, StepsOverNothingAndValuesAreErrors) {
    EXPECT_EQ(CodeOf([] { static_cast<void>(Late(ObjectRef()).Get("Chart")); }), AutomationErrorCode::ObjectNotSet);
    EXPECT_EQ(CodeOf([] { static_cast<void>(Late(Variant(5)).Get("Chart")); }), AutomationErrorCode::TypeMismatch);
}

}  // namespace planview
