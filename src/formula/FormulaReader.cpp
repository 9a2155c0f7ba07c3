// SPDX-License-Identifier: MIT
// Reads formulas.

#include <algorithm>
#include <array>
#include <utility>

#include "automation/EnteredNumber.h"
#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "formula/Formula.h"
#include "formula/FormulaBinding.h"
#include "formula/FormulaFault.h"
#include "formula/FormulaNotation.h"
#include "formula/FormulaParser.h"
#include "formula/FormulaShape.h"

namespace planview {

namespace {

using Kind = FormulaToken::Kind;

/// Longer signs before those that they begin with.
constexpr std::array<std::string_view, 13> Signs{"<>", "<=", ">=", "<", ">", "=", "+", "-", "*", "/", "(", ")", ";"};
constexpr int Whole = 0;  // the node of the formula as a whole

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) noexcept {
    return text.size() >= start.size() && EqualIgnoringCase(text.substr(0, start.size()), start);
}

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// Whether a name may end in front of this text.
bool IsEnd(std::string_view rest) noexcept {
    return rest.empty() || formula::IsSign(rest.front());
}

/// The length of the number at the beginning: digits, with a mark before more of them, and an exponent.
std::size_t NumberLength(std::string_view text) noexcept {
    const auto digitAt = [&](std::size_t at) { return at < text.size() && IsDigit(text[at]); };
    std::size_t end = 0;
    while (digitAt(end) ||
           (end > 0 && end < text.size() && (text[end] == ',' || text[end] == '.') && digitAt(end + 1))) {
        ++end;
    }
    if (end > 0 && end < text.size() && LowerCase(text[end]) == 'e') {
        const std::size_t sign = end + 1 < text.size() && (text[end + 1] == '-' || text[end + 1] == '+') ? 1 : 0;
        std::size_t exponent = end + 1 + sign;
        while (digitAt(exponent)) {
            ++exponent;
        }
        end = digitAt(end + 1 + sign) ? exponent : end;
    }
    return IsEnd(text.substr(end)) ? end : 0;
}

/// The names along one axis.
struct Captions {
    Captions(const FormulaNames& names, FormulaAxis axis) {
        for (int place = 0; place < names.Count(axis); ++place) {
            texts.emplace_back(Trimmed(names.Caption(axis, place)));
        }
    }

    /// The places with this caption, those that have it in the same case before the others.
    [[nodiscard]] std::vector<int> Find(std::string_view text) const {
        std::vector<int> same;
        std::vector<int> inOtherCase;
        for (std::size_t i = 0; i < texts.size() && !text.empty(); ++i) {
            if (texts[i] == text) {
                same.push_back(static_cast<int>(i));
            } else if (EqualIgnoringCase(texts[i], text)) {
                inOtherCase.push_back(static_cast<int>(i));
            }
        }
        return same.empty() ? inOtherCase : same;
    }
    /// The length of the longest one that the text begins with.
    [[nodiscard]] std::size_t Longest(std::string_view text) const {
        std::size_t longest = 0;
        for (const std::string& caption : texts) {
            if (caption.size() > longest && StartsWithIgnoringCase(text, caption) &&
                IsEnd(text.substr(caption.size()))) {
                longest = caption.size();
            }
        }
        return longest;
    }

    std::vector<std::string> texts;
};

/// One end of a range, or both, as it was typed.
struct TypedName {
    std::string text;
    std::size_t position = 0;
    std::size_t length = 0;
};

}  // namespace

class FormulaReader {
public:
    FormulaReader(std::string_view text, const FormulaNames& names, FormulaAxis axis, const NumberFormat* format)
        : text_(text),
          names_(names),
          format_(format),
          captions_{Captions(names, FormulaAxis::Lines), Captions(names, FormulaAxis::Periods)} {
        formula_.axis_ = axis;
        Formula::Node& whole = formula_.nodes_.emplace_back();
        whole.position = text.size();
    }

    Formula Read() {
        for (SkipBlanks(); at_ < text_.size(); SkipBlanks()) {
            if (!ReadSign()) {
                ReadOperand();
            }
        }
        if (!functions_.empty()) {
            const Formula::Node& function = formula_.nodes_[Formula::Index(functions_.back().node)];
            throw FormulaError{"This bracket is not closed.", "Add \")\".", function.position, function.length};
        }
        Check();
        return std::move(formula_);
    }

private:
    struct OpenFunction {
        int node;
        int brackets;  // that are open in it
    };

    [[nodiscard]] std::string_view Rest(std::size_t from) const { return text_.substr(std::min(from, text_.size())); }
    [[nodiscard]] std::string_view Rest() const { return Rest(at_); }
    [[nodiscard]] std::size_t AfterBlanks(std::size_t from) const {
        while (from < text_.size() && formula::IsBlank(text_[from])) {
            ++from;
        }
        return from;
    }
    void SkipBlanks() { at_ = AfterBlanks(at_); }

