// SPDX-License-Identifier: MIT
#include "import/MacroText.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "import/TextFile.h"

namespace planbook {

namespace {

constexpr std::string_view Selected = "SELECTED";
constexpr std::array<std::string_view, 15> Functions = {"SUM",   "MIN", "MAX",   "AVERAGE", "COPY",
                                                        "SHIFT", "ABS", "ROUND", "PRODUCT", "COUNT",
                                                        "MOD",   "INT", "LAST",  "GROWTH",  "CUMULATE"};
constexpr std::string_view Operators = "+-*/";
constexpr int Deepest = 20;

bool IsLetter(char c) {
    return c >= 'A' && c <= 'Z';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

MacroTextNode LineNode(std::string_view name) {
    return {"M_TABLINE", std::string(name)};
}

MacroTextNode OperatorNode(char sign) {
    return {"M_OPERATOR", std::string(1, sign)};
}

/// Reads an expression from left to right. The first fault ends it.
class Reader {
public:
    explicit Reader(std::string_view text) : rest_(text) {}

    std::vector<MacroTextNode> ReadAll() {
        std::vector<MacroTextNode> nodes = ReadSequence("", 0);
        if (fault_.empty() && nodes.empty()) {
            fault_ = "there is no value behind the =";
        }
        return nodes;
    }

    [[nodiscard]] const std::string& Fault() const noexcept { return fault_; }

private:
    void Skip() {
        const std::size_t start = rest_.find_first_not_of(" \t");
        rest_.remove_prefix(start == std::string_view::npos ? rest_.size() : start);
    }

    /// Up to one of the ends, which is left where it is.
    std::vector<MacroTextNode> ReadSequence(std::string_view ends, int depth) {
        std::vector<MacroTextNode> nodes;
        bool wantsOperand = true;
        for (Skip(); fault_.empty() && !rest_.empty() && ends.find(rest_.front()) == std::string_view::npos; Skip()) {
            const char c = rest_.front();
            if (!wantsOperand && Operators.find(c) != std::string_view::npos) {
                nodes.push_back(OperatorNode(c));
                rest_.remove_prefix(1);
                wantsOperand = true;
            } else if (!wantsOperand) {
                fault_ = "an operator is missing before " + Shown(rest_);
            } else if (c == '(') {
                ReadBrackets(nodes, depth);
                wantsOperand = false;
            } else {
                nodes.push_back(ReadOperand(depth));
                wantsOperand = false;
            }
        }
        if (fault_.empty() && wantsOperand && !nodes.empty()) {
            fault_ = "a value is missing behind \"" + nodes.back().value + "\"";
        }
        return nodes;
    }

    void ReadBrackets(std::vector<MacroTextNode>& nodes, int depth) {
        rest_.remove_prefix(1);
        nodes.push_back(OperatorNode('('));
        if (depth == Deepest) {
            fault_ = "the brackets are too deep";
            return;
        }
        std::vector<MacroTextNode> inner = ReadSequence(")", depth + 1);
        nodes.insert(nodes.end(), inner.begin(), inner.end());
        Expect(')');
        nodes.push_back(OperatorNode(')'));
    }

    void Expect(char wanted) {
        Skip();
        if (fault_.empty() && (rest_.empty() || rest_.front() != wanted)) {
            fault_ = std::string("there is no \"") + wanted + "\"";
        } else if (fault_.empty()) {
            rest_.remove_prefix(1);
        }
    }

    MacroTextNode ReadOperand(int depth) {
        const char c = rest_.front();
        if (c == '[') {
            return ReadLine();
        }
        if (IsDigit(c) || c == '-') {
            return ReadNumber();
        }
        const auto end =
            static_cast<std::size_t>(std::find_if_not(rest_.begin(), rest_.end(), IsLetter) - rest_.begin());
        const std::string_view word = rest_.substr(0, end);
        if (word == Selected) {
            rest_.remove_prefix(end);
            return LineNode({});
        }
        if (std::find(Functions.begin(), Functions.end(), word) != Functions.end()) {
            rest_.remove_prefix(end);
            return ReadFunction(word, depth);
        }
        fault_ = Shown(rest_) + " is no line, number or function; lines stand in square brackets";
        return {};
    }

    MacroTextNode ReadLine() {
        const std::size_t end = rest_.find(']');
        if (end == std::string_view::npos) {
            fault_ = "there is no \"]\" behind " + Shown(rest_);
            return {};
        }
        MacroTextNode node = LineNode(Trimmed(rest_.substr(1, end - 1)));
        if (node.value.empty()) {
            fault_ = "there is no line between the square brackets";
        }
        rest_.remove_prefix(end + 1);
        return node;
    }

    MacroTextNode ReadNumber() {
        double number = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        if (error != std::errc()) {
            fault_ = Shown(rest_) + " is no number; write it with a point";
            return {};
        }
        const auto size = static_cast<std::size_t>(end - rest_.data());
        std::string text(rest_.substr(0, size));
        std::replace(text.begin(), text.end(), '.', ',');
        rest_.remove_prefix(size);
        return {"M_CONSTANT", text};
    }

    MacroTextNode ReadFunction(std::string_view name, int depth) {
        MacroTextNode node{"M_FUNCTION", std::string(name)};
        Expect('(');
        if (depth == Deepest) {
            fault_ = "the functions are too deep";
        }
        while (fault_.empty()) {
            std::vector<MacroTextNode> argument = ReadSequence(";)", depth + 1);
            if (fault_.empty() && argument.empty()) {
                fault_ = "an argument of " + node.value + " is missing";
            }
            node.children.insert(node.children.end(), argument.begin(), argument.end());
            if (fault_.empty() && !rest_.empty() && rest_.front() == ';') {
                node.children.push_back(OperatorNode(';'));
                rest_.remove_prefix(1);
                continue;
            }
            Expect(')');
            break;
        }
        return node;
    }

    std::string_view rest_;
    std::string fault_;
};

void AddLines(const MacroTextNode& node, std::vector<std::string>& lines) {
    if (node.type == "M_TABLINE" && !node.value.empty()) {
        lines.push_back(node.value);
    }
    for (const MacroTextNode& child : node.children) {
        AddLines(child, lines);
    }
}

}  // namespace

MacroText ReadMacroText(const std::string& name, std::string_view text, int line, Faults& faults) {
    MacroText macro;
    macro.name = name;
    macro.line = line;
    const std::size_t bar = text.find('|');
    if (bar != std::string_view::npos) {
        const std::string_view periods = text.substr(bar + 1);
        const std::size_t colon = periods.find(" : ");
        macro.from = Trimmed(periods.substr(0, colon));
        macro.to = colon == std::string_view::npos ? macro.from : std::string(Trimmed(periods.substr(colon + 3)));
        text = text.substr(0, bar);
    }
    const std::size_t equals = text.find('=');
    const std::string_view target = Trimmed(text.substr(0, equals));
    const bool isLine = target.size() > 2 && target.front() == '[' && target.back() == ']';
    if (equals == std::string_view::npos || (target != Selected && !isLine)) {
        faults.Add(line, 0,
                   "a macro is: name = target = value | from : to; a target is SELECTED or a line in square "
                   "brackets");
        return macro;
    }
    macro.target = LineNode(isLine ? Trimmed(target.substr(1, target.size() - 2)) : std::string_view());
    Reader reader(text.substr(equals + 1));
    macro.target.children = reader.ReadAll();
    if (!reader.Fault().empty()) {
        faults.Add(line, 0, reader.Fault());
    }
    return macro;
}

std::vector<std::string> LinesIn(const MacroText& macro) {
    std::vector<std::string> lines;
    AddLines(macro.target, lines);
    return lines;
}

}  // namespace planbook
