// SPDX-License-Identifier: MIT
#include "macro/language/MacroParser.h"

#include <algorithm>
#include <cmath>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "macro/language/MacroFault.h"

namespace planview {

namespace {

using Kind = MacroToken::Kind;

constexpr int DeepestExpression = 200;
constexpr int WeakestOperator = 1;
constexpr double MostPeriods = 32767;

constexpr const char* SplitIt = "Split it into several statements.";

/// Reads operands and operators from left to right, the stronger operators first.
class Parser {
public:
    /// `nesting`: how deep the parser has called itself already.
    Parser(const MacroScope& scope, int parent, int nesting)
        : scope_(scope), parent_(parent), tokens_(scope.tokens.Inside(parent)), nesting_(nesting) {}

    MacroExpression Whole() {
        MacroExpression whole = Expression(WeakestOperator);
        if (!AtEnd()) {
            Unexpected();
        }
        return whole;
    }

    /// Those of a function, with ";" between them.
    std::vector<MacroExpression> Arguments() {
        std::vector<MacroExpression> arguments;
        if (AtEnd()) {
            return arguments;
        }
        arguments.push_back(Expression(WeakestOperator));
        while (Is(";")) {
            ++next_;
            arguments.push_back(Expression(WeakestOperator));
        }
        if (!AtEnd()) {
            Unexpected();
        }
        return arguments;
    }

private:
    [[nodiscard]] bool AtEnd() const noexcept { return next_ == tokens_.size(); }
    [[nodiscard]] int Token() const { return tokens_[next_]; }
    [[nodiscard]] MacroToken Next() const { return scope_.tokens.At(Token()); }
    [[nodiscard]] bool Is(std::string_view value) const { return !AtEnd() && Next().Is(value); }

    [[noreturn]] void Unexpected() const {
        const MacroToken token = Next();
        if (token.kind != Kind::Operator) {
            throw MacroFault(Token(), "An operator is missing before it.", "Put one of + - * / in front of it.");
        }
        if (token.value == ")") {
            throw MacroFault(Token(), "No bracket is open that it could close.", "Delete it, or add \"(\" before.");
        }
        if (token.value == ";") {
            throw MacroFault(Token(), "It stands between the arguments of a function only.", "Delete it.");
        }
        throw MacroFault(Token(), "There is no operator \"" + std::string(token.value) + "\".", "Choose another one.");
    }

    MacroExpression Expression(int least) {
        const Nesting nesting(*this);
        MacroExpression left = Unary();
        while (!AtEnd() && Next().kind == Kind::Operator) {
            const MacroOperatorName* name = FindMacroOperator(Next().value);
            if (!name || name->strength < least) {
                break;
            }
            const int node = Token();
            ++next_;
            MacroExpression right = Expression(name->strength + 1);
            left = Combined(name->operation, node, std::move(left), std::move(right));
        }
        return left;
    }

    MacroExpression Unary() {
        if (Is("-")) {
            const Nesting nesting(*this);
            const int node = Token();
            ++next_;
            MacroExpression negated = Made(MacroOperation::Negate, node);
            negated.arguments.push_back(Number(Unary()));
            return Deepened(std::move(negated));
        }
        if (Is("+")) {
            ++next_;
        }
        return Primary();
    }

    MacroExpression Primary() {
        if (AtEnd()) {
            const bool isEmpty = tokens_.empty();
            throw MacroFault(isEmpty ? parent_ : tokens_.back(),
                             isEmpty ? "It has no value yet." : "Something is missing behind it.",
                             "Add a line, a cell or a number.");
        }
        if (Is("(")) {
            const int open = Token();
            ++next_;
            MacroExpression inner = Expression(WeakestOperator);
            if (!Is(")")) {
                throw MacroFault(open, "This bracket is not closed.", "Add \")\".");
            }
            ++next_;
            return inner;
        }
        if (Next().kind == Kind::Operator) {
            const bool known = FindMacroOperator(Next().value) || Next().value == ")" || Next().value == ";";
            throw MacroFault(Token(), known ? "Something is missing in front of it." : "There is no such operator.",
                             known ? "Add a line, a cell or a number." : "Choose another one.");
        }
        const int node = Token();
        ++next_;
        return Operand(node);
    }

    MacroExpression Operand(int node) {
        const MacroToken read = scope_.tokens.At(node);
        if (read.IsOperand()) {
            return Named(node, read.kind);
        }
        if (read.kind == Kind::Constant) {
            MacroExpression constant = Made(MacroOperation::Constant, node);
            const std::optional<double> number = TryParseNumber(read.value);
            if (!number) {
                throw MacroFault(node, "\"" + std::string(read.value) + "\" is not a number.",
                                 "Enter digits with a point or a comma.");
            }
            constant.number = *number;
            return constant;
        }
        if (read.kind == Kind::Function) {
            return Function(node);
        }
        throw MacroFault(node, "It cannot stand in an expression.", "Delete it, or move it out.");
    }