    int Add(Kind kind, std::string_view value, std::size_t position, std::size_t length) {
        const int node = static_cast<int>(formula_.nodes_.size());
        const int parent = functions_.empty() ? Whole : functions_.back().node;
        formula_.nodes_[Formula::Index(parent)].children.push_back(node);
        Formula::Node& added = formula_.nodes_.emplace_back();
        added.kind = kind;
        added.value = value;
        added.position = position;
        added.length = length;
        return node;
    }

    // --- Signs, words, functions

    bool ReadSign() {
        const auto* const sign =
            std::find_if(Signs.begin(), Signs.end(), [&](std::string_view each) { return Rest().starts_with(each); });
        if (sign != Signs.end()) {
            TakeSign(*sign);
            return true;
        }
        for (const std::string_view word : {"AND", "OR"}) {
            if (IsWord(word)) {
                Add(Kind::Operator, word, at_, word.size());
                at_ += word.size();
                return true;
            }
        }
        return false;
    }

    void TakeSign(std::string_view sign) {
        if (sign == ")" && !functions_.empty() && functions_.back().brackets == 0) {
            functions_.pop_back();
        } else {
            if (!functions_.empty()) {
                functions_.back().brackets += sign == "(" ? 1 : sign == ")" ? -1 : 0;
            }
            Add(Kind::Operator, sign, at_, sign.size());
        }
        at_ += sign.size();
    }

    /// Whether the word stands here, and no longer name.
    [[nodiscard]] bool IsWord(std::string_view word) const {
        return StartsWithIgnoringCase(Rest(), word) && IsEnd(Rest(at_ + word.size())) &&
               LongestName(Rest()) <= word.size();
    }
    [[nodiscard]] std::size_t LongestName(std::string_view text) const {
        return std::max(captions_[0].Longest(text), captions_[1].Longest(text));
    }

    bool ReadFunction() {
        for (const FormulaFunctionName& function : FormulaFunctions()) {
            for (const std::string_view name : {function.value, function.caption}) {
                const std::size_t behind = AfterBlanks(at_ + name.size());
                if (StartsWithIgnoringCase(Rest(), name) && Rest(behind).starts_with('(')) {
                    functions_.push_back({Add(Kind::Function, function.value, at_, name.size()), 0});
                    at_ = behind + 1;
                    return true;
                }
            }
            if (function.mostArguments == 0 && IsWord(function.value)) {
                Add(Kind::Function, function.value, at_, function.value.size());
                at_ += function.value.size();
                return true;
            }
        }
        return false;
    }

    // --- Operands

    void ReadOperand() {
        const std::size_t number = NumberLength(Rest());
        if (Rest().front() == '{') {
            ReadKeys();
        } else if (number > 0 && LongestName(Rest()) <= number) {
            const std::string_view digits = Rest().substr(0, number);
            const std::optional<EnteredNumber> read = ReadEntered(digits, format_);
            if (!read) {
                throw FormulaError{"\"" + std::string(digits) + "\" is not a number.",
                                   "Enter digits with a point or a comma.", at_, number};
            }
            // As it was understood, in a form that can be read in one way only.
            Add(Kind::Constant, NumberText(read->number, GridDecimalMark), at_, number);
            at_ += number;
        } else if (Rest().front() == '"' || !ReadFunction()) {
            ReadNames();
        }
    }

    void AddReference(FormulaReference reference) {
        const int node = Add(Kind::Reference, {}, reference.position, reference.length);
        formula_.nodes_[Formula::Index(node)].reference = static_cast<int>(formula_.references_.size());
        formula_.references_.push_back(std::move(reference));
    }

    /// "{ROW3:ROW7/COL2|Retail|Trade|Jan}"
    void ReadKeys() {
        FormulaReference reference;
        reference.position = at_;
        const std::size_t length = formula::ReadReference(Rest(), reference);
        if (length == 0) {
            throw FormulaError{"This reference by keys is not complete.",
                               "Enter the caption of the line or period in its place.", at_,
                               std::min(Rest().find('}'), Rest().size() - 1) + 1};
        }
        reference.length = length;
        at_ += length;
        AddReference(std::move(reference));
    }

