// SPDX-License-Identifier: MIT
#include "formula/FormulaParser.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "formula/FormulaFault.h"

namespace planview {

namespace {

using Kind = FormulaToken::Kind;

constexpr int DeepestExpression = 200;
constexpr int WeakestOperator = 1;

constexpr const char* SplitIt = "Split it into several statements.";

/// Reads operands and operators from left to right, the stronger operators first.
class Parser {
public:
    /// `nesting`: how deep the parser has called itself already.
    Parser(const FormulaScope& scope, int parent, int nesting)
        : scope_(scope), parent_(parent), tokens_(scope.tokens.Inside(parent)), nesting_(nesting) {}

    FormulaExpression Whole() {
        FormulaExpression whole = Expression(WeakestOperator);
        if (!AtEnd()) {
            Unexpected();
        }
        return whole;
    }

    /// Those of a function, with ";" between them.
    std::vector<FormulaExpression> Arguments() {
        std::vector<FormulaExpression> arguments;
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
    [[nodiscard]] FormulaToken Next() const { return scope_.tokens.At(Token()); }
    [[nodiscard]] bool Is(std::string_view value) const { return !AtEnd() && Next().Is(value); }

    [[noreturn]] void Unexpected() const {
        const FormulaToken token = Next();
        if (token.kind != Kind::Operator) {
            throw FormulaFault(Token(), "An operator is missing before it.", "Put one of + - * / in front of it.");
        }
        if (token.value == ")") {
            throw FormulaFault(Token(), "No bracket is open that it could close.", "Delete it, or add \"(\" before.");
        }
        if (token.value == ";") {
            throw FormulaFault(Token(), "It stands between the arguments of a function only.", "Delete it.");
        }
        throw FormulaFault(Token(), "There is no operator \"" + std::string(token.value) + "\".",
                           "Choose another one.");
    }

    FormulaExpression Expression(int least) {
        const Nesting nesting(*this);
        FormulaExpression left = Unary();
        while (!AtEnd() && Next().kind == Kind::Operator) {
            const FormulaOperatorName* name = FindFormulaOperator(Next().value);
            if (!name || name->strength < least) {
                break;
            }
            const int node = Token();
            ++next_;
            FormulaExpression right = Expression(name->strength + 1);
            left = Combined(name->operation, node, std::move(left), std::move(right));
        }
        return left;
    }

    FormulaExpression Unary() {
        if (Is("-")) {
            const Nesting nesting(*this);
            const int node = Token();
            ++next_;
            FormulaExpression negated = Made(FormulaOperation::Negate, node);
            negated.arguments.push_back(Number(Unary()));
            return Deepened(std::move(negated));
        }
        if (Is("+")) {
            ++next_;
        }
        return Primary();
    }

    FormulaExpression Primary() {
        if (AtEnd()) {
            const bool isEmpty = tokens_.empty();
            throw FormulaFault(isEmpty ? parent_ : tokens_.back(),
                               isEmpty ? "It has no value yet." : "Something is missing behind it.",
                               "Add a line, a cell or a number.");
        }
        if (Is("(")) {
            const int open = Token();
            ++next_;
            FormulaExpression inner = Expression(WeakestOperator);
            if (!Is(")")) {
                throw FormulaFault(open, "This bracket is not closed.", "Add \")\".");
            }
            ++next_;
            return inner;
        }
        if (Next().kind == Kind::Operator) {
            const bool known = FindFormulaOperator(Next().value) || Next().value == ")" || Next().value == ";";
            throw FormulaFault(Token(), known ? "Something is missing in front of it." : "There is no such operator.",
                               known ? "Add a line, a cell or a number." : "Choose another one.");
        }
        const int node = Token();
        ++next_;
        return Operand(node);
    }

    FormulaExpression Operand(int node) {
        const FormulaToken read = scope_.tokens.At(node);
        if (read.IsOperand()) {
            FormulaExpression named = scope_.Operand(node);
            named.node = node;
            return named;
        }
        if (read.kind == Kind::Constant) {
            FormulaExpression constant = Made(FormulaOperation::Constant, node);
            const std::optional<double> number = TryParseNumber(read.value);
            if (!number) {
                throw FormulaFault(node, "\"" + std::string(read.value) + "\" is not a number.",
                                   "Enter digits with a point or a comma.");
            }
            constant.number = *number;
            return constant;
        }
        if (read.kind == Kind::Function) {
            return Function(node);
        }
        throw FormulaFault(node, "It cannot stand in an expression.", "Delete it, or move it out.");
    }

    FormulaExpression Function(int node) {
        const FormulaFunctionName* name = FindFormulaFunction(scope_.tokens.At(node).value);
        if (!name) {
            throw FormulaFault(node, "There is no function \"" + std::string(scope_.tokens.At(node).value) + "\".",
                               "Choose another one.");
        }
        if (nesting_ >= DeepestExpression) {
            throw FormulaFault(node, "The functions stand too deep in one another.", SplitIt);
        }
        FormulaExpression made = Made(name->operation, node);
        made.arguments = Parser(scope_, node, nesting_ + 1).Arguments();
        const std::size_t count = made.arguments.size();
        if (count < name->leastArguments || count > name->mostArguments) {
            throw FormulaFault(node, "It has " + Counted(count, "argument") + ".", std::string(name->takes));
        }
        for (std::size_t i = 0; i < count; ++i) {
            const bool truth = name->operation == FormulaOperation::If && i == 0;
            made.arguments[i] = truth ? Truth(std::move(made.arguments[i])) : Number(std::move(made.arguments[i]));
            made.perPeriod = made.perPeriod || made.arguments[i].perPeriod;
        }
        if (made.operation == FormulaOperation::Members) {
            made = scope_.Members(node);
            made.node = node;
            return made;
        }
        if (made.operation == FormulaOperation::Growth && made.arguments[0].operation != FormulaOperation::Last) {
            throw FormulaFault(node, "It is the growth over the periods of LAST.", "Put LAST into it.");
        }
        if (made.operation == FormulaOperation::Cumulate && !made.perPeriod) {
            throw FormulaFault(node, "What it adds up has no periods.", "Add up a line or an area.");
        }
        TakeWholeNumber(made, node);
        return Deepened(std::move(made));
    }

    /// The second argument of SHIFT, LAST and ROUND is known before anything is computed.
    static void TakeWholeNumber(FormulaExpression& made, int node) {
        const bool shift = made.operation == FormulaOperation::Shift;
        const bool last = made.operation == FormulaOperation::Last;
        if (!shift && !last && made.operation != FormulaOperation::Round) {
            return;
        }
        const std::optional<double> number = ConstantOf(made.arguments[1]);
        const double most = shift || last ? MostPeriods : MostDecimals;
        const double least = shift ? -MostPeriods : last ? 1 : 0;
        if (!number || *number != std::trunc(*number) || *number > most || *number < least) {
            throw FormulaFault(node,
                               shift  ? "The number of periods is no whole number."
                               : last ? "The number of periods is no whole number from 1 on."
                                      : "The number of decimals is not 0 to 15.",
                               "Enter one as a number behind the \";\".");
        }
        if ((shift || last) && !made.arguments[0].perPeriod) {
            throw FormulaFault(node, shift ? "What it shifts has no periods." : "What it looks back at has no periods.",
                               shift ? "Shift a line or an area." : "Take a line or an area.");
        }
        if (last && Contains(made.arguments[0], FormulaOperation::Last)) {
            // Each of them multiplies the work.
            throw FormulaFault(node, "LAST stands in another LAST.", "Give the inner one a line of its own.");
        }
        made.number = *number;
        made.arguments.pop_back();
        made.perPeriod = made.arguments[0].perPeriod;
    }

    static bool Contains(const FormulaExpression& expression, FormulaOperation operation) {
        return expression.operation == operation ||
               std::any_of(expression.arguments.begin(), expression.arguments.end(),
                           [&](const FormulaExpression& argument) { return Contains(argument, operation); });
    }

    static std::optional<double> ConstantOf(const FormulaExpression& expression) {
        if (expression.operation == FormulaOperation::Constant) {
            return expression.number;
        }
        if (expression.operation == FormulaOperation::Negate &&
            expression.arguments[0].operation == FormulaOperation::Constant) {
            return -expression.arguments[0].number;
        }
        return std::nullopt;
    }

    FormulaExpression Combined(FormulaOperation operation, int node, FormulaExpression left,
                               FormulaExpression right) const {
        FormulaExpression made = Made(operation, node);
        made.perPeriod = left.perPeriod || right.perPeriod;
        const bool truths = operation == FormulaOperation::And || operation == FormulaOperation::Or;
        made.arguments.push_back(truths ? Truth(std::move(left)) : Number(std::move(left)));
        made.arguments.push_back(truths ? Truth(std::move(right)) : Number(std::move(right)));
        return Deepened(std::move(made));
    }

    static FormulaExpression Number(FormulaExpression expression) {
        if (expression.IsTruth()) {
            throw FormulaFault(expression.node, "A comparison is not a number.",
                               "Use it in a condition, or as the first argument of the function IF.");
        }
        return expression;
    }
    static FormulaExpression Truth(FormulaExpression expression) {
        if (!expression.IsTruth()) {
            throw FormulaFault(expression.node, "A comparison is needed here.",
                               "Add one of = <> < <= > >= and a second side.");
        }
        return expression;
    }
    static FormulaExpression Made(FormulaOperation operation, int node) {
        FormulaExpression made;
        made.operation = operation;
        made.node = node;
        return made;
    }
    static FormulaExpression Deepened(FormulaExpression made) {
        for (const FormulaExpression& argument : made.arguments) {
            made.depth = std::max(made.depth, argument.depth + 1);
        }
        if (made.depth > DeepestExpression) {
            throw FormulaFault(made.node, "The expression is too long.", SplitIt);
        }
        return made;
    }

    /// Counts how deep the parser calls itself.
    class Nesting {
    public:
        explicit Nesting(Parser& parser) : parser_(parser) {
            if (++parser_.nesting_ > DeepestExpression) {
                --parser_.nesting_;
                throw FormulaFault(parser_.AtEnd() ? parser_.parent_ : parser_.Token(), "Too many brackets are open.",
                                   SplitIt);
            }
        }
        ~Nesting() { --parser_.nesting_; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        Parser& parser_;
    };

    const FormulaScope& scope_;
    int parent_;
    std::vector<int> tokens_;
    std::size_t next_ = 0;
    int nesting_;
};

}  // namespace

FormulaExpression ParseNumberExpression(const FormulaScope& scope, int parent) {
    FormulaExpression whole = Parser(scope, parent, 0).Whole();
    if (whole.IsTruth()) {
        throw FormulaFault(whole.node, "A comparison is not a number.",
                           "Use it in a condition, or as the first argument of the function IF.");
    }
    return whole;
}

FormulaExpression ParseComparison(const FormulaScope& scope, int parent) {
    FormulaExpression whole = Parser(scope, parent, 0).Whole();
    if (!whole.IsTruth()) {
        throw FormulaFault(parent, "It is no comparison.", "Add one of = <> < <= > >= and a second side.");
    }
    return whole;
}

}  // namespace planview
