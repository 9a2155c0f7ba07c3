// SPDX-License-Identifier: MIT
#include "book/BookPlan.h"

#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "book/BookError.h"
#include "book/BookFormulas.h"
#include "book/CellValue.h"
#include "book/LineCaption.h"

namespace planbook {

using planview::MemoryTable;
using planview::Variant;

namespace {

constexpr std::size_t MostFaults = 20;

std::string Shown(const Variant& value) {
    const std::string text = value.AsText();
    return text.empty() ? "(empty)" : text;
}

/// The number of the only row with this caption; why there is none.
template <class Caption>
std::optional<std::int32_t> NumberOfOnly(const MemoryTable& table, std::string_view field, const std::string& wanted,
                                         const Caption& caption, std::string& why) {
    std::optional<std::int32_t> number;
    std::string captions;
    int found = 0;
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        const std::string its = caption(row);
        captions += "\n  " + its;
        if (its == wanted) {
            ++found;
            number = table.Value(row, field).AsInt32();
        }
    }
    if (found == 1) {
        return number;
    }
    why = (found == 0 ? "the book has none called \"" : "the book has several called \"") + wanted +
          "\". There are: " + captions;
    return std::nullopt;
}

}  // namespace

BookPlan::BookPlan(const std::filesystem::path& book)
    : file_(std::filesystem::absolute(book)),
      store_(BookStore::Open(file_)),
      book_(store_.LoadReadable()),
      report_(store_.Report()),
      asRead_(book_),
      view_(std::make_unique<planview::PlanView>()) {
    GiveTables(*view_, book_);
    view_->DP_Import_Attribute();
    view_->DP_Import_Create();
    AddFormulaFaults(*view_, report_);
}

std::vector<std::string> BookPlan::Formulas() const {
    const MemoryTable& table = book_[BookTable::Formulas];
    std::vector<std::string> lines;
    for (std::int32_t row = 1; row <= table.RowCount(); ++row) {
        const planview::FormulaReading reading =
            view_->Calculation().Read(table.Value(row, "TARGET").AsText(), table.Value(row, "FORMULA").AsText());
        const std::string order = table.Value(row, "SOLVE_ORDER").AsText();
        const bool entry = table.Value(row, "ENTRY").AsText() == "X";
        lines.push_back(reading.target + " = " + reading.shown + (order.empty() || order == "0" ? "" : " | " + order) +
                        (entry ? " | entry" : ""));
    }
    return lines;
}

/// Of TAB and TAB_OLD alone: building the view has written keys into the other tables.
BookChanges BookPlan::CellChanges() const {
    BookChanges changes = asRead_.ChangesIn(book_);
    MarkComputed(*view_, changes);
    std::erase_if(changes.tables, [](const TableEdits& edits) {
        return edits.table != BookTable::Tab && edits.table != BookTable::TabOld;
    });
    return changes;
}

std::vector<std::string> BookPlan::Differences() const {
    std::vector<std::string> lines;
    for (const CellEdit& edit : CellChanges().cells) {
        if (edit.computed && !SameValue(edit.before, edit.after)) {
            lines.push_back(CellName(book_, edit.cell) + ": " + Shown(edit.before) + " in the book, " +
                            Shown(edit.after) + " by its formula");
        }
    }
    return lines;
}

std::vector<std::string> BookPlan::Changes() const {
    std::vector<std::string> lines;
    for (const CellEdit& edit : CellChanges().cells) {
        if (!SameValue(edit.before, edit.after)) {
            lines.push_back(CellName(book_, edit.cell) + ": " + Shown(edit.before) + " -> " + Shown(edit.after));
        }
    }
    return lines;
}

void BookPlan::Refuse(const PlanEntry& entry, const std::string& why) const {
    throw BookError("Cannot set \"" + entry.line + "\" in \"" + entry.period + "\" of the book \"" + file_.string() +
                    "\": " + why);
}

CellPosition BookPlan::PlaceOf(const PlanEntry& entry) const {
    const MemoryTable& lines = book_[BookTable::LineIndex];
    const MemoryTable& periods = book_[BookTable::ColsIndex];
    std::string why;
    const std::optional<std::int32_t> line = NumberOfOnly(
        lines, "LINE", entry.line, [&](std::int32_t row) { return LineCaption(lines, row); }, why);
    if (!line) {
        Refuse(entry, "of lines, " + why);
    }
    const std::optional<std::int32_t> period = NumberOfOnly(
        periods, "COLUMN", entry.period, [&](std::int32_t row) { return periods.Value(row, "PERDY").AsText(); }, why);
    if (!period) {
        Refuse(entry, "of periods, " + why);
    }
    return {*line, *period};
}

void BookPlan::Set(const PlanEntry& entry) {
    if (store_.IsReadOnly()) {
        Refuse(entry, "the book cannot be written. Check your access to the file and its folder.");
    }
    if (report_.LosesValues()) {
        Refuse(entry, "the figures are incomplete. " + report_.Headline() + "\n" + report_.List(MostFaults) +
                          "\nMend these places first. Nothing was changed.");
    }
    const planview::ValueChange change{KeysOf(PlaceOf(entry)), entry.number};
    const planview::ChangeResult result = view_->Editing().ChangeValues(std::span(&change, 1), "Set");
    if (result.refused > 0) {
        Refuse(entry, result.reason + " Nothing was changed.");
    }
    if (result.failed > 0) {
        Refuse(entry, "the value could not be stored. Nothing was changed.");
    }
}

bool BookPlan::Save() {
    const BookChanges changes = CellChanges();
    return changes.IsEmpty() || store_.WriteUnlessChanged(changes);
}

}  // namespace planbook
