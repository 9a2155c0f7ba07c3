// SPDX-License-Identifier: MIT
#include "macro/editor/MacroEditor.h"

#include <algorithm>
#include <utility>

#include "automation/BusyScope.h"
#include "grid/CellRules.h"
#include "macro/editor/ElementSpots.h"
#include "macro/run/MacroGrid.h"
#include "macro/run/MacroSentences.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"

namespace planview {

using modPlan::TraceEnabled;
using modPlan::TraceWrite;

MacroEditor::MacroEditor(MacroEditorParts parts) : parts_(std::move(parts)) {
    parts_.tree.AddWatcher(*this);
}

MacroEditor::~MacroEditor() {
    parts_.tree.RemoveWatcher(*this);
}

void MacroEditor::Operate(std::string_view method, const std::function<void()>& body) {
    const FailureScope failures(parts_.failures);
    message_.clear();
    if (TraceEnabled) {
        TraceWrite(Label, "", method, TraceText("{node: ", currentKey_, "}"));
    }
    if (const std::optional<CaughtError> error = CaughtErrorOf(body)) {
        TraceError(Label, method, *error);
        Say("This could not be done: " + error->text + ".");
        Reload();
    }
    Changed();
}

void MacroEditor::Change(std::string_view method, const std::function<void()>& body) {
    AsOneStep([&] {
        Operate(method, [&] {
            if (MayChange()) {
                body();
            } else {
                Say(std::string(RefusalText(Refusal::TableReadOnly)));
            }
        });
    });
}

void MacroEditor::Say(std::string text, bool isProblem) {
    message_ = std::move(text);
    messageIsProblem_ = isProblem;
}

void MacroEditor::Tell(std::string message) {
    Say(std::move(message));
    Changed();
}

void MacroEditor::Changed() const {
    if (watcher_ && !isWorking_) {
        watcher_->EditorChanged();
    }
}

// --- What it shows

/// Shows the macro of the selected node; if that is in no macro, the one shown before stays.
void MacroEditor::Reload() {
    if (isWorking_) {
        return;
    }
    ErrorTrap(Label, "Reload", [&] {
        const TreeNode selected = parts_.tree.SelectedItem();
        const HostTable macroTree = parts_.tables.MACRO_TREE;
        std::string macro =
            selected && macroTree.IsSet() ? MacroKeyOf(parts_.tree, macroTree, selected.Key()) : std::string();
        const bool follows = !macro.empty();
        macro = follows ? macro : macroKey_;
        if (macro != macroKey_) {
            marksProblems_ = false;
            message_.clear();
        }
        const std::string before = currentKey_;
        macroKey_ = macro;
        currentKey_ = follows ? selected.Key() : currentKey_;
        ReadElements();
        if (currentKey_ != before) {
            spot_ = UsualSpot(outline_, Current());
        }
        ShowInToolbar();
    });
    Changed();
}

void MacroEditor::ReadElements() {
    elements_.clear();
    const HostTable macroTree = parts_.tables.MACRO_TREE;
    outline_ = macroKey_.empty() || !macroTree.IsSet() ? MacroOutline()
                                                       : MacroOutline::Read(parts_.tree, macroTree, macroKey_);
    if (outline_.IsEmpty()) {
        macroKey_.clear();
        currentKey_.clear();
        return;
    }
    const MacroGrid table(parts_.grid);
    const MacroSentences sentences(outline_, table);
    for (int i = 0; i < outline_.Count(); ++i) {
        const MacroNode& node = outline_.At(i);
        MacroElement& element = elements_.emplace_back();
        element.key = node.key;
        element.text = sentences.Of(i);
        element.type = node.type;
        element.depth = node.depth;
        element.isPart = node.type >= MacroNodeType::ConditionString && node.type <= MacroNodeType::Constant &&
                         !outline_.IsTarget(i);
        element.inactive =
            node.inactive || (node.parent >= 0 && elements_[static_cast<std::size_t>(node.parent)].inactive);
        if (node.text != sentences.ShortOf(i) && node.text != node.value) {
            element.note = node.text;
        }
    }
    if (outline_.Find(currentKey_) == MacroNode::None) {
        currentKey_ = macroKey_;
    }
    if (marksProblems_ && !IsRecording()) {
        Mark(parts_.check(macroKey_));
    }
}

int MacroEditor::Current() const noexcept {
    return outline_.Find(currentKey_);
}

void MacroEditor::SetCurrent(int element) {
    if (element < 0 || element >= outline_.Count() || element == Current()) {
        return;
    }
    message_.clear();
    if (const TreeNode node = parts_.tree.Nodes().Find(outline_.At(element).key)) {
        node.SetSelected(true);  // comes back through Reload()
        node.EnsureVisible();
    }
}

void MacroEditor::Open(const std::string& key) {
    if (const TreeNode node = parts_.tree.Nodes().Find(key)) {
        node.SetSelected(true);
        node.EnsureVisible();
    }
    if (watcher_) {
        watcher_->EditorOpened();
    }
}

bool MacroEditor::IsRecording() const noexcept {
    return !outline_.IsEmpty() && outline_.At(0).type == MacroNodeType::Recording;
}

void MacroEditor::SetSpot(MacroSpot spot) {
    spot_ = spot;
    Changed();
}

void MacroEditor::Mark(const MacroProblems& problems) {
    for (MacroElement& element : elements_) {
        element.problem.clear();
    }
    for (const MacroProblem& problem : problems) {
        const auto found = std::find_if(elements_.begin(), elements_.end(),
                                        [&](const MacroElement& element) { return element.key == problem.nodeKey; });
        if (found != elements_.end() && found->problem.empty()) {
            found->problem = problem.what + (problem.now.empty() ? "" : " " + problem.now);
        }
    }
    marksProblems_ = marksProblems_ && !problems.empty();
}

void MacroEditor::ShowInToolbar() {
    const MacroNode* node = CurrentNode();
    parts_.toolbar.SetChecked(ToolbarButton::Inactive, node && node->inactive);
}

const MacroNode* MacroEditor::CurrentNode() const noexcept {
    const int current = Current();
    return current == MacroNode::None ? nullptr : &outline_.At(current);
}

void MacroEditor::SetOperandText(std::string text) {
    if (text != operandText_) {
        operandText_ = std::move(text);
        Changed();
    }
}

// --- The tree

bool MacroEditor::Edit(const std::function<std::optional<std::string>(MacroTable& table)>& change) {
    std::optional<std::string> key;
    if (!MayChange()) {
        Say(std::string(RefusalText(Refusal::TableReadOnly)));
        return false;
    }
    Write([&](MacroTable& table) { key = change(table); });
    if (key) {
        Build(*key);
    }
    return key.has_value();
}

void MacroEditor::AsOneStep(const std::function<void()>& action) {
    MacroChanges changes;
    changes.currentBefore = currentKey_;
    struct Collecting {
        MacroChanges*& step;
        MacroChanges* const outer;
        ~Collecting() { step = outer; }
    };
    const std::optional<std::string> error = ErrorTextOf([&] {
        const Collecting collecting{step_, std::exchange(step_, &changes)};
        action();
    });
    changes.currentAfter = currentKey_;
    // Half an action can be taken back, too.
    if (!changes.IsEmpty() && !ErrorTextOf([&] { changes.End(parts_.tables.MACRO_TREE); })) {
        history_.Add(std::move(changes));
    }
    if (error) {
        throw AutomationError(AutomationErrorCode::Failed, *error);
    }
}

void MacroEditor::Write(const std::function<void(MacroTable& table)>& change) {
    const BusyScope working(isWorking_);
    MacroTable table(parts_.tree, parts_.tables.MACRO_TREE, *step_);
    change(table);
}

void MacroEditor::Restore(std::string (MacroHistory::*step)(const HostTable& table)) {
    std::string key;
    const std::string before = currentKey_;
    {
        const BusyScope working(isWorking_);
        key = (history_.*step)(parts_.tables.MACRO_TREE);
    }
    Build(key.empty() ? before : key);
    Announce();
}

void MacroEditor::Undo() {
    if (history_.CanUndo()) {
        Change("Undo", [&] { Restore(&MacroHistory::Undo); });
    }
}

void MacroEditor::Redo() {
    if (history_.CanRedo()) {
        Change("Redo", [&] { Restore(&MacroHistory::Redo); });
    }
}

void MacroEditor::Build(const std::string& currentKey) {
    {
        const BusyScope working(isWorking_);
        parts_.buildTree();
        if (const TreeNode node = parts_.tree.Nodes().Find(currentKey)) {
            node.SetSelected(true);
            node.EnsureVisible();
        }
    }
    currentKey_.clear();
    Reload();
}

/// This event tells the host of every change of the tree.
void MacroEditor::Announce() {
    parts_.events.Raise(EventId::MacroTreeExpand);
}

// --- The macro

void MacroEditor::Tell(const MacroProblems& problems, std::string done) {
    marksProblems_ = !problems.empty();
    Mark(problems);
    if (problems.empty()) {
        Say(std::move(done), false);
    } else {
        Say(problems.front().Text() +
            (problems.size() > 1 ? " (" + std::to_string(problems.size() - 1) + " more)" : std::string()));
    }
}

void MacroEditor::Check() {
    Operate("Generate", [&] {
        if (macroKey_.empty()) {
            Say("There is no macro to check. Select one in the tree.");
        } else {
            Tell(parts_.check(macroKey_), "The macro can run.");
        }
    });
}

void MacroEditor::Run() {
    RunBy("Run", parts_.run);
}

void MacroEditor::Preview() {
    RunBy("Preview", parts_.preview);
}

void MacroEditor::RunBy(std::string_view method, const std::function<MacroOutcome(const std::string& key)>& run) {
    AsOneStep([&] {
        Operate(method, [&] {
            if (macroKey_.empty()) {
                Say("There is no macro to run. Select one in the tree.");
            } else if (operandText_.empty() || TakeText()) {
                MacroOutcome outcome = run(macroKey_);
                Tell(outcome.problems, std::move(outcome.done));
            }
        });
    });
}

}  // namespace planview
