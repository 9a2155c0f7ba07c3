// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "macro/run/MacroRun.h"
#include "macro/run/MacroText.h"
#include "macro/tree/modMacro.h"
#include "support/ContextOnTables.h"

namespace planview::test {

/// Six periods "Jan" to "Jun"; the lines "Retail" 10 20 .. 60, "Trade" 1 .. 6, "Prices" (empty), "Fixed" (read-only, 5
/// in each period), "Heading" (a text line), "Total" (100 in each period).
class MacroEngineTest : public ContextTest {
protected:
    MacroEngineTest() : macros(*tables.macroTree) {
        constexpr const char* Periods[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun"};
        for (int i = 1; i <= PeriodCount; ++i) {
            tables.AddColumn(i, Periods[i - 1]);
        }
        tables.AddLine(1, "  Retail");
        tables.AddLine(2, "Trade");
        tables.AddLine(3, "Prices");
        tables.AddLine(4, "Fixed", {{"READONLY", "X"}});
        tables.AddLine(5, "Heading", {{"ROW_TEXT", "X"}});
        tables.AddLine(6, "Total");
        for (int i = 1; i <= PeriodCount; ++i) {
            tables.AddValue(1, i, 10 * i);
            tables.AddValue(2, i, i);
            tables.AddValue(4, i, 5);
            tables.AddValue(6, i, 100);
        }
        Build();
        ForgetEntries();
    }

    static constexpr int PeriodCount = 6;

    void BuildTree() { modMacro::Build(context.macros.nodes); }
    [[nodiscard]] MacroRunParts Parts() {
        return {context.grid.control, context.shared.tables, context.macros.tree, context.grid.valueEntry};
    }

    MacroOutcome Run(const std::string& text) {
        const std::string key = macros.Add("Macro", text);
        BuildTree();
        return RunMacroNode(Parts(), key);
    }
    /// What the check says, each as "node: what".
    Lines Check(const std::string& text) {
        const std::string key = macros.Add("Macro", text);
        BuildTree();
        return Texts(CheckMacroNode(Parts(), key));
    }
    /// Without the statement that the node is in.
    static Lines Texts(const MacroProblems& problems) {
        Lines texts;
        for (const MacroProblem& problem : problems) {
            const std::size_t end = problem.nodeText.find("\" in \"");
            const bool isPart = end != std::string::npos;
            texts.push_back((isPart ? problem.nodeText.substr(1, end - 1) : problem.nodeText) + ": " + problem.what);
        }
        return texts;
    }
    /// The contents of a line: "10 20 - 40", "-" for an empty cell.
    [[nodiscard]] std::string Line(int number) const {
        std::string text;
        for (int i = 1; i <= PeriodCount; ++i) {
            const std::optional<Cell> cell =
                context.grid.control.FindCell({"COL" + std::to_string(i), "ROW" + std::to_string(number)});
            const std::string& contents = context.grid.control.Contents(cell.value());
            text += (i == 1 ? "" : " ") + (contents.empty() ? "-" : contents);
        }
        return text;
    }
    void Put(int line, int period, const char* text) {
        const std::optional<Cell> cell =
            context.grid.control.FindCell({"COL" + std::to_string(period), "ROW" + std::to_string(line)});
        context.grid.control.SetAttribute(GridElement::Cell, context.grid.control.KeyOf(cell.value()),
                                          GridAttribute::Contents, text, true);
    }

    MacroText macros;
};

}  // namespace planview::test
