// SPDX-License-Identifier: MIT
#include "macro/editor/TypedFormula.h"

#include <algorithm>
#include <array>
#include <utility>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "formula/FormulaExpression.h"
#include "macro/editor/OperandNodes.h"
#include "macro/run/MacroGrid.h"

namespace planview {

namespace {

/// Longer signs before those that they begin with.
constexpr std::array<std::string_view, 13> Signs{"<>", "<=", ">=", "<", ">", "=", "+", "-", "*", "/", "(", ")", ";"};
constexpr std::string_view SignBytes = "<>=+-*/();,";

struct Fault {
    std::string text;
};

bool IsBlank(char c) noexcept {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view start) noexcept {
    return text.size() >= start.size() && EqualIgnoringCase(text.substr(0, start.size()), start);
}

/// Whether a name may end in front of this text.
bool IsEnd(std::string_view rest) noexcept {
    return rest.empty() || IsBlank(rest.front()) || SignBytes.find(rest.front()) != std::string_view::npos;
}

class Reader {
public:
    Reader(const GridControl& grid, const MacroOutline& outline, std::string_view text, bool hasTarget)
        : grid_(grid), outline_(outline), table_(grid), names_(OperandTexts(grid, outline)), rest_(text) {
        formula_.isStatement = false;
        hasTarget_ = hasTarget;
    }

    TypedFormula Read() {
        try {
            ReadAll();
        } catch (const Fault& fault) {
            formula_.fault = fault.text;
        }
        return std::move(formula_);
    }

private:
    void ReadAll() {
        SkipBlanks();
        while (!rest_.empty()) {
            if (!ReadSign()) {
                ReadOperand();
            } else if (formula_.periods) {
                return;
            }
            SkipBlanks();
        }
        if (formula_.isStatement && formula_.parts.size() == 1) {
            throw Fault{"Behind the \"=\" there is no value. Enter a line, a cell or a number."};
        }
    }

