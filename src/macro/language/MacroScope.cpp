// SPDX-License-Identifier: MIT
#include "macro/language/MacroScope.h"

#include "formula/FormulaFault.h"
#include "formula/LineMembers.h"

namespace planview {

namespace {

using Kind = FormulaToken::Kind;

[[noreturn]] void NoValueYet(int token) {
    throw FormulaFault(token, "Nothing has given it a value before it is read.",
                       "Add a statement above that gives it one.");
}

FormulaExpression Made(FormulaOperation operation) {
    FormulaExpression made;
    made.operation = operation;
    return made;
}

}  // namespace

FormulaExpression MacroScope::Operand(int token) const {
    switch (tokens.At(token).kind) {
        case Kind::Line:
            return TableLines(FormulaOperation::Line, token);
        case Kind::Area:
            return TableLines(FormulaOperation::Area, token);
        case Kind::Element: {
            FormulaExpression element = TableLines(FormulaOperation::Element, token);
            element.perPeriod = false;
            return element;
        }
        case Kind::OwnLine:
            return Own(FormulaOperation::OwnLine, token, ownLines);
        case Kind::OwnArea:
            return Own(FormulaOperation::OwnArea, token, ownAreas);
        default:
            return OwnElement(token);
    }
}

FormulaExpression MacroScope::Members(int token) const {
    if (!assignedLine) {
        throw FormulaFault(token, "The lines below a line are those of the one that gets the value.",
                           "Give the value to one line of the table, or name the lines.");
    }
    FormulaExpression made = Made(FormulaOperation::Area);
    made.lines = MembersBelow(
        *assignedLine, table.LineCount(), [&](int line) { return table.LineLevel(line); },
        [&](int line) { return table.IsTextLine(line); });
    if (made.lines.empty()) {
        throw FormulaFault(token, "No line stands below " + table.LineCaption(*assignedLine) + ".",
                           "Indent the lines that belong to it.");
    }
    made.perPeriod = true;
    return made;
}

FormulaExpression MacroScope::TableLines(FormulaOperation operation, int token) const {
    FormulaExpression made = Made(operation);
    made.range = RangeOf(token);
    made.lines = LinesOf(token, made.range);
    made.perPeriod = true;
    return made;
}

FormulaExpression MacroScope::Own(FormulaOperation operation, int token,
                                  const std::map<std::string, std::vector<int>, std::less<>>& known) const {
    const auto found = known.find(OwnNameOf(token));
    if (found == known.end()) {
        NoValueYet(token);
    }
    FormulaExpression made = Made(operation);
    made.lines = found->second;
    made.perPeriod = true;
    return made;
}

FormulaExpression MacroScope::OwnElement(int token) const {
    const auto found = ownElements.find(OwnNameOf(token));
    if (found == ownElements.end()) {
        NoValueYet(token);
    }
    FormulaExpression made = Made(FormulaOperation::OwnElement);
    made.lines = {found->second};
    return made;
}

PlanningRange MacroScope::RangeOf(int token) const {
    const FormulaToken read = tokens.At(token);
    if (read.kind == Kind::Line && read.value == SelectedPlace) {
        if (!selectedLine) {
            throw FormulaFault(token, "No line of the grid is selected.", "Select one, then run the macro.");
        }
        PlanningRange range;
        range.firstLine = range.lastLine = *selectedLine;
        return range;
    }
    std::string missing;
    const std::optional<PlanningRange> range = table.Resolve(read.value, read.captions, missing);
    if (!range) {
        throw FormulaFault(token, read.value.empty() ? "It names nothing yet." : "The grid has no \"" + missing + "\".",
                           "Take it over from the grid again.");
    }
    const bool oneLine = range->firstLine == range->lastLine;
    const bool onePeriod = range->HasPeriods() && range->firstPeriod == range->lastPeriod;
    const std::string named = "\"" + std::string(read.value) + "\"";
    if (read.kind == Kind::Line && (!oneLine || range->HasPeriods())) {
        throw FormulaFault(token, named + " is not one line.", "Take it over from the grid again.");
    }
    if (read.kind == Kind::Element && (!oneLine || !onePeriod)) {
        throw FormulaFault(token, named + " is not one cell.", "Take it over from the grid again.");
    }
    return *range;
}

std::vector<int> MacroScope::LinesOf(int token, const PlanningRange& range) const {
    std::vector<int> lines;
    for (int line = range.firstLine; line <= range.lastLine; ++line) {
        if (!table.IsTextLine(line)) {
            lines.push_back(line);
        }
    }
    if (lines.empty()) {
        throw FormulaFault(token, "It carries text and no values.", "Choose another line.");
    }
    return lines;
}

std::string MacroScope::OwnNameOf(int token) const {
    const std::string_view name = tokens.At(token).value;
    if (name.empty()) {
        throw FormulaFault(token, "It has no name.", "Rename it.");
    }
    return std::string(name);
}

}  // namespace planview
