// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "formula/Formula.h"

namespace {

using namespace planview;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Captions that are hard to tell from each other and from the language.
class Names final : public FormulaNames, public FormulaSource {
public:
    static constexpr std::array<std::string_view, 9> Lines{
        "Total", " A", " A and B", "  Cost-Income", " 2006", "MEMBERS", "say \"x\"", "Jan", "A"};
    static constexpr std::array<std::string_view, 4> Periods{"Jan", "Feb", "2006", "a:b"};

    [[nodiscard]] int Count(FormulaAxis axis) const override {
        return static_cast<int>(axis == FormulaAxis::Lines ? Lines.size() : Periods.size());
    }
    [[nodiscard]] std::string Key(FormulaAxis axis, int place) const override {
        return (axis == FormulaAxis::Lines ? "R" : "C") + std::to_string(place);
    }
    [[nodiscard]] std::string Caption(FormulaAxis axis, int place) const override {
        const auto at = static_cast<std::size_t>(place);
        return std::string(axis == FormulaAxis::Lines ? Lines[at] : Periods[at]);
    }
    [[nodiscard]] std::optional<int> Find(FormulaAxis axis, std::string_view key) const override {
        for (int place = 0; place < Count(axis); ++place) {
            if (Key(axis, place) == key) {
                return place;
            }
        }
        return std::nullopt;
    }
    [[nodiscard]] bool IsTextLine(int line) const override { return line == 5; }
    [[nodiscard]] int Level(int line) const override {
        return static_cast<int>(Lines[static_cast<std::size_t>(line)].find_first_not_of(' '));
    }
    [[nodiscard]] FormulaSpan TableLine(int line) override {
        static constexpr double Numbers[] = {0, 1, -2.5, 1e308, -1e-300, 3, 0, 7, 1e16, 0.1, -1, 2, 5, 0, 1, 4};
        static constexpr FormulaKind Number = FormulaKind::Number;
        static constexpr FormulaKind Kinds[] = {Number, FormulaKind::Empty,
                                                Number, Number,
                                                Number, FormulaKind::Text,
                                                Number, Number,
                                                Number, Number,
                                                Number, Number,
                                                Number, Number};
        return {Numbers + line % 5, line % 2 == 0 ? nullptr : Kinds + line % 4, Lines.size(), 1};
    }
};

}  // namespace

/// A text that is read as a formula is printed and stored as texts that are read as the same formula; it can be bound
/// and computed, and no number that comes out is infinite or none. What is refused is refused within the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t Longest = 2000;
    const std::string_view text(reinterpret_cast<const char*>(data), size < Longest ? size : Longest);
    Names names;
    for (const FormulaAxis axis : {FormulaAxis::Lines, FormulaAxis::Periods}) {
        FormulaError error;
        const std::optional<Formula> formula = ParseFormula(text, names, axis, error);
        if (!formula) {
            Require(!error.what.empty() && error.position + error.length <= text.size());
            continue;
        }
        const std::string stored = StoredText(*formula, names);
        for (const std::string& again : {stored, PrintFormula(*formula, names)}) {
            const std::optional<Formula> read = ParseFormula(again, names, axis, error);
            Require(read && StoredText(*read, names) == stored);
        }
        static_cast<void>(GapsOf(*formula, names));
        const BoundFormula bound = BindFormula(*formula, names, 0);
        static_cast<void>(ReadsOf(bound));
        const std::array<int, 3> periods{0, 2, 3};
        FormulaValues values;
        EvaluateFormula(bound, names, periods, values);
        Require(values.Size() == periods.size());
        for (std::size_t i = 0; i < values.Size(); ++i) {
            Require(std::isfinite(values.numbers[i]) && (values.IsNumber(i) || values.numbers[i] == 0));
        }
    }
    return 0;
}
