// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <map>
#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <planview/PlanView.h>

#include "automation/Numbers.h"
#include "components/GridControl.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "macro/editor/MacroEditor.h"
#include "support/GridText.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"
#include "support/Transcript.h"
#include "support/TreeText.h"

namespace planview::test {

/// A control that a test works on as a user and a host do, and a transcript of all that comes of it, step by step:
///
///     GRIDCTL |  | Contents | {...}        a trace entry
///     > GridValueChanged Column=1 ...      an event, between the entries where it is raised
///     ? Fill 9 cells with test data?       a message box
///     popup Cell / form ...                a popup with its entries, where they differ from when it last opened
///     # TAB 4 V: 10 -> "12,5"              what is another one in a host table when the step ends
///     | ROW1 | <1> 2                       what is shown otherwise when the step ends
class GoldenRecorder : public TracedTest, protected EventSink {
protected:
    GoldenRecorder() {
        control = std::make_unique<PlanView>(platform.Interfaces());
        control->AddSink(*this);
    }

    /// Ends the step before and begins another one.
    void Step(const char* name) {
        EndStep();
        transcript.Begin(name);
        tables_ = TablesNow();
        shown_ = ShownNow();
    }
    void EndStep() {
        if (tables_.empty()) {
            return;
        }
        for (std::size_t i = 0; i < platform.messages.size(); ++i) {
            const MessageBoxRequest& message = platform.messages[i];
            transcript.Add("? " + message.title + ": " + message.text);
        }
        platform.messages.clear();
        for (const std::string& call : std::exchange(platform.formCalls, {})) {
            transcript.Add("form " + call);
        }
        for (const PopupMenu& popup : std::exchange(platform.popups, {})) {
            AddPopup(popup);
        }
        AddDifferences("# ", tables_, TablesNow());
        for (const auto& [name, text] : ShownNow()) {
            if (const auto before = shown_.find(name); before == shown_.end() || before->second != text) {
                transcript.Add("| " + name + " " + text);
            }
        }
        EXPECT_TRUE(platform.choices.empty()) << "no popup offered " << platform.choices.front();
    }

    /// A member by its name, as a host in a late-bound language calls it.
    void Call(const char* member, const std::vector<Variant>& arguments = {}) {
        static_cast<void>(control->Call(control->IdOf(member), arguments));
    }
    void SetTable(const char* name, const TableRef& table) {
        Call(("PROP_Set_" + std::string(name)).c_str(), {Variant(table)});
    }

    Tables tables;
    std::unique_ptr<PlanView> control;
    Transcript transcript;

private:
    using Texts = std::map<std::string, std::string>;

    void EntryAdded(const ListItem& entry) override {
        if (!tables_.empty()) {
            // The version is another one with each release.
            transcript.Add(entry.subItems[1] == "Morvida" ? "USERCONTROL |  | Morvida | {version: *}"
                                                          : EntryText(entry));
        }
    }

    void OnEvent(EventId event, std::span<const Variant> arguments) override {
        const EventDescription& described = DescribeEvents()[static_cast<std::size_t>(event) - 1];
        std::string line = "> " + std::string(described.name);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            line += " " + std::string(described.arguments[i].name) + "=" + Quoted(arguments[i]);
        }
        transcript.Add(line);
    }

    static std::string Quoted(const Variant& value) {
        return value.IsEmpty()                          ? "-"
               : value.GetKind() == Variant::Kind::Text ? "\"" + value.AsText() + "\""
                                                        : value.AsText();
    }

    /// What has another value now, or came, or went.
    void AddDifferences(const std::string& mark, const Texts& before, const Texts& now) {
        Texts all = before;
        all.insert(now.begin(), now.end());
        for (const auto& [name, unused] : all) {
            const auto old = before.find(name);
            const auto present = now.find(name);
            if (present == now.end()) {
                transcript.Add(mark + name + " has gone");
            } else if (old == before.end()) {
                transcript.Add(mark + name + ": " + present->second);
            } else if (old->second != present->second) {
                transcript.Add(mark + name + ": " + old->second + " -> " + present->second);
            }
        }
    }

