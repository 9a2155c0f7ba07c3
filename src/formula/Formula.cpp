// SPDX-License-Identifier: MIT
#include "formula/Formula.h"

#include <algorithm>
#include <functional>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "formula/FormulaNotation.h"

namespace planview {

namespace {

using Kind = FormulaToken::Kind;

constexpr int Whole = 0;

/// Along one axis the keys and captions of what a formula names.
using PlaceChange = std::function<void(FormulaAxis axis, FormulaPlace& place)>;

void ChangePlaces(FormulaReference& reference, const PlaceChange& change) {
    change(FormulaAxis::Lines, reference.firstLine);
    change(FormulaAxis::Lines, reference.lastLine);
    change(FormulaAxis::Periods, reference.firstPeriod);
    change(FormulaAxis::Periods, reference.lastPeriod);
}

/// The reference with the captions that its keys have in `names`; those that are gone keep the last one.
FormulaReference Refreshed(FormulaReference reference, const FormulaNames& names) {
    ChangePlaces(reference, [&](FormulaAxis axis, FormulaPlace& place) {
        const std::optional<int> found = place.key.empty() ? std::nullopt : names.Find(axis, place.key);
        if (found) {
            place.caption = Trimmed(names.Caption(axis, *found));
        }
    });
    return reference;
}

/// The parts of a formula as text; `word` gives that of a reference.
class Writer {
public:
    Writer(const Formula& formula, const std::function<std::string(const FormulaReference&)>& word)
        : formula_(formula), word_(word) {}

    [[nodiscard]] std::string Inside(int parent) const {
        std::string text;
        bool tight = true;        // no blank before the next part
        bool afterValue = false;  // "+" and "-" are operators then, else signs
        for (const int part : formula_.Inside(parent)) {
            const FormulaToken token = formula_.At(part);
            const bool closes = token.Is(")") || token.Is(";");
            text += (tight || closes ? "" : " ") + Part(part, token);
            tight = token.Is("(") || (!afterValue && (token.Is("-") || token.Is("+")));
            afterValue = token.kind != Kind::Operator || token.Is(")");
        }
        return text;
    }

private:
    [[nodiscard]] std::string Part(int part, const FormulaToken& token) const {
        switch (token.kind) {
            case Kind::Reference:
                return word_(formula_.ReferenceOf(part));
            case Kind::Function: {
                const std::string inside = Inside(part);
                return std::string(token.value) + (inside.empty() ? "" : "(" + inside + ")");
            }
            default:
                return std::string(token.value);
        }
    }

    const Formula& formula_;
    const std::function<std::string(const FormulaReference&)>& word_;
};

/// References by their captions.
class CaptionWords {
public:
    CaptionWords(const FormulaNames& names, FormulaAxis axis, bool quoted)
        : names_(names), axis_(axis), quoted_(quoted) {}

    [[nodiscard]] std::string Of(const FormulaReference& reference) const {
        const FormulaReference now = Refreshed(reference, names_);
        const bool lines = !now.firstLine.key.empty();
        const bool periods = !now.firstPeriod.key.empty();
        const std::optional<std::string> line =
            lines ? Ends(FormulaAxis::Lines, now.firstLine, now.lastLine) : std::string();
        const std::optional<std::string> period =
            periods ? Ends(FormulaAxis::Periods, now.firstPeriod, now.lastPeriod) : std::string();
        return line && period && IsKnownAs(now, lines) ? *line + (lines && periods ? ", " : "") + *period
                                                       : formula::WriteReference(now);
    }

private:
    /// A name that the other axis has, too, is taken for one of the formula's own.
    [[nodiscard]] bool IsKnownAs(const FormulaReference& now, bool lines) const {
        const std::string& caption = lines ? now.firstLine.caption : now.firstPeriod.caption;
        return axis_ == (lines ? FormulaAxis::Lines : FormulaAxis::Periods) ||
               CountOf(lines ? FormulaAxis::Periods : FormulaAxis::Lines, caption, true) == 0;
    }
    [[nodiscard]] int CountOf(FormulaAxis axis, const std::string& caption, bool anyCase) const {
        int count = 0;
        for (int place = 0; place < names_.Count(axis); ++place) {
            const std::string text = names_.Caption(axis, place);
            const std::string_view its = Trimmed(text);
            count += its == caption || (anyCase && EqualIgnoringCase(its, caption)) ? 1 : 0;
        }
        return count;
    }

