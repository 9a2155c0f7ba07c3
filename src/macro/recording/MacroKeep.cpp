// SPDX-License-Identifier: MIT
#include "macro/recording/MacroKeep.h"

#include <algorithm>
#include <unordered_set>

#include <planview/AutomationObject.h>

#include "macro/tree/MacroNodes.h"

namespace planview {

namespace {

// Values of RELATION.
constexpr std::int16_t Last = 1;
constexpr std::int16_t Child = 4;

class TreeWriter {
public:
    explicit TreeWriter(const HostTable& table) : table_(table), rows_(table.Rows()) {
        const int count = table.RowCount();
        for (int row = 1; row <= count; ++row) {
            keys_.insert(table.Text(static_cast<HostTable::Row>(row), "NODEKEY"));
        }
    }

    [[nodiscard]] bool Has(const std::string& key) const { return keys_.contains(key); }

    /// For a recording; its steps add their number.
    [[nodiscard]] std::string NewKey() {
        std::string key;
        do {
            key = "REC" + std::to_string(++number_);
        } while (Has(key) || HasBelow(key));
        return key;
    }

    void Add(const std::string& key, const std::string& parent, std::string_view type, const std::string& text,
             const std::string& value) {
        const HostTable::Row row = table_.AddRow(rows_);
        table_.Put(row, "NODETYPE", type);  // first, so that a table without these fields gets no node
        table_.Put(row, "NODEVALUE", value);
        table_.Put(row, "NODENAME", "");
        table_.Put(row, "INACTIVE", "");
        table_.Put(row, "NODEREF", parent);
        table_.Put(row, "RELATION", parent.empty() ? Last : Child);
        table_.Put(row, "NODETEXT", text);
        table_.Put(row, "IMAGE", type);
        table_.Put(row, "IMAGE_SEL", type);
        table_.Put(row, "EXPANDED", "");
        table_.Put(row, "NODEKEY", key);  // last: a row without a key is no node
        keys_.insert(key);
    }

private:
    [[nodiscard]] bool HasBelow(const std::string& key) const {
        return std::any_of(keys_.begin(), keys_.end(),
                           [&](const std::string& known) { return known.starts_with(key + "_"); });
    }

    const HostTable& table_;
    ObjectRef rows_;
    std::unordered_set<std::string> keys_;
    int number_ = 0;
};

}  // namespace

std::string KeepSteps(const HostTable& macroTree, const std::vector<MacroStep>& steps, const std::string& name,
                      const std::string& parentKey, StepSentence sentenceOf) {
    TreeWriter writer(macroTree);
    if (!parentKey.empty() && !writer.Has(parentKey)) {
        throw AutomationError(AutomationErrorCode::Failed, "MACRO_TREE has no node \"" + parentKey + "\"");
    }
    if (macroTree.RowCount() > 0) {
        static_cast<void>(macroTree.Value(1, "NODETYPE"));
        static_cast<void>(macroTree.Value(1, "NODEVALUE"));
    }
    constexpr std::size_t MostRows = 32767;
    if (static_cast<std::size_t>(macroTree.RowCount()) + steps.size() + 1 > MostRows) {
        throw AutomationError(AutomationErrorCode::Overflow, "MACRO_TREE holds 32,767 rows, so many do not fit");
    }
    const std::string key = writer.NewKey();
    writer.Add(key, parentKey, NameOf(MacroNodeType::Recording), name, {});
    int number = 0;
    for (const MacroStep& step : steps) {
        ++number;
        writer.Add(key + "_" + std::to_string(number), key, NameOf(MacroNodeType::Step),
                   std::to_string(number) + ". " + ReadableStep(step, sentenceOf), StepFields(step));
    }
    return key;
}

}  // namespace planview
