// SPDX-License-Identifier: MIT
#include "macro/run/MacroRun.h"

#include <algorithm>

#include "automation/Texts.h"
#include "formula/FormulaFault.h"
#include "grid/ProposedChanges.h"
#include "macro/language/MacroRunner.h"
#include "macro/run/MacroSentences.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

namespace {

constexpr std::string_view MacroLabel = "MACRO";
/// A message names so many cells and gives the number of the others.
constexpr std::size_t MostNamedCells = 5;

bool UsesSelectedLine(const MacroOutline& outline) {
    for (int i = 0; i < outline.Count(); ++i) {
        if (outline.At(i).type == MacroNodeType::TableLine && outline.At(i).value == SelectedPlace) {
            return true;
        }
    }
    return false;
}

/// The cells that get a new value, and those among them that may not be changed.
class Changes {
public:
    Changes(const GridControl& grid, const MacroGrid& table, MacroSheet& sheet) : grid_(grid), table_(table) {
        for (int line = 0; line < table.LineCount(); ++line) {
            if (!sheet.HasTouched(line)) {
                continue;
            }
            const FormulaValues& now = sheet.TableLine(line);
            const FormulaValues& before = sheet.Before(line);
            for (int period = 0; period < table.PeriodCount(); ++period) {
                if (sheet.IsTouched(line, period)) {
                    const auto index = static_cast<std::size_t>(period);
                    Take(line, period, before.At(index), now.At(index));
                }
            }
        }
    }

    [[nodiscard]] const std::vector<NewValue>& NewValues() const noexcept { return values_; }
    [[nodiscard]] bool AnyRefused() const noexcept { return !refused_.empty(); }
    /// Names the cells that may not be changed.
    [[nodiscard]] std::string RefusedText() const {
        std::vector<std::string> named;
        for (std::size_t i = 0; i < std::min(refused_.size(), MostNamedCells); ++i) {
            named.push_back(table_.CellCaption(refused_[i].line, refused_[i].period));
        }
        std::string text = Joined(named, "; ");
        if (refused_.size() > named.size()) {
            text += "; and " + std::to_string(refused_.size() - named.size()) + " more";
        }
        return (refused_.size() == 1 ? "A cell may not be changed: "
                                     : std::to_string(refused_.size()) + " cells may not be changed: ") +
               text + ".";
    }
    /// All of them, line by line.
    void AppendTo(std::vector<UploadChange>& changes) const {
        auto refused = refused_.begin();
        const auto appendRefused = [&] {
            const Cell cell = table_.CellAt(refused->line, refused->period);
            UploadChange change = ProposedChange(grid_, cell, refused->value);
            change.refusal = RefusalText(RefusalOf(grid_, cell));
            changes.push_back(std::move(change));
            ++refused;
        };
        for (std::size_t i = 0; i < values_.size(); ++i) {
            while (refused != refused_.end() && refused->place <= i) {
                appendRefused();
            }
            changes.push_back(ProposedChange(grid_, values_[i].cell, values_[i].value));
        }
        while (refused != refused_.end()) {
            appendRefused();
        }
    }

private:
    struct Refused {
        int line;
        int period;
        Variant value;
        std::size_t place;  ///< the number of values before it
    };

    void Take(int line, int period, FormulaValue before, FormulaValue now) {
        const Cell cell = table_.CellAt(line, period);
        Variant value = now.IsNumber() ? Variant(now.number) : Variant("");
        if (RefusalOf(grid_, cell) != Refusal::None) {
            refused_.push_back({line, period, std::move(value), values_.size()});
        } else if (now.IsNumber() ? !before.Is(now.number) : before.kind != FormulaKind::Empty) {
            values_.push_back({cell, std::move(value)});
        }
    }

