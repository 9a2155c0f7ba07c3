// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <random>

#include "macro/run/MacroEngineFixture.h"

namespace planview::test {

struct HeardEvents : PlanViewEvents {
    void MacroTreeExpand() override { ++count; }
    int count = 0;
};

/// A user at the macro editor: points at the grid, presses the buttons.
class MacroEditorTest : public MacroEngineTest {
protected:
    MacroEditorTest() : editor(context.macros.editor) { context.shared.events.AddSink(heard); }
    ~MacroEditorTest() override { context.shared.events.RemoveSink(heard); }

    void PointAtLine(const char* row) {
        context.grid.control.SelectRow(*context.grid.control.FindRow(row), SelectionMode::Replace);
    }
    void PointAt(const char* column, const char* row, SelectionMode mode = SelectionMode::Replace) {
        context.grid.control.SelectCell(context.grid.control.FindCell({column, row}).value(), mode);
    }
    void Label(const char* row, const char* column, const char* text) {
        context.grid.control.SetAttribute(GridElement::Cell, {column, row}, GridAttribute::Contents, text, true);
    }
    void TakeLine(const char* row) {
        PointAtLine(row);
        editor.TakeOperand();
    }
    /// The list: two blanks a level, "> " before the current element, "x" for one that is left out.
    [[nodiscard]] Lines Shown() const {
        Lines shown;
        for (std::size_t i = 0; i < editor.Elements().size(); ++i) {
            const MacroElement& element = editor.Elements()[i];
            shown.push_back((static_cast<int>(i) == editor.Current() ? "> " : "  ") +
                            std::string(static_cast<std::size_t>(element.depth) * 2, ' ') +
                            (element.inactive ? "x " : "") + element.text);
        }
        return shown;
    }
    /// What the table says when the tree is built from it once more.
    [[nodiscard]] Lines Statements() {
        BuildTree();
        Lines statements;
        for (const MacroElement& element : editor.Elements()) {
            if (element.depth == 1) {
                statements.push_back(element.text);
            }
        }
        return statements;
    }
    void GoTo(const std::string& text) {
        for (std::size_t i = 0; i < editor.Elements().size(); ++i) {
            if (editor.Elements()[i].text == text) {
                editor.SetCurrent(static_cast<int>(i));
                return;
            }
        }
        ADD_FAILURE() << "no element " << text;
    }
    /// To any element and any spot by it.
    void GoAnywhere(std::mt19937& random) {
        const auto count = static_cast<unsigned>(editor.Elements().size());
        editor.SetCurrent(static_cast<int>(random() % std::max(count, 1U)));
        editor.SetSpot(static_cast<MacroSpot>(random() % 3));
    }

    MacroEditor& editor;
    HeardEvents heard;
};

}  // namespace planview::test
