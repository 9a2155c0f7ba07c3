// SPDX-License-Identifier: MIT
#include "formula/ExpressionSentences.h"

#include <cmath>
#include <optional>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "formula/FormulaExpression.h"

namespace planview {

namespace {

constexpr int DeepestSentence = 40;

using Kind = FormulaToken::Kind;

std::string Plural(double count, const std::string& one) {
    return NumberText(count, GridDecimalMark) + " " + one + (count == 1 ? "" : "s");
}

/// "Retail 2 periods earlier".
std::string ShiftedText(const std::string& what, const std::string& by) {
    const std::optional<double> periods = TryParseNumber(by);
    if (!periods) {
        return what + " shifted by " + by + " periods";
    }
    if (*periods == 0) {
        return what + " of the same period";
    }
    return what + " " + Plural(std::abs(*periods), "period") + (*periods < 0 ? " earlier" : " later");
}

std::string TextOr(std::string_view text, const char* otherwise) {
    return text.empty() ? std::string(otherwise) : std::string(text);
}

}  // namespace

std::string RoundedText(const std::string& what, const std::string& decimals) {
    const std::optional<double> number = TryParseNumber(decimals);
    return what + " rounded to " + (number ? Plural(*number, "decimal") : decimals + " decimals");
}

std::string ExpressionSentences::ShortText(const FormulaToken& token) const {
    if (token.kind == Kind::Function) {
        const FormulaFunctionName* name = FindFormulaFunction(token.value);
        return std::string(name ? name->caption : token.value);
    }
    if (!token.IsOperand() || token.IsOwn()) {
        return TextOr(token.value, MissingText);
    }
    if (token.value == SelectedPlace) {
        return "Selected line";
    }
    std::string missing;
    const std::optional<PlanningRange> range = table_.Resolve(token.value, token.captions, missing);
    return range ? table_.TextOf(*range) : TextOr(missing, MissingText);
}

std::string ExpressionSentences::Whole(int token, int level) const {
    if (level > DeepestSentence) {
        return MissingText;
    }
    const FormulaToken read = tokens_.At(token);
    return read.kind == Kind::Function ? Function(token, level)
           : read.kind == Kind::Other  ? OtherText(token, level)
                                       : ShortText(read);
}

std::string ExpressionSentences::Expression(int parent, int level) const {
    const std::vector<int> parts = tokens_.Inside(parent);
    return parts.empty() ? MissingText : Joined(parts, level, parts.size() > 1);
}

/// `bracketed`: functions are put in brackets because they are not alone.
std::string ExpressionSentences::Joined(const std::vector<int>& parts, int level, bool bracketed) const {
    std::string text;
    bool tight = true;        // no blank before the next part
    bool afterValue = false;  // "+" and "-" are operators then, else signs
    for (const int part : parts) {
        const FormulaToken token = tokens_.At(part);
        const bool closes = token.Is(")") || token.Is(";");
        std::string shown = Whole(part, level);
        if (token.kind == Kind::Function && bracketed) {
            shown = "(" + shown + ")";
        }
        text += (tight || closes ? "" : " ") + shown;
        tight = token.Is("(") || (!afterValue && (token.Is("-") || token.Is("+")));
        afterValue = token.kind != Kind::Operator || token.Is(")");
    }
    return text;
}

std::string ExpressionSentences::Function(int token, int level) const {
    std::vector<std::string> arguments;
    std::vector<int> current;
    const std::vector<int> parts = tokens_.Inside(token);
    const auto take = [&] {
        arguments.push_back(current.empty() ? MissingText : Joined(current, level + 1, current.size() > 1));
        current.clear();
    };
    for (const int part : parts) {
        if (tokens_.At(part).Is(";")) {
            take();
        } else {
            current.push_back(part);
        }
    }
    if (!parts.empty()) {
        take();
    }
    const FormulaToken function = tokens_.At(token);
    const auto argument = [&](std::size_t index) { return index < arguments.size() ? arguments[index] : MissingText; };
    if (function.value == "SHIFT") {
        return ShiftedText(argument(0), argument(1));
    }
    if (function.value == "LAST") {
        return argument(0) + " in the " + argument(1) + " periods before";
    }
    if (function.value == "MEMBERS") {
        return ShortText(function);
    }
    if (function.value == "ROUND") {
        return RoundedText(argument(0), argument(1));
    }
    if (function.value == "IF") {
        return argument(1) + " if " + argument(0) + ", otherwise " + argument(2);
    }
    return ShortText(function) + " of " + (arguments.empty() ? MissingText : planview::Joined(arguments, ", "));
}

}  // namespace planview
