// SPDX-License-Identifier: MIT
#include "macro/language/MacroSentences.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <vector>

#include "automation/Numbers.h"
#include "automation/Texts.h"
#include "macro/language/MacroExpression.h"

namespace planview {

namespace {

constexpr int DeepestSentence = 40;
constexpr const char* Missing = "…";

std::string Plural(double count, const std::string& one) {
    return NumberText(count, GridDecimalMark) + " " + one + (count == 1 ? "" : "s");
}

/// How a shift reads behind what it shifts.
std::string ShiftText(const std::string& what, const std::string& by) {
    const std::optional<double> periods = TryParseNumber(by);
    if (!periods) {
        return what + " shifted by " + by + " periods";
    }
    if (*periods == 0) {
        return what + " of the same period";
    }
    return what + " " + Plural(std::abs(*periods), "period") + (*periods < 0 ? " earlier" : " later");
}

std::string RoundText(const std::string& what, const std::string& decimals) {
    const std::optional<double> number = TryParseNumber(decimals);
    return what + " rounded to " + (number ? Plural(*number, "decimal") : decimals + " decimals");
}

std::string Listed(const std::vector<std::string>& texts) {
    return texts.empty() ? Missing : planview::Joined(texts, ", ");
}

}  // namespace

std::string MacroSentences::Of(int node) const {
    return At(node, 0);
}

std::string MacroSentences::At(int node, int level) const {
    const MacroNode& read = outline_.At(node);
    if (level > DeepestSentence) {
        return Missing;
    }
    switch (read.type) {
        case MacroNodeType::Condition: {
            if (read.value == "ELSE") {
                return "Otherwise";
            }
            for (const int child : read.children) {
                if (outline_.At(child).type == MacroNodeType::ConditionString) {
                    return "If " + Expression(child, level + 1);
                }
            }
            return std::string("If ") + Missing;
        }
        case MacroNodeType::ConditionString:
            return Expression(node, level + 1);
        case MacroNodeType::Function:
            return Function(node, level);
        default:
            return outline_.IsTarget(node) ? Place(read) + " = " + Expression(node, level + 1) : ShortOf(node);
    }
}

std::string MacroSentences::ShortOf(int node) const {
    const MacroNode& read = outline_.At(node);
    switch (read.type) {
        case MacroNodeType::Attribute:
            return Attribute(read);
        case MacroNodeType::Condition:
            return read.value == "ELSE" ? "Otherwise" : "If";
        case MacroNodeType::ConditionString:
            return "Comparison";
        case MacroNodeType::Function: {
            const MacroFunctionName* name = FindMacroFunction(read.value);
            return name ? std::string(name->caption) : read.value;
        }
        case MacroNodeType::Operator:
        case MacroNodeType::Constant:
            return read.value.empty() ? Missing : read.value;
        default:
            return IsPlaceType(read.type) ? Place(read) : read.text;
    }
}

std::string MacroSentences::Place(const MacroNode& node) const {
    if (node.type >= MacroNodeType::OwnLine) {
        return node.value.empty() ? Missing : node.value;
    }
    if (node.value == SelectedPlace) {
        return "Selected line";
    }
    std::string missing;
    if (const std::optional<MacroPlace> place = places_.Resolve(node.value, node.name, missing)) {
        return places_.TextOf(*place);
    }
    return !missing.empty() ? missing : Missing;
}

std::string MacroSentences::Attribute(const MacroNode& node) const {
    const std::size_t sign = node.value.find('=');
    const std::string name = node.value.substr(0, sign);
    const std::string value = sign == std::string::npos ? std::string() : node.value.substr(sign + 1);
    if (name == "DECIMALS") {
        return RoundText("Results", value);
    }
    if (name != "PERIODS") {
        return node.value.empty() ? Missing : node.value;
    }
    if (value == "ALL") {
        return "For all periods";
    }
    if (value == SelectedPlace) {
        return "For the selected periods";
    }
    KeyCaptions captions(value, node.name);
    std::vector<std::string> ends;
    for (const std::string_view key : SplitAt(value, RangeMark)) {
        const std::string_view caption = captions.Next();
        const std::optional<int> period = places_.FindPeriod(key, caption);
        ends.push_back(period ? places_.PeriodCaption(*period) : std::string(caption.empty() ? key : caption));
    }
    return "For " + planview::Joined(ends, " to ");
}

std::string MacroSentences::Located(int node) const {
    int statement = node;
    while (outline_.At(statement).parent != MacroNode::None && !outline_.IsTarget(statement) &&
           outline_.At(statement).type != MacroNodeType::Condition &&
           outline_.At(statement).type != MacroNodeType::Attribute) {
        statement = outline_.At(statement).parent;
    }
    const bool isPart = statement != node && outline_.At(statement).type != MacroNodeType::Macro;
    return isPart ? "\"" + Of(node) + "\" in \"" + Of(statement) + "\"" : Of(node);
}

std::string MacroSentences::Expression(int parent, int level) const {
    const std::vector<int> parts = outline_.ActiveChildren(parent);
    return parts.empty() ? Missing : Joined(parts, level, parts.size() > 1);
}

/// `bracketed`: functions stand in brackets, because something else stands beside them.
std::string MacroSentences::Joined(const std::vector<int>& parts, int level, bool bracketed) const {
    std::string text;
    bool tight = true;        // no blank before the next part
    bool afterValue = false;  // "+" and "-" are operators there, signs elsewhere
    for (const int part : parts) {
        const MacroNode& node = outline_.At(part);
        const bool isOperator = node.type == MacroNodeType::Operator;
        const bool closes = isOperator && (node.value == ")" || node.value == ";");
        std::string shown = At(part, level);
        if (node.type == MacroNodeType::Function && bracketed) {
            shown = "(" + shown + ")";
        }
        text += (tight || closes ? "" : " ") + shown;
        tight = isOperator && (node.value == "(" || (!afterValue && (node.value == "-" || node.value == "+")));
        afterValue = !isOperator || node.value == ")";
    }
    return text;
}

std::string MacroSentences::Function(int node, int level) const {
    std::vector<std::string> arguments;
    std::vector<int> current;
    const std::vector<int> parts = outline_.ActiveChildren(node);
    const auto take = [&] {
        arguments.push_back(current.empty() ? Missing : Joined(current, level + 1, current.size() > 1));
        current.clear();
    };
    for (const int part : parts) {
        const MacroNode& read = outline_.At(part);
        if (read.type == MacroNodeType::Operator && read.value == ";") {
            take();
        } else {
            current.push_back(part);
        }
    }
    if (!parts.empty()) {
        take();
    }
    const std::string& name = outline_.At(node).value;
    const auto argument = [&](std::size_t index) { return index < arguments.size() ? arguments[index] : Missing; };
    if (name == "SHIFT") {
        return ShiftText(argument(0), argument(1));
    }
    if (name == "ROUND") {
        return RoundText(argument(0), argument(1));
    }
    if (name == "IF") {
        return argument(1) + " if " + argument(0) + ", otherwise " + argument(2);
    }
    return ShortOf(node) + " of " + Listed(arguments);
}

}  // namespace planview
