// SPDX-License-Identifier: MIT
#include "macro/run/MacroCheck.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "formula/FormulaFault.h"
#include "macro/language/MacroScope.h"
#include "macro/language/MacroShape.h"
#include "macro/run/MacroSentences.h"
#include "macro/run/NodeTokens.h"

namespace planview {

namespace {

constexpr int DeepestStatement = 60;

FormulaOperation OperationOf(FormulaToken::Kind target) {
    switch (target) {
        case FormulaToken::Kind::Line:
            return FormulaOperation::Line;
        case FormulaToken::Kind::Element:
            return FormulaOperation::Element;
        case FormulaToken::Kind::Area:
            return FormulaOperation::Area;
        case FormulaToken::Kind::OwnLine:
            return FormulaOperation::OwnLine;
        case FormulaToken::Kind::OwnElement:
            return FormulaOperation::OwnElement;
        default:
            return FormulaOperation::OwnArea;
    }
}

class Checker {
public:
    Checker(const MacroOutline& outline, const MacroGrid& table, std::optional<int> selectedLine,
            const std::vector<int>& selectedPeriods, MacroProblems& problems)
        : outline_(outline),
          table_(table),
          tokens_(outline),
          scope_(tokens_, table),
          sentences_(outline, table),
          selectedPeriods_(selectedPeriods),
          problems_(problems) {
        scope_.selectedLine = selectedLine;
    }

    MacroProgram Program() {
        program_.periods.resize(static_cast<std::size_t>(table_.PeriodCount()));
        std::iota(program_.periods.begin(), program_.periods.end(), 0);
        const std::vector<int> children = outline_.ActiveChildren(0);
        std::vector<int> statements;
        for (const int child : children) {
            if (outline_.At(child).type == MacroNodeType::Attribute) {
                Guarded(child, [&] { TakeAttribute(child); });
            } else {
                statements.push_back(child);
            }
        }
        if (statements.empty()) {
            Add(0, "The macro has no statement yet.", "Add a line and give it a value.");
        }
        if (program_.periods.empty()) {
            Add(0, "There is no period to run over.", "Select at least one.");
        }
        program_.statements = Statements(statements, false);
        return std::move(program_);
    }

private:
    void Add(int node, const std::string& what, const std::string& now) {
        problems_.push_back({outline_.At(node).key, sentences_.Located(node), what, now});
    }

    template <class Body>
    void Guarded(int node, const Body& body) {
        try {
            body();
        } catch (const FormulaFault& fault) {
            Add(fault.node < 0 ? node : fault.node, fault.what(), fault.now);
        }
    }

    void TakeAttribute(int node) {
        const std::string& text = outline_.At(node).value;
        const std::size_t sign = text.find('=');
        const std::string name = text.substr(0, sign);
        const std::string value = sign == std::string::npos ? std::string() : text.substr(sign + 1);
        if (name == "DECIMALS") {
            const std::optional<double> decimals = TryParseNumber(value);
            if (!decimals || *decimals < 0 || *decimals > MostDecimals || *decimals != static_cast<int>(*decimals)) {
                throw FormulaFault(node, "The number of decimals is not 0 to 15.", "Choose another one.");
            }
            program_.decimals = static_cast<int>(*decimals);
        } else if (name == "PERIODS") {
            TakePeriods(node, value);
        } else {
            throw FormulaFault(node, "There is no such attribute.",
                               "Choose the periods or the decimals, or delete it.");
        }
    }

    void TakePeriods(int node, const std::string& value) {
        if (value == "ALL") {
            return;
        }
        if (value == SelectedPlace) {
            program_.periods = selectedPeriods_;
            return;
        }
        std::string missing;
        const std::optional<PlaceRange> range = table_.FindPeriods(value, outline_.At(node).name, missing);
        if (!range) {
            throw FormulaFault(node, "The grid has no period \"" + missing + "\".", "Choose the periods again.");
        }
        program_.periods.resize(static_cast<std::size_t>(range->last - range->first + 1));
        std::iota(program_.periods.begin(), program_.periods.end(), range->first);
    }

    /// `perPeriod`: they are below a condition that is decided for each period.
    std::vector<MacroStatement> Statements(const std::vector<int>& nodes, bool perPeriod) {
        std::vector<MacroStatement> statements;
        bool afterIf = false;
        for (const int node : nodes) {
            const MacroNode& read = outline_.At(node);
            const bool isElse = read.type == MacroNodeType::Condition && read.value == "ELSE";
            const bool hasIf = std::exchange(afterIf, false);
            Guarded(node, [&] {
                if (read.depth > DeepestStatement) {
                    throw FormulaFault(node, "The conditions stand too deep in one another.", "Move it out of some.");
                }
                if (isElse) {
                    if (!hasIf) {
                        throw FormulaFault(node, "There is no condition right before it.",
                                           "Move it behind one, or delete or deactivate it.");
                    }
                    MacroStatement& condition = statements.back();
                    condition.fails = Statements(outline_.ActiveChildren(node), perPeriod || condition.test.perPeriod);
                    AddTestedPeriods(condition, condition.fails);
                } else if (read.type == MacroNodeType::Condition) {
                    afterIf = true;
                    statements.push_back(Condition(node, perPeriod));
                } else if (IsOperandType(read.type)) {
                    statements.push_back(Assignment(node, perPeriod));
                } else {
                    throw FormulaFault(node, "It is no statement.",
                                       read.type == MacroNodeType::Attribute ? "Move it directly below the macro."
                                                                             : "Move it into one, or delete it.");
                }
            });
            if (afterIf && (statements.empty() || statements.back().node != node)) {
                // Its own problem has been reported; an ELSE after it is not another one.
                MacroStatement& failed = statements.emplace_back();
                failed.node = node;
                failed.isCondition = true;
            }
        }
        return statements;
    }