    /// None where the captions do not tell which they are.
    [[nodiscard]] std::optional<std::string> Ends(FormulaAxis axis, const FormulaPlace& first,
                                                  const FormulaPlace& last) const {
        std::optional<std::string> name = Name(axis, first);
        if (!name || first.key == last.key) {
            return name;
        }
        const std::optional<std::string> other = Name(axis, last);
        return other ? std::optional(*name + ":" + *other) : std::nullopt;
    }
    [[nodiscard]] std::optional<std::string> Name(FormulaAxis axis, const FormulaPlace& place) const {
        if (place.caption.empty() || !names_.Find(axis, place.key) || CountOf(axis, place.caption, false) != 1) {
            return std::nullopt;
        }
        const std::string& caption = place.caption;
        const bool plain = !quoted_ && std::none_of(caption.begin(), caption.end(), [](char c) {
            return formula::IsSign(c) && c != ' ';
        }) && (caption.front() < '0' || caption.front() > '9');
        return plain ? caption : formula::Quoted(caption);
    }

    const FormulaNames& names_;
    FormulaAxis axis_;
    bool quoted_;
};

bool SameMeaning(const Formula& left, int leftNode, const Formula& right, int rightNode) {
    const std::vector<int> parts = left.Inside(leftNode);
    const std::vector<int> others = right.Inside(rightNode);
    return std::equal(parts.begin(), parts.end(), others.begin(), others.end(), [&](int part, int other) {
        const FormulaToken token = left.At(part);
        const FormulaToken its = right.At(other);
        if (token.kind != its.kind) {
            return false;
        }
        if (token.kind == Kind::Reference) {
            const auto keys = [](const FormulaReference& reference) {
                return std::vector<std::string_view>{reference.firstLine.key, reference.lastLine.key,
                                                     reference.firstPeriod.key, reference.lastPeriod.key};
            };
            return keys(left.ReferenceOf(part)) == keys(right.ReferenceOf(other));
        }
        return token.value == its.value && SameMeaning(left, part, right, other);
    });
}

}  // namespace

FormulaToken Formula::At(int token) const {
    const Node& node = nodes_[Index(token)];
    return {node.kind, node.value, {}};
}

std::string PrintFormula(const Formula& formula, const FormulaNames& names) {
    const auto printed = [&](bool quoted) {
        const CaptionWords words(names, formula.Axis(), quoted);
        return Writer(formula, [&](const FormulaReference& reference) { return words.Of(reference); }).Inside(Whole);
    };
    // A caption without quotation marks may run into what stands beside it: "Search" AND ... reads "Search and rescue".
    std::string text = printed(false);
    FormulaError error;
    const std::optional<Formula> again = ParseFormula(text, names, formula.Axis(), error);
    return again && SameMeaning(*again, Whole, formula, Whole) ? text : printed(true);
}

std::string StoredText(const Formula& formula, const FormulaNames& names) {
    return Writer(
               formula,
               [&](const FormulaReference& reference) { return formula::WriteReference(Refreshed(reference, names)); })
        .Inside(Whole);
}

std::vector<std::string> GapsOf(const Formula& formula, const FormulaNames& names) {
    std::vector<std::string> gaps;
    for (FormulaReference reference : formula.References()) {
        ChangePlaces(reference, [&](FormulaAxis axis, const FormulaPlace& place) {
            const std::string& name = place.caption.empty() ? place.key : place.caption;
            if (!place.key.empty() && !names.Find(axis, place.key) &&
                std::find(gaps.begin(), gaps.end(), name) == gaps.end()) {
                gaps.push_back(name);
            }
        });
    }
    return gaps;
}

std::string_view FaultText(FormulaKind kind) noexcept {
    switch (kind) {
        case FormulaKind::Text:
            return "a text among the numbers";
        case FormulaKind::DivisionByZero:
            return "a division by zero";
        case FormulaKind::TooLarge:
            return "a number that becomes too large";
        case FormulaKind::Gap:
            return "a line or period that is not there any more";
        default:
            return {};
    }
}

}  // namespace planview