    /// "Retail", "Retail:Trade", "Retail, Jan", "Jan:Mar".
    void ReadNames() {
        const std::size_t start = at_;
        const TypedName first = ReadName();
        const std::optional<TypedName> last = ReadNameBehind(':');
        const FormulaAxis axis = AxisOf(first);
        FormulaReference reference;
        reference.position = start;
        Put(reference, axis, first, last.value_or(first));
        if (axis == FormulaAxis::Lines) {
            if (const std::optional<TypedName> period = ReadNameBehind(',')) {
                const std::optional<TypedName> lastPeriod = ReadNameBehind(':');
                Put(reference, FormulaAxis::Periods, *period, lastPeriod.value_or(*period));
            }
        }
        reference.length = at_ - start;
        AddReference(std::move(reference));
    }

    /// A name behind a mark, with blanks around; none where no such mark stands.
    std::optional<TypedName> ReadNameBehind(char mark) {
        const std::size_t at = AfterBlanks(at_);
        if (at >= text_.size() || text_[at] != mark) {
            return std::nullopt;
        }
        at_ = AfterBlanks(at + 1);
        return ReadName();
    }

    TypedName ReadName() {
        const std::size_t start = at_;
        TypedName name;
        if (Rest().starts_with('"')) {
            const std::size_t length = formula::ReadQuoted(Rest(), name.text);
            if (length == 0) {
                throw FormulaError{"A quotation mark is not closed.", "Add one behind the name.", start,
                                   text_.size() - start};
            }
            at_ += length;
        } else {
            std::size_t length = LongestName(Rest());
            // Something unknown goes up to the next blank or sign.
            for (; length == 0 && at_ < text_.size(); ++at_) {
                if (IsEnd(Rest())) {
                    break;
                }
            }
            at_ += length;
            name.text = text_.substr(start, at_ - start);
        }
        name.position = start;
        name.length = at_ - start;
        if (name.length == 0 && at_ < text_.size() && !formula::IsBlank(text_[at_])) {
            throw FormulaError{"\"" + std::string(text_.substr(at_, 1)) + "\" means nothing here.", "Delete it.", at_,
                               1};
        }
        return name;
    }

    /// That of the formula where both have the name.
    [[nodiscard]] FormulaAxis AxisOf(const TypedName& name) const {
        const bool isLine = !captions_[0].Find(name.text).empty();
        const bool isPeriod = !captions_[1].Find(name.text).empty();
        return isLine && isPeriod ? formula_.axis_ : isPeriod ? FormulaAxis::Periods : FormulaAxis::Lines;
    }

    void Put(FormulaReference& reference, FormulaAxis axis, const TypedName& first, const TypedName& last) const {
        const bool lines = axis == FormulaAxis::Lines;
        (lines ? reference.firstLine : reference.firstPeriod) = PlaceOf(axis, first);
        (lines ? reference.lastLine : reference.lastPeriod) = PlaceOf(axis, last);
    }

    [[nodiscard]] FormulaPlace PlaceOf(FormulaAxis axis, const TypedName& name) const {
        const bool lines = axis == FormulaAxis::Lines;
        const Captions& known = captions_[lines ? 0 : 1];
        const std::vector<int> places = known.Find(name.text);
        if (places.size() == 1) {
            return {names_.Key(axis, places.front()), known.texts[static_cast<std::size_t>(places.front())]};
        }
        const std::string quoted = "\"" + name.text + "\"";
        if (places.empty()) {
            throw FormulaError{name.text.empty() ? "A name is missing."
                               : lines           ? "There is no line " + quoted + "."
                                                 : "There is no period " + quoted + ".",
                               lines
                                   ? "Enter a number, the caption of a line, or one of a line and a period: \"Retail, "
                                     "Jan\"."
                                   : "Enter the caption of a period.",
                               name.position, name.length};
        }
        throw FormulaError{(lines ? "Several lines are called " : "Several periods are called ") + quoted + ".",
                           "Point at the one that is meant.", name.position, name.length};
    }

    // --- Grammar

    void Check() const {
        try {
            const FormulaExpression expression = ParseNumberExpression(UnboundScope(formula_), Whole);
            CheckOneLine(expression, "It stands for several values, where one is needed.");
        } catch (const FormulaFault& fault) {
            const Formula::Node& node = formula_.nodes_[Formula::Index(std::max(fault.node, Whole))];
            throw FormulaError{fault.what(), fault.now, node.position, node.length};
        }
    }

    std::string_view text_;
    const FormulaNames& names_;
    const NumberFormat* format_;
    std::array<Captions, 2> captions_;
    std::size_t at_ = 0;
    Formula formula_;
    std::vector<OpenFunction> functions_;
};

std::optional<Formula> ParseFormula(std::string_view text, const FormulaNames& names, FormulaAxis axis,
                                    FormulaError& error, const NumberFormat* format) {
    try {
        return FormulaReader(text, names, axis, format).Read();
    } catch (FormulaError& found) {
        error = std::move(found);
        return std::nullopt;
    }
}

}  // namespace planview
