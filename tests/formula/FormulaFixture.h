// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "automation/Numbers.h"
#include "formula/Formula.h"

namespace planview::test {

/// A small table: lines with a level and periods, each with a key of its own, and the values of its cells.
class FormulaTable final : public FormulaNames, public FormulaSource {
public:
    struct Track {
        std::string key;
        std::string caption;
        int level = 0;
        bool text = false;
    };

    std::vector<Track> lines;
    std::vector<Track> periods;
    std::map<std::string, std::vector<FormulaValue>> values;  ///< by key of the line, then by key number of the period

    [[nodiscard]] const std::vector<Track>& Along(FormulaAxis axis) const {
        return axis == FormulaAxis::Lines ? lines : periods;
    }
    [[nodiscard]] int Count(FormulaAxis axis) const override { return static_cast<int>(Along(axis).size()); }
    [[nodiscard]] std::string Key(FormulaAxis axis, int place) const override {
        return Along(axis).at(static_cast<std::size_t>(place)).key;
    }
    [[nodiscard]] std::string Caption(FormulaAxis axis, int place) const override {
        return Along(axis).at(static_cast<std::size_t>(place)).caption;
    }
    [[nodiscard]] std::optional<int> Find(FormulaAxis axis, std::string_view key) const override {
        for (std::size_t i = 0; i < Along(axis).size(); ++i) {
            if (Along(axis)[i].key == key) {
                return static_cast<int>(i);
            }
        }
        return std::nullopt;
    }
    [[nodiscard]] bool IsTextLine(int line) const override { return lines.at(static_cast<std::size_t>(line)).text; }
    [[nodiscard]] int Level(int line) const override { return lines.at(static_cast<std::size_t>(line)).level; }

    /// The line, or the period while a column is computed, as the formula sees it.
    [[nodiscard]] FormulaSpan TableLine(int line) override {
        FormulaValues& made = made_[line];
        made = {};
        const bool ofLine = computed == FormulaAxis::Lines;
        for (std::size_t i = 0; i < (ofLine ? periods : lines).size(); ++i) {
            const std::size_t period = ofLine ? i : static_cast<std::size_t>(line);
            const std::string& key = ofLine ? lines.at(static_cast<std::size_t>(line)).key : lines[i].key;
            const FormulaValue value = values[key].size() > period ? values[key][period] : FormulaValue{};
            made.numbers.push_back(value.number);
            made.kinds.push_back(value.kind);
        }
        return made.Span();
    }

    FormulaAxis computed = FormulaAxis::Lines;

private:
    std::map<int, FormulaValues> made_;
};

inline std::vector<FormulaValue> Cells(const std::vector<double>& numbers) {
    std::vector<FormulaValue> cells;
    for (const double number : numbers) {
        cells.push_back({number, FormulaKind::Number});
    }
    return cells;
}

/// Lines "Total" with "Retail", "Cost-Income" (with "Detail" below it) and "Trade"; a text line; "Staff"; "And so on".
/// Periods Jan to Apr.
class FormulaTest : public testing::Test {
protected:
    FormulaTest() {
        table.lines = {{"T", "Total", 0},      {"R", "  Retail", 1},        {"C", "  Cost-Income", 1},
                       {"D", "    Detail", 2}, {"X", "  Heading", 1, true}, {"W", "  Trade", 1},
                       {"S", "Staff", 0},      {"A", "And so on", 0}};
        table.periods = {{"P1", "Jan"}, {"P2", "Feb"}, {"P3", "Mar"}, {"P4", "Apr"}};
        table.values["R"] = Cells({10, 20, 30, 40});
        table.values["C"] = Cells({1, 2, 3, 4});
        table.values["D"] = Cells({100, 100, 100, 100});
        table.values["W"] = {{5, FormulaKind::Number}, {}, {7, FormulaKind::Number}, {}};
        table.values["S"] = Cells({0, 2, 0, 4});
        table.values["X"] = {{0, FormulaKind::Text}, {}, {}, {}};
    }

    [[nodiscard]] Formula Parse(std::string_view text, FormulaAxis axis = FormulaAxis::Lines) {
        FormulaError error;
        std::optional<Formula> formula = ParseFormula(text, table, axis, error);
        EXPECT_TRUE(formula) << text << ": " << error.what << " at " << error.position;
        return formula ? *formula : ParseFormula("0", table, axis, error).value();
    }
    /// The values of a line (of a column): "10 - #DivisionByZero".
    [[nodiscard]] std::string Values(const Formula& formula, int target = 0) {
        table.computed = formula.Axis();
        const BoundFormula bound = BindFormula(formula, table, target);
        std::vector<int> periods;
        for (int i = 0; i < bound.periods; ++i) {
            periods.push_back(i);
        }
        FormulaValues values;
        EvaluateFormula(bound, table, periods, values);
        std::string text;
        for (std::size_t i = 0; i < values.Size(); ++i) {
            text += (i == 0 ? "" : " ") + Text(values.At(i));
        }
        return text;
    }
    [[nodiscard]] std::string Values(std::string_view text, int target = 0) { return Values(Parse(text), target); }

    /// "12.5", "-" for an empty cell, "none", "#text", "#div", "#large", "#gap".
    static std::string Text(FormulaValue value) {
        constexpr const char* Kinds[] = {"", "-", "none", "#text", "#div", "#large", "#gap"};
        return value.IsNumber() ? NumberText(value.number) : Kinds[static_cast<std::size_t>(value.kind)];
    }

    FormulaTable table;
};

}  // namespace planview::test