    MacroStatement Condition(int node, bool perPeriod) {
        if (outline_.At(node).value != "IF") {
            throw FormulaFault(node, "The condition is neither IF nor ELSE.", "Delete it and add another one.");
        }
        std::vector<int> inner = outline_.ActiveChildren(node);
        if (inner.empty() || outline_.At(inner.front()).type != MacroNodeType::ConditionString) {
            throw FormulaFault(node, "What it tests is missing.", "Add a comparison as its first element.");
        }
        MacroStatement condition;
        condition.node = node;
        condition.isCondition = true;
        const int test = inner.front();
        inner.erase(inner.begin());
        scope_.assignedLine.reset();
        Guarded(test, [&] {
            condition.test = ParseComparison(scope_, test);
            CheckTestShape(condition.test);
        });
        condition.testedPeriods = program_.periods;
        condition.holds = Statements(inner, perPeriod || condition.test.perPeriod);
        AddTestedPeriods(condition, condition.holds);
        return condition;
    }

    /// A statement may name other periods; the condition is decided for those too.
    static void AddTestedPeriods(MacroStatement& condition, const std::vector<MacroStatement>& inner) {
        std::set<int> periods(condition.testedPeriods.begin(), condition.testedPeriods.end());
        for (const MacroStatement& statement : inner) {
            const std::vector<int>& more = statement.isCondition ? statement.testedPeriods : statement.periods;
            periods.insert(more.begin(), more.end());
        }
        condition.testedPeriods.assign(periods.begin(), periods.end());
    }

    MacroStatement Assignment(int node, bool perPeriod) {
        MacroStatement statement;
        statement.node = node;
        statement.target = OperationOf(tokens_.At(node).kind);
        statement.periods = program_.periods;
        const bool ofTable = IsOfTable(statement.target);
        if (ofTable) {
            const PlanningRange range = scope_.RangeOf(node);
            statement.lines = scope_.LinesOf(node, range);
            if (range.HasPeriods()) {
                statement.periods.resize(static_cast<std::size_t>(range.lastPeriod - range.firstPeriod + 1));
                std::iota(statement.periods.begin(), statement.periods.end(), range.firstPeriod);
            }
        } else {
            static_cast<void>(scope_.OwnNameOf(node));
        }
        scope_.assignedLine =
            statement.target == FormulaOperation::Line ? std::optional(statement.lines.front()) : std::nullopt;
        // Even if the value is wrong, the name is known from here on: statements that read it are not to blame.
        const std::optional<FormulaFault> fault =
            FaultOf([&] { statement.value = ParseNumberExpression(scope_, node); });
        FormulaShape shape;
        const std::optional<FormulaFault> wrongShape =
            fault ? std::nullopt : FaultOf([&] { shape = ShapeOfValue(statement, perPeriod); });
        if (!ofTable) {
            statement.lines = OwnIndexes(statement, shape);
        }
        if (fault || wrongShape) {
            throw fault ? *fault : *wrongShape;
        }
        CheckTarget(statement, shape);
        FindDirection(statement, table_,
                      ofTable ? table_.LineCaption(statement.lines.front()) : outline_.At(node).value);
        return statement;
    }

    template <class Body>
    static std::optional<FormulaFault> FaultOf(const Body& body) {
        try {
            body();
            return std::nullopt;
        } catch (const FormulaFault& fault) {
            return fault;
        }
    }

    /// The indexes of the own lines, or of the own element, that are assigned; new ones at the first assignment.
    std::vector<int> OwnIndexes(const MacroStatement& statement, const FormulaShape& shape) {
        const std::string name = scope_.OwnNameOf(statement.node);
        if (statement.target == FormulaOperation::OwnElement) {
            const auto [element, isNew] = scope_.ownElements.emplace(name, program_.ownElements);
            program_.ownElements += isNew ? 1 : 0;
            return {element->second};
        }
        const bool isLine = statement.target == FormulaOperation::OwnLine;
        std::vector<int>& lines = (isLine ? scope_.ownLines : scope_.ownAreas)[name];
        for (int missing = lines.empty() ? (isLine ? 1 : shape.lines) : 0; missing > 0; --missing) {
            lines.push_back(program_.ownLines++);
        }
        return lines;
    }

    static void CheckTarget(const MacroStatement& statement, const FormulaShape& shape) {
        const auto count = static_cast<int>(statement.lines.size());
        if (shape.lines > 1 && shape.lines != count) {
            throw FormulaFault(statement.node,
                               "It has " + Counted(count, "line") + ", its value " + std::to_string(shape.lines) + ".",
                               "Take an area of as many lines, or put it into SUM, MIN, MAX or AVERAGE.");
        }
        const auto periods = static_cast<int>(statement.periods.size());
        if (shape.areaPeriods > 0 && shape.areaPeriods != periods) {
            throw FormulaFault(statement.node,
                               "It has " + Counted(periods, "period") + ", the area in its value " +
                                   std::to_string(shape.areaPeriods) + ".",
                               "Take an area of as many periods.");
        }
    }

    const MacroOutline& outline_;
    const MacroGrid& table_;
    NodeTokens tokens_;
    MacroScope scope_;
    MacroSentences sentences_;
    const std::vector<int>& selectedPeriods_;
    MacroProblems& problems_;
    MacroProgram program_;
};

}  // namespace

MacroProgram CheckMacro(const MacroOutline& outline, const MacroGrid& table, std::optional<int> selectedLine,
                        const std::vector<int>& selectedPeriods, MacroProblems& problems) {
    return Checker(outline, table, selectedLine, selectedPeriods, problems).Program();
}

}  // namespace planview