    const GridControl& grid_;
    const MacroGrid& table_;
    std::vector<NewValue> values_;
    std::vector<Refused> refused_;
};

void TraceOutcome(std::string_view method, std::string_view nodeKey, const MacroProblems& problems, int changed) {
    if (!TraceEnabled) {
        return;
    }
    for (const MacroProblem& problem : problems) {
        TraceWrite(MacroLabel, "", method, TraceText("{node: ", problem.nodeKey, " - problem: ", problem.what, "}"));
    }
    TraceWrite(MacroLabel, "", method,
               TraceText("{node: ", nodeKey, " - problems: ", problems.size(), " - changed: ", changed, "}"));
}

MacroProblems NoSuchMacro(std::string_view nodeKey) {
    return {{std::string(nodeKey), "", "There is no macro \"" + std::string(nodeKey) + "\" in the tree.",
             "Select a macro there."}};
}

/// The lines for which a macro runs; a single empty one if it does not use the selected line.
std::vector<std::optional<int>> LinesToRunFor(const MacroOutline& outline, const MacroGrid& table) {
    std::vector<std::optional<int>> lines;
    if (UsesSelectedLine(outline)) {
        for (const int line : table.SelectedLines()) {
            if (!table.IsTextLine(line)) {
                lines.emplace_back(line);
            }
        }
    }
    return lines.empty() ? std::vector<std::optional<int>>(1) : lines;
}

/// Computes everything on the sheet. The first problem ends it.
MacroProblems Compute(const MacroOutline& outline, const MacroGrid& table, MacroSheet& sheet) {
    MacroProblems problems;
    const std::vector<int> periods = table.SelectedPeriods();
    for (const std::optional<int> line : LinesToRunFor(outline, table)) {
        const MacroProgram program = CheckMacro(outline, table, line, periods, problems);
        if (!problems.empty()) {
            break;
        }
        try {
            RunProgram(program, table, sheet);
        } catch (const FormulaFault& fault) {
            const MacroSentences sentences(outline, table);
            problems.push_back({outline.At(fault.node).key, sentences.Located(fault.node), fault.what(), fault.now});
            break;
        }
    }
    return problems;
}

/// Changes the cells; if the table fails, the cells that did change are changed back.
void Apply(const MacroRunParts& parts, const Changes& changes, const MacroNode& macro, MacroOutcome& outcome) {
    const BulkResult result = parts.valueEntry.ChangeCells(changes.NewValues());
    outcome.changed = result.changed;
    const int left = result.failed + result.Refused();
    if (left == 0) {
        return;
    }
    if (result.changed > 0) {
        parts.valueEntry.Undo();
        outcome.changed = 0;
    }
    outcome.problems.push_back({macro.key, macro.text, std::to_string(left) + " values could not be stored.",
                                "What the macro had changed before was taken back."});
}

}  // namespace

MacroProblems CheckMacroNode(const MacroRunParts& parts, std::string_view nodeKey) {
    const HostTable macroTree = parts.tables.MACRO_TREE;
    const MacroOutline outline = MacroOutline::Read(parts.tree, macroTree, nodeKey);
    MacroProblems problems;
    if (outline.IsEmpty() || outline.At(0).type != MacroNodeType::Macro) {
        problems = NoSuchMacro(nodeKey);
    } else {
        const MacroGrid table(parts.grid, parts.tables.LINE_INDEX);
        const std::optional<int> line = LinesToRunFor(outline, table).front();
        static_cast<void>(CheckMacro(outline, table, line, table.SelectedPeriods(), problems));
    }
    TraceOutcome("Generate", nodeKey, problems, 0);
    return problems;
}

namespace {

/// Computes the macro, and hands what it would change to `take` where nothing is wrong.
template <class Take>
MacroOutcome Computed(const MacroRunParts& parts, std::string_view nodeKey, bool onSelectedLine, const Take& take) {
    const HostTable macroTree = parts.tables.MACRO_TREE;
    MacroOutline outline = MacroOutline::Read(parts.tree, macroTree, nodeKey);
    MacroOutcome outcome;
    if (outline.IsEmpty() || outline.At(0).type != MacroNodeType::Macro) {
        outcome.problems = NoSuchMacro(nodeKey);
    } else if (onSelectedLine && !outline.PutOnSelectedLine()) {
        outcome.problems.push_back(
            {std::string(nodeKey), outline.At(0).text, "The macro is not about one line alone.", "Run it as it is."});
    } else {
        const MacroGrid table(parts.grid, parts.tables.LINE_INDEX);
        MacroSheet sheet(table);
        outcome.problems = Compute(outline, table, sheet);
        if (outcome.problems.empty()) {
            take(Changes(parts.grid, table, sheet), outline.At(0), outcome);
        }
    }
    return outcome;
}

}  // namespace

MacroOutcome RunMacroNode(const MacroRunParts& parts, std::string_view nodeKey, bool onSelectedLine) {
    const MacroOutcome outcome = Computed(
        parts, nodeKey, onSelectedLine, [&](const Changes& changes, const MacroNode& macro, MacroOutcome& result) {
            if (changes.AnyRefused()) {
                result.problems.push_back({macro.key, macro.text, changes.RefusedText(),
                                           "Nothing was changed. Leave them out, or allow them to be edited."});
            } else if (!changes.NewValues().empty()) {
                Apply(parts, changes, macro, result);
            }
        });
    TraceOutcome("Run", nodeKey, outcome.problems, outcome.changed);
    return outcome;
}

MacroOutcome PreviewMacroNode(const MacroRunParts& parts, std::string_view nodeKey, bool onSelectedLine,
                              std::vector<UploadChange>& changes) {
    const MacroOutcome outcome =
        Computed(parts, nodeKey, onSelectedLine,
                 [&](const Changes& computed, const MacroNode&, MacroOutcome&) { computed.AppendTo(changes); });
    TraceOutcome("Preview", nodeKey, outcome.problems, 0);
    return outcome;
}

}  // namespace planview