    MacroExpression Named(int node, Kind kind) {
        switch (kind) {
            case Kind::Line:
                return TableLines(MacroOperation::Line, node);
            case Kind::Area:
                return TableLines(MacroOperation::Area, node);
            case Kind::Element: {
                MacroExpression element = TableLines(MacroOperation::Element, node);
                element.perPeriod = false;
                return element;
            }
            case Kind::OwnLine:
                return Own(MacroOperation::OwnLine, node, scope_.ownLines);
            case Kind::OwnArea:
                return Own(MacroOperation::OwnArea, node, scope_.ownAreas);
            default:
                return OwnElement(node);
        }
    }

    MacroExpression TableLines(MacroOperation operation, int node) {
        MacroExpression made = Made(operation, node);
        made.range = scope_.RangeOf(node);
        made.lines = scope_.LinesOf(node, made.range);
        made.perPeriod = true;
        return made;
    }

    MacroExpression Own(MacroOperation operation, int node,
                        const std::map<std::string, std::vector<int>, std::less<>>& known) {
        MacroExpression made = Made(operation, node);
        const auto found = known.find(scope_.OwnNameOf(node));
        if (found == known.end()) {
            NoValueYet(node);
        }
        made.lines = found->second;
        made.perPeriod = true;
        return made;
    }

    MacroExpression OwnElement(int node) {
        MacroExpression made = Made(MacroOperation::OwnElement, node);
        const auto found = scope_.ownElements.find(scope_.OwnNameOf(node));
        if (found == scope_.ownElements.end()) {
            NoValueYet(node);
        }
        made.lines = {found->second};
        return made;
    }

    [[noreturn]] static void NoValueYet(int node) {
        throw MacroFault(node, "Nothing has given it a value before it is read.",
                         "Add a statement above that gives it one.");
    }

    MacroExpression Function(int node) {
        const MacroFunctionName* name = FindMacroFunction(scope_.tokens.At(node).value);
        if (!name) {
            throw MacroFault(node, "There is no function \"" + std::string(scope_.tokens.At(node).value) + "\".",
                             "Choose another one.");
        }
        if (nesting_ >= DeepestExpression) {
            throw MacroFault(node, "The functions stand too deep in one another.", SplitIt);
        }
        MacroExpression made = Made(name->operation, node);
        made.arguments = Parser(scope_, node, nesting_ + 1).Arguments();
        const std::size_t count = made.arguments.size();
        if (count < name->leastArguments || count > name->mostArguments) {
            throw MacroFault(node, "It has " + Counted(count, "argument") + ".", std::string(name->takes));
        }
        for (std::size_t i = 0; i < count; ++i) {
            const bool truth = name->operation == MacroOperation::If && i == 0;
            made.arguments[i] = truth ? Truth(std::move(made.arguments[i])) : Number(std::move(made.arguments[i]));
            made.perPeriod = made.perPeriod || made.arguments[i].perPeriod;
        }
        TakeWholeNumber(made, node);
        return Deepened(std::move(made));
    }

    /// The second argument of SHIFT and ROUND is known before the macro runs.
    static void TakeWholeNumber(MacroExpression& made, int node) {
        if (made.operation != MacroOperation::Shift && made.operation != MacroOperation::Round) {
            return;
        }
        const bool shift = made.operation == MacroOperation::Shift;
        const std::optional<double> number = ConstantOf(made.arguments[1]);
        const double most = shift ? MostPeriods : MostDecimals;
        if (!number || *number != std::trunc(*number) || std::abs(*number) > most || (!shift && *number < 0)) {
            throw MacroFault(
                node, shift ? "The number of periods is no whole number." : "The number of decimals is not 0 to 15.",
                "Enter one as a number behind the \";\".");
        }
        if (shift && !made.arguments[0].perPeriod) {
            throw MacroFault(node, "What it shifts has no periods.", "Shift a line or an area.");
        }
        made.number = *number;
        made.arguments.pop_back();
        made.perPeriod = made.arguments[0].perPeriod;
    }

    static std::optional<double> ConstantOf(const MacroExpression& expression) {
        if (expression.operation == MacroOperation::Constant) {
            return expression.number;
        }
        if (expression.operation == MacroOperation::Negate &&
            expression.arguments[0].operation == MacroOperation::Constant) {
            return -expression.arguments[0].number;
        }
        return std::nullopt;
    }

