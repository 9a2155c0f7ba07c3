// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "formula/FormulaTokens.h"
#include "formula/PlanningTable.h"

namespace planview {

/// Stands for what is missing in a sentence.
inline constexpr const char* MissingText = "…";

/// Expressions in words: "Retail trade * 1,05", "(Sum of Line 2 to Line 5) > 100". They need not be complete.
class ExpressionSentences {
public:
    ExpressionSentences(const FormulaTokens& tokens, const PlanningTable& table) : tokens_(tokens), table_(table) {}
    virtual ~ExpressionSentences() = default;
    ExpressionSentences(const ExpressionSentences&) = delete;
    ExpressionSentences& operator=(const ExpressionSentences&) = delete;

    /// The token alone: "Retail trade", "Sum".
    [[nodiscard]] std::string ShortText(const FormulaToken& token) const;

protected:
    /// The expression inside a token. `level`: nesting depth so far.
    [[nodiscard]] std::string Expression(int parent, int level) const;
    /// The token and what belongs to it: a function with its arguments.
    [[nodiscard]] std::string Whole(int token, int level) const;
    /// The text of a token of kind Other.
    [[nodiscard]] virtual std::string OtherText(int token, int level) const = 0;

private:
    [[nodiscard]] std::string Joined(const std::vector<int>& parts, int level, bool bracketed) const;
    [[nodiscard]] std::string Function(int token, int level) const;

    const FormulaTokens& tokens_;
    const PlanningTable& table_;
};

/// "Retail rounded to 2 decimals".
[[nodiscard]] std::string RoundedText(const std::string& what, const std::string& decimals);

}  // namespace planview
