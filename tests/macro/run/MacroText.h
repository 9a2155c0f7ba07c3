// SPDX-License-Identifier: MIT
#pragma once

#include <cctype>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <planview/MemoryTable.h>

#include "formula/FormulaExpression.h"
#include "macro/tree/MacroNodes.h"

namespace planview::test {

/// Writes macros into MACRO_TREE from a short notation, one statement in a line, two blanks for each level:
///
///     periods COL2:COL4
///     ROW1 = ROW1 * 1,05
///     if ROW2 > 100
///       #limit = SUM( ROW2:ROW5/COL1:COL3 ; 5 )
///     else
///       $help = SHIFT( ROW1 ; -1 )
///
/// "$" is an own line, "#" an own element, "@" an own area, "-- " before a statement deactivates it.
class MacroText {
public:
    explicit MacroText(MemoryTable& table) : table_(table) {}

    /// Answers the macro's key.
    std::string Add(const std::string& name, const std::string& text) {
        const std::string macro = AddNode("", MacroNodeType::Macro, "", name);
        std::vector<std::string> parents{macro};
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            std::size_t blanks = line.find_first_not_of(' ');
            if (blanks == std::string::npos) {
                continue;
            }
            parents.resize(blanks / 2 + 1);
            std::string rest = line.substr(blanks);
            const bool inactive = rest.starts_with("-- ");
            parents.push_back(AddStatement(parents.back(), inactive ? rest.substr(3) : rest));
            if (inactive) {
                SetField(parents.back(), "INACTIVE", "X");
            }
        }
        return macro;
    }

    void SetField(const std::string& key, const char* field, const std::string& value) {
        for (int row = 1; row <= table_.RowCount(); ++row) {
            if (table_.Value(row, "NODEKEY") == Variant(key)) {
                table_.SetValue(row, field, value);
            }
        }
    }

    std::string AddNode(const std::string& parent, MacroNodeType type, const std::string& value,
                        const std::string& text = "") {
        const std::string key = "M" + std::to_string(++last_);
        table_.AddRowWith({{"NODEKEY", key},
                           {"NODEREF", parent},
                           {"RELATION", 4},
                           {"NODETEXT", text.empty() ? value : text},
                           {"NODETYPE", NameOf(type)},
                           {"NODEVALUE", value}});
        return key;
    }

private:
    std::string AddStatement(const std::string& parent, const std::string& line) {
        std::istringstream words(line);
        std::string first;
        words >> first;
        if (first == "periods" || first == "decimals") {
            std::string value;
            words >> value;
            return AddNode(parent, MacroNodeType::Attribute, (first == "periods" ? "PERIODS=" : "DECIMALS=") + value);
        }
        if (first == "else") {
            return AddNode(parent, MacroNodeType::Condition, "ELSE");
        }
        if (first == "if") {
            const std::string condition = AddNode(parent, MacroNodeType::Condition, "IF");
            AddExpression(AddNode(condition, MacroNodeType::ConditionString, ""), words);
            return condition;
        }
        const std::string statement = AddOperand(parent, first);
        std::string equals;
        words >> equals;
        AddExpression(statement, words);
        return statement;
    }

    void AddExpression(const std::string& parent, std::istringstream& words) {
        std::vector<std::string> open{parent};  // an empty one: a plain bracket
        for (std::string word; words >> word;) {
            const auto inner = [&] {
                std::size_t last = open.size() - 1;
                while (open[last].empty()) {
                    --last;
                }
                return open[last];
            };
            if (word.size() > 1 && word.back() == '(') {
                open.push_back(AddNode(inner(), MacroNodeType::Function, word.substr(0, word.size() - 1)));
            } else if (word == ")" && open.size() > 1 && !open.back().empty()) {
                open.pop_back();
            } else {
                AddOperand(inner(), word);
                if (word == "(") {
                    open.emplace_back();
                } else if (word == ")" && open.back().empty()) {
                    open.pop_back();
                }
            }
        }
    }

    std::string AddOperand(const std::string& parent, const std::string& word) {
        using Type = MacroNodeType;
        if (word.starts_with("ROW") || word == "SELECTED") {
            const Type type = word.find(':') != std::string::npos   ? Type::TableArea
                              : word.find('/') != std::string::npos ? Type::TableElement
                                                                    : Type::TableLine;
            return AddNode(parent, type, word);
        }
        constexpr std::string_view Marks = "$#@";
        const std::size_t mark = Marks.find(word.front());
        if (mark != std::string_view::npos) {
            constexpr Type Types[] = {Type::OwnLine, Type::OwnElement, Type::OwnArea};
            return AddNode(parent, Types[mark], word.substr(1));
        }
        return AddNode(parent, std::isdigit(static_cast<unsigned char>(word.front())) ? Type::Constant : Type::Operator,
                       word);
    }

    MemoryTable& table_;
    int last_ = 0;
};

}  // namespace planview::test
