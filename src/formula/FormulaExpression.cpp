// SPDX-License-Identifier: MIT
#include "formula/FormulaExpression.h"

#include <algorithm>
#include <limits>

namespace planview {

namespace {

constexpr std::size_t AnyNumber = std::numeric_limits<std::size_t>::max();

template <class Name>
const Name* Find(const std::vector<Name>& names, std::string_view value) noexcept {
    const auto found = std::find_if(names.begin(), names.end(), [&](const Name& name) { return name.value == value; });
    return found == names.end() ? nullptr : &*found;
}

}  // namespace

const std::vector<FormulaOperatorName>& FormulaOperators() {
    using Operation = FormulaOperation;
    static const std::vector<FormulaOperatorName> Names{
        {"OR", Operation::Or, 1},      {"AND", Operation::And, 2},
        {"=", Operation::Equal, 3},    {"<>", Operation::NotEqual, 3},
        {"<", Operation::Less, 3},     {"<=", Operation::LessOrEqual, 3},
        {">", Operation::Greater, 3},  {">=", Operation::GreaterOrEqual, 3},
        {"+", Operation::Add, 4},      {"-", Operation::Subtract, 4},
        {"*", Operation::Multiply, 5}, {"/", Operation::Divide, 5},
    };
    return Names;
}

const std::vector<FormulaFunctionName>& FormulaFunctions() {
    using Operation = FormulaOperation;
    static const std::vector<FormulaFunctionName> Names{
        {"SUM", Operation::Sum, 1, AnyNumber, "Sum", "It takes one or more lines, areas or values."},
        {"MIN", Operation::Minimum, 1, AnyNumber, "Minimum", "It takes one or more lines, areas or values."},
        {"MAX", Operation::Maximum, 1, AnyNumber, "Maximum", "It takes one or more lines, areas or values."},
        {"AVERAGE", Operation::Average, 1, AnyNumber, "Average", "It takes one or more lines, areas or values."},
        {"COPY", Operation::Copy, 1, 1, "Copy", "It takes one line, area or value."},
        {"SHIFT", Operation::Shift, 2, 2, "Shift",
         "It takes a line and, behind a \";\", by how many periods: -1 is the period before."},
        {"IF", Operation::If, 3, 3, "If", "It takes a comparison, the value where it holds, and the value where not."},
        {"ABS", Operation::Absolute, 1, 1, "Absolute value", "It takes one value."},
        {"ROUND", Operation::Round, 2, 2, "Round", "It takes a value and, behind a \";\", the number of decimals."},
        {"PRODUCT", Operation::Product, 1, AnyNumber, "Product", "It takes one or more lines, areas or values."},
        {"COUNT", Operation::Count, 1, AnyNumber, "Count", "It takes one or more lines, areas or values."},
        {"MOD", Operation::Modulo, 2, 2, "Remainder", "It takes a value and, behind a \";\", by what it is divided."},
        {"INT", Operation::Integer, 1, 1, "Whole number", "It takes one value."},
        {"CUMULATE", Operation::Cumulate, 1, 1, "Running total", "It takes a line."},
        {"LAST", Operation::Last, 2, 2, "Periods before",
         "It takes a line and, behind a \";\", the number of periods."},
        {"GROWTH", Operation::Growth, 1, 1, "Growth", "It takes the function LAST."},
        {"MEMBERS", Operation::Members, 0, 0, "Lines below", "It takes nothing."},
    };
    return Names;
}

const FormulaOperatorName* FindFormulaOperator(std::string_view value) noexcept {
    return Find(FormulaOperators(), value);
}

const FormulaFunctionName* FindFormulaFunction(std::string_view value) noexcept {
    return Find(FormulaFunctions(), value);
}

}  // namespace planview