    void SkipBlanks() {
        while (!rest_.empty() && IsBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
    }

    [[nodiscard]] int Parent() const {
        return !functions_.empty() ? functions_.back().first : formula_.isStatement ? 0 : TypedFormula::TopLevel;
    }
    void Add(NewMacroNode node) { formula_.parts.push_back({std::move(node), Parent()}); }

    void AddOperator(std::string_view sign) {
        NewMacroNode node;
        node.type = MacroNodeType::Operator;
        node.value = node.text = std::string(sign);
        Add(std::move(node));
    }

    bool ReadSign() {
        const auto* const sign =
            std::find_if(Signs.begin(), Signs.end(), [&](std::string_view each) { return rest_.starts_with(each); });
        if (sign != Signs.end()) {
            rest_.remove_prefix(sign->size());
            Take(*sign);
            return true;
        }
        for (const std::string_view word : {"AND", "OR"}) {
            if (StartsWithIgnoringCase(rest_, word) && IsEnd(rest_.substr(word.size())) &&
                LongestName(rest_).size() <= word.size()) {
                rest_.remove_prefix(word.size());
                AddOperator(word);
                return true;
            }
        }
        return false;
    }

    void Take(std::string_view sign) {
        if (sign == "=" && hasTarget_ && !formula_.isStatement && formula_.parts.size() == 1 &&
            IsOperandType(formula_.parts[0].node.type)) {
            formula_.isStatement = true;
        } else if (sign == ";" && functions_.empty()) {
            formula_.periods = Periods(Trimmed(rest_));
        } else if (sign == ")" && !functions_.empty() && functions_.back().second == 0) {
            functions_.pop_back();
        } else {
            if (!functions_.empty()) {
                functions_.back().second += sign == "(" ? 1 : sign == ")" ? -1 : 0;
            }
            AddOperator(sign);
        }
    }

    void ReadOperand() {
        if (rest_.front() == '"') {
            const std::size_t end = rest_.find('"', 1);
            if (end == std::string_view::npos) {
                throw Fault{"A quotation mark is not closed."};
            }
            AddOperand(std::string(rest_.substr(1, end - 1)));
            rest_.remove_prefix(end + 1);
        } else if (!ReadFunction()) {
            const std::string_view name = LongestName(rest_);
            const std::string_view number = NumberAhead();
            if (!name.empty() && name.size() >= number.size()) {
                rest_.remove_prefix(name.size());
                AddOperand(std::string(name) + PeriodBehind());
            } else if (!number.empty()) {
                rest_.remove_prefix(number.size());
                AddOperand(std::string(number));
            } else {
                const std::string_view word = WordAhead();
                rest_.remove_prefix(word.size());
                AddOperand(std::string(word));
            }
        }
    }

    void AddOperand(const std::string& text) {
        std::optional<NewMacroNode> node = NodeFromText(grid_, outline_, text);
        if (!node) {
            throw Fault{"There is no line \"" + text +
                        "\". Enter a number, the caption of a line, or one of a line and a period: \"Retail, Jan\"."};
        }
        Add(std::move(*node));
    }

    void AddFunction(const FormulaFunctionName& function) {
        NewMacroNode node;
        node.type = MacroNodeType::Function;
        node.value = function.value;
        node.text = function.caption;
        Add(std::move(node));
    }

    bool ReadFunction() {
        for (const FormulaFunctionName& function : FormulaFunctions()) {
            for (const std::string_view name : {function.value, function.caption}) {
                std::string_view behind = rest_.substr(std::min(name.size(), rest_.size()));
                while (!behind.empty() && IsBlank(behind.front())) {
                    behind.remove_prefix(1);
                }
                if (StartsWithIgnoringCase(rest_, name) && behind.starts_with('(')) {
                    AddFunction(function);
                    functions_.emplace_back(static_cast<int>(formula_.parts.size()) - 1, 0);
                    rest_ = behind.substr(1);
                    return true;
                }
            }
            if (function.mostArguments == 0 && StartsWithIgnoringCase(rest_, function.value) &&
                IsEnd(rest_.substr(function.value.size())) && LongestName(rest_).size() <= function.value.size()) {
                AddFunction(function);
                rest_.remove_prefix(function.value.size());
                return true;
            }
        }
        return false;
    }

    /// The longest known name at the beginning; as it is written there.
    [[nodiscard]] std::string_view LongestName(std::string_view text) const {
        std::size_t longest = 0;
        for (const std::string& name : names_) {
            if (name.size() > longest && StartsWithIgnoringCase(text, name) && IsEnd(text.substr(name.size()))) {
                longest = name.size();
            }
        }
        return text.substr(0, longest);
    }

    /// ", Jan" behind a line; empty where there is none.
    std::string PeriodBehind() {
        std::string_view behind = rest_;
        while (!behind.empty() && IsBlank(behind.front())) {
            behind.remove_prefix(1);
        }
        if (!behind.starts_with(',')) {
            return {};
        }
        behind = behind.substr(1);
        while (!behind.empty() && IsBlank(behind.front())) {
            behind.remove_prefix(1);
        }
        std::size_t longest = 0;
        for (int period = 0; period < table_.PeriodCount(); ++period) {
            const std::string caption = table_.PeriodCaption(period);
            if (caption.size() > longest && StartsWithIgnoringCase(behind, caption) &&
                IsEnd(behind.substr(caption.size()))) {
                longest = caption.size();
            }
        }
        if (longest == 0) {
            return {};
        }
        const std::string period(behind.substr(0, longest));
        rest_ = behind.substr(longest);
        return ", " + period;
    }

    /// Digits, with a mark before more of them.
    [[nodiscard]] std::string_view NumberAhead() const {
        std::size_t end = 0;
        while (end < rest_.size() && (IsDigit(rest_[end]) || (end > 0 && (rest_[end] == ',' || rest_[end] == '.') &&
                                                              end + 1 < rest_.size() && IsDigit(rest_[end + 1])))) {
            ++end;
        }
        return IsEnd(rest_.substr(end)) ? rest_.substr(0, end) : std::string_view();
    }

    /// A reference, or something unknown up to the next blank or sign.
    [[nodiscard]] std::string_view WordAhead() const {
        std::size_t end = 0;
        while (end < rest_.size() && (rest_[end] == '/' || !IsEnd(rest_.substr(end)))) {
            ++end;
        }
        return rest_.substr(0, std::max<std::size_t>(end, 1));
    }

    [[nodiscard]] NewMacroNode Periods(std::string_view text) const {
        const auto node = [&](int first, int last) {
            const PlaceRange range{first, last};
            return PeriodsNode(table_.PeriodsReferenceOf(range), table_.PeriodsCaptionsOf(range));
        };
        if (const std::optional<int> one = table_.FindPeriod({}, text)) {
            return node(*one, *one);
        }
        for (const std::string_view between : {" to ", ":"}) {
            if (const std::size_t at = text.find(between); at != std::string_view::npos) {
                const std::optional<int> first = table_.FindPeriod({}, Trimmed(text.substr(0, at)));
                const std::optional<int> last = table_.FindPeriod({}, Trimmed(text.substr(at + between.size())));
                if (first && last) {
                    return node(std::min(*first, *last), std::max(*first, *last));
                }
            }
        }
        return PeriodsWith(text, node);
    }

    template <class Node>
    [[nodiscard]] NewMacroNode PeriodsWith(std::string_view word, const Node& node) const {
        constexpr std::size_t YearDigits = 4;
        const bool isYear = word.size() == YearDigits && std::all_of(word.begin(), word.end(), IsDigit);
        int first = -1;
        int last = -1;
        int count = 0;
        for (int period = 0; period < table_.PeriodCount() && !word.empty(); ++period) {
            const std::string caption = table_.PeriodCaption(period);
            for (const std::string_view each : SplitAt(caption, ' ')) {
                if (EqualIgnoringCase(each, word) || (isYear && each != caption && each == word.substr(2))) {
                    first = first < 0 ? period : first;
                    last = period;
                    ++count;
                    break;
                }
            }
        }
        if (count == 0 || last - first + 1 != count) {
            throw Fault{"There are no periods \"" + std::string(word) +
                        "\" that stand together. Enter one, \"Jan to Mar\", or a word that all of them have."};
        }
        return node(first, last);
    }

    const GridControl& grid_;
    const MacroOutline& outline_;
    MacroGrid table_;
    std::vector<std::string> names_;
    std::string_view rest_;
    bool hasTarget_ = true;
    TypedFormula formula_;
    std::vector<std::pair<int, int>> functions_;  // that are open, and how many brackets are open in each
};

}  // namespace

TypedFormula ReadFormula(const GridControl& grid, const MacroOutline& outline, std::string_view text, bool hasTarget) {
    return Reader(grid, outline, text, hasTarget).Read();
}

}  // namespace planview
