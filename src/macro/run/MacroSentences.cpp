// SPDX-License-Identifier: MIT
#include "macro/run/MacroSentences.h"

#include <optional>
#include <string_view>
#include <vector>

#include "automation/Texts.h"

namespace planview {

std::string MacroSentences::Of(int node) const {
    return outline_.IsTarget(node) ? ShortOf(node) + " = " + Expression(node, 1) : Whole(node, 0);
}

std::string MacroSentences::OtherText(int node, int level) const {
    const MacroNode& read = outline_.At(node);
    if (read.type == MacroNodeType::ConditionString) {
        return Expression(node, level + 1);
    }
    if (read.type != MacroNodeType::Condition || read.value == "ELSE") {
        return ShortOf(node);
    }
    for (const int child : read.children) {
        if (outline_.At(child).type == MacroNodeType::ConditionString) {
            return "If " + Expression(child, level + 1);
        }
    }
    return std::string("If ") + MissingText;
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
        default: {
            const FormulaToken token = tokens_.At(node);
            return token.kind == FormulaToken::Kind::Other ? read.text : ShortText(token);
        }
    }
}

std::string MacroSentences::Attribute(const MacroNode& node) const {
    const std::size_t sign = node.value.find('=');
    const std::string name = node.value.substr(0, sign);
    const std::string value = sign == std::string::npos ? std::string() : node.value.substr(sign + 1);
    if (name == "DECIMALS") {
        return RoundedText("Results", value);
    }
    if (name != "PERIODS") {
        return node.value.empty() ? MissingText : node.value;
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
        const std::optional<int> period = table_.FindPeriod(key, caption);
        ends.push_back(period ? table_.PeriodCaption(*period) : std::string(caption.empty() ? key : caption));
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

}  // namespace planview
