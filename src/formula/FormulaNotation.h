// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "formula/Formula.h"

/// How names and references are written in the text of a formula.
namespace planview::formula {

[[nodiscard]] constexpr bool IsBlank(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Whether a name outside of quotation marks ends here.
[[nodiscard]] constexpr bool IsSign(char c) noexcept {
    return IsBlank(c) || std::string_view("<>=+-*/();,:\"{}").find(c) != std::string_view::npos;
}

/// "Cost-Income" in quotation marks, those inside doubled.
[[nodiscard]] std::string Quoted(std::string_view name);
/// The name in quotation marks that the text begins with. The length of it all, 0 where there is no second mark.
[[nodiscard]] std::size_t ReadQuoted(std::string_view text, std::string& name);

/// "{ROW3:ROW7/COL2|Retail|Trade|Jan}": lines before periods, the captions in the order of the keys. A backslash stands
/// before each | } and backslash of a caption.
[[nodiscard]] std::string WriteReference(const FormulaReference& reference);
/// The reference that the text begins with. The length of it all, 0 where it is none.
[[nodiscard]] std::size_t ReadReference(std::string_view text, FormulaReference& reference);

}  // namespace planview::formula
