// SPDX-License-Identifier: MIT
#include "calculation/FormulaTable.h"

#include <optional>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "trace/ErrorTrap.h"

namespace planview {

namespace {

constexpr char CellMark = '/';

struct Target {
    FormulaAxis axis = FormulaAxis::Lines;
    int place = 0;
    std::optional<int> only;
};

std::optional<Target> FindTarget(std::string_view text, const FormulaNames& names) {
    const std::size_t mark = text.find(CellMark);
    const std::string_view first = text.substr(0, mark);
    if (const std::optional<int> line = names.Find(FormulaAxis::Lines, first)) {
        if (mark == std::string_view::npos) {
            return Target{FormulaAxis::Lines, *line, std::nullopt};
        }
        const std::optional<int> period = names.Find(FormulaAxis::Periods, text.substr(mark + 1));
        return period ? std::optional(Target{FormulaAxis::Lines, *line, period}) : std::nullopt;
    }
    const std::optional<int> period =
        mark == std::string_view::npos ? names.Find(FormulaAxis::Periods, first) : std::nullopt;
    return period ? std::optional(Target{FormulaAxis::Periods, *period, std::nullopt}) : std::nullopt;
}

std::string NoTarget(std::string_view text) {
    return "There is no line or column \"" + std::string(text) + "\".";
}

std::string MessageOf(const FormulaError& error) {
    return error.what + (error.now.empty() ? "" : " " + error.now);
}

/// The number of an optional field.
int OrderIn(const HostTable& table, HostTable::Row row) {
    int order = 0;
    static_cast<void>(ErrorTextOf([&] {
        const Variant value = table.Value(row, "SOLVE_ORDER");
        const std::string* text = value.TextIf();
        order = value.IsEmpty() || (text && text->empty()) ? 0 : value.AsInt32();
    }));
    return order;
}

bool MayEnter(const HostTable& table, HostTable::Row row) {
    bool may = false;
    static_cast<void>(ErrorTextOf([&] { may = table.Flag(row, "ENTRY"); }));
    return may;
}

class Reader {
public:
    Reader(const HostTable& table, const FormulaNames& names, std::vector<FormulaProblem>& problems)
        : table_(table), names_(names), problems_(problems) {}

    [[nodiscard]] std::vector<FormulaRow> Rows() {
        for (int row = 1; row <= table_.RowCount(); ++row) {
            const std::optional<std::string> error = ErrorTextOf([&] { Add(row); });
            if (error) {
                problems_.push_back({row, target_, *error});
            }
        }
        return std::move(rows_);
    }

private:
    void Add(int row) {
        const auto index = static_cast<HostTable::Row>(row);
        target_.clear();
        target_ = table_.Text(index, "TARGET");
        const std::optional<Target> target = FindTarget(target_, names_);
        if (!target) {
            problems_.push_back({row, target_, NoTarget(target_)});
            return;
        }
        if (!taken_.emplace(target->axis, target->place, target->only.value_or(-1)).second) {
            problems_.push_back({row, target_, "A row before has a formula for it already."});
            return;
        }
        FormulaError error;
        std::optional<Formula> formula = ParseFormula(table_.Text(index, "FORMULA"), names_, target->axis, error);
        if (!formula) {
            problems_.push_back({row, target_, MessageOf(error)});
            return;
        }
        for (const std::string& gap : GapsOf(*formula, names_)) {
            problems_.push_back({row, target_, "\"" + gap + "\" is not there any more."});
        }
        BoundFormula bound = BindFormula(*formula, names_, target->place);
        if (!bound.fault.empty()) {
            problems_.push_back({row, target_, bound.fault});
        }
        PlanFormula plan{target->axis,     target->place,          target->only,
                         std::move(bound), OrderIn(table_, index), MayEnter(table_, index)};
        rows_.push_back({row, std::move(*formula), std::move(plan)});
    }

    const HostTable& table_;
    const FormulaNames& names_;
    std::vector<FormulaProblem>& problems_;
    std::vector<FormulaRow> rows_;
    std::set<std::tuple<FormulaAxis, int, int>> taken_;
    std::string target_;
};

}  // namespace

std::vector<FormulaRow> ReadFormulas(const HostTable& formulas, const FormulaNames& names,
                                     std::vector<FormulaProblem>& problems) {
    return Reader(formulas, names, problems).Rows();
}

FormulaReading ReadFormula(std::string_view target, std::string_view text, const FormulaNames& names) {
    FormulaReading reading{std::string(target), std::string(text), std::string(text), {}};
    const std::optional<Target> found = FindTarget(target, names);
    if (!found) {
        reading.error = NoTarget(target);
        return reading;
    }
    reading.target = names.Caption(found->axis, found->place) +
                     (found->only ? ", " + names.Caption(FormulaAxis::Periods, *found->only) : "");
    FormulaError error;
    if (const std::optional<Formula> formula = ParseFormula(text, names, found->axis, error)) {
        reading.shown = PrintFormula(*formula, names);
        reading.stored = StoredText(*formula, names);
    } else {
        reading.error = MessageOf(error);
    }
    return reading;
}

}  // namespace planview
