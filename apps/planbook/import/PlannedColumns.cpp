// SPDX-License-Identifier: MIT
#include "import/PlannedColumns.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <utility>

#include "import/Periods.h"
#include "import/TextFile.h"

namespace planbook {

namespace {

constexpr int MonthsOfQuarter = 3;
constexpr int MonthsOfYear = 12;
constexpr int QuartersOfYear = MonthsOfYear / MonthsOfQuarter;

std::string ColumnKey(std::size_t number) {
    return "COL" + std::to_string(number);
}

/// Gathers the columns that a total adds up.
class Total {
public:
    explicit Total(int months) : months_(months) {}

    void Add(std::size_t column) {
        if (!ranges_.empty() && ranges_.back().second + 1 == column) {
            ranges_.back().second = column;
        } else {
            ranges_.emplace_back(column, column);
        }
    }
    /// Whether a period of the month `next` belongs to another total than one of `month`.
    [[nodiscard]] bool EndsBetween(int month, std::optional<int> next) const {
        return !next || month / months_ != *next / months_;
    }
    [[nodiscard]] std::string TakeFormula() {
        std::string formula;
        for (const auto& [first, last] : std::exchange(ranges_, {})) {
            formula += (formula.empty() ? "SUM({/" : "; {/") + ColumnKey(first) +
                       (first == last ? "" : ":" + ColumnKey(last)) + "}";
        }
        return formula + ")";
    }

private:
    int months_;
    std::vector<std::pair<std::size_t, std::size_t>> ranges_;
};

std::string QuarterCaption(int month) {
    constexpr int Century = 100;
    constexpr int TwoDigits = 10;
    const int year = month / MonthsOfYear % Century;
    return "Q" + std::to_string(month / MonthsOfQuarter % QuartersOfYear + 1) + (year < TwoDigits ? " 0" : " ") +
           std::to_string(year);
}

bool CountsPeriods(std::string_view function) {
    constexpr std::array<std::string_view, 4> Functions{"SHIFT", "LAST", "GROWTH", "CUMULATE"};
    return std::find(Functions.begin(), Functions.end(), function) != Functions.end();
}

/// The first function that counts periods; empty where there is none. What stands in quotation marks is a caption.
std::string FunctionIn(const std::string& formula) {
    std::string word;
    bool quoted = false;
    bool ended = true;  // the next letter begins another word
    for (const char c : formula) {
        quoted = quoted != (c == '"');
        if (!quoted && std::isalpha(static_cast<unsigned char>(c)) != 0) {
            word = (ended ? "" : word) + static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
            ended = false;
        } else if (c == '(' && CountsPeriods(word)) {
            return word;
        } else {
            ended = true;
            word = c == ' ' ? word : "";
        }
    }
    return {};
}

std::string FunctionIn(const MacroTextNode& node) {
    std::string found = node.type == "M_FUNCTION" && CountsPeriods(node.value) ? node.value : "";
    for (const MacroTextNode& child : node.children) {
        found = found.empty() ? FunctionIn(child) : found;
    }
    return found;
}

}  // namespace

std::vector<PlannedColumn> PlanColumns(const std::vector<std::string>& periods, const PeriodTotals& totals) {
    const PeriodAxis axis = DescribePeriods(periods);
    std::vector<PlannedColumn> columns;
    Total quarter(MonthsOfQuarter);
    Total year(MonthsOfYear);
    for (std::size_t i = 0; i < periods.size(); ++i) {
        columns.push_back({axis.captions[i], axis.years[i], i});
        if (axis.months.empty()) {
            continue;
        }
        quarter.Add(columns.size());
        year.Add(columns.size());
        const int month = axis.months[i];
        const std::optional<int> next = i + 1 < periods.size() ? std::optional(axis.months[i + 1]) : std::nullopt;
        if (totals.quarters && quarter.EndsBetween(month, next)) {
            columns.push_back({QuarterCaption(month), "", {}, quarter.TakeFormula()});
        }
        if (totals.years && year.EndsBetween(month, next)) {
            columns.push_back({std::to_string(month / MonthsOfYear), "", {}, year.TakeFormula()});
        }
    }
    return columns;
}

std::vector<FormulaText> TotalFormulas(const std::vector<PlannedColumn>& columns) {
    std::vector<FormulaText> formulas;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].formula.empty()) {
            formulas.push_back({columns[i].caption, columns[i].formula, 0, true, 0, ColumnKey(i + 1)});
        }
    }
    return formulas;
}

void CheckTotalsAgainst(const NamesFile& names, Faults& faults) {
    const auto check = [&](int line, const std::string& function) {
        if (!function.empty()) {
            faults.Add(line, 0,
                       function + " counts columns, and --totals puts totals between them; leave out one of both");
        }
    };
    for (const FormulaText& formula : names.formulas) {
        check(formula.line, FunctionIn(formula.formula));
    }
    for (const MacroText& macro : names.macros) {
        check(macro.line, FunctionIn(macro.target));
    }
}

}  // namespace planbook
