// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "formula/FormulaEvaluation.h"
#include "formula/FormulaTokens.h"

/// Formulas of computed lines, columns and cells: "SUM(MEMBERS) / Staff * 1,05".
///
///     std::optional<Formula> formula = ParseFormula(text, names, FormulaAxis::Lines, error);  // typed by the user
///     StoredText(*formula);                            // "SUM(MEMBERS) / {ROW7|Staff} * 1,05": for a table
///     PrintFormula(*formula, names);                   // by the captions of now
///     BoundFormula bound = BindFormula(*formula, names, target);  // after each change of lines or periods
///     ReadsOf(bound);                                  // what it depends on
///     EvaluateFormula(bound, source, periods, values); // after each change of values
///
/// A formula names lines and periods by their keys alone: renaming and moving leave it as it is, a range takes what
/// comes to stand between its ends, and what is deleted leaves a gap that keeps its caption. The language is that of
/// macros; docs/formulas.md describes it.
namespace planview {

class NumberFormat;

/// What a formula computes: a line (one value a period) or a column (one value a line). A cell is a line in one period.
enum class FormulaAxis { Lines, Periods };

/// The lines and the periods that formulas can name, by 0-based place in the order on screen.
class FormulaNames {
public:
    virtual ~FormulaNames() = default;
    [[nodiscard]] virtual int Count(FormulaAxis axis) const = 0;
    /// Is not empty, and has no blanks and none of : / | { } and the backslash.
    [[nodiscard]] virtual std::string Key(FormulaAxis axis, int place) const = 0;
    [[nodiscard]] virtual std::string Caption(FormulaAxis axis, int place) const = 0;
    [[nodiscard]] virtual std::optional<int> Find(FormulaAxis axis, std::string_view key) const = 0;
    /// Carries text and no values: ranges and MEMBERS leave it out.
    [[nodiscard]] virtual bool IsTextLine(int line) const = 0;
    /// How deep the line stands in the outline; more is deeper.
    [[nodiscard]] virtual int Level(int line) const = 0;
};

/// One end of a named range.
struct FormulaPlace {
    std::string key;      ///< empty: the line (period) that is computed
    std::string caption;  ///< when it was named last; for gaps
    friend bool operator==(const FormulaPlace&, const FormulaPlace&) = default;
};

/// What a formula names: a line, a period, a cell, or a block of them. Where it names lines only, the value of the
/// period that is computed is meant, and the other way round.
struct FormulaReference {
    FormulaPlace firstLine;
    FormulaPlace lastLine;  ///< as the first one, or the other end of a range
    FormulaPlace firstPeriod;
    FormulaPlace lastPeriod;
    std::size_t position = 0;  ///< in the text that was parsed, in bytes
    std::size_t length = 0;
};

/// Where in a text something is wrong.
struct FormulaError {
    std::string what;  ///< a sentence
    std::string now;   ///< what the user can do, a sentence
    std::size_t position = 0;
    std::size_t length = 0;
};

/// A parsed formula. Has always one expression for a number, with functions and operators in their right places.
class PLANVIEW_EXPORT Formula final : public FormulaTokens {
public:
    [[nodiscard]] FormulaAxis Axis() const noexcept { return axis_; }
    /// By their places in the text.
    [[nodiscard]] const std::vector<FormulaReference>& References() const noexcept { return references_; }

    // FormulaTokens; 0 is the formula as a whole, of a Reference `value` is empty
    [[nodiscard]] std::vector<int> Inside(int parent) const override { return nodes_[Index(parent)].children; }
    [[nodiscard]] FormulaToken At(int token) const override;
    /// The one that a token of kind Reference stands for.
    [[nodiscard]] const FormulaReference& ReferenceOf(int token) const {
        return references_[static_cast<std::size_t>(nodes_[Index(token)].reference)];
    }

private:
    friend class FormulaReader;

    struct Node {
        FormulaToken::Kind kind = FormulaToken::Kind::Other;
        std::string value;
        int reference = -1;
        std::vector<int> children;
        std::size_t position = 0;
        std::size_t length = 0;
    };
    [[nodiscard]] static std::size_t Index(int index) noexcept { return static_cast<std::size_t>(index); }

    FormulaAxis axis_ = FormulaAxis::Lines;
    std::vector<Node> nodes_;
    std::vector<FormulaReference> references_;
};

/// Reads a formula as the user types it or as StoredText() gives it. Names are captions in any case, in quotation marks
/// where they contain signs; of a name that is both, a line is meant by the formula of a line and a period by that of a
/// column. `format` is the number code of what is computed, by which "136.000" is read as in its cells. No value where
/// it cannot be read; `error` then says why.
[[nodiscard]] PLANVIEW_EXPORT std::optional<Formula> ParseFormula(std::string_view text, const FormulaNames& names,
                                                                  FormulaAxis axis, FormulaError& error,
                                                                  const NumberFormat* format = nullptr);

/// As the user reads and types it. A caption that several have, and what is not there any more, is given with its key.
[[nodiscard]] PLANVIEW_EXPORT std::string PrintFormula(const Formula& formula, const FormulaNames& names);
/// With keys, and with the captions that they have in `names`, for a table.
[[nodiscard]] PLANVIEW_EXPORT std::string StoredText(const Formula& formula, const FormulaNames& names);

/// The captions of what the formula names and `names` does not have any more, each once.
[[nodiscard]] PLANVIEW_EXPORT std::vector<std::string> GapsOf(const Formula& formula, const FormulaNames& names);

// --- Computing
// Below, the formula of a column is turned: "line" is a column there, and "period" a line.

/// A formula with its names as places, for as long as no line or period comes, goes or moves.
struct BoundFormula {
    FormulaExpression expression;
    int target = 0;     ///< the line that it computes
    int periods = 0;    ///< how many there are
    std::string fault;  ///< a sentence why it cannot be computed; every value is then a Gap
};

/// `target`: the line that the formula computes.
[[nodiscard]] PLANVIEW_EXPORT BoundFormula BindFormula(const Formula& formula, const FormulaNames& names, int target);

/// Some lines that a formula reads in some periods.
struct FormulaRead {
    static constexpr int AllBefore = -(1 << 20);

    std::vector<int> lines;
    /// The periods, if they are always the same; else -1.
    int firstPeriod = -1;
    int lastPeriod = -1;
    /// Else those from the period at hand: 0 and 0 are that one, -12 and -1 the twelve before, AllBefore all of them.
    int from = 0;
    int to = 0;
    friend bool operator==(const FormulaRead&, const FormulaRead&) = default;
};

/// All that the formula reads. A gap reads nothing.
[[nodiscard]] PLANVIEW_EXPORT std::vector<FormulaRead> ReadsOf(const BoundFormula& formula);

/// Computes the formula for these periods, which ascend: `values` gets one value each. Faults are values; a number is
/// finite, and everything else has the number 0.
PLANVIEW_EXPORT void EvaluateFormula(const BoundFormula& formula, FormulaSource& source, std::span<const int> periods,
                                     FormulaValues& values);

/// The lines one level below this one, as MembersBelow() tells; what MEMBERS stands for.
[[nodiscard]] PLANVIEW_EXPORT std::vector<int> MembersOf(const FormulaNames& names, int line);

/// Why there is no number, the end of a sentence: "a division by zero". Empty for other kinds than faults.
[[nodiscard]] PLANVIEW_EXPORT std::string_view FaultText(FormulaKind kind) noexcept;

}  // namespace planview
