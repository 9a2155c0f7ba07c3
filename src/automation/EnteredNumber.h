// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <planview/Export.h>

namespace planview {

class NumberFormat;

/// A text that a user has entered, read as a number in its place.
struct EnteredNumber {
    double number = 0;
    /// The number by the other meaning of the mark, where it is one "." or "," before exactly three digits.
    std::optional<double> other;
    /// The decimal mark by which `number` was read; '\0' where the text has none that tells.
    char decimalMark = '\0';
    /// The place itself shows this number with this mark as its decimals, so that there is nothing to guess.
    bool asShown = false;

    /// Whether the planner may have meant the other number.
    [[nodiscard]] bool IsGuess() const noexcept { return other && !asShown; }
};

/// Reads a text in its place. `format` is the number code of the cell that it goes to, null without one.
///
/// Beside what TryParseNumber() takes, this takes whatever the cell shows, with the texts of its code, and in every
/// cell "50%", "5-", "(5)" and "1'234". One mark before exactly three digits, which may group or stand before decimals
/// ("136.000", "1,234"), is read as the cell shows its numbers: "." groups where the code groups, and otherwise the
/// mark is the decimal mark. The evidence of other texts comes before that: MarkEvidence.
[[nodiscard]] PLANVIEW_EXPORT std::optional<EnteredNumber> ReadEntered(std::string_view text,
                                                                       const NumberFormat* format);

/// What texts that came together say about each other's decimal mark: where those that can be read in one way only
/// agree, the others are read like them.
class PLANVIEW_EXPORT MarkEvidence {
public:
    void Add(const EnteredNumber& read) noexcept;
    /// Settles a text that may be read either way; nothing is left to guess then.
    void Decide(EnteredNumber& read) const noexcept;

private:
    bool point_ = false;
    bool comma_ = false;
};

/// A number that was entered as a host's table takes it: the text itself where tables read the same number in it, else
/// the number in the control's own form.
[[nodiscard]] PLANVIEW_EXPORT std::string TableText(std::string_view entered, double number);

/// A number with "." between groups and its decimals, in which no mark can be taken for another one ("136.000").
[[nodiscard]] std::string SpokenNumber(double number);

}  // namespace planview
