// SPDX-License-Identifier: MIT
#include "import/FormulaRows.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include <planview/PlanView.h>

#include "book/BookFormulas.h"
#include "book/BookSnapshot.h"
#include "book/CellValue.h"
#include "book/LineCaption.h"
#include "import/TextFile.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

constexpr std::size_t MostShown = 10;

std::string LineKey(std::int32_t number) {
    return "ROW" + std::to_string(number);
}

/// What the names file means by the target of a formula.
class Targets {
public:
    Targets(const Book& book, const SourceTable& source, const std::vector<PlannedColumn>& columns)
        : book_(book), source_(source), columns_(columns) {}

    /// Empty with a fault where there is none, or more than one.
    std::string KeyOf(const FormulaText& formula, Faults& faults) const {
        if (!formula.key.empty()) {
            return formula.key;
        }
        const std::vector<std::string> found = Find(formula.target);
        if (found.size() == 1) {
            return found.front();
        }
        faults.Add(formula.line, 0,
                   found.empty() ? "there is no line or period " + Shown(formula.target) + " to be computed"
                                 : "several lines or periods are called " + Shown(formula.target) +
                                       "; give them different labels in [lines]");
        return {};
    }

private:
    [[nodiscard]] std::vector<std::string> Find(std::string_view text) const {
        std::vector<std::string> found = Lines(text);
        const std::vector<std::string> periods = Periods(text);
        found.insert(found.end(), periods.begin(), periods.end());
        // Labels may have commas in them.
        for (std::size_t comma = text.find(','); found.empty() && comma != std::string_view::npos;
             comma = text.find(',', comma + 1)) {
            for (const std::string& line : Lines(Trimmed(text.substr(0, comma)))) {
                for (const std::string& period : Periods(Trimmed(text.substr(comma + 1)))) {
                    found.push_back(line + "/" + period);
                }
            }
        }
        return found;
    }
    [[nodiscard]] std::vector<std::string> Lines(std::string_view text) const {
        const MemoryTable& lines = book_[BookTable::LineIndex];
        std::vector<std::string> found;
        for (std::int32_t row = 1; row <= lines.RowCount(); ++row) {
            if (LineCaption(lines, row) == text) {
                found.push_back(LineKey(row));
            }
        }
        return found;
    }
    /// By the caption, or as the table of numbers has it.
    [[nodiscard]] std::vector<std::string> Periods(std::string_view text) const {
        std::vector<std::string> found;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const PlannedColumn& column = columns_[i];
            if (column.caption == text || (column.period && source_.periods[*column.period] == text)) {
                found.push_back("COL" + std::to_string(i + 1));
            }
        }
        return found;
    }

    const Book& book_;
    const SourceTable& source_;
    const std::vector<PlannedColumn>& columns_;
};

Book CopyOf(const Book& book) {
    Book copy;
    BookSnapshot(book).PutInto(copy);
    return copy;
}

/// A line that is computed takes entries where its formula does, whatever kind it was said to be.
void SetEntry(const Book& book, const std::string& target, bool entry) {
    MemoryTable& lines = book[BookTable::LineIndex];
    for (std::int32_t row = 1; row <= lines.RowCount(); ++row) {
        if (LineKey(row) == target) {
            lines.SetValue(row, "READONLY", entry ? "" : "X");
        }
    }
}

/// The looks of single negative numbers tell the number that was imported. The lines of computed cells have a number
/// format instead.
void ReplaceNegativeLooks(const Book& book, const std::function<bool(CellPosition)>& isComputed) {
    MemoryTable& looks = book[BookTable::CellAttr];
    std::set<std::int32_t> lines;
    for (std::int32_t row = looks.RowCount(); row >= 1; --row) {
        const CellPosition cell{looks.Value(row, "LINE").AsInt32(), looks.Value(row, "COLUMN").AsInt32()};
        if (isComputed(cell)) {
            looks.RemoveRow(row);
            lines.insert(cell.row);
        }
    }
    for (const std::int32_t line : lines) {
        const std::string format = book[BookTable::LineIndex].Value(line, "ROW_FORMAT").AsText();
        book[BookTable::LineIndex].SetValue(line, "ROW_FORMAT", format + ";[Red]-" + format);
    }
}

void TakeCells(const Book& book, const Book& from) {
    MemoryTable& tab = book[BookTable::Tab];
    tab.Clear();
    for (BookRow& row : RowsOf(from[BookTable::Tab], Describe(BookTable::Tab))) {
        tab.AddRow(std::move(row));
    }
}

/// In the names file; 0 where it has none of the captions.
int LineOfFirst(const std::vector<FormulaText>& formulas, const std::string& captions) {
    const auto found = std::find_if(formulas.begin(), formulas.end(), [&](const FormulaText& formula) {
        return captions.find('"' + formula.target + '"') != std::string::npos;
    });
    return found == formulas.end() ? 0 : found->line;
}

void AddContradiction(Contradictions& found, const Book& book, const CellEdit& edit) {
    const std::optional<double> imported = NumberOf(edit.before);
    if (!imported) {
        return;
    }
    ++found.count;
    const std::optional<double> computed = NumberOf(edit.after);
    found.largest = std::max(found.largest, computed ? std::abs(*imported - *computed) : 0.0);
    if (found.first.size() < MostShown) {
        found.first.push_back(CellName(book, edit.cell) + ": " + edit.before.AsText() + " in the table, " +
                              (computed ? edit.after.AsText() : "no value") + " by its formula");
    }
}

}  // namespace

Contradictions AddFormulaRows(const Book& book, const SourceTable& source, const std::vector<PlannedColumn>& columns,
                              const std::vector<FormulaText>& formulas, Faults& faults) {
    Contradictions contradictions;
    if (formulas.empty()) {
        return contradictions;
    }
    const Targets targets(book, source, columns);
    const Book copy = CopyOf(book);  // a view writes keys and computed values
    planview::PlanView view;
    GiveTables(view, copy);
    view.DP_Import_Create();
    for (const FormulaText& formula : formulas) {
        const std::string target = targets.KeyOf(formula, faults);
        const planview::FormulaReading reading = view.Calculation().Read(target, formula.formula);
        if (!target.empty() && !reading.error.empty()) {
            faults.Add(formula.line, 0, Shown(formula.target) + ": " + reading.error);
        }
        for (const Book* each : {&book, &copy}) {
            (*each)[BookTable::Formulas].AddRowWith({{"TARGET", target},
                                                     {"FORMULA", reading.stored},
                                                     {"SOLVE_ORDER", static_cast<std::int32_t>(formula.solveOrder)},
                                                     {"ENTRY", formula.entry ? "X" : ""}});
            SetEntry(*each, target, formula.entry);
        }
    }
    if (faults.Any()) {
        return contradictions;
    }
    const BookSnapshot imported(copy);
    view.DP_Import_Create();
    for (const planview::FormulaProblem& problem : view.Calculation().Problems()) {
        if (problem.row > 0) {
            const FormulaText& formula = formulas[static_cast<std::size_t>(problem.row) - 1];
            faults.Add(formula.line, 0, Shown(formula.target) + ": " + problem.what);
        } else {
            faults.Add(LineOfFirst(formulas, problem.target), 0, problem.what);
        }
    }
    for (const CellEdit& edit : imported.ChangesIn(copy).cells) {
        AddContradiction(contradictions, book, edit);
    }
    TakeCells(book, copy);
    ReplaceNegativeLooks(book, [&](CellPosition cell) { return view.Calculation().IsComputed(KeysOf(cell)); });
    return contradictions;
}

}  // namespace planbook