    MacroExpression Combined(MacroOperation operation, int node, MacroExpression left, MacroExpression right) const {
        MacroExpression made = Made(operation, node);
        made.perPeriod = left.perPeriod || right.perPeriod;
        const bool truths = operation == MacroOperation::And || operation == MacroOperation::Or;
        made.arguments.push_back(truths ? Truth(std::move(left)) : Number(std::move(left)));
        made.arguments.push_back(truths ? Truth(std::move(right)) : Number(std::move(right)));
        return Deepened(std::move(made));
    }

    static MacroExpression Number(MacroExpression expression) {
        if (expression.IsTruth()) {
            throw MacroFault(expression.node, "A comparison is not a number.",
                             "Use it in a condition, or as the first argument of the function IF.");
        }
        return expression;
    }
    static MacroExpression Truth(MacroExpression expression) {
        if (!expression.IsTruth()) {
            throw MacroFault(expression.node, "A comparison is needed here.",
                             "Add one of = <> < <= > >= and a second side.");
        }
        return expression;
    }
    static MacroExpression Made(MacroOperation operation, int node) {
        MacroExpression made;
        made.operation = operation;
        made.node = node;
        return made;
    }
    static MacroExpression Deepened(MacroExpression made) {
        for (const MacroExpression& argument : made.arguments) {
            made.depth = std::max(made.depth, argument.depth + 1);
        }
        if (made.depth > DeepestExpression) {
            throw MacroFault(made.node, "The expression is too long.", SplitIt);
        }
        return made;
    }

    /// Counts how deep the parser calls itself.
    class Nesting {
    public:
        explicit Nesting(Parser& parser) : parser_(parser) {
            if (++parser_.nesting_ > DeepestExpression) {
                --parser_.nesting_;
                throw MacroFault(parser_.AtEnd() ? parser_.parent_ : parser_.Token(), "Too many brackets are open.",
                                 SplitIt);
            }
        }
        ~Nesting() { --parser_.nesting_; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        Parser& parser_;
    };

    const MacroScope& scope_;
    int parent_;
    std::vector<int> tokens_;
    std::size_t next_ = 0;
    int nesting_;
};

}  // namespace

MacroRange MacroScope::RangeOf(int token) const {
    const MacroToken read = tokens.At(token);
    if (read.kind == Kind::Line && read.value == SelectedPlace) {
        if (!selectedLine) {
            throw MacroFault(token, "No line of the grid is selected.", "Select one, then run the macro.");
        }
        MacroRange range;
        range.firstLine = range.lastLine = *selectedLine;
        return range;
    }
    std::string missing;
    const std::optional<MacroRange> range = table.Resolve(read.value, read.captions, missing);
    if (!range) {
        throw MacroFault(token, read.value.empty() ? "It names nothing yet." : "The grid has no \"" + missing + "\".",
                         "Take it over from the grid again.");
    }
    const bool oneLine = range->firstLine == range->lastLine;
    const bool onePeriod = range->HasPeriods() && range->firstPeriod == range->lastPeriod;
    const std::string named = "\"" + std::string(read.value) + "\"";
    if (read.kind == Kind::Line && (!oneLine || range->HasPeriods())) {
        throw MacroFault(token, named + " is not one line.", "Take it over from the grid again.");
    }
    if (read.kind == Kind::Element && (!oneLine || !onePeriod)) {
        throw MacroFault(token, named + " is not one cell.", "Take it over from the grid again.");
    }
    return *range;
}

std::vector<int> MacroScope::LinesOf(int token, const MacroRange& range) const {
    std::vector<int> lines;
    for (int line = range.firstLine; line <= range.lastLine; ++line) {
        if (!table.IsTextLine(line)) {
            lines.push_back(line);
        }
    }
    if (lines.empty()) {
        throw MacroFault(token, "It carries text and no values.", "Choose another line.");
    }
    return lines;
}

std::string MacroScope::OwnNameOf(int token) const {
    const std::string_view name = tokens.At(token).value;
    if (name.empty()) {
        throw MacroFault(token, "It has no name.", "Rename it.");
    }
    return std::string(name);
}

MacroExpression ParseNumberExpression(const MacroScope& scope, int parent) {
    MacroExpression whole = Parser(scope, parent, 0).Whole();
    if (whole.IsTruth()) {
        throw MacroFault(whole.node, "A comparison is not a number.",
                         "Use it in a condition, or as the first argument of the function IF.");
    }
    return whole;
}

MacroExpression ParseComparison(const MacroScope& scope, int parent) {
    MacroExpression whole = Parser(scope, parent, 0).Whole();
    if (!whole.IsTruth()) {
        throw MacroFault(parent, "It is no comparison.", "Add one of = <> < <= > >= and a second side.");
    }
    return whole;
}

}  // namespace planview
