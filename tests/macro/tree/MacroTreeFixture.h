// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <planview/PlanView.h>

#include "components/TreeControl.h"
#include "control/ControlParts.h"
#include "support/SampleTables.h"
#include "support/TraceOracle.h"
#include "support/TreeText.h"

namespace planview::test {

/// A control with a macro tree that a test fills, and the events that it raises, as texts.
class MacroTreeFixture : public TracedTest, public PlanViewEvents {
protected:
    MacroTreeFixture() {
        control = std::make_unique<PlanView>(platform.Interfaces());
        tables.GiveTo(*control);
        control->AddSink(*this);
        ForgetEntries();
    }

    void AddNode(const char* key, const char* reference, Variant relation = 4, const char* text = nullptr) const {
        AddRow(*tables.macroTree, {{"NODEKEY", key},
                                   {"NODEREF", reference},
                                   {"RELATION", std::move(relation)},
                                   {"NODETEXT", text ? text : "Text " + std::string(key)},
                                   {"EXPANDED", ""}});
    }
    /// F: (N1: (N2))
    void BuildThree() {
        AddNode("F", "");
        AddNode("N1", "F");
        AddNode("N2", "N1");
        control->DP_Import_MacroTree();
        ForgetEntries();
    }
    [[nodiscard]] TreeControl& Tree() { return ControlParts(*control).Tree(); }
    [[nodiscard]] TreeNode Node(const char* key) { return Tree().Nodes().Item(key); }
    [[nodiscard]] std::string Shown() { return TreeText(Tree()); }
    [[nodiscard]] Lines Field(const char* field) const {
        Lines texts;
        for (std::int32_t row = 1; row <= tables.macroTree->RowCount(); ++row) {
            texts.push_back(tables.macroTree->Value(row, field).AsText());
        }
        return texts;
    }

    void Note(const std::string& event, const std::string& key, const std::string& switched) {
        heard.push_back(event + " " + key + (switched.empty() ? "" : " " + switched));
        if (whenHeard) {
            whenHeard();
        }
    }
    void GridTreeMacroClick(const std::string& key, const std::string& switched) override {
        Note("Click", key, switched);
    }
    void GridTreeMacroExpand(const std::string& key, const std::string& switched) override {
        Note("Expand", key, switched);
    }
    void GridTreeMacroCollapse(const std::string& key, const std::string& switched) override {
        Note("Collapse", key, switched);
    }
    void MacroTreeMouseDown(const std::string& key, const std::string& switched) override {
        Note("MouseDown", key, switched);
    }
    void MacroTreeNodeDropped(const std::string& key, const std::string& type, std::int16_t action) override {
        Note("Dropped", key, type + " " + std::to_string(action));
    }
    void MacroTreeExpand() override { Note("ExpandAll", "", ""); }
    void MacroTreeCollapse() override { Note("CollapseAll", "", ""); }
    void MacroDragSelection(const std::string& selection) override { Note("Drag", selection, ""); }

    Tables tables;
    std::unique_ptr<PlanView> control;
    Lines heard;
    std::function<void()> whenHeard;
};

}  // namespace planview::test
