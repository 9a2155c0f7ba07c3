// SPDX-License-Identifier: MIT
// A hundred totals of ten lines each over 1,000 × 1,000 leaves, beside a plain loop over the same matrix.

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "formula/Formula.h"

namespace planview::bench {

namespace {

constexpr int Leaves = 1000;
constexpr int Periods = 1000;
constexpr int Totals = 100;
constexpr int Below = Leaves / Totals;

/// Each total stands above its leaves. A line's number is its place.
class Outline final : public FormulaNames {
public:
    [[nodiscard]] int Count(FormulaAxis axis) const override {
        return axis == FormulaAxis::Lines ? Totals + Leaves : Periods;
    }
    [[nodiscard]] std::string Key(FormulaAxis axis, int place) const override {
        return (axis == FormulaAxis::Lines ? "ROW" : "COL") + std::to_string(place);
    }
    [[nodiscard]] std::string Caption(FormulaAxis axis, int place) const override { return Key(axis, place); }
    [[nodiscard]] std::optional<int> Find(FormulaAxis axis, std::string_view key) const override {
        const int place = std::stoi(std::string(key.substr(3)));
        return place < Count(axis) ? std::optional(place) : std::nullopt;
    }
    [[nodiscard]] bool IsTextLine(int /*line*/) const override { return false; }
    [[nodiscard]] int Level(int line) const override { return line % (Below + 1) == 0 ? 0 : 1; }
};

/// All lines, one after the other; `kinds` as a table with empty cells has them.
class Matrix final : public FormulaSource {
public:
    explicit Matrix(bool withKinds) : numbers(Size), kinds(withKinds ? Size : 0, FormulaKind::Number) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            numbers[i] = static_cast<double>(i % 1009) / 100;
        }
    }
    [[nodiscard]] FormulaSpan TableLine(int line) override {
        const std::size_t from = static_cast<std::size_t>(line) * Periods;
        return {numbers.data() + from, kinds.empty() ? nullptr : kinds.data() + from, Periods, 1};
    }

    static constexpr std::size_t Size = static_cast<std::size_t>(Totals + Leaves) * Periods;
    std::vector<double> numbers;
    std::vector<FormulaKind> kinds;
};

void Recompute(benchmark::State& state, bool withKinds) {
    const Outline outline;
    Matrix matrix(withKinds);
    FormulaError error;
    const std::optional<Formula> sum = ParseFormula("SUM(MEMBERS)", outline, FormulaAxis::Lines, error);
    std::vector<BoundFormula> formulas;
    for (int i = 0; i < Totals; ++i) {
        formulas.push_back(BindFormula(*sum, outline, i * (Below + 1)));
    }
    std::vector<int> periods(Periods);
    std::iota(periods.begin(), periods.end(), 0);
    FormulaValues values;
    for ([[maybe_unused]] auto _ : state) {
        for (const BoundFormula& formula : formulas) {
            EvaluateFormula(formula, matrix, periods, values);
            std::copy(values.numbers.begin(), values.numbers.end(),
                      matrix.numbers.begin() + static_cast<std::ptrdiff_t>(formula.target) * Periods);
        }
        benchmark::ClobberMemory();
    }
}

void RecomputeNumbers(benchmark::State& state) {
    Recompute(state, false);
}
BENCHMARK(RecomputeNumbers)->Name("RecomputeTotals");

void RecomputeCells(benchmark::State& state) {
    Recompute(state, true);
}
BENCHMARK(RecomputeCells)->Name("RecomputeTotals/cells");

void PlainTotals(benchmark::State& state) {
    Matrix matrix(false);
    for ([[maybe_unused]] auto _ : state) {
        for (int total = 0; total < Totals; ++total) {
            double* const sums = matrix.numbers.data() + static_cast<std::size_t>(total) * (Below + 1) * Periods;
            std::fill(sums, sums + Periods, 0.0);
            for (int line = 1; line <= Below; ++line) {
                const double* const leaves = sums + static_cast<std::ptrdiff_t>(line) * Periods;
                for (int period = 0; period < Periods; ++period) {
                    sums[period] += leaves[period];
                }
            }
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(PlainTotals);

}  // namespace

}  // namespace planview::bench