    [[nodiscard]] Texts TablesNow() const {
        const std::pair<const char*, const TableRef&> all[] = {
            {"GRID_ATTR", tables.gridAttr},     {"COLS_INDEX", tables.colsIndex},
            {"LINE_INDEX", tables.lineIndex},   {"TAB", tables.tab},
            {"TAB_OLD", tables.tabOld},         {"FIXED_COLS", tables.fixedCols},
            {"FIXED_LINES", tables.fixedLines}, {"FIXED_TAB", tables.fixedTab},
            {"CELL_ATTR", tables.cellAttr},     {"MACRO_TREE", tables.macroTree},
            {"MACROREC", tables.macroRec}};
        Texts texts;
        for (const auto& [name, table] : all) {
            for (std::int32_t row = 1; row <= table->RowCount(); ++row) {
                for (const std::string& field : table->Fields()) {
                    texts[std::string(name) + " " + Number(row) + " " + field] = Quoted(table->Value(row, field));
                }
            }
        }
        return texts;
    }
    /// So that they stand in their order.
    static std::string Number(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

    [[nodiscard]] Texts ShownNow() {
        Texts texts;
        std::istringstream drawing(GridText(ControlParts(*control).Grid()));
        for (std::string line; std::getline(drawing, line);) {
            std::istringstream words(line);
            std::string row;
            words >> row;
            std::string text;
            for (std::string word; words >> word;) {
                text += " " + word;
            }
            texts[row] += text;
        }
        const ChartState& chart = ControlParts(*control).Chart().State();
        texts["chart"] = chart.title + (chart.IsComparison() ? ", compared" : "");
        for (std::size_t i = 0; i < chart.series.size(); ++i) {
            const ChartSeries& series = chart.series[i];
            std::string& text = texts["chart series " + std::to_string(i + 1)];
            text = series.caption + ", type " + std::to_string(static_cast<int>(series.type)) + ", trends " +
                   std::to_string(series.look->trends.size()) + ":";
            for (std::size_t at = 0; at < series.values.size(); ++at) {
                text += " " + chart.categories[at] + "=" + NumberText(series.values[at]);
            }
        }
        texts["tree"] = TreeText(ControlParts(*control).Tree());
        const MacroEditor& editor = ControlParts(*control).Editor();
        for (std::size_t i = 0; i < editor.Elements().size(); ++i) {
            const MacroElement& element = editor.Elements()[i];
            texts["macro " + Number(static_cast<int>(i) + 1)] =
                std::string(static_cast<std::size_t>(element.depth) * 2, ' ') + element.text +
                (element.inactive ? " (out)" : "") + (static_cast<int>(i) == editor.Current() ? " <" : "") +
                (element.problem.empty() ? "" : " ! " + element.problem);
        }
        texts["macro message"] = editor.Message();
        texts["clipboard"] = platform.onClipboard.text + (platform.onClipboard.html.empty() ? "" : " and HTML");
        return texts;
    }

    void AddPopup(const PopupMenu& popup) {
        std::vector<std::string> lines;
        AddEntries(popup.entries, "    ", lines);
        transcript.Add("popup " + popup.caption);
        if (std::vector<std::string>& last = popups_[popup.caption]; last != lines) {
            for (const std::string& line : lines) {
                transcript.Add(line);
            }
            last = lines;
        }
    }
    static void AddEntries(const std::vector<PopupEntry>& entries, const std::string& indent,
                           std::vector<std::string>& lines) {
        for (const PopupEntry& entry : entries) {
            lines.push_back(entry.separator
                                ? indent + "----"
                                : indent + entry.caption + (entry.shortcut.empty() ? "" : "  ") + entry.shortcut +
                                      (entry.name.empty() ? "" : "  [" + entry.name + "]") +
                                      (entry.checked ? " checked" : "") + (entry.enabled ? "" : " greyed"));
            AddEntries(entry.entries, indent + "    ", lines);
        }
    }

    Texts tables_;
    Texts shown_;
    std::map<std::string, std::vector<std::string>> popups_;
};

}  // namespace planview::test
