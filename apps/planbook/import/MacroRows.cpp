// SPDX-License-Identifier: MIT
#include "import/MacroRows.h"

#include <algorithm>

#include "book/Macros.h"

namespace planbook {

namespace {

// The tree's relations.
constexpr std::int32_t Last = 1;
constexpr std::int32_t Child = 4;

constexpr const char* MacrosKey = "MACROS";

class Writer {
public:
    Writer(planview::MemoryTable& table, const MacroPlaces& places) : table_(table), places_(places) {}

    void AddFolder(const std::string& key, const std::string& parent, const std::string& text) {
        table_.AddRowWith({{"NODEKEY", key},
                           {"NODEREF", parent},
                           {"RELATION", parent.empty() ? Last : Child},
                           {"NODETEXT", text},
                           {"IMAGE", "macro-folder"},
                           {"IMAGE_SEL", ""},
                           {"EXPANDED", "X"}});
    }

    void AddMacro(const std::string& key, const MacroText& macro) {
        AddNode(key, MacrosKey, {"M_MAKRO", {}}, macro.name, {});
        int number = 0;
        if (!macro.from.empty()) {
            const std::size_t first = PeriodOf(macro.from);
            const std::size_t last = PeriodOf(macro.to);
            const std::string& from = places_.captions[first];
            const std::string& to = places_.captions[last];
            AddNode(key + "_" + std::to_string(++number), key,
                    {"M_ATTRIBUTE", "PERIODS=COL" + std::to_string(places_.columns[first]) + ":COL" +
                                        std::to_string(places_.columns[last])},
                    "Periods " + from + " to " + to, from + "|" + to);
        }
        AddExpression(macro.target, key, key, number);
    }

private:
    [[nodiscard]] std::size_t PeriodOf(const std::string& period) const {
        const auto found = std::find(places_.periods.begin(), places_.periods.end(), period);
        return found == places_.periods.end() ? 0 : static_cast<std::size_t>(found - places_.periods.begin());
    }

    /// `number` counts the nodes of the macro.
    void AddExpression(const MacroTextNode& node, const std::string& macro, const std::string& parent, int& number) {
        const std::string key = macro + "_" + std::to_string(++number);
        std::string text = node.value;
        std::string value = node.value;
        std::string caption;
        if (node.type == "M_TABLINE") {
            const auto line = std::find_if(places_.lines.begin(), places_.lines.end(),
                                           [&](const LineName& each) { return each.column == node.value; });
            const bool selected = line == places_.lines.end();
            caption = selected ? "" : line->label;
            text = selected ? "Selected line" : caption;
            value = selected ? "SELECTED" : "ROW" + std::to_string(line - places_.lines.begin() + 1);
        }
        AddNode(key, parent, {node.type, value}, text, caption);
        for (const MacroTextNode& child : node.children) {
            AddExpression(child, macro, key, number);
        }
    }

    void AddNode(const std::string& key, const std::string& parent, const MacroTextNode& node, const std::string& text,
                 const std::string& caption) {
        table_.AddRowWith({{"NODEKEY", key},
                           {"NODEREF", parent},
                           {"RELATION", Child},
                           {"NODETEXT", text},
                           {"IMAGE", node.type},
                           {"IMAGE_SEL", node.type},
                           {"EXPANDED", ""},
                           {"NODETYPE", node.type},
                           {"NODEVALUE", node.value},
                           {"NODENAME", caption},
                           {"INACTIVE", ""}});
    }

    planview::MemoryTable& table_;
    const MacroPlaces& places_;
};

}  // namespace

void AddMacroRows(planview::MemoryTable& macroTree, const std::vector<MacroText>& macros, const MacroPlaces& places) {
    Writer writer(macroTree, places);
    writer.AddFolder(MacrosKey, {}, "Macros");
    int number = 0;
    for (const MacroText& macro : macros) {
        writer.AddMacro("MACRO" + std::to_string(++number), macro);
    }
    writer.AddFolder(RecordingsKey, MacrosKey, "Recorded");
}

}  // namespace planbook
